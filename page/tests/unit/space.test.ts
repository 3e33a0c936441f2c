import assert from 'node:assert/strict';
import { test } from 'node:test';
import { toPageText, type BoxText } from '../../src/data/contract';
import { readDocument } from '../../src/javaview/reader';
import { LINEAR, Space, ratioFor, sceneBox, type SpaceParts } from '../../src/scene/space';
import { axes, curve, display, model } from '../support/plots';

const boxText = (box: unknown): BoxText => toPageText({ panels: [{ box }] }).panels[0]!.box;

const partsOf = (width: number, height: number, depth?: number): SpaceParts => ({
  box: { min: [0, 0, 0], max: [width, height, depth ?? 0] },
  ratio: undefined,
  flat: depth === undefined,
  logarithmic: LINEAR,
});

/** Half the sides of a box as drawn, the longest being 1. */
function halfOf(parts: SpaceParts, text: unknown): number[] {
  const { half } = new Space({ ...parts, ratio: ratioFor(parts, boxText(text)) });
  return half.slice(0, parts.flat ? 2 : 3).map((side) => Number(side.toFixed(6)));
}

test('the sides of an automatic box are even unless one is far longer', () => {
  const automatic = { scaling: 'automatic' };
  assert.deepEqual(halfOf(partsOf(2, 1), automatic), [1, 0.5]);
  assert.deepEqual(halfOf(partsOf(8, 1), automatic), [1, 0.125]);
  assert.deepEqual(halfOf(partsOf(9, 1), { ...automatic, sides: [4, 3] }), [1, 0.75]);
  assert.deepEqual(halfOf(partsOf(1, 1, 9), automatic), [1, 1, 0.666667]);
});

test('a model that comes without a plot keeps its shape', () => {
  assert.deepEqual(halfOf(partsOf(1, 1, 9), {}), [0.111111, 0.111111, 1]);
  assert.deepEqual(halfOf(partsOf(16, 1), {}), [1, 0.0625]);
});

test('a box that is not constrained has the sides that are asked for', () => {
  const unconstrained = { scaling: 'unconstrained', sides: [120, 60] };
  assert.deepEqual(halfOf(partsOf(1, 1), unconstrained), [1, 0.5]);
  assert.deepEqual(halfOf(partsOf(4, 20_000), unconstrained), [1, 0.5]);
  const space = { scaling: 'unconstrained', sides: [1, 2, 0.5] };
  assert.deepEqual(halfOf(partsOf(1, 1, 1), space), [0.5, 1, 0.25]);
  // Sides of the wrong number are none.
  assert.deepEqual(halfOf(partsOf(1, 1), space), [1, 0.666667]);
});

test('a constrained box keeps its proportions, but in the plane none is a needle', () => {
  const constrained = { scaling: 'constrained', sides: [1, 1] };
  assert.deepEqual(halfOf(partsOf(10, 1), constrained), [1, 0.1]);
  assert.deepEqual(halfOf(partsOf(1000, 1), constrained), [1, 0.05]);
});

test('all of a needle lies in its box', () => {
  const parts = partsOf(4, 20_000);
  const space = new Space({
    ...parts,
    ratio: ratioFor(parts, boxText({ scaling: 'constrained' })),
  });
  assert.deepEqual(space.point(4, 20_000, 0).slice(0, 2), [0.05, 1]);
});

test('ranges that the display names stay, however small beside others', () => {
  const small = [-2e-5, 4e-5] as const;
  const large = [-200_000, 250_000] as const;
  const text = display(axes('bndbox', 2, [small, large]));
  const { displays, geometries } = readDocument(new TextEncoder().encode(text));
  const box = sceneBox(displays[0], geometries);
  assert.deepEqual([box.min[0], box.max[0]], small);
  assert.deepEqual([box.min[1], box.max[1]], large);
});

test('a range that is only an error of rounding is made as wide as the others', () => {
  const places = [
    [0, 5],
    [2, 5 + 1e-14],
  ] as const;
  const { geometries } = readDocument(new TextEncoder().encode(model(curve(places))));
  const box = sceneBox(undefined, geometries);
  assert.deepEqual([box.min[1], box.max[1]], [4, 6 + 1e-14]);
});
