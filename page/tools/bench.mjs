// Measures pages against plotly.js with the same surfaces in the same browser, and prints a table.
//   npm run bench                    # all sizes
//   npm run bench -- 40000 objects   # some of them
import { readFileSync, mkdirSync, mkdtempSync, rmSync, statSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { build } from 'esbuild';
import { chromium } from 'playwright-core';

const ORBIT_MILLISECONDS = 5_000;
const OPENING_MILLISECONDS = 600_000;

/** The composer that the tests use too. */
async function loadComposer() {
  const outfile = 'build/bench/compose.mjs';
  mkdirSync('build/bench', { recursive: true });
  const entryPoints = ['tests/support/compose.ts'];
  await build({ entryPoints, outfile, bundle: true, platform: 'node', format: 'esm' });
  return import(pathToFileURL(outfile).href);
}

const short = (value) => String(Number(value.toPrecision(6)));

/** Heights and colours over a square lattice, as both pages get them. */
function makeSurface(side) {
  const places = Array.from({ length: side }, (_, i) => (6 * i) / (side - 1) - 3);
  const heights = places.map((y) => places.map((x) => Math.sin(x * y) * Math.exp(-0.1 * x * x)));
  return { side, places, heights };
}

function* faceLists(side) {
  const cells = side - 1;
  yield `<faces num="${cells * cells}">`;
  for (let i = 0; i < cells; i++) {
    for (let j = 0; j < cells; j++) {
      const a = i * side + j;
      yield `<f>${a} ${a + 1} ${a + side + 1} ${a + side}</f>`;
    }
  }
  yield `<color>100 149 237</color></faces><neighbours num="${cells * cells}">`;
  for (let i = 0; i < cells; i++) {
    for (let j = 0; j < cells; j++) {
      const at = (row, column) =>
        row < 0 || column < 0 || row >= cells || column >= cells ? -1 : row * cells + column;
      yield `<nb>${at(i, j + 1)} ${at(i + 1, j)} ${at(i, j - 1)} ${at(i - 1, j)}</nb>`;
    }
  }
  yield '</neighbours>';
}

/** A text like those that the converter writes for meshes. */
function surfaceText({ side, places, heights }) {
  const parts = [
    '<jvx-model><geometries><geometry><pointSet dim="3" color="hide" point="hide">',
    `<points num="${side * side}">`,
  ];
  heights.forEach((row, i) =>
    row.forEach((z, j) => parts.push(`<p>${short(places[j])} ${short(places[i])} ${short(z)}</p>`)),
  );
  parts.push('</points></pointSet><faceSet face="show" edge="hide" color="hide">');
  for (const part of faceLists(side)) parts.push(part);
  parts.push('</faceSet></geometry></geometries></jvx-model>');
  return parts.join('\n');
}

const ROW = 316;

/** The corners of small triangle i. */
const triangle = (i) => {
  const [x, y] = [i % ROW, Math.floor(i / ROW)];
  return [
    [x, y, 0],
    [x + 0.5, y, 1],
    [x, y + 0.5, 0],
  ];
};

function objectsText(count) {
  const one = (i) =>
    '<geometry><pointSet dim="3" point="hide"><points>' +
    triangle(i)
      .map((place) => `<p>${place.join(' ')}</p>`)
      .join('') +
    '</points></pointSet><faceSet edge="hide"><faces><f>0 1 2</f></faces></faceSet></geometry>';
  const all = Array.from({ length: count }, (_, i) => one(i));
  return `<jvx-model><geometries>${all.join('\n')}</geometries></jvx-model>`;
}

const plotlyPage = (trace) => {
  const library = readFileSync('node_modules/plotly.js-dist-min/plotly.min.js', 'utf8');
  return `<!doctype html><html><head><meta charset="utf-8"><style>html,body,#plot{height:100%;margin:0}</style>
<script>${library.replaceAll('</script', '<\\/script')}</script></head><body><div id="plot"></div><script>
Plotly.newPlot('plot', [${JSON.stringify(trace)}], { margin: { l: 0, r: 0, t: 0, b: 0 } })
  .then(() => { document.documentElement.dataset.state = 'ready'; });
</script></body></html>`;
};

function plotlySurface({ places, heights }) {
  const round = (row) => row.map((value) => Number(value.toPrecision(6)));
  return plotlyPage({
    type: 'surface',
    x: round(places),
    y: round(places),
    z: heights.map(round),
    showscale: false,
  });
}

/** One trace for all, since a trace for each would never end. */
function plotlyObjects(count) {
  const corners = Array.from({ length: count }, (_, i) => triangle(i)).flat();
  const axis = (k) => corners.map((place) => place[k]);
  const index = (k) => Array.from({ length: count }, (_, i) => 3 * i + k);
  return plotlyPage({
    type: 'mesh3d',
    x: axis(0),
    y: axis(1),
    z: axis(2),
    i: index(0),
    j: index(1),
    k: index(2),
  });
}

const surfaceCase = (side) => () => {
  const surface = makeSurface(side);
  return { text: surfaceText(surface), plotly: plotlySurface(surface) };
};

const CASES = {
  40000: { title: '40,000 points', make: surfaceCase(200) },
  1000000: { title: '1,000,000 points', make: surfaceCase(1000) },
  objects: {
    title: '100,000 objects',
    make: () => ({ text: objectsText(100_000), plotly: plotlyObjects(100_000) }),
  },
};

/** Notes when something is drawn, whoever draws it. */
function watchDrawing() {
  window.drawnFrames = 0;
  window.drawCalls = 0;
  let drawn = false;
  for (const context of [WebGLRenderingContext, WebGL2RenderingContext]) {
    for (const name of [
      'drawArrays',
      'drawElements',
      'drawArraysInstanced',
      'drawElementsInstanced',
    ]) {
      const original = context.prototype[name];
      if (!original) continue;
      context.prototype[name] = function (...values) {
        drawn = true;
        window.drawCalls++;
        return original.apply(this, values);
      };
    }
  }
  const count = () => {
    if (drawn) window.drawnFrames++;
    drawn = false;
    requestAnimationFrame(count);
  };
  requestAnimationFrame(count);
}

const megabytes = (bytes) => bytes / 2 ** 20;

/** The largest memory that the processes of a kind have had, in megabytes. */
async function peakMemory(browser, kind) {
  const client = await browser.newBrowserCDPSession();
  const { processInfo } = await client.send('SystemInfo.getProcessInfo');
  const peaks = processInfo
    .filter(({ type }) => type === kind)
    .map(({ id }) => /VmHWM:\s+(\d+)/.exec(readFileSync(`/proc/${id}/status`, 'utf8')))
    .map((match) => Number(match?.[1] ?? 0) / 1024);
  return Math.max(0, ...peaks);
}

/** Drags back and forth for some seconds; returns how many pictures a second were drawn. */
async function orbit(page) {
  await page.mouse.move(400, 300);
  await page.mouse.down();
  const { frames, start } = await page.evaluate(() => ({
    frames: window.drawnFrames,
    start: performance.now(),
  }));
  const end = Date.now() + ORBIT_MILLISECONDS;
  for (let i = 0; Date.now() < end; i++) {
    await page.mouse.move(400 + 150 * Math.sin(i / 20), 300 + 40 * Math.cos(i / 30));
  }
  const after = await page.evaluate(() => ({
    frames: window.drawnFrames,
    end: performance.now(),
  }));
  await page.mouse.up();
  return ((after.frames - frames) * 1000) / (after.end - start);
}

async function measure(html, folder) {
  const path = join(folder, 'page.html');
  writeFileSync(path, html);
  const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--enable-unsafe-swiftshader', '--js-flags=--max-old-space-size=4096'],
  });
  try {
    const page = await browser.newPage({ viewport: { width: 800, height: 600 } });
    page.setDefaultTimeout(OPENING_MILLISECONDS);
    await page.addInitScript(watchDrawing);
    await page.goto(`file://${path}`, { timeout: OPENING_MILLISECONDS });
    await page.waitForSelector('html[data-state=ready]', { state: 'attached' });
    const seconds = await page.evaluate(
      () =>
        new Promise((resolve) => {
          const check = () =>
            window.drawnFrames > 0
              ? resolve(performance.now() / 1000)
              : requestAnimationFrame(check);
          check();
        }),
    );
    const tab = await peakMemory(browser, 'renderer');
    const graphics = await peakMemory(browser, 'GPU');
    return { size: megabytes(statSync(path).size), seconds, tab, graphics, fps: await orbit(page) };
  } catch (error) {
    return { failed: String(error).split('\n')[0] };
  } finally {
    await browser.close();
  }
}

const HEADINGS = [
  'Plot',
  'Page',
  'Page MB',
  'Picture after s',
  'Tab MB',
  'Graphics MB',
  'Pictures a second',
];

function row(title, name, result) {
  const { size, seconds, tab, graphics, fps, failed } = result;
  const cells = failed
    ? [failed, '', '', '', '']
    : [size.toFixed(1), seconds.toFixed(1), tab.toFixed(0), graphics.toFixed(0), fps.toFixed(1)];
  return `| ${[title, name, ...cells].join(' | ')} |`;
}

const { simplePage } = await loadComposer();
const asked = process.argv.slice(2);
const names = asked.length > 0 ? asked : Object.keys(CASES);
const folder = mkdtempSync(join(tmpdir(), 'plot-bench-'));
console.log(`| ${HEADINGS.join(' | ')} |\n|${'---|'.repeat(HEADINGS.length)}`);
try {
  for (const name of names) {
    const { title, make } = CASES[name];
    const { text, plotly } = make();
    const textSize = megabytes(Buffer.byteLength(text)).toFixed(1);
    const own = await measure(simplePage(text), folder);
    console.log(row(`${title}, JVX of ${textSize} MB`, 'this one', own));
    console.log(row('', 'plotly.js', await measure(plotly, folder)));
  }
} finally {
  rmSync(folder, { recursive: true, force: true });
}
