// The archive of the page that is released.
import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import test, { after } from 'node:test';
import { unzipped } from './archive.mjs';

const folder = process.env.PAGE_FOLDER;
const tool = path.join(process.env.SOURCE_FOLDER, 'tools', 'make_zip.py');

const work = fs.mkdtempSync(path.join(os.tmpdir(), 'quillon-release-'));
after(() => fs.rmSync(work, { recursive: true }));

function filesOf(root) {
  const isFile = (name) => fs.statSync(path.join(root, name)).isFile();
  return fs.readdirSync(root, { recursive: true }).filter(isFile).sort();
}

function pack(from, environment = {}) {
  const archive = path.join(work, 'page.zip');
  const run = spawnSync('python3', [tool, archive, from, 'page'], { env: { ...process.env, ...environment }, encoding: 'utf8' });
  assert.equal(run.status, 0, run.stderr);
  return fs.readFileSync(archive);
}

test('the archive has all files of the page, each as it is', () => {
  const files = unzipped(fs.readFileSync(process.env.PAGE_ARCHIVE), work);
  assert.deepEqual([...files.keys()], filesOf(folder).map((name) => `quillon-page/${name}`));
  for (const [name, bytes] of files) {
    assert.ok(bytes.equals(fs.readFileSync(path.join(folder, name.replace('quillon-page/', '')))), name);
  }
});

test('the same files give the same archive, whenever they were written', () => {
  const copy = path.join(work, 'copy');
  fs.mkdirSync(copy);
  for (const name of filesOf(folder).reverse()) {
    fs.mkdirSync(path.dirname(path.join(copy, name)), { recursive: true });
    fs.copyFileSync(path.join(folder, name), path.join(copy, name));
    fs.utimesSync(path.join(copy, name), 1e9, 1e9);
  }
  assert.ok(pack(folder).equals(pack(copy)));
  const told = { SOURCE_DATE_EPOCH: '1700000000' };
  assert.ok(pack(folder, told).equals(pack(copy, told)));
  assert.ok(!pack(folder, told).equals(pack(copy, { SOURCE_DATE_EPOCH: '1600000000' })));
});
