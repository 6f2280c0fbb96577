// What of a board lies well within its edge, and so is not seen beneath a layer that covers the whole board.
import { Box, Contour, depthWithin, isEmpty } from './geometry.js';
import { Batch, MARK_SIZE } from './shapes.js';

const CELLS = 100;

export class Interior {
  // Nothing that is left out is nearer to the edge than this, in millimetres.
  readonly margin: number;
  private readonly cells: boolean[] = [];

  constructor(edges: Contour[], private readonly box: Box) {
    this.margin = isEmpty(box) ? 0 : Math.max(box.maxX - box.minX, box.maxY - box.minY) / CELLS;
    for (let i = 0; this.margin > 0 && i < CELLS * CELLS; ++i) {
      const minX = box.minX + (i % CELLS) * this.margin;
      const minY = box.minY + Math.floor(i / CELLS) * this.margin;
      const cell = { minX, minY, maxX: minX + this.margin, maxY: minY + this.margin };
      this.cells.push(depthWithin(edges, cell) >= this.margin);
    }
  }

  // What of a batch lies beyond, at least in part, or near to the edge.
  beyond(batch: Batch): Batch {
    const left = new Batch();
    const { marks, triangles } = batch;
    for (let i = 0; i < marks.length; i += MARK_SIZE) {
      const [x, y, dx, dy, halfWidth, halfHeight] = marks.slice(i, i + 6) as [number, number, number, number, number,
        number];
      const wide = Math.abs(dx) * halfWidth + Math.abs(dy) * halfHeight;
      const high = Math.abs(dy) * halfWidth + Math.abs(dx) * halfHeight;
      if (!this.has(x - wide, y - high, x + wide, y + high)) {
        left.marks.push(...marks.slice(i, i + MARK_SIZE));
      }
    }
    for (let i = 0; i < triangles.length; i += 6) {
      const [x0, y0, x1, y1, x2, y2] = triangles.slice(i, i + 6) as [number, number, number, number, number, number];
      if (!this.has(Math.min(x0, x1, x2), Math.min(y0, y1, y2), Math.max(x0, x1, x2), Math.max(y0, y1, y2))) {
        left.triangles.push(x0, y0, x1, y1, x2, y2);
      }
    }
    return left;
  }

  private has(minX: number, minY: number, maxX: number, maxY: number): boolean {
    const { box, margin } = this;
    const [left, low] = [Math.floor((minX - box.minX) / margin), Math.floor((minY - box.minY) / margin)];
    const [right, top] = [Math.floor((maxX - box.minX) / margin), Math.floor((maxY - box.minY) / margin)];
    if (!(left >= 0 && low >= 0 && right < CELLS && top < CELLS)) {
      return false;
    }
    for (let row = low; row <= top; ++row) {
      for (let column = left; column <= right; ++column) {
        if (!this.cells[row * CELLS + column]) {
          return false;
        }
      }
    }
    return true;
  }
}
