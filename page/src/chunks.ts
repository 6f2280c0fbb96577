// Marks and triangles in chunks of what is near to each other and of like size, so that a chunk can be left out.
import Flatbush from 'flatbush';
import { addBox, addPoint, Box, boxOf, emptyBox } from './geometry.js';
import { MARK_SIZE } from './shapes.js';

const CHUNK = 64;

interface Measured {
  box: Box;
  // Of a chunk the largest of what is in it, and the widest, in millimetres.
  size: number;
  width: number;
}

interface Thing extends Measured {
  x: number;
  y: number;
  kind: number;
}

interface Chunk extends Measured {
  first: number;
  count: number;
}

export class Chunks {
  // Which thing comes first, second and so on.
  readonly order: number[];
  private readonly chunks: Chunk[] = [];
  private readonly index: Flatbush;

  constructor(things: Thing[]) {
    this.order = orderOf(things);
    let kind = NaN;
    this.order.forEach((place, first) => {
      const last = this.chunks[this.chunks.length - 1];
      const { box, size, width, kind: own } = things[place]!;
      if (!last || last.count === CHUNK || own !== kind) {
        this.chunks.push({ first, count: 1, box, size, width });
        kind = own;
        return;
      }
      addBox(last.box, box);
      last.size = Math.max(last.size, size);
      last.width = Math.max(last.width, width);
      ++last.count;
    });
    this.index = new Flatbush(this.chunks.length);
    this.chunks.forEach(({ box }) => this.index.add(box.minX, box.minY, box.maxX, box.maxY));
    this.index.finish();
  }

  // Runs of what is wanted and lies in the box, at least in part.
  eachRun(box: Box, isWanted: (chunk: Measured) => boolean, draw: (first: number, count: number) => void): void {
    const found = this.index.search(box.minX, box.minY, box.maxX, box.maxY).sort((a, b) => a - b);
    let first = 0;
    let count = 0;
    for (const place of found) {
      const chunk = this.chunks[place]!;
      if (!isWanted(chunk)) {
        continue;
      }
      if (chunk.first !== first + count) {
        if (count > 0) {
          draw(first, count);
        }
        first = chunk.first;
        count = 0;
      }
      count += chunk.count;
    }
    if (count > 0) {
      draw(first, count);
    }
  }
}

export function chunksOfMarks(marks: number[]): Chunks {
  return new Chunks(Array.from({ length: marks.length / MARK_SIZE }, (_, i) => {
    const at = i * MARK_SIZE;
    const [x, y, halfWidth, halfHeight] = [marks[at]!, marks[at + 1]!, marks[at + 4]!, marks[at + 5]!];
    const reach = Math.hypot(halfWidth, halfHeight);
    const [longer, shorter] = [Math.max(halfWidth, halfHeight), Math.min(halfWidth, halfHeight)];
    const box = { minX: x - reach, minY: y - reach, maxX: x + reach, maxY: y + reach };
    return { x, y, box, size: 2 * reach, width: 2 * shorter, kind: kindOf(longer, shorter) };
  }));
}

export function chunksOfTriangles(places: number[]): Chunks {
  return new Chunks(Array.from({ length: places.length / 6 }, (_, i) => {
    const box = boxOf(places.slice(i * 6, i * 6 + 6));
    const size = Math.hypot(box.maxX - box.minX, box.maxY - box.minY);
    const [x, y] = [(box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2];
    return { x, y, box, size, width: size, kind: kindOf(size / 2, size / 2) };
  }));
}

// What things of like size have in common: how long and how wide they are, by powers of two. What is larger than a few
// millimetres is seen in most pictures.
function kindOf(longer: number, shorter: number): number {
  const power = (length: number): number => Math.min(Math.max(Math.round(Math.log2(length)), -6), 1) + 6;
  return 16 * power(longer) + power(shorter);
}

// How far along a curve of Hilbert a cell of a square of 256 by 256 lies: near cells are mostly near on the curve.
function alongCurve(column: number, row: number): number {
  let [x, y, distance] = [column, row, 0];
  for (let side = 128; side > 0; side >>= 1) {
    const isRight = (x & side) > 0;
    const isUpper = (y & side) > 0;
    distance += side * side * ((isRight ? 3 : 0) ^ (isUpper ? 1 : 0));
    if (!isUpper) {
      [x, y] = isRight ? [255 - y, 255 - x] : [y, x];
    }
  }
  return distance;
}

// Things of like size together, and of these such as are near to each other, so that a chunk of them can be left out.
function orderOf(things: Thing[]): number[] {
  const all = emptyBox();
  things.forEach(({ x, y }) => addPoint(all, x, y));
  const cell = Math.max(all.maxX - all.minX, all.maxY - all.minY, 1e-6) / 255;
  const keys = things.map(({ x, y, kind }) =>
    kind * 65536 + alongCurve(Math.floor((x - all.minX) / cell), Math.floor((y - all.minY) / cell)));
  return Array.from(keys.keys()).sort((a, b) => keys[b]! - keys[a]! || a - b);
}
