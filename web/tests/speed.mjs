// How many times as long as the program the engine of the page takes for a conversion:
// node web/tests/speed.mjs FOLDER-OF-quillon.js PROGRAM RULES DRAWING...
// Each round is a process of its own. The drawings are held in memory, as reading them takes Node.js
// longer than a browser; the program reads and writes files, and its start counts.
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import { loadEngine } from './engine.mjs';

const ROUNDS = 7;
const RUNS = 3; // of the engine in a process, the best of which counts: the first ones compile it

/** A part of a drawing in memory, with what the engine uses of a page's File. */
class MemoryFile {
  constructor(name, view) {
    this.name = name;
    this.view = view;
    this.size = view.byteLength;
  }

  slice(from, to) {
    return new MemoryFile(this.name, this.view.subarray(from, to));
  }

  bytes() {
    return this.view.slice().buffer;
  }
}

/** Milliseconds of the best run in this process. */
async function timeOfEngine(folder, rules, drawing) {
  const engine = await loadEngine(folder);
  const options = { ...engine.defaultOptions(), rules, unit: 'mm' };
  const bytes = fs.readFileSync(drawing);
  const file = new MemoryFile(path.basename(drawing), new Uint8Array(bytes.buffer, bytes.byteOffset, bytes.byteLength));
  const times = [];
  for (let i = 0; i < RUNS; i++) {
    engine.openDrawing(file);
    const start = performance.now();
    engine.convert(options, false, () => {});
    times.push(performance.now() - start);
  }
  return Math.min(...times);
}

function run(program, ...args) {
  const start = performance.now();
  const { status, stdout, stderr } = spawnSync(program, args, { encoding: 'utf8' });
  if (status !== 0) throw new Error(`${program} failed: ${stderr}`);
  return { time: performance.now() - start, stdout };
}

const median = (values) => [...values].sort((a, b) => a - b)[values.length >> 1];

function compare(folder, program, rules, drawing) {
  const scripts = fs.mkdtempSync(path.join(fs.existsSync('/dev/shm') ? '/dev/shm' : os.tmpdir(), 'quillon-'));
  const engine = [];
  const native = [];
  const own = fileURLToPath(import.meta.url);
  for (let i = 0; i < ROUNDS; i++) {
    engine.push(Number(run(process.execPath, own, '--engine', folder, rules, drawing).stdout));
    const script = path.join(scripts, 'script.scr');
    native.push(run(program, '--no-config', '--force', '--quiet', '--unit', 'mm', '--rules', rules, '-o', script, drawing).time);
  }
  fs.rmSync(scripts, { recursive: true });
  const medians = median(engine) / median(native);
  const bests = Math.min(...engine) / Math.min(...native);
  console.log(`${path.basename(drawing)}, ${rules} rules: ${medians.toFixed(2)} times the program (medians), ${bests.toFixed(2)} (bests)`);
}

const args = process.argv.slice(2);
if (args[0] === '--engine') {
  console.log(await timeOfEngine(...args.slice(1)));
} else if (args.length < 4) {
  console.error('usage: node speed.mjs FOLDER-OF-quillon.js PROGRAM classic|exact DRAWING...');
  process.exitCode = 2;
} else {
  const [folder, program, rules, ...drawings] = args;
  for (const drawing of drawings) compare(folder, program, rules, drawing);
}
