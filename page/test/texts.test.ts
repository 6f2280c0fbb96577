import assert from 'node:assert/strict';
import { readdirSync, readFileSync } from 'node:fs';
import { test } from 'node:test';
import { texts } from '../src/texts.js';
import { viewerTexts } from '../src/viewer/texts.js';

test('every text is shown somewhere', () => {
  const names = readdirSync('src').filter((name) => name.endsWith('.ts') && name !== 'texts.ts');
  const code = names.map((name) => readFileSync(`src/${name}`, 'utf8')).join('\n');
  // These are named after the settings that they belong to.
  const bySetting = ['silkscreen', 'fabrication', 'pads', 'tracks', 'zones', 'holes', 'references', 'values'];
  const unused = Object.keys(texts).filter((key) => !new RegExp(`texts\\.${key}\\b`).test(code));
  assert.deepEqual(unused, bySetting);
});

test('every text of the viewer is shown somewhere', () => {
  const names = readdirSync('src/viewer').filter((name) => name.endsWith('.ts') && name !== 'texts.ts');
  const code = names.map((name) => readFileSync(`src/viewer/${name}`, 'utf8')).join('\n');
  assert.deepEqual(Object.keys(viewerTexts).filter((key) => !new RegExp(`exts\\.${key}\\b`).test(code)), []);
});

test('no markup is made of a text', () => {
  const own = [...readdirSync('src'), ...readdirSync('src/viewer').map((name) => `viewer/${name}`)];
  for (const name of own.filter((one) => one.endsWith('.ts'))) {
    assert.doesNotMatch(readFileSync(`src/${name}`, 'utf8'), /innerHTML|outerHTML|insertAdjacentHTML|document\.write/);
  }
});
