import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { validateBytes } from 'gltf-validator';
import { PNG } from 'pngjs';
import type {} from '../../src/main';
import { TestBrowser, type Opened } from '../support/browser';
import { simplePage } from '../support/compose';
import { countText } from '../support/counts';
import { example, textOf } from '../support/examples';
import { pixels, save } from '../support/observe';
import { axes, curve, display, model, sheet } from '../support/plots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

/** A page with the menu Save open. */
async function openSaving(html: string): Promise<Opened> {
  const opened = await browser.open(html);
  await opened.page.getByRole('button', { name: 'Save' }).click();
  return opened;
}

/** Faces with their edges, a line of two strokes, and points. */
const MIXED = model(
  sheet({ side: 5, height: (x, y) => x * y, faces: 'edge="show"' }),
  '<geometry><pointSet dim="3" point="hide"><points><p>0 0 2</p><p>1 0 2</p><p>1 1 2</p></points>' +
    '</pointSet><lineSet><lines><l>0 1 2</l></lines></lineSet></geometry>',
  '<geometry><pointSet dim="3"><points>' +
    '<p>0 0 3</p><p>0 0 4</p><p>0 1 4</p></points></pointSet></geometry>',
);

interface Counted {
  triangles: number;
  strokes: number;
  points: number;
}

/** The file of a model, and what the text that it was made of has. */
async function saveMixed(name: string): Promise<Counted & { data: Buffer }> {
  const { page, close } = await openSaving(simplePage(MIXED));
  const { triangles, strokes, counts } = await page.evaluate(countText, MIXED);
  const { data } = await save(page, name);
  await close();
  assert.deepEqual([triangles, strokes, counts.points], [32, 42, 3]);
  return { data, triangles, strokes, points: counts.points };
}

test('an STL file holds every triangle, where it is', async () => {
  const { data, triangles } = await saveMixed('STL');
  assert.equal(data.readUInt32LE(80), triangles);
  assert.equal(data.length, 84 + 50 * triangles);
  const corners = Array.from({ length: 3 * triangles }, (_, i) => {
    const at = 84 + 50 * Math.floor(i / 3) + 12 * (1 + (i % 3));
    return [0, 4, 8].map((part) => data.readFloatLE(at + part));
  });
  const extents = [0, 1, 2].map((axis) => {
    const along = corners.map((corner) => corner[axis]!);
    return Math.max(...along) - Math.min(...along);
  });
  // All of the text goes from -1 to 1, from -1 to 1 and from -1 to 4, the faces up to 1.
  assert.ok(extents.every((extent) => Math.abs(extent / extents[0]! - 1) < 1e-5));
});

test('an OBJ file holds every triangle, every stroke and every point', async () => {
  const { data, triangles, strokes, points } = await saveMixed('OBJ');
  const lines = data.toString('utf8').split('\n');
  const vertices = lines.filter((line) => line.startsWith('v ')).length;
  const used = (letter: string): number[][] =>
    lines
      .filter((line) => line.startsWith(`${letter} `))
      .map((line) => [...line.matchAll(/ (\d+)/g)].map(([, number]) => Number(number)));
  assert.equal(used('f').length, triangles);
  assert.equal(used('l').length, strokes);
  assert.equal(used('p').flat().length, points);
  for (const number of ['f', 'l', 'p'].flatMap(used).flat()) {
    assert.ok(number >= 1 && number <= vertices);
  }
});

test('a GLB file holds every triangle, every stroke and every point', async () => {
  const { data, triangles, strokes, points } = await saveMixed('GLB');
  const { issues, info } = await validateBytes(data);
  assert.deepEqual(issues.messages, []);
  assert.equal(info.totalTriangleCount, triangles);
  assert.equal(info.totalVertexCount, 3 * triangles + 2 * strokes + points);
  assert.equal(info.drawCallCount, 3);
});

test('the texts come out as they went in', async () => {
  // Letters of one byte, ends of lines of another system, and nothing at the end.
  const own = Buffer.from(`<?xml encoding="ISO-8859-1"?>\r\n${MIXED}\n<!-- größer -->`, 'latin1');
  const { page, close } = await openSaving(simplePage(own, example('lights_automatic.jvd')));
  assert.ok((await save(page, 'JVX')).data.equals(own));
  assert.ok((await save(page, 'JVD')).data.equals(Buffer.from(example('lights_automatic.jvd'))));
  await close();
});

test('files are called as the plot', async () => {
  const named = { name: 'my <plot> 1.zrd' };
  const { page, close } = await openSaving(simplePage(MIXED, undefined, named));
  assert.equal((await save(page, 'OBJ')).name, 'my plot 1.obj');
  assert.equal(await page.getByRole('button', { name: 'JVD' }).count(), 0, 'there is none');
  await close();
});

test('pictures are saved in twice and four times the size, with the same on them', async () => {
  const html = simplePage(example('surface.jvx'), undefined, { name: 'surface.zrd' });
  const size = { width: 400, height: 300 };
  const { page, close } = await browser.open(html, { viewport: size });
  /** The part of a picture that is not its ground, the middle half each way. */
  const inked = ({ data, width, height }: PNG): number => {
    let count = 0;
    for (let y = Math.floor(height / 4); y < (height * 3) / 4; y++) {
      for (let x = Math.floor(width / 4); x < (width * 3) / 4; x++) {
        if (data[(y * width + x) * 4]! < 250) count++;
      }
    }
    return count / ((width * height) / 4);
  };
  await page.mouse.move(0, 0);
  const seen = inked(await pixels(page));
  assert.ok(seen > 0.3 && seen < 1, `${seen} of the page is drawn on`);
  await page.getByRole('button', { name: 'Save' }).click();
  for (const [button, factor] of [
    ['PNG, twice the size', 2],
    ['PNG, four times the size', 4],
  ] as const) {
    const { name, data } = await save(page, button);
    const picture = PNG.sync.read(data);
    assert.deepEqual([picture.width, picture.height], [400 * factor, 300 * factor]);
    assert.ok(Math.abs(inked(picture) - seen) < 0.02, `${inked(picture)} of the picture`);
    assert.equal(name, 'surface.png');
  }
  await close();
});

/** A text of so many points. */
const points = (count: number): string => {
  const all = Array.from({ length: count }, (_, i) => `<p>${i % 200} ${Math.floor(i / 200)}</p>`);
  return model(
    `<geometry><pointSet dim="2"><points>${all.join('')}</points></pointSet></geometry>`,
  );
};

test('an SVG file has up to 20,000 parts', async () => {
  const most = await openSaving(simplePage(points(20_000)));
  const { data } = await save(most.page, 'SVG');
  assert.equal(data.toString('utf8').match(/<path /g)?.length, 20_000);
  await most.close();
  const { page, complaints, close } = await openSaving(simplePage(points(20_001)));
  let downloads = 0;
  page.on('download', () => downloads++);
  await page.getByRole('button', { name: 'SVG' }).click();
  const message = page.getByRole('group', { name: 'Save' }).getByRole('status');
  await page.waitForFunction(() => document.querySelector('.menu .message')?.textContent !== '');
  assert.equal(await message.textContent(), 'more than 20000 parts; save a PNG instead');
  assert.equal(downloads, 0);
  assert.deepEqual(complaints, []);
  await close();
});

test('what is hidden does not count as a part of an SVG file', async () => {
  const line = curve([
    [0, 0],
    [100, 50],
  ]);
  const many = sheet({ side: 102, height: () => 0, faces: 'edge="show"' });
  const html = simplePage(points(20_000).replace('</geometries>', `${line}${many}</geometries>`));
  const { page, close } = await browser.open(html);
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('button', { name: 'Show only Object 2' }).click();
  await page.getByRole('button', { name: 'Save' }).click();
  const text = (await save(page, 'SVG')).data.toString('utf8');
  assert.equal(text.match(/<path |<polygon |<line /g)?.length, 1);
  await close();
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
  const { page, close } = await openSaving(html);
  const text = (await save(page, 'SVG')).data.toString('utf8');
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
  const { page, close } = await openSaving(
    simplePage(example('surface.jvx'), example('lights_automatic.jvd')),
  );
  const { triangles } = await page.evaluate(countText, textOf(example('surface.jvx')));
  const text = (await save(page, 'SVG')).data.toString('utf8');
  assert.ok(text.match(/<polygon /g)!.length > triangles);
  await close();
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
  const { page, close } = await openSaving(html);
  const text = (await save(page, 'SVG')).data.toString('utf8');
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
  const { page, close } = await openSaving(html);
  const text = (await save(page, 'SVG')).data.toString('utf8');
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
  const { page, close } = await openSaving(simplePage(square(more), undefined, { frames }));
  const text = (await save(page, 'SVG')).data.toString('utf8');
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
  const { page, close } = await browser.open(simplePage(MIXED));
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('button', { name: 'Show only Object 2' }).click();
  await page.getByRole('button', { name: 'Save' }).click();
  const { info } = await validateBytes((await save(page, 'GLB')).data);
  assert.deepEqual([info.drawCallCount, info.totalVertexCount], [1, 4]);
  assert.equal((await save(page, 'STL')).data.readUInt32LE(80), 0);
  const obj = (await save(page, 'OBJ')).data.toString('utf8');
  assert.equal(obj.match(/^v /gm)?.length, 4);
  const svg = (await save(page, 'SVG')).data.toString('utf8');
  assert.equal(svg.match(/<path |<polygon /g), null);
  assert.match(svg, /<line /);
  await close();
});
