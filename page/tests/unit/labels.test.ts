import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Vector3 } from 'three';
import { placeLabels, type PlacedLabels } from '../../src/rulers/labels';
import { FreePlaces, isInside, overlaps } from '../../src/rulers/overlap';
import type { Label } from '../../src/scene/batches';
import { View } from '../../src/scene/view';

const STYLE = { family: '', size: 10, bold: false, italic: false, color: [0, 0, 0] } as const;

/** A picture of 200 by 200 pixels, straight on; 0.01 units a pixel, the origin in the middle. */
function makeView(flat: boolean): View {
  const state = {
    target: new Vector3(),
    toEye: new Vector3(0, 0, 1),
    up: new Vector3(0, 1, 0),
    span: 2,
    field: 0,
  };
  const view = new View(state, flat);
  view.size = { width: 200, height: 200 };
  view.update();
  return view;
}

const label = (text: string, x: number, y: number, z = 0): Label => ({
  text,
  at: [x, y, z],
  style: STYLE,
  anchor: [0.5, 0.5],
  shift: [0, 0],
  object: 0,
});

/** Every label is 40 pixels wide and 10 high. */
const measure = (): [number, number] => [40, 10];

const place = (labels: Label[], flat = true, free = new FreePlaces(0)): PlacedLabels =>
  placeLabels(labels, makeView(flat), measure, free, () => true);

test('a label with room around it stays where it is asked for', () => {
  const { labels, rectangles } = place([label('a', 0, 0)]);
  assert.deepEqual(labels[0]?.shift, [0, 0]);
  assert.deepEqual(rectangles, [{ left: 80, bottom: 95, width: 40, height: 10 }]);
});

test('labels at one place are moved apart, and left out when there is no room', () => {
  const many = Array.from({ length: 20 }, (_, i) => label(String(i), 0, 0));
  const { labels, rectangles } = place(many);
  assert.deepEqual(
    labels.map(({ text }) => text),
    Array.from({ length: 11 }, (_, i) => String(i)),
  );
  rectangles.forEach((a, i) =>
    rectangles.slice(i + 1).forEach((b) => assert.ok(!overlaps(a, b, 0))),
  );
});

test('labels at the rim are moved into the picture', () => {
  const { rectangles } = place([label('right', 1, 0), label('corner', -1, -1)]);
  assert.equal(rectangles.length, 2);
  for (const rectangle of rectangles) assert.ok(isInside(rectangle, 200, 200));
});

test('labels of points outside of the picture are left out', () => {
  assert.equal(place([label('a', 1.1, 0), label('b', 0, -1.2)]).labels.length, 0);
});

test('in space the nearest label comes first, in the plane the first of the file', () => {
  const all = (): Label[] => Array.from({ length: 20 }, (_, i) => label(`${i}`, 0, 0, i / 20));
  assert.equal(place(all(), false).labels[0]?.text, '19');
  assert.equal(place(all(), true).labels[0]?.text, '0');
});

test('labels leave out what rulers have taken', () => {
  const free = new FreePlaces(0);
  free.take({ left: 90, bottom: 90, width: 20, height: 20 });
  const { rectangles } = place([label('a', 0, 0)], true, free);
  assert.ok(
    rectangles[0] && !overlaps(rectangles[0], { left: 90, bottom: 90, width: 20, height: 20 }, 0),
  );
});

test('a place far off every screen is never taken, wherever it is', () => {
  const free = new FreePlaces(4);
  for (const left of [NaN, Infinity, -1e300, 1e15]) {
    assert.equal(free.take({ left, bottom: 0, width: 10, height: 10 }), false);
  }
});

test('rectangles meet across the borders of cells', () => {
  const free = new FreePlaces(0);
  assert.ok(free.take({ left: 60, bottom: 60, width: 10, height: 10 }));
  assert.ok(!free.take({ left: 66, bottom: 66, width: 200, height: 5 }));
  assert.ok(free.take({ left: -70, bottom: -70, width: 10, height: 10 }));
});
