/** A plot as a drawing of lines and areas, the farthest first. */
import { Vector3 } from 'three';
import type { Rgb } from '../javaview/model';
import { cssColor } from '../scene/atlas';
import type { Plot } from '../scene/plot';
import { hexToRgb } from '../scene/colors';
import { short } from '../scene/signs';
import { Definitions, attributes, tag } from './svgText';
import {
  labelShape,
  lineShapes,
  pointShapes,
  surfaceShapes,
  type Scope,
  type Shape,
} from './svgShapes';

export const MOST_PRIMITIVES = 20_000;

/** How many parts there are of objects that are shown, counted no farther than one above the most. */
export function countPrimitives({ scene, hidden }: Plot): number {
  let count = 0;
  const add = (amount: number, objectOf: (i: number) => number): void => {
    for (let i = 0; i < amount && count <= MOST_PRIMITIVES; i++) {
      if (!hidden.has(objectOf(i))) count++;
    }
  };
  for (const { index, tags } of scene.faces) {
    add(index.length / 3, (i) => tags[index[i * 3 + 2]! * 2]!);
  }
  add(scene.lines.count, (i) => scene.lines.styles[i * 4 + 1]!);
  add(scene.points.count, (i) => scene.points.tags[i * 3 + 1]!);
  add(scene.labels.length, (i) => scene.labels[i]!.object);
  return count;
}

const farthestFirst = (shapes: Shape[]): Shape[] => shapes.sort((a, b) => b.depth - a.depth);

const EVERYWHERE = 1e9;

/** The ground: one colour, or two that run into each other. */
function ground(plot: Plot, definitions: Definitions): string {
  const { width, height } = plot.view.size;
  const area = (points: string, fill: string): string => tag('polygon', { points, fill });
  const all = (fill: string): string => tag('rect', { width, height, fill });
  const { backdropText: backdrop } = plot;
  if (!backdrop || backdrop.style === 'flat') return all(cssColor(plot.ground));
  const [first, second] = backdrop.colors.map(hexToRgb) as [Rgb, Rgb];
  const run = (x1: number, y1: number, x2: number, y2: number): string =>
    definitions.gradient([x1, y1], [x2, y2], first, second);
  if (backdrop.style === 'leftRight') return all(run(0, 0, width, 0));
  if (backdrop.style === 'topBottom') return all(run(0, 0, 0, height));
  const [x, y] = [width / 2, height / 2];
  return [
    area(`0,0 ${width},0 ${x},${y}`, run(0, 0, 0, y)),
    area(`${width},0 ${width},${height} ${x},${y}`, run(width, 0, x, 0)),
    area(`${width},${height} 0,${height} ${x},${y}`, run(0, height, 0, y)),
    area(`0,${height} 0,0 ${x},${y}`, run(0, 0, x, 0)),
  ].join('\n');
}

/** The drawing as it is seen now. */
export function toSvg(plot: Plot): string {
  plot.draw(1, false, false);
  const { view, scene, rulerLines, placed } = plot;
  const { width, height } = view.size;
  const definitions = new Definitions();
  const everywhere = {
    min: new Vector3().setScalar(-EVERYWHERE),
    max: new Vector3().setScalar(EVERYWHERE),
  };
  const scope: Scope = {
    plot,
    definitions,
    clip: plot.clipBox,
    hidden: plot.hidden,
    nearest: new Map(),
  };
  const rulerScope: Scope = {
    ...scope,
    clip: everywhere,
    hidden: new Set(),
    nearest: new Map(),
  };
  const shapes = farthestFirst([
    ...scene.faces.flatMap((data) => surfaceShapes(data, scope)),
    ...lineShapes(scene.lines, scope),
    ...pointShapes(scene.points, scope),
    ...placed.labels.map((label, i) => labelShape(label, placed.rectangles[i]!, scope)),
  ]);
  const rulers = farthestFirst([
    ...(rulerLines ? lineShapes(rulerLines, rulerScope) : []),
    ...plot.labels.map((label, i) => labelShape(label, plot.rectangles[i]!, rulerScope)),
  ]);
  const all = plot.flat
    ? [
        ...rulers.filter(({ depth }) => depth >= IN_FRONT),
        ...shapes,
        ...rulers.filter(({ depth }) => depth < IN_FRONT),
      ]
    : farthestFirst([...shapes, ...rulers]);
  const back = ground(plot, definitions);
  const size = attributes({ width, height, viewBox: `0 0 ${short(width)} ${short(height)}` });
  return [
    `<svg xmlns="http://www.w3.org/2000/svg"${size}>`,
    `<defs>${definitions}</defs>`,
    back,
    '<g stroke-linecap="round" stroke-linejoin="round">',
    ...all.map(({ svg }) => svg),
    '</g>',
    '</svg>',
    '',
  ].join('\n');
}

/** What a flat scene has before its objects is nearer than this. */
const IN_FRONT = -0.1;
