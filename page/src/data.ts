// Reads the bytes that a page has of a board. docs/page-data.md tells their form.

export type Cell = null | string | number | boolean | string[] | number[];

export interface TableColumn {
  key: string;
  title: string;
  unit?: string;
}

export interface Table {
  columns: TableColumn[];
  rows: Cell[][];
}

export type Role = 'copper' | 'mask' | 'paste' | 'legend' | 'drill' | 'assembly' | 'document' | 'other';
export type LayerSide = 'top' | 'bottom' | 'inside' | 'both' | 'other';
export type State = 'added' | 'removed' | 'moved' | 'changed';

export interface LayerHead {
  name: string;
  function: string;
  role: Role;
  side: LayerSide;
  isNegative: boolean;
  hasFeatures: boolean;
  color: string;
  items: number;
}

interface DrawingHead {
  names: string[];
  layers: LayerHead[];
  shapes: number[];
  footprints: { name: string; pads: number; body: number }[];
  holes: number;
  parts: number;
}

interface ColumnHead {
  name: string;
  isDelta: boolean;
  count: number;
  bytes: number;
}

export interface Moved {
  name: string;
  state: State;
  side: LayerSide;
  fromX?: number;
  fromY?: number;
}

// A hole that only one of the boards has, or that is another one than before.
export interface HoleChange {
  state: State;
  x: number;
  y: number;
  diameter: number;
  isOnFront: boolean;
  isOnBack: boolean;
}

export interface Comparison {
  file: string;
  added: number;
  addedLayers: number[];
  removed: number[];
  removedLayers: LayerHead[];
  hasOtherProfile: boolean;
  holes: HoleChange[];
  parts: Moved[];
  differences: Table;
}

export interface Tables {
  items: Table;
  components: Table;
  nets: Table;
  lengths: Table;
  layers: Table;
  stackup: Table;
  firstPins: Table;
  notes: Table;
  facts: Table;
  info: {
    board: Record<string, Cell>;
    parts: Record<string, Cell>[];
    holes: Record<string, Cell>[];
  };
}

interface Head {
  file: string;
  step: string;
  units: string;
  hash: string;
  isUnitKnown: boolean;
  drawing: DrawingHead;
  tables: Tables;
  columns: ColumnHead[];
  comparison?: Comparison;
}

export enum StepKind { Move, Line, Arc, ClockwiseArc, Ellipse, Close }
export enum ItemKind { Outline, Stroke, Hole, Text }
export enum Ends { Round, Square, None }

export interface Step {
  kind: StepKind;
  x: number;
  y: number;
  // The middle of an arc, or the radii of an ellipse, whose middle is its place.
  cx: number;
  cy: number;
}

export type Path = Step[];

export interface Placement {
  x: number;
  y: number;
  angle: number;
  isMirrored: boolean;
  scale: number;
}

export interface Item {
  kind: ItemKind;
  ends: Ends;
  net: number;
  pin: number;
  text: number;
  width: number;
  placement: Placement | null;
  // Its own paths, or the place of its shape.
  paths: Path[] | null;
  shape: number;
}

export interface Layer extends LayerHead {
  place: number;
  content: Item[];
  // Whether only the older board has it, so that all that lies on it is removed.
  isRemoved: boolean;
}

export interface Hole {
  x: number;
  y: number;
  diameter: number;
  first: number;
  last: number;
  net: number;
}

export interface Footprint {
  name: string;
  pads: Item[];
  body: Item[];
}

export type Side = 'front' | 'back';

export interface Part {
  place: number;
  name: string;
  side: Side;
  isLabelled: boolean;
  footprint: Footprint | null;
  placement: Placement;
  padNets: number[];
  label: Item;
}

export interface Board {
  file: string;
  step: string;
  units: string;
  hash: string;
  isUnitKnown: boolean;
  names: string[];
  shapes: Path[][];
  layers: Layer[];
  footprints: Footprint[];
  profile: Path;
  holes: Hole[];
  parts: Part[];
  tables: Tables;
  comparison: Comparison | null;
  added: Item[];
  // What the drawn board lacks of the older one, by the place of the layer.
  removed: Map<number, Item[]>;
  // Of the older board, where it has another one.
  oldProfile: Path | null;
}

const MARK = 'IPCPAGE1';
const MILLIMETRES = 0.001;

class Columns {
  private readonly places = new Map<string, { values: Float64Array; at: number }>();

  constructor(heads: ColumnHead[], bytes: Uint8Array) {
    let at = 0;
    for (const head of heads) {
      this.places.set(head.name, { values: integers(bytes, at, head), at: 0 });
      at += head.bytes;
    }
  }

  next(name: string): number {
    const column = this.places.get(name);
    const value = column?.values[column.at++];
    if (value === undefined) {
      throw new Error(`no more of ${name}`);
    }
    return value;
  }
}

function integers(bytes: Uint8Array, start: number, head: ColumnHead): Float64Array {
  const values = new Float64Array(head.count);
  let at = start;
  let last = 0;
  for (let i = 0; i < head.count; ++i) {
    let byte = bytes[at++] ?? 0;
    let value = byte & 0x7f;
    // Numbers beyond 32 bits are exact as floating point, and not by shifts.
    for (let factor = 0x80; byte >= 0x80; factor *= 0x80) {
      byte = bytes[at++] ?? 0;
      value += (byte & 0x7f) * factor;
    }
    const told = value % 2 === 0 ? value / 2 : -(value + 1) / 2;
    last = head.isDelta ? last + told : told;
    values[i] = last;
  }
  if (at !== start + head.bytes) {
    throw new Error(`the column ${head.name} is damaged`);
  }
  return values;
}

class Reader {
  private x = 0;
  private y = 0;

  constructor(private readonly columns: Columns) {}

  path(): Path {
    const count = this.columns.next('pathSteps');
    const path: Path = [];
    this.x = 0;
    this.y = 0;
    for (let i = 0; i < count; ++i) {
      path.push(this.step());
    }
    return path;
  }

  paths(count: number): Path[] {
    return Array.from({ length: count }, () => this.path());
  }

  items(count: number): Item[] {
    return Array.from({ length: count }, () => this.item());
  }

  item(): Item {
    const flags = this.columns.next('itemKind');
    const kind = (flags & 3) as ItemKind;
    const item: Item = {
      kind, ends: ((flags >> 2) & 3) as Ends, net: this.columns.next('itemNet'), pin: this.columns.next('itemPin'),
      text: 0, width: 0, placement: null, paths: null, shape: 0,
    };
    if (flags & 16) {
      item.placement = this.placement((flags & 32) !== 0);
    }
    if (kind === ItemKind.Text) {
      item.text = this.columns.next('itemText');
    }
    if (kind === ItemKind.Stroke || kind === ItemKind.Hole) {
      item.width = this.columns.next('itemWidth') * MILLIMETRES;
    }
    if (flags & 64) {
      item.paths = this.paths(this.columns.next('itemPaths'));
    } else {
      item.shape = this.columns.next('itemShape');
    }
    return item;
  }

  hole(): Hole {
    return {
      x: this.length('holeX'), y: this.length('holeY'), diameter: this.length('holeDiameter'),
      first: this.columns.next('holeFirst'), last: this.columns.next('holeLast'), net: this.columns.next('holeNet'),
    };
  }

  part(place: number, names: string[], footprints: Footprint[]): Part {
    const name = names[this.columns.next('partName')] ?? '';
    const side = this.columns.next('partSide');
    const footprint = footprints[this.columns.next('partFootprint') - 1] ?? null;
    const placement = {
      x: this.length('partX'), y: this.length('partY'), angle: radians(this.columns.next('partAngle')),
      isMirrored: (side & 16) !== 0, scale: 1,
    };
    const padNets = (footprint?.pads ?? []).map(() => this.columns.next('partPadNet'));
    return {
      place, name, side: (side & 7) === 1 ? 'back' : 'front', isLabelled: (side & 8) !== 0, footprint, placement,
      padNets, label: this.item(),
    };
  }

  private length(column: string): number {
    return this.columns.next(column) * MILLIMETRES;
  }

  private placement(isMirrored: boolean): Placement {
    return {
      x: this.length('itemX'), y: this.length('itemY'), angle: radians(this.columns.next('itemAngle')), isMirrored,
      scale: this.columns.next('itemScale') / 1e6,
    };
  }

  private step(): Step {
    const kind = this.columns.next('stepKind') as StepKind;
    const step: Step = { kind, x: this.x, y: this.y, cx: 0, cy: 0 };
    if (kind === StepKind.Close) {
      return step;
    }
    step.x = this.length('stepX');
    step.y = this.length('stepY');
    if (kind === StepKind.Ellipse) {
      step.cx = this.length('stepCenterX');
      step.cy = this.length('stepCenterY');
      return step;
    }
    if (kind === StepKind.Arc || kind === StepKind.ClockwiseArc) {
      step.cx = this.x + this.length('stepCenterX');
      step.cy = this.y + this.length('stepCenterY');
    }
    this.x = step.x;
    this.y = step.y;
    return step;
  }
}

function radians(thousandths: number): number {
  return (thousandths / 1000) * (Math.PI / 180);
}

function headOf(bytes: Uint8Array): { head: Head; rest: Uint8Array } {
  if (new TextDecoder().decode(bytes.subarray(0, 8)) !== MARK) {
    throw new Error('these are no data of a board');
  }
  const length = new DataView(bytes.buffer, bytes.byteOffset).getUint32(8, true);
  const head = JSON.parse(new TextDecoder().decode(bytes.subarray(12, 12 + length))) as Head;
  return { head, rest: bytes.subarray(12 + length) };
}

export function boardOf(data: ArrayBuffer): Board {
  const { head, rest } = headOf(new Uint8Array(data));
  const drawing = head.drawing;
  const reader = new Reader(new Columns(head.columns, rest));
  const shapes = drawing.shapes.map((count) => reader.paths(count));
  const footprints = drawing.footprints.map((one) => ({
    name: one.name, pads: reader.items(one.pads), body: reader.items(one.body),
  }));
  const layers: Layer[] = drawing.layers.map((layer, place) =>
    ({ ...layer, place, content: reader.items(layer.items), isRemoved: false }));
  const profile = reader.path();
  const holes = Array.from({ length: drawing.holes }, () => reader.hole());
  const parts = Array.from({ length: drawing.parts }, (_, place) => reader.part(place, drawing.names, footprints));
  const comparison = head.comparison ?? null;
  const added = reader.items(comparison?.added ?? 0);
  const removed = new Map((comparison?.removed ?? []).map((count, place) => [place, reader.items(count)]));
  for (const layer of comparison?.removedLayers ?? []) {
    removed.set(layers.length, reader.items(layer.items));
    layers.push({ ...layer, place: layers.length, content: [], isRemoved: true, isNegative: false });
  }
  const oldProfile = comparison?.hasOtherProfile ? reader.path() : null;
  return {
    file: head.file, step: head.step, units: head.units, hash: head.hash, isUnitKnown: head.isUnitKnown,
    names: drawing.names, shapes, layers, footprints, profile, holes, parts, tables: head.tables, comparison, added,
    removed, oldProfile,
  };
}

// Unpacks what a page has in one of its elements.
export async function unpacked(base64: string): Promise<ArrayBuffer> {
  const text = atob(base64.trim());
  const bytes = new Uint8Array(text.length);
  for (let i = 0; i < text.length; ++i) {
    bytes[i] = text.charCodeAt(i);
  }
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('deflate'));
  return new Response(stream).arrayBuffer();
}

// Rows as objects under the keys of their columns.
export function records(table: Table): Record<string, Cell>[] {
  return table.rows.map((row) => Object.fromEntries(table.columns.map((column, i) => [column.key, row[i] ?? null])));
}
