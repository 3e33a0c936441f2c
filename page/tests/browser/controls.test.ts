import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import axe from 'axe-core';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { PNG } from 'pngjs';
import { TestBrowser, type Draw } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { animatedPage, functionPage, twoScenesPage } from '../support/demos';
import { example } from '../support/examples';
import { axes, curve, display, model, sheet } from '../support/plots';

declare global {
  interface Window {
    drawn?: Draw[];
  }
}

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const surface = (): string => simplePage(example('surface.jvx'), example('lights_automatic.jvd'));

/** Parts of the view that a movement changes. */
const viewOf = (page: Page): Promise<{ toEye: number[]; target: number[]; span: number }> =>
  page.evaluate(() => {
    const { toEye, target, span } = window.plotPage!.all[0]!.plot.view.state;
    return { toEye: [...toEye], target: [...target], span };
  });

/** Where a point of the file is on the screen. */
const placeOf = (page: Page, geometry: number, point: number): Promise<[number, number]> =>
  page.evaluate(
    ([g, p]) => {
      const panel = window.plotPage!.all[0]!;
      const { plot } = panel;
      const hit = {
        geometry: g!,
        point: p!,
        object: 0,
        at: [0, 0],
        coordinates: [0, 0, 0],
      } as const;
      const [x, y] = plot.view.toPixels(...plot.placeOf(hit));
      const box = document.querySelector('.stage')!.getBoundingClientRect();
      return [box.left + x, box.bottom - y] as [number, number];
    },
    [geometry, point],
  );

const pixels = async (page: Page): Promise<PNG> => PNG.sync.read(await page.screenshot());

const differing = (a: PNG, b: PNG): number => {
  let count = 0;
  for (let i = 0; i < a.data.length; i += 4) {
    if (a.data[i] !== b.data[i] || a.data[i + 1] !== b.data[i + 1]) count++;
  }
  return count;
};

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
  const client = await page.context().newCDPSession(page);
  const touch = (type: string, points: { x: number; y: number }[]): Promise<unknown> =>
    client.send('Input.dispatchTouchEvent', {
      type: type as 'touchStart',
      touchPoints: points.map((point, id) => ({ ...point, id })),
    });
  await touch('touchStart', [
    { x: 350, y: 300 },
    { x: 450, y: 300 },
  ]);
  for (let i = 1; i <= 5; i++) {
    await touch('touchMove', [
      { x: 350 - i * 10, y: 300 },
      { x: 450 + i * 10, y: 300 },
    ]);
  }
  await touch('touchEnd', []);
  const pinched = await viewOf(page);
  assert.ok(Math.abs(home.span / pinched.span - 2) < 0.05, `zoomed by ${home.span / pinched.span}`);
  await touch('touchStart', [{ x: 400, y: 300 }]);
  for (let i = 1; i <= 5; i++) await touch('touchMove', [{ x: 400 + i * 10, y: 300 }]);
  await touch('touchEnd', []);
  assert.notDeepEqual((await viewOf(page)).toEye, pinched.toEye);
  await close();
});

test('everything can be done with the keyboard alone', async () => {
  const { page, close } = await browser.open(surface());
  const home = await viewOf(page);
  await page.keyboard.press('Tab');
  assert.equal(await page.evaluate(() => document.activeElement?.className), 'stage');
  await page.keyboard.press('ArrowRight');
  assert.notDeepEqual((await viewOf(page)).toEye, home.toEye);
  await page.keyboard.press('+');
  assert.ok((await viewOf(page)).span < home.span);
  await page.keyboard.press('z');
  assert.ok((await viewOf(page)).toEye[2]! > 0.999);
  await page.keyboard.press('Shift+X');
  assert.ok((await viewOf(page)).toEye[0]! < -0.999);
  await page.keyboard.press('Home');
  assert.ok(Math.abs((await viewOf(page)).span - home.span) < 1e-6 * home.span);
  for (let i = 0; i < 4; i++) await page.keyboard.press('Tab');
  await page.keyboard.press('Enter');
  const list = page.getByRole('group', { name: 'Objects' });
  assert.ok(await list.isVisible());
  await page.keyboard.press('Escape');
  assert.ok(!(await list.isVisible()));
  await close();
});

test('hovering shows the coordinates of the file, a click pins them', async () => {
  const { page, close } = await browser.open(functionPage());
  const [x, y] = await placeOf(page, 6, 0);
  const expected = await page.evaluate(() =>
    [...window.plotPage!.all[0]!.plot.coordinates(6, 0)].slice(0, 2),
  );
  await page.mouse.move(x + 1, y + 1);
  const tip = page.locator('.tip:not(.pinned)');
  await tip.waitFor();
  const texts = await tip.locator('.value span:last-child').allTextContents();
  assert.deepEqual(texts, expected.map(String));
  assert.equal(await tip.locator('strong').textContent(), 'rest');
  await page.mouse.click(x, y);
  await page.mouse.move(x + 200, y - 120);
  const pinned = page.locator('.tip.pinned');
  assert.deepEqual(
    await pinned.locator('.value span:last-child').allTextContents(),
    expected.map(String),
  );
  await page.getByRole('button', { name: 'Unpin' }).click();
  assert.ok(!(await pinned.isVisible()));
  await close();
});

test('a double click brings a point to the middle', async () => {
  const { page, close } = await browser.open(simplePage(example('surface.jvx')));
  // The point that is nearest to the viewer, so that nothing lies before it.
  const nearest = await page.evaluate(() => {
    const { plot } = window.plotPage!.all[0]!;
    const { toEye } = plot.view.state;
    const nearness = (point: number): number => {
      const [x, y, z] = plot.space.point(...plot.coordinates(0, point));
      return x * toEye.x + y * toEye.y + z * toEye.z;
    };
    const count = plot.scene.places.ends[0]! / 3;
    const points = Array.from({ length: count }, (_, point) => point);
    return points.reduce((best, point) => (nearness(point) > nearness(best) ? point : best));
  });
  const [x, y] = await placeOf(page, 0, nearest);
  await page.mouse.dblclick(x, y);
  await browser.settle(page);
  const [target, expected] = await page.evaluate((point) => {
    const { plot } = window.plotPage!.all[0]!;
    return [[...plot.view.state.target], plot.space.point(...plot.coordinates(0, point))];
  }, nearest);
  assert.deepEqual(target, expected);
  assert.ok(Math.hypot(...target!) > 0.1, 'it was not there before');
  await close();
});

test('objects are hidden, shown alone, and shown again', async () => {
  const { page, close } = await browser.open(functionPage());
  const hidden = (): Promise<number[]> =>
    page.evaluate(() => [...window.plotPage!.all[0]!.plot.hidden].sort());
  await page.getByRole('button', { name: 'Objects' }).click();
  const before = await pixels(page);
  await page.getByRole('checkbox', { name: 'tangent' }).uncheck();
  await browser.settle(page);
  assert.deepEqual(await hidden(), [0]);
  assert.ok(differing(before, await pixels(page)) > 300, 'the curve is gone');
  await page.getByRole('button', { name: 'Show only area' }).click();
  assert.deepEqual(await hidden(), [0, 2]);
  await page.getByRole('button', { name: 'Show all' }).click();
  assert.deepEqual(await hidden(), []);
  await close();
});

test('axes, box and labels are switched', async () => {
  const named =
    '<geometry><pointSet dim="3"><points><p name="here">0 0 0</p><p>1 1 1</p>' +
    '<labelAtt visible="show"/></points></pointSet></geometry>';
  const range = [0, 1] as const;
  const { page, close } = await browser.open(
    simplePage(model(named), display(axes('bndbox', 3, [range, range, range]))),
  );
  const drawn = (): Promise<{ rulers: number; lines: number; names: number }> =>
    page.evaluate(() => {
      const { labels, rulerLines, placed } = window.plotPage!.all[0]!.plot;
      return { rulers: labels.length, lines: rulerLines!.count, names: placed.labels.length };
    });
  const uncheck = async (name: string): Promise<void> => {
    await page.getByRole('checkbox', { name }).uncheck();
    await browser.settle(page);
  };
  const all = await drawn();
  assert.ok(all.rulers > 5 && all.lines > 12 && all.names === 1);
  await page.getByRole('button', { name: 'Show', exact: true }).click();
  await uncheck('Labels');
  assert.deepEqual(await drawn(), { ...all, names: 0 });
  await uncheck('Axes');
  assert.deepEqual(await drawn(), { rulers: 0, lines: 12, names: 0 });
  await uncheck('Box');
  assert.deepEqual(await drawn(), { rulers: 0, lines: 0, names: 0 });
  await close();
});

test('the view is parallel or in perspective', async () => {
  const { page, close } = await browser.open(surface());
  const field = (): Promise<number> =>
    page.evaluate(() => window.plotPage!.all[0]!.plot.view.state.field);
  assert.ok((await field()) > 0);
  await page.getByRole('button', { name: 'View', exact: true }).click();
  const parallel = page.getByRole('checkbox', { name: 'Parallel' });
  await parallel.check();
  assert.equal(await field(), 0);
  await page.getByRole('button', { name: 'Reset the view' }).click();
  await browser.settle(page);
  assert.ok((await field()) > 0);
  await page.getByRole('button', { name: 'View', exact: true }).click();
  assert.equal(await parallel.isChecked(), false);
  await close();
});

test('two fingers on a pad zoom as a wheel does', async () => {
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

test('in two dimensions the ticks follow the zoom', async () => {
  const { page, close } = await browser.open(functionPage());
  const texts = (): Promise<string[]> =>
    page.evaluate(() => window.plotPage!.all[0]!.plot.labels.map(({ text }) => text));
  const before = await texts();
  await page.mouse.move(400, 300);
  for (let i = 0; i < 4; i++) await page.mouse.wheel(0, -800);
  await page.waitForTimeout(400);
  const after = await texts();
  assert.notDeepEqual(after, before);
  assert.ok(after.length >= 3, after.join());
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

test('a title beside a ruler leaves its numbers alone', async () => {
  const html = simplePage(
    model(
      curve([
        [0, -0.2],
        [4, 2.2],
      ]),
    ),
    display(
      axes('frame', 2, [
        [0, 4],
        [-0.2, 2.2],
      ]),
    ),
    { axes: { kind: 'frame', y: { title: 'sin x' } } },
  );
  const { page, close } = await browser.open(html, { viewport: { width: 300, height: 200 } });
  const texts = await page.evaluate(() =>
    window.plotPage!.all[0]!.plot.labels.map(({ text }) => text),
  );
  for (const text of ['sin x', '0', '1', '2']) assert.ok(texts.includes(text), texts.join());
  await close();
});

test('an animation is stepped, sought and played; keys do the same', async () => {
  const { page, complaints, close } = await browser.open(animatedPage());
  const slider = page.getByRole('slider', { name: 'Time' });
  const shown = async (frame: number): Promise<void> => {
    await page.waitForFunction(
      (name) => window.plotPage!.all[0]!.plot.name === name,
      `m${frame + 1}`,
    );
  };
  await shown(0);
  await page.getByRole('button', { name: 'One frame forth' }).click();
  await shown(1);
  await slider.fill('4');
  await shown(4);
  await page.locator('.stage').focus();
  await page.keyboard.press('PageUp');
  await shown(3);
  await page.keyboard.press(' ');
  assert.ok(await page.getByRole('button', { name: 'Pause' }).isVisible());
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name !== 'm4');
  await page.keyboard.press(' ');
  assert.ok(await page.getByRole('button', { name: 'Play' }).isVisible());
  assert.deepEqual(complaints, []);
  await close();
});

test('a page draws in the size that its window has', async () => {
  const { page, close } = await browser.open(surface());
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

/** An animation that differs in its displays. */
const changingDisplays = (...displays: string[]): string =>
  compose({
    page: {
      animation: { times: displays.map((_, i) => i) },
      panels: [{ frames: displays.map((_, i) => ({ model: `m${i}`, display: `d${i}` })) }],
    },
    blocks: Object.fromEntries(
      displays.flatMap((name, i) => [
        [`m${i}`, example('surface.jvx')],
        [`d${i}`, example(name)],
      ]),
    ),
  });

test('the view follows the camera of an animation until the reader moves it', async () => {
  const { page, close } = await browser.open(
    changingDisplays('camera_animated.jvd', 'camera_animated@2.5.jvd', 'camera_animated@9.jvd'),
  );
  const direction = async (): Promise<number[]> =>
    (await viewOf(page)).toEye.map((part) => Math.round(part) + 0);
  const forth = async (frame: number): Promise<void> => {
    await page.getByRole('slider', { name: 'Time' }).fill(String(frame));
    await page.waitForFunction((name) => window.plotPage!.all[0]!.plot.name === name, `m${frame}`);
  };
  assert.deepEqual(await direction(), [1, 0, 0]);
  await forth(1);
  assert.deepEqual(await direction(), [0, 1, 0]);
  await page.locator('.stage').focus();
  await page.keyboard.press('z');
  await forth(2);
  assert.deepEqual(await direction(), [0, 0, 1]);
  await page.getByRole('button', { name: 'Reset the view' }).click();
  assert.deepEqual(await direction(), [-1, 0, 0]);
  await close();
});

test('lights follow an animation', async () => {
  const lit = (light: string): string =>
    display(`<lights><light type="direction"><position>0 0 1</position>${light}</light></lights>`);
  const html = compose({
    page: {
      animation: { times: [0, 1] },
      panels: [{ frames: [0, 1].map((i) => ({ model: `m${i}`, display: `d${i}` })) }],
    },
    blocks: {
      m0: example('surface.jvx'),
      m1: example('surface.jvx'),
      d0: lit('<color>255 0 0</color><intensity>0.5</intensity>'),
      d1: lit('<color>0 0 255</color><intensity>0.5</intensity>'),
    },
  });
  const { page, close } = await browser.open(html);
  /** Red and blue of all that is drawn, above those of a gray ground. */
  const colors = async (): Promise<[number, number]> => {
    const { data } = await pixels(page);
    let [red, blue] = [0, 0];
    for (let i = 0; i < data.length; i += 4) {
      const least = Math.min(data[i]!, data[i + 1]!, data[i + 2]!);
      red += data[i]! - least;
      blue += data[i + 2]! - least;
    }
    return [red, blue];
  };
  const [redBefore, blueBefore] = await colors();
  await page.getByRole('slider', { name: 'Time' }).fill('1');
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'm1');
  await browser.settle(page);
  const [redAfter, blueAfter] = await colors();
  assert.ok(redAfter < redBefore && blueAfter > blueBefore, 'red light, then blue');
  await close();
});

test('texts are saved of the frame that is shown', async () => {
  const { page, close } = await browser.open(animatedPage());
  await page.getByRole('slider', { name: 'Time' }).fill('2');
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'm3');
  await page.getByRole('button', { name: 'Save' }).click();
  const [download] = await Promise.all([
    page.waitForEvent('download'),
    page.getByRole('button', { name: 'JVX' }).click(),
  ]);
  const saved = readFileSync(await download.path());
  assert.ok(saved.equals(Buffer.from(example('surface_animated.frames-1.3.jvx'))));
  await close();
});

test('dropped files end the animation that was there', async () => {
  const { page, complaints, close } = await browser.open(animatedPage(true));
  await page.evaluate(
    (text) => window.plotPage!.openFiles([new File([text], 'mine.jvx')]),
    new TextDecoder().decode(example('surface.jvx')),
  );
  await page.locator('.stage').focus();
  await page.keyboard.press(' ');
  await page.waitForTimeout(1500);
  assert.equal(await page.evaluate(() => window.plotPage!.all[0]!.plot.name), 'mine.jvx');
  assert.equal(await page.getByRole('group', { name: 'Animation' }).count(), 0);
  assert.deepEqual(complaints, []);
  await close();
});

test('reduced motion is respected', async () => {
  const playing = async (reducedMotion: 'reduce' | 'no-preference'): Promise<boolean> => {
    const { page, close } = await browser.open(animatedPage(true), { reducedMotion });
    const result = await page.getByRole('button', { name: 'Pause' }).isVisible();
    await close();
    return result;
  };
  assert.equal(await playing('no-preference'), true);
  assert.equal(await playing('reduce'), false);
});

test('pictures are saved in twice and four times the size', async () => {
  const { page, close } = await browser.open(
    simplePage(example('surface.jvx'), undefined, { name: 'surface.zrd' }),
  );
  await page.getByRole('button', { name: 'Save' }).click();
  for (const [name, factor] of [
    ['PNG, twice the size', 2],
    ['PNG, four times the size', 4],
  ] as const) {
    const [download] = await Promise.all([
      page.waitForEvent('download'),
      page.getByRole('button', { name }).click(),
    ]);
    const { width, height } = PNG.sync.read(readFileSync(await download.path()));
    assert.deepEqual([width, height], [800 * factor, 600 * factor]);
    assert.equal(download.suggestedFilename(), 'surface.png');
  }
  await close();
});

test('dark surroundings where the plot sets no background, its own where it does', async () => {
  const corner = async (html: string): Promise<number[]> => {
    const { page, close } = await browser.open(html, { colorScheme: 'dark' });
    const { data } = await pixels(page);
    const at = (300 * 800 + 2) * 4;
    await close();
    return [...data.subarray(at, at + 3)];
  };
  assert.deepEqual(await corner(simplePage(example('surface.jvx'))), [24, 24, 28]);
  assert.deepEqual(await corner(surface()), [255, 255, 255]);
});

/** The draw calls of a surface until a moment after it was opened. */
async function drawsOf(side: number, hash = ''): Promise<Draw[]> {
  const html = simplePage(model(sheet({ side, height: (x, y) => x * y })));
  const { page, close } = await browser.open(html, {}, hash);
  await page.waitForTimeout(1_000);
  const drawn = await page.evaluate(() => window.drawn!);
  await close();
  return drawn.filter(({ vertices }) => vertices > 1_000);
}

test('a large surface is drawn coarsely at once and finely a moment later', async () => {
  const counts = async (hash: string): Promise<number[]> =>
    (await drawsOf(300, hash)).map(({ vertices }) => vertices);
  const whole = 299 * 299 * 6;
  const drawn = await counts('');
  assert.ok(drawn[0]! < whole / 4, drawn.join());
  assert.equal(drawn[drawn.length - 1], whole);
  assert.deepEqual([...new Set(await counts('#picture'))], [whole]);
});

test('without graphics hardware edges of what is not small are smooth a moment later', async () => {
  const smooth = async (side: number, hash: string): Promise<boolean[]> =>
    (await drawsOf(side, hash)).map((draw) => draw.smooth);
  const drawn = await smooth(120, '');
  assert.deepEqual([drawn[0], drawn[drawn.length - 1]], [false, true]);
  assert.deepEqual([...new Set(await smooth(120, '#picture'))], [true]);
  assert.deepEqual([...new Set(await smooth(60, ''))], [true]);
});

test('a surface that a clip range cuts has smooth edges', async () => {
  const part = (axis: string): string => `<range type="${axis}">-0.63 0.58</range>`;
  const html = simplePage(
    model(sheet({ side: 3, height: () => 0 })),
    display(
      `<clipRange>${part('X')}${part('Y')}</clipRange>`,
      '<lights><light type="ambient"><intensity>0.5</intensity></light></lights>',
      '<background><color>255 255 255</color></background>',
    ),
  );
  const { page, close } = await browser.open(html, {}, '#picture');
  const { data } = await pixels(page);
  await close();
  const colors = new Map<number, number>();
  for (let i = 0; i < data.length; i += 4) {
    colors.set(data[i]!, (colors.get(data[i]!) ?? 0) + 1);
  }
  const [ground, surface, ...edges] = [...colors.values()].sort((a, b) => b - a);
  const between = edges.reduce((sum, count) => sum + count, 0);
  assert.ok(ground! > 10_000 && surface! > 10_000);
  assert.ok(between > 300, `${between} pixels between the two colours`);
});

test('the canvas has its ground, and texts are read on it in all surroundings', async () => {
  const panels = [{ frames: [{ model: 'm' }] }];
  const colors = async (
    page: object,
    colorScheme: 'light' | 'dark',
  ): Promise<[string, string, string]> => {
    const html = compose({ page: { panels, ...page }, blocks: { m: example('surface.jvx') } });
    const { page: opened, close } = await browser.open(html, { colorScheme });
    const found = await opened.evaluate(() => {
      const [header, footer] = document.querySelectorAll('.line');
      return [
        getComputedStyle(document.body).backgroundColor,
        getComputedStyle(header!).color,
        getComputedStyle(footer!).color,
      ];
    });
    await close();
    return found as [string, string, string];
  };
  const lines = {
    header: { text: 'black', color: '#000000' },
    footer: { text: 'orange', color: '#ff8000' },
  };
  const [black, orange, light, dark] = [
    'rgb(0, 0, 0)',
    'rgb(255, 128, 0)',
    'rgb(230, 230, 234)',
    'rgb(24, 24, 28)',
  ];
  assert.deepEqual(await colors(lines, 'light'), ['rgb(255, 255, 255)', black, orange]);
  assert.deepEqual(await colors(lines, 'dark'), [dark, light, orange]);
  const blue = { ...lines, background: '#102040' };
  assert.deepEqual(await colors(blue, 'light'), ['rgb(16, 32, 64)', light, orange]);
  const cream = { ...lines, background: '#fff8e0' };
  assert.deepEqual(await colors(cream, 'dark'), ['rgb(255, 248, 224)', black, orange]);
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
  const { page, close } = await browser.open(surface(), { hasTouch: true, isMobile: true });
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

test('files that are dropped are shown, with their display', async () => {
  const { page, complaints, close } = await browser.open(compose({ page: {}, blocks: {} }));
  assert.ok(await page.getByRole('button', { name: 'Open files' }).isVisible());
  await page.evaluate(
    ([model, display]) => {
      const transfer = new DataTransfer();
      transfer.items.add(new File([model!], 'mine.jvx'));
      transfer.items.add(new File([display!], 'mine.jvd'));
      const event = new DragEvent('drop', { dataTransfer: transfer, bubbles: true });
      document.querySelector('#page')!.dispatchEvent(event);
    },
    ['surface.jvx', 'lights_automatic.jvd'].map((name) => new TextDecoder().decode(example(name))),
  );
  await page.locator('.stage').waitFor();
  await page.waitForFunction(() => window.plotPage!.all[0]?.plot.scene.counts.faces);
  assert.equal(await page.evaluate(() => window.plotPage!.all[0]!.plot.display?.lights?.length), 7);
  assert.deepEqual(complaints, []);
  await close();
});

test('a lost context comes back', async () => {
  const { page, close } = await browser.open(surface());
  const before = await pixels(page);
  await page.evaluate(async () => {
    const { context } = window.plotPage!.drawingEngine!;
    const extension = context.getExtension('WEBGL_lose_context')!;
    extension.loseContext();
    await new Promise((done) => setTimeout(done, 300));
    extension.restoreContext();
    await new Promise((done) => setTimeout(done, 700));
    window.plotPage!.all[0]!.request();
  });
  await page.waitForTimeout(500);
  assert.ok(differing(before, await pixels(page)) < 100);
  await close();
});

test('a browser without WebGL shows a sentence and the numbers', async () => {
  const blind = await TestBrowser.launch(['--disable-gpu', '--disable-3d-apis']);
  const { page, close } = await blind.open(simplePage(example('surface_smallest.jvx')));
  const text = (await page.textContent('main')) ?? '';
  assert.match(text, /no WebGL/);
  assert.match(text, /1 1 1/);
  await close();
  await blind.close();
});

test('nothing is found by the checker of accessibility', async () => {
  for (const html of [
    surface(),
    animatedPage(),
    twoScenesPage(),
    compose({ page: { title: 'Viewer' }, blocks: {} }),
  ]) {
    for (const colorScheme of ['light', 'dark'] as const) {
      const { page, close } = await browser.open(html, { colorScheme });
      const tools = page.getByRole('button', { name: 'Objects' });
      if ((await tools.count()) > 0) await tools.first().click();
      const client = await page.context().newCDPSession(page);
      await client.send('Page.setBypassCSP', { enabled: true });
      const found = await page.evaluate(async (source) => {
        (0, eval)(source);
        const { axe: checker } = window as unknown as { axe: typeof axe };
        const { violations } = await checker.run();
        return violations.map(({ id, nodes }) => `${id}: ${nodes[0]?.html}`);
      }, axe.source);
      assert.deepEqual(found, []);
      await close();
    }
  }
});
