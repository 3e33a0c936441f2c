/** Rulers of a scene of three dimensions. */
import type { Label } from '../scene/batches';
import { AXES, type Axis, type Space } from '../scene/space';
import type { FrameLook, RulerLook } from './frame';
import type { Place, RulerLayout } from './layout';
import { rulerTicks, type RulerTicks } from './ticks';

const LABEL_GAP = 4;
/** Room for one number along a ruler, in pixels. */
const PER_LABEL = 55;

type Signs = readonly [number, number, number];

interface Edge {
  axis: Axis;
  from: Place;
  to: Place;
}

export class Rulers3d {
  private readonly half: Place;

  constructor(
    private readonly layout: RulerLayout,
    private readonly look: FrameLook,
    private readonly space: Space,
  ) {
    this.half = space.half;
  }

  draw(): void {
    const { look } = this;
    if (look.box) this.drawBox();
    if (!look.visible) return;
    if (look.type === 'corner' || look.rulers.some((ruler) => ruler.grid)) this.drawPlanes();
    for (const axis of AXES) {
      const ruler = look.rulers[axis];
      if (!ruler.visible || this.half[axis] <= 0) continue;
      const edge = look.type === 'center' ? this.middleLine(axis) : this.outlineEdge(axis);
      if (edge) this.drawRuler(edge, ruler);
    }
  }

  private corner(signs: Signs): Place {
    return [signs[0] * this.half[0], signs[1] * this.half[1], signs[2] * this.half[2]];
  }

  /** The edge along `axis` at the given sides of the two other axes. */
  private edge(axis: Axis, u: number, v: number): Edge {
    const signs: [number, number, number] = [0, 0, 0];
    signs[(axis + 1) % 3] = u;
    signs[(axis + 2) % 3] = v;
    const from = [...signs] as [number, number, number];
    from[axis] = -1;
    signs[axis] = 1;
    return { axis, from: this.corner(from), to: this.corner(signs) };
  }

  private drawBox(): void {
    const { boxColor, boxWidth } = this.look;
    for (const axis of AXES) {
      for (const [u, v] of [
        [-1, -1],
        [-1, 1],
        [1, -1],
        [1, 1],
      ] as const) {
        const { from, to } = this.edge(axis, u, v);
        this.layout.line(from, to, boxColor, boxWidth);
      }
    }
  }

  /** Whether the side of the box at `sign` of an axis is turned to the viewer. */
  private isFront(axis: Axis, sign: number): boolean {
    const { view } = this.layout;
    const { toEye } = view.state;
    const along = toEye.getComponent(axis) * sign;
    if (view.state.field === 0) return along > 1e-9;
    return view.eye.getComponent(axis) * sign > this.half[axis] + 1e-9;
  }

  /** The edge on the outline of the box where a ruler is read best: low, or for the last axis left. */
  private outlineEdge(axis: Axis): Edge | undefined {
    const u = ((axis + 1) % 3) as Axis;
    const v = ((axis + 2) % 3) as Axis;
    const { view } = this.layout;
    const edges: { edge: Edge; rank: number }[] = [];
    for (const su of [-1, 1]) {
      for (const sv of [-1, 1]) {
        if (this.isFront(u, su) === this.isFront(v, sv)) continue;
        const edge = this.edge(axis, su, sv);
        const a = view.toPixels(...edge.from);
        const b = view.toPixels(...edge.to);
        if (Math.hypot(a[0] - b[0], a[1] - b[1]) < 30) continue;
        const steep = Math.abs(a[1] - b[1]) > 2 * Math.abs(a[0] - b[0]);
        edges.push({ edge, rank: steep ? a[0] + b[0] : a[1] + b[1] });
      }
    }
    edges.sort((a, b) => a.rank - b.rank);
    return edges[0]?.edge;
  }

  /** The line along an axis through the origin, or the nearest place to it in the box. */
  private middleLine(axis: Axis): Edge {
    const { space, half, look } = this;
    const from = AXES.map((other) => {
      const origin = space.toScene(other, look.origin[other]);
      return Math.min(Math.max(origin, -half[other]), half[other]);
    }) as [number, number, number];
    const to = [...from] as [number, number, number];
    from[axis] = -half[axis];
    to[axis] = half[axis];
    return { axis, from, to };
  }

  /** The direction on the screen in which ticks point: across the ruler, away from the middle. */
  private outward(edge: Edge): readonly [number, number] {
    const { view } = this.layout;
    const a = view.toPixels(...edge.from);
    const b = view.toPixels(...edge.to);
    const middle = view.toPixels(0, 0, 0);
    const length = Math.hypot(b[0] - a[0], b[1] - a[1]) || 1;
    const across = [-(b[1] - a[1]) / length, (b[0] - a[0]) / length] as const;
    if (this.look.type === 'center') {
      const down = Math.abs(across[1]) > 0.3 ? across[1] > 0 : across[0] > 0;
      return down ? [-across[0], -across[1]] : across;
    }
    const away =
      ((a[0] + b[0]) / 2 - middle[0]) * across[0] + ((a[1] + b[1]) / 2 - middle[1]) * across[1];
    return away < 0 ? [-across[0], -across[1]] : across;
  }

  private ticksOf(axis: Axis, pixels: number, ruler: RulerLook): RulerTicks {
    const { box } = this.space;
    const count = Math.max(1, pixels / PER_LABEL);
    return rulerTicks(ruler, box.min[axis], box.max[axis], count);
  }

  private at(edge: Edge, value: number): Place {
    const place = [...edge.from] as [number, number, number];
    place[edge.axis] = this.space.toScene(edge.axis, value);
    return place;
  }

  private drawRuler(edge: Edge, ruler: RulerLook): void {
    const { layout, look } = this;
    if (look.type === 'center' && look.tips)
      layout.arrow(edge.from, edge.to, ruler.color, ruler.width);
    else layout.line(edge.from, edge.to, ruler.color, ruler.width);
    const a = layout.view.toPixels(...edge.from);
    const b = layout.view.toPixels(...edge.to);
    const pixels = Math.hypot(b[0] - a[0], b[1] - a[1]);
    if (pixels < 20) return;
    const outward = this.outward(edge);
    const ticks = this.ticksOf(edge.axis, pixels, ruler);
    if (ruler.majorTicks) this.drawTicks(edge, ticks.major, look.tickLength, outward, ruler);
    if (ruler.minorTicks) this.drawTicks(edge, ticks.minor, look.tickLength / 2, outward, ruler);
    const numbers = ruler.numbers ? this.numbers(edge, ticks, outward) : [];
    let reach = look.tickLength + LABEL_GAP;
    for (const label of numbers) {
      const { width, height } = layout.rectangle(label);
      const extent = Math.abs(outward[0]) * width + Math.abs(outward[1]) * height;
      const rows = ruler.numberPlaces === 'shifted' ? 2 : 1;
      reach = Math.max(reach, look.tickLength + LABEL_GAP * 3 + rows * extent);
    }
    this.drawTitle(edge, ruler, outward, reach);
    for (const label of numbers) layout.addLabel(label);
  }

  private drawTicks(
    edge: Edge,
    values: readonly number[],
    length: number,
    outward: readonly [number, number],
    ruler: RulerLook,
  ): void {
    for (const value of values) {
      const at = this.at(edge, value);
      const end = this.layout.beside(at, outward[0] * length, outward[1] * length);
      this.layout.line(at, end, ruler.color, ruler.width);
    }
  }

  private numbers(edge: Edge, ticks: RulerTicks, outward: readonly [number, number]): Label[] {
    const { layout, look, space } = this;
    // Where the rulers cross, one number is enough.
    const { min, max } = space.box;
    const { origin, tickLength, rulers, numberStyle } = look;
    const crossing = Math.min(Math.max(origin[edge.axis], min[edge.axis]), max[edge.axis]);
    const doubled = (value: number): boolean =>
      look.type === 'center' && edge.axis > 0 && Math.abs(value - crossing) < ticks.step / 4;
    return layout.numbers(
      ticks,
      ticks.major.filter((value) => !doubled(value)),
      (value) => this.at(edge, value),
      outward,
      tickLength + LABEL_GAP,
      rulers[edge.axis].numberPlaces,
      numberStyle,
    );
  }

  private drawTitle(
    edge: Edge,
    ruler: RulerLook,
    outward: readonly [number, number],
    reach: number,
  ): void {
    if (ruler.title === '') return;
    const { layout, look } = this;
    if (look.type === 'center') {
      const a = layout.view.toPixels(...edge.from);
      const b = layout.view.toPixels(...edge.to);
      const length = Math.hypot(b[0] - a[0], b[1] - a[1]) || 1;
      const along = [(b[0] - a[0]) / length, (b[1] - a[1]) / length] as const;
      layout.addLabel(layout.makeLabel(ruler.title, edge.to, along, 6, ruler.titleStyle));
      return;
    }
    const part = ruler.titlePlace;
    const at = edge.from.map(
      (value, i) => value + (edge.to[i]! - value) * part,
    ) as unknown as Place;
    layout.addLabel(layout.makeLabel(ruler.title, at, outward, reach, ruler.titleStyle));
  }

  /** The three planes behind everything, with their lines across. */
  private drawPlanes(): void {
    const planes = [
      [2, 0, 1],
      [1, 0, 2],
      [0, 1, 2],
    ] as const;
    planes.forEach(([normal, u, v], i) => {
      const back = this.isFront(normal, 1) ? -1 : 1;
      const shown = this.look.gridPlanes[i];
      if (!shown) return;
      this.drawPlane(normal, u, v, back);
    });
  }

  private drawPlane(normal: Axis, u: Axis, v: Axis, side: number): void {
    const { look, layout, half, space } = this;
    const { box } = space;
    const place = (a: number, b: number): Place => {
      const at: [number, number, number] = [0, 0, 0];
      at[normal] = side * half[normal];
      at[u] = a;
      at[v] = b;
      return at;
    };
    const outline = look.rulers[u];
    for (const s of [-1, 1]) {
      layout.line(
        place(-half[u], s * half[v]),
        place(half[u], s * half[v]),
        outline.color,
        outline.width,
      );
      layout.line(
        place(s * half[u], -half[v]),
        place(s * half[u], half[v]),
        outline.color,
        outline.width,
      );
    }
    const across = (axis: Axis, draw: (at: number) => readonly [Place, Place]): void => {
      const ruler = look.rulers[axis];
      const pixels = Math.min(layout.view.size.width, layout.view.size.height) * 0.6 * half[axis];
      const count = Math.max(1, pixels / PER_LABEL);
      const ticks = rulerTicks(ruler, box.min[axis], box.max[axis], count);
      const inside = (value: number): boolean =>
        value > box.min[axis] + ticks.step * 1e-6 && value < box.max[axis] - ticks.step * 1e-6;
      if (ruler.subgrid) {
        for (const value of ticks.minor) {
          layout.line(
            ...draw(space.toScene(axis, value)),
            look.subgrid.color,
            look.subgrid.width,
            look.subgrid.dash,
          );
        }
      }
      if (!ruler.grid) return;
      for (const value of ticks.major.filter(inside)) {
        layout.line(
          ...draw(space.toScene(axis, value)),
          look.grid.color,
          look.grid.width,
          look.grid.dash,
        );
      }
    };
    across(u, (at) => [place(at, -half[v]), place(at, half[v])]);
    across(v, (at) => [place(-half[u], at), place(half[u], at)]);
  }
}
