/** The sizes that a page is seen in: full screen, windows, phones. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { animatedPage, functionPage, twoScenesPage } from '../support/demos';
import { example } from '../support/examples';
import { spot, touchOf } from '../support/observe';
import { discs, type Disc } from '../support/spots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

/** Width and height of what a panel draws, in pixels of the screen. */
const drawnSize = (page: Page, panel: number): Promise<[number, number]> =>
  page.evaluate((i) => {
    const { width, height } = document.querySelectorAll<HTMLCanvasElement>('.stage canvas')[i]!;
    return [width, height];
  }, panel);

test('a plot fills the screen and comes back, with the focus on its button', async () => {
  const { page, complaints, close } = await browser.open(twoScenesPage());
  const before = await drawnSize(page, 1);
  assert.ok(before[0] < 400, `${before[0]} of 800 pixels`);
  const button = page
    .getByRole('region', { name: 'right' })
    .getByRole('button', { name: 'Full screen' });
  const shows = async (panel: string | null, size: [number, number]): Promise<void> => {
    await page.waitForFunction(
      (label) => (document.fullscreenElement?.getAttribute('aria-label') ?? null) === label,
      panel,
    );
    await page.waitForFunction(
      (width) => document.querySelectorAll('canvas')[1]!.width === width,
      size[0],
    );
    assert.deepEqual(await drawnSize(page, 1), size);
    assert.ok(await button.evaluate((element) => element === document.activeElement));
    assert.equal(await button.getAttribute('aria-pressed'), String(panel !== null));
  };
  await button.focus();
  for (const enter of [() => page.keyboard.press('Enter'), () => button.click()]) {
    await enter();
    await shows('right', [800, before[1]]);
    await enter();
    await shows(null, before);
  }
  assert.deepEqual(complaints, []);
  await close();
});

test('an animation is played in full screen too', async () => {
  const { page, complaints, close } = await browser.open(animatedPage());
  const player = page.getByRole('group', { name: 'Animation' });
  const inPanel = page.locator('.panel').getByRole('group', { name: 'Animation' });
  assert.equal(await inPanel.count(), 0);
  const button = page.getByRole('button', { name: 'Full screen' });
  await button.click();
  await inPanel.waitFor();
  await player.getByRole('button', { name: 'One frame forward' }).click();
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'm2');
  await button.click();
  await inPanel.waitFor({ state: 'detached' });
  await player.getByRole('button', { name: 'One frame forward' }).click();
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'm3');
  assert.deepEqual(complaints, []);
  await close();
});

test('a page draws in the size that its window has', async () => {
  const { page, close } = await browser.open(simplePage(example('surface.jvx')));
  const sizes = (): Promise<number[]> =>
    page.evaluate(() => {
      const { width, height } = window.plotPage!.all[0]!.plot.view.size;
      const canvas = document.querySelector<HTMLCanvasElement>('.stage canvas')!;
      return [width, height, canvas.width, canvas.height];
    });
  assert.deepEqual(await sizes(), [800, 600, 800, 600]);
  await page.setViewportSize({ width: 500, height: 700 });
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.view.size.width === 500);
  await browser.settle(page);
  assert.deepEqual(await sizes(), [500, 700, 500, 700]);
  await close();
});

/** Two scenes at places of a canvas that is higher than wide. */
const placedPage = (): string =>
  compose({
    page: {
      header: 'Above',
      aspect: 1.2,
      panels: [0, 0.5].map((left) => ({
        name: `from ${left}`,
        place: { left, top: 0, width: 0.5, height: 1 },
        frames: [{ model: 'm' }],
      })),
    },
    blocks: { m: example('surface.jvx') },
  });

test('a canvas is as large as the page has room for', async () => {
  const { page, close } = await browser.open(placedPage());
  const [content, width, height] = await page.evaluate(() => {
    const box = document.querySelector('.area')!.getBoundingClientRect();
    return [document.documentElement.scrollHeight, box.width, box.height];
  });
  assert.equal(content, 600);
  assert.ok(height! > 560 && Math.abs(width! / height! - 1.2) < 0.01, `${width} x ${height}`);
  await close();
});

test('buttons do not lie on the drawing where nothing hovers', async () => {
  const { page, close } = await browser.open(simplePage(example('surface.jvx')), {
    hasTouch: true,
    isMobile: true,
  });
  const tools = (await page.locator('.tools').boundingBox())!;
  const stage = (await page.locator('.stage').boundingBox())!;
  assert.ok(tools.y + tools.height <= stage.y, `${tools.y} ${tools.height} ${stage.y}`);
  assert.ok(stage.height > 500);
  await close();
});

test('a width of 320 pixels holds everything', async () => {
  for (const html of [twoScenesPage(), placedPage(), animatedPage(), functionPage()]) {
    const { page, close } = await browser.open(html, { viewport: { width: 320, height: 568 } });
    assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 320);
    const stages = page.locator('.stage');
    for (let i = 0; i < (await stages.count()); i++) {
      const box = await stages.nth(i).boundingBox();
      assert.ok(box && box.width > 250 && box.height > 100);
    }
    await close();
  }
});

/** Sizes and senses of a phone. */
const PHONE = {
  viewport: { width: 390, height: 844 },
  deviceScaleFactor: 3,
  isMobile: true,
  hasTouch: true,
};

const DISCS: readonly Disc[] = [
  { name: 'near', at: '-0.5 -0.75 0.25', color: [255, 0, 0] },
  { name: 'far', at: '1.5 1.25 -0.5', color: [0, 0, 255] },
];

test('on a phone fingers do everything, in all the pixels that it has', async () => {
  const html = simplePage(discs(3, DISCS));
  const { page, complaints, close } = await browser.open(html, PHONE);
  assert.equal(await page.evaluate(() => document.documentElement.scrollWidth), 390);
  assert.equal((await drawnSize(page, 0))[0], 3 * 390);
  for (const tool of await page.getByRole('button').all()) {
    const box = await tool.boundingBox();
    assert.ok(box && box.width >= 24 && box.height >= 24);
  }

  const apart = async (): Promise<number> => {
    const [one, other] = [await spot(page, DISCS[0]!.color), await spot(page, DISCS[1]!.color)];
    return Math.hypot(one.x - other.x, one.y - other.y);
  };
  const far = await apart();
  const touch = await touchOf(page);
  await touch('Start', [150, 400], [240, 400]);
  for (let i = 1; i <= 5; i++) await touch('Move', [150 - 6 * i, 400], [240 + 6 * i, 400]);
  await touch('End');
  await browser.settle(page);
  const zoomed = (await apart()) / far;
  assert.ok(Math.abs(zoomed - 150 / 90) < 0.25, `drawn ${zoomed} times as large`);

  const { x, y } = await spot(page, DISCS[0]!.color);
  await page.touchscreen.tap(x, y);
  const pinned = page.locator('.tip.pinned');
  assert.equal(await pinned.locator('strong').textContent(), 'near');
  const values = await pinned.locator('.value span:last-child').allTextContents();
  assert.deepEqual(values, DISCS[0]!.at.split(' '));
  await page.getByRole('button', { name: 'Unpin' }).tap();
  assert.ok(!(await pinned.isVisible()));

  await page.getByRole('button', { name: 'Objects' }).tap();
  await page.getByRole('checkbox', { name: 'far' }).tap();
  await browser.settle(page);
  assert.equal((await spot(page, DISCS[1]!.color)).count, 0);
  await page.getByRole('button', { name: 'Objects' }).tap();
  await page.touchscreen.tap(x, y);
  await page.touchscreen.tap(x, y);
  await browser.settle(page);
  await page.getByRole('button', { name: 'Unpin' }).tap();
  const stage = (await page.locator('.stage').boundingBox())!;
  const after = await spot(page, DISCS[0]!.color);
  const beside = [after.x - stage.x - stage.width / 2, after.y - stage.y - stage.height / 2];
  assert.ok(Math.hypot(...beside) < 2, `a double tap brings it to ${beside.join()} of the middle`);
  assert.deepEqual(complaints, []);
  await close();
});
