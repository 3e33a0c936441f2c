/** How far a view of space is, so that the box and the numbers round it are seen. */
import type { Space } from '../scene/space';
import type { View } from '../scene/view';
import { isInside, type Rectangle } from './overlap';

/** Where the labels of the rulers are in the view as it is. */
type LabelPlaces = () => readonly Rectangle[];

/** Steps back until no number is cut off, but not far from the view that is asked for. */
export function fitLabels(view: View, labels: LabelPlaces): void {
  const inside = (rectangle: Rectangle): boolean =>
    isInside(rectangle, view.size.width, view.size.height);
  for (let i = 0; i < 6 && !labels().every(inside); i++) {
    view.state.span *= 1.06;
    view.update();
  }
}

/** Fills the picture with the box and the numbers round it. */
export function fitBox(view: View, space: Space, labels: LabelPlaces): void {
  for (let i = 0; i < 4; i++) {
    const { left, bottom, width, height } = extent(view, space, labels());
    const share = Math.max(width / (view.size.width - 32), height / (view.size.height - 32));
    const right = view.size.width / 2 - left - width / 2;
    const up = view.size.height / 2 - bottom - height / 2;
    view.pan(right, up);
    view.state.span = Math.min(Math.max(view.state.span * share, 0.05), 20);
    view.update();
  }
}

/** The rectangle of the screen that holds the box and all labels of the rulers. */
function extent(view: View, { half }: Space, labels: readonly Rectangle[]): Rectangle {
  const [hx, hy, hz] = half;
  const corners = [-1, 1].flatMap((x) =>
    [-1, 1].flatMap((y) => [-1, 1].map((z) => view.toPixels(x * hx, y * hy, z * hz))),
  );
  const spots: Rectangle[] = corners.map(([left, bottom]) => ({
    left,
    bottom,
    width: 0,
    height: 0,
  }));
  const all = [...spots, ...labels];
  const left = Math.min(...all.map((some) => some.left));
  const bottom = Math.min(...all.map((some) => some.bottom));
  const right = Math.max(...all.map((some) => some.left + some.width));
  const top = Math.max(...all.map((some) => some.bottom + some.height));
  return { left, bottom, width: right - left, height: top - bottom };
}
