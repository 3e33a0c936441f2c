/** Which labels of points are shown and where: none meets another, and none is cut off. */
import type { Label } from '../scene/batches';
import type { View } from '../scene/view';
import { labelRectangle, type Measure } from './layout';
import { intoPicture, type FreePlaces, type Rectangle } from './overlap';

/** Nobody reads more labels at once. */
const MOST_LABELS = 1_000;
const MOST_TRIES = 10_000;

/** Where a label goes if its own place is taken, in widths and heights of the label. */
const PLACES = [
  [0, 0],
  [0, 1],
  [0, -1],
  [1, 0],
  [-1, 0],
  [0, 2],
  [0, -2],
  [1, 1],
  [-1, 1],
  [1, -1],
  [-1, -1],
] as const;

export interface PlacedLabels {
  labels: Label[];
  rectangles: Rectangle[];
}

interface Seen {
  label: Label;
  pixels: readonly [number, number, number];
}

/** The labels whose points are in the picture, in space the nearest first. */
function inPicture(
  labels: readonly Label[],
  view: View,
  isShown: (label: Label) => boolean,
): Seen[] {
  const { width, height } = view.size;
  const seen: Seen[] = [];
  for (const label of labels) {
    if (!isShown(label)) continue;
    const pixels = view.toPixels(...label.at);
    const [x, y, depth] = pixels;
    const inside = x >= 0 && x <= width && y >= 0 && y <= height && depth >= -1 && depth <= 1;
    if (inside) seen.push({ label, pixels });
  }
  return view.flat ? seen : seen.sort((a, b) => a.pixels[2] - b.pixels[2]);
}

/** Takes free places for labels; one that finds none is left out. */
export function placeLabels(
  labels: readonly Label[],
  view: View,
  measure: Measure,
  free: FreePlaces,
  isShown: (label: Label) => boolean,
): PlacedLabels {
  const placed: PlacedLabels = { labels: [], rectangles: [] };
  for (const { label, pixels } of inPicture(labels, view, isShown).slice(0, MOST_TRIES)) {
    const size = measure(label);
    const wanted = labelRectangle(label, pixels, size);
    for (const [right, up] of PLACES) {
      const left = wanted.left + right * size[0];
      const bottom = wanted.bottom + up * size[1];
      const moved = { ...wanted, left, bottom };
      const rectangle = intoPicture(moved, view.size.width, view.size.height);
      if (!free.take(rectangle)) continue;
      const shift = [
        label.shift[0] + rectangle.left - wanted.left,
        label.shift[1] + rectangle.bottom - wanted.bottom,
      ] as const;
      placed.labels.push({ ...label, shift });
      placed.rectangles.push(rectangle);
      break;
    }
    if (placed.labels.length >= MOST_LABELS) break;
  }
  return placed;
}
