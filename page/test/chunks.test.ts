import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Chunks, chunksOfMarks, chunksOfTriangles } from '../src/chunks.js';
import { Box } from '../src/geometry.js';
import { Batch } from '../src/shapes.js';

const everywhere: Box = { minX: -1e9, minY: -1e9, maxX: 1e9, maxY: 1e9 };

// Small discs in a row a millimetre apart, and a large one.
function discs(): Batch {
  const batch = new Batch();
  batch.addDisc(0, 0, 50);
  for (let x = 0; x < 1000; ++x) {
    batch.addDisc(x, 0, 0.5);
  }
  return batch;
}

function runs(chunks: Chunks, box: Box, isWanted: (size: number) => boolean): [number, number][] {
  const found: [number, number][] = [];
  chunks.eachRun(box, ({ size }) => isWanted(size), (first, count) => found.push([first, count]));
  return found;
}

test('all that is wanted comes in one run, and each mark has one place', () => {
  const chunks = chunksOfMarks(discs().marks);
  assert.deepEqual([...chunks.order].sort((a, b) => a - b), Array.from({ length: 1001 }, (_, i) => i));
  assert.deepEqual(runs(chunks, everywhere, () => true), [[0, 1001]]);
});

test('large marks come first, and small ones are left out by their size', () => {
  const chunks = chunksOfMarks(discs().marks);
  assert.equal(chunks.order[0], 0);
  assert.deepEqual(runs(chunks, everywhere, (size) => size > 10), [[0, 1]]);
});

test('what lies elsewhere is left out', () => {
  const chunks = chunksOfMarks(discs().marks);
  const box = { minX: 500, minY: -1, maxX: 501, maxY: 1 };
  const found = runs(chunks, box, () => true);
  const places = found.flatMap(([first, count]) => chunks.order.slice(first, first + count));
  assert.ok(places.includes(500) || places.includes(501));
  assert.ok(places.length < 400, String(places.length));
});

test('small triangles are left out by their size, and each has one place', () => {
  const chunks = chunksOfTriangles([0, 0, 0.1, 0, 0, 0.1, 0, 0, 30, 0, 0, 40]);
  assert.deepEqual(chunks.order, [1, 0]);
  assert.deepEqual(runs(chunks, everywhere, (size) => size >= 50), [[0, 1]]);
});
