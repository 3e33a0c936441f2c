// Makes dist/template.html: one page with program and style, into which plots are put.
// The program is packed: it is most of the page of a small plot.
import { createHash } from 'node:crypto';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { build } from 'esbuild';

const LARGEST = 350_000;

const options = {
  bundle: true,
  minify: true,
  write: false,
  format: 'iife',
  target: ['chrome113', 'firefox115', 'safari16.4'],
  charset: 'utf8',
  legalComments: 'none',
  logLevel: 'warning',
};

const bundle = async (entry) =>
  (await build({ ...options, entryPoints: [entry] })).outputFiles[0].text.trim();

const worker = await bundle('src/data/worker.ts');
const program = await bundle('src/main.ts');
const start = await bundle('src/start.ts');
const style = await bundle('src/style.css');
const licence = readFileSync('node_modules/three/LICENSE', 'utf8').trim();

const endsScript = (text) => /<\/script|<!--/i.test(text);
if (endsScript(worker) || endsScript(start) || /<\/style/i.test(style) || licence.includes('--')) {
  throw new Error('a part of the page would end its own element');
}

const hash = (text) => `sha256-${createHash('sha256').update(text).digest('base64')}`;
const parts = {
  START_HASH: hash(start),
  PROGRAM_HASH: hash(program),
  STYLE_HASH: hash(style),
  STYLE: style,
  WORKER: worker,
  LICENCE: `three.js\n${licence}`,
  PROGRAM: gzipSync(program, { level: 9 }).toString('base64'),
  START: start,
};
const template = readFileSync('src/template.html', 'utf8').replace(
  /\b(START_HASH|PROGRAM_HASH|STYLE_HASH|STYLE|LICENCE|WORKER|PROGRAM|START)\b/g,
  (name) => parts[name],
);
if (Buffer.byteLength(template) > LARGEST) {
  throw new Error(`the template has ${Buffer.byteLength(template)} bytes, more than ${LARGEST}`);
}
mkdirSync('dist', { recursive: true });
writeFileSync('dist/template.html', template);
console.log(`dist/template.html: ${Buffer.byteLength(template)} bytes`);
