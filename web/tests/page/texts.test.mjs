// What the page says is in the string table.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import test from 'node:test';

const source = process.env.SOURCE_FOLDER;
const table = fs.readFileSync(path.join(source, 'src/texts/strings.def'), 'utf8');
const known = new Set([...table.matchAll(/^(?:TEXT|BOTH)\(\s*(\w+)/gm)].map(([, name]) => name));
const page = path.join(source, 'web/page');
const sources = fs.readdirSync(page)
  .filter((name) => /\.(ts|html)$/.test(name))
  .map((name) => fs.readFileSync(path.join(page, name), 'utf8'))
  .join('\n');

/** Names in calls, in attributes, and in tables of names. */
const used = new Set([
  ...[...sources.matchAll(/\b(?:text|caption|tip|viewTip)\(\s*"(\w+)"/g)].map(([, name]) => name),
  ...[...sources.matchAll(/data-(?:text|label|view-tip)="(\w+)"/g)].map(([, name]) => name),
  ...[...sources.matchAll(/"((?:Caption|Tip|Space|Place|Hatch|LineTypes|WideLines|Polylines|Blocks|Rules|View|Queue|Page|Unit|Result)[A-Z]\w+)"/g)].map(([, name]) => name),
]);

test('each text of the page is in the table', () => {
  assert.ok(used.size > 100, String(used.size));
  assert.deepEqual([...used].filter((name) => !known.has(name)), []);
});

test('each text that is the page’s alone is used', () => {
  const own = [...known].filter((name) => /^Page[A-Z]/.test(name));
  assert.ok(own.length > 20);
  assert.deepEqual(own.filter((name) => !used.has(name)), []);
});
