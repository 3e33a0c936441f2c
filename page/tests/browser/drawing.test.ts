import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { BrowserContextOptions } from 'playwright-core';
import { PNG } from 'pngjs';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { simplePage } from '../support/compose';
import { axes, curve, display, model } from '../support/plots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

type Place = readonly [number, number];

/** The colours at places of the file, some pixels to the right and upwards of them. */
async function colorsAt(
  html: string,
  places: readonly Place[],
  beside: Place = [0, 0],
  options: BrowserContextOptions = {},
): Promise<number[][]> {
  const { page, complaints, close } = await browser.open(html, options);
  const pixels = await page.evaluate(
    (all) => {
      const { view, space } = window.plotPage!.all[0]!.plot;
      return all.map(([x, y]) => view.toPixels(...space.point(x, y, 0)));
    },
    places as [number, number][],
  );
  const { data, width, height } = PNG.sync.read(await page.screenshot());
  assert.deepEqual(complaints, []);
  await close();
  return pixels.map(([x, y]) => {
    const at = Math.floor(height - y! - beside[1]) * width + Math.floor(x! + beside[0]);
    return [...data.subarray(at * 4, at * 4 + 3)];
  });
}

const near = (seen: number[], expected: readonly number[], text: string): void => {
  const off = seen.map((channel, i) => Math.abs(channel - expected[i]!));
  assert.ok(Math.max(...off) <= 2, `${text}: ${seen.join()} in place of ${expected.join()}`);
};

const see = (part: number): string =>
  `<material><transparency visible="show">${part}</transparency></material></geometry>`;

/** A blue line in two parts. */
const level = (y: number, transparency: number): string =>
  curve(
    [
      [-0.5, y],
      [0, y],
      [0.5, y],
    ],
    { points: 'point="hide"', lines: '' },
    { points: '', lines: '<thickness>9</thickness><color>0 0 200</color>' },
  ).replace('</geometry>', see(transparency));

const CANVAS = display(
  axes('bndbox', 2, [
    [-1, 1],
    [-1, 1],
  ]),
);

test('lines are as clear as they are said to be, where their parts meet too', async () => {
  const clear = [0.1, 0.35, 0.6, 0.9];
  const heights = clear.map((_, i) => 0.6 - 0.4 * i);
  const html = simplePage(model(...clear.map((part, i) => level(heights[i]!, part))), CANVAS);
  const along = await colorsAt(
    html,
    heights.map((y) => [0.25, y]),
  );
  const atJoint = await colorsAt(
    html,
    heights.map((y) => [0, y]),
    [0, 3],
  );
  clear.forEach((part, i) => {
    const light = 255 * part;
    const expected = [light, light, 200 + 55 * part];
    near(along[i]!, expected, `a line of ${part}`);
    near(atJoint[i]!, expected, `a joint of ${part}`);
  });
});

test('points are as clear as they are said to be, on a line too', async () => {
  const points = { points: '<thickness>9</thickness><color>0 0 200</color>', lines: '' };
  const alone = { points: '', lines: 'line="hide"' };
  const html = simplePage(
    model(
      curve([[0, 0.5]], alone, points).replace('</geometry>', see(0.9)),
      curve(
        [
          [-0.5, 0],
          [0.5, 0],
        ],
        { points: '', lines: '' },
        { ...points, lines: '<thickness>3</thickness><color>0 0 200</color>' },
      ).replace('</geometry>', see(0.6)),
    ),
    CANVAS,
  );
  const [faint] = await colorsAt(html, [[0, 0.5]]);
  near(faint!, [229.5, 229.5, 249.5], 'a point alone');
  const [beside, over] = [
    (await colorsAt(html, [[0.5, 0]], [0, 5]))[0]!,
    (await colorsAt(html, [[0.5, 0]], [-4, 0]))[0]!,
  ];
  near(beside, [153, 153, 233], 'a point beside its line');
  near(over, [91.8, 91.8, 219.8], 'a point over its line');
});

test('a clear line shows what it crosses', async () => {
  const across = curve(
    [
      [0.25, -0.9],
      [0.25, 0.9],
    ],
    { points: 'point="hide"', lines: '' },
    { points: '', lines: '<thickness>9</thickness><color>200 0 0</color>' },
  ).replace('</geometry>', see(0.5));
  const [crossing] = await colorsAt(simplePage(model(level(0, 0.5), across), CANVAS), [[0.25, 0]]);
  near(crossing!, [200 * 0.5 + 127.5 * 0.5, 127.5 * 0.5, 227.5 * 0.5], 'the crossing');
});

test('diamonds are drawn to their points', async () => {
  const point = (x: number): string =>
    curve(
      [[x, 0]],
      { points: '', lines: 'line="hide"' },
      { points: '<thickness>20</thickness><color>0 120 0</color>', lines: '' },
    );
  const runs = [{ point: 'filledDiamonds' }, { point: 'diamonds' }];
  const html = simplePage(model(point(-0.5), point(0.5)), CANVAS, {
    frames: [{ model: 'm', display: 'd', runs }],
  });
  const places = [
    [-0.5, 0],
    [0.5, 0],
  ] as const;
  for (const beside of [
    [23, 0],
    [0, 23],
    [-23, 0],
    [0, -23],
  ] as const) {
    const tips = await colorsAt(html, places, beside);
    for (const tip of tips) near(tip, [0, 120, 0], `a tip at ${beside.join()}`);
  }
});

test('dark lines, points and labels are seen on the dark ground of the reader', async () => {
  const across = (y: number, color: string): string =>
    curve(
      [
        [-0.9, y],
        [0.9, y],
      ],
      { points: '', lines: '' },
      {
        points: `<thickness>6</thickness><color>${color}</color>`,
        lines: `<thickness>5</thickness><color>${color}</color>`,
      },
    );
  const named =
    '<geometry><pointSet dim="2" point="hide"><points><p name="\u2588\u2588\u2588">0 -0.8</p>' +
    '<labelAtt visible="show" horAlign="center" verAlign="middle"><size>20</size>' +
    '<color>0 0 0</color></labelAtt></points></pointSet></geometry>';
  const text = model(across(0.5, '0 0 0'), across(0, '0 0 120'), across(-0.5, '255 200 0'), named);
  const places = [
    [0, 0.5],
    [0, 0],
    [0, -0.5],
    [0.9, 0.5],
    [0, -0.8],
  ] as const;
  const colors = (background: string): Promise<number[][]> =>
    colorsAt(
      simplePage(text, CANVAS.replace('</display>', `${background}</display>`)),
      places,
      [0, 0],
      { colorScheme: 'dark' },
    );
  const [black, blue, yellow, point, label] = await colors('');
  // As bright as 45 percent of white, on the way to the ink of the page.
  near(black!, [114.5, 114.5, 117], 'black');
  near(point!, black!, 'a black point');
  near(label!, black!, 'a black label');
  near(blue!, [107.3, 107.3, 172.5], 'blue');
  near(yellow!, [255, 200, 0], 'yellow');
  const own = await colors('<background><color>255 255 255</color></background>');
  near(own[0]!, [0, 0, 0], 'black on the ground of the plot');
  near(own[1]!, [0, 0, 120], 'blue on the ground of the plot');
});

test('edges keep their colour before their faces, whatever the ground', async () => {
  const square =
    '<geometry><pointSet dim="2" point="hide"><points><p>-0.5 -0.5</p><p>0.5 -0.5</p>' +
    '<p>0.5 0.5</p><p>-0.5 0.5</p></points></pointSet><faceSet edge="show"><faces><f>0 1 2 3</f>' +
    '<color>250 250 90</color></faces><edges><thickness>5</thickness><color>0 0 0</color></edges>' +
    '</faceSet></geometry>';
  const edge = async (jvx: string): Promise<number[]> =>
    (
      await colorsAt(simplePage(model(jvx), CANVAS), [[0, -0.5]], [0, 0], { colorScheme: 'dark' })
    )[0]!;
  near(await edge(square), [0, 0, 0], 'before a face');
  near(await edge(square.replace('edge=', 'face="hide" edge=')), [114.5, 114.5, 117], 'alone');
});

test('numbers of axes that cross are kept apart from lines that run through them', async () => {
  const through = curve(
    [
      [-1, -0.06],
      [1, -0.06],
    ],
    { points: 'point="hide"', lines: '' },
    { points: '', lines: '<thickness>30</thickness><color>255 0 0</color>' },
  );
  const crossing = display(
    axes('center', 2, [
      [-1, 1],
      [-1, 1],
    ]),
  );
  const { page, close } = await browser.open(simplePage(model(through), crossing));
  const rectangle = await page.evaluate(() => {
    const { labels, rectangles, view } = window.plotPage!.all[0]!.plot;
    const i = labels.findIndex(({ text }) => text === '0.5');
    const { left, bottom, width, height } = rectangles[i]!;
    return { left, top: view.size.height - bottom - height, width, height };
  });
  const { data, width } = PNG.sync.read(await page.screenshot());
  await close();
  const colorAt = (x: number, y: number): number[] => {
    const at = (Math.round(y) * width + Math.round(x)) * 4;
    return [...data.subarray(at, at + 3)];
  };
  const { left, top } = rectangle;
  near(colorAt(left - 8, top + rectangle.height / 2), [255, 0, 0], 'the line beside the number');
  let rows = 0;
  for (let y = top; y < top + rectangle.height; y++) {
    for (let x = left + 3; x < left + rectangle.width; x++) {
      if (Math.max(...colorAt(x, y)) > 60) continue;
      rows++;
      assert.ok(Math.min(...colorAt(x - 2, y)) > 120, `${colorAt(x - 2, y).join()} beside a digit`);
      break;
    }
  }
  assert.ok(rows > 5);
});
