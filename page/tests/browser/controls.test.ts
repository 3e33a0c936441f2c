import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type {} from '../../src/main';
import { TestBrowser, type Draw } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { functionPage } from '../support/demos';
import { example } from '../support/examples';
import { pixels, spotIn } from '../support/observe';
import { axes, curve, display, model, sheet } from '../support/plots';
import { discs, type Disc } from '../support/spots';

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

test('objects are hidden, shown alone, and shown again', async () => {
  const all: readonly Disc[] = [
    { name: 'one', at: '0 0', color: [255, 0, 0] },
    { name: 'two', at: '1 1', color: [0, 160, 0] },
    { name: 'three', at: '2 2', color: [0, 0, 255] },
  ];
  const { page, close } = await browser.open(simplePage(discs(2, all)));
  const seen = async (): Promise<string[]> => {
    await browser.settle(page);
    const picture = await pixels(page);
    return all.filter(({ color }) => spotIn(picture, color).count > 0).map(({ name }) => name);
  };
  const checked = async (): Promise<boolean[]> =>
    Promise.all((await page.getByRole('checkbox').all()).map((box) => box.isChecked()));
  await page.getByRole('button', { name: 'Objects' }).click();
  assert.deepEqual(await seen(), ['one', 'two', 'three']);
  await page.getByRole('checkbox', { name: 'one' }).uncheck();
  assert.deepEqual(await seen(), ['two', 'three']);
  await page.getByRole('button', { name: 'Show only one' }).click();
  assert.deepEqual(await seen(), ['one']);
  assert.deepEqual(await checked(), [true, false, false]);
  await page.getByRole('button', { name: 'Show all' }).click();
  assert.deepEqual(await seen(), ['one', 'two', 'three']);
  assert.deepEqual(await checked(), [true, true, true]);
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

test('surroundings are as the reader likes them where the plot sets no background', async () => {
  const [white, dark] = [
    [255, 255, 255],
    [24, 24, 28],
  ];
  for (const [html, inLight, inDark] of [
    [simplePage(example('surface.jvx')), white, dark],
    [surface(), white, white],
  ] as const) {
    const { page, close } = await browser.open(html, { colorScheme: 'dark' });
    const rim = async (): Promise<number[]> => {
      const { data } = await pixels(page);
      const at = (300 * 800 + 2) * 4;
      return [...data.subarray(at, at + 3)];
    };
    assert.deepEqual(await rim(), inDark);
    await page.emulateMedia({ colorScheme: 'light' });
    await browser.settle(page);
    assert.deepEqual(await rim(), inLight);
    await page.emulateMedia({ colorScheme: 'dark' });
    await browser.settle(page);
    assert.deepEqual(await rim(), inDark);
    await close();
  }
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

test('a menu closes when something else is pressed, each time anew', async () => {
  const { page, complaints, close } = await browser.open(
    simplePage(example('surface.jvx'), undefined, { header: 'A text that takes no focus' }),
  );
  const opener = page.getByRole('button', { name: 'View', exact: true });
  const box = page.getByRole('checkbox', { name: 'Parallel' });
  for (let time = 0; time < 2; time++) {
    await opener.click();
    await box.click();
    assert.ok(await box.isVisible(), 'it stays open when it is used');
    await page.locator('.line').click();
    assert.ok(!(await box.isVisible()));
    assert.equal(await opener.getAttribute('aria-expanded'), 'false');
  }
  assert.deepEqual(complaints, []);
  await close();
});
