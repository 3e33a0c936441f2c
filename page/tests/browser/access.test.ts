/** A page for those who use no mouse, do not see the drawing, or see it small or in the dark. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import axe from 'axe-core';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { animatedPage, functionPage, twoScenesPage } from '../support/demos';
import { example } from '../support/examples';
import { axes, display } from '../support/plots';
import { discs, type Disc } from '../support/spots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const surface = (): string => simplePage(example('surface.jvx'), example('lights_automatic.jvd'));

/** What fades in has too little contrast until it is there. */
const STILL = { reducedMotion: 'reduce' } as const;

/** What the checker of accessibility finds. */
async function violations(page: Page): Promise<string[]> {
  return page.evaluate(async (source) => {
    (0, eval)(source);
    const { axe: checker } = window as unknown as { axe: typeof axe };
    const found = (await checker.run()).violations;
    return found.map(({ id, nodes }) => `${id}: ${nodes[0]?.html}`);
  }, axe.source);
}

test('nothing is found by the checker of accessibility, in light, in dark, or at 320 pixels', async () => {
  for (const html of [
    surface(),
    animatedPage(),
    twoScenesPage(),
    functionPage(),
    compose({ page: { title: 'Viewer' }, blocks: {} }),
  ]) {
    const { page, close } = await browser.open(html, STILL);
    const client = await page.context().newCDPSession(page);
    await client.send('Page.setBypassCSP', { enabled: true });
    const menus = await page.getByRole('toolbar').first().locator('[aria-expanded]').all();
    const look = async (where: string): Promise<void> =>
      assert.deepEqual(await violations(page), [], where);
    await look('light');
    await page.emulateMedia({ colorScheme: 'dark' });
    await look('dark');
    await page.setViewportSize({ width: 320, height: 568 });
    await look('dark and narrow');
    await page.emulateMedia({ colorScheme: 'light' });
    await menus[menus.length - 2]?.click();
    await look('narrow, with the objects');
    await close();
  }
});

test('the checker finds nothing in open menus and beside a pinned point', async () => {
  const { page, close } = await browser.open(surface(), STILL);
  const client = await page.context().newCDPSession(page);
  await client.send('Page.setBypassCSP', { enabled: true });
  for (const name of ['View', 'Show', 'Save']) {
    await page.getByRole('button', { name, exact: true }).click();
    assert.deepEqual(await violations(page), [], name);
  }
  await page.keyboard.press('Escape');
  await page.locator('.stage').focus();
  await page.keyboard.press('Enter');
  assert.ok(await page.locator('.tip.pinned').isVisible());
  assert.deepEqual(await violations(page), []);
  await close();
});

const DISCS: readonly Disc[] = [
  { name: 'one', at: '1 20 0.5', color: [255, 0, 0] },
  { name: 'two', at: '7 90.125 -0.5', color: [0, 160, 0] },
  { name: 'three', at: '9 50 -0.25', color: [0, 0, 255] },
];

const discsPage = (): string =>
  simplePage(
    discs(3, DISCS),
    display(
      axes('bndbox', 3, [
        [0, 10],
        [0, 100],
        [-1, 1],
      ]),
      '<boxRatio>1 0.1 5</boxRatio>',
    ),
    { name: 'three points', axes: { x: { title: 'time' } } },
  );

test('the drawing has a text that tells what it shows, where, and which keys there are', async () => {
  const { page, close } = await browser.open(discsPage());
  const client = await page.context().newCDPSession(page);
  /** What the browser hands to screen readers. */
  const said = async (): Promise<(string | undefined)[]> => {
    const { root } = await client.send('DOM.getDocument');
    const { nodeId } = await client.send('DOM.querySelector', {
      nodeId: root.nodeId,
      selector: '.stage',
    });
    const { nodes } = await client.send('Accessibility.getPartialAXTree', {
      nodeId,
      fetchRelatives: false,
    });
    const [stage] = nodes;
    return [stage?.name?.value as string, stage?.description?.value as string];
  };
  const begin =
    'A plot of three dimensions, x (time) from 0 to 10, y from 0 to 100, z from -1 to 1. It has 3 points.';
  const keys =
    'Arrow keys turn it, with Shift they move it, x, y and z look along an axis, ' +
    'plus and minus zoom, Home resets the view, Enter pins the point nearest to the middle.';
  assert.deepEqual(await said(), ['three points', `${begin} It shows one, two, three. ${keys}`]);
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('checkbox', { name: 'two' }).uncheck();
  assert.deepEqual(await said(), ['three points', `${begin} It shows one, three. ${keys}`]);
  await close();
});

test('Enter pins the point that is nearest to the middle', async () => {
  const { page, close } = await browser.open(discsPage());
  await page.locator('.stage').focus();
  const pinned = page.getByRole('status').filter({ hasText: 'x' });
  await page.keyboard.press('Enter');
  const places = await page.evaluate(() => {
    const { plot } = window.plotPage!.all[0]!;
    return [0, 1, 2].map((geometry) => {
      const [x, y] = plot.view.toPixels(...plot.space.point(...plot.coordinates(geometry, 0)));
      return Math.hypot(x - 400, y - 300);
    });
  });
  const nearest = DISCS[places.indexOf(Math.min(...places))]!;
  assert.equal(await pinned.locator('strong').textContent(), nearest.name);
  await page.keyboard.press('Escape');
  assert.ok(!(await pinned.isVisible()));
  await close();
});

/** What has the focus: its name, and whether a line round it shows that. */
const focused = (page: Page): Promise<[string, boolean]> =>
  page.evaluate(() => {
    const element = document.activeElement as HTMLElement;
    const { outlineStyle, outlineWidth } = getComputedStyle(element);
    const name = element.getAttribute('aria-label') ?? element.parentElement?.textContent ?? '';
    return [name, outlineStyle === 'solid' && parseFloat(outlineWidth) >= 2];
  });

test('everything can be done with the keyboard alone, and the focus is seen', async () => {
  const { page, complaints, close } = await browser.open(animatedPage());
  const tools = ['Reset the view', 'View', 'Show', 'Objects', 'Save', 'Full screen'];
  const player = ['One frame back', 'Play', 'One frame forward', 'Time', 'Speed', 'Repetition'];
  for (const name of ['moving', ...tools, ...player]) {
    await page.keyboard.press('Tab');
    assert.deepEqual(await focused(page), [name, true]);
  }
  await page.keyboard.press('Shift+Tab');
  await page.keyboard.press('ArrowDown');
  const speed = page.getByRole('combobox', { name: 'Speed' });
  assert.equal(await speed.inputValue(), '2');
  await page.keyboard.press('Shift+Tab');
  await page.keyboard.press('ArrowRight');
  await page.keyboard.press('ArrowRight');
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'm3');

  const back = async (name: string): Promise<void> => {
    for (let i = 0; i < 20 && (await focused(page))[0] !== name; i++) {
      await page.keyboard.press('Shift+Tab');
    }
    assert.equal((await focused(page))[0], name);
  };
  await back('Objects');
  await page.keyboard.press('Enter');
  await page.keyboard.press('Tab');
  assert.deepEqual(await focused(page), ['Object 1', true]);
  await page.keyboard.press(' ');
  assert.deepEqual(await page.evaluate(() => [...window.plotPage!.all[0]!.plot.hidden]), [0]);
  await page.keyboard.press('Escape');
  assert.ok(!(await page.getByRole('group', { name: 'Objects' }).isVisible()));
  assert.deepEqual(await focused(page), ['Objects', true], 'the focus returns to its button');

  await page.keyboard.press('Tab');
  await page.keyboard.press('Enter');
  await page.keyboard.press('Shift+Tab');
  await page.keyboard.press('Tab');
  assert.ok(!(await page.getByRole('group', { name: 'Save' }).isVisible()), 'a menu that is left');
  await page.keyboard.press('Enter');
  for (let i = 0; i < 7; i++) await page.keyboard.press('Tab');
  const [download] = await Promise.all([
    page.waitForEvent('download'),
    page.keyboard.press('Enter'),
  ]);
  assert.equal(download.suggestedFilename(), 'moving.jvx');
  assert.deepEqual(complaints, []);
  await close();
});
