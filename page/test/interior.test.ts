import assert from 'node:assert/strict';
import { test } from 'node:test';
import { boxOf, depthWithin } from '../src/geometry.js';
import { Interior } from '../src/interior.js';
import { Batch, MARK_SIZE } from '../src/shapes.js';

const square = (from: number, to: number): number[] => [from, from, to, from, to, to, from, to];
const board = [{ points: square(0, 100), isClosed: true }, { points: square(40, 60), isClosed: true }];

function middlesOf(batch: Batch): number[] {
  return batch.marks.filter((_, i) => i % MARK_SIZE === 0);
}

test('a box lies as deep as it is far from every edge', () => {
  const at = (x: number, y: number): number => depthWithin(board, { minX: x, minY: y, maxX: x, maxY: y });
  assert.equal(at(20, 50), 20);
  assert.equal(at(37, 50), 3);
  assert.equal(at(50, 50), 0);
  assert.equal(at(-5, 50), 0);
  assert.equal(depthWithin(board, { minX: -5, minY: 10, maxX: 25, maxY: 20 }), 0);
});

test('only what is near to an edge or beyond it is left', () => {
  const interior = new Interior(board, boxOf(square(0, 100)));
  const batch = new Batch();
  for (const x of [-10, 0.5, 20, 39, 50, 80, 130]) {
    batch.addDisc(x, 50, 0.4);
  }
  assert.deepEqual(middlesOf(interior.beyond(batch)), [-10, 0.5, 39, 50, 130]);
  assert.equal(interior.margin, 1);
});

test('what reaches beyond an edge is left as a whole', () => {
  const interior = new Interior(board, boxOf(square(0, 100)));
  const batch = new Batch();
  batch.addLine(10, 10, 90, 10, 1, 0);
  batch.addLine(10, 50, 90, 50, 1, 0);
  batch.addLine(50, 10, 150, 10, 1, 0);
  batch.triangles.push(5, 5, 20, 5, 5, 20, 30, 30, 80, 30, 30, 80);
  const left = interior.beyond(batch);
  assert.deepEqual(middlesOf(left), [50, 100]);
  assert.deepEqual(left.triangles, [30, 30, 80, 30, 30, 80]);
});

test('nothing is hidden by a board whose profile is not known', () => {
  const interior = new Interior([], boxOf([]));
  const batch = new Batch();
  batch.addDisc(1, 1, 1);
  assert.equal(interior.margin, 0);
  assert.equal(interior.beyond(batch).marks.length, MARK_SIZE);
});
