import assert from 'node:assert/strict';
import { test } from 'node:test';
import { applied, Camera, inverse } from '../src/camera.js';
import { Path, StepKind } from '../src/data.js';
import { areaOf, areasOf, contoursOf, isInContours, linesBeyond, placed, roundBoxOf, within } from '../src/geometry.js';

const near = (found: number, expected: number, within = 1e-6): void => {
  assert.ok(Math.abs(found - expected) <= within, `${found} is not ${expected}`);
};

function step(kind: StepKind, x: number, y: number, cx = 0, cy = 0): Path[number] {
  return { kind, x, y, cx, cy };
}

function rectangle(x0: number, y0: number, x1: number, y1: number): Path {
  return [step(StepKind.Move, x0, y0), step(StepKind.Line, x1, y0), step(StepKind.Line, x1, y1),
    step(StepKind.Line, x0, y1), step(StepKind.Close, x0, y0)];
}

test('a whole circle of one arc has its area', () => {
  const circle = [step(StepKind.Move, 2, 0), step(StepKind.Arc, 2, 0, 0, 0), step(StepKind.Close, 2, 0)];
  near(areaOf(contoursOf(circle)[0]!.points), Math.PI * 4, 0.05);
});

test('an arc goes the way that it is told to go', () => {
  const half = (kind: StepKind): number[] =>
    contoursOf([step(StepKind.Move, 1, 0), step(kind, -1, 0, 0, 0)])[0]!.points;
  assert.ok(Math.max(...half(StepKind.Arc).filter((_, i) => i % 2 === 1)) > 0.9);
  assert.ok(Math.min(...half(StepKind.ClockwiseArc).filter((_, i) => i % 2 === 1)) < -0.9);
});

test('circles, rectangles and ovals are known, other shapes are not', () => {
  assert.equal(roundBoxOf([step(StepKind.Ellipse, 1, 2, 3, 3)])!.radius, 3);
  assert.equal(roundBoxOf([step(StepKind.Ellipse, 1, 2, 3, 4)]), null);
  const box = roundBoxOf(rectangle(0, 0, 4, 2))!;
  assert.deepEqual([box.x, box.y, box.halfWidth, box.halfHeight, box.radius], [2, 1, 2, 1, 0]);
  const oval = [step(StepKind.Move, -2, -1), step(StepKind.Line, 2, -1), step(StepKind.Arc, 2, 1, 2, 0),
    step(StepKind.Line, -2, 1), step(StepKind.Arc, -2, -1, -2, 0), step(StepKind.Close, -2, -1)];
  near(roundBoxOf(oval)!.radius, 1);
  near(roundBoxOf(oval)!.halfWidth, 3, 0.01);
  const triangle = [step(StepKind.Move, 0, 0), step(StepKind.Line, 2, 0), step(StepKind.Line, 0, 2),
    step(StepKind.Close, 0, 0)];
  assert.equal(roundBoxOf(triangle), null);
});

test('a contour in an area is a hole in it, and one in the hole an area again', () => {
  const contours = [0, 1, 2].flatMap((inset) => contoursOf(rectangle(inset, inset, 9 - inset, 9 - inset)));
  const areas = areasOf(contours);
  assert.deepEqual(areas.map((area) => area.holes.length), [1, 0]);
  assert.ok(isInContours(contours, 0.5, 0.5));
  assert.ok(!isInContours(contours, 1.5, 1.5));
  assert.ok(isInContours(contours, 4, 4));
});

test('what is placed is turned, then mirrored, then moved', () => {
  const place = { x: 10, y: 20, angle: Math.PI / 2, isMirrored: true, scale: 2 };
  const point = placed({ x: 3, y: 1 }, place);
  near(point.x, 12);
  near(point.y, 26);
  const inner = { x: 1, y: 2, angle: 0.3, isMirrored: true, scale: 1 };
  const both = within(place, inner);
  const one = placed(placed({ x: 5, y: 6 }, inner), place);
  const other = placed({ x: 5, y: 6 }, both);
  near(one.x, other.x);
  near(one.y, other.y);
});

test('the back is seen from behind, and places come back from pixels', () => {
  const front = new Camera('front').transform(100, 100, 1);
  const back = new Camera('back').transform(100, 100, 1);
  assert.ok(applied(front, 5, 0).x > 50 && applied(back, 5, 0).x < 50);
  assert.ok(applied(front, 0, 5).y < 50 && applied(back, 0, 5).y < 50);
  const camera = new Camera('back');
  camera.turn = 30;
  camera.zoom = 3;
  const t = camera.transform(640, 480, 2);
  const at = applied(t, 12, -7);
  near(inverse(t, at.x, at.y).x, 12);
  near(inverse(t, at.x, at.y).y, -7);
});

test('zooming keeps what lies under the pointer', () => {
  const camera = new Camera('front');
  camera.fit({ minX: 0, minY: 0, maxX: 100, maxY: 50 }, 500, 500);
  const before = inverse(camera.transform(0, 0, 1), 40, -30);
  camera.zoomBy(4, 40, -30);
  const after = inverse(camera.transform(0, 0, 1), 40, -30);
  near(before.x, after.x);
  near(before.y, after.y);
});

test('lines that only one of two outlines has are found, from whichever end they are drawn', () => {
  const narrow = contoursOf(rectangle(0, 0, 10, 5));
  const wide = contoursOf(rectangle(0, 0, 12, 5));
  const turned = [{ points: [0, 5, 10, 5, 10, 0, 0, 0], isClosed: true }];
  assert.deepEqual(linesBeyond(narrow, turned), []);
  assert.deepEqual(linesBeyond(narrow, wide), [[0, 0, 10, 0], [10, 0, 10, 5], [10, 5, 0, 5]]);
  assert.equal(linesBeyond(wide, narrow).length, 3);
  assert.deepEqual(linesBeyond([{ points: [0, 0, 1, 0], isClosed: false }], []), [[0, 0, 1, 0]]);
});
