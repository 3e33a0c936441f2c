import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { CASES } from '../support/cases';
import { countPanels, countText } from '../support/counts';
import { example, textOf } from '../support/examples';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

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

for (const { name, model, display } of CASES) {
  test(`${name} is drawn in full, without a complaint or a request`, async () => {
    const { page, complaints, requests, close } = await browser.open(simplePage(model, display));
    const { counts, strokes } = await page.evaluate(countText, textOf(model));
    assert.deepEqual(await page.evaluate(countPanels), [{ counts, strokes }]);
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
