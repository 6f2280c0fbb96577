// A list with search, sort, columns that are chosen and moved, and rows that are made as they are seen.
import {
  CellComponent, ColumnDefinition, FilterModule, FormatModule, InteractionModule, MoveColumnsModule,
  ResizeColumnsModule, ResizeTableModule, RowComponent, SortModule, Tabulator,
} from 'tabulator-tables';
import { button, checkBox, element } from './dom.js';
import { compareTexts, csvOf } from './parts.js';
import { Settings } from './settings.js';
import { texts } from './texts.js';

Tabulator.registerModule([FilterModule, FormatModule, InteractionModule, MoveColumnsModule, ResizeColumnsModule,
  ResizeTableModule, SortModule]);

export interface ListColumn<Row> {
  field: string;
  title: string;
  text(row: Row): string;
  compare?(left: Row, right: Row): number;
  node?(row: Row): Node;
  isNumber?: boolean;
  isHidden?: boolean;
  width?: number;
}

export interface ListEvents<Row> {
  onClick(row: Row): void;
  isLit(row: Row): boolean;
  classOf(row: Row): string;
}

export class List<Row extends { id: string }> {
  readonly node = element('div', { class: 'list' });
  private readonly grid = element('div', { class: 'grid' });
  private readonly chooser = element('details', { class: 'chooser' });
  private readonly told = element('span', { class: 'told', 'aria-live': 'polite' });
  private table: Tabulator | null = null;
  private isBuilt = false;
  // What is to be seen once the list is made.
  private wanted: Row | null = null;
  private readonly byId: Map<string, Row>;
  private passes: (row: Row) => boolean = () => true;

  constructor(readonly name: string, label: string, private columns: ListColumn<Row>[], private readonly rows: Row[],
    private readonly settings: Settings, private readonly events: ListEvents<Row>) {
    this.byId = new Map(rows.map((row) => [row.id, row]));
    this.grid.setAttribute('aria-label', label);
    const tools = element('div', { class: 'list-tools' }, this.chooser,
      button(texts.copyLong, () => void this.copy(), { sign: texts.copyList }),
      button(texts.saveCsvLong, () => this.onSave(`${name}.csv`, this.csv()), { sign: texts.saveCsv }), this.told);
    this.node.append(tools, this.grid);
  }

  onSave: (name: string, text: string) => void = () => undefined;

  // A list that nobody looks at is not made.
  open(): void {
    if (!this.table) {
      this.make();
    }
  }

  // Its table listens to the window, which would keep all of the board.
  stop(): void {
    this.table?.destroy();
    this.table = null;
  }

  setColumns(columns: ListColumn<Row>[]): void {
    this.columns = columns;
    if (this.table) {
      this.table.destroy();
      this.make();
    }
  }

  filter(passes: (row: Row) => boolean): void {
    this.passes = passes;
    if (this.table && this.isBuilt) {
      this.table.setFilter((data: Row) => this.passes(this.own(data)));
    }
    this.tellRows();
  }

  // Those that pass, in the order in which they are shown.
  visibleRows(): Row[] {
    if (!this.table || !this.isBuilt) {
      return this.rows.filter((row) => this.passes(row));
    }
    return this.table.getRows('active').map((row) => this.own(row.getData() as Row));
  }

  update(): void {
    for (const node of this.grid.querySelectorAll<HTMLElement>('.tabulator-row')) {
      const row = this.byId.get(node.dataset['row'] ?? '');
      if (row) {
        this.dress(node, row);
      }
    }
  }

  scrollTo(row: Row): void {
    this.wanted = row;
    if (this.table && this.isBuilt) {
      this.wanted = null;
      // The table takes its rows out of the page meanwhile, and the focus goes with them.
      const hadFocus = this.grid.contains(document.activeElement);
      void this.table.scrollToRow(row.id, 'center', false).catch(() => undefined).then(() => {
        if (hadFocus && document.activeElement === document.body) {
          this.grid.querySelector<HTMLElement>('.tabulator-tableholder')?.focus({ preventScroll: true });
        }
      });
    }
  }

  cells(): { head: string[]; rows: string[][] } {
    const shown = this.shownColumns();
    return {
      head: shown.map((column) => column.title),
      rows: this.visibleRows().map((row) => shown.map((column) => column.text(row))),
    };
  }

  csv(): string {
    const { head, rows } = this.cells();
    return csvOf(head, rows);
  }

  private own(data: Row): Row {
    return this.byId.get(data.id) ?? data;
  }

  private async copy(): Promise<void> {
    const { head, rows } = this.cells();
    const text = [head, ...rows].map((row) => row.join('\t')).join('\n');
    try {
      await navigator.clipboard.writeText(text);
    } catch {
      copyByElement(text);
    }
    this.told.textContent = texts.copied;
  }

  private tellRows(): void {
    this.told.textContent = texts.rows(this.rows.filter((row) => this.passes(row)).length, this.rows.length);
  }

  // As they were moved, with those that are new at the end.
  private orderedColumns(): ListColumn<Row>[] {
    const order = (this.settings.values.columns[this.name] ?? []).map((one) => one.field);
    const place = (column: ListColumn<Row>): number => {
      const at = order.indexOf(column.field);
      return at < 0 ? order.length + this.columns.indexOf(column) : at;
    };
    return [...this.columns].sort((a, b) => place(a) - place(b));
  }

  private isShown(column: ListColumn<Row>): boolean {
    const chosen = this.settings.values.columns[this.name]?.find((one) => one.field === column.field);
    return chosen ? chosen.isVisible : !column.isHidden;
  }

  private shownColumns(): ListColumn<Row>[] {
    return this.orderedColumns().filter((column) => this.isShown(column));
  }

  private make(): void {
    this.isBuilt = false;
    this.makeChooser();
    this.grid.replaceChildren();
    const holder = element('div');
    this.grid.append(holder);
    const table = new Tabulator(holder, {
      data: this.rows, index: 'id', height: '100%', layout: 'fitDataStretch', movableColumns: true,
      columns: this.orderedColumns().map((column) => this.definition(column)),
      rowFormatter: (row: RowComponent) => {
        const own = this.own(row.getData() as Row);
        row.getElement().dataset['row'] = own.id;
        this.dress(row.getElement(), own);
      },
    });
    this.table = table;
    table.on('tableBuilt', () => {
      this.isBuilt = true;
      this.filter(this.passes);
      if (this.wanted) {
        this.scrollTo(this.wanted);
      }
    });
    table.on('rowClick', (event, row) => {
      if (!(event.target instanceof HTMLInputElement)) {
        this.events.onClick(this.own(row.getData() as Row));
      }
    });
    table.on('columnMoved', () => this.keepColumns());
  }

  private definition(column: ListColumn<Row>): ColumnDefinition {
    return {
      field: column.field, title: column.title, visible: this.isShown(column), resizable: true,
      hozAlign: column.isNumber ? 'right' : 'left', minWidth: 40, maxInitialWidth: column.width ?? 170,
      formatter: (cell: CellComponent) => {
        const row = this.own(cell.getData() as Row);
        return (column.node?.(row) ?? document.createTextNode(column.text(row))) as HTMLElement;
      },
      sorter: (_a: unknown, _b: unknown, left: RowComponent, right: RowComponent) => {
        const first = this.own(left.getData() as Row);
        const second = this.own(right.getData() as Row);
        return column.compare ? column.compare(first, second) : compareTexts(column.text(first), column.text(second));
      },
    } as ColumnDefinition;
  }

  private makeChooser(): void {
    const boxes = this.orderedColumns().map((column) =>
      checkBox(column.title, this.isShown(column), (isOn) => {
        this.keepColumns(column.field, isOn);
        if (isOn) {
          this.table?.showColumn(column.field);
        } else {
          this.table?.hideColumn(column.field);
        }
        this.table?.redraw(true);
      }));
    this.chooser.replaceChildren(element('summary', {}, texts.columns), element('div', { class: 'menu' }, ...boxes));
  }

  private keepColumns(field = '', isOn = false): void {
    const order = this.table?.getColumns().map((column) => column.getField()) ?? [];
    const columns = order.map((own) => {
      const column = this.columns.find((one) => one.field === own)!;
      return { field: own, isVisible: own === field ? isOn : this.isShown(column) };
    });
    this.settings.change({ columns: { ...this.settings.values.columns, [this.name]: columns } });
  }

  private dress(node: HTMLElement, row: Row): void {
    const isLit = this.events.isLit(row);
    node.classList.toggle('lit', isLit);
    node.setAttribute('aria-selected', String(isLit));
    const state = this.events.classOf(row);
    for (const one of ['not-fitted', 'unknown', 'done', 'added', 'removed', 'moved', 'changed']) {
      node.classList.toggle(one, state.split(' ').includes(one));
    }
    for (const input of node.querySelectorAll<HTMLInputElement>('input[data-check]')) {
      input.dispatchEvent(new CustomEvent('look'));
    }
  }
}

// For browsers that give no page from a file the clipboard.
function copyByElement(text: string): void {
  const area = element('textarea', { class: 'unseen' });
  area.value = text;
  document.body.append(area);
  area.select();
  document.execCommand('copy');
  area.remove();
}
