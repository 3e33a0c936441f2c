/** Rulers of a scene of two dimensions: they keep their place while the ticks follow the view. */
import type { Label } from '../scene/batches';
import type { Axis, Space } from '../scene/space';
import type { View } from '../scene/view';
import type { FrameLook, RulerLook } from './frame';
import type { Place, RulerLayout } from './layout';
import { intoPicture, type Rectangle } from './overlap';
import { LABEL_GAP, TITLE_GAP, isTurned } from './room2d';
import { rulerTicks, type RulerTicks } from './ticks';

const PER_LABEL = [75, 45] as const;

/** Rulers lie before everything, lines of the grid behind. */
const FRONT = 1.2;
const GRID_FRONT = 1.1;
const BACK = 0;

/** Where a pixel lies in the scene, as far as that is seen straight on. */
export function fromPixels(view: View, x: number, y: number): [number, number] {
  const { target } = view.state;
  const unit = view.unitsPerPixel;
  return [
    target.x + (x - view.size.width / 2) * unit,
    target.y + (y - view.size.height / 2) * unit,
  ];
}

export class Rulers2d {
  private readonly depth: number;
  private readonly low: readonly [number, number];
  private readonly high: readonly [number, number];

  constructor(
    private readonly layout: RulerLayout,
    private readonly look: FrameLook,
    private readonly space: Space,
    private readonly rectangle: Rectangle,
  ) {
    const { left, bottom, width, height } = rectangle;
    this.depth = look.inFront ? FRONT : BACK;
    this.low = fromPixels(layout.view, left, bottom);
    this.high = fromPixels(layout.view, left + width, bottom + height);
  }

  draw(): void {
    const { look } = this;
    if (look.box) this.drawFrame();
    if (!look.visible) return;
    const ticks = [this.ticksOf(0), this.ticksOf(1)] as const;
    this.drawGrid(0, ticks[0]);
    this.drawGrid(1, ticks[1]);
    if (look.rulers[0].visible) this.drawRuler(0, ticks[0]);
    if (look.rulers[1].visible) this.drawRuler(1, ticks[1]);
  }

  private place(axis: Axis, along: number, across: number, z: number): Place {
    return axis === 0 ? [along, across, z] : [across, along, z];
  }

  /** The nearest place at which a line across an axis fills whole pixels, and looks like its fellows. */
  private crisp(axis: Axis, value: number, width: number): number {
    const { size, state, unitsPerPixel } = this.layout.view;
    const middle = [size.width / 2, size.height / 2][axis]!;
    const target = state.target.getComponent(axis);
    const pixels = (value - target) / unitsPerPixel + middle;
    const odd = Math.round(width) % 2 === 1;
    // A hair above, so that errors of rounding do not take one of two equal places to the next pixel.
    const whole = odd ? Math.floor(pixels + 1e-6) + 0.5 : Math.round(pixels + 1e-6);
    return target + (whole - middle) * unitsPerPixel;
  }

  private drawFrame(): void {
    const { boxColor, boxWidth } = this.look;
    for (const axis of [0, 1] as const) {
      const other = axis === 0 ? 1 : 0;
      for (const side of [this.low[other], this.high[other]]) {
        const across = this.crisp(other, side, boxWidth);
        this.layout.line(
          this.place(axis, this.crisp(axis, this.low[axis], boxWidth), across, this.depth),
          this.place(axis, this.crisp(axis, this.high[axis], boxWidth), across, this.depth),
          boxColor,
          boxWidth,
        );
      }
    }
  }

  private ticksOf(axis: 0 | 1): RulerTicks {
    const { space, look, rectangle } = this;
    const pixels = axis === 0 ? rectangle.width : rectangle.height;
    const ruler = look.rulers[axis];
    const a = space.toFile(axis, this.low[axis]);
    const b = space.toFile(axis, this.high[axis]);
    const count = Math.max(2, pixels / PER_LABEL[axis]);
    return rulerTicks(ruler, a, b, count);
  }

  private drawGrid(axis: 0 | 1, ticks: RulerTicks): void {
    const { look, layout, space } = this;
    const ruler = look.rulers[axis];
    const other = axis === 0 ? 1 : 0;
    const depth = look.gridInFront ? GRID_FRONT : BACK;
    const lines = (values: readonly number[], grid: FrameLook['grid']): void => {
      for (const value of values) {
        const at = this.crisp(axis, space.toScene(axis, value), grid.width);
        const from = this.place(other, this.low[other], at, depth);
        const to = this.place(other, this.high[other], at, depth);
        layout.line(from, to, grid.color, grid.width, grid.dash);
      }
    };
    if (ruler.subgrid) lines(ticks.minor, look.subgrid);
    if (ruler.grid) lines(ticks.major, look.grid);
  }

  /** Where a ruler lies across its axis: at the low side, or at the origin as far as that is seen. */
  private across(axis: 0 | 1): number {
    const other = axis === 0 ? 1 : 0;
    const origin = this.space.toScene(other, this.look.origin[other]);
    const across =
      this.look.type === 'center'
        ? Math.min(Math.max(origin, this.low[other]), this.high[other])
        : this.low[other];
    return this.crisp(other, across, this.look.rulers[axis].width);
  }

  private drawRuler(axis: 0 | 1, ticks: RulerTicks): void {
    const { look, layout } = this;
    const ruler = look.rulers[axis];
    const across = this.across(axis);
    const from = this.place(axis, this.low[axis], across, this.depth);
    const to = this.place(axis, this.high[axis], across, this.depth);
    if (look.type === 'center' && look.tips) layout.arrow(from, to, ruler.color, ruler.width);
    else layout.line(from, to, ruler.color, ruler.width);
    if (ruler.majorTicks) this.drawTicks(axis, ticks.major, look.tickLength, ruler);
    if (ruler.minorTicks) this.drawTicks(axis, ticks.minor, look.tickLength / 2, ruler);
    this.drawTitle(axis, ruler, ticks);
    if (ruler.numbers) this.drawNumbers(axis, ticks);
  }

  private drawTicks(
    axis: 0 | 1,
    values: readonly number[],
    length: number,
    ruler: RulerLook,
  ): void {
    const { layout, space } = this;
    const across = this.across(axis);
    const centered = this.look.type === 'center';
    for (const value of values) {
      const along = this.crisp(axis, space.toScene(axis, value), ruler.width);
      const at = this.place(axis, along, across, this.depth);
      const out = axis === 0 ? ([0, -length] as const) : ([-length, 0] as const);
      const start = centered ? layout.beside(at, -out[0] * 0.6, -out[1] * 0.6) : at;
      const part = centered ? 0.6 : 1;
      layout.line(start, layout.beside(at, out[0] * part, out[1] * part), ruler.color, ruler.width);
    }
  }

  private drawNumbers(axis: 0 | 1, ticks: RulerTicks): void {
    const { layout, look, space } = this;
    const across = this.across(axis);
    const outward = axis === 0 ? ([0, -1] as const) : ([-1, 0] as const);
    const crossing =
      look.type === 'center' ? space.toFile(axis, this.across(axis === 0 ? 1 : 0)) : NaN;
    const labels = layout.numbers(
      ticks,
      ticks.major.filter((value) => !(Math.abs(value - crossing) < ticks.step / 4)),
      (value) => this.place(axis, space.toScene(axis, value), across, this.depth),
      outward,
      look.tickLength + LABEL_GAP,
      look.rulers[axis].numberPlaces,
      look.numberStyle,
    );
    for (const label of labels) layout.addLabel(label);
  }

  private drawTitle(axis: 0 | 1, ruler: RulerLook, ticks: RulerTicks): void {
    if (ruler.title === '') return;
    const { layout, look } = this;
    const across = this.across(axis);
    if (look.type === 'center') {
      const end = this.place(axis, this.high[axis], across, this.depth);
      const label = layout.makeLabel(
        ruler.title,
        end,
        axis === 0 ? [-1, 1] : [1, -1],
        8,
        ruler.titleStyle,
      );
      layout.addLabel(label);
      return;
    }
    const along = this.low[axis] + (this.high[axis] - this.low[axis]) * ruler.titlePlace;
    const at = this.place(axis, along, across, this.depth);
    const extent = ruler.numbers ? this.numberExtent(axis, ticks) + TITLE_GAP : 0;
    const gap = look.tickLength + LABEL_GAP + extent;
    const outward = axis === 0 ? ([0, -1] as const) : ([-1, 0] as const);
    const straight = layout.makeLabel(ruler.title, at, outward, gap, ruler.titleStyle);
    const turned = axis === 1 && isTurned(ruler, layout.measure(straight)[0], layout.view.size);
    const label = turned ? { ...straight, turns: 1 } : straight;
    const anchor: [number, number] =
      axis === 0 ? [ruler.titlePlace, label.anchor[1]] : [label.anchor[0], 1 - ruler.titlePlace];
    layout.addLabel(this.keptIn(axis, { ...label, anchor }));
  }

  /** A title that is long beside its ruler moves along it into the picture. */
  private keptIn(axis: 0 | 1, label: Label): Label {
    const { layout } = this;
    const { width, height } = layout.view.size;
    const rectangle = layout.rectangle(label);
    const inside = intoPicture(rectangle, width, height);
    const shift: [number, number] = [...label.shift];
    if (axis === 0) shift[0] += inside.left - rectangle.left;
    else shift[1] += inside.bottom - rectangle.bottom;
    return { ...label, shift };
  }

  private numberExtent(axis: 0 | 1, ticks: RulerTicks): number {
    const { layout, look } = this;
    const labels = layout.numbers(
      ticks,
      ticks.major,
      () => [0, 0, 0],
      [0, 0],
      0,
      look.rulers[axis].numberPlaces,
      look.numberStyle,
    );
    const sizes = labels.map((label) => layout.rectangle(label));
    const rows = look.rulers[axis].numberPlaces === 'shifted' ? 2 : 1;
    return rows * Math.max(0, ...sizes.map(({ width, height }) => (axis === 0 ? height : width)));
  }
}
