/** Every example of a plot document, as the page that the program makes of it. */
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtempSync, readdirSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { after, before, test } from 'node:test';
import { fileURLToPath } from 'node:url';
import { TestBrowser } from '../support/browser';
import { countPanels, countText } from '../support/counts';

const { ZRD_PROGRAM } = process.env;
assert.ok(ZRD_PROGRAM, 'the variable ZRD_PROGRAM names the program that makes the pages');

const SOURCE = fileURLToPath(new URL('../../../', import.meta.url));
const DOCUMENTS = ['examples', 'docs/examples'].flatMap((folder) =>
  readdirSync(join(SOURCE, folder))
    .filter((name) => name.endsWith('.zrd'))
    .map((name) => `${folder}/${name}`),
);

const folder = mkdtempSync(join(tmpdir(), 'plot-documents-'));
let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(async () => {
  await browser.close();
  rmSync(folder, { recursive: true, force: true });
});

const run = (...words: string[]): string =>
  execFileSync(ZRD_PROGRAM, words, {
    cwd: SOURCE,
    encoding: 'utf8',
    maxBuffer: 2 ** 28,
    stdio: 'pipe',
  });

/** The JVX text of a document, at a time if there is one. */
function textOf(document: string, time: number | undefined): string {
  const name = document.replaceAll('/', '-');
  const times = time === undefined ? [] : ['--time', String(time)];
  run('convert', '--output-dir', folder, '--name', `${name}.{ext}`, ...times, document);
  return readFileSync(join(folder, `${name}.jvx`), 'utf8');
}

interface PageText {
  panels: unknown[];
  animation?: { times: number[]; initial?: number };
}

const pageTextOf = (html: string): PageText =>
  JSON.parse(/data-name="page">(.*?)<\/script>/s.exec(html)![1]!) as PageText;

for (const document of DOCUMENTS) {
  test(`the page of ${document} shows all that its text has`, async () => {
    const html = run('view', document, '-o', '-');
    const { animation } = pageTextOf(html);
    const text = textOf(document, animation?.times[animation.initial ?? 0]);
    const { page, complaints, requests, close } = await browser.open(html, {
      viewport: { width: 400, height: 300 },
      reducedMotion: 'reduce',
    });
    const { counts, strokes } = await page.evaluate(countText, text);
    assert.deepEqual(await page.evaluate(countPanels), [{ counts, strokes }]);
    assert.deepEqual(complaints, []);
    assert.deepEqual(requests, []);
    await close();
  });
}

test('one page shows all documents', async () => {
  const html = run('view', '--frames', '1', '-o', '-', ...DOCUMENTS);
  const { page, complaints, requests, close } = await browser.open(html, {
    reducedMotion: 'reduce',
  });
  assert.equal(await page.locator('.stage canvas').count(), DOCUMENTS.length);
  assert.deepEqual(complaints, []);
  assert.deepEqual(requests, []);
  await close();
});
