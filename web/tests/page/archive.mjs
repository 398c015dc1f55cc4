// Reads an archive with Python's module, which shares nothing with what wrote it.
import { execFileSync } from 'node:child_process';
import fs from 'node:fs';
import path from 'node:path';

const program = `import sys, zipfile
with zipfile.ZipFile(sys.argv[1]) as archive:
    assert archive.testzip() is None
    archive.extractall(sys.argv[2])`;

/** Files by their paths; throws for a damaged archive. */
export function unzipped(bytes, work) {
  const out = fs.mkdtempSync(path.join(work, 'archive-'));
  const file = path.join(work, 'archive.zip');
  fs.writeFileSync(file, bytes);
  execFileSync('python3', ['-c', program, file, out]);
  const files = fs.readdirSync(out, { recursive: true }).filter((name) => fs.statSync(path.join(out, name)).isFile());
  return new Map(files.sort().map((name) => [name, fs.readFileSync(path.join(out, name))]));
}
