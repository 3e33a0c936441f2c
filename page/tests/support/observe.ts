/** What can be seen of a page, and files that it saves. */
import { readFileSync } from 'node:fs';
import type { Page } from 'playwright-core';
import { PNG } from 'pngjs';

/** Parts of the view of the first panel that a movement changes. */
export interface SeenFrom {
  toEye: number[];
  up: number[];
  target: number[];
  span: number;
}

export const viewOf = (page: Page): Promise<SeenFrom> =>
  page.evaluate(() => {
    const { toEye, up, target, span } = window.plotPage!.all[0]!.plot.view.state;
    return { toEye: [...toEye], up: [...up], target: [...target], span };
  });

/** What is seen, a pixel of the picture for each of the page. */
export const pixels = async (page: Page): Promise<PNG> =>
  PNG.sync.read(await page.screenshot({ scale: 'css' }));

/** How many pixels differ in red or green. */
export const differing = (a: PNG, b: PNG): number => {
  let count = 0;
  for (let i = 0; i < a.data.length; i += 4) {
    if (a.data[i] !== b.data[i] || a.data[i + 1] !== b.data[i + 1]) count++;
  }
  return count;
};

export type Color = readonly [number, number, number];

/** Where a colour is seen: the middle of its pixels, and how many they are. */
export interface Spot {
  x: number;
  y: number;
  count: number;
}

export function spotIn({ data, width }: PNG, [red, green, blue]: Color): Spot {
  let [x, y, count] = [0, 0, 0];
  for (let i = 0; i < data.length; i += 4) {
    if (data[i] !== red || data[i + 1] !== green || data[i + 2] !== blue) continue;
    x += (i / 4) % width;
    y += Math.floor(i / 4 / width);
    count++;
  }
  return { x: x / count + 0.5, y: y / count + 0.5, count };
}

export const spot = async (page: Page, color: Color): Promise<Spot> =>
  spotIn(await pixels(page), color);

export interface Saved {
  name: string;
  data: Buffer;
}

/** What the button of this name in the menu Save, which is open, saves. */
export async function save(page: Page, name: string): Promise<Saved> {
  const [download] = await Promise.all([
    page.waitForEvent('download'),
    page.getByRole('button', { name, exact: true }).click(),
  ]);
  return { name: download.suggestedFilename(), data: readFileSync(await download.path()) };
}

export type Touch = (
  type: 'Start' | 'Move' | 'End',
  ...fingers: [number, number][]
) => Promise<void>;

/** Puts fingers on the screen, moves them and takes them away. */
export async function touchOf(page: Page): Promise<Touch> {
  const client = await page.context().newCDPSession(page);
  return async (type, ...fingers) => {
    await client.send('Input.dispatchTouchEvent', {
      type: `touch${type}`,
      touchPoints: fingers.map(([x, y], id) => ({ x, y, id })),
    });
  };
}

/** Drags files over the middle of the page and lets them go. */
export async function dropFiles(page: Page, paths: readonly string[]): Promise<void> {
  const client = await page.context().newCDPSession(page);
  for (const type of ['dragEnter', 'dragOver', 'drop'] as const) {
    const data = { items: [], files: [...paths], dragOperationsMask: 1 };
    await client.send('Input.dispatchDragEvent', { type, x: 400, y: 300, data });
  }
}
