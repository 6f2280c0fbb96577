// The list of what differs between two boards; a click on a row jumps to it.
import type { App } from './app.js';
import { element } from './dom.js';
import { List } from './list.js';
import { texts } from './texts.js';

interface DifferenceRow {
  id: string;
  kind: string;
  name: string;
  change: string;
  property: string;
  before: string;
  after: string;
}

export class Comparisons {
  readonly node = element('div', { class: 'differences' });
  private readonly list: List<DifferenceRow>;

  constructor(private readonly app: App) {
    const rows = app.differences().map((row, i): DifferenceRow => {
      const text = (key: string): string => String(row[key] ?? '');
      return {
        id: String(i), kind: text('kind'), name: text('name'), change: text('change'), property: text('property'),
        before: text('before'), after: text('after'),
      };
    });
    const fields = ['kind', 'name', 'change', 'property', 'before', 'after'] as const;
    this.list = new List('differences', texts.differences,
      fields.map((field) => ({
        field, title: texts.differenceHeads[field], text: (row: DifferenceRow) => row[field],
      })), rows, app.settings, {
        onClick: (row) => this.jump(row),
        isLit: (row) => app.selection.parts.has(row.name) || (row.kind === 'net' && app.selection.net === row.name),
        classOf: (row) => this.stateOf(row),
      });
    const legend = element('p', { class: 'legend', 'aria-label': texts.legend },
      ...(['added', 'removed', 'moved', 'changed'] as const).map((state) =>
        element('span', { class: state }, `${texts.stateMark[state]} ${texts.state[state]}`)));
    this.node.append(legend, rows.length === 0 ? element('p', {}, texts.noDifferences) : this.list.node);
  }

  open(): void {
    this.list.open();
  }

  stop(): void {
    this.list.stop();
  }

  private stateOf(row: DifferenceRow): string {
    const part = this.app.board.comparison?.parts.find((one) => one.name === row.name);
    return row.kind === 'component' && part ? part.state : row.change === 'added' ? 'added'
      : row.change === 'removed' ? 'removed' : 'changed';
  }

  private jump(row: DifferenceRow): void {
    const { app } = this;
    if (app.scene.parts.has(row.name)) {
      app.selectParts([row.name]);
      return;
    }
    const old = app.board.comparison?.parts.find((one) => one.name === row.name);
    if (old?.fromX !== undefined && old.fromY !== undefined) {
      app.selection.setPlace({ x: old.fromX, y: old.fromY });
      app.view?.show({ x: old.fromX, y: old.fromY }, null);
      return;
    }
    if (app.board.names.includes(row.name) && row.kind.includes('net')) {
      app.selectNet(row.name);
      return;
    }
    if (row.kind === 'board' && row.property === 'profile') {
      app.view?.fit();
      return;
    }
    this.jumpToPlace(row);
  }

  // What lies on a layer tells its place: "RECT_1 at 12.3,4.5, net GND".
  private jumpToPlace(row: DifferenceRow): void {
    const { app } = this;
    const found = / at (-?[0-9.e+-]+),(-?[0-9.e+-]+)/.exec(`${row.property} ${row.before} ${row.after} ${row.name}`);
    if (found) {
      const millimetres = app.unitOfTables();
      const place = { x: Number(found[1]) * millimetres, y: Number(found[2]) * millimetres };
      app.selection.setPlace(place);
      app.view?.show(place, null);
    }
  }
}
