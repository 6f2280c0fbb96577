// The viewer: a page that shows whatever board is dropped on it.
import { boardOf, unpacked } from '../data.js';
import { element } from '../dom.js';
import { texts } from '../texts.js';
import { viewerTexts } from './texts.js';
import { Viewer } from './viewer.js';

async function begin(): Promise<void> {
  const root = document.getElementById('page')!;
  try {
    const packed = document.getElementById('module')?.textContent ?? '';
    const module = await WebAssembly.compile(await unpacked(packed));
    const viewer = new Viewer(module, boardOf);
    root.replaceChildren(viewer.node);
    // For whoever measures the page or tests it.
    (window as unknown as { viewer: Viewer }).viewer = viewer;
  } catch (error) {
    root.replaceChildren(element('p', { class: 'failure', role: 'alert' }, viewerTexts.old + String(error)));
  }
}

document.getElementById('page')!.replaceChildren(element('p', { class: 'loading' }, texts.loading));
void begin();
