// The board on its canvas: one or both sides, drawn anew for each frame.
import { applied, Camera, inverse } from './camera.js';
import { css, dark, light, mixed, Palette, rgba, visibleOn } from './colors.js';
import { Comparison, Ends, HoleChange, Item, Layer, Part, Side, State } from './data.js';
import { element } from './dom.js';
import { addBox, addPoint, emptyBox, isEmpty, Point } from './geometry.js';
import { Drawable, Graphics, MOST_QUICK, Rgba, Transform, Viewport } from './gl.js';
import { CopperHit, Picker } from './pick.js';
import { kindOf, layersOfSide, PartBox, Scene } from './scene.js';
import { Selection } from './selection.js';
import { Settings, Shown, Sides } from './settings.js';
import { Batch } from './shapes.js';
import { texts } from './texts.js';
import { lengthText } from './units.js';

interface Pane {
  side: Side;
  node: HTMLElement;
  camera: Camera;
  isFitted: boolean;
}

interface Pointer {
  x: number;
  y: number;
}

export interface Told {
  part: Part | null;
  copper: CopperHit | null;
  place: Point;
}

export interface ViewEvents {
  onClick(told: Told, isForNet: boolean): void;
  onHover(told: Told): void;
}

const OF_ROLE: Partial<Record<Layer['role'], Shown>> = { legend: 'silkscreen', assembly: 'fabrication' };
// Milliseconds from one picture to the next, in motion.
const SLOW_FRAME = 28;
const FIRST_SHOWN: Layer['role'][] = ['copper', 'legend'];

// What is drawn goes no further beyond its own size, in pixels, than this.
const BEYOND = 3;

export function isFirstShown(layer: Layer): boolean {
  return layer.isRemoved || (FIRST_SHOWN.includes(layer.role) && layer.side !== 'inside');
}

export class BoardView {
  readonly node: HTMLElement;
  readonly panes: Record<Side, Pane>;
  frames = 0;
  private readonly canvas = element('canvas', { class: 'drawing', 'aria-hidden': 'true' });
  private readonly overlay = element('canvas', { class: 'overlay', 'aria-hidden': 'true' });
  private readonly graphics: Graphics;
  private readonly picker: Picker;
  private readonly drawables = new Map<string, Drawable>();
  private readonly pointers = new Map<number, Pointer>();
  // What depends on the selection and the settings, until one of them changes.
  private readonly passing = new Map<string, [Drawable, Rgba][]>();
  private recorded: [Drawable, Rgba][] = [];
  private isPending = false;
  private moved = 0;
  private ruler: Point[] | null = null;
  private pixels = 1;
  private rest = 0;
  private isInMotion = false;
  private lastFrame = 0;
  // What the computer needs left out to be quick enough.
  private quick = 0;
  private pace = 0;

  constructor(private readonly scene: Scene, private readonly settings: Settings,
    private readonly selection: Selection, private readonly events: ViewEvents) {
    this.graphics = new Graphics(this.canvas);
    this.quick = this.graphics.isSoftware ? 2 : 0;
    this.picker = new Picker(scene);
    this.panes = { front: this.pane('front'), back: this.pane('back') };
    this.node = element('div', { class: 'board' }, this.canvas, this.overlay, this.panes.front.node,
      this.panes.back.node);
    new ResizeObserver(() => this.resize()).observe(this.node);
    settings.onChange(() => this.renew());
    selection.onChange(() => {
      this.forget();
      this.refreshInMotion();
    });
  }

  get sides(): Side[] {
    const sides: Sides = this.settings.values.sides;
    return sides === 'both' ? ['front', 'back'] : [sides];
  }

  // Gives back what the graphics card has of it, of which a browser has only so much.
  stop(): void {
    this.graphics.stop();
  }

  fit(): void {
    for (const pane of Object.values(this.panes)) {
      pane.isFitted = false;
    }
    this.refresh();
  }

  zoomBy(factor: number): void {
    this.sides.forEach((side) => this.panes[side].camera.zoomBy(factor, 0, 0));
    this.refresh();
  }

  panBy(dx: number, dy: number): void {
    this.sides.forEach((side) => this.panes[side].camera.pan(dx, dy));
    this.refresh();
  }

  // Brings a place into the middle, where it is not seen already.
  show(place: Point, side: Side | null): void {
    for (const own of this.sides) {
      const { camera, node } = this.panes[own];
      const at = applied(camera.transform(node.clientWidth, node.clientHeight, 1), place.x, place.y);
      const margin = 30;
      const isSeen = at.x > margin && at.y > margin && at.x < node.clientWidth - margin &&
        at.y < node.clientHeight - margin;
      if ((side === null || own === side) && !isSeen) {
        camera.x = place.x;
        camera.y = place.y;
      }
    }
    this.refresh();
  }

  get isMeasuring(): boolean {
    return this.ruler !== null;
  }

  measure(isOn: boolean): void {
    this.ruler = isOn ? [] : null;
    this.node.classList.toggle('measuring', isOn);
    this.refresh();
  }

  placeAt(side: Side, x: number, y: number): Point {
    const { camera, node } = this.panes[side];
    return inverse(camera.transform(node.clientWidth, node.clientHeight, 1), x, y);
  }

  // A place of the board as one of the page.
  pageOf(side: Side, x: number, y: number): Point {
    const { camera, node } = this.panes[side];
    const at = applied(camera.transform(node.clientWidth, node.clientHeight, 1), x, y);
    const box = node.getBoundingClientRect();
    return { x: box.left + at.x, y: box.top + at.y };
  }

  middleOf(name: string): Point | null {
    return this.scene.boxOf(name)?.middle ?? null;
  }

  image(): HTMLCanvasElement {
    this.isInMotion = false;
    this.draw();
    const image = element('canvas');
    image.width = this.overlay.width;
    image.height = this.overlay.height;
    const context = image.getContext('2d')!;
    context.drawImage(this.canvas, 0, 0);
    context.drawImage(this.overlay, 0, 0);
    return image;
  }

  // Draws once more, with the settings and the colours that there are now.
  renew(): void {
    this.forget();
    this.refresh();
  }

  private forget(): void {
    this.passing.forEach((drawn) => drawn.forEach(([drawable]) => this.graphics.release(drawable)));
    this.passing.clear();
  }

  // A picture in motion: where it is slow, it is drawn with less detail until it comes to rest.
  private refreshInMotion(): void {
    clearTimeout(this.rest);
    this.rest = window.setTimeout(() => {
      this.isInMotion = false;
      this.lastFrame = 0;
      this.refresh();
    }, 160);
    this.isInMotion = true;
    this.refresh();
  }

  private measureFrame(): void {
    const now = performance.now();
    const took = this.lastFrame > 0 ? now - this.lastFrame : 0;
    this.lastFrame = this.isInMotion ? now : 0;
    if (took > 0 && took < 1000) {
      this.pace = took > SLOW_FRAME ? Math.max(this.pace, 0) + took / SLOW_FRAME : Math.min(this.pace, 0) - 1;
    }
    // A very slow picture or some slow ones in a row ask for less detail, and many fast ones for more again.
    if (this.pace > 2) {
      this.quick = Math.min(this.quick + 1, MOST_QUICK);
      this.pace = 0;
    } else if (this.pace < -60 && !this.graphics.isSoftware) {
      this.quick = Math.max(this.quick - 1, 0);
      this.pace = 0;
    }
    this.graphics.quick = this.isInMotion ? this.quick : 0;
  }

  refresh(): void {
    if (!this.isPending) {
      this.isPending = true;
      requestAnimationFrame(() => {
        this.isPending = false;
        this.draw();
      });
    }
  }

  // What lies at a place of a side.
  told(side: Side, place: Point): Told {
    const { camera } = this.panes[side];
    const reach = 2 / camera.zoom;
    const layers = this.layersOf(side).filter((layer) => layer.role === 'copper').reverse();
    return {
      part: this.picker.partAt(place.x, place.y, side, reach)?.part ?? null,
      copper: this.picker.copperAt(place.x, place.y, layers, reach), place,
    };
  }

  private pane(side: Side): Pane {
    const name = side === 'front' ? texts.front : texts.back;
    const node = element('div', {
      class: 'pane', role: 'img', tabindex: '0', 'aria-label': texts.picture(name), 'data-side': side,
    }, element('span', { class: 'side-name' }, name));
    const pane = { side, node, camera: new Camera(side), isFitted: false };
    node.addEventListener('pointerdown', (event) => this.down(pane, event));
    node.addEventListener('pointermove', (event) => this.move(pane, event));
    node.addEventListener('pointerup', (event) => this.up(pane, event));
    node.addEventListener('pointercancel', (event) => this.pointers.delete(event.pointerId));
    node.addEventListener('wheel', (event) => {
      event.preventDefault();
      const { x, y } = fromMiddle(node, event);
      const lines = event.deltaMode === 1 ? 20 : 1;
      pane.camera.zoomBy(Math.exp(-event.deltaY * lines * 0.0016), x, y);
      this.refreshInMotion();
    }, { passive: false });
    return pane;
  }

  private down(pane: Pane, event: PointerEvent): void {
    if (event.button !== 0) {
      return;
    }
    pane.node.setPointerCapture(event.pointerId);
    this.pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
    this.moved = this.pointers.size > 1 ? Infinity : 0;
  }

  private move(pane: Pane, event: PointerEvent): void {
    const before = this.pointers.get(event.pointerId);
    const place = this.placeOf(pane, event);
    if (!before) {
      this.events.onHover(this.told(pane.side, place));
      return;
    }
    const others = [...this.pointers].filter(([id]) => id !== event.pointerId).map(([, pointer]) => pointer);
    const other = others[0];
    const dx = event.clientX - before.x;
    const dy = event.clientY - before.y;
    this.moved += Math.abs(dx) + Math.abs(dy);
    if (other) {
      const length = Math.hypot(before.x - other.x, before.y - other.y);
      const now = Math.hypot(event.clientX - other.x, event.clientY - other.y);
      const { x, y } = fromMiddle(pane.node, { clientX: other.x, clientY: other.y });
      pane.camera.zoomBy(now / Math.max(length, 1), x, y);
    } else if (this.moved > 3) {
      pane.camera.pan(dx, dy);
    }
    this.pointers.set(event.pointerId, { x: event.clientX, y: event.clientY });
    this.refreshInMotion();
  }

  private up(pane: Pane, event: PointerEvent): void {
    if (!this.pointers.delete(event.pointerId) || this.moved > 3) {
      return;
    }
    const place = this.placeOf(pane, event);
    if (this.ruler) {
      this.ruler = this.ruler.length === 2 ? [place] : [...this.ruler, place];
      this.refresh();
      return;
    }
    this.events.onClick(this.told(pane.side, place), event.ctrlKey || event.metaKey || event.shiftKey);
  }

  private placeOf(pane: Pane, event: { clientX: number; clientY: number }): Point {
    const box = pane.node.getBoundingClientRect();
    return this.placeAt(pane.side, event.clientX - box.left, event.clientY - box.top);
  }

  private resize(): void {
    this.pixels = window.devicePixelRatio || 1;
    this.overlay.width = Math.max(Math.round(this.node.clientWidth * this.pixels), 1);
    this.overlay.height = Math.max(Math.round(this.node.clientHeight * this.pixels), 1);
    // A canvas is empty once its size has changed.
    this.draw();
  }

  get palette(): Palette {
    return document.documentElement.dataset['theme'] === 'light' ? light : dark;
  }

  layersOf(side: Side): Layer[] {
    const values = this.settings.values;
    const other = side === 'front' ? 'bottom' : 'top';
    return layersOfSide(this.scene.board, side).filter((layer) => {
      const ofRole = OF_ROLE[layer.role];
      const isOn = values.layers[layer.name]?.isVisible ?? isFirstShown(layer);
      const isThisSide = layer.side !== other || values.seeThrough;
      return isOn && isThisSide && (ofRole === undefined || values.show[ofRole]);
    });
  }

  colorOf(layer: Layer): Rgba {
    return rgba(this.settings.values.layers[layer.name]?.color ?? layer.color);
  }

  private draw(): void {
    const { width, height } = this.overlay;
    if (width <= 1 || height <= 1) {
      return;
    }
    ++this.frames;
    this.measureFrame();
    const context = this.overlay.getContext('2d')!;
    context.clearRect(0, 0, width, height);
    const { share } = this.graphics;
    this.graphics.resize(Math.round(width * share), Math.round(height * share));
    this.graphics.clear(this.palette.desk);
    const around = this.node.getBoundingClientRect();
    for (const side of this.sides) {
      const pane = this.panes[side];
      const box = pane.node.getBoundingClientRect();
      const viewport = {
        x: Math.round((box.left - around.left) * this.pixels), y: Math.round((box.top - around.top) * this.pixels),
        width: Math.round(box.width * this.pixels), height: Math.round(box.height * this.pixels),
      };
      if (viewport.width > 1 && viewport.height > 1) {
        this.drawSide(pane, viewport, context);
      }
    }
    if (this.frames === 1) {
      performance.mark('first-picture');
    }
  }

  private drawSide(pane: Pane, viewport: Viewport, context: CanvasRenderingContext2D): void {
    const values = this.settings.values;
    const { camera, side } = pane;
    camera.turn = values.turn + (side === 'back' ? values.backOffset : 0);
    if (!pane.isFitted) {
      camera.fit(this.scene.bounds, viewport.width / this.pixels, viewport.height / this.pixels);
      pane.isFitted = true;
    }
    const [wide, high] = [viewport.width / this.pixels, viewport.height / this.pixels];
    const transform = camera.transform(wide, high, this.pixels);
    const { share } = this.graphics;
    const drawn = {
      x: Math.round(viewport.x * share), y: Math.round(viewport.y * share), width: Math.round(viewport.width * share),
      height: Math.round(viewport.height * share),
    };
    const palette = this.palette;
    this.graphics.begin(drawn, camera.transform(wide, high, this.pixels * share), palette.desk);
    if (this.graphics.fillBox(this.scene.boardBox, palette.board)) {
      this.graphics.draw(this.kept('around', () => this.scene.around()), palette.desk);
    } else {
      this.graphics.draw(this.kept('profile', () => this.scene.profile()), palette.board);
    }
    this.drawLayers(side, transform.scale * share);
    this.graphics.draw(this.kept(`pads ${side}`, () => this.scene.padsOfParts(side)), palette.pad);
    if (values.show.holes) {
      this.graphics.draw(this.kept(`holes ${side}`, () => this.scene.holes(side)), palette.hole);
    }
    if (values.show.fabrication) {
      this.graphics.draw(this.kept(`bodies ${side}`, () => this.scene.bodies(side)), palette.body);
    }
    this.graphics.draw(this.kept('edge', () => this.edge()), palette.edge);
    this.drawPassing(`checked ${side}`, () => this.drawChecked(side));
    this.drawComparison(side);
    this.drawSelection(side);
    this.drawPassing(`first pins ${side}`, () => this.drawFirstPins(side));
    context.save();
    context.beginPath();
    context.rect(viewport.x, viewport.y, viewport.width, viewport.height);
    context.clip();
    context.translate(viewport.x, viewport.y);
    this.drawLabels(side, transform, viewport, context);
    this.drawPlaces(side, transform, context);
    this.drawRuler(transform, context);
    this.drawScale(transform, viewport, context);
    context.restore();
  }

  private edge(): Batch {
    const batch = new Batch();
    const profile = this.scene.profile();
    batch.marks.push(...profile.marks);
    return batch;
  }

  // What does not change is made once.
  private kept(name: string, make: () => Batch): Drawable {
    let drawable = this.drawables.get(name);
    if (!drawable) {
      drawable = this.graphics.upload(make());
      this.drawables.set(name, drawable);
    }
    return drawable;
  }

  // A negative layer covers the whole board, so that of those below it only what lies beyond the edge is seen.
  private drawLayers(side: Side, scale: number): void {
    const layers = this.layersOf(side);
    const cover = layers.map((layer) => layer.isNegative).lastIndexOf(true);
    const isHiding = cover > 0 && this.scene.interior.margin * scale > BEYOND;
    layers.forEach((layer, i) => this.drawLayer(layer, side, isHiding && i < cover));
  }

  private drawLayer(layer: Layer, side: Side, isCovered: boolean): void {
    const { show } = this.settings.values;
    const palette = this.palette;
    const isCopper = layer.role === 'copper';
    const isOuter = layer.side === (side === 'front' ? 'top' : 'bottom');
    const color = visibleOn(this.colorOf(layer), palette.board);
    const { scene } = this;
    const part = (kind: 'zones' | 'tracks' | 'pads'): Drawable => (isCovered
      ? this.kept(`${layer.place} ${kind} beyond`, () => scene.interior.beyond(scene.layerBatches(layer)[kind]))
      : this.kept(`${layer.place} ${kind}`, () => scene.layerBatches(layer)[kind]));
    if (layer.isNegative) {
      const shade = mixed(color, palette.board, 0.45);
      this.graphics.draw(isCovered ? this.kept('edge', () => this.edge())
        : this.kept('profile', () => this.scene.profile()), shade);
      (['zones', 'tracks', 'pads'] as const).forEach((kind) => this.graphics.draw(part(kind), palette.board));
      return;
    }
    if (!isCopper) {
      const shade = layer.role === 'mask' || layer.role === 'paste' ? { ...color, a: 0.5 } : color;
      (['zones', 'tracks', 'pads'] as const).forEach((kind) => this.graphics.draw(part(kind), shade));
      return;
    }
    if (show.zones) {
      this.graphics.draw(part('zones'), mixed(color, palette.board, 0.62));
    }
    if (show.tracks) {
      this.graphics.draw(part('tracks'), mixed(color, palette.board, 0.2));
    }
    if (show.pads) {
      this.graphics.draw(part('pads'), isOuter ? mixed(color, palette.pad, 0.75) : mixed(color, palette.pad, 0.3));
    }
  }

  private drawPassing(name: string, make: () => void): void {
    const known = this.passing.get(name);
    if (known) {
      known.forEach(([drawable, color]) => this.graphics.draw(drawable, color));
      return;
    }
    this.recorded = [];
    make();
    this.passing.set(name, this.recorded);
  }

  // Within what drawPassing makes.
  private add(batch: Batch, color: Rgba): void {
    const drawable = this.graphics.upload(batch);
    this.graphics.draw(drawable, color);
    this.recorded.push([drawable, color]);
  }

  // Those with the last of the boxes checked.
  private drawChecked(side: Side): void {
    const { checks, whenChecked } = this.settings.values;
    const last = checks[checks.length - 1];
    if (last === undefined || whenChecked === 'none') {
      return;
    }
    const batch = new Batch();
    const done = new Set(this.settings.checked[last] ?? []);
    for (const box of this.scene.partBoxes) {
      if (box.part.side === side && done.has(box.part.name)) {
        addBoxOf(box, batch);
      }
    }
    this.add(batch, whenChecked === 'dark' ? this.palette.darkened : this.palette.done);
  }

  private drawSelection(side: Side): void {
    const palette = this.palette;
    if (this.selection.isEmpty) {
      return;
    }
    const isNet = this.selection.net !== '';
    this.graphics.veil(isNet ? palette.veil : { ...palette.veil, a: 0.3 });
    this.drawPassing(`selection ${side}`, () => (isNet ? this.drawNet(side) : this.drawParts(side)));
  }

  private drawParts(side: Side): void {
    const { palette } = this;
    const fill = new Batch();
    const pads = new Batch();
    const outline = new Batch();
    for (const box of this.scene.partBoxes) {
      if (box.part.side !== side || !this.selection.parts.has(box.part.name)) {
        continue;
      }
      addBoxOf(box, fill);
      addFrameOf(box, outline);
      this.scene.padsOf(box.part).forEach((pad) => this.scene.shapes.add(pad.item, pads));
    }
    this.add(fill, palette.litFill);
    this.add(pads, palette.lit);
    this.add(outline, palette.lit);
  }

  // On all layers; what is not on a layer of this side is paler.
  private drawNet(side: Side): void {
    const net = this.scene.board.names.indexOf(this.selection.net);
    const shown = new Set(this.layersOf(side).map((layer) => layer.place));
    const near = new Batch();
    const far = new Batch();
    const lines = new Batch();
    const isNew = oncePerPlace();
    for (const { layer, item } of net > 0 ? this.scene.itemsOfNet(net) : []) {
      if (layer.role !== 'copper') {
        continue;
      }
      if (shown.has(layer.place)) {
        this.scene.shapes.add(item, kindOf(item) === 'zones' ? lines : near);
      } else if (isNew(item)) {
        this.scene.shapes.add(item, far);
      }
    }
    const pads = new Batch();
    for (const part of this.scene.board.parts) {
      if (part.side === side && part.padNets.includes(net)) {
        this.scene.padsOf(part).filter((pad) => pad.net === net)
          .forEach((pad) => this.scene.shapes.add(pad.item, pads));
      }
    }
    this.add(far, { ...this.palette.lit, a: 0.35 });
    this.add(lines, { ...this.palette.lit, a: 0.55 });
    this.add(near, this.palette.lit);
    this.add(pads, this.palette.net);
  }

  private drawFirstPins(side: Side): void {
    const { firstPin } = this.settings.values;
    if (firstPin === 'none') {
      return;
    }
    const batch = new Batch();
    for (const part of this.scene.board.parts) {
      const isMarked = firstPin === 'all' || this.selection.parts.has(part.name);
      const pads = isMarked && part.side === side ? this.scene.padsOf(part) : [];
      const first = pads.length > 1 ? pads.find((pad) => this.isFirst(part, pad.item.pin)) : undefined;
      if (first) {
        const box = this.scene.shapes.boxOf(first.item);
        const size = Math.min(box.maxX - box.minX, box.maxY - box.minY);
        batch.addDisc((box.minX + box.maxX) / 2, (box.minY + box.maxY) / 2, size * 0.6);
      }
    }
    this.add(batch, this.palette.first);
  }

  private firstPins: Map<string, string> | null = null;

  private isFirst(part: Part, pin: number): boolean {
    this.firstPins ??= new Map(this.scene.board.tables.firstPins.rows.map((row) => [String(row[0]), String(row[1])]));
    const name = this.scene.board.names[pin] ?? '';
    const told = this.firstPins.get(part.footprint?.name ?? '');
    return told === undefined ? ['1', 'A1', 'A'].includes(name) : name === told;
  }

  private drawComparison(side: Side): void {
    const { comparison, added, removed, layers } = this.scene.board;
    if (!comparison) {
      return;
    }
    const shown = new Set(this.layersOf(side).map((layer) => layer.place));
    const palette = this.palette;
    this.graphics.veil({ ...palette.veil, a: 0.5 });
    for (const layer of layers) {
      if (shown.has(layer.place)) {
        this.graphics.draw(this.kept(`removed ${layer.place}`, () => {
          const batch = new Batch();
          removed.get(layer.place)?.forEach((item) => this.scene.shapes.add(item, batch));
          return batch;
        }), { ...palette.removed, a: 0.8 });
      }
    }
    this.graphics.draw(this.kept(`added ${[...shown].join()}`, () => {
      const batch = new Batch();
      added.forEach((item, i) => {
        if (shown.has(comparison.addedLayers[i] ?? -1)) {
          this.scene.shapes.add(item, batch);
        }
      });
      return batch;
    }), palette.added);
    this.drawPassing(`changed ${side}`, () => {
      this.drawChangedParts(side, comparison);
      this.drawChangedProfile();
      this.drawChangedHoles(side, comparison);
    });
  }

  private drawChangedProfile(): void {
    for (const state of ['removed', 'added'] as const) {
      const batch = new Batch();
      for (const [x0, y0, x1, y1] of this.scene.profileLines[state]) {
        batch.addLine(x0!, y0!, x1!, y1!, 0.25, Ends.Round);
      }
      this.add(batch, this.palette[state]);
    }
  }

  private drawChangedHoles(side: Side, comparison: Comparison): void {
    if (!this.settings.values.show.holes) {
      return;
    }
    for (const state of ['removed', 'changed', 'added'] as const) {
      const batch = new Batch();
      for (const hole of comparison.holes) {
        if (hole.state === state && isOnSide(hole, side)) {
          batch.addDisc(hole.x, hole.y, hole.diameter);
        }
      }
      this.add(batch, this.palette[state]);
    }
  }

  private drawChangedParts(side: Side, comparison: Comparison): void {
    const { palette } = this;
    for (const state of ['added', 'removed', 'moved', 'changed'] as State[]) {
      const batch = new Batch();
      for (const change of comparison.parts.filter((one) => one.state === state)) {
        const box = this.scene.boxOf(change.name);
        if (box && box.part.side === side) {
          addFrameOf(box, batch);
        }
        const isHere = (change.side === 'bottom') === (side === 'back');
        if (isHere && change.fromX !== undefined && change.fromY !== undefined) {
          const to = box?.part.side === side ? box.placement : { x: change.fromX, y: change.fromY };
          batch.addLine(change.fromX, change.fromY, to.x, to.y, 0.05, Ends.Round);
          batch.addDisc(change.fromX, change.fromY, 0.4);
        }
      }
      this.add(batch, palette[state]);
    }
  }

  // Signs beside the colours, so that nobody needs to tell these apart.
  private drawPlaces(side: Side, transform: Transform, context: CanvasRenderingContext2D): void {
    const { comparison } = this.scene.board;
    const palette = this.palette;
    context.font = `bold ${14 * this.pixels}px sans-serif`;
    context.textAlign = 'center';
    context.textBaseline = 'middle';
    context.lineWidth = 3 * this.pixels;
    context.strokeStyle = palette.labelEdge;
    const sign = (state: State, place: Point, color = css(palette[state])): void => {
      const at = applied(transform, place.x, place.y);
      context.strokeText(texts.stateMark[state], at.x, at.y);
      context.fillStyle = color;
      context.fillText(texts.stateMark[state], at.x, at.y);
    };
    for (const change of comparison?.parts ?? []) {
      const box = this.scene.boxOf(change.name);
      const place = box ? box.middle : { x: change.fromX ?? NaN, y: change.fromY ?? NaN };
      if ((change.side === 'bottom') === (side === 'back') && !Number.isNaN(place.x)) {
        sign(change.state, place);
      }
    }
    // Where there is room for the sign, which lies on its own colour here.
    const smallest = (8 * this.pixels) / transform.scale;
    for (const hole of this.settings.values.show.holes ? comparison?.holes ?? [] : []) {
      if (hole.diameter >= smallest && isOnSide(hole, side)) {
        sign(hole.state, hole, palette.label);
      }
    }
    for (const state of ['added', 'removed'] as const) {
      const place = middleOfLongest(this.scene.profileLines[state]);
      place && sign(state, place, palette.label);
    }
    if (this.selection.place) {
      const at = applied(transform, this.selection.place.x, this.selection.place.y);
      context.strokeStyle = css(palette.lit);
      context.beginPath();
      context.arc(at.x, at.y, 16 * this.pixels, 0, 7);
      context.stroke();
    }
  }

  // Names where they can be read: as large as the part allows.
  private drawLabels(side: Side, transform: Transform, viewport: Viewport, context: CanvasRenderingContext2D): void {
    const { references, values } = this.settings.values.show;
    if (!references && !values) {
      return;
    }
    const palette = this.palette;
    context.textAlign = 'center';
    context.textBaseline = 'middle';
    context.lineJoin = 'round';
    for (const box of this.scene.partBoxes) {
      const isLit = this.selection.parts.has(box.part.name);
      if (box.part.side !== side || (!isLit && !box.part.isLabelled && !values && references && !this.isBare(side))) {
        continue;
      }
      const at = applied(transform, box.middle.x, box.middle.y);
      const reach = (box.halfWidth + box.halfHeight) * transform.scale;
      if (at.x < -reach || at.y < -reach || at.x > viewport.width + reach || at.y > viewport.height + reach) {
        continue;
      }
      const lines = [references ? box.part.name : '', values ? this.valueOf(box.part.name) : ''].filter(Boolean);
      if (lines.length > 0) {
        this.drawLabel(box, lines, at, transform, isLit, palette, context);
      }
    }
  }

  // Without a silkscreen nothing else tells the names.
  private isBare(side: Side): boolean {
    return !this.layersOf(side).some((layer) => layer.role === 'legend' && layer.content.length > 0);
  }

  private drawLabel(box: PartBox, lines: string[], at: Point, transform: Transform, isLit: boolean, palette: Palette,
    context: CanvasRenderingContext2D): void {
    const { minX, minY, maxX, maxY } = box.bounds;
    const wide = Math.abs(transform.a) * (maxX - minX) + Math.abs(transform.c) * (maxY - minY);
    const high = Math.abs(transform.b) * (maxX - minX) + Math.abs(transform.d) * (maxY - minY);
    const letters = Math.max(...lines.map((line) => line.length), 2);
    const isUpright = high > 1.5 * wide;
    const room = (isUpright ? high : wide) / (0.62 * letters);
    const fitting = Math.min(room, (0.8 * (isUpright ? wide : high)) / lines.length, 22 * this.pixels);
    const smallest = 7 * this.pixels;
    if (fitting < smallest && !isLit) {
      return;
    }
    const size = isLit ? Math.max(fitting, 12 * this.pixels) : fitting;
    context.save();
    context.translate(at.x, at.y);
    context.rotate(isUpright ? -Math.PI / 2 : 0);
    context.font = `${isLit ? 'bold ' : ''}${size}px sans-serif`;
    context.lineWidth = Math.max(size / 5, 2);
    context.strokeStyle = palette.labelEdge;
    context.fillStyle = palette.label;
    lines.forEach((line, i) => {
      const y = (i - (lines.length - 1) / 2) * size * 1.05;
      context.strokeText(line, 0, y);
      context.fillText(line, 0, y);
    });
    context.restore();
  }

  valueOf: (part: string) => string = () => '';

  private drawRuler(transform: Transform, context: CanvasRenderingContext2D): void {
    const [from, to] = this.ruler ?? [];
    if (!from) {
      return;
    }
    const start = applied(transform, from.x, from.y);
    const end = to ? applied(transform, to.x, to.y) : start;
    const palette = this.palette;
    context.strokeStyle = css(palette.lit);
    context.fillStyle = css(palette.lit);
    context.lineWidth = 1.5 * this.pixels;
    context.beginPath();
    context.moveTo(start.x, start.y);
    context.lineTo(end.x, end.y);
    context.stroke();
    for (const at of [start, end]) {
      context.beginPath();
      context.arc(at.x, at.y, 3 * this.pixels, 0, 7);
      context.fill();
    }
    if (to) {
      context.font = `bold ${14 * this.pixels}px sans-serif`;
      context.strokeStyle = palette.labelEdge;
      context.lineWidth = 4 * this.pixels;
      context.textAlign = 'center';
      const text = this.rulerText();
      const y = (start.y + end.y) / 2 - 12 * this.pixels;
      context.strokeText(text, (start.x + end.x) / 2, y);
      context.fillText(text, (start.x + end.x) / 2, y);
    }
  }

  rulerText(): string {
    const [from, to] = this.ruler ?? [];
    if (!from || !to) {
      return '';
    }
    const length = (millimetres: number): string => lengthText(millimetres, this.settings.units);
    return texts.length(length(Math.hypot(to.x - from.x, to.y - from.y)), length(to.x - from.x),
      length(to.y - from.y));
  }

  // A bar of a round length, to see how large things are.
  private drawScale(transform: Transform, viewport: Viewport, context: CanvasRenderingContext2D): void {
    const unit = this.settings.units;
    const step = { mm: 1, inch: 25.4, mil: 0.0254, um: 0.001 }[unit];
    const wanted = (110 * this.pixels) / transform.scale / step;
    const power = 10 ** Math.floor(Math.log10(wanted));
    const count = ([5, 2, 1].find((one) => one * power <= wanted) ?? 1) * power;
    const width = count * step * transform.scale;
    const x = viewport.width - width - 14 * this.pixels;
    const y = viewport.height - 14 * this.pixels;
    context.strokeStyle = this.palette.label;
    context.fillStyle = this.palette.label;
    context.lineWidth = 1.5 * this.pixels;
    context.beginPath();
    context.moveTo(x, y - 4 * this.pixels);
    context.lineTo(x, y);
    context.lineTo(x + width, y);
    context.lineTo(x + width, y - 4 * this.pixels);
    context.stroke();
    context.font = `${11 * this.pixels}px sans-serif`;
    context.textAlign = 'center';
    context.textBaseline = 'alphabetic';
    context.fillText(`${Number(count.toPrecision(3))} ${unit}`, x + width / 2, y - 6 * this.pixels);
  }

  // The box round some parts.
  showParts(names: Iterable<string>): void {
    const box = emptyBox();
    const wanted = new Set(names);
    const sides = new Set<Side>();
    for (const one of this.scene.partBoxes) {
      if (wanted.has(one.part.name)) {
        addBox(box, one.bounds);
        sides.add(one.part.side);
      }
    }
    if (isEmpty(box)) {
      return;
    }
    const only = sides.size === 1 ? [...sides][0]! : null;
    if (only !== null && this.settings.values.sides !== 'both' && this.settings.values.sides !== only) {
      this.settings.change({ sides: only });
    }
    this.show({ x: (box.minX + box.maxX) / 2, y: (box.minY + box.maxY) / 2 }, only);
  }

  // The middle of what lies on the layers.
  middleOfNet(net: number): Point | null {
    const box = emptyBox();
    for (const { item } of this.scene.itemsOfNet(net)) {
      const place = item.placement ?? item.paths?.[0]?.[0];
      if (place) {
        addPoint(box, place.x, place.y);
      }
    }
    return isEmpty(box) ? null : { x: (box.minX + box.maxX) / 2, y: (box.minY + box.maxY) / 2 };
  }
}

// Tells the pads of a via on many layers once.
function oncePerPlace(): (item: Item) => boolean {
  const known = new Map<number, Set<number>>();
  return ({ placement, paths, shape }) => {
    if (paths !== null || placement === null) {
      return true;
    }
    const places = known.get(shape) ?? new Set<number>();
    known.set(shape, places);
    const place = Math.round(placement.x * 1000) * 1e8 + Math.round(placement.y * 1000);
    const isNew = !places.has(place);
    places.add(place);
    return isNew;
  };
}

function isOnSide(hole: HoleChange, side: Side): boolean {
  return side === 'front' ? hole.isOnFront : hole.isOnBack;
}

function middleOfLongest(lines: number[][]): Point | null {
  const lengthOf = ([x0, y0, x1, y1]: number[]): number => Math.hypot(x1! - x0!, y1! - y0!);
  const [longest] = [...lines].sort((one, other) => lengthOf(other) - lengthOf(one));
  return longest ? { x: (longest[0]! + longest[2]!) / 2, y: (longest[1]! + longest[3]!) / 2 } : null;
}

function fromMiddle(node: HTMLElement, event: { clientX: number; clientY: number }): Point {
  const box = node.getBoundingClientRect();
  return { x: event.clientX - box.left - box.width / 2, y: event.clientY - box.top - box.height / 2 };
}

function addBoxOf(box: PartBox, batch: Batch): void {
  const { angle, isMirrored } = box.placement;
  const dx = Math.cos(angle) * (isMirrored ? -1 : 1);
  batch.addMark(box.middle.x, box.middle.y, dx, Math.sin(angle), box.halfWidth, box.halfHeight, 0);
}

function addFrameOf(box: PartBox, batch: Batch): void {
  const { angle, isMirrored } = box.placement;
  const sign = isMirrored ? -1 : 1;
  const corner = (x: number, y: number): number[] => [
    box.middle.x + sign * (x * box.halfWidth * Math.cos(angle) - y * box.halfHeight * Math.sin(angle)),
    box.middle.y + x * box.halfWidth * Math.sin(angle) + y * box.halfHeight * Math.cos(angle),
  ];
  const points = [...corner(-1, -1), ...corner(1, -1), ...corner(1, 1), ...corner(-1, 1)];
  batch.addPolyline(points, true, Math.min(0.12, box.halfHeight / 3), Ends.Round);
}
