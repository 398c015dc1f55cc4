// The files of the engine's system: the drawing, read in slices of a File that stays where it is,
// and the script, whose blocks become a Blob outside the engine's memory. Both are in the current
// folder, so that messages name them as the user does.
mergeInto(LibraryManager.library, {
  $QuillonFiles__deps: ['$FS', '$WORKERFS'],
  $QuillonFiles: {
    mountPoint: '/drawing',
    folder: '/files',
    device: 0,
    blobs: [],
    block: null, // what has been written since the last blob, kept for the next script
    size: 0,

    start: function () {
      var ioError = {{{ cDefine('EIO') }}};
      FS.mkdir(QuillonFiles.mountPoint);
      FS.mkdir(QuillonFiles.folder);
      FS.chdir(QuillonFiles.folder);
      QuillonFiles.device = FS.makedev(64, 0);
      FS.registerDevice(QuillonFiles.device, {
        open: function () {},
        close: function () {},
        read: function () {
          throw new FS.ErrnoError(ioError);
        },
        llseek: function () {
          return 0;
        },
        write: function (stream, buffer, offset, length) {
          var bytes = new Uint8Array(buffer.buffer, buffer.byteOffset + offset, length);
          QuillonFiles.block ||= new Uint8Array(8 << 20);
          // Browsers put blobs on the disk where memory is short.
          if (QuillonFiles.size + length > QuillonFiles.block.length) QuillonFiles.pack();
          if (length > QuillonFiles.block.length) {
            QuillonFiles.blobs.push(new Blob([bytes]));
            return length;
          }
          QuillonFiles.block.set(bytes, QuillonFiles.size);
          QuillonFiles.size += length;
          return length;
        },
      });
    },

    pack: function () {
      if (QuillonFiles.size) QuillonFiles.blobs.push(new Blob([QuillonFiles.block.subarray(0, QuillonFiles.size)]));
      QuillonFiles.size = 0;
    },

    // The file may change or vanish while it is read; that is no reason to end everything.
    readSafely: function (stream, buffer, offset, length, position) {
      try {
        return WORKERFS.stream_ops.read(stream, buffer, offset, length, position);
      } catch (error) {
        throw new FS.ErrnoError({{{ cDefine('EIO') }}});
      }
    },
  },

  quillonMakeFolders__deps: ['$QuillonFiles'],
  quillonMakeFolders: function () {
    QuillonFiles.start();
  },

  quillonOpenDrawing__deps: ['$QuillonFiles', '$Emval'],
  quillonOpenDrawing: function (file, name) {
    var text = UTF8ToString(name);
    var blobs = [{ name: text, data: Emval.toValue(file) }];
    FS.mount(WORKERFS, { blobs: blobs }, QuillonFiles.mountPoint);
    var path = QuillonFiles.mountPoint + '/' + text;
    var node = FS.lookupPath(path).node;
    node.stream_ops = Object.assign({}, WORKERFS.stream_ops, { read: QuillonFiles.readSafely });
    FS.symlink(path, text);
  },

  quillonCloseDrawing__deps: ['$QuillonFiles'],
  quillonCloseDrawing: function (name) {
    FS.unlink(UTF8ToString(name));
    FS.unmount(QuillonFiles.mountPoint);
  },

  quillonOpenScript__deps: ['$QuillonFiles'],
  quillonOpenScript: function (name) {
    FS.mkdev(UTF8ToString(name), 438 /* rw-rw-rw- */, QuillonFiles.device);
  },

  quillonCloseScript__deps: ['$QuillonFiles', '$Emval'],
  quillonCloseScript: function (name) {
    FS.unlink(UTF8ToString(name));
    QuillonFiles.pack();
    var script = new Blob(QuillonFiles.blobs, { type: 'text/plain' });
    QuillonFiles.blobs = [];
    return Emval.toHandle(script);
  },
});
