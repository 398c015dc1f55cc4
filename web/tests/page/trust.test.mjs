// What the page asks for, keeps and tells.
import assert from 'node:assert/strict';
import test from 'node:test';
import { address, example, installed, linesDrawing, nativeScript, open, requests, saved, visit } from './browser.mjs';

test('nothing is asked of any server once the page is there', async (t) => {
  const page = await visit(t);
  await installed(page);
  const asked = [];
  page.context().on('request', (request) => {
    if (!request.url().startsWith('blob:')) asked.push(request.url());
  });
  const before = requests.length;
  await open(page, example('lid.dxf'), example('sensor-board.dxf'), example('lid.lay'));
  await saved(page, '#download');
  await saved(page, '#download-all');
  await page.click('#view-differences');
  await page.click('#language-de');
  await page.setInputFiles('#files', linesDrawing('many.dxf', 400_000));
  await page.click('#cancel-reading');
  await page.waitForSelector('#again:visible');
  await open(page, example('lid.dxf'));
  await saved(page, '#download');
  assert.deepEqual(requests.slice(before), []);
  assert.deepEqual(asked, []);
  // The watch itself works.
  await page.evaluate(() => fetch('index.html', { method: 'POST' }));
  assert.equal(requests.length, before + 1);
});

test('nothing can be sent elsewhere', async (t) => {
  const page = await visit(t, { expected: /Content Security Policy|violates/ });
  const blocked = await page.evaluate(async () => {
    const told = new Promise((done) => {
      document.addEventListener('securitypolicyviolation', (event) => done(event.effectiveDirective));
    });
    await fetch('http://127.0.0.1:9/').catch(() => {});
    return told;
  }).catch((fault) => String(fault));
  assert.equal(blocked, 'connect-src');
  const policy = await page.getAttribute('meta[http-equiv="Content-Security-Policy"]', 'content');
  for (const part of ["default-src 'none'", "base-uri 'none'", "form-action 'none'"]) assert.ok(policy.includes(part));
  assert.ok(!policy.includes('unsafe-inline') && !policy.includes("'unsafe-eval'"));
});

test('workers are bound by the same policy', async (t) => {
  const page = await visit(t, { expected: /Content Security Policy|violates/ });
  // The same server by another name, which answers whoever it lets in.
  const other = address.replace('127.0.0.1', 'localhost');
  const ask = (from) => fetch(from, { mode: 'no-cors' }).then(() => 'sent', () => 'refused');
  const workers = page.workers();
  assert.equal(workers.length, 2);
  for (const worker of workers) assert.equal(await worker.evaluate(ask, other), 'refused');
  assert.equal(await workers[0].evaluate(ask, address), 'sent');
});

test('the browser keeps the options and the language, nothing of the drawing', async (t) => {
  const page = await visit(t);
  await open(page, example('lid.dxf'), example('lid.lay'));
  await page.selectOption('#option-rules', 'classic');
  await page.click('#language-de');
  await page.waitForFunction(() => document.documentElement.lang === 'de');
  const stored = await page.evaluate(async () => ({
    local: { ...localStorage },
    session: { ...sessionStorage },
    databases: (await indexedDB.databases()).length,
    cookies: document.cookie,
    root: await navigator.storage.getDirectory().then(async (root) => { let n = 0; for await (const _ of root.keys()) n += 1; return n; }),
  }));
  assert.deepEqual(Object.keys(stored.local), ['quillon']);
  assert.deepEqual(JSON.parse(stored.local.quillon), { options: 'rules=classic', language: 'de' });
  assert.deepEqual([stored.session, stored.databases, stored.cookies, stored.root], [{}, 0, '', 0]);
  await page.reload();
  await page.waitForSelector('html[data-ready]');
  assert.equal(await page.inputValue('#option-rules'), 'classic');
});

test('a link has the options and not the drawing', async (t) => {
  const page = await visit(t, { permissions: ['clipboard-read', 'clipboard-write'] });
  await open(page, example('lid.dxf'));
  await page.selectOption('#option-rules', 'classic');
  await page.selectOption('#option-target', 'schematic');
  await page.selectOption('#option-unit', 'inch');
  await page.fill('#option-name', 'secret');
  await page.waitForTimeout(400);
  await page.click('#copy-link');
  await page.waitForFunction(() => document.querySelector('#link-copied').textContent !== '');
  const link = await page.evaluate(() => navigator.clipboard.readText());
  assert.ok(link.startsWith(`${address}#`) && !/lid|secret/.test(link), link);
  const other = await visit(t, { fragment: new URL(link).hash });
  await open(other, example('lid.dxf'));
  const script = await saved(other, '#download');
  const options = ['--target', 'schematic', '--unit', 'inch', '--layer', '94'];
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), ...options)));
});

test('a link with nonsense does no harm', async (t) => {
  const page = await visit(t, { fragment: '#rules=best&unit=%3Cb%3E&hatch=dots&layer=x&target=board&constructor=1&scale=2' });
  await open(page, example('lid.dxf'));
  const script = await saved(page, '#download');
  const options = ['--rules', 'exact', '--unit', 'mm', '--scale', '2'];
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), ...options)));
});

test('the page opens and converts without a network', async (t) => {
  const page = await visit(t);
  await installed(page);
  const before = requests.length;
  await page.context().setOffline(true);
  await page.reload();
  await page.waitForSelector('html[data-ready]');
  await open(page, example('lid.dxf'));
  const script = await saved(page, '#download');
  assert.ok(script.bytes.equals(nativeScript(example('lid.dxf'), '--rules', 'exact', '--unit', 'mm')));
  assert.equal(requests.length, before);
});

test('the page can be installed and opens drawings', async (t) => {
  const page = await visit(t);
  const manifest = await page.evaluate(async () => (await fetch(document.querySelector('link[rel=manifest]').href)).json());
  assert.equal(manifest.display, 'standalone');
  assert.ok(Object.values(manifest.file_handlers[0].accept).flat().includes('.dxf'));
});
