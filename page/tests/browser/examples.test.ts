import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { readDocument } from '../../src/javaview/reader';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { example, exampleNames } from '../support/examples';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const EMPTY = '<jvx-model><geometries></geometries></jvx-model>';

interface Expected {
  points: number;
  lines: number;
  faces: number;
  labels: number;
  vectors: number;
}

/** What has to be drawn, counted in the text itself. */
function expected(model: Uint8Array): Expected {
  const sum: Expected = { points: 0, lines: 0, faces: 0, labels: 0, vectors: 0 };
  for (const { points, lines, faces, fields } of readDocument(model).geometries) {
    if (points.visible && points.thickness !== 0) sum.points += points.coordinates.length / 3;
    if (points.labelsVisible) {
      sum.labels += [...points.names.values()].filter((name) => name.trim() !== '').length;
    }
    if (lines?.visible) sum.lines += lines.lines.offsets.length - 1;
    if (faces?.visible) sum.faces += faces.faces.offsets.length - 1;
    for (const field of fields) sum.vectors += field.vectors.length / 3;
  }
  return sum;
}

const cases = [
  ...exampleNames('.jvx')
    .filter((name) => !name.includes('frames'))
    .map((name) => ({ name, model: example(name), display: undefined })),
  ...exampleNames('.jvd').map((name) => ({ name, model: EMPTY, display: example(name) })),
];

/** Labels that meet or are cut off. */
function misplaced(): string[] {
  const { plot } = window.plotPage!.all[0]!;
  const { width, height } = plot.view.size;
  const found: string[] = [];
  const labels = [...plot.labels, ...plot.placed.labels];
  const rectangles = [...plot.rectangles, ...plot.placed.rectangles];
  rectangles.forEach((a, i) => {
    const { text } = labels[i]!;
    rectangles.slice(i + 1).forEach((b) => {
      const apart =
        a.left >= b.left + b.width ||
        b.left >= a.left + a.width ||
        a.bottom >= b.bottom + b.height ||
        b.bottom >= a.bottom + a.height;
      if (!apart) found.push(`${text} meets another`);
    });
    const inside =
      a.left >= 0 && a.bottom >= 0 && a.left + a.width <= width && a.bottom + a.height <= height;
    if (!inside) found.push(`${text} is cut off`);
  });
  return found;
}

for (const { name, model, display } of cases) {
  test(`${name} is drawn in full, without a complaint or a request`, async () => {
    const { page, complaints, requests, close } = await browser.open(simplePage(model, display));
    const counts = await page.evaluate(() => window.plotPage!.all[0]!.plot.scene.counts);
    assert.deepEqual(counts, expected(typeof model === 'string' ? Buffer.from(model) : model));
    assert.deepEqual(await page.evaluate(misplaced), []);
    assert.deepEqual(complaints, []);
    assert.deepEqual(requests, []);
    await close();
  });
}

test('the same page gives the same picture', async () => {
  const html = simplePage(example('surface.jvx'));
  const pictures: Buffer[] = [];
  for (let i = 0; i < 2; i++) {
    const { page, close } = await browser.open(html, {}, '#picture');
    pictures.push(await page.screenshot());
    await close();
  }
  assert.ok(pictures[0]!.equals(pictures[1]!));
});
