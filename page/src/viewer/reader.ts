// Reads boards by the module.
import createModule, { ViewerModule } from 'viewer-module';
import { Task } from './messages.js';

// The file that lies in the module's memory is a window on that of the person: so much of it is there at a time.
const WINDOW = 4 << 20;
const INPUT_OUTPUT_ERROR = 29;
const WRITTEN = '/written';
// Nothing else is in it, so that a file may have any name.
const FOLDER = '/boards';
enum Outcome { Made, Failed, NoMemory }

// Bytes of a file, by their place.
export type Bytes = (begin: number, end: number) => Uint8Array;

export interface Source {
  name: string;
  size: number;
  bytes: Bytes;
}

// The browser gives no more memory, or not so much at once.
export class NoMemory extends Error {}

// As the files are called, where they can be in one folder by these names.
export function fileNames(names: string[]): string[] {
  const made: string[] = [];
  for (const name of names) {
    const own = ['', '.', '..'].includes(name) ? 'board' : name.replaceAll('/', '_');
    made.push(made.includes(own) ? `${own} (2)` : own);
  }
  return made;
}

export class Reader {
  private constructor(private readonly module: ViewerModule) {}

  static async of(compiled: WebAssembly.Module, sources: Source[], tellProgress: (percent: number) => void):
  Promise<Reader> {
    const module = await createModule({
      tellProgress,
      instantiateWasm: (imports, receive) => {
        const instance = new WebAssembly.Instance(compiled, imports);
        receive(instance);
        return instance.exports;
      },
    });
    const reader = new Reader(module);
    module.FS.mkdir(FOLDER);
    module.FS.chdir(FOLDER);
    const names = fileNames(sources.map((source) => source.name));
    sources.forEach((source, place) => reader.take({ ...source, name: names[place]! }, place));
    return reader;
  }

  do(task: Task): Uint8Array {
    if (task.kind === 'page') {
      return this.made(this.module._MakePageData());
    }
    if (task.kind === 'listing') {
      return this.made(this.with([task.name, task.format], (name, format) => this.module._MakeListing(name!, format!)));
    }
    this.made(this.with([WRITTEN], (path) => this.module._WriteBoard(path!)));
    return this.module.FS.readFile(WRITTEN);
  }

  readExactly(isExact: boolean): void {
    this.module._ReadExactly(isExact ? 1 : 0);
  }

  private take({ name, size, bytes }: Source, place: number): void {
    const { FS } = this.module;
    const node = FS.create(name);
    node.usedBytes = size;
    node.stream_ops = { llseek: node.stream_ops.llseek, read: this.readOf(size, bytes) };
    this.with([name], (text) => this.module._TakeFile(place, text!));
  }

  private readOf(size: number, bytes: Bytes): (stream: object, heap: Uint8Array, offset: number, length: number,
    position: number) => number {
    let from = 0;
    let window = new Uint8Array();
    return (_, heap, offset, length, position) => {
      if (position < from || position >= from + window.length) {
        from = position;
        window = position < size ? this.guarded(bytes, position, Math.min(position + WINDOW, size)) : new Uint8Array();
      }
      const piece = window.subarray(position - from, position - from + length);
      heap.set(piece, offset);
      return piece.length;
    };
  }

  // A file may be gone by now, or the disk that it was on.
  private guarded(bytes: Bytes, begin: number, end: number): Uint8Array<ArrayBuffer> {
    try {
      return new Uint8Array(bytes(begin, end));
    } catch {
      throw new this.module.FS.ErrnoError(INPUT_OUTPUT_ERROR);
    }
  }

  // Calls with the places of texts.
  private with<T>(values: string[], call: (...places: number[]) => T): T {
    const places = values.map((text) => {
      const size = this.module.lengthBytesUTF8(text) + 1;
      const place = this.module._malloc(size);
      if (place === 0) {
        throw new NoMemory();
      }
      this.module.stringToUTF8(text, place, size);
      return place;
    });
    try {
      return call(...places);
    } finally {
      places.forEach((place) => this.module._free(place));
    }
  }

  private made(outcome: Outcome): Uint8Array {
    if (outcome === Outcome.NoMemory) {
      throw new NoMemory();
    }
    const place = this.module._Result() >>> 0;
    const bytes = this.module.HEAPU8.slice(place, place + (this.module._ResultSize() >>> 0));
    if (outcome === Outcome.Failed) {
      throw new Error(new TextDecoder().decode(bytes));
    }
    return bytes;
  }
}
