/** Colours as style sheets write them. */
import type { Rgb } from '../javaview/model';

/** Out of six digits behind a "#". */
export function hexToRgb(hex: string): Rgb {
  const value = parseInt(hex.slice(1), 16);
  return [value >> 16, (value >> 8) & 255, value & 255];
}

/** How much the eye makes of red, green and blue. */
export const EYE = [0.299, 0.587, 0.114] as const;

/** How bright a colour is for the eye, 0 to 1. */
export const brightness = ([r, g, b]: Rgb): number => (EYE[0] * r + EYE[1] * g + EYE[2] * b) / 255;

/** What is darker than this is hard to see on a dark ground. */
export const LEAST_BRIGHTNESS = 0.45;

/** A colour that was chosen for a light ground, as near to its own as one can see it on a dark one. */
export function lightened(color: Rgb, ink: Rgb): Rgb {
  const missing = LEAST_BRIGHTNESS - brightness(color);
  if (missing <= 0) return color;
  const part = missing / (brightness(ink) - brightness(color));
  const channel = (k: 0 | 1 | 2): number => color[k] + (ink[k] - color[k]) * part;
  return [channel(0), channel(1), channel(2)];
}
