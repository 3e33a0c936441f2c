import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import { PNG } from 'pngjs';
import type {} from '../../src/main';
import { readDocument } from '../../src/javaview/reader';
import { TestBrowser, type Opened } from '../support/browser';
import { simplePage } from '../support/compose';
import { functionPage } from '../support/demos';
import { example } from '../support/examples';
import { axes, display, model, sheet } from '../support/plots';

let browser: TestBrowser;
let opened: Opened;
before(async () => {
  browser = await TestBrowser.launch();
  opened = await browser.open(simplePage(example('surface.jvx'), example('lights_automatic.jvd')));
  await opened.page.getByRole('button', { name: 'Save' }).click();
});
after(() => browser.close());

async function save(page: Page, name: string): Promise<Buffer> {
  const [download] = await Promise.all([
    page.waitForEvent('download'),
    page.getByRole('button', { name, exact: true }).click(),
  ]);
  return readFileSync(await download.path());
}

/** What the text of the surface holds: two triangles a face, and an edge once. */
function expected(): { triangles: number; edges: number } {
  let triangles = 0;
  const edges = new Set<string>();
  [...readDocument(example('surface.jvx')).geometries].forEach(({ faces }, g) => {
    if (!faces) return;
    const { offsets, values } = faces.faces;
    for (let i = 0; i + 1 < offsets.length; i++) {
      const corners = [...values.subarray(offsets[i], offsets[i + 1])];
      triangles += corners.length - 2;
      corners.forEach((a, k) => {
        const b = corners[(k + 1) % corners.length]!;
        edges.add(`${g} ${Math.min(a, b)} ${Math.max(a, b)}`);
      });
    }
  });
  return { triangles, edges: edges.size };
}

test('an STL file holds every triangle', async () => {
  const data = await save(opened.page, 'STL');
  const { triangles } = expected();
  assert.ok(triangles > 0);
  assert.equal(data.readUInt32LE(80), triangles);
  assert.equal(data.length, 84 + 50 * triangles);
});

test('an OBJ file holds every triangle and every edge', async () => {
  const lines = (await save(opened.page, 'OBJ')).toString('utf8').split('\n');
  const { triangles, edges } = expected();
  assert.equal(lines.filter((line) => line.startsWith('f ')).length, triangles);
  const strokes = lines.filter((line) => line.startsWith('l ')).length;
  assert.equal(strokes, edges);
});

interface Gltf {
  accessors: { count: number }[];
  meshes: { primitives: { mode?: number; attributes: { POSITION: number } }[] }[];
}

test('a GLB file holds every triangle and every edge', async () => {
  const data = await save(opened.page, 'GLB');
  assert.equal(data.toString('latin1', 0, 4), 'glTF');
  assert.equal(data.readUInt32LE(8), data.length);
  const length = data.readUInt32LE(12);
  const gltf = JSON.parse(data.toString('utf8', 20, 20 + length)) as Gltf;
  const vertices = (mode: number): number =>
    gltf.meshes
      .flatMap(({ primitives }) => primitives)
      .filter((primitive) => (primitive.mode ?? 4) === mode)
      .reduce((sum, { attributes }) => sum + gltf.accessors[attributes.POSITION]!.count, 0);
  const { triangles, edges } = expected();
  assert.equal(vertices(4), 3 * triangles);
  assert.equal(vertices(1), 2 * edges);
});

test('the texts come out as they went in', async () => {
  assert.deepEqual(new Uint8Array(await save(opened.page, 'JVX')), example('surface.jvx'));
  assert.deepEqual(new Uint8Array(await save(opened.page, 'JVD')), example('lights_automatic.jvd'));
});

test('an SVG file is a drawing that a browser reads, with as many parts and the texts', async () => {
  const side = 4;
  const html = simplePage(
    model(sheet({ side, height: (x, y) => x * y, faces: 'edge="show"' })),
    display(
      axes('bndbox', 3, [
        [-1, 1],
        [-1, 1],
        [-1, 1],
      ]),
    ),
  );
  const { page, close } = await browser.open(html);
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).toString('utf8');
  const found = await page.evaluate((svg) => {
    const document = new DOMParser().parseFromString(svg, 'image/svg+xml');
    const count = (name: string): number => document.querySelectorAll(name).length;
    return {
      errors: count('parsererror'),
      polygons: count('polygon'),
      lines: count('line'),
      texts: [...document.querySelectorAll('text')].map((some) => some.textContent),
      rulers: window.plotPage!.all[0]!.plot.rulerLines!.count,
    };
  }, text);
  await close();
  assert.equal(found.errors, 0);
  assert.equal(found.polygons, 2 * (side - 1) ** 2);
  assert.equal(found.lines, 2 * side * (side - 1) + found.rulers);
  for (const tick of ['x', 'y', 'z', '\u22121', '0', '1']) assert.ok(found.texts.includes(tick));
});

test('in an SVG faces are cut where one gradient does not hold their colours', async () => {
  const text = (await save(opened.page, 'SVG')).toString('utf8');
  assert.ok(text.match(/<polygon /g)!.length > expected().triangles);
});

/** A twentieth of the ground, of which nobody sees so little. */
const LEAST_SEEN = 12;

test('in an SVG no ground is seen between the faces of a surface', async () => {
  const html = simplePage(
    model(sheet({ side: 12, height: () => 0 })),
    display(
      '<lights><light type="ambient"><intensity>0.5</intensity></light></lights>',
      '<background><color>255 255 255</color></background>',
    ),
  );
  const { page, close } = await browser.open(html);
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).toString('utf8');
  await page.setContent(`<body style="margin:0">${text}</body>`);
  const { data, width, height } = PNG.sync.read(await page.screenshot());
  await close();
  // The surface has no red in it, the ground has all of it.
  const red = (x: number, y: number): number => data[(y * width + x) * 4]!;
  const isInside = (x: number, y: number): boolean =>
    [red(x - 3, y), red(x + 3, y), red(x, y - 3), red(x, y + 3)].every((some) => some === 0);
  let [inside, paler] = [0, 0];
  for (let y = 3; y < height - 3; y++) {
    for (let x = 3; x < width - 3; x++) {
      if (!isInside(x, y)) continue;
      inside++;
      if (red(x, y) > LEAST_SEEN) paler++;
    }
  }
  assert.ok(inside > 20_000);
  assert.equal(paler, 0, `${paler} of ${inside} pixels are paler than the surface`);
});

test('in an SVG the edges of faces lie before the faces on both sides', async () => {
  const html = simplePage(
    model(sheet({ side: 5, height: (x, y) => 0.5 * x * y, faces: 'edge="show"' })),
  );
  const { page, close } = await browser.open(html);
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).toString('utf8');
  await close();
  const parts = [
    ...text.matchAll(
      /<polygon points="([^"]*)"|<line x1="(.*?)" y1="(.*?)" x2="(.*?)" y2="(.*?)"/g,
    ),
  ];
  const drawn = new Set<string>();
  let edges = 0;
  for (const [, points, x1, y1, x2, y2] of parts) {
    if (points === undefined) {
      edges++;
      drawn.add([`${x1},${y1}`, `${x2},${y2}`].sort().join(' '));
      continue;
    }
    const corners = points.split(' ');
    corners.forEach((corner, i) => {
      const side = [corner, corners[(i + 1) % corners.length]!].sort().join(' ');
      assert.ok(!drawn.has(side), `a face is drawn over its edge ${side}`);
    });
  }
  assert.equal(edges, 40);
});

/** A text of one geometry with the same points for all. */
const square = (more: string): string =>
  '<jvx-model><geometries><geometry><pointSet dim="2" color="show" point="show"><points>' +
  '<p>0 0</p><p>1 0</p><p>1 1</p><p>0 1</p><thickness>6</thickness></points>' +
  '<colors><c>255 0 0</c><c>255 0 0</c><c>0 0 255</c><c>0 0 255</c></colors></pointSet>' +
  `${more}</geometry></geometries></jvx-model>`;

const svgOf = async (more: string, run: object): Promise<string> => {
  const frames = [{ model: 'm', runs: [{ object: 0, count: 1, ...run }] }];
  const { page, close } = await browser.open(simplePage(square(more), undefined, { frames }));
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).toString('utf8');
  await close();
  return text;
};

const FACE =
  '<faceSet edge="hide" color="show" colorSmooth="show"><faces><f>0 1 2 3</f></faces></faceSet>';
const LINES =
  '<lineSet arrow="show"><lines><l>0 1</l><l>3 2</l><thickness>2</thickness></lines></lineSet>';

test('in an SVG colours run into each other, points have their signs', async () => {
  const text = await svgOf(FACE, { point: 'squares' });
  const gradients = text.match(/<linearGradient.*?<\/linearGradient>/g) ?? [];
  assert.equal(gradients.length, 2);
  for (const gradient of gradients) {
    assert.deepEqual(gradient.match(/rgb\([^)]*\)/g)?.sort(), ['rgb(0 0 255)', 'rgb(255 0 0)']);
  }
  assert.equal(text.match(/<path d="M-[^"]*z" transform[^>]* fill="none" stroke="rgb/g)?.length, 4);
});

test('in an SVG lines are dashed and have their tips', async () => {
  const text = await svgOf(LINES, { line: 'dashed', tip: { style: 'open', length: 20 } });
  assert.equal(text.match(/stroke-dasharray="10 6"/g)?.length, 2);
  assert.equal(text.match(/<polyline /g)?.length, 2);
});

test('in an SVG patterns are turned as on the screen', async () => {
  const text = await svgOf(FACE.replace('colorSmooth="show"', ''), { fill: 'diagonalLines' });
  assert.ok(text.includes('patternTransform="rotate(-45)"'));
  assert.ok(/<polygon [^>]*fill="url\(#d\d+\)"/.test(text));
});

test('hidden objects are not saved', async () => {
  const { page, close } = await browser.open(functionPage());
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('button', { name: 'Show only tangent' }).click();
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).toString('utf8');
  assert.ok(!text.includes('<circle'));
  await close();
});
