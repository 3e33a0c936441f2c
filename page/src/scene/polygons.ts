/** Triangles of polygons of any number of corners. */
import { Earcut } from 'three/src/extras/Earcut.js';
import type { Place } from './crossings';

/** An area that is a smaller part of the square of all sides is none. */
const LEAST_AREA = 1e-5;

/** Twice the area times the unit normal, by the sum over all corners; robust for bent polygons. */
export function areaNormal(at: Float32Array, corners: readonly number[]): [number, number, number] {
  let x = 0;
  let y = 0;
  let z = 0;
  let sides = 0;
  for (let i = 0; i < corners.length; i++) {
    const a = corners[i]! * 3;
    const b = corners[i + 1 === corners.length ? 0 : i + 1]! * 3;
    const dx = at[a]! - at[b]!;
    const dy = at[a + 1]! - at[b + 1]!;
    const dz = at[a + 2]! - at[b + 2]!;
    x += dy * (at[a + 2]! + at[b + 2]!);
    y += dz * (at[a]! + at[b]!);
    z += dx * (at[a + 1]! + at[b + 1]!);
    sides += dx * dx + dy * dy + dz * dz;
  }
  const isOdd = corners.length > 3 && x * x + y * y + z * z < (LEAST_AREA * sides) ** 2;
  return isOdd ? cornerNormal(at, corners) : [x, y, z];
}

/** That of the largest corner, for a polygon that has as much area on one side as on the other. */
function cornerNormal(at: Float32Array, corners: readonly number[]): [number, number, number] {
  const n = corners.length;
  const all = corners.map((corner, i) =>
    areaNormal(at, [corner, corners[(i + 1) % n]!, corners[(i + 2) % n]!]),
  );
  const size = ([x, y, z]: readonly [number, number, number]): number => Math.hypot(x, y, z);
  return all.reduce((largest, normal) => (size(normal) > size(largest) ? normal : largest));
}

/** The corners seen along the largest component of the normal, turning to the left. */
export function project(
  at: Float32Array,
  corners: readonly number[],
  normal: readonly [number, number, number],
): Place[] {
  const [x, y, z] = normal.map(Math.abs) as [number, number, number];
  const axis = x >= y && x >= z ? 0 : y >= z ? 1 : 2;
  const u = (axis + 1) % 3;
  const v = (axis + 2) % 3;
  const turn = normal[axis] < 0 ? -1 : 1;
  return corners.map((corner) => ({ x: at[corner * 3 + u]! * turn, y: at[corner * 3 + v]! }));
}

/** Whether no corner of a polygon turns away from its normal. */
function isConvex(
  at: Float32Array,
  corners: readonly number[],
  [nx, ny, nz]: readonly [number, number, number],
): boolean {
  const n = corners.length;
  for (let i = 0; i < n; i++) {
    const a = corners[i]! * 3;
    const b = corners[(i + 1) % n]! * 3;
    const c = corners[(i + 2) % n]! * 3;
    const ux = at[b]! - at[a]!;
    const uy = at[b + 1]! - at[a + 1]!;
    const uz = at[b + 2]! - at[a + 2]!;
    const vx = at[c]! - at[b]!;
    const vy = at[c + 1]! - at[b + 1]!;
    const vz = at[c + 2]! - at[b + 2]!;
    const turn = (uy * vz - uz * vy) * nx + (uz * vx - ux * vz) * ny + (ux * vy - uy * vx) * nz;
    if (turn < -1e-20) return false;
  }
  return true;
}

/** How often a polygon turns round, counted to the left; a simple one does so once. */
function turnsOf(places: readonly Place[]): number {
  const n = places.length;
  let angle = 0;
  for (let i = 0; i < n; i++) {
    const [a, b, c] = [places[i]!, places[(i + 1) % n]!, places[(i + 2) % n]!];
    const [ux, uy] = [b.x - a.x, b.y - a.y];
    const [vx, vy] = [c.x - b.x, c.y - b.y];
    angle += Math.atan2(ux * vy - uy * vx, ux * vx + uy * vy);
  }
  return angle / (2 * Math.PI);
}

const doubleArea = (a: Place, b: Place, c: Place): number =>
  (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);

/** Whether triangles cover just the area of a polygon. */
function areWhole(triangles: readonly number[], places: readonly Place[]): boolean {
  let covered = 0;
  for (let i = 0; i < triangles.length; i += 3) {
    const [a, b, c] = [
      places[triangles[i]!]!,
      places[triangles[i + 1]!]!,
      places[triangles[i + 2]!]!,
    ];
    covered += Math.abs(doubleArea(a, b, c));
  }
  let area = 0;
  for (let i = 1; i + 1 < places.length; i++) {
    area += doubleArea(places[0]!, places[i]!, places[i + 1]!);
  }
  return Math.abs(covered - Math.abs(area)) <= covered * 1e-4;
}

/**
 * How a polygon is cut: 'fan' if triangles round any of its corners do, 'crossed' if its sides cross,
 * otherwise three places of `corners` a triangle.
 */
export function triangulate(
  at: Float32Array,
  corners: readonly number[],
  normal: readonly [number, number, number],
): 'fan' | 'crossed' | number[] {
  if (corners.length === 3) return 'fan';
  const isRound = isConvex(at, corners, normal);
  if (isRound && corners.length <= 4) return 'fan';
  const places = project(at, corners, normal);
  if (Math.abs(Math.abs(turnsOf(places)) - 1) > 0.1) return 'crossed';
  if (isRound) return 'fan';
  const triangles = Earcut.triangulate(places.flatMap(({ x, y }) => [x, y]));
  return areWhole(triangles, places) ? triangles : 'crossed';
}
