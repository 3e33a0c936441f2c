/** Which point of a file is seen at a place of the screen. */
import type { Places } from '../javaview/model';
import type { Scene } from './scene';
import type { Triple } from './shade';
import { layer, type Space } from './space';
import type { View } from './view';

export interface Hit {
  geometry: number;
  point: number;
  object: number;
  /** In pixels from the left and the bottom. */
  at: readonly [number, number];
  /** As the file has them. */
  coordinates: Triple;
}

/** What is seen of a scene. */
export interface Seen {
  scene: Scene;
  space: Space;
  view: View;
  isHidden(object: number): boolean;
  /** Whether a place of the scene is cut off. */
  isClipped(x: number, y: number, z: number): boolean;
}

/** The coordinates of a point, as the file has them. */
export function coordinatesOf({ values, begins }: Places, geometry: number, point: number): Triple {
  const k = begins[geometry]! + point * 3;
  return [values[k]!, values[k + 1]!, values[k + 2]!];
}

/** The point that is seen nearest to a place, if one is nearer than `reach`, all in pixels. */
export function nearestPoint(
  { scene, space, view, isHidden, isClipped }: Seen,
  [x, y]: readonly [number, number],
  reach: number,
): Hit | undefined {
  const m = view.matrix().elements;
  const { width, height } = view.size;
  let best: Hit | undefined;
  let bestRank = Infinity;
  const { objects, seen, places } = scene;
  const { values, begins, ends } = places;
  for (let geometry = 0; geometry < objects.length; geometry++) {
    const object = objects[geometry]!;
    if (seen[geometry] === 0 || isHidden(object)) continue;
    const begin = begins[geometry]!;
    const end = ends[geometry]!;
    const flatLayer = layer(geometry, objects.length);
    for (let i = begin; i < end; i += 3) {
      const px = space.toScene(0, values[i]!);
      const py = space.toScene(1, values[i + 1]!);
      const pz = space.flat ? flatLayer : space.toScene(2, values[i + 2]!);
      const w = m[3]! * px + m[7]! * py + m[11]! * pz + m[15]!;
      if (!(w > 0)) continue;
      const sx = ((m[0]! * px + m[4]! * py + m[8]! * pz + m[12]!) / w + 1) * 0.5 * width;
      if (!(Math.abs(sx - x) < reach)) continue;
      const sy = ((m[1]! * px + m[5]! * py + m[9]! * pz + m[13]!) / w + 1) * 0.5 * height;
      const distance = Math.hypot(sx - x, sy - y);
      if (!(distance < reach) || isClipped(px, py, pz)) continue;
      const depth = (m[2]! * px + m[6]! * py + m[10]! * pz + m[14]!) / w;
      // Among points that are about equally near the one in front is meant.
      const rank = Math.max(distance, 6) + depth * 4;
      if (rank >= bestRank) continue;
      bestRank = rank;
      best = { geometry, object, point: (i - begin) / 3, at: [sx, sy], coordinates: [0, 0, 0] };
    }
  }
  return best && { ...best, coordinates: coordinatesOf(places, best.geometry, best.point) };
}
