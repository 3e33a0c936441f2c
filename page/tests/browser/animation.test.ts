/** Playing, and what changes with the frames. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import { TestBrowser, type GraphicsMemory } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { animatedPage } from '../support/demos';
import { example, textOf } from '../support/examples';
import { pixels, save, viewOf } from '../support/observe';
import { display, model, sheet } from '../support/plots';

declare global {
  interface Window {
    graphics?: GraphicsMemory;
  }
}

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

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
  await page.getByRole('button', { name: 'One frame forward' }).click();
  await shown(1);
  await slider.fill('4');
  await shown(4);
  await page.locator('.stage').focus();
  for (const [key, frame] of [
    ['PageUp', 3],
    [',', 2],
    ['PageDown', 3],
    ['.', 4],
    ['.', 4],
  ] as const) {
    await page.keyboard.press(key);
    await shown(frame);
  }
  await page.keyboard.press(' ');
  assert.ok(await page.getByRole('button', { name: 'Pause' }).isVisible());
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name !== 'm5');
  await page.keyboard.press(' ');
  assert.ok(await page.getByRole('button', { name: 'Play' }).isVisible());
  assert.deepEqual(complaints, []);
  await close();
});

/** Forty steps of a twenty-fifth of the unit of time. */
const steppedPage = (style: string): string => {
  const times = Array.from({ length: 41 }, (_, i) => i / 25);
  const frames = times.map((_, i) => ({ model: i < 20 ? 'early' : 'late' }));
  return compose({
    page: { animation: { times, style }, panels: [{ name: 'stepped', frames }] },
    blocks: { early: example('surface_smallest.jvx'), late: example('surface_quads.jvx') },
  });
};

/** What is drawn soon. */
const SMALL = { viewport: { width: 320, height: 240 } };

/** The screen asks for a picture so often where a test holds the time, in milliseconds. */
const TICK = 16;

/** From now on time passes for the page only while the test lets it. */
async function holdTime(page: Page): Promise<void> {
  await page.clock.install({ time: 0 });
  await page.clock.pauseAt(100 * TICK);
}

const frameOf = async (page: Page): Promise<number> =>
  Number(await page.getByRole('slider', { name: 'Time' }).inputValue());

test('frames follow the speed', async () => {
  const { page, complaints, close } = await browser.open(steppedPage('once'), SMALL);
  await holdTime(page);
  const speed = page.getByRole('combobox', { name: 'Speed' });
  const [play, pause] = ['Play', 'Pause'].map((name) => page.getByRole('button', { name }));
  // At the usual speed these are eight frames.
  const pass = (): Promise<void> => page.clock.runFor(20 * TICK);
  for (const [name, frame] of [
    ['0.25×', 2],
    ['0.5×', 4],
    ['1×', 8],
    ['2×', 16],
    ['4×', 32],
  ] as const) {
    await speed.selectOption(name);
    await play!.click();
    await pass();
    assert.equal(await frameOf(page), frame, `at ${name}`);
    await page.getByRole('slider', { name: 'Time' }).fill('0');
  }

  await speed.selectOption('0.5×');
  await play!.click();
  await pass();
  await speed.selectOption('2×');
  assert.equal(await frameOf(page), 4, 'another speed goes on from where it is');
  await pass();
  assert.equal(await frameOf(page), 20);
  await pause!.click();
  await pass();
  assert.equal(await frameOf(page), 20, 'nothing moves in a pause');
  await page.waitForFunction(() => window.plotPage!.all[0]!.plot.name === 'late');
  assert.deepEqual(complaints, []);
  await close();
});

test('an animation ends, begins anew, or turns round, as the canvas says or the reader', async () => {
  const { page, close } = await browser.open(steppedPage('loop'), SMALL);
  await holdTime(page);
  await page.getByRole('combobox', { name: 'Speed' }).selectOption('4×');
  const repetition = page.getByRole('combobox', { name: 'Repetition' });
  const pass = async (ticks: number): Promise<number> => {
    await page.clock.runFor(ticks * TICK);
    return frameOf(page);
  };
  // At this speed forty frames take 25 ticks.
  const playFromBegin = async (ticks: number): Promise<number> => {
    await page.getByRole('slider', { name: 'Time' }).fill('0');
    await page.getByRole('button', { name: 'Play' }).click();
    return pass(ticks);
  };
  assert.equal(await repetition.inputValue(), 'loop');
  assert.equal(await playFromBegin(27), 3);
  await repetition.selectOption('Back and forth');
  assert.equal(await playFromBegin(27), 37);
  assert.equal(await pass(25), 3, 'it turns round at the begin as well');
  await repetition.selectOption('Once');
  assert.equal(await playFromBegin(27), 40);
  await page.getByRole('button', { name: 'Play' }).click();
  assert.equal(await pass(3), 5, 'from the end it plays from the begin');
  await close();
});

test('at most two frames are in the memory of the graphics hardware', async () => {
  const numbers = [0, 1, 2, 3, 4, 5];
  const html = compose({
    page: {
      animation: { times: numbers },
      panels: [{ frames: numbers.map((i) => ({ model: `m${i}` })) }],
    },
    blocks: Object.fromEntries(
      numbers.map((i) => [`m${i}`, model(sheet({ side: 60, height: (x, y) => i * x * y }))]),
    ),
  });
  const { page, close } = await browser.open(html);
  const memory = (): Promise<GraphicsMemory> => page.evaluate(() => window.graphics!);
  const { now: one } = await memory();
  assert.ok(one > 100_000, `${one} bytes of one frame`);
  await page.locator('.stage').focus();
  for (const key of ['PageDown', 'PageUp']) {
    for (let i = 0; i < 5; i++) {
      await page.keyboard.press(key);
      const name = `m${key === 'PageDown' ? i + 1 : 4 - i}`;
      await page.waitForFunction((wanted) => window.plotPage!.all[0]!.plot.name === wanted, name);
      await browser.settle(page);
    }
  }
  const { now, most } = await memory();
  assert.ok(most < 2.2 * one, `${most} bytes at a time, ${one} a frame`);
  assert.ok(now < 1.1 * one, `${now} bytes are left, ${one} a frame`);
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
  const { data } = await save(page, 'JVX');
  assert.ok(data.equals(Buffer.from(example('surface_animated.frames-1.3.jvx'))));
  await close();
});

test('dropped files end the animation that was there', async () => {
  const { page, complaints, close } = await browser.open(animatedPage(true));
  await page.evaluate(
    (text) => window.plotPage!.openFiles([new File([text], 'mine.jvx')]),
    textOf(example('surface.jvx')),
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

test('a worker stays for an animation, and ends with its work for a still plot', async () => {
  const workersOf = async (html: string): Promise<number> => {
    const { page, close } = await browser.open(html, SMALL);
    const count = page.workers().length;
    await close();
    return count;
  };
  assert.equal(await workersOf(animatedPage()), 1);
  assert.equal(await workersOf(simplePage(example('surface.jvx'))), 0);
});
