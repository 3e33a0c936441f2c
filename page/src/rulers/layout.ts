/** What rulers are made of: lines and labels, both in places of the scene. */
import { SceneBatches, withAlpha, type Label, type TextStyle } from '../scene/batches';
import type { Rgb } from '../javaview/model';
import { PLAIN_TIP } from '../scene/styles';
import type { View } from '../scene/view';
import type { NumberStyleName } from '../data/contract';
import { FreePlaces, type Rectangle } from './overlap';
import type { RulerTicks } from './ticks';

export type Place = readonly [number, number, number];
export type Measure = (label: Label) => readonly [number, number];

const LINE_HEIGHT = 1.25;
const TURNS: Record<NumberStyleName, number> = {
  horizontal: 0,
  vertical: 1,
  diagonal: 0.5,
  shifted: 0,
};

/** The object that rulers belong to; it is always shown. */
const RULER_OBJECT = 0;

/** Where a label is on the screen, by where its anchor is and by its size. */
export function labelRectangle(
  { anchor, shift }: Label,
  [x, y]: readonly number[],
  [width, height]: readonly [number, number],
): Rectangle {
  const left = x! + shift[0] - anchor[0] * width;
  const bottom = y! + shift[1] - (1 - anchor[1]) * height;
  return { left, bottom, width, height };
}

/** Lines and labels of the rulers for one view, laid out so that no two labels overlap. */
export class RulerLayout {
  readonly batches = new SceneBatches();
  readonly labels: Label[] = [];
  readonly rectangles: Rectangle[] = [];
  /** What is left of the picture; labels of points go there after the rulers' own. */
  readonly free = new FreePlaces(4);

  constructor(
    readonly view: View,
    readonly measure: Measure,
  ) {}

  line(a: Place, b: Place, color: Rgb, width: number, dash = 0): void {
    const rgba = withAlpha(color, 1);
    const style = { width, object: RULER_OBJECT, dash, tip: undefined };
    this.batches.lines.add(a, b, rgba, rgba, style, 0);
  }

  arrow(a: Place, b: Place, color: Rgb, width: number): void {
    const rgba = withAlpha(color, 1);
    const style = { width, object: RULER_OBJECT, dash: 0, tip: PLAIN_TIP };
    this.batches.lines.add(a, b, rgba, rgba, style, 0);
  }

  /** A place `right` and `up` pixels beside another on the screen. */
  beside(at: Place, right: number, up: number): Place {
    const { view } = this;
    const unit = this.unitsPerPixel(at);
    const r = view.right;
    const u = view.state.up;
    return [
      at[0] + (r.x * right + u.x * up) * unit,
      at[1] + (r.y * right + u.y * up) * unit,
      at[2] + (r.z * right + u.z * up) * unit,
    ];
  }

  /** The size of a pixel at a place of the scene. */
  unitsPerPixel(at: Place): number {
    const { view } = this;
    if (view.state.field === 0) return view.unitsPerPixel;
    const { eye } = view;
    const { toEye, target } = view.state;
    const distance =
      (eye.x - at[0]) * toEye.x + (eye.y - at[1]) * toEye.y + (eye.z - at[2]) * toEye.z;
    return (view.unitsPerPixel * distance) / eye.distanceTo(target);
  }

  makeLabel(
    text: string,
    at: Place,
    direction: readonly [number, number],
    gap: number,
    style: TextStyle,
    turns = 0,
  ): Label {
    return {
      text,
      at,
      style,
      anchor: [0.5 - direction[0] / 2, 0.5 + direction[1] / 2],
      shift: [direction[0] * gap, direction[1] * gap],
      object: RULER_OBJECT,
      turns,
    };
  }

  /** Numbers at the major ticks of a ruler, written in one of the styles. */
  numbers(
    ticks: RulerTicks,
    values: readonly number[],
    at: (value: number) => Place,
    outward: readonly [number, number],
    gap: number,
    places: NumberStyleName,
    style: TextStyle,
  ): Label[] {
    const turns = TURNS[places];
    return values.map((value) => {
      const second = places === 'shifted' && Math.round(value / (ticks.step || 1)) % 2 !== 0;
      const beyond = second ? gap + style.size * LINE_HEIGHT : gap;
      const label = this.makeLabel(ticks.text(value), at(value), outward, beyond, style, turns);
      // A slanted number ends at its tick.
      const ends = turns === 0.5 && Math.abs(outward[1]) > 0.5;
      return ends ? { ...label, anchor: [outward[1] < 0 ? 1 : 0, label.anchor[1]] } : label;
    });
  }

  /** Where a label is on the screen. */
  rectangle(label: Label): Rectangle {
    return labelRectangle(label, this.view.toPixels(...label.at), this.measure(label));
  }

  /** Adds a label unless another is in its way. */
  addLabel(label: Label): boolean {
    const rectangle = this.rectangle(label);
    if (!this.free.take(rectangle)) return false;
    this.labels.push(label);
    this.rectangles.push(rectangle);
    return true;
  }
}
