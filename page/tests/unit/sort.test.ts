import assert from 'node:assert/strict';
import { test } from 'node:test';
import { sortTriangles } from '../../src/scene/sort';

/** Triangles of three vertices each, at the given heights. */
const atHeights = (...heights: number[]): Float32Array =>
  Float32Array.from(heights.flatMap((z) => [0, 0, z, 1, 0, z, 0, 1, z]));

const height = (_x: number, _y: number, z: number): number => z;

test('the farthest triangle is drawn first', () => {
  const index = Uint32Array.of(0, 1, 2, 3, 4, 5, 6, 7, 8);
  const sorted = sortTriangles(atHeights(1, 3, 2), index, height);
  assert.deepEqual([...sorted], [3, 4, 5, 6, 7, 8, 0, 1, 2]);
});

test('triangles of the same depth keep their order', () => {
  const index = Uint32Array.of(0, 1, 2, 3, 4, 5);
  assert.deepEqual([...sortTriangles(atHeights(2, 2), index, height)], [...index]);
});

test('depths that differ by rounding alone lose no triangle', () => {
  const index = Uint32Array.of(0, 1, 2, 3, 4, 5);
  const rounded = (_x: number, _y: number, z: number): number => 0.1 + z * Number.EPSILON;
  assert.deepEqual([...sortTriangles(atHeights(1, 2), index, rounded)], [...index]);
});
