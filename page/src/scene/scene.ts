/** Everything of a plot that can be made without graphics hardware: plain data, made in a worker. */
import type { Run } from '../data/contract';
import type { Display, Geometry } from '../javaview/model';
import type { ReadResult } from '../javaview/reader';
import type { SceneData } from './batches';
import { buildScene } from './build';
import { Space, sceneBox, type Flags, type SpaceParts } from './space';
import { PLAIN_STYLE, type GeometryStyle } from './styles';

/** How a scene is made out of its texts. */
export interface SceneOrder {
  runs: readonly Run[];
  logarithmic: Flags;
  /** The space of an earlier frame, which all frames of an animation share. */
  space: SpaceParts | undefined;
}

/** What is kept of a geometry beside what is drawn. */
export interface GeometryInfo {
  dimension: 2 | 3;
  /** Three a point, as the file has them. */
  coordinates: Float64Array;
}

export interface Scene extends SceneData {
  title: string;
  /** Whether the text came to its end. */
  whole: boolean;
  display: Display | undefined;
  space: SpaceParts;
  geometries: GeometryInfo[];
  /** Names of the objects as far as the text has them, otherwise empty. */
  objectNames: string[];
}

/** The style of each geometry; those beyond the runs are objects of their own. */
function stylesOf(geometries: readonly Geometry[], runs: readonly Run[]): GeometryStyle[] {
  const styles: GeometryStyle[] = [];
  for (const run of runs) {
    for (let i = 0; i < run.count && styles.length < geometries.length; i++) styles.push(run);
  }
  let next = styles.reduce((most, style) => Math.max(most, style.object + 1), 0);
  while (styles.length < geometries.length) styles.push({ ...PLAIN_STYLE, object: next++ });
  return styles;
}

/** The name of an object is that of its first geometry. */
function namesOf(geometries: readonly Geometry[], styles: readonly GeometryStyle[]): string[] {
  const count = styles.reduce((most, { object }) => Math.max(most, object + 1), 0);
  const names: (string | undefined)[] = Array.from({ length: count });
  styles.forEach(({ object }, i) => (names[object] ??= geometries[i]!.name));
  return names.map((name) => name ?? '');
}

function isFlat(display: Display | undefined, geometries: readonly Geometry[]): boolean {
  if (display?.axes) return display.axes.dimension === 2;
  return geometries.length > 0 && geometries.every(({ dimension }) => dimension === 2);
}

function makeSpace(
  display: Display | undefined,
  geometries: readonly Geometry[],
  logarithmic: Flags,
): SpaceParts {
  return {
    box: sceneBox(display, geometries, logarithmic),
    ratio: display?.boxRatio,
    flat: isFlat(display, geometries),
    logarithmic,
  };
}

/** A display of its own counts before one in the text of the model. */
export function makeScene(
  model: ReadResult,
  displays: ReadResult | undefined,
  { runs, logarithmic, space: given }: SceneOrder,
): Scene {
  const { geometries, title, whole } = model;
  const display = displays?.displays[0] ?? model.displays[0];
  const space = given ?? makeSpace(display, geometries, logarithmic);
  const styles = stylesOf(geometries, runs);
  return {
    ...buildScene(geometries, new Space(space), (i) => styles[i]!).finish(),
    title,
    whole,
    display,
    space,
    geometries: geometries.map(({ dimension, points }) => ({
      dimension,
      coordinates: points.coordinates,
    })),
    objectNames: namesOf(geometries, styles),
  };
}
