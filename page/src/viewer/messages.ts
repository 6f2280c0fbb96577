// What the page and its worker tell each other. A worker does one thing and is ended: whatever it has come to, the next
// one begins anew.

export type Task =
  | { kind: 'page' }
  | { kind: 'listing'; name: string; format: 'csv' | 'json' }
  | { kind: 'board' };

export interface Order {
  module: WebAssembly.Module;
  // One, or two to compare, the newer one last.
  files: File[];
  task: Task;
}

export type Answer =
  | { kind: 'progress'; percent: number }
  | { kind: 'made'; bytes: ArrayBuffer }
  | { kind: 'failed'; text: string }
  | { kind: 'noMemory' }
  // By a fault of the module itself.
  | { kind: 'ended'; text: string };
