/** The box of a scene and the way from the file's coordinates to those that are drawn. */
import type { Display, Geometry, Vector } from '../javaview/model';

export interface Box {
  min: Vector;
  max: Vector;
}

const AXES = [0, 1, 2] as const;

/** The smallest box round all finite points; undefined if there are none. */
export function boxOfPoints(geometries: readonly Geometry[]): Box | undefined {
  const min = [Infinity, Infinity, Infinity];
  const max = [-Infinity, -Infinity, -Infinity];
  for (const { points } of geometries) {
    const { coordinates } = points;
    for (let i = 0; i < coordinates.length; i++) {
      const value = coordinates[i]!;
      if (!Number.isFinite(value)) continue;
      const axis = i % 3;
      if (value < min[axis]!) min[axis] = value;
      if (value > max[axis]!) max[axis] = value;
    }
  }
  if (AXES.some((axis) => min[axis]! > max[axis]!)) return undefined;
  return { min: [min[0]!, min[1]!, min[2]!], max: [max[0]!, max[1]!, max[2]!] };
}

const UNIT_BOX: Box = { min: [-1, -1, -1], max: [1, 1, 1] };

/** Rulers of a flat scene do not run through the outermost points. */
const FLAT_ROOM = 0.06;

/** The box that a display names, each axis that it leaves open filled up from the points. */
export function sceneBox(display: Display | undefined, geometries: readonly Geometry[]): Box {
  const points = boxOfPoints(geometries) ?? UNIT_BOX;
  const room = display?.axes?.dimension === 2 ? FLAT_ROOM : 0;
  const ranges = AXES.map((axis) => {
    const ruler = display?.axes?.rulers[axis];
    const { min, max } = ruler ?? { min: undefined, max: undefined };
    if (min !== undefined && max !== undefined && min < max) return [min, max] as const;
    const more = (points.max[axis] - points.min[axis]) * room;
    return [points.min[axis] - more, points.max[axis] + more] as const;
  });
  const widest = Math.max(...ranges.map(([low, high]) => high - low), Number.MIN_VALUE);
  const open = ranges.map(([low, high]) =>
    high - low > widest * 1e-9
      ? ([low, high] as const)
      : ([low - widest / 2, high + widest / 2] as const),
  );
  return {
    min: [open[0]![0], open[1]![0], open[2]![0]],
    max: [open[0]![1], open[1]![1], open[2]![1]],
  };
}

/**
 * Maps the file's coordinates to drawn ones: the box is centred at the origin, its sides follow
 * the box ratio, and the longest side is 2.
 */
export class Space {
  readonly center: Vector;
  readonly scale: Vector;
  /** Half the sides of the box as drawn. */
  readonly half: Vector;

  constructor(
    readonly box: Box,
    ratio: Vector | undefined,
    readonly flat: boolean,
  ) {
    const sides = AXES.map((axis) => (box.max[axis] - box.min[axis]) * (ratio?.[axis] ?? 1));
    const relevant = flat ? sides.slice(0, 2) : sides;
    const longest = Math.max(...relevant.filter(Number.isFinite), Number.MIN_VALUE);
    const factor = (axis: 0 | 1 | 2): number => ((ratio?.[axis] ?? 1) * 2) / longest;
    this.scale = [factor(0), factor(1), factor(2)];
    this.center = [
      (box.min[0] + box.max[0]) / 2,
      (box.min[1] + box.max[1]) / 2,
      flat ? 0 : (box.min[2] + box.max[2]) / 2,
    ];
    this.half = [sides[0]! / longest, sides[1]! / longest, flat ? 0 : sides[2]! / longest];
  }

  toScene(axis: 0 | 1 | 2, value: number): number {
    return (value - this.center[axis]) * this.scale[axis];
  }

  toFile(axis: 0 | 1 | 2, value: number): number {
    return value / this.scale[axis] + this.center[axis];
  }

  point(x: number, y: number, z: number): [number, number, number] {
    return [this.toScene(0, x), this.toScene(1, y), this.toScene(2, z)];
  }
}
