/** The legend: a swatch and a text for each object that has one, and scales of colours. */
import type { ColorScale, LegendText, ObjectText } from '../data/contract';
import { formatTick } from '../rulers/ticks';
import { cssFont } from '../scene/atlas';
import { element } from './dom';

const MOST_ENTRIES = 100;

function makeScale(scale: ColorScale): HTMLElement {
  const bar = element('span', { class: 'bar' });
  bar.style.background = `linear-gradient(to right, ${scale.colors.join(', ')})`;
  const step = (scale.max - scale.min) / 100 || 1;
  return element(
    'span',
    { class: 'scale' },
    element('span', { text: formatTick(scale.min, step) }),
    bar,
    element('span', { text: formatTick(scale.max, step) }),
  );
}

function makeEntry(object: ObjectText): HTMLElement {
  const swatch = element('span', { class: 'swatch' });
  if (object.color !== undefined) swatch.style.background = object.color;
  return element(
    'li',
    {},
    object.scale ? makeScale(object.scale) : swatch,
    element('span', { text: object.legend ?? object.name }),
  );
}

export function makeLegend(
  text: LegendText,
  objects: readonly ObjectText[],
): HTMLElement | undefined {
  const entries = objects.filter((object) => object.legend !== undefined || object.scale);
  if (!text.visible || entries.length === 0) return undefined;
  const list = element(
    'ul',
    { class: `legend ${text.align}`, attributes: { 'aria-label': 'Legend' } },
    ...entries.slice(0, MOST_ENTRIES).map(makeEntry),
  );
  if (text.font) list.style.font = cssFont({ ...text.font, color: [0, 0, 0] }, 1);
  return list;
}
