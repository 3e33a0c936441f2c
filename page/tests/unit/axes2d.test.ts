import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Vector3 } from 'three';
import { toPageText } from '../../src/data/contract';
import { readDocument } from '../../src/javaview/reader';
import { Rulers2d } from '../../src/rulers/axes2d';
import { frameLook } from '../../src/rulers/frame';
import { RulerLayout } from '../../src/rulers/layout';
import { LINEAR, Space } from '../../src/scene/space';
import { View } from '../../src/scene/view';
import { axes, display } from '../support/plots';

/** Lines of rulers with a grid on -1 to 1, in pixels of a picture in which nothing is a whole number. */
function drawnLines(boxWidth: number): { from: number[]; to: number[]; width: number }[] {
  const space = new Space({
    box: { min: [-1, -1, 0], max: [1, 1, 0] },
    ratio: undefined,
    flat: true,
    logarithmic: LINEAR,
  });
  const state = {
    target: new Vector3(0.0037, -0.0019, 0),
    toEye: new Vector3(0, 0, 1),
    up: new Vector3(0, 1, 0),
    span: 2.37,
    field: 0,
  };
  const view = new View(state, true);
  view.size = { width: 301, height: 300 };
  view.update();
  const range = [-1, 1] as const;
  const text = display(axes('bndbox', 2, [range, range])).replace(
    '<bndbox visible="show"/>',
    `<bndbox visible="show"><thickness>${boxWidth}</thickness></bndbox>`,
  );
  const [shown] = readDocument(new TextEncoder().encode(text)).displays;
  const [panel] = toPageText({
    panels: [{ axes: { x: { grid: true }, y: { grid: true } } }],
  }).panels;
  const look = frameLook(shown, panel!.axes, [0, 0, 0], [255, 255, 255]);
  const layout = new RulerLayout(view, () => [20, 10]);
  const rectangle = { left: 23.7, bottom: 21.2, width: 253.4, height: 253.4 };
  new Rulers2d(layout, look, space, rectangle).draw();
  const { starts, ends, styles, count } = layout.batches.finish().lines;
  const pixels = (list: Float32Array, i: number): number[] =>
    view.toPixels(list[i * 3]!, list[i * 3 + 1]!, list[i * 3 + 2]!).slice(0, 2);
  return Array.from({ length: count }, (_, i) => ({
    from: pixels(starts, i),
    to: pixels(ends, i),
    width: styles[i * 4]!,
  }));
}

test('lines of rulers, ticks, grid and frame fill whole pixels', () => {
  for (const boxWidth of [1, 2]) {
    const lines = drawnLines(boxWidth);
    assert.ok(lines.length > 20);
    assert.ok(lines.some(({ width }) => width === boxWidth));
    for (const { from, to, width } of lines) {
      const across = Math.abs(from[0]! - to[0]!) < 1e-3 ? from[0]! : from[1]!;
      const beyond = across - Math.floor(across);
      const wanted = width % 2 === 1 ? 0.5 : Math.round(beyond);
      assert.ok(Math.abs(beyond - wanted) < 2e-3, `a line of ${width} pixels at ${across}`);
    }
  }
});
