import assert from 'node:assert/strict';
import { test } from 'node:test';
import { readDocument } from '../../src/javaview/reader';
import { marksOf, type Mark } from '../../src/scene/marks';
import { PLAIN_STYLE, PLAIN_TIP, type GeometryStyle } from '../../src/scene/styles';
import { curve, model, sheet } from '../support/plots';

const PLACES = [
  [0, 0],
  [1, 1],
] as const;

/** The marks of the first two objects. */
function marks(texts: string[], partial: Partial<GeometryStyle>[]): (Mark | undefined)[] {
  const { geometries } = readDocument(new TextEncoder().encode(model(...texts)));
  const styles = partial.map((style) => ({ ...PLAIN_STYLE, ...style }));
  const objects = styles.map(({ object }) => object);
  const found = marksOf(geometries, objects, [0, 1], (i) => styles[i]!);
  return [found.get(0), found.get(1)];
}

const red = '<thickness>3</thickness><color>200 0 0</color>';
const line = (attributes = ''): string =>
  curve(PLACES, { points: 'point="hide"', lines: attributes }, { points: '', lines: red });
const dots = curve(
  PLACES,
  { points: '', lines: 'line="hide"' },
  { points: '<thickness>5</thickness><color>0 0 200</color>', lines: '' },
);

test('a line has its colour, width and style', () => {
  const mark = { color: [200, 0, 0], width: 3, style: 'dashed', tip: undefined };
  assert.deepEqual(marks([line()], [{ line: 'dashed' }])[0], {
    opacity: 1,
    area: undefined,
    line: mark,
    point: undefined,
  });
});

test('an arrow has its tip', () => {
  const tip = { ...PLAIN_TIP, style: 'open' } as const;
  assert.deepEqual(marks([line('arrow="show"')], [{ tip }])[0]?.line?.tip, tip);
});

test('an object has the first of its lines and its points', () => {
  const [mark, other] = marks(
    [line(), dots, line()],
    [{ line: 'dotted' }, { point: 'stars' }, { line: 'dashed', object: 1 }],
  );
  assert.equal(mark?.line?.style, 'dotted');
  assert.deepEqual(mark?.point, { color: [0, 0, 200], radius: 5, style: 'stars' });
  assert.equal(mark?.area, undefined);
  assert.equal(other?.line?.style, 'dashed');
  assert.equal(other?.point, undefined);
});

test('a surface is an area with its edges, as opaque as it is', () => {
  const material = '<material><transparency visible="show">0.25</transparency></material>';
  const faces = sheet({ side: 3, height: () => 0, faces: 'edge="show"', more: material });
  const [mark] = marks([faces], [{ fill: 'crossedLines' }]);
  assert.equal(mark?.area?.pattern, 'crossedLines');
  assert.deepEqual(mark?.line?.color, [0, 0, 0]);
  assert.equal(mark?.opacity, 0.75);
});

test('what is hidden or empty has no mark', () => {
  const hidden = line('line="hide"');
  const empty = sheet({ side: 1, height: () => 0 });
  assert.deepEqual(marks([hidden, empty], [{}, { object: 1 }]), [undefined, undefined]);
});

test('only objects of the legend have marks', () => {
  const { geometries } = readDocument(new TextEncoder().encode(model(line(), line(), line())));
  const found = marksOf(geometries, [5, 6, 7], [6, 8], () => PLAIN_STYLE);
  assert.deepEqual([...found.keys()], [6]);
});
