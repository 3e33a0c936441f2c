/** What the builders of points, lines and faces work on. */
import type { Geometry, Rgb } from '../javaview/model';
import type { SceneBatches } from './batches';
import type { Space } from './space';
import type { GeometryStyle } from './styles';

/** What the steps for one geometry share. */
export interface Draft {
  geometry: Geometry;
  style: GeometryStyle;
  batches: SceneBatches;
  space: Space;
  /** Drawn coordinates of the points, three each, NaN where one cannot be drawn. */
  at: Float32Array;
  /** Opacity by the material, 0 to 1. */
  alpha: number;
}

/** The colour of entry `i` of a list of colours, or `otherwise` if the list is too short. */
export function colorAt(colors: Uint8Array, i: number, otherwise: Rgb): Rgb {
  const at = i * 3;
  if (at + 2 >= colors.length) return otherwise;
  return [colors[at]!, colors[at + 1]!, colors[at + 2]!];
}
