/** Browsers that lose what they draw with, or have none. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { example } from '../support/examples';
import { differing, pixels } from '../support/observe';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

async function turn(page: Page): Promise<void> {
  await page.locator('.stage').focus();
  for (let i = 0; i < 3; i++) await page.keyboard.press('ArrowRight');
  await browser.settle(page);
}

test('a lost context comes back, and all can be drawn again', async () => {
  const html = simplePage(example('surface.jvx'), example('lights_automatic.jvd'));
  const untouched = await browser.open(html);
  const before = await pixels(untouched.page);
  await turn(untouched.page);
  const turned = await pixels(untouched.page);
  await untouched.close();
  assert.ok(differing(before, turned) > 10_000, 'there is something to see');

  const { page, close } = await browser.open(html);
  await page.evaluate(async () => {
    const { context } = window.plotPage!.drawingEngine!;
    const { canvas } = context;
    const loss = context.getExtension('WEBGL_lose_context')!;
    const happens = (name: string): Promise<unknown> =>
      new Promise((done) => canvas.addEventListener(name, done, { once: true }));
    const lost = happens('webglcontextlost');
    loss.loseContext();
    await lost;
    // It cannot be given back before all have taken notice.
    await new Promise((done) => setTimeout(done));
    // What is on the page is wiped, so that it has to be drawn again.
    const seen = document.querySelector<HTMLCanvasElement>('.stage canvas')!;
    seen.getContext('2d')!.clearRect(0, 0, seen.width, seen.height);
    const restored = happens('webglcontextrestored');
    loss.restoreContext();
    await restored;
  });
  await page.waitForTimeout(200);
  await browser.settle(page);
  assert.ok(differing(before, await pixels(page)) < 100, 'it is drawn at once');
  await turn(page);
  assert.ok(differing(turned, await pixels(page)) < 100, 'and from everywhere');
  await close();
});

test('a browser without WebGL shows a sentence and the numbers', async () => {
  const blind = await TestBrowser.launch(['--disable-gpu', '--disable-3d-apis']);
  const html = compose({
    page: {
      header: 'Above',
      panels: [{ frames: [{ model: 'space' }] }, { frames: [{ model: 'plane' }] }],
    },
    blocks: {
      space: example('surface_smallest.jvx'),
      plane:
        '<jvx-model><geometries><geometry><pointSet dim="2"><points><p>0.5 1e-9</p><p>2 nan</p>' +
        '</points></pointSet></geometry></geometries></jvx-model>',
    },
  });
  const { page, requests, close } = await blind.open(html);
  const [text] = await page.locator('.area > p').allTextContents();
  assert.equal(
    text,
    'This browser cannot draw the plot, since it has no WebGL. These are its numbers.',
  );
  const numbers = await page.locator('pre').allTextContents();
  assert.deepEqual(numbers, ['0 0 0\n1 0 0\n0 1 0\n1 1 1', '0.5 1e-9\n2 NaN']);
  assert.deepEqual(requests, []);
  await close();
  await blind.close();
});
