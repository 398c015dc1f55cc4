// The help beside the page.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { address, installed, requests, source, visit } from './browser.mjs';

const pages = fs.readdirSync(path.join(source, 'help/en')).sort();
const ofHelp = (list) => list.filter((name) => name.includes('/help/'));

async function opened(page) {
  const [help] = await Promise.all([page.context().waitForEvent('page'), page.click('#help')]);
  await help.waitForLoadState();
  return help;
}

test('the help opens in the language of the page, in a tab of its own', async (t) => {
  const page = await visit(t);
  const english = await opened(page);
  assert.equal(english.url(), `${address}help/en/index.html`);
  assert.equal(await english.textContent('h1'), 'Quillon help');
  await page.click('#language-de');
  await page.waitForFunction(() => document.documentElement.lang === 'de');
  const german = await opened(page);
  assert.equal(german.url(), `${address}help/de/index.html`);
  assert.equal(page.url(), address);
});

test('all pages of the help can be reached, with their pictures and their style', async (t) => {
  const page = await visit(t);
  const help = await opened(page);
  const failed = [];
  help.on('response', (response) => {
    if (!response.ok()) failed.push(response.url());
  });
  const seen = new Set();
  const left = [help.url()];
  while (left.length > 0) {
    const next = left.pop();
    if (seen.has(next)) continue;
    seen.add(next);
    await help.goto(next);
    const state = await help.evaluate(() => ({
      links: [...document.links].map(({ href }) => href.replace(/#.*/, '')),
      pictures: [...document.images].every((image) => image.naturalWidth > 0),
      styled: getComputedStyle(document.body).maxWidth !== 'none',
    }));
    assert.deepEqual([state.pictures, state.styled], [true, true], next);
    left.push(...state.links.filter((link) => link.startsWith(address)));
  }
  assert.deepEqual(failed, []);
  for (const language of ['de', 'en']) {
    const found = [...seen].filter((url) => url.includes(`/help/${language}/`)).map((url) => path.basename(url));
    assert.deepEqual(found.sort(), pages, language);
  }
});

test('nothing of the help is loaded before it is opened', async (t) => {
  const before = ofHelp(requests).length;
  const page = await visit(t);
  await installed(page);
  assert.equal(ofHelp(requests).length, before);
  await opened(page);
  assert.ok(ofHelp(requests).length > before);
});
