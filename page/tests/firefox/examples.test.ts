import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { CASES } from '../support/cases';
import { simplePage } from '../support/compose';
import { countPanels, countText } from '../support/counts';
import { animatedPage, functionPage, twoScenesPage } from '../support/demos';
import { textOf } from '../support/examples';
import { TestFirefox } from '../support/firefox';
import { PICTURES } from '../support/pictures';

let firefox: TestFirefox;
before(async () => {
  firefox = await TestFirefox.launch();
});
after(() => firefox.close());

for (const { name, model, display } of CASES) {
  test(`${name} is drawn in full, without a complaint or a request`, async () => {
    const { page, complaints, requests, close } = await firefox.open(simplePage(model, display));
    const { counts, strokes } = await page.evaluate(countText, textOf(model));
    assert.deepEqual(await page.evaluate(countPanels), [{ counts, strokes }]);
    assert.deepEqual(complaints, []);
    assert.deepEqual(requests, []);
    await close();
  });
}

/** How many pixels of the drawing are red. */
function redPixels(): number {
  const canvas = window.plotPage!.all[0]!.picture(1, false);
  const { data } = canvas.getContext('2d')!.getImageData(0, 0, canvas.width, canvas.height);
  let count = 0;
  for (let i = 0; i < data.length; i += 4) {
    if (data[i]! > 150 && data[i + 1]! < 80 && data[i + 2]! < 80) count++;
  }
  return count;
}

test('a surface is seen', async () => {
  const { page, close } = await firefox.open(PICTURES.lights_automatic!());
  assert.ok((await page.evaluate(redPixels)) > 5_000);
  await close();
});

test('legends, several scenes and animations are shown without a complaint', async () => {
  for (const html of [functionPage(), twoScenesPage(), animatedPage()]) {
    const { page, complaints, close } = await firefox.open(html);
    assert.ok(await page.$('.stage canvas'));
    assert.deepEqual(complaints, []);
    await close();
  }
});
