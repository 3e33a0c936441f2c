/** Transparent triangles in the order in which they have to be drawn: the farthest first. */

const BUCKETS = 1 << 16;

/**
 * Sorts triangles by the distance of their centres along a direction away from the viewer.
 * `index` holds three vertices each; the result is a new order of the same triangles.
 */
export function sortTriangles(
  positions: Float32Array,
  index: Uint32Array,
  depthOf: (x: number, y: number, z: number) => number,
): Uint32Array {
  const count = index.length / 3;
  const depths = new Float32Array(count);
  let least = Infinity;
  let most = -Infinity;
  for (let i = 0; i < count; i++) {
    let x = 0;
    let y = 0;
    let z = 0;
    for (let k = 0; k < 3; k++) {
      const at = index[i * 3 + k]! * 3;
      x += positions[at]!;
      y += positions[at + 1]!;
      z += positions[at + 2]!;
    }
    const depth = Math.fround(depthOf(x / 3, y / 3, z / 3));
    depths[i] = depth;
    if (depth < least) least = depth;
    if (depth > most) most = depth;
  }
  const step = most > least ? (BUCKETS - 1) / (most - least) : 0;
  const bucket = (i: number): number =>
    Math.min(BUCKETS - 1, Math.floor((most - depths[i]!) * step));
  const starts = new Uint32Array(BUCKETS + 1);
  for (let i = 0; i < count; i++) starts[bucket(i) + 1]!++;
  for (let i = 0; i < BUCKETS; i++) starts[i + 1]! += starts[i]!;
  const sorted = new Uint32Array(index.length);
  for (let i = 0; i < count; i++) {
    const place = starts[bucket(i)]!++ * 3;
    sorted.set(index.subarray(i * 3, i * 3 + 3), place);
  }
  return sorted;
}
