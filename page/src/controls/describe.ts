/** A plot in words, for those who do not see it. */
import type { Plot } from '../scene/plot';

const MOST_NAMES = 20;

const counted = (count: number, one: string, many: string): string | undefined =>
  count === 0 ? undefined : `${count} ${count === 1 ? one : many}`;

export function describe(plot: Plot): string {
  const { box } = plot.space;
  const { counts } = plot.scene;
  const axes = plot.flat ? (['x', 'y'] as const) : (['x', 'y', 'z'] as const);
  const ranges = axes.map((axis, i) => {
    const title = plot.look.rulers[i]!.title;
    const name = title === '' || title === axis ? axis : `${axis} (${title})`;
    return `${name} from ${round(box.min[i]!)} to ${round(box.max[i]!)}`;
  });
  const names = plot.objects.map((object) => object.name);
  const shown = names.filter((_, i) => !plot.hidden.has(i)).slice(0, MOST_NAMES);
  const more = names.length - plot.hidden.size - shown.length;
  const parts = [
    counted(counts.points, 'point', 'points'),
    counted(counts.lines, 'line', 'lines'),
    counted(counts.faces, 'face', 'faces'),
    counted(counts.vectors, 'vector', 'vectors'),
    counted(counts.labels, 'label', 'labels'),
  ].filter((part) => part !== undefined);
  return [
    `A plot of ${plot.flat ? 'two' : 'three'} dimensions, ${ranges.join(', ')}.`,
    `It has ${parts.length === 0 ? 'nothing to draw' : parts.join(', ')}.`,
    `It shows ${shown.length === 0 ? 'nothing' : shown.join(', ')}${more > 0 ? ` and ${more} more` : ''}.`,
    plot.flat
      ? 'Arrow keys move it,'
      : 'Arrow keys turn it, with Shift they move it, x, y and z look along an axis,',
    'plus and minus zoom, Home resets the view, Enter pins the point nearest to the middle.',
  ].join(' ');
}

const round = (value: number): string => String(Number(value.toPrecision(6)));
