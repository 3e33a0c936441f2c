import assert from 'node:assert/strict';
import { test } from 'node:test';
import type { Geometries } from '../../src/javaview/geometries';
import { readDocument } from '../../src/javaview/reader';
import { glossOf, lookCode, patternOf, tipOf, type SceneBatches } from '../../src/scene/batches';
import { buildScene } from '../../src/scene/build';
import { LINEAR, Space, sceneBox } from '../../src/scene/space';
import { PLAIN_STYLE, type GeometryStyle } from '../../src/scene/styles';

const UNIT = new Space({
  box: { min: [-1, -1, -1], max: [1, 1, 1] },
  ratio: undefined,
  flat: false,
  logarithmic: LINEAR,
});

function read(inner: string): Geometries {
  const text = `<jvx-model><geometries><geometry>${inner}</geometry></geometries></jvx-model>`;
  return readDocument(new TextEncoder().encode(text)).geometries;
}

function build(inner: string, style: Partial<GeometryStyle> = {}, space = UNIT): SceneBatches {
  return buildScene(read(inner), space, () => ({ ...PLAIN_STYLE, ...style }));
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

test('an edge between two points at one place is not drawn as a dot', () => {
  const cone = points('0 0 0', '1 0 0', '1 1 0', '1 1 0');
  assert.equal(build(cone + faces('<f>0 1 2 3</f>', '', 'edge="show"')).lines.count, 3);
});

/** The area of all triangles in the plane; those that overlap count twice. */
function areaOf(inner: string, style: Partial<GeometryStyle> = {}, space = UNIT): number {
  const batch = build(inner, style, space).faces[0];
  if (!batch) return 0;
  const { positions, index } = batch;
  let area = 0;
  for (let i = 0; i < index.length; i += 3) {
    const [a, b, c] = [0, 1, 2].map((k) => index.at(i + k) * 3) as [number, number, number];
    const x = (v: number): number => positions.at(v);
    const y = (v: number): number => positions.at(v + 1);
    area += Math.abs((x(b) - x(a)) * (y(c) - y(a)) - (x(c) - x(a)) * (y(b) - y(a))) / 2;
  }
  return area;
}

test('triangles of a hollow face stay inside it', () => {
  // A triangle with a corner drawn inwards: a fan from the wrong corner would cover too much.
  const hollow = points('0 0 0', '1 -1 0', '0.2 0 0', '1 1 0');
  assert.ok(Math.abs(areaOf(hollow + faces('<f>0 1 2 3</f>')) - 0.2) < 1e-6);
});

/** The corners of a star of five points, drawn in one go: the middle is passed round twice. */
const STAR = [0, 2, 4, 1, 3].map((i) => {
  const angle = (i * 2 * Math.PI) / 5;
  return [Math.cos(angle), Math.sin(angle)] as const;
});

/** Its area with or without the middle: ten or five triangles between it and corners of two kinds. */
const starArea = (whole: boolean): number => {
  const inner = Math.cos((2 * Math.PI) / 5) / Math.cos(Math.PI / 5);
  const middle = 2.5 * inner * inner * Math.sin((2 * Math.PI) / 5);
  const points = 5 * inner * Math.sin(Math.PI / 5) - middle;
  return whole ? points + middle : points;
};

const all = (count: number): string =>
  faces(`<f>${Array.from({ length: count }, (_, i) => i).join(' ')}</f>`);

test('faces whose sides cross cover what is within them, by either rule', () => {
  const star = points(...STAR.map(([x, y]) => `${x} ${y} 0`)) + all(5);
  assert.ok(Math.abs(areaOf(star) - starArea(true)) < 1e-6, `${areaOf(star)} ${starArea(true)}`);
  assert.ok(Math.abs(areaOf(star, { rule: 'evenOdd' }) - starArea(false)) < 1e-6);
  // A bow: two triangles of one unit each, with no area between them as they are turned.
  const bow = points('-1 -1 0', '1 1 0', '1 -1 0', '-1 1 0') + all(4);
  assert.ok(Math.abs(areaOf(bow) - 2) < 1e-6);
  // A square that is passed round twice.
  const square = ['0 0 0', '1 0 0', '1 1 0', '0 1 0'];
  const twice = points(...square, ...square) + all(8);
  assert.ok(Math.abs(areaOf(twice) - 1) < 1e-6);
  assert.equal(areaOf(twice, { rule: 'evenOdd' }), 0);
});

test('a scribble is given up in time', () => {
  // Long sides to and fro, each of which crosses nearly all others.
  const places = Array.from({ length: 5_000 }, (_, i) => {
    const angle = i * 2.4;
    return `${Math.cos(angle)} ${Math.sin(angle)} 0`;
  });
  const { index } = build(points(...places) + all(5_000)).faces[0]!;
  assert.ok(index.length > 300_000 && index.length < 700_000, `${index.length}`);
});

test('a hole that a seam joins to the rim stays a hole', () => {
  const rim = ['0 0 0', '4 0 0', '4 4 0', '0 4 0', '0 0 0'];
  const hole = ['1 1 0', '1 3 0', '3 3 0', '3 1 0', '1 1 0'];
  const wide = new Space({
    box: { min: [0, 0, 0], max: [4, 4, 4] },
    ratio: undefined,
    flat: false,
    logarithmic: LINEAR,
  });
  assert.ok(Math.abs(areaOf(points(...rim, ...hole) + all(10), {}, wide) - 3) < 1e-6);
});

test('a face that crosses itself in space has a normal and its height', () => {
  const bow = points('-1 -1 -1', '1 1 1', '1 -1 1', '-1 1 -1') + all(4);
  const { positions, normals, vertexCount } = build(bow).faces[0]!;
  assert.ok(vertexCount > 0);
  for (let i = 0; i < vertexCount; i++) {
    assert.equal(positions.at(i * 3), positions.at(i * 3 + 2), 'in the plane where x is z');
    const [x, y, z] = [0, 1, 2].map((k) => normals.at(i * 4 + k));
    assert.deepEqual([Math.abs(x!), Math.abs(y!), Math.abs(z!)], [90, 0, 90]);
  }
});

test('faces beside one whose sides cross keep their colours', () => {
  const list = '<f>4 5 6 7</f><f>0 1 2 3</f><f>4 5 6</f><f>5 6 7</f>';
  const colors = '<colors><c>1 0 0</c><c>2 0 0</c><c>3 0 0</c><c>4 0 0</c></colors>';
  const places = points(
    ...['-1 -1 0', '1 1 0', '1 -1 0', '-1 1 0'],
    ...['0 0 1', '1 0 1', '1 1 1', '0 1 1'],
  );
  const batch = build(places + faces(list, colors, 'edge="hide" color="show"')).faces[0]!;
  const seen = new Map<number, number>();
  for (let i = 2; i < batch.index.length; i += 3) {
    const red = batch.colors.at(batch.index.at(i) * 4);
    seen.set(red, (seen.get(red) ?? 0) + 1);
  }
  assert.deepEqual(
    [1, 3, 4].map((red) => seen.get(red)),
    [2, 1, 1],
  );
  assert.ok(seen.get(2)! >= 2);
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
  const space = new Space({
    box: { min: [0, 0, 0], max: [10, 1, 1] },
    ratio: [1, 10, 5],
    flat: false,
    logarithmic: LINEAR,
  });
  assert.deepEqual(space.point(10, 1, 1), [1, 1, 0.5]);
  assert.equal(space.toFile(2, 0.5), 1);
});

test('along a logarithm powers of ten are evenly spaced, and nothing is at 0 or below', () => {
  const space = new Space({
    box: { min: [0.1, -1, -1], max: [1000, 1, 1] },
    ratio: undefined,
    flat: true,
    logarithmic: [true, false, false],
  });
  const close = (a: number, b: number): void => assert.ok(Math.abs(a - b) < 1e-9, `${a}, ${b}`);
  [0.1, 1, 10, 100, 1000].forEach((value, i) => close(space.toScene(0, value), (i - 2) / 2));
  close(space.toFile(0, 0.5), 100);
  assert.ok(!Number.isFinite(space.toScene(0, 0)));
  assert.ok(Number.isNaN(space.toScene(0, -1)));
});

test('the box of a logarithm holds the points above 0', () => {
  const geometries = read(points('-5 0 0', '0 0 0', '2 1 0', '50 2 0'));
  const box = sceneBox(undefined, geometries, [true, false, false]);
  assert.deepEqual([box.min[0], box.max[0], box.min[1], box.max[1]], [2, 50, 0, 2]);
});

test('a single point is in the middle of a box', () => {
  assert.deepEqual(sceneBox(undefined, read(points('3 4 5'))), { min: [2, 3, 4], max: [4, 5, 6] });
});

test('tips of arrows have the look that the plot document names, each kind once', () => {
  const arrows =
    points('0 0 0', '1 0 0') +
    '<lineSet arrow="show"><lines><l>0 1</l><l>1 0</l></lines></lineSet>';
  const tip = { style: 'open', length: 12, angle: 0.5 } as const;
  const { lines } = build(arrows, { tip }).finish();
  assert.deepEqual(lines.tips, [tip]);
  assert.deepEqual(
    [lines.styles[2], lines.styles[6]].map((code) => tipOf(code!)),
    [1, 1],
  );
  assert.deepEqual(build(points('0 0 0')).finish().lines.tips, []);
});

test('materials shine as they say', () => {
  const shining =
    '<material><ambientIntensity>0.5</ambientIntensity><specular><color>255 0 0</color></specular>' +
    '<emissive><color>0 51 0</color></emissive><shininess>0.5</shininess></material>';
  const { faces: batches, glosses } = build(SQUARE + faces('<f>0 1 2</f>') + shining).finish();
  const number = glossOf(batches[0]!.tags[1]!);
  assert.deepEqual(glosses[number], {
    specular: [0.6, 0, 0],
    exponent: 28,
    emissive: [0, 0.2, 0],
    ambient: 0.5,
  });
  const plain = build(SQUARE + faces('<f>0 1 2</f>')).finish();
  assert.equal(glossOf(plain.faces[0]!.tags[1]!), 0);
});

test('a number holds both a pattern and a gloss', () => {
  const code = lookCode(6, 31);
  assert.deepEqual([patternOf(code), glossOf(code)], [6, 31]);
});

test('a large surface has a coarser level, a small one has none', () => {
  const n = 300;
  const all: string[] = [];
  const list: string[] = [];
  for (let i = 0; i < n; i++) {
    for (let j = 0; j < n; j++) {
      all.push(`${(2 * i) / n - 1} ${(2 * j) / n - 1} 0`);
      const a = i * n + j;
      if (i + 1 < n && j + 1 < n) list.push(`<f>${a} ${a + 1} ${a + n + 1} ${a + n}</f>`);
    }
  }
  const [large] = build(points(...all) + faces(list.join(''))).finish().faces;
  assert.ok(large!.coarse!.length > 0 && large!.coarse!.length < large!.index.length / 4);
  assert.equal(build(SQUARE + faces('<f>0 1 2 3</f>')).finish().faces[0]!.coarse, undefined);
});

test('many small parts, of which a coarser level would leave out most, have none', () => {
  const n = 150;
  const triangles = Array.from({ length: n * n }, (_, i) => {
    const [x, y] = [(2 * (i % n)) / n - 1, (2 * Math.floor(i / n)) / n - 1];
    return [`${x} ${y} 0`, `${x + 0.5 / n} ${y} 0`, `${x} ${y + 0.5 / n} 0`];
  });
  const list = triangles.map((_, i) => `<f>${3 * i} ${3 * i + 1} ${3 * i + 2}</f>`);
  const [parts] = build(points(...triangles.flat()) + faces(list.join(''))).finish().faces;
  assert.equal(parts!.index.length, 3 * n * n);
  assert.equal(parts!.coarse, undefined);
});

test('lines and faces have the colours of their points where they say so', () => {
  const colored = SQUARE.replace(
    '</points>',
    '</points><colors><c>200 0 0</c><c>0 200 0</c><c>100 100 90</c></colors>',
  );
  const own = '<colors><c>9 9 9</c></colors>';
  const colorsOf = (attributes: string): [number[], number[]] => {
    const batches = build(
      colored +
        `<lineSet color="show" ${attributes}><lines><l>0 1</l></lines>${own}</lineSet>` +
        faces('<f>0 1 2</f>', own, `edge="hide" color="show" ${attributes}`),
    );
    const { colors, index } = batches.faces[0]!;
    const last = index.at(2) * 4;
    return [
      [0, 1, 2].map((k) => batches.lines.startColors.at(k)),
      [0, 1, 2].map((k) => colors.at(last + k)),
    ];
  };
  assert.deepEqual(colorsOf('colorFromPoints="show"'), [
    [100, 100, 0],
    [100, 100, 30],
  ]);
  assert.deepEqual(colorsOf(''), [
    [9, 9, 9],
    [9, 9, 9],
  ]);
});

test('normals of the file follow the proportions of the box', () => {
  const space = new Space({
    box: { min: [-1, -1, -10], max: [1, 1, 10] },
    ratio: [1, 1, 0.1],
    flat: false,
    logarithmic: LINEAR,
  });
  // A plane at 45 degrees in the box: it rises by 10 where x rises by 1.
  const slope = '<pointSet dim="3"><points><p>0 0 0</p><p>1 0 10</p><p>0 1 0</p></points>';
  const normals = `<normals>${'<n>-10 0 1</n>'.repeat(3)}</normals></pointSet>`;
  const smooth = '<material shading="gouraud"/>';
  const [batch] = build(slope + normals + faces('<f>0 1 2</f>') + smooth, {}, space).faces;
  const [x, y, z] = [0, 1, 2].map((k) => batch!.normals.at(k));
  assert.deepEqual([x, y, z], [-90, 0, 90]);
});

test('what is hidden does not widen the box', () => {
  const far = points('100 100 100');
  const box = sceneBox(undefined, read(`${SQUARE}</geometry><geometry visible="hide">${far}`));
  assert.deepEqual([box.min[0], box.max[0]], [0, 1]);
});
