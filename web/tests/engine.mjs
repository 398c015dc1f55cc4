// The engine in Node.js as a page's worker has it: what a worker offers and Node.js does not is
// made up here, so that the same files take the same way through the same module.
import fs from 'node:fs';
import path from 'node:path';
import { pathToFileURL } from 'node:url';

/** A part of a file on the disk, with what the engine uses of a page's File. */
export class DiskFile {
  constructor(file, start = 0, end = fs.statSync(file).size) {
    this.file = file;
    this.name = path.basename(file);
    this.start = start;
    this.size = Math.max(0, end - start);
  }

  slice(from, to) {
    const end = this.start + this.size;
    return new DiskFile(this.file, this.start + from, Math.min(end, this.start + to));
  }

  bytes() {
    const buffer = Buffer.alloc(this.size);
    const opened = fs.openSync(this.file, 'r');
    try {
      const got = fs.readSync(opened, buffer, 0, this.size, this.start);
      return buffer.buffer.slice(buffer.byteOffset, buffer.byteOffset + got);
    } finally {
      fs.closeSync(opened);
    }
  }
}

class FileReaderSync {
  readAsArrayBuffer(file) {
    return file.bytes();
  }
}

export async function loadEngine(folder) {
  const address = pathToFileURL(path.join(folder, 'quillon.js')).href;
  globalThis.FileReaderSync = FileReaderSync;
  globalThis.self ??= globalThis;
  globalThis.location ??= { href: address };
  const { default: createQuillon } = await import(address);
  return createQuillon({ wasmBinary: fs.readFileSync(path.join(folder, 'quillon.wasm')) });
}
