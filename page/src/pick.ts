// Finds what lies under a place of the board.
import Flatbush from 'flatbush';
import { ItemKind, Item, Layer, Side } from './data.js';
import { distanceToLine, isInContours, isEmpty } from './geometry.js';
import { PartBox, Scene } from './scene.js';

export interface CopperHit {
  layer: Layer;
  item: Item;
}

interface Index {
  bush: Flatbush;
  places: number[];
}

export class Picker {
  private readonly layers = new Map<number, Index | null>();
  private readonly parts: Index | null;

  constructor(private readonly scene: Scene) {
    this.parts = indexOf(scene.partBoxes.map((box) => box.bounds));
  }

  // Of several parts the smallest one, since it lies on the others.
  partAt(x: number, y: number, side: Side, reach: number): PartBox | null {
    let found: PartBox | null = null;
    for (const place of search(this.parts, x, y, reach)) {
      const box = this.scene.partBoxes[place]!;
      const isSmaller = !found || box.halfWidth * box.halfHeight < found.halfWidth * found.halfHeight;
      if (box.part.side === side && isSmaller && isInPart(box, x, y, reach)) {
        found = box;
      }
    }
    return found;
  }

  // The copper on the first of the layers that has a net there.
  copperAt(x: number, y: number, layers: Layer[], reach: number): CopperHit | null {
    for (const layer of layers) {
      const hits = search(this.indexOfLayer(layer), x, y, reach)
        .map((place) => layer.content[place]!)
        .filter((item) => item.net !== 0 && this.isAt(item, x, y, reach));
      // A pad lies on the area that it is connected to.
      const hit = hits.find((item) => item.kind !== ItemKind.Outline || item.paths === null) ?? hits[0];
      if (hit) {
        return { layer, item: hit };
      }
    }
    return null;
  }

  private indexOfLayer(layer: Layer): Index | null {
    let index = this.layers.get(layer.place);
    if (index === undefined) {
      index = indexOf(layer.content.map((item) => this.scene.shapes.boxOf(item)));
      this.layers.set(layer.place, index);
    }
    return index;
  }

  private isAt(item: Item, x: number, y: number, reach: number): boolean {
    if (item.kind === ItemKind.Hole) {
      return Math.hypot(x - (item.placement?.x ?? 0), y - (item.placement?.y ?? 0)) <= item.width / 2 + reach;
    }
    const contours = this.scene.shapes.contoursOf(item);
    if (item.kind !== ItemKind.Stroke) {
      return isInContours(contours, x, y);
    }
    return contours.some(({ points }) => {
      for (let i = 0; i + 3 < points.length; i += 2) {
        const distance = distanceToLine(x, y, points[i]!, points[i + 1]!, points[i + 2]!, points[i + 3]!);
        if (distance <= item.width / 2 + reach) {
          return true;
        }
      }
      return false;
    });
  }
}

function indexOf(boxes: { minX: number; minY: number; maxX: number; maxY: number }[]): Index | null {
  const places = boxes.map((_, i) => i).filter((i) => !isEmpty(boxes[i]!));
  if (places.length === 0) {
    return null;
  }
  const bush = new Flatbush(places.length);
  for (const place of places) {
    const box = boxes[place]!;
    bush.add(box.minX, box.minY, box.maxX, box.maxY);
  }
  bush.finish();
  return { bush, places };
}

function search(index: Index | null, x: number, y: number, reach: number): number[] {
  return (index?.bush.search(x - reach, y - reach, x + reach, y + reach) ?? []).map((i) => index!.places[i]!);
}

function isInPart(box: PartBox, x: number, y: number, reach: number): boolean {
  const { angle, isMirrored } = box.placement;
  const dx = (x - box.middle.x) * (isMirrored ? -1 : 1);
  const dy = y - box.middle.y;
  const along = dx * Math.cos(angle) + dy * Math.sin(angle);
  const across = -dx * Math.sin(angle) + dy * Math.cos(angle);
  return Math.abs(along) <= box.halfWidth + reach && Math.abs(across) <= box.halfHeight + reach;
}
