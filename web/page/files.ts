// Files that the user drops, chooses or opens with the page.

export interface Taken {
  drawings: File[];
  layerFile: File | null;
}

const isDrawing = (name: string) => /\.dxf$/i.test(name);
const isLayerFile = (name: string) => /\.lay$/i.test(name);

/** What is in a folder itself is taken when it is a drawing, and anything that was named. */
export function sorted(named: File[], inFolders: File[]): Taken {
  const drawings = [
    ...named.filter(({ name }) => !isLayerFile(name)),
    ...inFolders.filter(({ name }) => isDrawing(name)),
  ];
  return { drawings, layerFile: named.find(({ name }) => isLayerFile(name)) ?? null };
}

/** Of a folder that was chosen; what is in its folders is left out, as by the program. */
export function sortedFolder(files: Iterable<File>): Taken {
  const isDirect = (file: File) => file.webkitRelativePath.split("/").length <= 2;
  return sorted([], [...files].filter(isDirect));
}

function fileOf(entry: FileSystemFileEntry): Promise<File> {
  return new Promise((resolve, reject) => entry.file(resolve, reject));
}

async function filesOf(folder: FileSystemDirectoryEntry): Promise<File[]> {
  const reader = folder.createReader();
  const files: File[] = [];
  for (;;) {
    const entries = await new Promise<FileSystemEntry[]>((resolve, reject) => {
      reader.readEntries(resolve, reject);
    });
    if (entries.length === 0) return files.sort((a, b) => a.name.localeCompare(b.name));
    for (const entry of entries) {
      if (entry.isFile && isDrawing(entry.name)) files.push(await fileOf(entry as FileSystemFileEntry));
    }
  }
}

/** Must be called while the event is handled, before anything is waited for. */
export async function dropped(data: DataTransfer): Promise<Taken> {
  const named: File[] = [];
  const folders: FileSystemDirectoryEntry[] = [];
  for (const item of data.items) {
    const entry = item.webkitGetAsEntry?.();
    const file = item.getAsFile();
    if (entry?.isDirectory) folders.push(entry as FileSystemDirectoryEntry);
    else if (file) named.push(file);
  }
  const lists = await Promise.all(folders.map(filesOf));
  return sorted(named, lists.flat());
}

export function download(name: string, content: Blob): void {
  const address = URL.createObjectURL(content);
  const link = document.createElement("a");
  link.href = address;
  link.download = name;
  link.click();
  // The browser has to have begun with it.
  setTimeout(() => URL.revokeObjectURL(address), 60_000);
}
