import { App } from './app.js';
import { boardOf, unpacked } from './data.js';
import { element } from './dom.js';
import { texts } from './texts.js';

// Shows a board, whatever has brought its bytes.
export function show(data: ArrayBuffer, root: HTMLElement): App {
  const board = boardOf(data);
  const app = new App(board);
  root.replaceChildren(app.node);
  app.start();
  return app;
}

async function showEmbedded(): Promise<void> {
  const root = document.getElementById('page')!;
  root.replaceChildren(element('p', { class: 'loading' }, texts.loading));
  try {
    const packed = document.getElementById('board-data')?.textContent ?? '';
    const app = show(await unpacked(packed), root);
    // For whoever measures the page or tests it.
    (window as unknown as { page: App }).page = app;
  } catch (error) {
    root.replaceChildren(element('p', { class: 'failure', role: 'alert' }, texts.damaged + String(error)));
  }
}

void showEmbedded();
