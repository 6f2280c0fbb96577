// One thing that is done beside the page, by a worker of its own.
import workerScript from 'viewer-worker';
import { Answer, Order } from './messages.js';

export interface Listener {
  onProgress(percent: number): void;
  onMade(bytes: ArrayBuffer): void;
  onFailed(answer: Exclude<Answer, { kind: 'progress' } | { kind: 'made' }>): void;
}

// A page from a disk may load no other file, so that the worker's script is in the page.
function newWorker(): Worker {
  const address = URL.createObjectURL(new Blob([workerScript], { type: 'text/javascript' }));
  try {
    return new Worker(address);
  } finally {
    URL.revokeObjectURL(address);
  }
}

export class Work {
  private readonly worker = newWorker();

  constructor(order: Order, listener: Listener) {
    this.worker.addEventListener('message', (event: MessageEvent<Answer>) => {
      const answer = event.data;
      if (answer.kind === 'progress') {
        listener.onProgress(answer.percent);
        return;
      }
      this.stop();
      answer.kind === 'made' ? listener.onMade(answer.bytes) : listener.onFailed(answer);
    });
    this.worker.addEventListener('error', (event) => {
      this.stop();
      listener.onFailed({ kind: 'ended', text: event.message });
    });
    this.worker.postMessage(order);
  }

  stop(): void {
    this.worker.terminate();
  }
}
