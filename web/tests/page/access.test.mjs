// Languages, themes, sizes, keys and screen readers.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import { createRequire } from 'node:module';
import test from 'node:test';
import { colourAt, example, inkOf, nativeScript, open, saved, settled, visit } from './browser.mjs';

const axe = fs.readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');

/** What a checker of accessibility finds that keeps somebody out. */
async function findings(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => window.axe.run());
  const bad = violations.filter(({ impact }) => impact === 'serious' || impact === 'critical');
  return bad.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html).join(' ')}`);
}

const phone = { viewport: { width: 390, height: 844 }, hasTouch: true, isMobile: true, deviceScaleFactor: 2 };

for (const [name, options] of [['light', {}], ['dark', { colorScheme: 'dark' }], ['phone', phone], ['German', { locale: 'de-DE' }]]) {
  test(`everybody can use all parts of the page: ${name}`, async (t) => {
    const page = await visit(t, options);
    assert.deepEqual(await findings(page), []);
    await open(page, example('lid.dxf'), example('relay-card.dxf'), example('lid.lay'));
    await page.click('#tab-settings');
    await page.selectOption('#option-rules', 'classic');
    await page.waitForSelector('#hints button');
    await saved(page, '#download');
    for (const tab of ['drawings', 'settings', 'layers', 'losses']) {
      await page.click(`#tab-${tab}`);
      for (const summary of await page.locator('summary:visible').all()) await summary.click();
      assert.deepEqual(await findings(page), [], tab);
    }
  });
}

test('the checker would find what is wrong', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.evaluate(() => document.querySelector('#option-rules').labels[0].remove());
  assert.match((await findings(page)).join(), /select-name/);
});

test('the page speaks the language of the browser, and another one when asked', async (t) => {
  const page = await visit(t, { locale: 'de-AT' });
  assert.equal(await page.getAttribute('html', 'lang'), 'de');
  assert.equal(await page.textContent('#private'), 'Alles geschieht auf diesem Gerät. Nichts wird hochgeladen.');
  await open(page, example('lid.dxf'));
  assert.equal(await page.textContent('#unit'), 'Einheit laut Zeichnung: mm');
  await page.click('#language-en');
  await page.waitForFunction(() => document.querySelector('#unit').textContent === 'Unit named in the drawing: mm');
  assert.equal(await page.textContent('#download'), 'Download script');
  await page.reload();
  await page.waitForSelector('html[data-ready]');
  assert.equal(await page.getAttribute('html', 'lang'), 'en');
});

test('no text is left untold in either language', async (t) => {
  for (const locale of ['en-GB', 'de-DE']) {
    const page = await visit(t, { locale });
    await open(page, example('lid.dxf'));
    const untold = await page.evaluate(() =>
      [...document.querySelectorAll('[data-text], label, [role=tab], select option')].filter((element) => !element.textContent.trim() || /%\d|&|~/.test(element.textContent)).map((element) => element.outerHTML));
    assert.deepEqual(untold, []);
  }
});

test('the picture follows the theme of the system', async (t) => {
  const page = await visit(t, { colorScheme: 'dark' });
  await open(page, example('lid.dxf'));
  const dark = await colourAt(page, 0.01, 0.01);
  await page.emulateMedia({ colorScheme: 'light' });
  await settled(page);
  const light = await colourAt(page, 0.01, 0.01);
  assert.equal(light, '255,255,255');
  assert.ok(dark.split(',').every((part) => Number(part) < 60), dark);
  assert.ok((await inkOf(page)) > 2000);
});

test('the page fits a phone', async (t) => {
  const page = await visit(t, { ...phone, locale: 'de-DE' });
  const overhang = () => page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
  assert.ok((await overhang()) <= 0);
  await open(page, example('lid.dxf'));
  for (const tab of ['settings', 'layers', 'losses']) {
    await page.click(`#tab-${tab}`);
    assert.ok((await overhang()) <= 0, tab);
  }
  await page.evaluate(() => scrollTo(0, 0));
  const paper = await page.locator('#picture').boundingBox();
  assert.ok(paper.y + paper.height < 844, 'the picture is seen whole');
  const button = await page.locator('#download').boundingBox();
  assert.ok(button.y + button.height <= 844, 'the download is at hand');
  const small = await page.evaluate(() =>
    [...document.querySelectorAll('button, select')].filter((control) => control.offsetHeight > 0 && control.offsetHeight < 40).map(({ id }) => id));
  assert.deepEqual(small, []);
});

/** Presses Tab until the control has the focus. */
async function tabTo(page, id) {
  for (let i = 0; i < 80; i += 1) {
    if (await page.evaluate((wanted) => document.activeElement?.id === wanted, id)) return;
    await page.keyboard.press('Tab');
  }
  throw new Error(`${id} cannot be reached by the Tab key`);
}

test('keys are enough from the drawing to the script', async (t) => {
  const page = await visit(t);
  const chosen = page.waitForEvent('filechooser');
  await tabTo(page, 'choose');
  await page.keyboard.press('Enter');
  const chooser = await chosen;
  await chooser.setFiles(example('lid.dxf'));
  await page.waitForFunction(() => document.querySelector('#size').textContent !== '');
  await settled(page);
  assert.equal(await page.evaluate(() => document.activeElement.id), 'picture');
  const ink = await inkOf(page);
  for (const key of ['+', '+', '+', 'ArrowRight']) await page.keyboard.press(key);
  await settled(page);
  assert.notEqual(await inkOf(page), ink);
  await page.keyboard.press('0');
  await page.keyboard.press('3');
  assert.equal(await page.getAttribute('#view-differences', 'aria-pressed'), 'true');
  await page.keyboard.press('1');
  await tabTo(page, 'tab-settings');
  await page.keyboard.press('ArrowRight');
  assert.equal(await page.getAttribute('#tab-layers', 'aria-selected'), 'true');
  await page.keyboard.press('ArrowLeft');
  await tabTo(page, 'option-rules');
  await page.keyboard.press('c');
  await page.waitForFunction(() => document.querySelector('#option-rules').value === 'classic');
  await tabTo(page, 'download');
  const [download] = await Promise.all([page.waitForEvent('download'), page.keyboard.press('Enter')]);
  const script = fs.readFileSync(await download.path());
  assert.ok(script.equals(nativeScript(example('lid.dxf'), '--unit', 'mm')));
});

test('keys measure, and the distance is said', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.focus('#picture');
  await page.keyboard.press('m');
  assert.match(await page.textContent('#description'), /Click two points/);
  await page.keyboard.press('Enter');
  await page.keyboard.press('ArrowRight');
  await page.keyboard.press('Enter');
  await page.waitForFunction(() => /^Distance: /.test(document.querySelector('#description').textContent));
  await page.keyboard.press('Escape');
  assert.equal(await page.getAttribute('#measure', 'aria-pressed'), 'false');
});

test('measuring snaps to corners', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'));
  await page.click('#measure');
  const box = await page.locator('#picture').boundingBox();
  // 90 x 60 mm in 92 of 100 parts of the lower side; 10 and 80 mm along the lower edge.
  const scale = 0.92 * Math.min(box.width / 90, box.height / 60);
  const at = (x, y) => [box.x + box.width / 2 + (x - 45) * scale, box.y + box.height / 2 - (y - 30) * scale];
  const [x0, y0] = at(8, 0);
  const [x1, y1] = at(82, 0);
  await page.mouse.click(x0 + 4, y0 + 3);
  await page.mouse.click(x1 - 4, y1 + 3);
  await page.waitForFunction(() => /^Distance: 74\.0+ mm/.test(document.querySelector('#description').textContent));
});
