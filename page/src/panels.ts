// The tabs that are no lists of parts: layers, stackup, drills, the report, the settings.
import { Board, Cell, Layer, records, Table } from './data.js';
import { button, checkBox, choice, element, plainTable, saveFile } from './dom.js';
import { FirstPin, Settings, Shown, Theme, Unit, WhenChecked } from './settings.js';
import { texts } from './texts.js';
import { lengthText, millimetresOf } from './units.js';
import { isFirstShown } from './view.js';

function textOf(cell: Cell | undefined): string {
  return cell === null || cell === undefined ? '' : Array.isArray(cell) ? cell.join(' ') : String(cell);
}

export class LayerPanel {
  readonly node = element('div', { class: 'panel layers' });

  constructor(private readonly board: Board, private readonly settings: Settings) {
    this.update();
  }

  update(): void {
    const focused = document.activeElement?.getAttribute('aria-label');
    const rows = this.board.layers.filter((layer) => layer.items > 0).map((layer) => this.row(layer));
    const empty = this.board.layers.filter((layer) => layer.items === 0).map((layer) => this.row(layer));
    const head = element('tr', {}, ...['', texts.layer, texts.function, texts.side, texts.items]
      .map((title) => element('th', {}, title)));
    this.node.replaceChildren(
      checkBox(texts.seeThrough, this.settings.values.seeThrough, (seeThrough) => this.settings.change({ seeThrough })),
      element('table', { class: 'plain' }, element('thead', {}, head), element('tbody', {}, ...rows, ...empty)));
    if (focused) {
      this.node.querySelector<HTMLElement>(`[aria-label="${CSS.escape(focused)}"]`)?.focus();
    }
  }

  private row(layer: Layer): HTMLTableRowElement {
    const own = this.settings.values.layers[layer.name];
    const shown = element('input', { type: 'checkbox', 'aria-label': texts.showLayer(layer.name) });
    shown.checked = own?.isVisible ?? isFirstShown(layer);
    shown.disabled = layer.items === 0;
    shown.addEventListener('change', () => this.settings.setLayer(layer.name, { isVisible: shown.checked }));
    const color = element('input', { type: 'color', 'aria-label': texts.colorOf(layer.name) });
    color.value = own?.color ?? layer.color;
    color.addEventListener('input', () => this.settings.setLayer(layer.name, { color: color.value }));
    const name = layer.isRemoved ? texts.removedLayer(layer.name) : layer.name;
    return element('tr', layer.items === 0 ? { class: 'empty' } : {}, element('td', { class: 'pair' }, shown, color),
      element('td', {}, name), element('td', {}, layer.function), element('td', {}, texts.sideWord[layer.side]),
      element('td', { class: 'number' }, String(layer.items)));
  }
}

// A listing as a table, with lengths in the unit that is asked for.
function listing(table: Table, unit: Unit): HTMLTableElement {
  const rows = table.rows.map((row) => row.map((cell, i) => {
    const own = table.columns[i]?.unit;
    return own && typeof cell === 'number' ? lengthText(cell * millimetresOf(own), unit) : textOf(cell);
  }));
  return plainTable(table.columns.map((column) => column.title), rows);
}

const SVG = 'http://www.w3.org/2000/svg';

function svg(name: string, attributes: Record<string, string>, ...children: (Node | string)[]): SVGElement {
  const made = document.createElementNS(SVG, name);
  Object.entries(attributes).forEach(([key, value]) => made.setAttribute(key, value));
  made.append(...children);
  return made;
}

// The layers one above the other, each at least as high as its name.
function section(board: Board, unit: Unit): SVGElement {
  const table = board.tables.stackup;
  const rows = records(table);
  const from = table.columns.find((column) => column.key === 'thickness')?.unit ?? 'mm';
  const thickness = rows.map((row) => (typeof row['thickness'] === 'number' ? row['thickness'] : 0));
  const most = Math.max(...thickness, 1e-9);
  const parts: SVGElement[] = [];
  let y = 4;
  rows.forEach((row, i) => {
    const height = Math.round(18 + (40 * thickness[i]!) / most);
    const name = textOf(row['layer']);
    const layer = board.layers.find((one) => one.name === name);
    const kind = layer?.role === 'copper' ? 'copper' : /MASK|SILK|PASTE|LEGEND/i.test(textOf(row['function']))
      ? 'cover' : 'core';
    const title = [name, textOf(row['function']), textOf(row['material'])].filter(Boolean).join('  ');
    parts.push(svg('rect', { x: '4', y: String(y), width: '190', height: String(height - 2), class: kind }));
    if (kind === 'copper' && layer) {
      parts.push(svg('rect', { x: '4', y: String(y), width: '10', height: String(height - 2), fill: layer.color }));
    }
    parts.push(svg('text', { x: '204', y: String(y + height / 2 + 3) }, title));
    const length = thickness[i]! > 0 ? lengthText(thickness[i]! * millimetresOf(from), unit) : '';
    parts.push(svg('text', { x: '188', y: String(y + height / 2 + 3), class: 'length' }, length));
    y += height;
  });
  return svg('svg', {
    class: 'section', role: 'img', 'aria-label': texts.section, viewBox: `0 0 560 ${y + 4}`, width: '560',
    height: String(y + 4),
  }, ...parts);
}

export function stackupPanel(board: Board, unit: Unit): HTMLElement {
  const table = board.tables.stackup;
  if (table.rows.length === 0) {
    return element('p', {}, texts.noStackup);
  }
  const total = table.rows.reduce((sum, row) => {
    const cell = row[table.columns.findIndex((column) => column.key === 'thickness')];
    return sum + (typeof cell === 'number' ? cell : 0);
  }, 0);
  const from = table.columns.find((column) => column.key === 'thickness')?.unit ?? 'mm';
  return element('div', {}, section(board, unit),
    element('p', {}, texts.totalThickness(lengthText(total * millimetresOf(from), unit))), listing(table, unit));
}

export function drillPanel(board: Board, unit: Unit): HTMLElement {
  const rows = board.tables.info.holes;
  if (rows.length === 0) {
    return element('p', {}, texts.noDrills);
  }
  const from = millimetresOf(unitShort(board.units));
  const keys = Object.keys(rows[0]!).filter((key) => key !== 'diameter').sort(
    (a, b) => Number(b === 'holes') - Number(a === 'holes') || a.localeCompare(b));
  return plainTable([texts.diameter, ...keys.map((key) => texts.drillHeads[key] ?? key)], rows.map((row) => [
    typeof row['diameter'] === 'number' ? lengthText(row['diameter'] * from, unit) : textOf(row['diameter']),
    ...keys.map((key) => textOf(row[key])),
  ]));
}

function unitShort(word: string): string {
  return { inch: 'inch', mil: 'mil', micron: 'um' }[word] ?? 'mm';
}

export function reportPanel(board: Board, unit: Unit): HTMLElement {
  const { notes, facts } = board.tables;
  const tables = ([[texts.notes, notes], [texts.facts, facts]] as const).filter(([, table]) => table.rows.length > 0);
  return element('div', {}, ...(tables.length === 0 ? [element('p', {}, texts.noNotes)]
    : tables.flatMap(([title, table]) => [element('h2', {}, title), listing(table, unit)])));
}

const SHOWN: Shown[] = ['silkscreen', 'fabrication', 'pads', 'tracks', 'zones', 'holes', 'references', 'values'];

export class SettingsPanel {
  readonly node = element('div', { class: 'panel settings' });

  constructor(private readonly settings: Settings, private readonly licences: string) {
    this.update();
  }

  update(): void {
    const { settings } = this;
    const { values } = settings;
    const degrees = [0, 45, 90, 135, 180, 225, 270, 315];
    const checks = element('input', { type: 'text' });
    checks.value = values.checks.join(', ');
    checks.addEventListener('change', () => {
      const names = checks.value.split(',').map((name) => name.trim()).filter((name) => name !== '');
      settings.change({ checks: [...new Set(names)] });
    });
    const file = element('input', { type: 'file', 'aria-label': texts.loadSettings });
    file.accept = '.json';
    const told = element('span', { class: 'told', role: 'status' });
    file.addEventListener('change', () => void file.files?.[0]?.text().then((text) => {
      told.textContent = settings.load(text) ? '' : texts.loadFailed;
    }));
    this.node.replaceChildren(
      element('fieldset', {}, element('legend', {}, texts.show),
        ...SHOWN.map((name) => checkBox(texts[name], values.show[name], (isOn) => settings.show(name, isOn)))),
      choice<FirstPin>(texts.firstPin, [['none', texts.firstPinNone], ['all', texts.firstPinAll],
        ['selected', texts.firstPinSelected]], values.firstPin, (firstPin) => settings.change({ firstPin })),
      choice<Unit | 'board'>(texts.units,
        [['board', texts.unitsOfBoard], ['mm', 'mm'], ['inch', 'inch'], ['mil', 'mil'], ['um', 'um']], values.units,
        (units) => settings.change({ units })),
      choice<Theme>(texts.theme, [['system', texts.themeSystem], ['light', texts.themeLight],
        ['dark', texts.themeDark]], values.theme, (theme) => settings.change({ theme })),
      choice(texts.step, [5, 15, 30, 45, 90].map((n) => [String(n), texts.degrees(n)]), String(values.turnStep),
        (step) => settings.change({ turnStep: Number(step) })),
      choice(texts.backOffset, degrees.map((n) => [String(n), texts.degrees(n)]), String(values.backOffset),
        (offset) => settings.change({ backOffset: Number(offset) })),
      element('label', { class: 'choice', title: texts.checksHint }, element('span', {}, texts.checks), checks),
      choice<WhenChecked>(texts.whenChecked, [['none', texts.whenNone], ['dark', texts.whenDark],
        ['lit', texts.whenLit]], values.whenChecked, (whenChecked) => settings.change({ whenChecked })),
      element('div', { class: 'row' },
        button(texts.saveSettings, () => saveFile('ipc2581-settings.json',
          new Blob([settings.text()], { type: 'application/json' }))),
        element('label', { class: 'file' }, texts.loadSettings, file),
        button(texts.resetSettings, () => settings.reset()), told),
      element('details', {}, element('summary', {}, texts.licences), element('pre', {}, this.licences)));
  }
}
