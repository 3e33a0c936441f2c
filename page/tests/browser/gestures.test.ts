/** Movements of the view by mouse, fingers and keys. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { functionPage } from '../support/demos';
import { example } from '../support/examples';
import { spot, touchOf, viewOf, type SeenFrom } from '../support/observe';
import { axes, display } from '../support/plots';
import { discs, type Disc } from '../support/spots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const surface = (): string => simplePage(example('surface.jvx'), example('lights_automatic.jvd'));

const isNear = (a: number, b: number, by = 1e-9): boolean => Math.abs(a - b) <= by * Math.abs(b);

const angleBetween = (a: number[], b: number[]): number =>
  Math.acos(
    Math.min(
      1,
      a.reduce((sum, part, i) => sum + part * b[i]!, 0),
    ),
  );

test('the mouse turns, with Shift moves, the wheel zooms, and a button resets', async () => {
  const { page, close } = await browser.open(surface());
  const home = await viewOf(page);
  await page.mouse.move(400, 300);
  await page.mouse.down();
  await page.mouse.move(460, 330, { steps: 4 });
  await page.mouse.up();
  const turned = await viewOf(page);
  assert.notDeepEqual(turned.toEye, home.toEye);
  assert.deepEqual(turned.target, home.target);
  await page.keyboard.down('Shift');
  await page.mouse.down();
  await page.mouse.move(500, 340, { steps: 4 });
  await page.mouse.up();
  await page.keyboard.up('Shift');
  assert.notDeepEqual((await viewOf(page)).target, turned.target);
  await page.mouse.wheel(0, -240);
  await page.waitForFunction(
    (span) => window.plotPage!.all[0]!.plot.view.state.span < span,
    home.span,
  );
  await page.getByRole('button', { name: 'Reset the view' }).click();
  const reset = await viewOf(page);
  reset.toEye.forEach((value, i) => assert.ok(Math.abs(value - home.toEye[i]!) < 1e-9));
  assert.ok(Math.abs(reset.span - home.span) < 1e-6 * home.span);
  await close();
});

test('two fingers zoom and one turns', async () => {
  const { page, close } = await browser.open(surface(), { hasTouch: true });
  const home = await viewOf(page);
  const touch = await touchOf(page);
  await touch('Start', [350, 300], [450, 300]);
  for (let i = 1; i <= 5; i++) await touch('Move', [350 - i * 10, 300], [450 + i * 10, 300]);
  await touch('End');
  const pinched = await viewOf(page);
  assert.ok(isNear(home.span / pinched.span, 2, 0.025), `zoomed by ${home.span / pinched.span}`);
  await touch('Start', [400, 300]);
  for (let i = 1; i <= 5; i++) await touch('Move', [400 + i * 10, 300]);
  await touch('End');
  const turned = await viewOf(page);
  assert.notDeepEqual(turned.toEye, pinched.toEye);
  assert.equal(turned.span, pinched.span);
  await close();
});

const STEP = Math.PI / 24;

/** How far the eye went round the vertical, seen from above against the clock. */
const roundBy = ({ toEye: [x, y] }: SeenFrom, { toEye: [u, v] }: SeenFrom): number =>
  Math.atan2(u! * y! - v! * x!, u! * x! + v! * y!);

const upBy = ({ toEye }: SeenFrom, before: SeenFrom): number =>
  Math.asin(toEye[2]!) - Math.asin(before.toEye[2]!);

/** How far the eye turned round the line of sight, against the clock as the scene sees it. */
function rollBy({ up }: SeenFrom, { up: from, toEye }: SeenFrom): number {
  const across = [0, 1, 2].map((i) => {
    const [j, k] = [(i + 1) % 3, (i + 2) % 3];
    return toEye[j]! * from[k]! - toEye[k]! * from[j]!;
  });
  const along = (direction: number[]): number =>
    up.reduce((sum, part, i) => sum + part * direction[i]!, 0);
  return Math.atan2(along(across), along(from));
}

const turnsBy =
  (round: number, up: number) =>
  (now: SeenFrom, before: SeenFrom): boolean =>
    Math.abs(roundBy(now, before) - round) < 1e-6 && Math.abs(upBy(now, before) - up) < 1e-6;

/** What each key does to the view; a step of the arrow keys is a 48th of the way round. */
const KEYS: Record<string, (now: SeenFrom, before: SeenFrom) => boolean> = {
  ArrowLeft: turnsBy(STEP, 0),
  ArrowRight: turnsBy(-STEP, 0),
  ArrowUp: turnsBy(0, STEP),
  ArrowDown: turnsBy(0, -STEP),
  '+': ({ span }, before) => isNear(span, before.span / 1.2),
  '=': ({ span }, before) => isNear(span, before.span / 1.2),
  '-': ({ span }, before) => isNear(span, before.span * 1.2),
  _: ({ span }, before) => isNear(span, before.span * 1.2),
  '<': (now, before) => isNear(rollBy(now, before), STEP, 1e-6),
  '>': (now, before) => isNear(rollBy(now, before), -STEP, 1e-6),
  x: ({ toEye }) => toEye[0]! > 0.999,
  y: ({ toEye }) => toEye[1]! > 0.999,
  z: ({ toEye }) => toEye[2]! > 0.999,
  'Shift+X': ({ toEye }) => toEye[0]! < -0.999,
  'Shift+Y': ({ toEye }) => toEye[1]! < -0.999,
  'Shift+Z': ({ toEye }) => toEye[2]! < -0.999,
};

/** Keys that undo each other. */
const OPPOSITES = ['ArrowLeft ArrowRight', 'ArrowUp ArrowDown', '+ -', '= _', '< >'];

test('keys turn, roll, zoom, look along the axes and reset', async () => {
  const { page, complaints, close } = await browser.open(surface());
  const home = await viewOf(page);
  const isHome = (view: SeenFrom): boolean =>
    isNear(view.span, home.span, 1e-6) && angleBetween(view.toEye, home.toEye) < 1e-6;
  await page.keyboard.press('Tab');
  for (const [key, check] of Object.entries(KEYS)) {
    await page.keyboard.press(key);
    const view = await viewOf(page);
    assert.ok(check(view, home), `${key} does what it should`);
    await page.keyboard.press(key === 'x' ? '0' : 'Home');
    assert.ok(isHome(await viewOf(page)), `the view is reset after ${key}`);
  }
  for (const keys of OPPOSITES) {
    for (const key of keys.split(' ')) await page.keyboard.press(key);
    assert.ok(isHome(await viewOf(page)), `${keys} undo each other`);
  }
  await page.keyboard.press('Control+z');
  assert.ok(isHome(await viewOf(page)), 'keys of the browser stay its own');
  assert.deepEqual(complaints, []);
  await close();
});

/** The ends of two edges of equal length, one of which is near. */
const EDGES: readonly Disc[] = [
  { name: 'near left', at: '0 0 0.7', color: [255, 0, 0] },
  { name: 'near right', at: '1 0 0.7', color: [0, 160, 0] },
  { name: 'far left', at: '0 1 0', color: [0, 0, 255] },
  { name: 'far right', at: '1 1 0', color: [160, 0, 160] },
];

const edgesPage = (): string => {
  const unit = [0, 1] as const;
  return simplePage(discs(3, EDGES), display(axes('bndbox', 3, [unit, unit, unit])));
};

test('Shift and an arrow move the scene by forty pixels, also in the plane', async () => {
  const disc = EDGES[0]!;
  const wide = [-1, 2] as const;
  const flat = simplePage(discs(2, [disc]), display(axes('bndbox', 2, [wide, wide])));
  for (const [html, shift] of [
    [edgesPage(), 'Shift+'],
    [flat, ''],
  ] as const) {
    const { page, close } = await browser.open(html);
    if (shift !== '') {
      await page.getByRole('button', { name: 'View', exact: true }).click();
      await page.getByRole('checkbox', { name: 'Parallel' }).check();
      await page.keyboard.press('Escape');
    }
    await page.locator('.stage').focus();
    for (const [key, right, down] of [
      ['ArrowRight', -40, 0],
      ['ArrowUp', 0, 40],
      ['ArrowLeft', 40, 0],
      ['ArrowDown', 0, -40],
    ] as const) {
      const before = await spot(page, disc.color);
      await page.keyboard.press(shift + key);
      await browser.settle(page);
      const after = await spot(page, disc.color);
      const moved = [after.x - before.x, after.y - before.y] as const;
      const beside = Math.hypot(moved[0] - right, moved[1] - down);
      assert.ok(beside < 1.5, `${key} moves it by ${moved.join()}`);
    }
    await close();
  }
});

test('the view is parallel or in perspective', async () => {
  const { page, close } = await browser.open(edgesPage());
  const length = async (from: Disc, to: Disc): Promise<number> => {
    const [a, b] = [await spot(page, from.color), await spot(page, to.color)];
    return Math.hypot(a.x - b.x, a.y - b.y);
  };
  /** The length of the edge that is far, in parts of that which is near. */
  const farther = async (): Promise<number> => {
    await browser.settle(page);
    return (await length(EDGES[2]!, EDGES[3]!)) / (await length(EDGES[0]!, EDGES[1]!));
  };
  const menu = page.getByRole('button', { name: 'View', exact: true });
  const box = page.getByRole('checkbox', { name: 'Parallel' });
  const set = async (parallel: boolean): Promise<void> => {
    await menu.click();
    assert.equal(await box.isChecked(), !parallel);
    await box.setChecked(parallel);
    await page.keyboard.press('Escape');
  };
  await page.locator('.stage').focus();
  await page.keyboard.press('Shift+Y');
  const perspective = await farther();
  assert.ok(perspective < 0.97, `the edge is ${perspective} times as long`);
  await set(true);
  assert.ok(isNear(await farther(), 1, 0.01));
  await set(false);
  assert.ok(isNear(await farther(), perspective, 0.01), 'perspective is as it was');
  await set(true);
  await page.getByRole('button', { name: 'Reset the view' }).click();
  await menu.click();
  assert.ok(!(await box.isChecked()), 'the view of the plot is in perspective');
  await close();
});

test('from the end of an axis everything is seen, with all numbers', async () => {
  const { page, close } = await browser.open(surface());
  await page.mouse.wheel(0, -400);
  await page.getByRole('button', { name: 'View', exact: true }).click();
  for (const [axis, name] of ['x', 'y', 'z'].entries()) {
    for (const sign of [1, -1]) {
      await page.getByRole('button', { name: `From ${sign > 0 ? '+' : '\u2212'}${name}` }).click();
      await browser.settle(page);
      assert.ok(Math.abs((await viewOf(page)).toEye[axis]! - sign) < 1e-6);
      const outside = await page.evaluate(() => {
        const { rectangles, view } = window.plotPage!.all[0]!.plot;
        const { width, height } = view.size;
        return rectangles.filter(
          (some) =>
            some.left < 0 ||
            some.bottom < 0 ||
            some.left + some.width > width ||
            some.bottom + some.height > height,
        ).length;
      });
      assert.equal(outside, 0, `from ${sign} ${name}`);
    }
  }
  await close();
});

test('a wheel zooms by as much with Ctrl as without', async () => {
  const { page, close } = await browser.open(surface());
  const { span } = await viewOf(page);
  await page.mouse.move(400, 300);
  await page.keyboard.down('Control');
  await page.mouse.wheel(0, -120);
  await page.keyboard.up('Control');
  await page.waitForFunction((from) => window.plotPage!.all[0]!.plot.view.state.span < from, span);
  // A notch is three lines, each of which brings the scene nearer by six parts in a hundred.
  const zoom = span / (await viewOf(page)).span;
  assert.ok(isNear(zoom, 1.06 ** 3, 1e-6), `zoomed by ${zoom}`);
  await close();
});

test('two fingers on a touchpad zoom as a wheel does', async () => {
  const { page, close } = await browser.open(surface());
  const before = (await viewOf(page)).span;
  await page.mouse.move(400, 300);
  await page.keyboard.down('Control');
  for (let i = 0; i < 10; i++) await page.mouse.wheel(0, -5);
  await page.keyboard.up('Control');
  await page.waitForTimeout(300);
  const zoom = before / (await viewOf(page)).span;
  assert.ok(zoom > 1.5 && zoom < 3, `zoomed by ${zoom}`);
  await close();
});

test('in two dimensions the zoom is kept when the size changes', async () => {
  const { page, close } = await browser.open(functionPage());
  const seen = (): Promise<number[]> =>
    page.evaluate(() => {
      const { view, space } = window.plotPage!.all[0]!.plot;
      return [0, 1].map((x) => view.toPixels(...space.point(x, 0, 0))[0] - view.size.width / 2);
    });
  const unit = ([a, b]: number[]): number => b! - a!;
  const home = await seen();
  await page.mouse.move(400, 300);
  await page.mouse.wheel(0, -600);
  await page.waitForTimeout(400);
  const zoomed = await seen();
  const zoom = unit(zoomed) / unit(home);
  assert.ok(zoom > 2, `zoomed by ${zoom}`);
  await page.setViewportSize({ width: 640, height: 600 });
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.view.size.width === 640);
  const resized = await seen();
  await page.getByRole('button', { name: 'Reset the view' }).click();
  const smaller = await seen();
  assert.ok(Math.abs(unit(resized) / unit(smaller) - zoom) < 0.05 * zoom);
  await close();
});
