// The worker of the viewer: does what it is told once, and is ended.
import { Answer, Order } from './messages.js';
import { NoMemory, Reader } from './reader.js';

// As texts of it, since none of its own is one of the page.
function causeOf(error: unknown): Answer {
  if (error instanceof NoMemory || error instanceof RangeError) {
    return { kind: 'noMemory' };
  }
  return error instanceof WebAssembly.RuntimeError ? { kind: 'ended', text: error.message }
    : { kind: 'failed', text: error instanceof Error ? error.message : String(error) };
}

function tell(answer: Answer, transfer: Transferable[] = []): void {
  self.postMessage(answer, { transfer });
}

async function follow({ module, files, task }: Order): Promise<void> {
  try {
    const system = new FileReaderSync();
    const sources = files.map((file) => ({
      name: file.name, size: file.size,
      bytes: (begin: number, end: number) => new Uint8Array(system.readAsArrayBuffer(file.slice(begin, end))),
    }));
    const reader = await Reader.of(module, sources, (percent) => tell({ kind: 'progress', percent }));
    const bytes = reader.do(task);
    const buffer = bytes.buffer as ArrayBuffer;
    tell({ kind: 'made', bytes: buffer }, [buffer]);
  } catch (error) {
    tell(causeOf(error));
  }
}

self.addEventListener('message', (event: MessageEvent<Order>) => void follow(event.data));
