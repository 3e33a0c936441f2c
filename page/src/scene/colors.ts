/** Colours as style sheets write them. */
import type { Rgb } from '../javaview/model';

/** Out of six digits behind a "#". */
export function hexToRgb(hex: string): Rgb {
  const value = parseInt(hex.slice(1), 16);
  return [value >> 16, (value >> 8) & 255, value & 255];
}

/** How bright a colour is for the eye, 0 to 1. */
export const brightness = ([r, g, b]: Rgb): number => (0.299 * r + 0.587 * g + 0.114 * b) / 255;
