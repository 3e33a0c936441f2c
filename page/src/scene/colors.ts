/** Colours as style sheets write them. */
import type { Rgb } from '../javaview/model';

/** Out of six digits behind a "#". */
export function hexToRgb(hex: string): Rgb {
  const value = parseInt(hex.slice(1), 16);
  return [value >> 16, (value >> 8) & 255, value & 255];
}
