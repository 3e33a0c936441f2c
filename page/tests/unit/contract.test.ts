import assert from 'node:assert/strict';
import { test } from 'node:test';
import { frameAt, playedTime } from '../../src/controls/player';
import { Base64Decoder } from '../../src/data/base64';
import { toPageText } from '../../src/data/contract';
import { PLAIN_STYLE } from '../../src/scene/styles';

test('nothing at all is a page without panels', () => {
  for (const value of [undefined, null, 3, 'x', [], { panels: 7 }]) {
    assert.deepEqual(toPageText(value).panels, []);
  }
});

test('what has the wrong type counts as absent', () => {
  const page = toPageText({
    title: 5,
    background: 'red; }',
    aspect: -1,
    panels: [
      { name: {}, frames: [{ model: 'm', runs: [{ object: -4, count: 1.5, line: 'wavy' }] }] },
    ],
    animation: { times: [0, 'x', null] },
  });
  assert.equal(page.title, '');
  assert.equal(page.background, undefined);
  assert.equal(page.aspect, undefined);
  assert.equal(page.animation, undefined);
  const [panel] = page.panels;
  assert.equal(panel?.name, '');
  assert.deepEqual(panel?.frames[0]?.runs, [{ ...PLAIN_STYLE, count: 1 }]);
});

test('a frame that says nothing of its runs has those of the frame before', () => {
  const frames = [{}, { runs: [{ object: 3 }] }, { model: 'm' }, { runs: 'x' }, { runs: [] }, {}];
  const [panel] = toPageText({ panels: [{ frames }] }).panels;
  const objects = panel!.frames.map(({ runs }) => runs.map(({ object }) => object));
  assert.deepEqual(objects, [[], [3], [3], [3], [], []]);
});

test('tips, ticks and grounds are read, within limits', () => {
  const { panels } = toPageText({
    panels: [
      {
        background: { style: 'pyramid', colors: ['#000000', '#ffffff', '#123456'] },
        axes: {
          origin: [1, 'x'],
          tickLength: 1e9,
          x: { logarithmic: true, numbers: 'diagonal', ticks: [{ at: 2 }, { text: 'no place' }] },
        },
        frames: [
          { runs: [{ tip: { style: 'open', length: 9, angle: 7 } }, { tip: { length: -3 } }] },
        ],
      },
      { background: { style: 'pyramid', colors: ['#000000'] } },
    ],
  });
  const [panel, other] = panels;
  assert.deepEqual(panel?.background, { style: 'pyramid', colors: ['#000000', '#ffffff'] });
  assert.equal(other?.background, undefined);
  assert.deepEqual(panel?.axes.origin, [1, 0, 0]);
  assert.equal(panel?.axes.tickLength, 100);
  assert.deepEqual(panel?.axes.x.ticks, [{ at: 2, text: '2' }]);
  assert.equal(panel?.axes.x.numbers, 'diagonal');
  assert.ok(panel?.axes.x.logarithmic && !panel.axes.y.logarithmic);
  const [first, second] = panel!.frames[0]!.runs;
  assert.deepEqual(first?.tip, { style: 'open', length: 9, angle: 1.5 });
  assert.deepEqual(second?.tip, PLAIN_STYLE.tip);
});

test('the frame of a time is the nearest one', () => {
  const times = [0, 1, 2.5, 4];
  assert.deepEqual(
    [-1, 0, 0.4, 0.6, 1, 1.7, 1.8, 3, 3.3, 4, 9].map((time) => frameAt(times, time)),
    [0, 0, 0, 1, 1, 1, 2, 2, 3, 3, 3],
  );
});

test('every frame is seen however an animation repeats', () => {
  for (const style of ['loop', 'backAndForth'] as const) {
    const animation = { times: [0, 1, 2], style, autoPlay: true, initial: 0 };
    const shown = Array.from({ length: 40 }, (_, i) =>
      frameAt(animation.times, playedTime(animation, 0.05 + i / 10).time),
    );
    assert.deepEqual([...new Set(shown)].sort(), [0, 1, 2], style);
  }
});

test('an animation ends, begins anew, or turns round', () => {
  const animation = { times: [1, 3], autoPlay: false, initial: 0 };
  assert.deepEqual(playedTime({ ...animation, style: 'once' }, 5), { time: 3, ended: true });
  assert.deepEqual(playedTime({ ...animation, style: 'loop' }, 5), { time: 2, ended: false });
  assert.deepEqual(playedTime({ ...animation, style: 'backAndForth' }, 3), {
    time: 2,
    ended: false,
  });
});

test('base64 is decoded in pieces, whatever is between its letters', () => {
  const bytes = Uint8Array.from({ length: 2_000_003 }, (_, i) => (i * 7919) & 255);
  const text = Buffer.from(bytes)
    .toString('base64')
    .replace(/(.{76})/g, '$1\n');
  const letters = Buffer.from(text);
  const decoder = new Base64Decoder();
  const pieces: Uint8Array[] = [];
  for (let i = 0; i < letters.length; i += 65_537) {
    pieces.push(decoder.decode(letters.subarray(i, i + 65_537)));
  }
  assert.ok(Buffer.concat(pieces).equals(Buffer.from(bytes)));
});
