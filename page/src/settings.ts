// What a person has set. It is kept by the browser, saved to a file and loaded again.

export type Theme = 'system' | 'light' | 'dark';
export type Layout = 'list' | 'left' | 'above' | 'board';
export type Sides = 'front' | 'both' | 'back';
export type Unit = 'mm' | 'inch' | 'mil' | 'um';
export type WhenChecked = 'none' | 'dark' | 'lit';
export type FirstPin = 'none' | 'all' | 'selected';
export type Shown = 'silkscreen' | 'fabrication' | 'pads' | 'tracks' | 'zones' | 'holes' | 'references' | 'values';

export interface ColumnChoice {
  field: string;
  isVisible: boolean;
}

export interface Values {
  theme: Theme;
  layout: Layout;
  sides: Sides;
  // Of lengths; that of the board, if it is not another one that was asked for.
  units: Unit | 'board';
  splitLists: number;
  splitSides: number;
  turn: number;
  turnStep: number;
  backOffset: number;
  show: Record<Shown, boolean>;
  seeThrough: boolean;
  firstPin: FirstPin;
  checks: string[];
  whenChecked: WhenChecked;
  layers: Record<string, { isVisible?: boolean; color?: string }>;
  columns: Record<string, ColumnChoice[]>;
}

// The parts that are checked, by the name of the box.
export type Checked = Record<string, string[]>;

const SETTINGS = 'ipc2581.page.settings';
const CHECKED = 'ipc2581.page.checked.';
const KIND = 'ipc2581 page settings';

export function defaults(): Values {
  return {
    theme: 'system', layout: 'left', sides: 'front', units: 'board', splitLists: 42, splitSides: 50, turn: 0,
    turnStep: 90, backOffset: 0,
    show: {
      silkscreen: true, fabrication: true, pads: true, tracks: true, zones: true, holes: true, references: true,
      values: false,
    },
    seeThrough: false, firstPin: 'selected', checks: ['Sourced', 'Placed'], whenChecked: 'dark', layers: {},
    columns: {},
  };
}

// Takes of anything what is of the kind that is expected.
function merged<T>(expected: T, found: unknown): T {
  if (Array.isArray(expected)) {
    return (Array.isArray(found) ? found : expected) as T;
  }
  if (typeof expected === 'object' && expected !== null) {
    if (typeof found !== 'object' || found === null || Array.isArray(found)) {
      return expected;
    }
    const isOpen = Object.keys(expected).length === 0;
    const result = { ...expected } as Record<string, unknown>;
    for (const [key, value] of Object.entries(found)) {
      if (isOpen || key in expected) {
        result[key] = isOpen ? value : merged((expected as Record<string, unknown>)[key], value);
      }
    }
    return result as T;
  }
  return typeof found === typeof expected ? (found as T) : expected;
}

function stored(key: string): unknown {
  try {
    return JSON.parse(localStorage.getItem(key) ?? 'null');
  } catch {
    return null;
  }
}

function store(key: string, value: unknown): void {
  try {
    localStorage.setItem(key, JSON.stringify(value));
  } catch {
    // A browser may keep nothing, which is no reason to stop.
  }
}

export class Settings {
  values: Values;
  checked: Checked;
  private readonly listeners: (() => void)[] = [];

  constructor(private readonly unit: Unit, private readonly hash: string) {
    this.values = merged(defaults(), stored(SETTINGS));
    this.checked = merged<Checked>({}, stored(CHECKED + hash));
  }

  get units(): Unit {
    const { units } = this.values;
    return units === 'board' ? this.unit : units;
  }

  onChange(listener: () => void): void {
    this.listeners.push(listener);
  }

  change(values: Partial<Values>): void {
    this.values = { ...this.values, ...values };
    store(SETTINGS, this.values);
    this.listeners.forEach((listener) => listener());
  }

  show(name: Shown, isShown: boolean): void {
    this.change({ show: { ...this.values.show, [name]: isShown } });
  }

  setLayer(name: string, values: { isVisible?: boolean; color?: string }): void {
    const layers = { ...this.values.layers, [name]: { ...this.values.layers[name], ...values } };
    this.change({ layers });
  }

  isChecked(check: string, part: string): boolean {
    return this.checked[check]?.includes(part) ?? false;
  }

  check(check: string, parts: string[], isOn: boolean): void {
    const own = new Set(this.checked[check] ?? []);
    parts.forEach((part) => (isOn ? own.add(part) : own.delete(part)));
    this.checked = { ...this.checked, [check]: [...own] };
    store(CHECKED + this.hash, this.checked);
    this.listeners.forEach((listener) => listener());
  }

  reset(): void {
    this.change(defaults());
  }

  text(): string {
    return JSON.stringify({ kind: KIND, settings: this.values, checked: { [this.hash]: this.checked } }, null, 1);
  }

  // Whether the text holds settings. What it has checked counts for the same board alone.
  load(text: string): boolean {
    let found: { kind?: unknown; settings?: unknown; checked?: Record<string, unknown> } | null;
    try {
      found = JSON.parse(text) as typeof found;
    } catch {
      return false;
    }
    if (found?.kind !== KIND) {
      return false;
    }
    const own = found.checked?.[this.hash];
    if (own !== undefined) {
      this.checked = merged<Checked>({}, own);
      store(CHECKED + this.hash, this.checked);
    }
    this.change(merged(defaults(), found.settings));
    return true;
  }
}
