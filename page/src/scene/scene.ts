/** Everything of a plot that can be made without graphics hardware: plain data, made in a worker. */
import type { BoxText, Run } from '../data/contract';
import type { Geometries } from '../javaview/geometries';
import type { Display, Places } from '../javaview/model';
import type { ReadResult } from '../javaview/reader';
import type { SceneData } from './batches';
import { buildScene } from './build';
import { marksOf, type Mark } from './marks';
import { Space, ratioFor, sceneBox, type Flags, type SpaceParts } from './space';
import { PLAIN_STYLE, type GeometryStyle } from './styles';

/** How a scene is made out of its texts. */
export interface SceneOrder {
  runs: readonly Run[];
  logarithmic: Flags;
  box: BoxText;
  /** The objects that a legend shows marks of. */
  marked: readonly number[];
  /** The space of an earlier frame, which all frames of an animation share. */
  space: SpaceParts | undefined;
}

export interface Scene extends SceneData {
  title: string;
  /** Whether the text came to its end. */
  whole: boolean;
  display: Display | undefined;
  space: SpaceParts;
  /** The points of the geometries. */
  places: Places;
  /** The object of each geometry. */
  objects: Int32Array;
  /** Names of the objects as far as the text has them, otherwise empty. */
  objectNames: string[];
  /** What the objects look like whose marks were asked for. */
  marks: ReadonlyMap<number, Mark>;
}

/** How geometries are drawn; those beyond the runs are objects of their own. */
class Styles {
  /** The object of each geometry. */
  readonly objects: Int32Array;
  private readonly runOf: (Run | undefined)[];

  constructor(count: number, runs: readonly Run[]) {
    this.objects = new Int32Array(count);
    this.runOf = new Array<Run | undefined>(count).fill(undefined);
    let at = 0;
    let next = 0;
    for (const run of runs) {
      const end = Math.min(at + run.count, count);
      if (end > at) next = Math.max(next, run.object + 1);
      this.objects.fill(run.object, at, end);
      this.runOf.fill(run, at, end);
      at = end;
    }
    for (; at < count; at++) this.objects[at] = next++;
  }

  of(i: number): GeometryStyle {
    return this.runOf[i] ?? { ...PLAIN_STYLE, object: this.objects[i]! };
  }
}

/** The name of an object is that of its first geometry that has one. */
function namesOf(geometries: Geometries, objects: Int32Array): string[] {
  const count = objects.reduce((most, object) => Math.max(most, object + 1), 0);
  const names = new Array<string>(count).fill('');
  objects.forEach((object, i) => (names[object] ||= geometries.nameOf(i)));
  return names;
}

function isFlat(display: Display | undefined, { dimensions }: Places): boolean {
  if (display?.axes) return display.axes.dimension === 2;
  return dimensions.length > 0 && dimensions.every((dimension) => dimension === 2);
}

function makeSpace(
  display: Display | undefined,
  geometries: Geometries,
  { logarithmic, box: text }: SceneOrder,
): SpaceParts {
  const box = sceneBox(display, geometries, logarithmic);
  const flat = isFlat(display, geometries.places);
  const plain = { box, ratio: undefined, flat, logarithmic };
  return { ...plain, ratio: display?.boxRatio ?? ratioFor(plain, text) };
}

/** A display of its own counts before one in the text of the model. */
export function makeScene(
  model: ReadResult,
  displays: ReadResult | undefined,
  order: SceneOrder,
): Scene {
  const { geometries, title, whole } = model;
  const display = displays?.displays[0] ?? model.displays[0];
  const space = order.space ?? makeSpace(display, geometries, order);
  const styles = new Styles(geometries.length, order.runs);
  return {
    ...buildScene(geometries, new Space(space), (i) => styles.of(i)).finish(),
    title,
    whole,
    display,
    space,
    places: geometries.places,
    objects: styles.objects,
    objectNames: namesOf(geometries, styles.objects),
    marks: marksOf(geometries, styles.objects, order.marked, (i) => styles.of(i)),
  };
}
