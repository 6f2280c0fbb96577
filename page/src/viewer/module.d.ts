// What the compiler makes of viewer/: tools/viewer puts it in place.
declare module 'viewer-module' {

  type Read = (stream: object, heap: Uint8Array, offset: number, length: number, position: number) => number;

  export interface FileNode {
    usedBytes: number;
    stream_ops: { read: Read; llseek: unknown };
  }

  export interface ViewerModule {
    FS: {
      mkdir(path: string): void;
      chdir(path: string): void;
      readFile(path: string): Uint8Array;
      create(path: string): FileNode;
      ErrnoError: new (code: number) => Error;
    };
    HEAPU8: Uint8Array;
    lengthBytesUTF8(text: string): number;
    stringToUTF8(text: string, place: number, size: number): void;
    _malloc(size: number): number;
    _free(place: number): void;
    _TakeFile(place: number, name: number): void;
    _ReadExactly(isExact: number): void;
    _MakePageData(): number;
    _MakeListing(name: number, format: number): number;
    _WriteBoard(path: number): number;
    _Result(): number;
    _ResultSize(): number;
  }

  export interface ModuleOptions {
    tellProgress(percent: number): void;
    instantiateWasm(imports: WebAssembly.Imports, receive: (instance: WebAssembly.Instance) => void): object;
  }

  export default function createModule(options: ModuleOptions): Promise<ViewerModule>;
}

// The script of the worker, as it is put into the page.
declare module 'viewer-worker' {
  const script: string;
  export default script;
}

// Of workers alone, which the library of types has apart from the page.
declare class FileReaderSync {
  readAsArrayBuffer(blob: Blob): ArrayBuffer;
}
