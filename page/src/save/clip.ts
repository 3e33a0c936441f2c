/** Cuts off what lies outside of a box, as the graphics hardware does. */
import type { Vector3 } from 'three';
import type { Rgb } from '../javaview/model';

export interface ClipBox {
  min: Vector3;
  max: Vector3;
}

export interface Corner {
  at: Vector3;
  color: Rgb;
}

/** How far a place lies within one of the six planes; below 0 outside. */
type Plane = (at: Vector3) => number;

const planesOf = ({ min, max }: ClipBox): Plane[] => [
  (at) => at.x - min.x,
  (at) => at.y - min.y,
  (at) => at.z - min.z,
  (at) => max.x - at.x,
  (at) => max.y - at.y,
  (at) => max.z - at.z,
];

/** What lies between two corners, at a part of the way. */
export function between(a: Corner, b: Corner, part: number): Corner {
  const channel = (k: 0 | 1 | 2): number => a.color[k] + (b.color[k] - a.color[k]) * part;
  return { at: a.at.clone().lerp(b.at, part), color: [channel(0), channel(1), channel(2)] };
}

function cut(corners: readonly Corner[], plane: Plane): Corner[] {
  return corners.flatMap((corner, i) => {
    const before = corners[(i + corners.length - 1) % corners.length]!;
    const here = plane(corner.at);
    const there = plane(before.at);
    const crossing =
      here < 0 !== there < 0 ? [between(before, corner, there / (there - here))] : [];
    return here < 0 ? crossing : [...crossing, corner];
  });
}

/** The part of a flat polygon within the box. */
export function clipPolygon(corners: readonly Corner[], box: ClipBox): Corner[] {
  return planesOf(box)
    .reduce((rest: readonly Corner[], plane) => cut(rest, plane), corners)
    .slice();
}

/** The part of a line within the box; an end that stays is the same object. */
export function clipSegment(a: Corner, b: Corner, box: ClipBox): [Corner, Corner] | undefined {
  let from = a;
  let to = b;
  for (const plane of planesOf(box)) {
    const start = plane(from.at);
    const end = plane(to.at);
    if (start < 0 && end < 0) return undefined;
    if (start < 0) from = between(from, to, start / (start - end));
    else if (end < 0) to = between(from, to, start / (start - end));
  }
  return [from, to];
}
