import assert from 'node:assert/strict';
import { once } from 'node:events';
import { createServer } from 'node:http';
import type { AddressInfo } from 'node:net';
import { after, before, test } from 'node:test';
import { FILL_PATTERNS, LINE_STYLES, POINT_STYLES } from '../../src/scene/styles';
import { TestBrowser } from '../support/browser';
import { compose, simplePage } from '../support/compose';
import { example } from '../support/examples';

let browser: TestBrowser;
before(async () => {
  browser = await TestBrowser.launch();
});
after(() => browser.close());

const model = (inner: string): string => `<jvx-model><geometries>${inner}</geometries></jvx-model>`;

const ATTACKS = [
  '</script><script>window.broken=1</script>',
  '<img src=x onerror="window.broken=1">',
  '"><svg onload=window.broken=1>',
  '<!--<script>',
];

const escape = (text: string): string =>
  text.replace(/&/g, '&amp;').replace(/</g, '&lt;').replace(/"/g, '&quot;');

test('markup and script in names, titles and attributes never run', async () => {
  for (const attack of ATTACKS) {
    const jvx = model(
      `<geometry name="${escape(attack)}"><pointSet dim="3"><points><p name="${escape(attack)}">0 0 0</p>` +
        `<p>1 1 1</p><labelAtt visible="show" name="${escape(attack)}"/></points></pointSet></geometry>`,
    );
    const jvd =
      '<jv-disp><displays><display><axes visible="show" dim="3" type="bndbox">' +
      `<ruler name="${escape(attack)}" label="show"/></axes></display></displays></jv-disp>`;
    const html = compose({
      page: {
        title: attack,
        header: { text: attack, family: attack, color: attack },
        background: `red;}${attack}`,
        panels: [
          {
            name: attack,
            header: attack,
            legend: { visible: true, font: { family: attack } },
            objects: [{ name: attack, legend: attack, color: attack }],
            frames: [{ model: 'm', display: 'd', runs: [{ object: 0, count: 1 }] }],
          },
        ],
      },
      blocks: { m: jvx, d: jvd },
    });
    const { page, complaints, requests, close } = await browser.open(html);
    await page.getByRole('button', { name: 'Objects' }).click();
    assert.equal(await page.evaluate(() => 'broken' in window), false);
    assert.equal(await page.locator('img, #page script').count(), 0);
    assert.equal(await page.title(), attack.replace(/\s+/g, ' '));
    assert.deepEqual(complaints, []);
    assert.deepEqual(requests, []);
    await close();
  }
});

test('what is not part of the template does not run, and nothing is fetched', async () => {
  let fetched = 0;
  const server = createServer((_, response) => response.end(String(++fetched))).listen(0);
  await once(server, 'listening');
  const host = `http://127.0.0.1:${(server.address() as AddressInfo).port}`;
  const intruder =
    '<script>window.broken=1</script><style>body{border:9px solid red}</style>' +
    '<p onclick="window.broken=1" style="color:red">click</p>' +
    `<img src="${host}/a.png"><iframe src="${host}/b.html"></iframe>` +
    `<script src="${host}/c.js"></script></body>`;
  const html = simplePage(example('surface.jvx')).replace('</body>', () => intruder);
  const { page, complaints, close } = await browser.open(html);
  await page.getByText('click').dispatchEvent('click');
  await page.evaluate((url) => fetch(url).catch(() => undefined), `${host}/d.txt`);
  assert.equal(await page.evaluate(() => 'broken' in window), false);
  assert.equal(await page.evaluate(() => getComputedStyle(document.body).borderStyle), 'none');
  assert.ok(complaints.length >= 7, complaints.join('\n'));
  assert.ok(complaints.every((text) => text.includes('Content Security Policy')));
  await close();
  server.close();
  assert.equal(fetched, 0);
});

const CORNERS = '<points><p>0 0 0</p><p>1 0 0</p><p>0 1 0</p></points>';

/** Texts, and how many discs, strokes and triangles are drawn of each. */
const HOSTILE: Record<string, [text: string, drawn: [number, number, number]]> = {
  'an empty geometry': [model('<geometry/>'), [0, 0, 0]],
  'no geometry': [model(''), [0, 0, 0]],
  'a huge count': [
    model(
      '<geometry><pointSet><points num="4000000000"><p>0 0 0</p></points></pointSet></geometry>',
    ),
    [1, 0, 0],
  ],
  'indices out of range': [
    model(
      `<geometry><pointSet dim="3">${CORNERS}</pointSet>` +
        '<lineSet><lines><l>0 99999999 1</l><l>-1 2147483648</l><l>1 2</l></lines></lineSet>' +
        '<faceSet><faces><f>0 1 77</f><f>5 6 7</f><f>0 0 0</f><f></f></faces></faceSet></geometry>',
    ),
    [3, 1, 0],
  ],
  'no numbers': [
    model(
      '<geometry><pointSet dim="3"><points><p>nan nan nan</p><p>inf -inf 1e999</p><p>x</p><p/></points></pointSet>' +
        '<faceSet><faces><f>0 1 2</f></faces></faceSet></geometry>',
    ),
    [0, 0, 0],
  ],
  'points of all sizes': [
    model(
      '<geometry><pointSet dim="3"><points><p>1e300 0 0</p><p>-1e300 1 1</p><p>0 1e-300 0</p></points></pointSet></geometry>',
    ),
    [3, 0, 0],
  ],
  'more colours than lines': [
    model(
      `<geometry><pointSet dim="3" color="show">${CORNERS}<colors num="2">${'<c>1 2 3</c>'.repeat(9)}</colors></pointSet>` +
        `<lineSet color="show"><lines><l>0 1</l></lines><colors>${'<c>1 2 3</c>'.repeat(9)}</colors></lineSet></geometry>`,
    ),
    [3, 1, 0],
  ],
  'a list that is cut off': [
    '<jvx-model><geometries><geometry><pointSet dim="3"><points><p>0 0 0</p><p>1 1',
    [1, 0, 0],
  ],
};

for (const [name, [text, drawn]] of Object.entries(HOSTILE)) {
  test(`${name} does no harm`, async () => {
    const { page, complaints, close } = await browser.open(simplePage(text));
    const parts = await page.evaluate(() => {
      const { points, lines, faces } = window.plotPage!.all[0]!.plot.scene;
      return [
        points.count,
        lines.count,
        faces.reduce((sum, { index }) => sum + index.length / 3, 0),
      ];
    });
    assert.deepEqual(parts, drawn);
    const message = await page.locator('#page > .message').textContent();
    const isCut = !text.endsWith('</jvx-model>');
    assert.equal(message, isCut ? 'The file is cut off; this is what it holds.' : '');
    await page.mouse.move(400, 300);
    await page.mouse.wheel(0, -100);
    await browser.settle(page);
    assert.deepEqual(complaints, []);
    await close();
  });
}

test('what cannot be read is named in a sentence', async () => {
  const { page, close } = await browser.open(simplePage('<html>no plot</html>'));
  assert.match(
    (await page.locator('#page > .message').textContent()) ?? '',
    /cannot be shown.*"html"/,
  );
  await close();
});

test('100,000 small geometries are few draw calls', async () => {
  const one = (i: number): string =>
    `<geometry><pointSet dim="3" point="hide"><points><p>${i % 316} ${Math.floor(i / 316)} 0</p>` +
    `<p>${(i % 316) + 0.5} ${Math.floor(i / 316)} 1</p><p>${i % 316} ${Math.floor(i / 316) + 0.5} 0</p></points></pointSet>` +
    '<faceSet edge="hide"><faces><f>0 1 2</f></faces></faceSet></geometry>';
  const all = Array.from({ length: 100_000 }, (_, i) => one(i)).join('');
  const { page, complaints, close } = await browser.open(simplePage(model(all)));
  const { calls, faces } = await page.evaluate(() => {
    const { plot } = window.plotPage!.all[0]!;
    return { calls: plot.drawCalls, faces: plot.scene.counts.faces };
  });
  assert.equal(faces, 100_000);
  assert.ok(calls <= 200, `${calls} draw calls`);
  await page.getByRole('button', { name: 'Objects' }).click();
  await page.getByRole('searchbox').fill('Object 99999');
  assert.equal(await page.getByRole('checkbox').count(), 1);
  assert.deepEqual(complaints, []);
  await close();
});

/** Object i of those that differ in all that geometries can differ in. */
function mixed(i: number): string {
  const show = (bit: number): string => ((i >> bit) & 1 ? 'show' : 'hide');
  const [x, y] = [i % 50, Math.floor(i / 50)];
  const places = [`${x} ${y} 0`, `${x + 0.5} ${y} 1`, `${x} ${y + 0.5} 0`];
  const colors = places.map((_, k) => `<c>${(i * 7 + k * 80) % 256} 90 160</c>`).join('');
  const points = places.map((place, k) => `<p name="${i}-${k}">${place}</p>`).join('');
  const material =
    `<material><transparency visible="show">${(i % 4) / 4}</transparency>` +
    `<specular><color>${i % 256} 9 9</color></specular><shininess>${i % 7}</shininess></material>`;
  return (
    `<geometry name="${i}"><pointSet dim="3" point="${show(0)}" color="${show(1)}">` +
    `<points>${points}<thickness>${1 + (i % 5)}</thickness><labelAtt visible="${i < 9 ? 'show' : 'hide'}"/></points>` +
    `<colors>${colors}</colors></pointSet>` +
    `<lineSet line="show" arrow="${show(2)}"><lines><l>0 1</l><thickness>${i % 3}</thickness></lines></lineSet>` +
    `<faceSet edge="${show(3)}" colorSmooth="${show(4)}" colorFromPoints="${show(1)}"><faces><f>0 1 2</f></faces></faceSet>` +
    `<vectorField arrow="${show(2)}"><vectors>${places.map(() => '<v>0 0 1</v>').join('')}</vectors></vectorField>` +
    `${material}</geometry>`
  );
}

test('draw calls do not grow with the number of objects, whatever these are like', async () => {
  const calls: number[] = [];
  for (const count of [128, 2048]) {
    const all = Array.from({ length: count }, (_, i) => mixed(i)).join('');
    const runs = Array.from({ length: count }, (_, i) => ({
      object: i,
      count: 1,
      point: POINT_STYLES[i % POINT_STYLES.length],
      line: LINE_STYLES[i % LINE_STYLES.length],
      fill: FILL_PATTERNS[i % FILL_PATTERNS.length],
    }));
    const frames = [{ model: 'm', runs }];
    const { page, complaints, close } = await browser.open(
      simplePage(model(all), undefined, { frames }),
    );
    const { drawCalls, faces } = await page.evaluate(() => {
      const { plot } = window.plotPage!.all[0]!;
      return { drawCalls: plot.drawCalls, faces: plot.scene.counts.faces };
    });
    assert.equal(faces, count);
    calls.push(drawCalls);
    assert.deepEqual(complaints, []);
    await close();
  }
  assert.equal(calls[1], calls[0]);
  assert.ok(calls[1]! <= 20, `${calls[1]} draw calls`);
});

test('a page whose data are broken says so', async () => {
  const html = simplePage(example('surface.jvx')).replace(/(data-name="m">)H4sI/, '$1AAAA');
  const { page, close } = await browser.open(html);
  assert.match((await page.locator('#page > .message').textContent()) ?? '', /cannot be shown/);
  await close();
});

test('a page whose program cannot be unpacked says so', async () => {
  const whole = simplePage(example('surface.jvx'));
  const { page, close } = await browser.open(whole.replace(/(id="program">)[^<]*/, '$1AAAA'));
  assert.equal(
    await page.locator('#page > .message').textContent(),
    'This browser is too old for this page, which draws a plot.',
  );
  await close();
});
