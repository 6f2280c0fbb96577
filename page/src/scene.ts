// What is drawn of a board, layer by layer, made when it is drawn first.
import { Board, Item, ItemKind, Layer, Part, Placement, Side } from './data.js';
import {
  addBox, addPoint, Box, boxOf, Contour, contoursOf, emptyBox, isEmpty, linesBeyond, placed, Point, within,
} from './geometry.js';
import { Interior } from './interior.js';
import { Batch, Shapes } from './shapes.js';

export interface LayerBatches {
  zones: Batch;
  tracks: Batch;
  pads: Batch;
}

// A part as a box that is turned with it.
export interface PartBox {
  part: Part;
  middle: Point;
  halfWidth: number;
  halfHeight: number;
  placement: Placement;
  bounds: Box;
}

export interface Pad {
  item: Item;
  part: Part;
  net: number;
}

export type Kind = 'zones' | 'tracks' | 'pads';

export class Scene {
  readonly shapes: Shapes;
  readonly bounds: Box;
  readonly boardBox: Box;
  readonly partBoxes: PartBox[];
  readonly parts = new Map<string, Part>();
  private readonly batches = new Map<number, LayerBatches>();
  private readonly edges: Contour[];
  // The parts of the profile that only one of two boards has.
  readonly profileLines: { added: number[][]; removed: number[][] };
  private ownInterior: Interior | null = null;
  private itemsOfNets: Map<number, { layer: Layer; item: Item }[]> | null = null;

  constructor(readonly board: Board) {
    this.shapes = new Shapes(board);
    this.boardBox = emptyBox();
    this.edges = contoursOf(board.profile);
    for (const { points } of this.edges) {
      addBox(this.boardBox, boxOf(points));
    }
    const oldEdges = contoursOf(board.oldProfile ?? []);
    this.profileLines = board.oldProfile
      ? { added: linesBeyond(this.edges, oldEdges), removed: linesBeyond(oldEdges, this.edges) }
      : { added: [], removed: [] };
    this.partBoxes = board.parts.map((part) => this.boxOfPart(part));
    for (const part of board.parts) {
      this.parts.set(part.name, part);
    }
    this.bounds = this.allBounds();
  }

  boxOf(name: string): PartBox | undefined {
    const part = this.parts.get(name);
    return part && this.partBoxes[part.place];
  }

  layerBatches(layer: Layer): LayerBatches {
    let batches = this.batches.get(layer.place);
    if (!batches) {
      batches = { zones: new Batch(), tracks: new Batch(), pads: new Batch() };
      for (const item of layer.content) {
        this.shapes.add(item, batches[kindOf(item)]);
      }
      this.batches.set(layer.place, batches);
    }
    return batches;
  }

  profile(): Batch {
    const batch = new Batch();
    batch.addAreas(this.edges);
    return batch;
  }

  get interior(): Interior {
    return (this.ownInterior ??= new Interior(this.edges, this.boardBox));
  }

  // What is not board within the box round it.
  around(): Batch {
    const batch = new Batch();
    const { minX, minY, maxX, maxY } = this.boardBox;
    if (!isEmpty(this.boardBox)) {
      const margin = 0.001 * Math.max(maxX - minX, maxY - minY);
      const [left, low, right, top] = [minX - margin, minY - margin, maxX + margin, maxY + margin];
      const frame = [left, low, right, low, right, top, left, top];
      batch.addAreas([{ points: frame, isClosed: true }, ...this.edges]);
    }
    return batch;
  }

  holes(side: Side): Batch {
    const batch = new Batch();
    const outer = this.outerCopper(side);
    for (const hole of this.board.holes) {
      if (outer === null || (outer.place >= hole.first && outer.place <= hole.last)) {
        batch.addDisc(hole.x, hole.y, hole.diameter);
      }
    }
    for (const layer of this.board.layers) {
      if (layer.role === 'drill' && !layer.isNegative) {
        layer.content.filter((item) => item.kind === ItemKind.Outline).forEach((item) => this.shapes.add(item, batch));
      }
    }
    return batch;
  }

  outerCopper(side: Side): Layer | null {
    const wanted = side === 'front' ? 'top' : 'bottom';
    const isOuter = (layer: Layer): boolean => layer.role === 'copper' && layer.side === wanted && !layer.isRemoved;
    return this.board.layers.find(isOuter) ?? null;
  }

  bodies(side: Side): Batch {
    const batch = new Batch();
    for (const part of this.board.parts) {
      if (part.side === side) {
        part.footprint?.body.forEach((item) => this.addOfPart(part, item, batch));
      }
    }
    return batch;
  }

  // The pads of parts, where no layer of copper has any.
  padsOfParts(side: Side): Batch {
    const batch = new Batch();
    if ((this.outerCopper(side)?.content.length ?? 0) > 0) {
      return batch;
    }
    for (const part of this.board.parts) {
      if (part.side === side) {
        part.footprint?.pads.forEach((item) => this.addOfPart(part, item, batch));
      }
    }
    return batch;
  }

  addOfPart(part: Part, item: Item, batch: Batch): void {
    const copy: Item = { ...item, placement: within(part.placement, item.placement) };
    this.shapes.add(copy, batch);
  }

  padsOf(part: Part): Pad[] {
    return (part.footprint?.pads ?? []).map((item, i) => ({
      item: { ...item, placement: within(part.placement, item.placement) }, part, net: part.padNets[i] ?? 0,
    }));
  }

  itemsOfNet(net: number): { layer: Layer; item: Item }[] {
    if (!this.itemsOfNets) {
      this.itemsOfNets = new Map();
      for (const layer of this.board.layers) {
        for (const item of layer.content) {
          if (item.net === 0) {
            continue;
          }
          const known = this.itemsOfNets.get(item.net);
          known ? known.push({ layer, item }) : this.itemsOfNets.set(item.net, [{ layer, item }]);
        }
      }
    }
    return this.itemsOfNets.get(net) ?? [];
  }

  private boxOfPart(part: Part): PartBox {
    const local = emptyBox();
    for (const item of [...(part.footprint?.pads ?? []), ...(part.footprint?.body ?? [])]) {
      addBox(local, this.shapes.boxOf(item));
    }
    const smallest = 0.25;
    if (isEmpty(local)) {
      addPoint(local, -smallest, -smallest);
      addPoint(local, smallest, smallest);
    }
    const center = { x: (local.minX + local.maxX) / 2, y: (local.minY + local.maxY) / 2 };
    const halfWidth = Math.max((local.maxX - local.minX) / 2, smallest);
    const halfHeight = Math.max((local.maxY - local.minY) / 2, smallest);
    const bounds = emptyBox();
    for (const [x, y] of [[-1, -1], [1, -1], [1, 1], [-1, 1]] as const) {
      const corner = placed({ x: center.x + x * halfWidth, y: center.y + y * halfHeight }, part.placement);
      addPoint(bounds, corner.x, corner.y);
    }
    return { part, middle: placed(center, part.placement), halfWidth, halfHeight, placement: part.placement, bounds };
  }

  private allBounds(): Box {
    const bounds = { ...this.boardBox };
    this.partBoxes.forEach((box) => addBox(bounds, box.bounds));
    this.profileLines.removed.forEach((line) => addBox(bounds, boxOf(line)));
    if (isEmpty(this.boardBox)) {
      for (const layer of this.board.layers) {
        layer.content.forEach((item) => addBox(bounds, this.shapes.boxOf(item)));
      }
    }
    if (isEmpty(bounds)) {
      addPoint(bounds, 0, 0);
      addPoint(bounds, 10, 10);
    }
    return bounds;
  }
}

export function kindOf(item: Item): Kind {
  if (item.kind === ItemKind.Stroke) {
    return 'tracks';
  }
  return item.kind === ItemKind.Outline && item.paths !== null ? 'zones' : 'pads';
}

// The layers that a side shows, those below first.
export function layersOfSide(board: Board, side: Side): Layer[] {
  const own = side === 'front' ? 'top' : 'bottom';
  const rank = (layer: Layer): number => {
    const order = ['copper', 'paste', 'mask', 'legend', 'assembly', 'document', 'drill', 'other'];
    const isOuter = layer.side === own ? 2 : layer.side === 'inside' ? 1 : layer.role === 'copper' ? 0 : 3;
    return (layer.role === 'copper' ? isOuter : 4 + order.indexOf(layer.role)) * 1000;
  };
  const within = (layer: Layer): number => (side === 'front' ? board.layers.length - layer.place : layer.place);
  return [...board.layers].sort((a, b) => rank(a) + within(a) - rank(b) - within(b));
}
