// The page in a real browser, served as a static host does. PAGE_FOLDER has the page, SOURCE_FOLDER
// the checkout, QUILLON_CONVERT is the program whose scripts are compared, CHROMIUM the browser.
//   node --test --test-concurrency=1 web/tests/page
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import http from 'node:http';
import os from 'node:os';
import path from 'node:path';
import { after } from 'node:test';
import { chromium } from 'playwright-core';

const folder = process.env.PAGE_FOLDER;
export const source = process.env.SOURCE_FOLDER;
export const example = (name) => path.join(source, 'examples', name);
export const work = fs.mkdtempSync(path.join(os.tmpdir(), 'quillon-page-'));

const kinds = {
  '.html': 'text/html', '.js': 'text/javascript', '.css': 'text/css', '.svg': 'image/svg+xml',
  '.wasm': 'application/wasm', '.webmanifest': 'application/manifest+json', '.png': 'image/png',
};

const place = '/some/folder/';
/** What was asked of the server, by path. */
export const requests = [];
const server = http.createServer((request, response) => {
  const asked = new URL(request.url, 'http://page').pathname;
  requests.push(asked);
  const file = path.join(folder, asked.replace(place, ''), asked.endsWith('/') ? 'index.html' : '');
  if (!fs.existsSync(file)) {
    response.writeHead(404).end();
    return;
  }
  response.writeHead(200, { 'content-type': kinds[path.extname(file)] });
  fs.createReadStream(file).pipe(response);
});
await new Promise((listening) => server.listen(0, listening));
export const address = `http://127.0.0.1:${server.address().port}${place}`;

export function stopServer() {
  server.closeAllConnections();
  return new Promise((closed) => server.close(closed));
}

const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
  args: ['--no-sandbox'],
});
after(async () => {
  await browser.close();
  await stopServer();
  fs.rmSync(work, { recursive: true });
});

/** A new visitor. What the page tells the console is a failure unless expected, as is a fault in it. */
export async function visit(test, { fragment = '', expected = /^$/, ...options } = {}) {
  const context = await browser.newContext({ locale: 'en-GB', viewport: { width: 1280, height: 800 }, ...options });
  context.setDefaultTimeout(20_000);
  const page = await context.newPage();
  const faults = [];
  page.on('console', (message) => {
    if (['error', 'warning'].includes(message.type()) && !expected.test(message.text())) faults.push(message.text());
  });
  page.on('pageerror', (fault) => faults.push(String(fault)));
  test.after(async () => {
    await context.close();
    if (faults.length > 0) throw new Error(`the page said: ${faults.join('\n')}`);
  });
  await page.goto(address + fragment);
  await page.waitForSelector('html[data-ready]');
  return page;
}

/** The page has all that it keeps for later. */
export async function installed(page) {
  await page.evaluate(async () => {
    await navigator.serviceWorker.ready;
    while (!navigator.serviceWorker.controller) await new Promise((done) => setTimeout(done, 20));
  });
  await page.waitForTimeout(200);
}

export async function open(page, ...files) {
  await page.setInputFiles('#files', files);
  await page.waitForFunction(() => document.querySelector('#size').textContent !== '');
  await settled(page);
}

/** Waits until the picture shows what was asked for. */
export async function settled(page) {
  await page.waitForFunction(
    () => document.querySelector('#picture').getAttribute('aria-busy') === 'false' && document.querySelector('#picture').dataset.painted,
  );
  await page.waitForFunction(async () => {
    const count = () => document.querySelector('#picture').dataset.painted;
    const before = count();
    await new Promise((done) => setTimeout(done, 150));
    return count() === before;
  });
}

/** What a click gives to be saved. */
export async function saved(page, button) {
  const [download] = await Promise.all([page.waitForEvent('download'), page.click(button)]);
  return { name: download.suggestedFilename(), bytes: fs.readFileSync(await download.path()) };
}

/** The script that the program makes of a drawing. */
export function nativeScript(drawing, ...options) {
  const out = path.join(work, 'native.scr');
  const list = ['--no-config', '--force', '--quiet', '--language', 'en', '-o', out, ...options, drawing];
  const run = spawnSync(process.env.QUILLON_CONVERT, list, { encoding: 'utf8' });
  if (run.status !== 0) throw new Error(`${list.join(' ')}\n${run.stderr ?? run.error}`);
  return fs.readFileSync(out);
}

/** A point of the picture, as "r,g,b"; the share of its width and height. */
export function colourAt(page, x, y) {
  return page.evaluate(([fx, fy]) => {
    const canvas = document.querySelector('#picture');
    const copy = document.createElement('canvas');
    copy.width = canvas.width;
    copy.height = canvas.height;
    const context = copy.getContext('2d');
    context.drawImage(canvas, 0, 0);
    return [...context.getImageData(canvas.width * fx, canvas.height * fy, 1, 1).data.slice(0, 3)].join();
  }, [x, y]);
}

/** How many points of the picture differ from its background. */
export function inkOf(page) {
  return page.evaluate(() => {
    const canvas = document.querySelector('#picture');
    const copy = document.createElement('canvas');
    copy.width = canvas.width;
    copy.height = canvas.height;
    const context = copy.getContext('2d');
    context.drawImage(canvas, 0, 0);
    const { data } = context.getImageData(0, 0, copy.width, copy.height);
    let ink = 0;
    // The grid is pale; lines are not.
    for (let i = 0; i < data.length; i += 4) {
      const far = Math.abs(data[i] - data[0]) + Math.abs(data[i + 1] - data[1]) + Math.abs(data[i + 2] - data[2]);
      if (far > 150) ink += 1;
    }
    return ink;
  });
}

/** Short lines, none twice and none at the end of another, a thousand in a row. */
export function linesDrawing(name, count) {
  const file = path.join(work, name);
  let text = '0\nSECTION\n2\nENTITIES\n';
  for (let i = 0; i < count; i += 1) {
    const x = i % 1000;
    const y = Math.floor(i / 1000);
    text += `0\nLINE\n8\nA\n10\n${x}.25\n20\n${y}\n11\n${x}.75\n21\n${y + 0.5}\n`;
  }
  fs.writeFileSync(file, `${text}0\nENDSEC\n0\nEOF\n`);
  return file;
}
