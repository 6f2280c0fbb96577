// What is lit: parts by their designators, or a net by its name; and a place of a difference.
import { Point } from './geometry.js';

export class Selection {
  parts = new Set<string>();
  net = '';
  place: Point | null = null;
  private readonly listeners: (() => void)[] = [];

  onChange(listener: () => void): void {
    this.listeners.push(listener);
  }

  setParts(parts: Iterable<string>): void {
    this.parts = new Set(parts);
    this.net = '';
    this.place = null;
    this.tell();
  }

  setNet(net: string): void {
    this.parts = new Set();
    this.net = net;
    this.place = null;
    this.tell();
  }

  setPlace(place: Point): void {
    this.parts = new Set();
    this.net = '';
    this.place = place;
    this.tell();
  }

  clear(): void {
    this.setParts([]);
  }

  get isEmpty(): boolean {
    return this.parts.size === 0 && this.net === '';
  }

  private tell(): void {
    this.listeners.forEach((listener) => listener());
  }
}
