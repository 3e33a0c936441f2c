/** Elements of SVG as text, and the patterns and gradients that they refer to. */
import type { Rgb } from '../javaview/model';
import { cssColor } from '../scene/atlas';
import { PATTERNS, PERIOD, STROKE, short } from '../scene/signs';
import { FILL_PATTERNS } from '../scene/styles';

export const escape = (text: string): string =>
  text.replace(/[&<>"]/g, (c) => `&#${c.charCodeAt(0)};`);

/** Numbers are shortened, undefined ones left out, texts taken as they are. */
type Values = Record<string, string | number | undefined>;

export const attributes = (values: Values): string =>
  Object.entries(values)
    .filter(([, value]) => value !== undefined)
    .map(([name, value]) => ` ${name}="${typeof value === 'number' ? short(value) : value}"`)
    .join('');

export const tag = (name: string, values: Values): string => `<${name}${attributes(values)}/>`;

/** Everything that shapes refer to, each defined once. */
export class Definitions {
  private readonly names = new Map<string, string>();

  pattern(pattern: number, color: string): string {
    const { d, turn } = PATTERNS[FILL_PATTERNS[pattern] ?? 'solid'];
    const side = { width: PERIOD, height: PERIOD, patternUnits: 'userSpaceOnUse' };
    const turned = { patternTransform: turn === 0 ? undefined : `rotate(${turn})` };
    const strokes = tag('path', { d, stroke: color, 'stroke-width': STROKE });
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
