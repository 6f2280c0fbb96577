// Turns items of a board into what the graphics card draws: boxes with round corners, and triangles.
import earcut from 'earcut';
import { Board, Ends, Item, ItemKind, Path, Placement } from './data.js';
import {
  areasOf, Box, Contour, contoursOf, emptyBox, addPoint, placed, placedPoints, RoundBox, roundBoxOf,
} from './geometry.js';

// Numbers of a mark: its middle, the direction of its longer axis, half of its length and width, its radius.
export const MARK_SIZE = 7;

export class Batch {
  readonly marks: number[] = [];
  // Corners of triangles, three places each.
  readonly triangles: number[] = [];

  addMark(x: number, y: number, dx: number, dy: number, halfWidth: number, halfHeight: number, radius: number): void {
    this.marks.push(x, y, dx, dy, halfWidth, halfHeight, radius);
  }

  addDisc(x: number, y: number, diameter: number): void {
    this.addMark(x, y, 1, 0, diameter / 2, diameter / 2, diameter / 2);
  }

  addLine(x0: number, y0: number, x1: number, y1: number, width: number, ends: Ends): void {
    const length = Math.hypot(x1 - x0, y1 - y0);
    const dx = length > 0 ? (x1 - x0) / length : 1;
    const dy = length > 0 ? (y1 - y0) / length : 0;
    const beyond = ends === Ends.None ? 0 : width / 2;
    const radius = ends === Ends.Round ? width / 2 : 0;
    this.addMark((x0 + x1) / 2, (y0 + y1) / 2, dx, dy, length / 2 + beyond, width / 2, radius);
  }

  addRoundBox(box: RoundBox, placement: Placement | null): void {
    const place = placement ?? { x: 0, y: 0, angle: 0, isMirrored: false, scale: 1 };
    const middle = placed(box, place);
    const dx = Math.cos(place.angle) * (place.isMirrored ? -1 : 1);
    this.addMark(middle.x, middle.y, dx, Math.sin(place.angle), box.halfWidth * place.scale,
      box.halfHeight * place.scale, box.radius * place.scale);
  }

  addPolyline(points: number[], isClosed: boolean, width: number, ends: Ends): void {
    const own = points.length > 4 || isClosed ? Ends.Round : ends;
    for (let i = 0; i + 3 < points.length; i += 2) {
      this.addLine(points[i]!, points[i + 1]!, points[i + 2]!, points[i + 3]!, width, own);
    }
    const last = points.length - 2;
    if (isClosed && last > 0) {
      this.addLine(points[last]!, points[last + 1]!, points[0]!, points[1]!, width, own);
    }
    if (points.length === 2) {
      this.addDisc(points[0]!, points[1]!, width);
    }
  }

  // Areas, with a line as thin as can be seen round each, which makes their edges smooth.
  addAreas(contours: Contour[]): void {
    for (const { outer, holes } of areasOf(contours)) {
      const corners = [...outer];
      const starts: number[] = [];
      for (const hole of holes) {
        starts.push(corners.length / 2);
        for (const number of hole) {
          corners.push(number);
        }
      }
      for (const corner of earcut(corners, starts)) {
        this.triangles.push(corners[2 * corner]!, corners[2 * corner + 1]!);
      }
      for (const points of [outer, ...holes]) {
        this.addPolyline(points, true, 0, Ends.Round);
      }
    }
  }
}

// What the same shape of the dictionary is drawn by, wherever it is placed.
type Known = { boxes: RoundBox[] } | { contours: Contour[] };

export class Shapes {
  private readonly known: (Known | undefined)[] = [];

  constructor(private readonly board: Board) {}

  pathsOf(item: Item): Path[] {
    return item.paths ?? this.board.shapes[item.shape] ?? [];
  }

  add(item: Item, batch: Batch): void {
    const placement = item.placement;
    if (item.kind === ItemKind.Hole) {
      batch.addDisc(item.placement?.x ?? 0, item.placement?.y ?? 0, item.width);
    } else if (item.kind === ItemKind.Stroke) {
      this.addStroke(item, batch, placement);
    } else if (item.kind === ItemKind.Outline && item.paths === null) {
      this.addShape(item.shape, batch, placement);
    } else if (item.kind === ItemKind.Outline) {
      for (const path of item.paths ?? []) {
        batch.addAreas(this.contours(path, placement));
      }
    }
  }

  contoursOf(item: Item): Contour[] {
    return this.pathsOf(item).flatMap((path) => this.contours(path, item.placement));
  }

  boxOf(item: Item): Box {
    const box = emptyBox();
    if (item.kind === ItemKind.Hole) {
      const { x, y } = item.placement ?? { x: 0, y: 0 };
      addPoint(box, x - item.width / 2, y - item.width / 2);
      addPoint(box, x + item.width / 2, y + item.width / 2);
      return box;
    }
    const margin = item.kind === ItemKind.Stroke ? item.width / 2 : 0;
    for (const { points } of this.contoursOf(item)) {
      for (let i = 0; i + 1 < points.length; i += 2) {
        addPoint(box, points[i]! - margin, points[i + 1]! - margin);
        addPoint(box, points[i]! + margin, points[i + 1]! + margin);
      }
    }
    return box;
  }

  private contours(path: Path, placement: Placement | null): Contour[] {
    return contoursOf(path).map(({ points, isClosed }) => ({ points: placedPoints(points, placement), isClosed }));
  }

  private addStroke(item: Item, batch: Batch, placement: Placement | null): void {
    for (const path of this.pathsOf(item)) {
      for (const { points, isClosed } of this.contours(path, placement)) {
        batch.addPolyline(points, isClosed, item.width, item.ends);
      }
    }
  }

  private addShape(shape: number, batch: Batch, placement: Placement | null): void {
    const known = (this.known[shape] ??= this.knownShape(shape));
    if ('boxes' in known) {
      known.boxes.forEach((box) => batch.addRoundBox(box, placement));
      return;
    }
    batch.addAreas(known.contours.map(({ points, isClosed }) => ({
      points: placedPoints(points, placement), isClosed,
    })));
  }

  private knownShape(shape: number): Known {
    const paths = this.board.shapes[shape] ?? [];
    const boxes = paths.map(roundBoxOf);
    const all = boxes.filter((box) => box !== null);
    return all.length === boxes.length ? { boxes: all } : { contours: paths.flatMap((path) => contoursOf(path)) };
  }
}
