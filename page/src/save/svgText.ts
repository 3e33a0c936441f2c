/** Elements of SVG as text, and the patterns and gradients that they refer to. */
import type { Rgb } from '../javaview/model';
import { cssColor } from '../scene/atlas';

export const escape = (text: string): string =>
  text.replace(/[&<>"]/g, (c) => `&#${c.charCodeAt(0)};`);

export const short = (value: number): string => String(Math.round(value * 100) / 100);

/** Numbers are shortened, undefined ones left out, texts taken as they are. */
type Values = Record<string, string | number | undefined>;

export const attributes = (values: Values): string =>
  Object.entries(values)
    .filter(([, value]) => value !== undefined)
    .map(([name, value]) => ` ${name}="${typeof value === 'number' ? short(value) : value}"`)
    .join('');

export const tag = (name: string, values: Values): string => `<${name}${attributes(values)}/>`;

/** The distance of the strokes of a fill pattern and their width, as on the screen. */
const PERIOD = 7;
const STROKE = 1.25;

/** Strokes in a square of one period and its turn in degrees, by the place in the list of names. */
const PATTERNS = [
  ['', 0],
  ['M0 3.5H7', 0],
  ['M3.5 0V7', 0],
  ['M0 3.5H7', -45],
  ['M0 3.5H7', 45],
  ['M0 3.5H7M3.5 0V7', 0],
  ['M0 3.5H7M3.5 0V7', 45],
] as const;

/** Everything that shapes refer to, each defined once. */
export class Definitions {
  private readonly names = new Map<string, string>();

  pattern(pattern: number, color: string): string {
    const [path, turn] = PATTERNS[pattern] ?? PATTERNS[0];
    const side = { width: PERIOD, height: PERIOD, patternUnits: 'userSpaceOnUse' };
    const turned = { patternTransform: turn === 0 ? undefined : `rotate(${turn})` };
    const strokes = tag('path', { d: path, stroke: color, 'stroke-width': STROKE });
    return this.define('pattern', `${attributes({ ...side, ...turned })}>${strokes}</pattern>`);
  }

  /** From one place and colour to another. */
  gradient(from: readonly number[], to: readonly number[], first: Rgb, second: Rgb): string {
    const ends = { x1: from[0], y1: from[1], x2: to[0], y2: to[1] };
    const stops =
      tag('stop', { 'stop-color': cssColor(first) }) +
      tag('stop', { offset: 1, 'stop-color': cssColor(second) });
    return this.define(
      'linearGradient',
      `${attributes({ gradientUnits: 'userSpaceOnUse', ...ends })}>${stops}</linearGradient>`,
    );
  }

  toString(): string {
    return [...this.names].map(([text, name]) => text.replace(' ', ` id="${name}" `)).join('');
  }

  private define(element: string, rest: string): string {
    const text = `<${element}${rest}`;
    const name = this.names.get(text) ?? `d${this.names.size}`;
    this.names.set(text, name);
    return `url(#${name})`;
  }
}
