// Measures pages against plotly.js with the same surfaces in the same browser, and prints a table.
//   npm run bench                            # all sizes, the medians of three runs
//   npm run bench -- --runs=1 40000 objects  # some of them, once
import {
  existsSync,
  readFileSync,
  mkdirSync,
  mkdtempSync,
  rmSync,
  statSync,
  writeFileSync,
} from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { clearInterval, setInterval } from 'node:timers';
import { parseArgs } from 'node:util';
import { build } from 'esbuild';
import { chromium } from 'playwright-core';

const ORBIT_MILLISECONDS = 5_000;
const OPENING_MILLISECONDS = 600_000;
const LOOK_MILLISECONDS = 20;

/** A draw call with so many is one of a plot, not of its rulers. */
const FEWEST_TRIANGLES = 1_000;

/** Rulers and a box, which the other page has too. */
const DISPLAY = readFileSync('tests/pictures/texts/plain_3d.jvd', 'utf8');

/** The composer that the tests use too. */
async function loadComposer() {
  const outfile = 'build/bench/compose.mjs';
  mkdirSync('build/bench', { recursive: true });
  const entryPoints = ['tests/support/compose.ts'];
  await build({ entryPoints, outfile, bundle: true, platform: 'node', format: 'esm' });
  return import(pathToFileURL(outfile).href);
}

const short = (value) => String(Number(value.toPrecision(6)));

/** Heights over a square lattice, as both pages get them. */
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
Plotly.newPlot('plot', [${JSON.stringify(trace)}], { margin: { l: 0, r: 0, t: 0, b: 0 } });
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
  const triangles = 2 * (side - 1) ** 2;
  return { text: surfaceText(surface), plotly: plotlySurface(surface), triangles };
};

const OBJECTS = 100_000;

const CASES = {
  40000: { title: '40,000 points', make: surfaceCase(200) },
  1000000: { title: '1,000,000 points', make: surfaceCase(1000) },
  objects: {
    title: '100,000 objects',
    make: () => ({
      text: objectsText(OBJECTS),
      plotly: plotlyObjects(OBJECTS),
      triangles: OBJECTS,
    }),
  },
};

/**
 * Notes what is drawn, whoever draws it: when the first picture with the plot was finished and when the
 * first with most of its triangles, how many pictures there were, and how many draw calls the one with
 * most of them took. A picture of rulers alone has too few triangles to be the first.
 */
function watchDrawing({ triangles, fewest }) {
  const watched = { first: 0, whole: 0, frames: 0, mostCalls: 0, finish };
  let [calls, largest] = [0, 0];
  let last;

  /** Waits for the graphics process, which draws later than it is asked to. */
  function finish() {
    const bound = last.getParameter(last.FRAMEBUFFER_BINDING);
    last.bindFramebuffer(last.FRAMEBUFFER, null);
    last.readPixels(0, 0, 1, 1, last.RGBA, last.UNSIGNED_BYTE, new Uint8Array(4));
    last.bindFramebuffer(last.FRAMEBUFFER, bound);
  }

  /** Watches a call that has the number of vertices at a place of its arguments. */
  const watch = (prototype, name, place) => {
    const original = prototype[name];
    if (!original) return;
    prototype[name] = function (...values) {
      last = this;
      calls++;
      if (values[0] === this.TRIANGLES) largest = Math.max(largest, values[place] / 3);
      return original.apply(this, values);
    };
  };
  for (const { prototype } of [WebGLRenderingContext, WebGL2RenderingContext]) {
    watch(prototype, 'drawArrays', 2);
    watch(prototype, 'drawElements', 1);
    watch(prototype, 'drawArraysInstanced', 2);
    watch(prototype, 'drawElementsInstanced', 1);
  }

  const count = () => {
    requestAnimationFrame(count);
    if (calls === 0) return;
    watched.frames++;
    watched.mostCalls = Math.max(watched.mostCalls, calls);
    if (watched.whole === 0 && largest >= fewest) {
      finish();
      watched.first ||= performance.now();
      if (largest >= triangles / 2) watched.whole = performance.now();
    }
    [calls, largest] = [0, 0];
  };
  requestAnimationFrame(count);
  window.watched = watched;
}

const megabytes = (bytes) => bytes / 2 ** 20;

/** The numbers of the processes of a kind. */
async function processesOf(browser, kind) {
  const client = await browser.newBrowserCDPSession();
  const { processInfo } = await client.send('SystemInfo.getProcessInfo');
  const numbers = processInfo.filter(({ type }) => type === kind).map(({ id }) => id);
  if (numbers.length === 0) throw new Error(`the browser names no process of the kind ${kind}`);
  return numbers;
}

/** A line of what the system knows of a process, in megabytes. */
function statusOf(process, name) {
  const status = readFileSync(`/proc/${process}/status`, 'utf8');
  return Number(new RegExp(`^${name}:\\s+(\\d+)`, 'm').exec(status)[1]) / 1024;
}

/** The most that any of the processes has that are still there. */
const largestOf = (processes, name) =>
  Math.max(
    ...processes
      .filter((process) => existsSync(`/proc/${process}`))
      .map((process) => statusOf(process, name)),
  );

/**
 * Watches the memory that tabs have for themselves, which is what the browser's own task manager
 * shows: the program, which all tabs share, is not in it. The result ends this and returns the peak.
 */
async function watchTabs(browser) {
  const tabs = await processesOf(browser, 'renderer');
  let peak = 0;
  const look = () => (peak = Math.max(peak, largestOf(tabs, 'RssAnon')));
  const timer = setInterval(look, LOOK_MILLISECONDS);
  return () => {
    clearInterval(timer);
    look();
    return peak;
  };
}

/** How many pictures there are by now, all of them finished, and when. */
const drawnByNow = (page) =>
  page.evaluate(() => {
    window.watched.finish();
    return { frames: window.watched.frames, time: performance.now() };
  });

/** Drags back and forth for some seconds; returns how many pictures a second were drawn. */
async function orbit(page) {
  await page.mouse.move(400, 300);
  await page.mouse.down();
  const before = await drawnByNow(page);
  const end = Date.now() + ORBIT_MILLISECONDS;
  for (let i = 0; Date.now() < end; i++) {
    await page.mouse.move(400 + 150 * Math.sin(i / 20), 300 + 40 * Math.cos(i / 30));
  }
  const after = await drawnByNow(page);
  await page.mouse.up();
  return ((after.frames - before.frames) * 1000) / (after.time - before.time);
}

/** The most that there was in memory at a time, of whatever is shared too. */
const residentMemory = async (browser) => ({
  resident: largestOf(await processesOf(browser, 'renderer'), 'VmHWM'),
  graphics: largestOf(await processesOf(browser, 'GPU'), 'VmHWM'),
});

/** Opens a page in a browser of its own and passes it on. */
async function withPage(html, folder, prepare, use) {
  const path = join(folder, 'page.html');
  writeFileSync(path, html);
  const browser = await chromium.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--enable-unsafe-swiftshader', '--js-flags=--max-old-space-size=4096'],
  });
  try {
    const page = await browser.newPage({ viewport: { width: 800, height: 600 } });
    page.setDefaultTimeout(OPENING_MILLISECONDS);
    await prepare(page);
    await page.goto(`file://${path}`, { waitUntil: 'commit' });
    const peak = await watchTabs(browser);
    const used = await use(page);
    const tab = peak();
    return {
      ...used,
      tab,
      ...(await residentMemory(browser)),
      size: megabytes(statSync(path).size),
    };
  } finally {
    await browser.close();
  }
}

/** What a tab takes that shows nothing. */
function measureEmpty(folder) {
  const nothing = () => Promise.resolve();
  return withPage('<!doctype html><title>Empty</title>', folder, nothing, nothing);
}

/** Opens a page and turns what it shows. */
function measure(html, triangles, folder) {
  const prepare = (page) =>
    page.addInitScript(watchDrawing, { triangles, fewest: FEWEST_TRIANGLES });
  return withPage(html, folder, prepare, async (page) => {
    await page.waitForFunction(() => window.watched.whole > 0);
    const picturesASecond = await orbit(page);
    const { first, whole, mostCalls } = await page.evaluate(() => {
      const { first, whole, mostCalls } = window.watched;
      return { first, whole, mostCalls };
    });
    return { first: first / 1000, whole: whole / 1000, picturesASecond, calls: mostCalls };
  });
}

/** What is measured: heading, member of the result, digits. */
const COLUMNS = [
  ['Page MB', 'size', 1],
  ['First picture s', 'first', 2],
  ['Whole picture s', 'whole', 2],
  ['Tab MB', 'tab', 0],
  ['Resident MB', 'resident', 0],
  ['Graphics MB', 'graphics', 0],
  ['Pictures a second', 'picturesASecond', 1],
  ['Draw calls', 'calls', 0],
];

const line = (...cells) => `| ${cells.join(' | ')} |`;

/** The middle one of some values. */
function median(values) {
  const sorted = [...values].sort((a, b) => a - b);
  return sorted[Math.floor(sorted.length / 2)];
}

function row(title, name, results) {
  const cells = COLUMNS.map(([, member, digits]) =>
    median(results.map((result) => result[member]))?.toFixed(digits),
  );
  return line(title, name, ...cells);
}

const { values: options, positionals } = parseArgs({
  allowPositionals: true,
  options: { runs: { type: 'string', default: '3' } },
});
const { simplePage } = await loadComposer();
const names = positionals.length > 0 ? positionals : Object.keys(CASES);
const folder = mkdtempSync(join(tmpdir(), 'plot-bench-'));
console.log(line('Plot', 'Page', ...COLUMNS.map(([heading]) => heading)));
console.log(`|${'---|'.repeat(COLUMNS.length + 2)}`);
try {
  console.log(row('nothing', 'empty', [await measureEmpty(folder)]));
  for (const name of names) {
    const { title, make } = CASES[name];
    const { text, plotly, triangles } = make();
    const textSize = megabytes(Buffer.byteLength(text)).toFixed(1);
    const own = simplePage(text, DISPLAY);
    const results = { own: [], plotly: [] };
    for (let i = 0; i < Number(options.runs); i++) {
      results.own.push(await measure(own, triangles, folder));
      results.plotly.push(await measure(plotly, triangles, folder));
    }
    console.log(row(`${title}, JVX of ${textSize} MB`, 'this one', results.own));
    console.log(row('', 'plotly.js', results.plotly));
  }
} finally {
  rmSync(folder, { recursive: true, force: true });
}
