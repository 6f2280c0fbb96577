// From places on the board to pixels, and back.
import { Side } from './data.js';
import { Box, Point } from './geometry.js';
import { Transform } from './gl.js';

export class Camera {
  x = 0;
  y = 0;
  // Pixels of the page in a millimetre.
  zoom = 1;
  // In degrees, counterclockwise.
  turn = 0;

  constructor(readonly side: Side) {}

  transform(width: number, height: number, pixels: number): Transform {
    const scale = this.zoom * pixels;
    const sign = this.side === 'back' ? -1 : 1;
    const cos = exact(Math.cos((this.turn * Math.PI) / 180));
    const sin = exact(Math.sin((this.turn * Math.PI) / 180));
    const a = scale * sign * cos;
    const b = -scale * sign * sin;
    const c = -scale * sin;
    const d = -scale * cos;
    return {
      a, b, c, d, e: (width * pixels) / 2 - a * this.x - c * this.y, f: (height * pixels) / 2 - b * this.x - d * this.y,
      scale,
    };
  }

  fit(box: Box, width: number, height: number): void {
    this.x = (box.minX + box.maxX) / 2;
    this.y = (box.minY + box.maxY) / 2;
    this.zoom = 1;
    const t = this.transform(0, 0, 1);
    const wide = Math.abs(t.a) * (box.maxX - box.minX) + Math.abs(t.c) * (box.maxY - box.minY);
    const high = Math.abs(t.b) * (box.maxX - box.minX) + Math.abs(t.d) * (box.maxY - box.minY);
    const margin = 0.94;
    this.zoom = Math.max(margin * Math.min(width / Math.max(wide, 1e-6), height / Math.max(high, 1e-6)), 1e-4);
  }

  pan(dx: number, dy: number): void {
    const t = this.transform(0, 0, 1);
    const moved = inverse(t, dx + t.e, dy + t.f);
    this.x -= moved.x;
    this.y -= moved.y;
  }

  // Keeps what lies under this place of the page, which is given from the middle of the picture.
  zoomBy(factor: number, x: number, y: number): void {
    const before = inverse(this.transform(0, 0, 1), x, y);
    this.zoom = Math.min(Math.max(this.zoom * factor, 1e-3), 5000);
    const after = inverse(this.transform(0, 0, 1), x, y);
    this.x += before.x - after.x;
    this.y += before.y - after.y;
  }
}

function exact(number: number): number {
  return Math.abs(number) < 1e-12 ? 0 : number;
}

export function applied(t: Transform, x: number, y: number): Point {
  return { x: t.a * x + t.c * y + t.e, y: t.b * x + t.d * y + t.f };
}

export function inverse(t: Transform, px: number, py: number): Point {
  const determinant = t.a * t.d - t.b * t.c;
  const x = px - t.e;
  const y = py - t.f;
  return { x: (t.d * x - t.c * y) / determinant, y: (t.a * y - t.b * x) / determinant };
}
