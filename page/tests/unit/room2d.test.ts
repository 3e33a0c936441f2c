import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Vector3 } from 'three';
import { toPageText } from '../../src/data/contract';
import { readDocument } from '../../src/javaview/reader';
import { Rulers2d } from '../../src/rulers/axes2d';
import { frameLook } from '../../src/rulers/frame';
import { RulerLayout } from '../../src/rulers/layout';
import { isInside, type Rectangle } from '../../src/rulers/overlap';
import { beyondPicture, fitFrame, inset, margins } from '../../src/rulers/room2d';
import type { Label } from '../../src/scene/batches';
import { LINEAR, Space } from '../../src/scene/space';
import { View } from '../../src/scene/view';
import { axes, display } from '../support/plots';

type Ranges = readonly [readonly [number, number], readonly [number, number]];

const SIZE = { width: 300, height: 200 };

/** Letters are 7 pixels wide and lines 15 high; a title may stand upright. */
function measure({ text, turns = 0 }: Label): [number, number] {
  const size: [number, number] = [7 * text.length, 15];
  return turns === 1 ? [size[1], size[0]] : size;
}

interface Fitted {
  frame: Rectangle;
  texts: string[];
  rectangles: readonly Rectangle[];
}

/** Rulers of a type over ranges, fitted into a small picture. */
function fitted(type: string, ranges: Ranges, more: object = {}): Fitted {
  const [shown] = readDocument(new TextEncoder().encode(display(axes(type, 2, ranges)))).displays;
  const [panel] = toPageText({ panels: [{ axes: more }] }).panels;
  const look = frameLook(shown, panel!.axes, [0, 0, 0], [255, 255, 255]);
  const [[x0, x1], [y0, y1]] = ranges;
  const space = new Space({
    box: { min: [x0, y0, 0], max: [x1, y1, 0] },
    ratio: [1 / (x1 - x0), 1 / (y1 - y0) / 1.5, 1],
    flat: true,
    logarithmic: LINEAR,
  });
  const layOut = ({ left, bottom, width, height }: Rectangle): RulerLayout => {
    const unit = (2 * space.half[0]) / width;
    const target = new Vector3(
      (SIZE.width / 2 - left - width / 2) * unit,
      (SIZE.height / 2 - bottom - height / 2) * unit,
      0,
    );
    const state = { target, toEye: new Vector3(0, 0, 1), up: new Vector3(0, 1, 0) };
    const view = new View({ ...state, span: unit * SIZE.height, field: 0 }, true);
    view.size = SIZE;
    view.update();
    const layout = new RulerLayout(view, measure);
    new Rulers2d(layout, look, space, { left, bottom, width, height }).draw();
    return layout;
  };
  const room = margins(look, SIZE, (text) => [7 * text.length, 15]);
  const frame = fitFrame(SIZE, space, room, (some) => layOut(some).rectangles);
  const { labels, rectangles } = layOut(frame);
  return { frame, texts: labels.map(({ text }) => text), rectangles };
}

const assertInside = ({ rectangles }: Fitted): void => {
  assert.ok(rectangles.length > 3);
  for (const rectangle of rectangles) {
    assert.ok(isInside(rectangle, SIZE.width, SIZE.height), JSON.stringify(rectangle));
  }
};

test('numbers of axes through an origin at the rim of the box are not cut off', () => {
  const made = fitted('center', [
    [0, 4],
    [0, 20_000],
  ]);
  assertInside(made);
  assert.ok(made.texts.includes('20000'));
  // Five letters, the tick and the gaps beside it.
  assert.ok(made.frame.left >= 35 + 6 + 3);
});

test('an origin in the middle of the box needs no room', () => {
  const { frame } = fitted('center', [
    [-4, 4],
    [-20, 20],
  ]);
  assert.equal(frame.bottom, 12);
});

test('numbers that are longer than usual are not cut off', () => {
  const made = fitted('bndbox', [
    [0, 300_000],
    [-500_000, 500_000],
  ]);
  assertInside(made);
  const usual = fitted('bndbox', [
    [0, 3],
    [-1, 1],
  ]);
  assert.ok(made.frame.left > usual.frame.left);
});

test('a long title moves along its ruler into the picture', () => {
  const title = 'a title as long as a picture, nearly';
  const made = fitted(
    'bndbox',
    [
      [0, 3],
      [-1, 1],
    ],
    { x: { title: { text: title, align: 'right' } } },
  );
  assert.ok(made.texts.includes(title));
  assertInside(made);
});

test('a title that never fits takes no room from the drawing', () => {
  const long = [{ left: -500, bottom: 5, width: 1300, height: 15 }];
  assert.deepEqual(beyondPicture(long, SIZE), { left: 0, right: 0, top: 0, bottom: 0 });
});

test('a frame gives way to what reaches beyond the picture', () => {
  const labels = [
    { left: -8, bottom: 50, width: 40, height: 15 },
    { left: 270, bottom: 190, width: 35, height: 15 },
  ];
  const beyond = beyondPicture(labels, SIZE);
  assert.deepEqual(beyond, { left: 10, right: 7, top: 7, bottom: 0 });
  assert.deepEqual(inset({ left: 30, bottom: 20, width: 250, height: 170 }, beyond), {
    left: 40,
    bottom: 20,
    width: 233,
    height: 163,
  });
});

test('a horizontal title beside a ruler is turned if it would take much of the picture', () => {
  const ranges = [
    [0, 3],
    [-1, 1],
  ] as const;
  const frameWith = (text: string): Rectangle =>
    fitted('bndbox', ranges, { y: { turned: false, title: { text } } }).frame;
  // Seven letters are 49 pixels, nine are 63 of 300.
  assert.ok(frameWith('many more').left < frameWith('letters').left);
});

test('both rulers have their number at the corner where they meet', () => {
  const { texts } = fitted(
    'bndbox',
    [
      [0, 3],
      [-1, 1],
    ],
    { tickLength: 4 },
  );
  assert.ok(texts.includes('0') && texts.includes('\u22121'), texts.join());
});
