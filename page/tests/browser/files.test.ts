/** A page without a plot, or with another, shows the files that a reader has. */
import assert from 'node:assert/strict';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { gzipSync } from 'node:zlib';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { countPanels, countText, type Counts } from '../support/counts';
import { example, textOf } from '../support/examples';
import { dropFiles } from '../support/observe';

const folder = mkdtempSync(join(tmpdir(), 'plot-files-'));
let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(async () => {
  await browser.close();
  rmSync(folder, { recursive: true, force: true });
});

/** Puts a file into the folder of the reader. */
function file(name: string, contents: Uint8Array | string): string {
  const path = join(folder, name);
  writeFileSync(path, contents);
  return path;
}

const viewer = (): string => compose({ page: { title: 'Viewer' }, blocks: {} });

const shown = (page: Page): Promise<{ name: string; lights: number | undefined }[]> =>
  page.evaluate(() =>
    window.plotPage!.all.map(({ plot: { name, display } }) => ({
      name,
      lights: display?.lights?.length,
    })),
  );

const expected = async (page: Page, names: readonly string[]): Promise<Counts[]> =>
  Promise.all(
    names.map(async (name) => (await page.evaluate(countText, textOf(example(name)))).counts),
  );

/** Waits until so many panels are there. */
async function panels(page: Page, count: number): Promise<void> {
  await page.waitForFunction((wanted) => window.plotPage!.all.length === wanted, count);
  await browser.settle(page);
}

test('files that are dropped are shown, each with the display of its name', async () => {
  const { page, complaints, close } = await browser.open(viewer());
  assert.ok(await page.getByRole('button', { name: 'Open files' }).isVisible());
  await dropFiles(page, [
    file('plain.jvx', example('arcs.jvx')),
    file('lit.jvd', example('lights_automatic.jvd')),
    file('lit.jvx', example('surface.jvx')),
  ]);
  await panels(page, 2);
  assert.deepEqual(await shown(page), [
    { name: 'plain.jvx', lights: undefined },
    { name: 'lit.jvx', lights: 7 },
  ]);
  const counts = (await page.evaluate(countPanels)).map((panel) => panel.counts);
  assert.deepEqual(counts, await expected(page, ['arcs.jvx', 'surface.jvx']));
  assert.equal(await page.locator('.invitation').count(), 0);

  await dropFiles(page, [file('next.jvx.gz', gzipSync(example('solids.jvx')))]);
  await panels(page, 1);
  const [panel] = await page.evaluate(countPanels);
  assert.deepEqual([panel!.counts], await expected(page, ['solids.jvx']));
  assert.deepEqual(complaints, []);
  await close();
});

test('files are opened by a button', async () => {
  const { page, complaints, close } = await browser.open(viewer());
  const [chooser] = await Promise.all([
    page.waitForEvent('filechooser'),
    page.getByRole('button', { name: 'Open files' }).click(),
  ]);
  await chooser.setFiles(file('chosen.jvx', example('texts2d.jvx')));
  await panels(page, 1);
  const [panel] = await page.evaluate(countPanels);
  assert.deepEqual([panel!.counts], await expected(page, ['texts2d.jvx']));
  assert.deepEqual(complaints, []);
  await close();
});

/** A text as other programs write it: with a byte order mark, sets in another order, sparing. */
const OTHER =
  '\ufeff<?xml version=\'1.0\'?>\n<!DOCTYPE jvx-model [<!ENTITY a "b">]>\n<jvx-model><!-- <f>0</f> -->' +
  '<geometries><geometry><faceSet><faces num="7"><f>0 1 2</f><f>0 2 3</f></faces></faceSet>' +
  '<pointSet dim="3"><points num="-1">\n<p>0 0 0</p> <p>1.0 0 -0</p><p tag="a">1e0 +1 0</p><p>0\t1\n0</p>' +
  '<labelAtt/></points></pointSet></geometry></geometries></jvx-model>\n<!-- end -->';

test('files of other programs are shown', async () => {
  const { page, complaints, close } = await browser.open(viewer());
  await dropFiles(page, [file('other.jvx', OTHER)]);
  await panels(page, 1);
  const [panel] = await page.evaluate(countPanels);
  assert.deepEqual(panel, {
    counts: { points: 4, lines: 0, faces: 2, labels: 0, vectors: 0 },
    strokes: 5,
  });
  assert.deepEqual(complaints, []);
  await close();
});

/** A hundred kilobytes or two that unpack to a hundred megabytes of elements. */
function bomb(): Buffer {
  const text = Buffer.alloc(100 * 2 ** 20, '<a/>');
  text.write('<jvx-model >');
  const packed = gzipSync(text, { level: 9 });
  assert.ok(packed.length < 200_000);
  return packed;
}

test('what cannot be shown is named, and what was there stays', async () => {
  const { page, close } = await browser.open(simplePage(example('surface.jvx')));
  const message = page.locator('#page > .message');
  for (const [path, reason] of [
    [file('note.txt', 'no plot'), /note\.txt.* cannot be shown/],
    [file('alone.jvd', example('lights_automatic.jvd')), /there is no JVX file among them/],
    [file('bomb.jvx.gz', bomb()), /bomb\.jvx\.gz.* unpacks to more than a plot can hold/],
  ] as const) {
    const before = await shown(page);
    await dropFiles(page, [path]);
    await page.waitForFunction(() =>
      document.querySelector('#page > .message')?.textContent?.includes('cannot be shown'),
    );
    assert.match((await message.textContent()) ?? '', reason);
    assert.deepEqual(await shown(page), before);
    await dropFiles(page, [file('good.jvx', example('surface.jvx'))]);
    await page.waitForFunction(
      () => document.querySelector('#page > .message')?.textContent === '',
    );
    assert.equal((await shown(page))[0]?.name, 'good.jvx');
  }
  await close();
});
