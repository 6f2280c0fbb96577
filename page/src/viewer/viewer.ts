// What the viewer has around the board, and what a file does that is dropped.
import { App } from '../app.js';
import { Board } from '../data.js';
import { button, element, saveFile } from '../dom.js';
import { Answer, Task } from './messages.js';
import { viewerTexts as texts } from './texts.js';
import { Work } from './work.js';

const MOST_FILES = 2;

type ListingName = keyof typeof texts.listings;
type Failure = Exclude<Answer, { kind: 'progress' } | { kind: 'made' }>;

// Of two, the one that was changed last comes last.
export function inOrder(files: File[]): File[] {
  return [...files].sort((left, right) => left.lastModified - right.lastModified);
}

// The name of what is made of a file: board.xml.gz gives board-bom.csv.
export function nameOfMade(file: string, made: string): string {
  const base = file.replace(/(\.(xml|cvg|tar|gz|zst|xz|bz2|zip|7z))+$/i, '');
  return `${base === '' ? 'board' : base}${made}`;
}

export class Viewer {
  readonly node = element('div', { class: 'viewer' });
  app: App | null = null;
  private files: File[] = [];
  private work: Work | null = null;
  private readonly bar = element('nav', { class: 'viewer-bar', 'aria-label': texts.title });
  private readonly shown = element('div', { class: 'shown' });
  private readonly busy = element('div', { class: 'busy', role: 'status' });
  private readonly busyText = element('span');
  private readonly bars = element('progress', { 'aria-label': texts.title });
  private readonly message = element('div', { class: 'message', role: 'alert' });
  private readonly input = element('input', { type: 'file', class: 'file-input' });
  private readonly listing = element('select', { 'aria-label': texts.listing });

  constructor(private readonly module: WebAssembly.Module, private readonly boardOf: (data: ArrayBuffer) => Board) {
    // Until there is a board, whose settings may say otherwise.
    const isLight = window.matchMedia('(prefers-color-scheme: light)').matches;
    document.documentElement.dataset['theme'] = isLight ? 'light' : 'dark';
    this.bars.max = 100;
    this.input.multiple = true;
    this.input.hidden = true;
    this.input.addEventListener('change', () => {
      this.open([...this.input.files ?? []]);
      this.input.value = '';
    });
    this.busy.append(this.busyText, this.bars, button(texts.stop, () => this.stop()));
    this.busy.hidden = this.message.hidden = this.bar.hidden = true;
    this.shown.append(this.invitation());
    this.node.append(this.bar, this.message, this.busy, this.shown, this.input);
    this.takeDrops();
  }

  open(files: File[]): void {
    if (files.length === 0 || files.length > MOST_FILES) {
      this.tell(files.length === 0 ? texts.noFile : texts.tooMany(files.length));
      return;
    }
    this.show(inOrder(files));
  }

  save(name: string, format: 'csv' | 'json'): void {
    const file = this.files.at(-1)!;
    this.begin(this.files, { kind: 'listing', name, format }, (bytes) => {
      const type = format === 'csv' ? 'text/csv' : 'application/json';
      saveFile(nameOfMade(file.name, `-${name}.${format}`), new Blob([bytes], { type }));
    });
  }

  saveBoard(): void {
    const file = this.files.at(-1)!;
    this.begin([file], { kind: 'board' }, (bytes) => saveFile(nameOfMade(file.name, '.cvg'), new Blob([bytes])));
  }

  stop(): void {
    this.endWork();
    this.tell(texts.stopped);
  }

  private show(files: File[]): void {
    this.begin(files, { kind: 'page' }, (bytes) => {
      // The old board goes first, since there may be no memory for both.
      this.app?.stop();
      this.app = null;
      this.shown.replaceChildren();
      const app = new App(this.boardOf(bytes));
      this.app = app;
      this.files = files;
      this.shown.replaceChildren(app.node);
      app.start();
      document.title = files.map((file) => file.name).join(' / ');
      this.fillBar();
    });
  }

  private begin(files: File[], task: Task, onMade: (bytes: ArrayBuffer) => void): void {
    this.endWork();
    this.message.hidden = true;
    this.busy.hidden = false;
    const names = files.map((file) => file.name).join(', ');
    this.tellProgress(names, 0);
    this.work = new Work({ module: this.module, files, task }, {
      onProgress: (percent) => this.tellProgress(names, percent),
      onMade: (bytes) => {
        this.endWork();
        try {
          onMade(bytes);
        } catch (error) {
          this.tell(error instanceof RangeError ? texts.noMemory : texts.ended + String(error));
        }
      },
      onFailed: (failure) => {
        this.endWork();
        this.tell(textOf(failure));
      },
    });
  }

  private endWork(): void {
    this.work?.stop();
    this.work = null;
    this.busy.hidden = true;
  }

  private tellProgress(names: string, percent: number): void {
    this.busyText.textContent = percent < this.bars.max ? texts.reading(names, percent) : texts.making(names);
    this.bars.value = percent;
  }

  private tell(text: string): void {
    this.message.replaceChildren(element('span', {}, text),
      button(texts.close, () => (this.message.hidden = true), { sign: '×' }));
    this.message.hidden = false;
  }

  private invitation(): HTMLElement {
    return element('div', { class: 'invitation' }, element('h1', {}, texts.drop),
      button(texts.choose, () => this.input.click()), element('p', {}, texts.packed), element('p', {}, texts.dropTwo),
      element('p', { class: 'stays' }, texts.stays));
  }

  private fillBar(): void {
    const names = (Object.keys(texts.listings) as ListingName[])
      .filter((name) => name !== 'diff' || this.files.length === MOST_FILES);
    this.listing.replaceChildren(...names.map((name) => {
      const option = element('option', {}, texts.listings[name]);
      option.value = name;
      return option;
    }));
    const swap = this.files.length < MOST_FILES ? []
      : [button(texts.swap, () => this.show([...this.files].reverse()))];
    this.bar.replaceChildren(button(texts.chooseAnother, () => this.input.click()), ...swap,
      element('span', { class: 'space' }), this.listing,
      button(texts.saveCsv, () => this.save(this.listing.value, 'csv')),
      button(texts.saveJson, () => this.save(this.listing.value, 'json')),
      button(texts.saveBoardLong, () => this.saveBoard(), { sign: texts.saveBoard }));
    this.bar.hidden = false;
  }

  private takeDrops(): void {
    const isWith = (event: DragEvent): boolean => {
      event.preventDefault();
      return event.dataTransfer !== null;
    };
    document.addEventListener('dragover', (event) => {
      if (isWith(event)) {
        event.dataTransfer!.dropEffect = 'copy';
        this.node.classList.add('over');
      }
    });
    document.addEventListener('dragleave', () => this.node.classList.remove('over'));
    document.addEventListener('drop', (event) => {
      this.node.classList.remove('over');
      if (isWith(event)) {
        this.open([...event.dataTransfer!.files]);
      }
    });
  }
}

function textOf(failure: Failure): string {
  if (failure.kind === 'noMemory') {
    return texts.noMemory;
  }
  return failure.kind === 'failed' ? failure.text : texts.ended + failure.text;
}
