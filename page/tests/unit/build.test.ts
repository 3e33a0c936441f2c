import assert from 'node:assert/strict';
import { test } from 'node:test';
import { readDocument } from '../../src/javaview/reader';
import type { SceneBatches } from '../../src/scene/batches';
import { buildScene } from '../../src/scene/build';
import { Space } from '../../src/scene/space';
import type { GeometryStyle } from '../../src/scene/styles';

const STYLE: GeometryStyle = { object: 0, line: 'solid', point: 'filledCircles', fill: 'solid' };
const UNIT = new Space({ min: [-1, -1, -1], max: [1, 1, 1] }, undefined, false);

function build(inner: string, style: Partial<GeometryStyle> = {}, space = UNIT): SceneBatches {
  const text = `<jvx-model><geometries><geometry>${inner}</geometry></geometries></jvx-model>`;
  const { geometries } = readDocument(new TextEncoder().encode(text));
  return buildScene(geometries, space, () => ({ ...STYLE, ...style }));
}

const points = (...all: string[]): string =>
  `<pointSet dim="3" point="hide"><points>${all.map((p) => `<p>${p}</p>`).join('')}</points></pointSet>`;

const SQUARE = points('0 0 0', '1 0 0', '1 1 0', '0 1 0');

const faces = (list: string, more = '', attributes = 'edge="hide"'): string =>
  `<faceSet ${attributes}><faces>${list}<color>10 20 30</color></faces>${more}</faceSet>`;

test('a face of four corners is two triangles, one of five is three', () => {
  assert.equal(build(SQUARE + faces('<f>0 1 2 3</f>')).faces[0]!.index.length, 6);
  const five = points('0 0 0', '1 0 0', '1 1 0', '0.5 0.5 0', '0 1 0');
  assert.equal(build(five + faces('<f>0 1 2 3 4</f>')).faces[0]!.index.length, 9);
});

test('triangles of a hollow face stay inside it', () => {
  // A triangle with a corner drawn inwards: a fan from the wrong corner would cover too much.
  const hollow = points('0 0 0', '1 -1 0', '0.2 0 0', '1 1 0');
  const { positions, index } = build(hollow + faces('<f>0 1 2 3</f>')).faces[0]!;
  let area = 0;
  for (let i = 0; i < index.length; i += 3) {
    const [a, b, c] = [0, 1, 2].map((k) => index.at(i + k) * 3) as [number, number, number];
    const x = (v: number): number => positions.at(v);
    const y = (v: number): number => positions.at(v + 1);
    area += Math.abs((x(b) - x(a)) * (y(c) - y(a)) - (x(c) - x(a)) * (y(b) - y(a))) / 2;
  }
  assert.ok(Math.abs(area - 0.2) < 1e-6, `area ${area}`);
});

test('corners beyond the points are left out, faces at NaN are not drawn', () => {
  assert.equal(build(SQUARE + faces('<f>0 1 2 9</f>')).faces[0]!.index.length, 3);
  assert.equal(build(SQUARE + faces('<f>0 9 -2</f>')).faces[0]?.index.length ?? 0, 0);
  const broken = points('0 0 0', '1 0 0', 'nan 1 0', '0 inf 0');
  assert.equal(build(broken + faces('<f>0 1 2</f><f>0 1 3</f>')).faces[0]?.index.length ?? 0, 0);
});

test('the last vertex of each triangle carries the colour of its face', () => {
  const strip = points('0 0 0', '1 0 0', '0 1 0', '1 1 0');
  const colors = '<colors><c>255 0 0</c><c>0 255 0</c></colors>';
  const batch = build(strip + faces('<f>0 1 2</f><f>1 3 2</f>', colors, 'edge="hide" color="show"'))
    .faces[0]!;
  const colorOf = (triangle: number): number[] => {
    const vertex = batch.index.at(triangle * 3 + 2) * 4;
    return [0, 1, 2].map((k) => batch.colors.at(vertex + k));
  };
  assert.deepEqual(
    [colorOf(0), colorOf(1)],
    [
      [255, 0, 0],
      [0, 255, 0],
    ],
  );
});

test('a grid of flat faces shares its vertices', () => {
  const n = 20;
  const all: string[] = [];
  const list: string[] = [];
  for (let i = 0; i < n; i++) {
    for (let j = 0; j < n; j++) {
      all.push(`${i / n} ${j / n} 0`);
      const a = i * n + j;
      if (i + 1 < n && j + 1 < n) list.push(`<f>${a} ${a + 1} ${a + n + 1} ${a + n}</f>`);
    }
  }
  const batch = build(points(...all) + faces(list.join(''))).faces[0]!;
  assert.equal(batch.vertexCount, n * n);
});

test('each edge is drawn once', () => {
  const two = faces('<f>0 1 2</f><f>0 2 3</f>', '', 'edge="show"');
  assert.equal(build(SQUARE + two).lines.count, 5);
});

test('colours come from the points where they vary smoothly', () => {
  const colored =
    '<pointSet dim="3" color="show" point="hide"><points><p>0 0 0</p><p>1 0 0</p><p>0 1 0</p></points>' +
    '<colors><c>255 0 0</c><c>0 255 0</c><c>0 0 255</c></colors></pointSet>';
  const batch = build(
    colored + faces('<f>0 1 2</f>', '', 'color="show" colorSmooth="show" colorFromPoints="show"'),
  ).faces[0]!;
  assert.ok(batch.kind.smoothColors);
  const seen = [0, 1, 2].map((i) => [0, 1, 2].map((k) => batch.colors.at(i * 4 + k)).join());
  assert.deepEqual(seen.sort(), ['0,0,255', '0,255,0', '255,0,0']);
});

test('lines skip what cannot be drawn and go on after it', () => {
  const all = points('0 0 0', '1 0 0', 'nan 0 0', '0 1 0', '1 1 0');
  const batches = build(`${all}<lineSet><lines><l>0 1 2 3 4 7</l></lines></lineSet>`);
  assert.equal(batches.lines.count, 2);
  assert.equal(batches.counts.lines, 1);
});

test('a field draws vectors of its length, none for a zero vector', () => {
  const field =
    '<vectorField arrow="show"><vectors><v>3 4 0</v><v>0 0 0</v><v>1 0 0</v><length>0.5</length></vectors></vectorField>';
  const { lines } = build(points('0 0 0', '0 0 0', '0 0 0') + field);
  assert.equal(lines.count, 2);
  const close = (a: number, b: number): boolean => Math.abs(a - b) < 1e-6;
  assert.ok(
    close(lines.ends.at(0), 0.3) && close(lines.ends.at(1), 0.4) && close(lines.ends.at(3), 0.5),
  );
  assert.ok(lines.styles.at(2) > 3.5, 'the tip');
});

test('transparent faces are cut small enough to be sorted', () => {
  const material = '<material><transparency visible="show">0.5</transparency></material>';
  const batch = build(SQUARE + faces('<f>0 1 2 3</f>') + material).faces[0]!;
  assert.ok(batch.kind.transparent);
  assert.ok(batch.index.length / 3 >= 32);
  assert.equal(batch.colors.at(3), 128);
});

test('a point of no size is not drawn, but its name is', () => {
  const label =
    '<pointSet dim="3" point="show"><points><p name="here">0 0 0</p><thickness>0</thickness>' +
    '<labelAtt visible="show"/></points></pointSet>';
  const batches = build(label);
  assert.equal(batches.points.count, 0);
  assert.deepEqual(
    batches.labels.map(({ text }) => text),
    ['here'],
  );
});

test('the box ratio stretches the scene, the longest side is 2', () => {
  const space = new Space({ min: [0, 0, 0], max: [10, 1, 1] }, [1, 10, 5], false);
  assert.deepEqual(space.point(10, 1, 1), [1, 1, 0.5]);
  assert.equal(space.toFile(2, 0.5), 1);
});
