// The rows of the lists, from the tables of a board.
import { Board, Cell, records, State, Table } from './data.js';

export interface PartRow {
  id: string;
  designator: string;
  value: string;
  package: string;
  // As the bill of materials names it, where it does.
  bomPackage: string;
  part: string;
  side: string;
  mount: string;
  fitted: boolean | null;
  partNumber: string;
  description: string;
  makersParts: string;
  state: State | '';
  // The lengths and angles of the component, in the unit of the table.
  x: number | null;
  y: number | null;
  rotation: number | null;
  height: number | null;
}

export interface GroupRow {
  id: string;
  quantity: number;
  designators: string[];
  value: string;
  package: string;
  part: string;
  side: string;
  fitted: boolean | null;
  partNumber: string;
  description: string;
  makersParts: string;
}

export interface NetRow {
  id: string;
  net: string;
  count: number;
  pins: string[];
  length: number;
  netClass: string;
}

// Those that people look for first.
const FIRST = ['C', 'R', 'L', 'D', 'U'];

function pieces(name: string): { prefix: string; number: number; rest: string } {
  const found = /^([^0-9]*)([0-9]*)(.*)$/s.exec(name);
  return { prefix: found?.[1] ?? '', number: Number(found?.[2] || -1), rest: found?.[3] ?? '' };
}

function rank(prefix: string): number {
  const place = FIRST.indexOf(prefix.toUpperCase());
  return place < 0 ? FIRST.length : place;
}

const collator = new Intl.Collator('en', { numeric: true });

// As people read designators: capacitors first, C2 before C10.
export function compareDesignators(left: string, right: string): number {
  const a = pieces(left);
  const b = pieces(right);
  return rank(a.prefix) - rank(b.prefix) || collator.compare(a.prefix, b.prefix) || a.number - b.number ||
    collator.compare(a.rest, b.rest);
}

export function compareTexts(left: string, right: string): number {
  return collator.compare(left, right);
}

function text(cell: Cell | undefined): string {
  return cell === null || cell === undefined ? '' : Array.isArray(cell) ? cell.join(' ') : String(cell);
}

function number(cell: Cell | undefined): number | null {
  return typeof cell === 'number' ? cell : null;
}

function list(cell: Cell | undefined): string[] {
  return Array.isArray(cell) ? cell.map(String) : [];
}

interface ItemFacts {
  package: string;
  partNumber: string;
  description: string;
  makersParts: string;
}

function itemsByDesignator(items: Table): Map<string, ItemFacts> {
  const facts = new Map<string, ItemFacts>();
  for (const item of records(items)) {
    const own = {
      package: text(item['package']), partNumber: text(item['part_number']), description: text(item['description']),
      makersParts: text(item['makers_parts']),
    };
    for (const designator of [...list(item['fitted']), ...list(item['not_fitted'])]) {
      facts.set(designator, own);
    }
  }
  return facts;
}

export function partRows(board: Board): PartRow[] {
  const items = itemsByDesignator(board.tables.items);
  const states = new Map(board.comparison?.parts.map((part) => [part.name, part.state]));
  const rows = records(board.tables.components).map((component, i): PartRow => {
    const designator = text(component['designator']);
    const item = items.get(designator);
    const fitted = component['fitted'];
    return {
      id: String(i), designator, value: text(component['value']), package: text(component['package']),
      bomPackage: item?.package || text(component['package']),
      part: text(component['part']), side: text(component['side']).toLowerCase(), mount: text(component['mount']),
      fitted: typeof fitted === 'boolean' ? fitted : null, partNumber: item?.partNumber ?? '',
      description: item?.description ?? '', makersParts: item?.makersParts ?? '', state: states.get(designator) ?? '',
      x: number(component['x']), y: number(component['y']), rotation: number(component['rotation']),
      height: number(component['height']),
    };
  });
  return rows.sort((a, b) => compareDesignators(a.designator, b.designator));
}

// One row for all parts of one value and package; of parts without a value, of one part.
export function groupRows(parts: PartRow[]): GroupRow[] {
  const groups = new Map<string, GroupRow>();
  for (const part of parts) {
    const key = JSON.stringify([part.value || part.part || part.partNumber, part.bomPackage, part.fitted]);
    const known = groups.get(key);
    if (known) {
      known.designators.push(part.designator);
      known.quantity += 1;
      known.side = known.side === part.side ? known.side : 'both';
      continue;
    }
    groups.set(key, {
      id: key, quantity: 1, designators: [part.designator], value: part.value || part.part, package: part.bomPackage,
      part: part.part, side: part.side, fitted: part.fitted, partNumber: part.partNumber,
      description: part.description, makersParts: part.makersParts,
    });
  }
  return [...groups.values()];
}

export function netRows(board: Board): NetRow[] {
  const lengths = new Map(records(board.tables.lengths).map((row) => [text(row['net']), number(row['length']) ?? 0]));
  return records(board.tables.nets).map((row, i) => ({
    id: String(i), net: text(row['net']), count: number(row['count']) ?? 0, pins: list(row['pins']),
    length: lengths.get(text(row['net'])) ?? 0, netClass: text(row['class']),
  }));
}

export function csvOf(head: string[], rows: string[][]): string {
  const quoted = (cell: string): string => (/[",\r\n]/.test(cell) ? `"${cell.replaceAll('"', '""')}"` : cell);
  return [head, ...rows].map((row) => row.map(quoted).join(',')).join('\r\n') + '\r\n';
}
