/** The legend: a mark and a text for each object that has one, and scales of colours. */
import type { ColorScale, LegendText, ObjectText } from '../data/contract';
import { formatTick } from '../rulers/ticks';
import { cssFont } from '../scene/atlas';
import type { Mark } from '../scene/marks';
import { element } from './dom';
import { makeMark, type Seen } from './mark';

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

function makeEntry(object: ObjectText, mark: Mark | undefined, seen: Seen): HTMLElement {
  return element(
    'li',
    {},
    object.scale ? makeScale(object.scale) : makeMark(mark, object.color, seen),
    element('span', { text: object.legend ?? object.name }),
  );
}

/** The numbers of the objects that a legend has entries of. */
export function legendEntries(objects: readonly ObjectText[]): number[] {
  return objects
    .flatMap((object, i) => (object.legend !== undefined || object.scale ? [i] : []))
    .slice(0, MOST_ENTRIES);
}

export function makeLegend(
  text: LegendText,
  objects: readonly ObjectText[],
  marks: ReadonlyMap<number, Mark>,
  seen: Seen,
): HTMLElement | undefined {
  const entries = legendEntries(objects);
  if (!text.visible || entries.length === 0) return undefined;
  const list = element(
    'ul',
    { class: `legend ${text.align}`, attributes: { 'aria-label': 'Legend' } },
    ...entries.map((i) => makeEntry(objects[i]!, marks.get(i), seen)),
  );
  if (text.font) list.style.font = cssFont({ ...text.font, color: [0, 0, 0] }, 1);
  return list;
}
