import assert from 'node:assert/strict';
import { beforeEach, test } from 'node:test';
import { Settings } from '../src/settings.js';

const kept = new Map<string, string>();

beforeEach(() => {
  kept.clear();
  Object.assign(globalThis, {
    localStorage: {
      getItem: (key: string) => kept.get(key) ?? null,
      setItem: (key: string, value: string) => kept.set(key, value),
    },
  });
});

test('settings and checked parts are kept, the parts for their board alone', () => {
  const settings = new Settings('mm', 'a');
  settings.change({ units: 'inch' });
  settings.check('Placed', ['C1', 'C2'], true);
  settings.check('Placed', ['C2'], false);
  const again = new Settings('mm', 'a');
  assert.equal(again.values.units, 'inch');
  assert.deepEqual(again.checked, { Placed: ['C1'] });
  assert.deepEqual(new Settings('mm', 'b').checked, {});
});

test('lengths are in the unit of each board until another one is asked for', () => {
  const settings = new Settings('inch', 'a');
  settings.change({ turn: 90 });
  assert.equal(settings.units, 'inch');
  assert.equal(new Settings('mm', 'b').units, 'mm');
  settings.change({ units: 'um' });
  assert.equal(new Settings('mm', 'b').units, 'um');
});

test('settings are loaded as they were saved', () => {
  const settings = new Settings('mm', 'a');
  settings.change({ checks: ['Seen'], turn: 90 });
  settings.check('Seen', ['U1'], true);
  const text = settings.text();
  settings.reset();
  settings.check('Seen', ['U1'], false);
  assert.ok(settings.load(text));
  assert.equal(settings.values.turn, 90);
  assert.deepEqual(settings.values.checks, ['Seen']);
  assert.ok(settings.isChecked('Seen', 'U1'));
});

test('what is no file of settings is refused, and values of another kind are passed over', () => {
  const settings = new Settings('mm', 'a');
  assert.ok(!settings.load('{}'));
  assert.ok(!settings.load('['));
  assert.ok(settings.load('{"kind":"ipc2581 page settings","settings":{"turn":"x","show":{"pads":false,"none":1}}}'));
  assert.equal(settings.values.turn, 0);
  assert.equal(settings.values.show.pads, false);
  assert.ok(!('none' in settings.values.show));
});

test('a browser that keeps nothing is no failure', () => {
  Object.assign(globalThis, { localStorage: undefined });
  const settings = new Settings('mm', 'a');
  settings.change({ turn: 45 });
  assert.equal(settings.values.turn, 45);
});
