// From a drawing to its script, as a user does it.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { unzipped } from './archive.mjs';
import { colourAt, example, inkOf, linesDrawing, nativeScript, open, saved, settled, visit, work } from './browser.mjs';

const exactly = ['--rules', 'exact', '--unit', 'mm'];

test('a dropped drawing is shown with its size and unit', async (t) => {
  const page = await visit(t);
  const text = fs.readFileSync(example('lid.dxf'), 'latin1');
  const data = await page.evaluateHandle((content) => {
    const list = new DataTransfer();
    list.items.add(new File([content], 'lid.dxf'));
    return list;
  }, text);
  await page.dispatchEvent('main', 'drop', { dataTransfer: data });
  await page.waitForFunction(() => document.querySelector('#size').textContent !== '');
  await settled(page);
  assert.equal(await page.textContent('#size'), '90.0 x 60.0 mm (3.543 x 2.362 in)');
  assert.equal(await page.textContent('#unit'), 'Unit named in the drawing: mm');
  assert.ok((await inkOf(page)) > 2000);
  assert.match(await page.textContent('#description'), /Size: 90\.0 x 60\.0 mm/);
});

test('the script is that of the program', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  const script = await saved(page, '#download');
  assert.equal(script.name, 'lid.scr');
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), ...exactly)));
  assert.match(await page.textContent('#outcome'), /In EAGLE type: SCRIPT 'lid\.scr'/);
});

test('rules, unit and other options make the script', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.selectOption('#option-rules', 'classic');
  await page.selectOption('#option-unit', 'mil');
  await page.selectOption('#option-eagle', '6');
  await page.click('#panel-settings details:first-of-type summary');
  await page.selectOption('#option-poly', 'wire');
  await page.fill('#option-scale', '2.5');
  await page.fill('#option-name', 'cover');
  const script = await saved(page, '#download');
  const options = ['--unit', 'mil', '--eagle', '6', '--poly', 'wire', '--scale', '2.5', '--name', 'cover'];
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), ...options)));
  assert.match(String(script.bytes), /EDIT 'cover\.brd'/i);
});

test('the unit changes the size that is told', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.selectOption('#option-drawingunit', 'inch');
  await page.waitForFunction(() => document.querySelector('#size').textContent.startsWith('2286'));
});

test('layers go where they are assigned, by the list and by a file', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'), example('lid.lay'));
  const withFile = await saved(page, '#download');
  assert.ok(withFile.bytes.equals(nativeScript(example('lid.dxf'), ...exactly, '--layers', example('lid.lay'))));
  await page.click('#tab-layers');
  await page.locator('#assignments li', { hasText: 'PRINT' }).locator('select').focus();
  await page.locator('#assignments li', { hasText: 'PRINT' }).locator('select').selectOption('25 tNames (B)');
  await page.waitForFunction(() => /25 tNames/.test(document.querySelector('#layers').textContent));
  const file = await saved(page, '#save-layer-file');
  assert.equal(file.name, 'lid.lay');
  const layerFile = path.join(work, 'changed.lay');
  fs.writeFileSync(layerFile, file.bytes);
  const changed = await saved(page, '#download');
  assert.ok(changed.bytes.equals(nativeScript(example('lid.dxf'), ...exactly, '--layers', layerFile)));
  assert.ok(!changed.bytes.equals(withFile.bytes));
  const areas = page.locator('#assignments li', { hasText: 'OUTLINE' }).locator('.areas input');
  await areas.check();
  await settled(page);
  fs.writeFileSync(layerFile, (await saved(page, '#save-layer-file')).bytes);
  assert.match(fs.readFileSync(layerFile, 'latin1'), /layername=OUTLINE\r\nlayernr=20\r\nareas=1\r\n/);
  const filled = await saved(page, '#download');
  assert.ok(filled.bytes.equals(nativeScript(example('lid.dxf'), ...exactly, '--layers', layerFile)));
  assert.ok(!filled.bytes.equals(changed.bytes));
  await page.click('#tab-settings');
  await page.selectOption('#option-rules', 'classic');
  await page.click('#tab-layers');
  assert.equal(await areas.isVisible(), false);
});

test('layers can be hidden in the picture', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'), example('lid.lay'));
  const all = await inkOf(page);
  await page.click('#tab-layers');
  assert.match(await page.textContent('#layers li:first-child'), /20 Dimension \(B\)\s*8/);
  await page.click('#layers li:first-child label');
  await settled(page);
  const fewer = await inkOf(page);
  assert.ok(fewer < all - 500, `${all} and then ${fewer}`);
  await page.click('#show-layers');
  await settled(page);
  assert.equal(await inkOf(page), all);
});

test('differences are shown in their colours, and a hint mends them', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.selectOption('#option-rules', 'classic');
  await page.click('#view-differences');
  await page.waitForFunction(() => /16/.test(document.querySelector('#tab-losses').textContent));
  await settled(page);
  await page.click('#hints button:has-text("Use them")');
  await page.waitForFunction(() => document.querySelector('#option-rules').value === 'exact');
  await page.click('#undo');
  assert.equal(await page.inputValue('#option-rules'), 'classic');
});

test('a loss is brought to the middle of the picture', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  const before = await colourAt(page, 0.5, 0.5);
  await page.click('#tab-losses');
  await page.click('#losses li:first-child button');
  await settled(page);
  assert.equal(await page.getAttribute('#losses li:first-child button', 'aria-current'), 'true');
  const about = await page.textContent('#losses li:first-child .quiet');
  assert.equal(about, 'TEXT · PRINT · Line 925');
  assert.match(await page.textContent('#description'), /3 TEXT on layer PRINT, first in line 925/);
  assert.notEqual(await colourAt(page, 0.51, 0.5), before);
});

test('several drawings become one archive of scripts', async (t) => {
  const page = await visit(t);
  const names = ['lid.dxf', 'frontplate.dxf', 'sensor-board.dxf'];
  await open(page, ...names.map(example));
  const archive = await saved(page, '#download-all');
  assert.equal(archive.name, 'scripts.zip');
  const files = unzipped(archive.bytes, work);
  assert.deepEqual([...files.keys()].sort(), ['frontplate.scr', 'lid.scr', 'sensor-board.scr']);
  for (const name of names) {
    const script = files.get(name.replace('.dxf', '.scr'));
    assert.ok(script.equals(nativeScript(example(name), ...exactly)), name);
  }
});

test('a folder has the drawings that are in it and not in its folders', async (t) => {
  const page = await visit(t);
  const folder = path.join(work, 'folder');
  fs.mkdirSync(path.join(folder, 'below'), { recursive: true });
  for (const name of ['lid.dxf', 'logo.dxf', 'below/frontplate.dxf']) {
    fs.copyFileSync(example(path.basename(name)), path.join(folder, name));
  }
  fs.writeFileSync(path.join(folder, 'notes.txt'), 'not a drawing');
  await page.setInputFiles('#folder', folder);
  await page.waitForFunction(() => document.querySelector('#size').textContent !== '');
  const names = await page.locator('#drawings .what').allTextContents();
  assert.deepEqual(names.sort(), ['lid.dxf', 'logo.dxf']);
});

test('drawings whose scripts would have one name are told apart', async (t) => {
  const page = await visit(t);
  const same = path.join(work, 'LID.dxf');
  fs.copyFileSync(example('logo.dxf'), same);
  await open(page, example('lid.dxf'), same);
  const archive = await saved(page, '#download-all');
  assert.deepEqual([...unzipped(archive.bytes, work).keys()], ['lid.scr']);
  const words = 'LID.dxf was not converted because its script LID.scr already belongs to lid.dxf. Please rename one of the drawings.';
  assert.equal(await page.textContent('#drawings li:last-child .quiet'), words);
  assert.equal(await page.textContent('#outcome p'), '1 converted, 1 not converted.');
});

test('files without a drawing are refused', async (t) => {
  const page = await visit(t);
  const folder = fs.mkdtempSync(path.join(work, 'none-'));
  fs.writeFileSync(path.join(folder, 'notes.txt'), 'not a drawing');
  await page.setInputFiles('#folder', folder);
  await page.waitForSelector('#start-message:visible');
  assert.equal(await page.textContent('#start-message'), 'There is no DXF file among them. Please choose other files.');
});

test('a large drawing can be cancelled, and then another converted', async (t) => {
  const page = await visit(t);
  const large = linesDrawing('large.dxf', 600_000);
  await page.setInputFiles('#files', large);
  await page.click('#cancel-reading');
  await page.waitForSelector('#again:visible');
  assert.equal(await page.textContent('#problem-text'), 'Cancelled.');
  await page.click('#download');
  await page.waitForFunction(() => document.querySelector('#progress').value > 1);
  await page.click('#cancel');
  await page.waitForFunction(() => document.querySelector('#outcome').textContent === 'Cancelled.');
  await open(page, example('lid.dxf'));
  const script = await saved(page, '#download');
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), ...exactly)));
});

test('a binary drawing is refused in the words of the program', async (t) => {
  const page = await visit(t);
  const file = path.join(work, 'binary.dxf');
  fs.writeFileSync(file, 'AutoCAD Binary DXF\r\n\x1a\0\0\0SECTION');
  await page.setInputFiles('#files', file);
  const words = 'binary.dxf is a binary DXF file. Please save the drawing as ASCII DXF.';
  await page.waitForFunction((told) => document.querySelector('#problem-text').textContent === told, words);
  await page.click('#download');
  await page.waitForFunction((told) => document.querySelector('#outcome').textContent === told, words);
});
