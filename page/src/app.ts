// The page: what stands where, and what a click or a key does.
import Split from 'split.js';
import licences from './LICENSES.txt';
import { Board, records } from './data.js';
import { button, element, plainTable, saveFile, switchOf } from './dom.js';
import { Comparisons } from './comparisons.js';
import { List } from './list.js';
import { groupColumns, netColumns, partColumns } from './columns.js';
import { drillPanel, LayerPanel, reportPanel, SettingsPanel, stackupPanel } from './panels.js';
import { GroupRow, groupRows, NetRow, netRows, PartRow, partRows } from './parts.js';
import { Scene } from './scene.js';
import { Selection } from './selection.js';
import { Layout, Settings, Sides } from './settings.js';
import { texts } from './texts.js';
import { lengthText, millimetresOf, unitOfWord } from './units.js';
import { BoardView, Told } from './view.js';

type Tab = 'groups' | 'parts' | 'nets' | 'layers' | 'stackup' | 'drills' | 'report' | 'differences' | 'settings';

interface Filters {
  text: string;
  value: string;
  side: string;
  fitted: string;
}

export class App {
  readonly node = element('div', { class: 'app' });
  readonly settings: Settings;
  readonly selection = new Selection();
  readonly scene: Scene;
  view: BoardView | null = null;
  readonly parts: PartRow[];
  readonly lists: { groups: List<GroupRow>; parts: List<PartRow>; nets: List<NetRow> };
  private readonly partsByName: Map<string, PartRow>;
  private readonly groupOfPart = new Map<string, GroupRow>();
  private readonly nets: NetRow[];
  private tab: Tab;
  private readonly filters: Filters = { text: '', value: '', side: '', fitted: '' };
  private readonly layers: LayerPanel;
  private readonly settingsPanel: SettingsPanel;
  private readonly comparisons: Comparisons | null;
  private readonly panels = new Map<Tab, HTMLElement>();
  private readonly tabButtons = new Map<Tab, HTMLButtonElement>();
  private readonly status = element('output', { class: 'status', 'aria-live': 'polite' });
  private readonly hover = element('span', { class: 'hover' });
  private readonly counts = element('span', { class: 'counts', 'aria-live': 'polite' });
  private readonly listSide = element('section', { class: 'lists', 'aria-label': texts.tabs });
  private readonly boardSide = element('section', { class: 'view', 'aria-label': texts.board });
  private readonly main = element('main', {});
  private readonly filterBar = element('div', { class: 'filters', role: 'search' });
  private readonly search = element('input', { type: 'search', 'aria-label': texts.search });
  private readonly help = element('dialog', { 'aria-label': texts.help });
  private readonly printed = element('div', { class: 'printed', 'aria-hidden': 'true' });
  private readonly updates: (() => void)[] = [];
  private splits: Split.Instance[] = [];
  private layoutKey = '';
  private checksKey = '';
  private unitsKey = '';
  private readonly ended = new AbortController();

  constructor(readonly board: Board) {
    this.settings = new Settings(unitOfWord(board.units), board.hash);
    this.scene = new Scene(board);
    this.parts = partRows(board);
    this.partsByName = new Map(this.parts.map((row) => [row.designator, row]));
    const groups = groupRows(this.parts);
    groups.forEach((group) => group.designators.forEach((name) => this.groupOfPart.set(name, group)));
    this.nets = netRows(board);
    this.lists = {
      groups: new List('groups', texts.groups, groupColumns(this), groups, this.settings, {
        onClick: (row) => this.selectParts(row.designators),
        isLit: (row) => row.designators.some((name) => this.selection.parts.has(name)),
        classOf: (row) => this.classOf(row.fitted, row.designators),
      }),
      parts: new List('parts', texts.parts, partColumns(this), this.parts, this.settings, {
        onClick: (row) => this.selectParts([row.designator]),
        isLit: (row) => this.selection.parts.has(row.designator),
        classOf: (row) => `${this.classOf(row.fitted, [row.designator])} ${row.state}`,
      }),
      nets: new List('nets', texts.nets, netColumns(this), this.nets, this.settings, {
        onClick: (row) => this.selectNet(row.net),
        isLit: (row) => this.selection.net === row.net,
        classOf: () => '',
      }),
    };
    for (const list of Object.values(this.lists)) {
      list.onSave = (name, text) => saveFile(name, new Blob([text], { type: 'text/csv' }));
    }
    this.layers = new LayerPanel(board, this.settings);
    this.settingsPanel = new SettingsPanel(this.settings, licences);
    this.comparisons = board.comparison ? new Comparisons(this) : null;
    this.tab = this.comparisons ? 'differences' : 'groups';
    this.makeView();
    this.build();
  }

  start(): void {
    this.applySettings();
    this.openTab(this.tab);
    this.settings.onChange(() => this.applySettings());
    this.selection.onChange(() => this.tellSelection());
    const { signal } = this.ended;
    document.addEventListener('keydown', (event) => this.key(event), { signal });
    window.addEventListener('beforeprint', () => this.preparePrint(), { signal });
    window.matchMedia('(prefers-color-scheme: light)')
      .addEventListener('change', () => this.applySettings(), { signal });
    this.tellSelection();
  }

  // Another board takes its place.
  stop(): void {
    this.ended.abort();
    this.splits.forEach((split) => split.destroy());
    Object.values(this.lists).forEach((list) => list.stop());
    this.comparisons?.stop();
    this.view?.stop();
  }

  selectParts(names: string[]): void {
    this.selection.setParts(names);
    this.view?.showParts(names);
  }

  selectNet(net: string): void {
    this.selection.setNet(net);
    const place = this.view?.middleOfNet(this.board.names.indexOf(net));
    if (place && this.view) {
      this.view.show(place, null);
    }
  }

  // A step on in the list that is open.
  step(by: number): void {
    if (this.tab === 'nets') {
      const next = stepped(this.lists.nets.visibleRows(), (row) => row.net === this.selection.net, by);
      if (next) {
        this.selectNet(next.net);
      }
      return;
    }
    if (this.tab === 'groups') {
      const isLit = (row: GroupRow): boolean => row.designators.some((name) => this.selection.parts.has(name));
      const next = stepped(this.lists.groups.visibleRows(), isLit, by);
      if (next) {
        this.selectParts(next.designators);
      }
      return;
    }
    const next = stepped(this.lists.parts.visibleRows(), (row) => this.selection.parts.has(row.designator), by);
    if (next) {
      this.selectParts([next.designator]);
    }
  }

  openTab(tab: Tab): void {
    this.tab = tab;
    for (const [key, tabButton] of this.tabButtons) {
      tabButton.setAttribute('aria-selected', String(key === tab));
      tabButton.tabIndex = key === tab ? 0 : -1;
      this.panels.get(key)!.hidden = key !== tab;
    }
    this.filterBar.hidden = !['groups', 'parts', 'nets'].includes(tab);
    this.filterBar.classList.toggle('of-nets', tab === 'nets');
    this.search.placeholder = tab === 'nets' ? texts.searchNets : texts.searchHint;
    if (tab === 'groups' || tab === 'parts' || tab === 'nets') {
      this.lists[tab].open();
      this.applyFilters();
      this.showRow();
    }
    this.comparisons?.open();
  }

  tellCounts(): void {
    const all = this.parts.filter((row) => row.fitted !== false).length;
    const fitted = new Set(this.parts.filter((row) => row.fitted !== false).map((row) => row.designator));
    this.counts.textContent = this.settings.values.checks.map((check) => {
      const done = (this.settings.checked[check] ?? []).filter((name) => fitted.has(name)).length;
      return texts.count(check, done, all);
    }).join('   ');
  }

  lengthOf(millimetres: number): string {
    return lengthText(millimetres, this.settings.units);
  }

  // In millimetres.
  netLength(row: NetRow): number {
    const unit = this.board.tables.lengths.columns.find((column) => column.key === 'length')?.unit ?? 'mm';
    return row.length * millimetresOf(unit);
  }

  private classOf(fitted: boolean | null, names: string[]): string {
    const last = this.settings.values.checks.at(-1) ?? '';
    const isDone = last !== '' && names.every((name) => this.settings.isChecked(last, name));
    const state = fitted === false ? 'not-fitted' : fitted === null ? 'unknown' : '';
    return `${state} ${isDone ? 'done' : ''}`;
  }

  private makeView(): void {
    try {
      this.view = new BoardView(this.scene, this.settings, this.selection, {
        onClick: (told, isForNet) => this.clicked(told, isForNet),
        onHover: (told) => this.hovered(told),
      });
      this.view.valueOf = (part) => this.partsByName.get(part)?.value ?? '';
      this.boardSide.append(this.boardTools(), this.view.node);
    } catch {
      this.boardSide.append(element('p', { class: 'failure', role: 'alert' }, texts.noWebGl));
    }
  }

  private clicked(told: Told, isForNet: boolean): void {
    const net = told.copper ? this.board.names[told.copper.item.net] ?? '' : '';
    const isNetWanted = isForNet || this.tab === 'nets';
    if (told.part && !(isNetWanted && net !== '')) {
      this.selection.setParts([told.part.name]);
      if (this.tab === 'nets' || !['groups', 'parts'].includes(this.tab)) {
        this.openTab('parts');
      }
    } else if (net !== '') {
      this.selection.setNet(net);
      if (['groups', 'parts'].includes(this.tab)) {
        this.openTab('nets');
      }
    } else {
      this.selection.clear();
    }
    this.showRow();
  }

  private hovered(told: Told): void {
    const net = told.copper ? this.board.names[told.copper.item.net] ?? '' : '';
    const { x, y } = told.place;
    const place = `${this.lengthOf(x)}, ${this.lengthOf(y)}`;
    const part = told.part ? texts.partUnderPointer(told.part.name, this.partsByName.get(told.part.name)?.value ?? '')
      : '';
    const copper = told.copper && net !== '' ? texts.netUnderPointer(net, told.copper.layer.name) : '';
    this.hover.textContent = [part, copper, place].filter((text) => text !== '').join('   ');
  }

  private showRow(): void {
    const part = [...this.selection.parts][0];
    if (this.tab === 'nets') {
      const row = this.nets.find((one) => one.net === this.selection.net);
      row && this.lists.nets.scrollTo(row);
    } else if (this.tab === 'groups' && part !== undefined) {
      const row = this.groupOfPart.get(part);
      row && this.lists.groups.scrollTo(row);
    } else if (this.tab === 'parts' && part !== undefined) {
      const row = this.partsByName.get(part);
      row && this.lists.parts.scrollTo(row);
    }
  }

  private tellSelection(): void {
    Object.values(this.lists).forEach((list) => list.update());
    const { parts, net } = this.selection;
    if (net !== '') {
      const row = this.nets.find((one) => one.net === net);
      this.status.textContent = texts.netInfo(net, row?.count ?? 0, this.lengthOf(row ? this.netLength(row) : 0));
    } else if (parts.size === 1) {
      const row = this.partsByName.get([...parts][0]!);
      this.status.textContent = row ? texts.partInfo(row.designator, row.side, row.value, row.package) : '';
    } else {
      this.status.textContent = parts.size > 1 ? texts.partsInfo(parts.size) : texts.noPart;
    }
    this.showRow();
  }

  private applyFilters(): void {
    const { text, value, side, fitted } = this.filters;
    const words = text.toLowerCase().split(/\s+/).filter((word) => word !== '');
    const has = (all: string): boolean => words.every((word) => all.toLowerCase().includes(word));
    const passes = (row: PartRow): boolean => (side === '' || row.side === side) &&
      (value === '' || row.value === value) && (fitted === '' || String(row.fitted !== false) === fitted) &&
      has([row.designator, row.value, row.package, row.part, row.description, row.partNumber].join(' '));
    this.lists.parts.filter(passes);
    this.lists.groups.filter((group) => group.designators.some((name) => passes(this.partsByName.get(name)!)));
    this.lists.nets.filter((row) => has([row.net, ...row.pins].join(' ')));
  }

  private build(): void {
    this.makeFilters();
    const tabs = element('div', { class: 'tabs', role: 'tablist', 'aria-label': texts.tabs });
    const add = (tab: Tab, name: string, panel: HTMLElement): void => {
      const made = button(name, () => this.openTab(tab), {
        role: 'tab', id: `tab-${tab}`, 'aria-controls': `panel-${tab}`,
      });
      this.tabButtons.set(tab, made);
      tabs.append(made);
      panel.setAttribute('role', 'tabpanel');
      panel.setAttribute('aria-labelledby', `tab-${tab}`);
      panel.id = `panel-${tab}`;
      this.panels.set(tab, panel);
    };
    if (this.comparisons) {
      add('differences', texts.differences, this.comparisons.node);
    }
    add('groups', texts.groups, this.lists.groups.node);
    add('parts', texts.parts, this.lists.parts.node);
    add('nets', texts.nets, this.lists.nets.node);
    add('layers', texts.layers, this.layers.node);
    add('stackup', texts.stackup, element('div', { class: 'panel' }));
    add('drills', texts.drills, element('div', { class: 'panel' }));
    add('report', texts.report, element('div', { class: 'panel' }));
    add('settings', texts.settings, this.settingsPanel.node);
    tabs.addEventListener('keydown', (event) => this.tabKey(event));
    this.listSide.append(tabs, this.filterBar, ...this.panels.values());
    this.makeHelp();
    this.node.append(this.header(), this.main, element('footer', {}, this.status, this.hover), this.help, this.printed);
  }

  private header(): HTMLElement {
    const { board } = this;
    const info = board.tables.info.board;
    const copper = Number(info['copper_layers'] ?? 0);
    const title = board.comparison ? texts.compared(board.comparison.file, board.file) : board.file;
    const layout = switchOf<Layout>(texts.layout, [['list', '▤'], ['left', '◧'], ['above', '⬒'], ['board', '■']],
      () => this.settings.values.layout, (own) => this.settings.change({ layout: own }));
    const names = [texts.listAlone, texts.listLeft, texts.listAbove, texts.boardAlone];
    [...layout.node.children].forEach((child, i) => {
      child.setAttribute('aria-label', names[i]!);
      child.setAttribute('title', names[i]!);
    });
    this.updates.push(layout.update);
    const step = board.step !== '' && board.step !== board.file ? element('span', { class: 'step' }, board.step) : '';
    return element('header', {}, element('h1', {}, title), step,
      element('span', { class: 'summary' }, texts.summary(board.parts.length, this.nets.length, copper)), this.counts,
      element('span', { class: 'space' }), layout.node,
      button(texts.theme, () => this.turnTheme(), { sign: '◐' }),
      button(texts.print, () => window.print()),
      button(texts.help, () => this.help.showModal(), { sign: '?' }));
  }

  private boardTools(): HTMLElement {
    const sides = switchOf<Sides>(texts.sides, [['front', texts.front], ['both', texts.both], ['back', texts.back]],
      () => this.settings.values.sides, (own) => this.settings.change({ sides: own }));
    this.updates.push(sides.update);
    const ruler = button(texts.ruler, () => this.toggleRuler(), { 'aria-pressed': 'false' });
    this.updates.push(() => ruler.setAttribute('aria-pressed', String(this.view?.isMeasuring ?? false)));
    return element('div', { class: 'board-tools', role: 'toolbar', 'aria-label': texts.board }, sides.node,
      button(texts.flip, () => this.flip()), button(texts.turnLeft, () => this.turn(1), { sign: '↺' }),
      button(texts.turnRight, () => this.turn(-1), { sign: '↻' }),
      button(texts.zoomOut, () => this.view?.zoomBy(0.8), { sign: '−' }),
      button(texts.zoomIn, () => this.view?.zoomBy(1.25), { sign: '+' }),
      button(texts.fit, () => this.view?.fit()), ruler,
      button(texts.previous, () => this.step(-1), { sign: '◂' }),
      button(texts.next, () => this.step(1), { sign: '▸' }),
      button(texts.image, () => this.saveImage()));
  }

  private makeFilters(): void {
    this.search.addEventListener('input', () => {
      this.filters.text = this.search.value;
      this.applyFilters();
    });
    const select = (label: string, options: [string, string][], take: (value: string) => void): HTMLElement => {
      const made = element('select', { 'aria-label': label, class: 'of-parts' });
      for (const [value, name] of options) {
        const option = element('option', {}, name);
        option.value = value;
        made.append(option);
      }
      made.addEventListener('change', () => {
        take(made.value);
        this.applyFilters();
      });
      return made;
    };
    const sides = [...new Set(this.parts.map((row) => row.side))].filter((side) => side !== '');
    const values = [...new Set(this.parts.map((row) => row.value))].filter((value) => value !== '').sort();
    this.filterBar.append(this.search,
      select(texts.side, [['', texts.allSides], ...sides.map((side): [string, string] => [side, side])],
        (value) => (this.filters.side = value)),
      select(texts.value, [['', texts.allValues], ...values.map((value): [string, string] => [value, value])],
        (value) => (this.filters.value = value)),
      select(texts.fitting, [['', texts.fittedAll], ['true', texts.fittedOnly], ['false', texts.notFittedOnly]],
        (value) => (this.filters.fitted = value)));
  }

  private makeHelp(): void {
    this.help.append(element('h2', {}, texts.help), plainTable(['', ''], texts.keys.map((row) => [...row])),
      button(texts.close, () => this.help.close()));
  }

  private toggleRuler(): void {
    this.view?.measure(!this.view.isMeasuring);
    this.status.textContent = this.view?.isMeasuring ? texts.rulerHint : '';
    this.updates.forEach((update) => update());
  }

  private flip(): void {
    this.settings.change({ sides: this.settings.values.sides === 'front' ? 'back' : 'front' });
  }

  private turn(by: number): void {
    const { turn, turnStep } = this.settings.values;
    this.settings.change({ turn: (turn + by * turnStep + 360) % 360 });
    this.view?.fit();
  }

  private turnTheme(): void {
    const isLight = document.documentElement.dataset['theme'] === 'light';
    this.settings.change({ theme: isLight ? 'dark' : 'light' });
  }

  private saveImage(): void {
    this.view?.image().toBlob((blob) => blob && saveFile(`${this.board.file}.png`, blob));
  }

  private applySettings(): void {
    const { values } = this.settings;
    const isSystemLight = window.matchMedia('(prefers-color-scheme: light)').matches;
    const theme = values.theme === 'system' ? (isSystemLight ? 'light' : 'dark') : values.theme;
    document.documentElement.dataset['theme'] = theme;
    this.applyLayout();
    this.updates.forEach((update) => update());
    this.tellCounts();
    const checksKey = values.checks.join('\n');
    if (this.checksKey !== checksKey) {
      this.checksKey = checksKey;
      this.lists.groups.setColumns(groupColumns(this));
      this.lists.parts.setColumns(partColumns(this));
    }
    this.applyUnits();
    this.layers.update();
    if (!this.settingsPanel.node.contains(document.activeElement)) {
      this.settingsPanel.update();
    }
    Object.values(this.lists).forEach((list) => list.update());
    this.view?.renew();
  }

  private applyUnits(): void {
    const { units } = this.settings;
    if (this.unitsKey === units) {
      return;
    }
    const isFirst = this.unitsKey === '';
    this.unitsKey = units;
    this.panels.get('stackup')!.replaceChildren(stackupPanel(this.board, units));
    this.panels.get('drills')!.replaceChildren(drillPanel(this.board, units));
    this.panels.get('report')!.replaceChildren(reportPanel(this.board, units));
    if (!isFirst) {
      this.lists.nets.setColumns(netColumns(this));
      this.lists.parts.setColumns(partColumns(this));
      this.tellSelection();
    }
  }

  private applyLayout(): void {
    const { layout, sides, splitLists, splitSides } = this.settings.values;
    const key = `${layout} ${sides}`;
    if (this.layoutKey === key) {
      return;
    }
    this.layoutKey = key;
    this.splits.forEach((split) => split.destroy());
    this.splits = [];
    this.main.dataset['layout'] = layout;
    this.main.replaceChildren(...(layout === 'list' ? [this.listSide] : layout === 'board' ? [this.boardSide]
      : [this.listSide, this.boardSide]));
    if (layout === 'left' || layout === 'above') {
      this.split([this.listSide, this.boardSide], layout === 'left', splitLists, texts.splitLists,
        (own) => this.settings.change({ splitLists: own }));
    }
    const panes = this.view?.panes;
    if (panes) {
      panes.front.node.hidden = sides === 'back';
      panes.back.node.hidden = sides === 'front';
      panes.front.node.style.width = panes.back.node.style.width = '';
      if (sides === 'both') {
        this.split([panes.front.node, panes.back.node], true, splitSides, texts.splitSides,
          (own) => this.settings.change({ splitSides: own }));
      }
      this.view?.fit();
    }
  }

  private split(nodes: HTMLElement[], isBeside: boolean, size: number, name: string,
    keep: (size: number) => void): void {
    const split = Split(nodes, {
      sizes: [size, 100 - size], minSize: 80, gutterSize: 7, direction: isBeside ? 'horizontal' : 'vertical',
      onDrag: () => this.view?.refresh(), onDragEnd: (sizes) => keep(sizes[0]!),
      gutter: (_, direction) => {
        const gutter = element('div', {
          class: `gutter gutter-${direction}`, role: 'separator', tabindex: '0', 'aria-label': name,
        });
        gutter.addEventListener('keydown', (event) => {
          const by = { ArrowLeft: -4, ArrowUp: -4, ArrowRight: 4, ArrowDown: 4 }[event.key];
          if (by !== undefined) {
            const own = Math.min(Math.max(split.getSizes()[0]! + by, 10), 90);
            split.setSizes([own, 100 - own]);
            keep(own);
            event.stopPropagation();
          }
        });
        return gutter;
      },
    });
    this.splits.push(split);
  }

  private preparePrint(): void {
    const image = element('img');
    const isShown = this.settings.values.layout !== 'list' && this.view !== null;
    if (isShown) {
      document.documentElement.dataset['theme'] = 'light';
      this.view!.renew();
      image.src = this.view!.image().toDataURL('image/png');
      image.alt = texts.picture(this.board.file);
    }
    const list = this.tab === 'nets' ? this.lists.nets : this.tab === 'parts' ? this.lists.parts : this.lists.groups;
    const { head, rows } = list.cells();
    const hasList = this.settings.values.layout !== 'board';
    this.printed.replaceChildren(element('h1', {}, this.board.file), element('p', {}, this.counts.textContent ?? ''),
      ...(isShown ? [image] : []), ...(hasList ? [plainTable(head, rows)] : []));
    this.applySettings();
  }

  private tabKey(event: KeyboardEvent): void {
    const by = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (by === undefined) {
      return;
    }
    const tabs = [...this.tabButtons.keys()];
    const next = tabs[(tabs.indexOf(this.tab) + by + tabs.length) % tabs.length]!;
    this.openTab(next);
    this.tabButtons.get(next)!.focus();
    event.preventDefault();
    event.stopPropagation();
  }

  private key(event: KeyboardEvent): void {
    const target = event.target as HTMLElement;
    if (event.key === 'Escape') {
      this.escape(target);
      return;
    }
    const isTyping = target.matches('input:not([type=checkbox]), select, textarea') || this.help.open;
    if (isTyping || event.ctrlKey || event.metaKey || event.altKey) {
      return;
    }
    const isOnControl = target.matches('button, input, summary');
    const action = this.actions()[event.key];
    if (action && !(event.key === ' ' && isOnControl)) {
      event.preventDefault();
      action();
    }
  }

  private escape(target: HTMLElement): void {
    if (this.view?.isMeasuring) {
      this.toggleRuler();
    }
    if (target === this.search && this.search.value !== '') {
      this.search.value = '';
      this.filters.text = '';
      this.applyFilters();
      return;
    }
    target.blur();
    this.selection.clear();
  }

  private actions(): Record<string, () => void> {
    const pan = 60;
    const focused = document.activeElement;
    return {
      n: () => this.step(1), p: () => this.step(-1), ' ': () => this.toggleDone(), '/': () => this.search.focus(),
      f: () => this.flip(), b: () => this.settings.change({ sides: 'both' }), r: () => this.turn(-1),
      R: () => this.turn(1), '+': () => this.view?.zoomBy(1.25), '-': () => this.view?.zoomBy(0.8),
      '0': () => this.view?.fit(), m: () => this.toggleRuler(), '?': () => this.help.showModal(),
      '1': () => this.settings.change({ layout: 'list' }), '2': () => this.settings.change({ layout: 'left' }),
      '3': () => this.settings.change({ layout: 'above' }), '4': () => this.settings.change({ layout: 'board' }),
      ...(focused === document.body || focused?.closest('.grid') ? {
        ArrowUp: () => this.step(-1), ArrowDown: () => this.step(1),
      } : {}),
      ...(focused?.classList.contains('pane') ? {
        ArrowLeft: () => this.view?.panBy(pan, 0), ArrowRight: () => this.view?.panBy(-pan, 0),
        ArrowUp: () => this.view?.panBy(0, pan), ArrowDown: () => this.view?.panBy(0, -pan),
      } : {}),
    };
  }

  private toggleDone(): void {
    const last = this.settings.values.checks.at(-1);
    const names = [...this.selection.parts];
    if (last !== undefined && names.length > 0) {
      this.settings.check(last, names, !names.every((name) => this.settings.isChecked(last, name)));
    }
  }

  // How many millimetres a length in the tables has.
  unitOfTables(): number {
    return millimetresOf(unitOfWord(this.board.units));
  }

  differences(): Record<string, unknown>[] {
    return this.board.comparison ? records(this.board.comparison.differences) : [];
  }
}

function stepped<Row>(rows: Row[], isLit: (row: Row) => boolean, by: number): Row | undefined {
  const at = rows.findIndex(isLit);
  return at < 0 ? rows[by > 0 ? 0 : rows.length - 1] : rows[(at + by + rows.length) % rows.length];
}
