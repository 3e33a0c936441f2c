/** What a legend says, read from the elements of the page. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { curve, model, sheet } from '../support/plots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const PLACES = [
  [0, 0],
  [1, 1],
] as const;
const line = (width: number): string =>
  curve(
    PLACES,
    { points: 'point="hide"', lines: '' },
    { points: '', lines: `<thickness>${width}</thickness><color>200 0 0</color>` },
  );
const dots = curve(PLACES, { points: '', lines: 'line="hide"' });
const area = sheet({ side: 2, height: () => 0 });

interface Shown {
  text: string;
  /** Attributes of the shapes that are drawn, patterns left out. */
  shapes: Record<string, string>[];
  /** How long the whole mark is, in pixels. */
  width: number;
}

const entries = (page: Page): Promise<Shown[]> =>
  page.$$eval('.legend li', (items) =>
    items.map((item) => ({
      text: item.textContent,
      shapes: [...item.querySelectorAll('.mark g > :not(pattern)')].map((shape) =>
        Object.fromEntries([...shape.attributes].map(({ name, value }) => [name, value])),
      ),
      width: item.querySelector('.mark')?.getBoundingClientRect().width ?? 0,
    })),
  );

test('marks look like the objects', async () => {
  const runs = [
    { object: 0, line: 'dashed' },
    { object: 1, line: 'dotted' },
    { object: 2 },
    { object: 3, point: 'xCrosses' },
    { object: 4, fill: 'crossedLines' },
    { object: 5 },
  ];
  const names = ['dashed', 'dotted', 'solid', 'points', 'pattern', 'plain'];
  const { page, close } = await browser.open(
    simplePage(model(line(2), line(9), line(2), dots, area, area), undefined, {
      objects: names.map((name, i) => ({ name, legend: name, color: `#00000${i}` })),
      frames: [{ model: 'm', runs }],
    }),
  );
  const shown = await entries(page);
  await close();
  assert.deepEqual(
    shown.map(({ text }) => text),
    names,
  );
  const [dashed, dotted, solid, points, pattern, plain] = shown.map(({ shapes }) => shapes[0]!);
  assert.equal(dashed!.stroke, 'rgb(0 0 0)');
  assert.equal(dashed!['stroke-width'], '2');
  assert.equal(solid!['stroke-dasharray'], undefined);
  for (const [i, shape] of [dashed!, dotted!].entries()) {
    const [on, off] = shape['stroke-dasharray']!.split(' ').map(Number) as [number, number];
    assert.ok(2 * on + off < shown[i]!.width, 'two dashes have room');
    assert.ok(off > 1);
  }
  assert.match(points!.d!, /^M-.*M-/);
  assert.equal(points!.stroke, 'rgb(0 0 3)');
  assert.match(pattern!.fill!, /^url\(#/);
  assert.equal(plain!.fill, 'rgb(0 0 5)');
});

test('marks of dark lines are lighter on a dark ground, those of areas are not', async () => {
  const { page, close } = await browser.open(
    simplePage(model(line(2), area), undefined, {
      objects: ['line', 'area'].map((name) => ({ name, legend: name, color: '#101010' })),
      frames: [{ model: 'm', runs: [{ object: 0 }, { object: 1 }] }],
    }),
    { colorScheme: 'dark' },
  );
  const colors = async (): Promise<(string | undefined)[]> => {
    const [first, second] = await entries(page);
    return [first?.shapes[0]?.stroke, second?.shapes[0]?.fill];
  };
  const [dark] = await colors();
  assert.ok(Number(/\d+/.exec(dark!)![0]) > 100, dark);
  assert.equal((await colors())[1], 'rgb(16 16 16)');
  await page.emulateMedia({ colorScheme: 'light' });
  await page.waitForSelector(':root[data-scheme="light"]');
  assert.deepEqual(await colors(), ['rgb(16 16 16)', 'rgb(16 16 16)']);
  await close();
});

test('a scale of colours has its ends, their numbers and its colours', async () => {
  const scale = { min: -0.25, max: 1.5, colors: ['#0000ff', '#00ff00', '#ff0000'] };
  const { page, close } = await browser.open(
    simplePage(model(area), undefined, {
      objects: [{ name: 'height', legend: 'height of the sheet', color: '#123456', scale }],
      frames: [{ model: 'm', runs: [{ object: 0 }] }],
    }),
  );
  const shown = await page.$eval('.legend li', (item) => {
    const bar = item.querySelector<HTMLElement>('.bar')!;
    const { left, right } = bar.getBoundingClientRect();
    const numbers = [...item.querySelectorAll('.scale > span:not(.bar)')];
    return {
      texts: numbers.map(({ textContent }) => textContent),
      before: numbers[0]!.getBoundingClientRect().right <= left,
      behind: numbers[1]!.getBoundingClientRect().left >= right,
      ground: getComputedStyle(bar).backgroundImage,
      width: right - left,
      name: item.lastElementChild!.textContent,
      marks: item.querySelectorAll('.mark').length,
    };
  });
  await close();
  assert.deepEqual(shown.texts, ['\u22120.25', '1.5']);
  assert.ok(shown.before && shown.behind, 'the numbers are at the ends of the bar');
  assert.equal(
    shown.ground,
    'linear-gradient(to right, rgb(0, 0, 255), rgb(0, 255, 0), rgb(255, 0, 0))',
  );
  assert.ok(shown.width >= 40);
  assert.equal(shown.name, 'height of the sheet');
  assert.equal(shown.marks, 0);
});
