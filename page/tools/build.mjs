// Makes dist/template.html: one page with program and style, into which plots are put.
import { createHash } from 'node:crypto';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { build } from 'esbuild';

const LARGEST = 900_000;

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

const bundle = async (entry, more) =>
  (await build({ ...options, entryPoints: [entry], ...more })).outputFiles[0].text.trim();

const worker = await bundle('src/data/worker.ts');
const licence = readFileSync('node_modules/three/LICENSE', 'utf8').trim();
const script = await bundle('src/main.ts', {
  define: { WORKER_PROGRAM: JSON.stringify(worker) },
  banner: { js: `/*! three.js\n${licence}\n*/` },
});
const style = await bundle('src/style.css');

if (/<\/script|<!--/i.test(script) || /<\/style/i.test(style)) {
  throw new Error('the program would end its own element');
}

const hash = (text) => `sha256-${createHash('sha256').update(text).digest('base64')}`;
const parts = {
  SCRIPT_HASH: hash(script),
  STYLE_HASH: hash(style),
  SCRIPT: script,
  STYLE: style,
};
const template = readFileSync('src/template.html', 'utf8').replace(
  /\b(SCRIPT_HASH|STYLE_HASH|SCRIPT|STYLE)\b/g,
  (name) => parts[name],
);
if (Buffer.byteLength(template) > LARGEST) {
  throw new Error(`the template has ${Buffer.byteLength(template)} bytes, more than ${LARGEST}`);
}
mkdirSync('dist', { recursive: true });
writeFileSync('dist/template.html', template);
console.log(`dist/template.html: ${Buffer.byteLength(template)} bytes`);
