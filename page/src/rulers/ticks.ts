/** Round values along an axis and their numbers as text. */

export interface Ticks {
  major: number[];
  minor: number[];
  step: number;
}

/** More ticks than this make no picture. */
const MOST_TICKS = 200;

/** The smallest step of 1, 2 or 5 times a power of ten that gives at most `count` intervals. */
export function roundStep(length: number, count: number): number {
  const rough = length / Math.max(count, 1);
  const power = 10 ** Math.floor(Math.log10(rough));
  const factor = [1, 2, 5, 10].find((f) => f * power >= rough * (1 - 1e-9)) ?? 10;
  return factor * power;
}

/** How many minor intervals a step is divided into. */
function divisions(step: number): number {
  const mantissa = Math.round(step / 10 ** Math.floor(Math.log10(step) + 1e-9));
  return mantissa === 2 ? 4 : 5;
}

function multiples(min: number, max: number, step: number): number[] {
  const first = Math.ceil(min / step - 1e-6);
  const last = Math.floor(max / step + 1e-6);
  if (!(last - first <= MOST_TICKS)) return [];
  const values: number[] = [];
  for (let i = first; i <= last; i++) {
    const value = i * step;
    // One rounding instead of a sum of errors: 3 * 0.1 is 0.3.
    values.push(Number(value.toPrecision(12)) + 0);
  }
  return values;
}

/**
 * Ticks between `min` and `max`, at most about `count` of them; `unit` and `minorUnit` are the
 * distances that a display asks for, followed as long as they leave room.
 */
export function makeTicks(
  min: number,
  max: number,
  count: number,
  unit?: number,
  minorUnit?: number,
): Ticks {
  const length = max - min;
  if (!(length > 0) || !Number.isFinite(length)) return { major: [], minor: [], step: 1 };
  const asked = unit !== undefined && unit > 0 && length / unit <= Math.max(count * 2.5, 4);
  const step = asked ? unit : roundStep(length, count);
  const finer =
    asked && minorUnit !== undefined && minorUnit > 0 ? minorUnit : step / divisions(step);
  const major = multiples(min, max, step);
  const near = new Set(major.map((value) => Math.round(value / finer)));
  const minor =
    length / finer > MOST_TICKS
      ? []
      : multiples(min, max, finer).filter((value) => !near.has(Math.round(value / finer)));
  return { major, minor, step };
}

/** So many decimals show a step to a thousandth of itself. */
function decimalsOf(step: number): number {
  for (let decimals = 0; decimals < 12; decimals++) {
    if (Math.abs(Number(step.toFixed(decimals)) - step) < step * 1e-3) return decimals;
  }
  return 12;
}

/** A number as it stands at a tick, with the digits that the step calls for. */
export function formatTick(value: number, step: number): string {
  if (Math.abs(value) < step * 1e-6) return '0';
  const size = Math.max(Math.abs(value), step);
  if (size >= 1e6 || step < 1e-5) {
    const digits = Math.max(0, Math.ceil(Math.log10(Math.abs(value) / step) - 1e-9));
    const [mantissa, exponent] = value.toExponential(Math.min(digits, 12)).split('e');
    return minus(`${trim(mantissa!)}e${Number(exponent)}`);
  }
  return minus(trim(value.toFixed(decimalsOf(step))));
}

const trim = (text: string): string =>
  text.includes('.') ? text.replace(/0+$/, '').replace(/\.$/, '') : text;

/** A typographic minus sign, as wide as the digits. */
const minus = (text: string): string => text.replaceAll('-', '\u2212');
