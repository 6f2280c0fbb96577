import { Path, Placement, StepKind } from './data.js';

export interface Point {
  x: number;
  y: number;
}

export interface Box {
  minX: number;
  minY: number;
  maxX: number;
  maxY: number;
}

// Places one behind the other: x, y, x, y.
export interface Contour {
  points: number[];
  isClosed: boolean;
}

// A box with round corners round its own middle.
export interface RoundBox {
  x: number;
  y: number;
  halfWidth: number;
  halfHeight: number;
  radius: number;
}

// No curve is drawn further beside itself, in millimetres.
const TOLERANCE = 0.004;
const MOST_SEGMENTS = 96;

export function emptyBox(): Box {
  return { minX: Infinity, minY: Infinity, maxX: -Infinity, maxY: -Infinity };
}

export function isEmpty(box: Box): boolean {
  return !(box.minX <= box.maxX);
}

export function addPoint(box: Box, x: number, y: number): void {
  box.minX = Math.min(box.minX, x);
  box.minY = Math.min(box.minY, y);
  box.maxX = Math.max(box.maxX, x);
  box.maxY = Math.max(box.maxY, y);
}

export function addBox(box: Box, other: Box): void {
  if (!isEmpty(other)) {
    addPoint(box, other.minX, other.minY);
    addPoint(box, other.maxX, other.maxY);
  }
}

export function boxOf(points: number[]): Box {
  const box = emptyBox();
  for (let i = 0; i + 1 < points.length; i += 2) {
    addPoint(box, points[i]!, points[i + 1]!);
  }
  return box;
}

function segmentsOf(radius: number, angle: number): number {
  const each = 2 * Math.acos(Math.max(1 - TOLERANCE / Math.max(radius, TOLERANCE), 0.5));
  return Math.min(Math.max(Math.ceil(Math.abs(angle) / each), 2), MOST_SEGMENTS);
}

function addArc(points: number[], center: Point, end: Point, isClockwise: boolean): void {
  const startX = points[points.length - 2] ?? 0;
  const startY = points[points.length - 1] ?? 0;
  const radius = Math.hypot(startX - center.x, startY - center.y);
  const from = Math.atan2(startY - center.y, startX - center.x);
  let turn = Math.atan2(end.y - center.y, end.x - center.x) - from;
  const isWhole = Math.hypot(end.x - startX, end.y - startY) < 1e-9;
  const full = 2 * Math.PI;
  if (isClockwise) {
    turn = isWhole ? -full : turn > -1e-12 ? turn - full : turn;
  } else {
    turn = isWhole ? full : turn < 1e-12 ? turn + full : turn;
  }
  const count = segmentsOf(radius, turn);
  for (let i = 1; i < count; ++i) {
    const angle = from + (turn * i) / count;
    points.push(center.x + radius * Math.cos(angle), center.y + radius * Math.sin(angle));
  }
  points.push(end.x, end.y);
}

function ellipse(x: number, y: number, radiusX: number, radiusY: number): Contour {
  const count = Math.max(segmentsOf(Math.max(radiusX, radiusY), 2 * Math.PI), 8);
  const points: number[] = [];
  for (let i = 0; i < count; ++i) {
    const angle = (2 * Math.PI * i) / count;
    points.push(x + radiusX * Math.cos(angle), y + radiusY * Math.sin(angle));
  }
  return { points, isClosed: true };
}

// The contours of a path with straight lines for its curves.
export function contoursOf(path: Path): Contour[] {
  const contours: Contour[] = [];
  let open: Contour | null = null;
  for (const step of path) {
    if (step.kind === StepKind.Move) {
      open = { points: [step.x, step.y], isClosed: false };
      contours.push(open);
    } else if (step.kind === StepKind.Ellipse) {
      contours.push(ellipse(step.x, step.y, step.cx, step.cy));
    } else if (open && step.kind === StepKind.Line) {
      open.points.push(step.x, step.y);
    } else if (open && step.kind === StepKind.Close) {
      open.isClosed = true;
    } else if (open) {
      addArc(open.points, { x: step.cx, y: step.cy }, step, step.kind === StepKind.ClockwiseArc);
    }
  }
  return contours;
}

export function placed(point: Point, placement: Placement): Point {
  const cos = Math.cos(placement.angle) * placement.scale;
  const sin = Math.sin(placement.angle) * placement.scale;
  const x = point.x * cos - point.y * sin;
  const y = point.x * sin + point.y * cos;
  return { x: placement.x + (placement.isMirrored ? -x : x), y: placement.y + y };
}

// The placement of something within what another placement moves.
export function within(outer: Placement, inner: Placement | null): Placement {
  if (inner === null) {
    return outer;
  }
  const place = placed(inner, outer);
  // Mirrored after it is turned, a thing is turned the other way round.
  const turned = inner.isMirrored ? -outer.angle : outer.angle;
  return {
    x: place.x, y: place.y, angle: inner.angle + turned, isMirrored: inner.isMirrored !== outer.isMirrored,
    scale: inner.scale * outer.scale,
  };
}

export function placedPoints(points: number[], placement: Placement | null): number[] {
  if (placement === null) {
    return points;
  }
  const cos = Math.cos(placement.angle) * placement.scale;
  const sin = Math.sin(placement.angle) * placement.scale;
  const sign = placement.isMirrored ? -1 : 1;
  const moved = new Array<number>(points.length);
  for (let i = 0; i + 1 < points.length; i += 2) {
    const x = points[i]!;
    const y = points[i + 1]!;
    moved[i] = placement.x + sign * (x * cos - y * sin);
    moved[i + 1] = placement.y + x * sin + y * cos;
  }
  return moved;
}

export function areaOf(points: number[]): number {
  let sum = 0;
  for (let i = 0, j = points.length - 2; i < points.length; j = i, i += 2) {
    sum += points[j]! * points[i + 1]! - points[i]! * points[j + 1]!;
  }
  return sum / 2;
}

export function isInside(points: number[], x: number, y: number): boolean {
  let isIn = false;
  for (let i = 0, j = points.length - 2; i < points.length; j = i, i += 2) {
    const yi = points[i + 1]!;
    const yj = points[j + 1]!;
    if (yi > y !== yj > y && x < ((points[j]! - points[i]!) * (y - yi)) / (yj - yi) + points[i]!) {
      isIn = !isIn;
    }
  }
  return isIn;
}

// By the even-odd rule.
export function isInContours(contours: Contour[], x: number, y: number): boolean {
  return contours.filter((contour) => isInside(contour.points, x, y)).length % 2 === 1;
}

// The radius of the corners, if all curves of the path are arcs of one radius.
function radiusOf(path: Path): number {
  let radius = 0;
  let before: Point = { x: 0, y: 0 };
  for (const step of path) {
    if (step.kind === StepKind.Arc || step.kind === StepKind.ClockwiseArc) {
      const own = Math.hypot(before.x - step.cx, before.y - step.cy);
      if (radius > 0 && Math.abs(own - radius) > 0.003) {
        return -1;
      }
      radius = own;
    }
    before = step;
  }
  return radius;
}

// A circle, a rectangle or a rectangle with round corners along the axes; null for any other shape.
export function roundBoxOf(path: Path): RoundBox | null {
  const first = path[0];
  if (first?.kind === StepKind.Ellipse) {
    const isCircle = path.length === 1 && Math.abs(first.cx - first.cy) < 1e-6;
    return isCircle ? { x: first.x, y: first.y, halfWidth: first.cx, halfHeight: first.cx, radius: first.cx } : null;
  }
  const contours = contoursOf(path);
  const radius = radiusOf(path);
  if (contours.length !== 1 || radius < 0 || path.length > 14) {
    return null;
  }
  const points = contours[0]!.points;
  const box = boxOf(points);
  const halfWidth = (box.maxX - box.minX) / 2;
  const halfHeight = (box.maxY - box.minY) / 2;
  const corner = Math.min(radius, halfWidth, halfHeight);
  const area = 4 * halfWidth * halfHeight - (4 - Math.PI) * corner * corner;
  // Straight lines for curves take a little off.
  if (!(area > 0) || radius > corner + 0.003 || Math.abs(Math.abs(areaOf(points)) - area) > area * 0.012) {
    return null;
  }
  return { x: (box.minX + box.maxX) / 2, y: (box.minY + box.maxY) / 2, halfWidth, halfHeight, radius: corner };
}

// Contours as areas: each outer one with the holes that lie in it.
export function areasOf(contours: Contour[]): { outer: number[]; holes: number[][] }[] {
  const closed = contours.map((one) => one.points).filter((points) => points.length >= 6);
  if (closed.length === 1) {
    return [{ outer: closed[0]!, holes: [] }];
  }
  const boxes = closed.map(boxOf);
  const parents = closed.map((points, i) =>
    closed.map((_, j) => j).filter((j) => {
      const box = boxes[j]!;
      const isNear = j !== i && points[0]! >= box.minX && points[0]! <= box.maxX && points[1]! >= box.minY &&
        points[1]! <= box.maxY;
      return isNear && isInside(closed[j]!, points[0]!, points[1]!);
    }));
  const areas = new Map<number, { outer: number[]; holes: number[][] }>();
  closed.forEach((points, i) => {
    if (parents[i]!.length % 2 === 0) {
      areas.set(i, { outer: points, holes: [] });
    }
  });
  closed.forEach((points, i) => {
    if (parents[i]!.length % 2 === 1) {
      const parent = parents[i]!.find((j) => parents[j]!.length === parents[i]!.length - 1);
      areas.get(parent ?? -1)?.holes.push(points);
    }
  });
  return [...areas.values()];
}

// The lines of some contours that others lack, as pairs of places.
export function linesBeyond(contours: Contour[], others: Contour[]): number[][] {
  const known = new Set(linesOf(others).map(keyOfLine));
  return linesOf(contours).filter((line) => !known.has(keyOfLine(line)));
}

function linesOf(contours: Contour[]): number[][] {
  return contours.flatMap(({ points, isClosed }) => {
    const lines: number[][] = [];
    for (let i = isClosed ? 0 : 2; i < points.length; i += 2) {
      const before = (i + points.length - 2) % points.length;
      lines.push([points[before]!, points[before + 1]!, points[i]!, points[i + 1]!]);
    }
    return lines;
  });
}

// The same from either end.
function keyOfLine(line: number[]): string {
  const [x0, y0, x1, y1] = line.map((length) => Math.round(length * 1000)) as [number, number, number, number];
  return x0 < x1 || (x0 === x1 && y0 < y1) ? `${x0} ${y0} ${x1} ${y1}` : `${x1} ${y1} ${x0} ${y0}`;
}

// How far a box lies from the edges that it lies within, at least; 0 for one that reaches them or lies beyond.
export function depthWithin(contours: Contour[], box: Box): number {
  const x = (box.minX + box.maxX) / 2;
  const y = (box.minY + box.maxY) / 2;
  if (!isInContours(contours, x, y)) {
    return 0;
  }
  let distance = Infinity;
  for (const { points } of contours) {
    for (let i = 0, j = points.length - 2; i < points.length; j = i, i += 2) {
      distance = Math.min(distance, distanceToLine(x, y, points[j]!, points[j + 1]!, points[i]!, points[i + 1]!));
    }
  }
  return Math.max(distance - Math.hypot(box.maxX - box.minX, box.maxY - box.minY) / 2, 0);
}

// How far a place is from a straight line between two others.
export function distanceToLine(x: number, y: number, x0: number, y0: number, x1: number, y1: number): number {
  const dx = x1 - x0;
  const dy = y1 - y0;
  const length = dx * dx + dy * dy;
  const t = length > 0 ? Math.min(Math.max(((x - x0) * dx + (y - y0) * dy) / length, 0), 1) : 0;
  return Math.hypot(x - x0 - t * dx, y - y0 - t * dy);
}
