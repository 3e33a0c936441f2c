/**
 * Compares pictures with those that were looked at and found right. `npm run pictures` writes them
 * anew; look at each that has changed before it is committed.
 */
import assert from 'node:assert/strict';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import pixelmatch from 'pixelmatch';
import { PNG } from 'pngjs';
import { TestBrowser } from '../support/browser';
import { PICTURES, REFERENCES } from '../support/pictures';

const SIZE = { width: 400, height: 300 };

/** Other fonts and other versions of the browser set pixels along edges differently. */
const TOLERANCE = { color: 0.15, pixels: 0.01 };

const rewriting = process.env.REWRITE_PICTURES === '1';
const only = process.env.PICTURE;

/** Pictures that differ are put here, to be looked at. */
const RESULTS = new URL('../../build/pictures/', import.meta.url);

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

async function draw(html: string): Promise<{ picture: Buffer; complaints: string[] }> {
  const { page, complaints, close } = await browser.open(html, { viewport: SIZE }, '#picture');
  const picture = await page.screenshot();
  await close();
  return { picture, complaints };
}

/** How many pixels differ, in parts of the picture. */
function difference(name: string, drawn: PNG, reference: PNG): number {
  assert.deepEqual([drawn.width, drawn.height], [reference.width, reference.height]);
  const { width, height } = drawn;
  const marked = new PNG({ width, height });
  const count = pixelmatch(drawn.data, reference.data, marked.data, width, height, {
    threshold: TOLERANCE.color,
  });
  if (count / (width * height) > TOLERANCE.pixels) {
    mkdirSync(RESULTS, { recursive: true });
    writeFileSync(new URL(`${name}.png`, RESULTS), PNG.sync.write(drawn));
    writeFileSync(new URL(`${name}.difference.png`, RESULTS), PNG.sync.write(marked));
  }
  return count / (width * height);
}

/** Without transparency and with sixteen steps a channel, which makes references small. */
function pack({ data, width, height }: PNG): Buffer {
  const coarse = new PNG({ width, height });
  coarse.data = Buffer.from(data.map((value) => Math.round(value / 17) * 17));
  return PNG.sync.write(coarse, { colorType: 2, inputHasAlpha: true, deflateLevel: 9 });
}

for (const [name, make] of Object.entries(PICTURES)) {
  if (only !== undefined && !name.startsWith(only)) continue;
  test(`${name} looks as it did`, async () => {
    const { picture, complaints } = await draw(make());
    assert.deepEqual(complaints, []);
    const drawn = PNG.sync.read(picture);
    const path = new URL(`${name}.png`, REFERENCES);
    if (rewriting) {
      writeFileSync(path, pack(drawn));
      return;
    }
    const share = difference(name, drawn, PNG.sync.read(readFileSync(path)));
    assert.ok(share <= TOLERANCE.pixels, `${(share * 100).toFixed(2)} % of the pixels differ`);
  });
}
