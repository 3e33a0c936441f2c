// Compiles the tests of one folder (unit, browser, documents) and runs them under node's own runner.
// With BROWSER_UNDER_TEST=firefox those of the folder firefox take the place of those of browser.
// A third word picks files by their beginning, options are passed on to the runner:
//   node tools/test.mjs browser controls --test-name-pattern=mouse
import { spawnSync } from 'node:child_process';
import { readdirSync, rmSync } from 'node:fs';
import { build } from 'esbuild';

const [asked, ...rest] = process.argv.slice(2);
const firefox = asked === 'browser' && process.env.BROWSER_UNDER_TEST === 'firefox';
const folder = firefox ? 'firefox' : asked;
const options = rest.filter((word) => word.startsWith('-'));
const beginning = rest.find((word) => !word.startsWith('-')) ?? '';
const outdir = `build/${folder}${beginning}`;
rmSync(outdir, { recursive: true, force: true });
const entryPoints = readdirSync(`tests/${folder}`)
  .filter((name) => name.startsWith(beginning) && name.endsWith('.test.ts'))
  .map((name) => `tests/${folder}/${name}`);
await build({
  entryPoints,
  outdir,
  bundle: true,
  platform: 'node',
  format: 'esm',
  packages: 'external',
  sourcemap: 'inline',
  outExtension: { '.js': '.mjs' },
  logLevel: 'warning',
});
const files = readdirSync(outdir).map((name) => `${outdir}/${name}`);
const concurrency = folder === 'unit' ? [] : ['--test-concurrency=1'];
const run = spawnSync(
  process.execPath,
  ['--enable-source-maps', '--test', ...concurrency, ...options, ...files],
  { stdio: 'inherit' },
);
process.exit(run.status ?? 1);
