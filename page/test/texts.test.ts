import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { test } from 'node:test';
import { texts } from '../src/texts.js';

test('every text is shown somewhere', () => {
  const names = readdirSync('src').filter((name) => name.endsWith('.ts') && name !== 'texts.ts');
  const code = names.map((name) => readFileSync(`src/${name}`, 'utf8')).join('\n');
  // These are named after the settings that they belong to.
  const bySetting = ['silkscreen', 'fabrication', 'pads', 'tracks', 'zones', 'holes', 'references', 'values'];
  const unused = Object.keys(texts).filter((key) => !new RegExp(`texts\\.${key}\\b`).test(code));
  assert.deepEqual(unused, bySetting);
});

test('no markup is made of a text', () => {
  for (const name of readdirSync('src').filter((one) => one.endsWith('.ts'))) {
    assert.doesNotMatch(readFileSync(`src/${name}`, 'utf8'), /innerHTML|outerHTML|insertAdjacentHTML|document\.write/);
  }
});
