/** What becomes of a page when its reader opens files. */
import assert from 'node:assert/strict';
import { after, before, test } from 'node:test';
import type { Page } from 'playwright-core';
import type {} from '../../src/main';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { curve, model } from '../support/plots';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const viewer = (): string => compose({ page: {}, blocks: {} });

const line = model(
  curve([
    [0, 0],
    [1, 2],
  ]),
);

const open = (page: Page, files: Record<string, string>): Promise<void> =>
  page.evaluate(
    (all) => window.plotPage!.openFiles(all.map(([name, text]) => new File([text!], name!))),
    Object.entries(files),
  );

const messageOf = (page: Page): Promise<string | null> =>
  page.locator('#page > .message').textContent();

test('nothing is left of the plot that was there when a file is opened', async () => {
  const html = compose({
    page: {
      title: 'Before',
      header: 'above',
      footer: 'below',
      background: '#102040',
      panels: [{ frames: [{ model: 'm' }] }],
    },
    blocks: { m: line },
  });
  const { page, complaints, close } = await browser.open(html);
  await open(page, { 'after.jvx': line });
  await browser.settle(page);
  assert.equal(await page.locator('.line').count(), 0);
  assert.equal(await page.title(), 'after');
  assert.equal(await page.locator('h1').textContent(), 'after');
  const ground = await page.evaluate(() => getComputedStyle(document.body).backgroundColor);
  assert.equal(ground, 'rgb(255, 255, 255)');
  assert.deepEqual(complaints, []);
  await close();
});

/** Opens a file as soon as there is a page, which then reads its own plot. */
function openAtOnce(): void {
  const text =
    '<jvx-model><geometries><geometry><pointSet dim="3"><points><p>1 2 3</p></points></pointSet>' +
    '</geometry></geometries></jvx-model>';
  Object.defineProperty(window, 'plotPage', {
    configurable: true,
    set: (value: typeof window.plotPage) => {
      Object.defineProperty(window, 'plotPage', { value });
      void value!.openFiles([new File([text], 'mine.jvx')]);
    },
  });
}

/** A line of so many points, which takes its time to read. */
const longLine = (points: number): string =>
  model(curve(Array.from({ length: points }, (_, i) => [i, (i * i) % 97])));

const namesOf = (page: Page): Promise<string[]> =>
  page.evaluate(() => window.plotPage!.all.map(({ plot }) => plot.name));

test('a file that is opened while a plot is read takes its place', async () => {
  const panel = { frames: [{ model: 'm' }, { model: 'm' }] };
  const html = compose({
    page: { animation: { times: [0, 1] }, panels: Array.from({ length: 6 }, () => panel) },
    blocks: { m: longLine(20_000) },
  });
  const { page, complaints, close } = await browser.open(html, {}, '', openAtOnce);
  await page.waitForFunction(() => document.title === 'mine');
  assert.deepEqual(await namesOf(page), ['mine.jvx']);
  assert.equal(await page.locator('.stage').count(), 1);
  assert.equal(await page.getByRole('group', { name: 'Animation' }).count(), 0);
  assert.deepEqual(complaints, []);
  await close();
});

test('of files that are opened one after another the last are shown', async () => {
  const { page, close } = await browser.open(viewer());
  await Promise.all([
    open(page, { 'long.jvx': longLine(200_000) }),
    open(page, { 'short.jvx': line }),
  ]);
  assert.deepEqual(await namesOf(page), ['short.jvx']);
  assert.equal(await page.title(), 'short');
  assert.equal(await messageOf(page), '');
  await close();
});

test('what is wrong is said of the file that it is in', async () => {
  const { page, close } = await browser.open(viewer());
  await open(page, { 'good.jvx': line, 'notes.txt': 'no plot' });
  assert.match((await messageOf(page))!, /notes\.txt.* cannot be shown: this is no XML/);
  assert.ok(await page.getByRole('button', { name: 'Open files' }).isVisible());
  await open(page, { 'alone.jvd': '<jv-disp/>' });
  assert.match((await messageOf(page))!, /alone\.jvd.* cannot be shown: there is no JVX file/);
  await close();
});

test('a plot is kept if the files in its place cannot be shown', async () => {
  const { page, close } = await browser.open(simplePage(line, undefined, { header: 'mine' }));
  await open(page, { 'notes.txt': 'no plot' });
  assert.equal(await page.evaluate(() => window.plotPage!.all.length), 1);
  assert.equal(await page.locator('.line').textContent(), 'mine');
  await close();
});

test('a viewer opens further files by the same button', async () => {
  const { page, close } = await browser.open(viewer());
  const button = page.getByRole('button', { name: 'Open files' });
  for (const name of ['first', 'second']) {
    const [chooser] = await Promise.all([page.waitForEvent('filechooser'), button.click()]);
    await chooser.setFiles({
      name: `${name}.jvx`,
      mimeType: 'text/xml',
      buffer: Buffer.from(line),
    });
    await page.waitForFunction((title) => document.title === title, name);
    assert.equal(await page.locator('.stage').count(), 1);
  }
  await close();
});

test('a browser without WebGL shows the numbers of files, and names of objects', async () => {
  const blind = await TestBrowser.launch(['--disable-gpu', '--disable-3d-apis']);
  const named = line.replace('<geometry>', '<geometry name="a line">');
  const { page, close } = await blind.open(viewer());
  await open(page, { 'mine.jvx': named });
  assert.match((await page.textContent('main'))!, /no WebGL/);
  assert.equal(await page.locator('.numbers').textContent(), 'a line\n0 0\n1 2');
  assert.equal(await messageOf(page), '');
  await close();
  const objects = [{ name: 'the line' }];
  const frames = [{ model: 'm', runs: [{ object: 0, count: 1 }] }];
  const shown = await blind.open(simplePage(line, undefined, { objects, frames }));
  assert.equal(await shown.page.locator('.numbers').textContent(), 'the line\n0 0\n1 2');
  await shown.close();
  await blind.close();
});
