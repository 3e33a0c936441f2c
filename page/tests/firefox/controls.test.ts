import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { PNG } from 'pngjs';
import type { Page } from 'puppeteer-core';
import type {} from '../../src/main';
import { simplePage } from '../support/compose';
import { twoScenesPage } from '../support/demos';
import { example } from '../support/examples';
import { TestFirefox } from '../support/firefox';
import { spotIn, type Color, type Spot } from '../support/observe';
import { axes, display } from '../support/plots';
import { discs, type Disc } from '../support/spots';

let firefox: TestFirefox;
before(async () => {
  firefox = await TestFirefox.launch();
});
after(() => firefox.close());

const settle = async (page: Page): Promise<void> => {
  await page.waitForFunction(() => !window.plotPage?.all.some(({ isMoving }) => isMoving));
  await page.evaluate(
    () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))),
  );
};

const spot = async (page: Page, color: Color): Promise<Spot> =>
  spotIn(PNG.sync.read(Buffer.from(await page.screenshot())), color);

test('the view turns by keys and mouse, and zooms by the wheel', async () => {
  const { page, complaints, close } = await firefox.open(simplePage(example('surface.jvx')));
  const seen = (): Promise<{ toEye: number[]; span: number }> =>
    page.evaluate(() => {
      const { toEye, span } = window.plotPage!.all[0]!.plot.view.state;
      return { toEye: [...toEye], span };
    });
  const home = await seen();
  await page.focus('.stage');
  await page.keyboard.press('ArrowRight');
  const byKey = await seen();
  assert.notDeepEqual(byKey.toEye, home.toEye);
  await page.mouse.move(400, 300);
  await page.mouse.down();
  await page.mouse.move(460, 320, { steps: 3 });
  await page.mouse.up();
  assert.notDeepEqual((await seen()).toEye, byKey.toEye);
  await page.mouse.wheel({ deltaY: -240 });
  await page.waitForFunction(
    (span) => window.plotPage!.all[0]!.plot.view.state.span < span,
    {},
    home.span,
  );
  assert.deepEqual(complaints, []);
  await close();
});

test('hovering shows the coordinates of the file, a click pins them', async () => {
  const disc: Disc = { name: 'one', at: '7.25 900.125 -0.0005', color: [255, 0, 0] };
  const html = simplePage(
    discs(3, [disc]),
    display(
      axes('bndbox', 3, [
        [0, 10],
        [0, 1000],
        [-0.001, 0.001],
      ]),
      '<boxRatio>1 0.008 3000</boxRatio>',
    ),
  );
  const { page, complaints, close } = await firefox.open(html);
  const { x, y } = await spot(page, disc.color);
  const values = (tip: string): Promise<(string | null)[]> =>
    page.$$eval(`${tip}:not([hidden]) .value span:last-child`, (all) =>
      all.map((some) => some.textContent),
    );
  await page.mouse.move(x, y);
  assert.deepEqual(await values('.tip:not(.pinned)'), disc.at.split(' '));
  await page.mouse.click(x, y);
  await page.mouse.move(20, 580);
  assert.deepEqual(await values('.tip:not(.pinned)'), []);
  assert.deepEqual(await values('.tip.pinned'), disc.at.split(' '));
  await page.mouse.click(x, y, { count: 2 });
  await page.mouse.move(20, 580);
  await settle(page);
  const centred = await spot(page, disc.color);
  assert.ok(Math.hypot(centred.x - 400, centred.y - 300) < 2);
  assert.deepEqual(complaints, []);
  await close();
});

test('Escape leaves the full screen', async () => {
  const { page, complaints, close } = await firefox.open(twoScenesPage());
  const width = (): Promise<number> =>
    page.$eval('.stage canvas', (canvas) => (canvas as HTMLCanvasElement).width);
  const before = await width();
  await page.focus('[aria-label="Full screen"]');
  await page.keyboard.press('Enter');
  await page.waitForFunction(() => document.fullscreenElement?.classList.contains('panel'));
  await page.waitForFunction(
    (least) => document.querySelector<HTMLCanvasElement>('.stage canvas')!.width > least,
    {},
    1.5 * before,
  );
  await page.keyboard.press('Escape');
  await page.waitForFunction(() => document.fullscreenElement === null);
  await page.waitForFunction(
    (wanted) => document.querySelector<HTMLCanvasElement>('.stage canvas')!.width === wanted,
    {},
    before,
  );
  const focused = await page.evaluate(() => document.activeElement?.getAttribute('aria-label'));
  assert.equal(focused, 'Full screen');
  assert.deepEqual(complaints, []);
  await close();
});
