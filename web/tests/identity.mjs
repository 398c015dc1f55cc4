// Converts drawings by the engine for the page and by the program for the command line, and
// compares the scripts byte for byte.
//   node identity.mjs ENGINE-FOLDER QUILLON-CONVERT FOLDER-OF-DRAWINGS...
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { DiskFile, loadEngine } from './engine.mjs';
import { argumentsOf, layerFile, optionSets, optionsOf, untried } from './option_sets.mjs';

const [engineFolder, program, ...folders] = process.argv.slice(2);
const quillon = await loadEngine(engineFolder);
const defaults = quillon.defaultOptions();
const missing = untried(defaults, quillon.exactWords());
if (missing.length > 0) throw new Error(`no set of options tries ${missing.join(', ')}`);

const drawings = folders.flatMap((folder) =>
  fs.readdirSync(folder).filter((name) => /\.dxf$/i.test(name)).map((name) => path.join(folder, name)));
if (drawings.length < 100) throw new Error(`only ${drawings.length} drawings`);

const work = fs.mkdtempSync(path.join(os.tmpdir(), 'quillon-web-'));
const layerPath = path.join(work, 'some.lay');
fs.writeFileSync(layerPath, layerFile);

/** Scripts of the program by drawing. Some drawings have none, which is no failure of the run. */
function nativeScripts(set, options) {
  const scripts = new Map();
  for (const folder of folders) {
    const out = fs.mkdtempSync(path.join(work, 'out-'));
    const list = [...argumentsOf(set, options, layerPath), '--no-config', '--language', 'en', '--quiet', '-o', out, folder];
    const run = spawnSync(program, list, { encoding: 'utf8' });
    if (run.status !== 0 && run.status !== 1) throw new Error(`${list.join(' ')}\n${run.stderr ?? run.error}`);
    for (const name of fs.readdirSync(out)) {
      scripts.set(path.join(folder, name.replace(/\.scr$/, '')), fs.readFileSync(path.join(out, name)));
    }
    fs.rmSync(out, { recursive: true });
  }
  return scripts;
}

async function webScript(drawing, options) {
  quillon.openDrawing(new DiskFile(drawing));
  const result = quillon.convert({ ...options, name: quillon.nameOf(path.basename(drawing)) }, false, () => {});
  return result.script && Buffer.from(await result.script.arrayBuffer());
}

let compared = 0;
const different = [];
for (const [number, set] of optionSets.entries()) {
  const options = optionsOf(set, defaults);
  if (set.layers) quillon.openLayerFile('some.lay', new TextEncoder().encode(layerFile));
  else quillon.closeLayerFile();
  const native = nativeScripts(set, options);
  for (const drawing of drawings) {
    const ours = await webScript(drawing, options);
    const theirs = native.get(drawing.replace(/\.dxf$/i, ''));
    if (ours && theirs ? !ours.equals(theirs) : Boolean(ours) !== Boolean(theirs)) {
      different.push(`${drawing}, options ${number}: ${JSON.stringify(set)}`);
    } else if (ours) {
      compared += 1;
    }
  }
}
fs.rmSync(work, { recursive: true });
console.log(`${compared} scripts of ${drawings.length} drawings with ${optionSets.length} sets of options are the same`);
if (compared < drawings.length * optionSets.length * 0.9) different.push('too few scripts');
for (const line of different) console.error(`different: ${line}`);
process.exitCode = different.length > 0 ? 1 : 0;
