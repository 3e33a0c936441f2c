/** Hovering, pinning and centring, at the places where the picture has the points. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Locator, Page } from 'playwright-core';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { spot } from '../support/observe';
import { axes, display } from '../support/plots';
import { discs, type Disc } from '../support/spots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const tipOf = (page: Page): Locator => page.locator('.tip:not(.pinned)');
const pinnedOf = (page: Page): Locator => page.locator('.tip.pinned');
const valuesOf = (tip: Locator): Promise<string[]> =>
  tip.locator('.value span:last-child').allTextContents();

/** Lets the mouse go to each disc and away again, and compares what is said of it. */
async function hoverAll(page: Page, all: readonly Disc[]): Promise<void> {
  const tip = tipOf(page);
  for (const { name, at, color } of all) {
    const { x, y, count } = await spot(page, color);
    assert.ok(count > 50, `${name} is seen`);
    await page.mouse.move(x + 1, y + 1);
    assert.equal(await tip.locator('strong').textContent(), name);
    assert.deepEqual(await valuesOf(tip), at.split(' '));
    await page.mouse.move(20, 580);
    assert.ok(!(await tip.isVisible()), 'nothing is said where nothing is');
  }
}

const SPACE: readonly Disc[] = [
  { name: 'one', at: '1.5 20 0.001', color: [255, 0, 0] },
  { name: 'two', at: '7.25 900.125 -0.0005', color: [0, 160, 0] },
  { name: 'three', at: '9.1 5e-7 -0.00075', color: [0, 0, 255] },
];

/** The sides of its box are as 10 to 8 to 6. */
const spacePage = (): string =>
  simplePage(
    discs(3, SPACE),
    display(
      axes('bndbox', 3, [
        [0, 10],
        [0, 1000],
        [-0.001, 0.001],
      ]),
      '<boxRatio>1 0.008 3000</boxRatio>',
    ),
  );

test('in space hovering shows the coordinates of the file, from everywhere', async () => {
  const { page, close } = await browser.open(spacePage());
  await hoverAll(page, SPACE);
  await page.locator('.stage').focus();
  for (const key of ['ArrowLeft', 'ArrowLeft', 'ArrowUp', '-']) await page.keyboard.press(key);
  await browser.settle(page);
  await hoverAll(page, SPACE);
  await page.getByRole('button', { name: 'View', exact: true }).click();
  await page.getByRole('checkbox', { name: 'Parallel' }).check();
  await page.keyboard.press('Escape');
  await browser.settle(page);
  await hoverAll(page, SPACE);
  await close();
});

const PLANE: readonly Disc[] = [
  { name: 'low', at: '-2.5 1000', color: [255, 0, 0] },
  { name: 'middle', at: '0.125 500000.5', color: [0, 160, 0] },
  { name: 'high', at: '3 1000000', color: [0, 0, 255] },
];

const planePage = (): string =>
  simplePage(
    discs(2, PLANE),
    display(
      axes('bndbox', 2, [
        [-4, 4],
        [-200000, 1200000],
      ]),
      '<boxRatio>1 0.000005 1</boxRatio>',
    ),
  );

test('in the plane hovering shows the coordinates of the file', async () => {
  const { page, close } = await browser.open(planePage());
  await hoverAll(page, PLANE);
  await page.mouse.move(400, 300);
  await page.mouse.wheel(0, 80);
  await browser.settle(page);
  await hoverAll(page, PLANE);
  await close();
});

const LOGARITHMIC: readonly Disc[] = [
  { name: 'first', at: '0.02 50000', color: [255, 0, 0] },
  { name: 'second', at: '3.5 0.007', color: [0, 160, 0] },
  { name: 'third', at: '800 12', color: [0, 0, 255] },
];

test('at logarithmic axes hovering shows the coordinates of the file', async () => {
  const html = simplePage(
    discs(2, LOGARITHMIC),
    display(
      axes('bndbox', 2, [
        [0.01, 1000],
        [0.001, 100000],
      ]),
    ),
    { axes: { x: { logarithmic: true }, y: { logarithmic: true } } },
  );
  const { page, close } = await browser.open(html);
  await hoverAll(page, LOGARITHMIC);
  await close();
});

test('what is hidden is not pointed at', async () => {
  const { page, close } = await browser.open(spacePage());
  const { x, y } = await spot(page, SPACE[0]!.color);
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('checkbox', { name: 'one' }).uncheck();
  await page.keyboard.press('Escape');
  await page.mouse.move(x, y);
  assert.ok(!(await tipOf(page).isVisible()));
  await close();
});

test('a click pins coordinates, which stay at their point until they are let go', async () => {
  const { page, close } = await browser.open(spacePage());
  const pinned = pinnedOf(page);
  const disc = SPACE[1]!;
  const { x, y } = await spot(page, disc.color);
  await page.mouse.click(x, y);
  const unpin = page.getByRole('button', { name: 'Unpin' });
  const stays = async (): Promise<void> => {
    assert.equal(await pinned.locator('strong').textContent(), disc.name);
    assert.deepEqual(await valuesOf(pinned), disc.at.split(' '));
    const box = (await pinned.boundingBox())!;
    const at = await spot(page, disc.color);
    const [right, up] = [Math.abs(box.x - at.x), Math.abs(box.y + box.height - at.y)];
    assert.ok(right < 20 && up < 20, `${right} and ${up} pixels beside its point`);
  };
  await page.mouse.move(20, 580);
  await stays();
  await page.keyboard.press('ArrowRight');
  await page.keyboard.press('ArrowRight');
  await browser.settle(page);
  assert.ok(Math.abs((await spot(page, disc.color)).x - x) > 40, 'the point has moved');
  await stays();

  await unpin.click();
  assert.ok(!(await pinned.isVisible()));
  const pin = async (): Promise<void> => {
    const at = await spot(page, disc.color);
    await page.mouse.click(at.x, at.y);
    assert.ok(await pinned.isVisible());
  };
  await pin();
  await page.keyboard.press('Escape');
  assert.ok(!(await pinned.isVisible()));
  await pin();
  await page.mouse.click(20, 580);
  assert.ok(!(await pinned.isVisible()));
  await close();
});

for (const [where, makePage, all] of [
  ['space', spacePage, SPACE],
  ['the plane', planePage, PLANE],
] as const) {
  test(`in ${where} a double click brings a point to the middle`, async () => {
    const { page, close } = await browser.open(makePage());
    const { color } = all[0]!;
    const { x, y } = await spot(page, color);
    assert.ok(Math.hypot(x - 400, y - 300) > 100, 'it is not there before');
    await page.mouse.dblclick(x, y);
    await page.mouse.move(20, 580);
    await page.keyboard.press('Escape');
    await browser.settle(page);
    const after = await spot(page, color);
    assert.ok(Math.hypot(after.x - 400, after.y - 300) < 2, `it is at ${after.x} ${after.y}`);
    await close();
  });
}
