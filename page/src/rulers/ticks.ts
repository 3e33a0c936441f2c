/** Round values along an axis and their numbers as text. */
import type { AmountName, TickText } from '../data/contract';

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

/** The values in the range that lie whole steps beside the anchor. */
function multiples(min: number, max: number, step: number, anchor: number): number[] {
  const first = Math.ceil((min - anchor) / step - 1e-6);
  const last = Math.floor((max - anchor) / step + 1e-6);
  if (!(last - first <= MOST_TICKS)) return [];
  const values: number[] = [];
  for (let i = first; i <= last; i++) {
    const value = anchor + i * step;
    // One rounding instead of a sum of errors: 3 * 0.1 is 0.3.
    values.push(Number(value.toPrecision(12)) + 0);
  }
  return values;
}

/** The round step for `count` intervals; a smaller one where less than two numbers would be left. */
function stepFor(min: number, max: number, count: number, anchor: number): number {
  const step = roundStep(max - min, count);
  const two = multiples(min, max, step, anchor).length > 1;
  return two ? step : roundStep(max - min, 2 * count);
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
  anchor = 0,
): Ticks {
  const length = max - min;
  if (!(length > 0) || !Number.isFinite(length)) return { major: [], minor: [], step: 1 };
  const asked = unit !== undefined && unit > 0 && length / unit <= Math.max(count * 2.5, 4);
  const step = asked ? unit : stepFor(min, max, count, anchor);
  const finer =
    asked && minorUnit !== undefined && minorUnit > 0 ? minorUnit : step / divisions(step);
  const major = multiples(min, max, step, anchor);
  const near = new Set(major.map((value) => Math.round((value - anchor) / finer)));
  const minor =
    length / finer > MOST_TICKS
      ? []
      : multiples(min, max, finer, anchor).filter(
          (value) => !near.has(Math.round((value - anchor) / finer)),
        );
  return { major, minor, step };
}

/** What a ruler asks for. */
export interface TickLook {
  logarithmic: boolean;
  amount: AmountName;
  majorUnit: number | undefined;
  minorUnit: number | undefined;
  anchor: number;
  /** Ticks at places of their own. */
  ticks: readonly TickText[];
}

export interface RulerTicks extends Ticks {
  /** The text at a major tick. */
  text(value: number): string;
}

const SHARES: Record<AmountName, number> = { none: 0, low: 0.5, normal: 1, high: 2 };

/** The ticks of a ruler on which about `count` numbers have room. */
export function rulerTicks(look: TickLook, min: number, max: number, count: number): RulerTicks {
  const most = count * SHARES[look.amount];
  const regular =
    most === 0
      ? { major: [], minor: [], step: (max - min) / count }
      : look.logarithmic
        ? makeDecades(min, max, most)
        : makeTicks(min, max, most, look.majorUnit, look.minorUnit, look.anchor);
  // Less than a decade has even steps, as it would have without the logarithm.
  const number = (value: number): string =>
    look.logarithmic && regular.step === 0
      ? formatDecade(value, regular.major)
      : formatTick(value, regular.step);
  const own = new Map(
    look.ticks.filter(({ at }) => at >= min && at <= max).map(({ at, text }) => [at, text]),
  );
  return {
    ...regular,
    major: [...regular.major.filter((value) => !own.has(value)), ...own.keys()],
    text: (value) => own.get(value) ?? number(value),
  };
}

/** Ticks for a logarithm: powers of ten, with room between them also twice and five times those. */
export function makeDecades(min: number, max: number, count: number): Ticks {
  const decades = Math.log10(max / min);
  if (!(min > 0) || !(decades < 600)) return { major: [], minor: [], step: 1 };
  if (decades < 1) return makeTicks(min, max, count);
  const every = Math.ceil(decades / Math.max(count, 1));
  const factors = every > 1 || decades * 3 > count ? [1] : [1, 2, 5];
  const ticks: Ticks = { major: [], minor: [], step: 0 };
  for (let power = Math.floor(Math.log10(min)); power <= Math.log10(max); power++) {
    for (let factor = 1; factor < 10; factor++) {
      // One rounding instead of two: ten to the power of -3 is not quite 0.001.
      const value = Number(`${factor}e${power}`);
      if (value < min * (1 - 1e-9) || value > max * (1 + 1e-9)) continue;
      if (factors.includes(factor) && power % every === 0) ticks.major.push(value);
      else if (every === 1) ticks.minor.push(value);
    }
  }
  return ticks;
}

/** So many decimals show a step to a thousandth of itself. */
function decimalsOf(step: number): number {
  for (let decimals = 0; decimals < 12; decimals++) {
    if (Math.abs(Number(step.toFixed(decimals)) - step) < step * 1e-3) return decimals;
  }
  return 12;
}

/** A number as it is written at a tick, with the digits that the step calls for. */
export function formatTick(value: number, step: number): string {
  if (Math.abs(value) < step * 1e-6) return '0';
  const size = Math.max(Math.abs(value), step);
  if (size >= 1e6 || step < 1e-5) {
    const digits = Math.max(0, Math.ceil(Math.log10(Math.abs(value) / step) - 1e-9));
    const [mantissa, exponent] = value.toExponential(Math.min(digits, 12)).split('e');
    return minus(withPower(trim(mantissa!), Number(exponent)));
  }
  return minus(trim(value.toFixed(decimalsOf(step))));
}

const RAISED = '\u2070\u00b9\u00b2\u00b3\u2074\u2075\u2076\u2077\u2078\u2079';

/** A number times a power of ten, as it is printed. */
function withPower(mantissa: string, exponent: number): string {
  const digits = [...String(Math.abs(exponent))].map((digit) => RAISED[Number(digit)]!);
  const power = `10${exponent < 0 ? '\u207b' : ''}${digits.join('')}`;
  if (mantissa === '1') return power;
  return mantissa === '-1' ? `-${power}` : `${mantissa}\u00b7${power}`;
}

/** How the numbers of a logarithm are written: all as powers of ten if one of them is long. */
function formatDecade(value: number, all: readonly number[]): string {
  if (all.every((some) => some >= 1e-3 && some < 1e4)) return formatTick(value, value);
  const exponent = Math.floor(Math.log10(value) + 1e-9);
  return withPower(trim((value / 10 ** exponent).toFixed(3)), exponent);
}

const trim = (text: string): string =>
  text.includes('.') ? text.replace(/0+$/, '').replace(/\.$/, '') : text;

/** A typographic minus sign, as wide as the digits. */
const minus = (text: string): string => text.replaceAll('-', '\u2212');
