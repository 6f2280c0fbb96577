import { Unit } from './settings.js';

const MILLIMETRES: Record<Unit, number> = { mm: 1, inch: 25.4, mil: 0.0254, um: 0.001 };
const DECIMALS: Record<Unit, number> = { mm: 3, inch: 4, mil: 1, um: 0 };

export function millimetresOf(unit: string): number {
  return MILLIMETRES[unit as Unit] ?? 1;
}

// By the word that files have for it.
export function unitOfWord(word: string): Unit {
  const units: Record<string, Unit> = { inch: 'inch', mil: 'mil', micron: 'um' };
  return units[word] ?? 'mm';
}

export function inUnit(millimetres: number, unit: Unit): number {
  return Number((millimetres / MILLIMETRES[unit]).toFixed(DECIMALS[unit]));
}

export function lengthText(millimetres: number, unit: Unit): string {
  return `${inUnit(millimetres, unit)} ${unit}`;
}
