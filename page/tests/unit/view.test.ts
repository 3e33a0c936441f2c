import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Vector3 } from 'three';
import { View, type ViewState } from '../../src/scene/view';

const straight = (x: number, y: number, span: number): ViewState => ({
  target: new Vector3(x, y, 0),
  toEye: new Vector3(0, 0, 1),
  up: new Vector3(0, 1, 0),
  span,
  field: 0,
});

test('a view that nobody has moved goes where its home goes', () => {
  const view = new View(straight(1, 2, 4), true);
  view.moveHome(straight(-3, 1, 8));
  assert.ok(view.isHome);
  assert.deepEqual([...view.state.target, view.state.span], [-3, 1, 0, 8]);
});

test('a view that was moved stays as far from its home as it was', () => {
  const view = new View(straight(1, 2, 4), true);
  // Twice as near, with (5, 5) where the origin was before.
  view.state.span = 2;
  view.state.target.set(5.5, 6, 0);
  view.moveHome(straight(-3, 1, 8));
  assert.equal(view.state.span, 4);
  assert.deepEqual([...view.state.target], [3.5, 5.5, 0]);
  view.reset();
  assert.deepEqual([...view.state.target, view.state.span], [-3, 1, 0, 8]);
});
