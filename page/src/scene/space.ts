/** The box of a scene and the way from the file's coordinates to those that are drawn. */
import type { BoxText } from '../data/contract';
import type { Geometries } from '../javaview/geometries';
import type { Display, Range, Vector, VectorField } from '../javaview/model';

export interface Box {
  min: Vector;
  max: Vector;
}

export type Axis = 0 | 1 | 2;
export const AXES: readonly Axis[] = [0, 1, 2];

/** One for each axis. */
export type Flags = readonly [boolean, boolean, boolean];

export const LINEAR: Flags = [false, false, false];

/** Where a vector that starts at point `i` ends: it is as long as the field says, if it does. */
export function vectorEnd(
  { vectors, length }: VectorField,
  coordinates: Float64Array,
  i: number,
): [number, number, number] {
  const k = i * 3;
  const own = Math.hypot(vectors[k]!, vectors[k + 1]!, vectors[k + 2]!);
  const factor = length === undefined ? 1 : length / own;
  const end = (axis: Axis): number => coordinates[k + axis]! + vectors[k + axis]! * factor;
  return [end(0), end(1), end(2)];
}

/** In two dimensions what comes later lies above what came before: where geometry `index` lies. */
export function layer(index: number, total: number): number {
  return (index + 1) / (total + 1);
}

/** The smallest range of what is seen along an axis, for a logarithm of what is above 0. */
function rangeOfPoints(geometries: Geometries, axis: Axis, logarithmic: boolean): Range {
  let min = Infinity;
  let max = -Infinity;
  const take = (value: number): void => {
    if (!Number.isFinite(value) || (logarithmic && value <= 0)) return;
    if (value < min) min = value;
    if (value > max) max = value;
  };
  const { values, begins, ends } = geometries.places;
  for (let g = 0; g < geometries.length; g++) {
    if (!geometries.isVisible(g)) continue;
    const [begin, end] = [begins[g]!, ends[g]!];
    for (let i = begin + axis; i < end; i += 3) take(values[i]!);
    for (const field of geometries.fieldsOf(g).filter(({ visible }) => visible)) {
      const coordinates = values.subarray(begin, end);
      const count = Math.min(field.vectors.length, coordinates.length) / 3;
      for (let i = 0; i < count; i++) take(vectorEnd(field, coordinates, i)[axis]);
    }
  }
  if (min <= max) return [min, max];
  return logarithmic ? [1, 10] : [-1, 1];
}

/** Rulers of a flat scene do not run through the outermost points. */
const FLAT_ROOM = 0.06;

/** The range along an axis: the ruler's if it names one, otherwise that of the points. */
function rangeOf(
  display: Display | undefined,
  geometries: Geometries,
  axis: Axis,
  logarithmic: boolean,
): Range {
  const { min, max } = display?.axes?.rulers[axis] ?? { min: undefined, max: undefined };
  const named = min !== undefined && max !== undefined && min < max && (!logarithmic || min > 0);
  if (named) return [min, max];
  const [low, high] = rangeOfPoints(geometries, axis, logarithmic);
  if (display?.axes?.dimension !== 2) return [low, high];
  if (!logarithmic) return [low - (high - low) * FLAT_ROOM, high + (high - low) * FLAT_ROOM];
  return [low * (low / high) ** FLAT_ROOM, high * (high / low) ** FLAT_ROOM];
}

/** The side of the box around a single point. */
const SIDE_OF_POINT = 2;

/** A range below this part of its numbers is one number with errors of rounding. */
const ROUNDING = 1e-12;
/** And so is one below this part of the widest range. */
const NOTHING_BESIDE = 1e-14;

/** The box that a display names, each axis that it leaves open filled up from the points. */
export function sceneBox(
  display: Display | undefined,
  geometries: Geometries,
  logarithmic: Flags = LINEAR,
): Box {
  const ranges = AXES.map((axis) => rangeOf(display, geometries, axis, logarithmic[axis]));
  const widest = Math.max(...ranges.map(([low, high]) => high - low)) || SIDE_OF_POINT;
  const open = AXES.map((axis): Range => {
    const [low, high] = ranges[axis]!;
    if (logarithmic[axis]) return low < high ? [low, high] : [low / 2, high * 2];
    const largest = Math.max(Math.abs(low), Math.abs(high));
    const isOne = high - low <= Math.max(largest * ROUNDING, widest * NOTHING_BESIDE);
    return isOne ? [low - widest / 2, high + widest / 2] : [low, high];
  });
  return {
    min: [open[0]![0], open[1]![0], open[2]![0]],
    max: [open[0]![1], open[1]![1], open[2]![1]],
  };
}

/** What a space is made of; plain data that a worker can hand over. */
export interface SpaceParts {
  box: Box;
  /** Factors of the coordinates; undefined keeps the proportions of what is drawn. */
  ratio: Vector | undefined;
  flat: boolean;
  /** Along which axes the logarithm is drawn; there the box lies above 0. */
  logarithmic: Flags;
}

/** The lengths of the sides as they would be drawn if one unit were equally long on all axes. */
function lengthsOf({ box, logarithmic }: SpaceParts): Vector {
  const length = (axis: Axis): number =>
    logarithmic[axis] ? Math.log10(box.max[axis] / box.min[axis]) : box.max[axis] - box.min[axis];
  return [length(0), length(1), length(2)];
}

/** One unit is no longer drawn equally long if a side would be so many times as long as another. */
const MOST_UNEQUAL = 8;

const USUAL_SIDES = { flat: [3, 2], space: [1, 1, 2 / 3] };

/** The ratio for a box that its display says nothing of. */
export function ratioFor(parts: SpaceParts, { scaling, sides }: BoxText): Vector | undefined {
  const { box, flat } = parts;
  const drawn = AXES.slice(0, flat ? 2 : 3);
  const equal = lengthsOf(parts).slice(0, drawn.length);
  const isEven = Math.max(...equal) <= MOST_UNEQUAL * Math.min(...equal);
  if (scaling === 'constrained' || (scaling === 'automatic' && isEven)) return undefined;
  const wanted = sides?.length === drawn.length ? sides : USUAL_SIDES[flat ? 'flat' : 'space'];
  const ratio = (axis: Axis): number =>
    axis < drawn.length ? wanted[axis]! / (box.max[axis] - box.min[axis]) : 1;
  return [ratio(0), ratio(1), ratio(2)];
}

/** In the plane a side is at least this part of the other: nothing is seen in a narrower one. */
const NARROWEST = 1 / 20;

/**
 * Maps the file's coordinates to drawn ones: the box is centred at the origin, its sides follow
 * the box ratio, and the longest side is 2.
 */
export class Space {
  readonly box: Box;
  readonly flat: boolean;
  readonly logarithmic: Flags;
  /** Half the sides of the box as drawn. */
  readonly half: Vector;
  private readonly center: Vector;
  private readonly scale: Vector;

  constructor(readonly parts: SpaceParts) {
    const { box, ratio, flat, logarithmic } = parts;
    this.box = box;
    this.flat = flat;
    this.logarithmic = logarithmic;
    const low = AXES.map((axis) => this.measure(axis, box.min[axis]));
    const high = AXES.map((axis) => this.measure(axis, box.max[axis]));
    const lengths = lengthsOf(parts);
    const asked = AXES.map((axis) =>
      ratio ? (box.max[axis] - box.min[axis]) * ratio[axis] : lengths[axis],
    );
    const relevant = flat ? asked.slice(0, 2) : asked;
    const longest = Math.max(...relevant.filter(Number.isFinite), Number.MIN_VALUE);
    const sides = flat ? asked.map((side) => Math.max(side, longest * NARROWEST)) : asked;
    const factor = (axis: Axis): number => (sides[axis]! * 2) / longest / lengths[axis]!;
    const middle = (axis: Axis): number => (low[axis]! + high[axis]!) / 2;
    this.scale = [factor(0), factor(1), factor(2)];
    this.center = [middle(0), middle(1), flat ? 0 : middle(2)];
    this.half = [sides[0]! / longest, sides[1]! / longest, flat ? 0 : sides[2]! / longest];
  }

  /** NaN or an infinity where the axis has no place for the value. */
  toScene(axis: Axis, value: number): number {
    return (this.measure(axis, value) - this.center[axis]) * this.scale[axis];
  }

  toFile(axis: Axis, value: number): number {
    const measured = value / this.scale[axis] + this.center[axis];
    return this.logarithmic[axis] ? 10 ** measured : measured;
  }

  point(x: number, y: number, z: number): [number, number, number] {
    return [this.toScene(0, x), this.toScene(1, y), this.toScene(2, z)];
  }

  /** A difference of coordinates as it is drawn. */
  direction(x: number, y: number, z: number): [number, number, number] {
    return [x * this.scale[0], y * this.scale[1], z * this.scale[2]];
  }

  /** A normal of a surface, of any length, as that surface is drawn. */
  normal(x: number, y: number, z: number): [number, number, number] {
    const [a, b, c] = this.scale;
    return [x * b * c, y * c * a, z * a * b];
  }

  private measure(axis: Axis, value: number): number {
    return this.logarithmic[axis] ? Math.log10(value) : value;
  }
}
