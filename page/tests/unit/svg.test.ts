import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Vector3 } from 'three';
import { clipPolygon, clipSegment, type ClipBox, type Corner } from '../../src/save/clip';
import { cutByColors } from '../../src/save/svgShapes';
import { Definitions, escape, tag } from '../../src/save/svgText';
import { short } from '../../src/scene/signs';

const BOX: ClipBox = { min: new Vector3(-1, -1, -1), max: new Vector3(1, 1, 1) };

const corner = (x: number, y: number, red = 0): Corner => ({
  at: new Vector3(x, y, 0),
  color: [red, 0, 0],
});

const places = (corners: readonly Corner[]): number[][] => corners.map(({ at }) => [at.x, at.y]);

test('a triangle inside stays, one outside goes, one across is cut', () => {
  const inside = [corner(0, 0), corner(1, 0), corner(0, 1)];
  assert.deepEqual(clipPolygon(inside, BOX), inside);
  assert.deepEqual(clipPolygon([corner(2, 0), corner(3, 0), corner(2, 1)], BOX), []);
  const cut = clipPolygon([corner(0, 0), corner(2, 0), corner(0, 0.5)], BOX);
  assert.deepEqual(places(cut), [
    [0, 0],
    [1, 0],
    [1, 0.25],
    [0, 0.5],
  ]);
});

test('colours are cut with their lines', () => {
  const end = corner(3, 0, 200);
  const [from, to] = clipSegment(corner(-1, 0, 0), end, BOX)!;
  assert.deepEqual(places([from, to]), [
    [-1, 0],
    [1, 0],
  ]);
  assert.equal(to.color[0], 100);
  assert.equal(clipSegment(corner(2, 0), end, BOX), undefined);
  assert.equal(clipSegment(corner(0, 0), corner(1, 1), BOX)![1].at.x, 1);
});

test('a triangle whose colours no gradient holds is cut until one nearly does', () => {
  const colored = (...colors: [number, number, number][]): Corner[] =>
    colors.map((color, i) => ({ at: new Vector3(i % 2, i >> 1, 0), color }));
  // On a line from black to red, and 9 beside it: one gradient.
  assert.equal(cutByColors(colored([0, 0, 0], [200, 0, 0], [90, 0, 0])).length, 1);
  assert.equal(cutByColors(colored([0, 0, 0], [200, 0, 0], [90, 9, 0])).length, 1);
  // 18 beside it: half of that in each of four.
  const four = cutByColors(colored([0, 0, 0], [200, 0, 0], [100, 18, 0]));
  assert.equal(four.length, 4);
  assert.deepEqual(
    four[3]!.map(({ color }) => color),
    [
      [100, 0, 0],
      [150, 9, 0],
      [50, 9, 0],
    ],
  );
  assert.equal(cutByColors(colored([255, 0, 0], [0, 255, 0], [0, 0, 255])).length, 64);
});

test('elements hold short numbers and no markup', () => {
  assert.equal(
    tag('line', { x1: 1.23456, y1: undefined, stroke: 'red' }),
    '<line x1="1.23" stroke="red"/>',
  );
  assert.equal(short(-0.001), '0');
  assert.equal(escape('<a b="c">&'), '&#60;a b=&#34;c&#34;&#62;&#38;');
});

test('what is referred to is defined once', () => {
  const definitions = new Definitions();
  const names = [
    definitions.pattern(3, 'red'),
    definitions.pattern(3, 'red'),
    definitions.pattern(3, 'blue'),
    definitions.gradient([0, 0], [1, 0], [0, 0, 0], [255, 0, 0]),
  ];
  assert.deepEqual(names, ['url(#d0)', 'url(#d0)', 'url(#d1)', 'url(#d2)']);
  const text = String(definitions);
  assert.equal(text.match(/<pattern id="d/g)?.length, 2);
  assert.ok(text.includes('<linearGradient id="d2" gradientUnits="userSpaceOnUse"'));
});
