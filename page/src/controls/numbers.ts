/** What a browser shows that cannot draw: a sentence and the numbers. */
import type { ObjectText } from '../data/contract';
import type { Scene } from '../scene/scene';
import { element } from './dom';

/** Nobody reads more than these: points of a geometry, and lines of all. */
const MOST_POINTS = 1_000;
const MOST_LINES = 5_000;

export const numbersSentence = (): HTMLElement =>
  element('p', {
    text: 'This browser cannot draw the plot, since it has no WebGL. These are its numbers.',
  });

/** The points of a scene, those of each object behind its name. */
export function makeNumbers(scene: Scene, objects: readonly ObjectText[]): HTMLElement {
  const { values, begins, ends, dimensions } = scene.places;
  const nameOf = (object: number): string =>
    objects[object]?.name ?? scene.objectNames[object] ?? '';
  const lines = [...dimensions].flatMap((dimension, g) => {
    const coordinates = values.subarray(begins[g], ends[g]);
    const points = Array.from({ length: Math.min(coordinates.length / 3, MOST_POINTS) }, (_, i) =>
      [...coordinates.subarray(i * 3, i * 3 + dimension)].join(' '),
    );
    const object = scene.objects[g]!;
    const isFirst = g === 0 || scene.objects[g - 1] !== object;
    const name = isFirst ? nameOf(object) : '';
    return name === '' ? points : [name, ...points];
  });
  return element('pre', {
    class: 'numbers',
    text: lines.slice(0, MOST_LINES).join('\n'),
    attributes: { tabindex: '0', 'aria-label': 'Numbers' },
  });
}
