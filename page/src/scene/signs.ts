/** Styles of points, lines and areas as paths, like those that the graphics hardware draws. */
import type { FillPatternName } from './styles';

/** A number as paths have it, to a hundredth. */
export const short = (value: number): string => String(Math.round(value * 100) / 100);

/** How long a line is drawn and not drawn, in widths of it, by the place in the list of names. */
const DASHES = [undefined, [5, 3], [1.2, 1.8]] as const;

/** How long a line is drawn and not drawn in turns, in pixels; undefined for a solid one. */
export function dashLengths(dash: number, width: number): [number, number] | undefined {
  const lengths = DASHES[dash];
  const unit = Math.max(width, 1.5);
  return lengths && [lengths[0] * unit, lengths[1] * unit];
}

/** The paths of the signs of points round the origin, by the place in the list of names. */
export function sign(style: number, radius: number): { d: string; pen: number } {
  const pen = Math.max(1.4, radius * 0.36);
  const hollow = style < 6 && style % 2 === 1;
  const r = hollow ? Math.max(radius - pen / 2, 0.1) : radius;
  const drawn = hollow || style >= 6 ? pen : 0;
  const s = short(r * 0.886);
  const e = short(r * 1.25);
  const c = short(r);
  const t = short(r * Math.SQRT1_2);
  const upright = `M-${c} 0H${c}M0-${c}V${c}`;
  const slanted = `M-${t}-${t}L${t} ${t}M-${t} ${t}L${t}-${t}`;
  const circle = `M-${c} 0a${c} ${c} 0 1 1 ${short(2 * r)} 0a${c} ${c} 0 1 1-${short(2 * r)} 0z`;
  const square = `M-${s}-${s}H${s}V${s}H-${s}z`;
  const diamond = `M0-${e}L${e} 0L0 ${e}L-${e} 0z`;
  const paths = [circle, circle, square, square, diamond, diamond, upright, slanted];
  return { d: paths[style] ?? upright + slanted, pen: drawn };
}

/** The distance of the strokes of a fill pattern and their width. */
export const PERIOD = 7;
export const STROKE = 1.25;

/** Strokes in a square of one period, and its turn in degrees. */
export const PATTERNS: Record<FillPatternName, { d: string; turn: number }> = {
  solid: { d: '', turn: 0 },
  horizontalLines: { d: 'M0 3.5H7', turn: 0 },
  verticalLines: { d: 'M3.5 0V7', turn: 0 },
  diagonalLines: { d: 'M0 3.5H7', turn: -45 },
  fDiagonalLines: { d: 'M0 3.5H7', turn: 45 },
  crossedLines: { d: 'M0 3.5H7M3.5 0V7', turn: 0 },
  xCrossedLines: { d: 'M0 3.5H7M3.5 0V7', turn: 45 },
};
