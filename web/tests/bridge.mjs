// What a page gets from the engine, call by call.
//   node --test bridge.mjs, with ENGINE_FOLDER and SOURCE_FOLDER in the environment
import assert from 'node:assert/strict';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import test, { after } from 'node:test';
import { DiskFile, loadEngine } from './engine.mjs';

const examples = path.join(process.env.SOURCE_FOLDER, 'examples');
const work = fs.mkdtempSync(path.join(os.tmpdir(), 'quillon-web-'));
after(() => fs.rmSync(work, { recursive: true }));
const quillon = await loadEngine(process.env.ENGINE_FOLDER);
const bytes = (text) => new TextEncoder().encode(text);

function open(name) {
  quillon.openDrawing(new DiskFile(path.join(examples, name)));
}

function openText(name, text) {
  const file = path.join(work, name);
  fs.writeFileSync(file, text);
  quillon.openDrawing(new DiskFile(file));
  return file;
}

const lines = (count) => {
  let text = '0\nSECTION\n2\nENTITIES\n';
  for (let i = 0; i < count; i++) {
    text += `0\nLINE\n8\nA\n10\n${i % 700}.25\n20\n${i % 300}\n11\n${i % 700}.75\n21\n${(i % 300) + 1}\n`;
  }
  return `${text}0\nENDSEC\n0\nEOF\n`;
};

test('texts are in the language that was set', () => {
  quillon.setLanguage('de');
  assert.equal(quillon.texts().CaptionUnit, 'E&inheit');
  assert.equal(quillon.editorLayers().at(-1).slice(0, 3), '999');
  quillon.setLanguage('en');
  assert.equal(quillon.texts().CaptionUnit, 'Unit');
});

test('options come back as they were given', () => {
  const options = quillon.defaultOptions();
  assert.equal(options.rules, 'exact');
  const changed = quillon.withTarget({ ...options, exact: { ...options.exact, hatch: 'solid' } }, 'symbol');
  assert.equal(changed.target, 'symbol');
  assert.equal(changed.layer, '94 Symbols (S)');
  assert.equal(changed.exact.hatch, 'solid');
  assert.deepEqual(quillon.withTarget(changed, 'board').exact, changed.exact);
  const odd = { ...options, exact: { join: '7', hatch: 'dots' } };
  assert.deepEqual(quillon.withTarget(odd, 'board').exact, options.exact);
});

test('numbers that are followed by something are told', () => {
  const options = { ...quillon.defaultOptions(), offsetX: '2,5' };
  assert.match(quillon.warnings(options)[0].text, /2,5/);
});

test('a picture has what the drawing has', () => {
  open('lid.dxf');
  assert.deepEqual(quillon.layers(), ['0', 'OUTLINE', 'CUTOUT', 'HOLES', 'PRINT']);
  const facts = quillon.readResult(quillon.defaultOptions());
  assert.equal(facts.isWhole, true);
  assert.equal(facts.size, '90.0 x 60.0 mm (3.543 x 2.362 in)');
  assert.ok(facts.losses.length > 0 && facts.lossCount > 0);
  const scene = quillon.scene('result');
  assert.deepEqual(scene.bounds, { x0: 0, y0: 0, x1: 90, y1: 60 });
  const [layer] = scene.layers;
  assert.equal(layer.name, '20 Dimension (B)');
  assert.equal(layer.lines.length, 4 * layer.lineWidths.length);
  assert.equal(layer.arcs.length % 10, 0);
  assert.equal(layer.areaEnds.at(-1) * 2, layer.areaPoints.length);
  assert.equal(layer.textLines.length, 4 * layer.textWidths.length);
  for (let i = 0; i < layer.arcs.length; i += 10) {
    const [x0, y0, x1, y1, cx, cy, radius, start, sweep] = layer.arcs.slice(i, i + 10);
    assert.ok(Math.hypot(cx + radius * Math.cos(start) - x0, cy + radius * Math.sin(start) - y0) < 1e-6);
    const end = start + sweep;
    assert.ok(Math.hypot(cx + radius * Math.cos(end) - x1, cy + radius * Math.sin(end) - y1) < 1e-6);
  }
  // Buffers of their own can be transferred.
  const copy = structuredClone(scene, { transfer: scene.layers.map((one) => one.lines.buffer) });
  assert.ok(copy.layers[0].lines.length > 0);
});

test('what differs is found', () => {
  open('lid.dxf');
  const options = quillon.defaultOptions();
  quillon.readResult({ ...options, rules: 'classic' });
  assert.equal(quillon.differences(), null);
  const facts = quillon.readDrawing();
  const offers = facts.hints.map((hint) => hint.offer);
  assert.ok(offers.includes('useExact'));
  quillon.compare();
  const { onlyDrawing } = quillon.differences();
  assert.ok(onlyDrawing.length > 0 && onlyDrawing.lines.length > 0);
  assert.equal(quillon.takeOffer('useExact', { ...options, rules: 'classic' }).rules, 'exact');
  assert.deepEqual(quillon.nearestPlace('result', 0.1, 0.1, 20, []) !== null, true);
  assert.equal(quillon.nearestPlace('result', 0.1, 0.1, 20, [20]), null);
});

test('a script comes with its summary', async () => {
  open('lid.dxf');
  const percents = [];
  const options = { ...quillon.defaultOptions(), name: quillon.nameOf('lid.dxf') };
  const made = quillon.convert(options, false, (isWriting, percent) => percents.push([isWriting, percent]));
  assert.equal(made.outcome, 'converted');
  assert.equal(made.scriptName, 'lid.scr');
  assert.equal(made.command, "SCRIPT 'lid.scr'");
  assert.match(await made.script.text(), /^Write;\r?\nEdit 'lid\.brd';/);
  assert.match(made.summary[0], /^Entities converted: 26 \(from 1034 lines of lid\.dxf\)$/);
  assert.deepEqual(percents.at(-1), [true, 100]);
});

test('drawings that are none are refused', () => {
  for (const [name, text, expected] of [
    ['binary.dxf', 'AutoCAD Binary DXF\r\n\x1a\0', /binary/i],
    ['empty.dxf', '', /empty/i],
    ['letter.dxf', 'Dear Sir,\nno drawing here.\n', /binary\.dxf|letter\.dxf/],
  ]) {
    openText(name, text);
    const made = quillon.convert(quillon.defaultOptions(), false, () => {});
    assert.equal(made.script, null);
    assert.match(made.messages[0].detail, expected);
    const facts = quillon.readResult(quillon.defaultOptions());
    assert.equal(facts.isWhole, false);
    assert.equal(facts.message, made.messages[0].detail);
    assert.equal(quillon.scene('result'), null);
  }
});

test('a drawing that vanishes is an error, and the next one is read', () => {
  const file = openText('gone.dxf', lines(10));
  fs.rmSync(file);
  const made = quillon.convert(quillon.defaultOptions(), false, () => {});
  assert.equal(made.outcome, 'ended');
  assert.match(made.messages[0].detail, /gone\.dxf/);
  open('lid.dxf');
  assert.equal(quillon.convert(quillon.defaultOptions(), false, () => {}).outcome, 'converted');
});

test('layer files are read, changed and given back', async () => {
  open('lid.dxf');
  quillon.closeLayerFile();
  assert.equal(quillon.layerFile(), null);
  assert.equal(quillon.assignLayer('OUTLINE', '46 Milling (B)'), '');
  assert.deepEqual(quillon.assignedLayers()[1], { name: 'OUTLINE', layer: '46 Milling (B)', areas: false });
  const { name, bytes: made } = quillon.layerFile();
  assert.equal(name, 'lid.lay');
  assert.equal(new TextDecoder().decode(made), '[1]\r\nlayername=OUTLINE\r\nlayernr=46\r\n');
  const script = quillon.convert(quillon.defaultOptions(), false, () => {}).script;
  assert.match(await script.text(), /Layer\s+46\s*;/);
  assert.equal(quillon.setAreas('OUTLINE', true), '');
  assert.equal(quillon.assignedLayers()[1].areas, true);
  assert.match(new TextDecoder().decode(quillon.layerFile().bytes), /areas=1\r\n$/);
  quillon.openLayerFile('notes.txt', bytes('Dear Sir,\n'));
  assert.match(quillon.assignLayer('OUTLINE', '20'), /notes\.txt/);
  assert.equal(new TextDecoder().decode(quillon.layerFile().bytes), 'Dear Sir,\n');
  quillon.closeLayerFile();
  assert.equal(quillon.assignedLayers()[1].layer, '');
});

test('files of the same name do not meet', () => {
  quillon.openLayerFile('same.dxf', bytes('[1]\r\nlayername=A\r\nlayernr=21\r\n'));
  openText('same.dxf', lines(3));
  assert.deepEqual(quillon.assignedLayers(), [{ name: 'A', layer: '21 tPlace (B)', areas: false }]);
  openText('same.scr', lines(3));
  assert.equal(quillon.convert(quillon.defaultOptions(), false, () => {}).scriptName, 'same.scr.scr');
  quillon.closeLayerFile();
});

test('a limit ends the work unless there is none', () => {
  // Blocks of blocks, ten in each of nine: a thousand million lines.
  let text = '0\nSECTION\n2\nBLOCKS\n';
  for (let i = 0; i < 9; i++) {
    text += `0\nBLOCK\n2\nB${i}\n10\n0\n20\n0\n`;
    const entity = i === 0 ? '0\nLINE\n8\nA\n10\n0\n20\n0\n11\n1\n21\n1\n' : `0\nINSERT\n8\nA\n2\nB${i - 1}\n10\n0\n20\n0\n`;
    text += `${entity.repeat(10)}0\nENDBLK\n`;
  }
  openText('endless.dxf', `${text}0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n8\nA\n2\nB8\n10\n0\n20\n0\n0\nENDSEC\n0\nEOF\n`);
  const made = quillon.convert({ ...quillon.defaultOptions(), rules: 'classic' }, false, () => {});
  assert.equal(made.outcome, 'ended');
  assert.equal(made.script, null);
  assert.equal(made.messages.length, 1);
});

test('neither a large drawing nor its script is in memory', () => {
  const file = path.join(work, 'large.dxf');
  const part = lines(200000).split('ENTITIES\n')[1].split('0\nENDSEC')[0];
  fs.writeFileSync(file, '0\nSECTION\n2\nENTITIES\n');
  for (let i = 0; i < 8; i++) fs.appendFileSync(file, part);
  fs.appendFileSync(file, '0\nENDSEC\n0\nEOF\n');
  assert.ok(fs.statSync(file).size > 64 << 20);
  const before = quillon.HEAP8.length;
  quillon.openDrawing(new DiskFile(file));
  const made = quillon.convert({ ...quillon.defaultOptions(), rules: 'classic' }, false, () => {});
  assert.equal(made.outcome, 'converted');
  assert.ok(made.script.size > 64 << 20);
  assert.ok(quillon.HEAP8.length - before < 8 << 20, `${before} to ${quillon.HEAP8.length}`);
});
