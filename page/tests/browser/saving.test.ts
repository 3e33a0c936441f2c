import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { readDocument } from '../../src/javaview/reader';
import { TestBrowser, type Opened } from '../support/browser';
import { simplePage } from '../support/compose';
import { functionPage } from '../support/demos';
import { example } from '../support/examples';

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
  readDocument(example('surface.jvx')).geometries.forEach(({ faces }, g) => {
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
  const text = (await save(opened.page, 'SVG')).toString('utf8');
  const { triangles, edges } = expected();
  const found = await opened.page.evaluate((svg) => {
    const document = new DOMParser().parseFromString(svg, 'image/svg+xml');
    const count = (name: string): number => document.querySelectorAll(name).length;
    return {
      errors: count('parsererror'),
      polygons: count('polygon'),
      lines: count('line'),
      texts: [...document.querySelectorAll('text')].map((some) => some.textContent),
    };
  }, text);
  assert.equal(found.errors, 0);
  assert.equal(found.polygons, triangles);
  assert.ok(found.lines >= edges);
  assert.ok(found.texts.includes('0'));
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
