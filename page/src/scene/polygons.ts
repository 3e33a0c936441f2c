/** Triangles of polygons of any number of corners. */
import { Earcut } from 'three/src/extras/Earcut.js';

interface Place {
  x: number;
  y: number;
}

/** Twice the area times the unit normal, by the sum over all corners; robust for bent polygons. */
export function areaNormal(at: Float32Array, corners: readonly number[]): [number, number, number] {
  let x = 0;
  let y = 0;
  let z = 0;
  for (let i = 0; i < corners.length; i++) {
    const a = corners[i]! * 3;
    const b = corners[i + 1 === corners.length ? 0 : i + 1]! * 3;
    x += (at[a + 1]! - at[b + 1]!) * (at[a + 2]! + at[b + 2]!);
    y += (at[a + 2]! - at[b + 2]!) * (at[a]! + at[b]!);
    z += (at[a]! - at[b]!) * (at[a + 1]! + at[b + 1]!);
  }
  return [x, y, z];
}

/** The corners seen along the largest component of the normal, turning to the left. */
function project(
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

/**
 * How a polygon is cut: 'fan' if triangles round any of its corners do, otherwise three places of
 * `corners` a triangle.
 */
export function triangulate(
  at: Float32Array,
  corners: readonly number[],
  normal: readonly [number, number, number],
): 'fan' | number[] {
  if (corners.length === 3) return 'fan';
  if (isConvex(at, corners, normal)) return 'fan';
  const points = project(at, corners, normal);
  const triangles = Earcut.triangulate(points.flatMap(({ x, y }) => [x, y]));
  return triangles.length > 0 ? triangles : 'fan';
}
