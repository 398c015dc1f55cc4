// A zip archive of files that are stored as they are.
export interface ZipEntry {
  name: string;
  content: Blob;
}

const table = Uint32Array.from({ length: 256 }, (_, index) => {
  let value = index;
  for (let bit = 0; bit < 8; bit += 1) value = value & 1 ? 0xedb88320 ^ (value >>> 1) : value >>> 1;
  return value;
});

async function checksum(content: Blob): Promise<number> {
  let sum = 0xffffffff;
  const reader = content.stream().getReader();
  for (;;) {
    const { done, value } = await reader.read();
    if (done) return (sum ^ 0xffffffff) >>> 0;
    for (const byte of value) sum = table[(sum ^ byte) & 0xff]! ^ (sum >>> 8);
  }
}

/** Numbers of two or four bytes, the lowest first. */
function record(...numbers: [bytes: 2 | 4, value: number][]): Uint8Array<ArrayBuffer> {
  const bytes = new Uint8Array(numbers.reduce((sum, [size]) => sum + size, 0));
  const view = new DataView(bytes.buffer);
  let at = 0;
  for (const [size, value] of numbers) {
    if (size === 2) view.setUint16(at, value, true);
    else view.setUint32(at, value, true);
    at += size;
  }
  return bytes;
}

/** Time and date as zip archives have them: two seconds, and years from 1980 on. */
function stamp(when: Date): [2 | 4, number][] {
  const time = (when.getHours() << 11) | (when.getMinutes() << 5) | (when.getSeconds() >> 1);
  const date = ((when.getFullYear() - 1980) << 9) | ((when.getMonth() + 1) << 5) | when.getDate();
  return [[2, time], [2, date]];
}

const version = 20;
const namesAreUtf8 = 0x800;

export async function zipOf(entries: ZipEntry[], when = new Date()): Promise<Blob> {
  const parts: BlobPart[] = [];
  const directory: BlobPart[] = [];
  let at = 0;
  let directorySize = 0;
  for (const { name, content } of entries) {
    const bytes = new TextEncoder().encode(name);
    const sum = await checksum(content);
    const about: [2 | 4, number][] = [
      [2, version], [2, namesAreUtf8], [2, 0], ...stamp(when),
      [4, sum], [4, content.size], [4, content.size], [2, bytes.length], [2, 0],
    ];
    const header = record([4, 0x04034b50], ...about);
    parts.push(header, bytes, content);
    const entry = record([4, 0x02014b50], [2, version], ...about, [2, 0], [2, 0], [2, 0], [4, 0], [4, at]);
    directory.push(entry, bytes);
    directorySize += entry.length + bytes.length;
    at += header.length + bytes.length + content.size;
  }
  if (at + directorySize > 0xffffffff) throw new RangeError("4 GB");
  const count = entries.length;
  const end = record([4, 0x06054b50], [2, 0], [2, 0], [2, count], [2, count], [4, directorySize], [4, at], [2, 0]);
  return new Blob([...parts, ...directory, end], { type: "application/zip" });
}
