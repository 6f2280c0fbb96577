import { Rgba } from './gl.js';

export interface Palette {
  desk: Rgba;
  board: Rgba;
  edge: Rgba;
  hole: Rgba;
  body: Rgba;
  pad: Rgba;
  lit: Rgba;
  litFill: Rgba;
  net: Rgba;
  veil: Rgba;
  darkened: Rgba;
  done: Rgba;
  first: Rgba;
  label: string;
  labelEdge: string;
  added: Rgba;
  removed: Rgba;
  moved: Rgba;
  changed: Rgba;
}

export function rgba(hex: string, a = 1): Rgba {
  const value = parseInt(hex.slice(1), 16);
  return { r: ((value >> 16) & 255) / 255, g: ((value >> 8) & 255) / 255, b: (value & 255) / 255, a };
}

export function css(color: Rgba): string {
  const part = (value: number): number => Math.round(value * 255);
  return `rgba(${part(color.r)}, ${part(color.g)}, ${part(color.b)}, ${color.a})`;
}

export function mixed(first: Rgba, second: Rgba, share: number): Rgba {
  const one = (a: number, b: number): number => a + (b - a) * share;
  return {
    r: one(first.r, second.r), g: one(first.g, second.g), b: one(first.b, second.b), a: one(first.a, second.a),
  };
}

function brightness(color: Rgba): number {
  return 0.3 * color.r + 0.6 * color.g + 0.1 * color.b;
}

// The colour, or one of its kind that can be told from the ground.
export function visibleOn(color: Rgba, ground: Rgba): Rgba {
  const away = Math.abs(brightness(color) - brightness(ground));
  if (away > 0.14) {
    return color;
  }
  const target = brightness(ground) > 0.5 ? rgba('#20242a') : rgba('#ffffff');
  return mixed(color, target, 0.6);
}

export const dark: Palette = {
  desk: rgba('#14171b'), board: rgba('#1d2a26'), edge: rgba('#8b9590'), hole: rgba('#0b0d0f'), body: rgba('#a9b4bd'),
  pad: rgba('#c9a54a'), lit: rgba('#ffe14d'), litFill: rgba('#ffe14d', 0.35), net: rgba('#ffffff'),
  veil: rgba('#14171b', 0.6), darkened: rgba('#0a0c0e', 0.72), done: rgba('#5fd38a', 0.45), first: rgba('#ff4fd8'),
  label: '#f4f6f8', labelEdge: '#101316', added: rgba('#43d17c'), removed: rgba('#ff6b5e'), moved: rgba('#58a6ff'),
  changed: rgba('#f2b134'),
};

export const light: Palette = {
  desk: rgba('#f3f4f2'), board: rgba('#dfe6dc'), edge: rgba('#5d6a62'), hole: rgba('#fbfbfa'), body: rgba('#4a545c'),
  pad: rgba('#ae8420'), lit: rgba('#d00070'), litFill: rgba('#d00070', 0.25), net: rgba('#1a1030'),
  veil: rgba('#f3f4f2', 0.62), darkened: rgba('#8d938f', 0.75), done: rgba('#1f9d55', 0.45), first: rgba('#b3009b'),
  label: '#14181c', labelEdge: '#ffffff', added: rgba('#11833f'), removed: rgba('#c92a1e'), moved: rgba('#1259c3'),
  changed: rgba('#a56a00'),
};
