// Marks and triangles in chunks of what is near to each other and of like size, so that a chunk can be left out.
import Flatbush from 'flatbush';
import { addBox, addPoint, Box, emptyBox } from './geometry.js';
import { MARK_SIZE } from './shapes.js';

const CHUNK = 64;

interface Measured {
  box: Box;
  // The largest of what is in it, and the widest, in millimetres.
  size: number;
  width: number;
}

interface Chunk extends Measured {
  first: number;
  count: number;
}

export class Chunks {
  private readonly chunks: Chunk[] = [];
  private readonly index: Flatbush;

  // Of so many things, each with those of its own kind.
  constructor(count: number, kindAt: (place: number) => number, measure: (place: number) => Measured) {
    let kind = NaN;
    for (let place = 0; place < count; ++place) {
      const last = this.chunks[this.chunks.length - 1];
      const own = kindAt(place);
      const measured = measure(place);
      if (!last || last.count === CHUNK || own !== kind) {
        this.chunks.push({ first: place, count: 1, ...measured });
        kind = own;
        continue;
      }
      addBox(last.box, measured.box);
      last.size = Math.max(last.size, measured.size);
      last.width = Math.max(last.width, measured.width);
      ++last.count;
    }
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

export function chunksOfMarks(marks: number[], order: number[]): Chunks {
  return new Chunks(order.length, (place) => classOf(marks, order[place]!), (place) => {
    const mark = order[place]! * MARK_SIZE;
    const reach = Math.hypot(marks[mark + 4]!, marks[mark + 5]!);
    const x = marks[mark]!;
    const y = marks[mark + 1]!;
    return { box: { minX: x - reach, minY: y - reach, maxX: x + reach, maxY: y + reach }, size: 2 * reach,
      width: 2 * Math.min(marks[mark + 4]!, marks[mark + 5]!) };
  });
}

export function chunksOfTriangles(places: number[]): Chunks {
  return new Chunks(places.length / 6, () => 0, (triangle) => {
    const p = places.slice(triangle * 6, triangle * 6 + 6);
    const box = {
      minX: Math.min(p[0]!, p[2]!, p[4]!), minY: Math.min(p[1]!, p[3]!, p[5]!), maxX: Math.max(p[0]!, p[2]!, p[4]!),
      maxY: Math.max(p[1]!, p[3]!, p[5]!),
    };
    return { box, size: Infinity, width: Infinity };
  });
}

// What marks of like size have in common: how long and how wide they are, by powers of two. What is larger than a few
// millimetres is seen in most pictures.
function classOf(marks: number[], mark: number): number {
  const first = marks[mark * MARK_SIZE + 4]!;
  const second = marks[mark * MARK_SIZE + 5]!;
  const power = (length: number): number => Math.min(Math.max(Math.round(Math.log2(length)), -6), 1) + 6;
  return 16 * power(Math.max(first, second)) + power(Math.min(first, second));
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

// Marks of like size together, and of these such as are near to each other, so that a chunk of them can be left out.
export function orderOf(marks: number[]): number[] {
  const count = marks.length / MARK_SIZE;
  const box = emptyBox();
  for (let i = 0; i < count; ++i) {
    addPoint(box, marks[i * MARK_SIZE]!, marks[i * MARK_SIZE + 1]!);
  }
  const cell = Math.max(box.maxX - box.minX, box.maxY - box.minY, 1e-6) / 255;
  const keys = new Float64Array(count);
  for (let i = 0; i < count; ++i) {
    const column = Math.floor((marks[i * MARK_SIZE]! - box.minX) / cell);
    const row = Math.floor((marks[i * MARK_SIZE + 1]! - box.minY) / cell);
    keys[i] = classOf(marks, i) * 65536 + alongCurve(column, row);
  }
  return Array.from(keys.keys()).sort((a, b) => keys[b]! - keys[a]! || a - b);
}
