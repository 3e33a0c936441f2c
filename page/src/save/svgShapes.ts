/** The parts of a plot as shapes of SVG. */
import { Vector3 } from 'three';
import type { Rgb } from '../javaview/model';
import type { Rectangle } from '../rulers/overlap';
import { HALO, cssColor, cssFont } from '../scene/atlas';
import {
  dashOf,
  ON_SURFACE,
  patternOf,
  tipOf,
  type FaceData,
  type Label,
  type LineData,
  type PointData,
} from '../scene/batches';
import type { Plot } from '../scene/plot';
import { dashLengths, short, sign } from '../scene/signs';
import { TIP_PARTS, tipLength, type Tip } from '../scene/styles';
import { between, clipPolygon, clipSegment, type ClipBox, type Corner } from './clip';
import { escape, tag, type Definitions } from './svgText';

export interface Shape {
  depth: number;
  svg: string;
}

/** What the shapes of one part are made with. */
export interface Scope {
  plot: Plot;
  definitions: Definitions;
  clip: ClipBox;
  hidden: ReadonlySet<number>;
  /** How near the nearest face is at each of its corners and sides. */
  nearest: Map<string, number>;
}

/** What the corners and sides of faces are known by: the pixels where they are. */
const placeKey = ([x, y]: Pixels): string => `${x.toFixed(1)} ${y.toFixed(1)}`;
const sideKey = (a: Pixels, b: Pixels): string => [placeKey(a), placeKey(b)].sort().join(' ');

/** Notes a face at its corners and sides, so that these can be drawn after it. */
function noteFace(places: readonly Pixels[], depth: number, nearest: Map<string, number>): void {
  places.forEach((place, i) => {
    for (const key of [placeKey(place), sideKey(place, places[(i + 1) % places.length]!)]) {
      nearest.set(key, Math.min(depth, nearest.get(key) ?? depth));
    }
  });
}

/** How far what lies on a surface is moved to the front, so that it is drawn after it. */
const IN_FRONT = 0.004;

/** Colours that differ by less in every channel are one. */
const SAME_COLOR = 3;

/** A colour so far beside a gradient is seen as an edge between two of them. */
const SEEN_OFF = 10;
/** How often a triangle is cut into four for that. */
const MOST_CUTS = 3;

type Pixels = readonly [number, number, number];

/** A place in pixels from the left and the top; undefined behind the viewer. */
function project({ view }: Plot, at: Vector3): Pixels | undefined {
  const [x, y, depth] = view.toPixels(at.x, at.y, at.z);
  return depth >= -1 && depth <= 1 ? [x, view.size.height - y, depth] : undefined;
}

function projectAll(plot: Plot, corners: readonly Corner[]): Pixels[] | undefined {
  const places = corners.map(({ at }) => project(plot, at));
  return places.every((place) => place !== undefined) ? places : undefined;
}

const rgbAt = (colors: Uint8Array, i: number): Rgb => [
  colors[i * 4]!,
  colors[i * 4 + 1]!,
  colors[i * 4 + 2]!,
];

const opacity = (alpha: number): number | undefined => (alpha < 255 ? alpha / 255 : undefined);

const distance = (a: Rgb, b: Rgb): number =>
  Math.max(...a.map((channel, k) => Math.abs(channel - b[k]!)));

const mean = (colors: readonly Rgb[]): Rgb => {
  const channel = (k: 0 | 1 | 2): number =>
    colors.reduce((sum, color) => sum + color[k], 0) / colors.length;
  return [channel(0), channel(1), channel(2)];
};

/** Three colours as a run between the two that differ most. */
interface ColorRun {
  /** The corners with those two colours, and the third. */
  from: number;
  to: number;
  other: number;
  /** How much the two differ. */
  length: number;
  /** Where the third is nearest to the line between them, and how far it is from there. */
  part: number;
  off: number;
}

function runOf(colors: readonly Rgb[]): ColorRun {
  const pairs = [
    [0, 1, 2],
    [1, 2, 0],
    [2, 0, 1],
  ] as const;
  const apart = pairs.map(([i, j]) => distance(colors[i]!, colors[j]!));
  const length = Math.max(...apart);
  const [from, to, other] = pairs[apart.indexOf(length)]!;
  const along = colors[from]!.map((channel, n) => colors[to]![n]! - channel);
  const aside = colors[from]!.map((channel, n) => colors[other]![n]! - channel);
  const square = along.reduce((sum, step) => sum + step * step, 0);
  const part = square > 0 ? along.reduce((sum, step, n) => sum + step * aside[n]!, 0) / square : 0;
  const off = Math.max(...aside.map((step, n) => Math.abs(step - along[n]! * part)));
  return { from, to, other, length, part, off };
}

/** One colour, or a gradient that is as near to three as one comes. */
function paint(
  places: readonly Pixels[],
  colors: readonly Rgb[],
  definitions: Definitions,
): string {
  const { from, to, other, length, part } = runOf(colors);
  if (length < SAME_COLOR) return cssColor(mean(colors));
  const end = gradientEnd(places[from]!, places[to]!, places[other]!, part);
  return end
    ? definitions.gradient(places[from]!, end, colors[from]!, colors[to]!)
    : cssColor(mean(colors));
}

/** A triangle, or smaller ones in its place while its colours are too far from a gradient. */
export function cutByColors(triangle: readonly Corner[], cuts = MOST_CUTS): (readonly Corner[])[] {
  const { off } = runOf(triangle.map(({ color }) => color));
  if (cuts === 0 || off < SEEN_OFF) return [triangle];
  const [a, b, c] = triangle as [Corner, Corner, Corner];
  const [ab, bc, ca] = [between(a, b, 0.5), between(b, c, 0.5), between(c, a, 0.5)];
  return [
    [a, ab, ca],
    [ab, b, bc],
    [ca, bc, c],
    [ab, bc, ca],
  ].flatMap((part) => cutByColors(part, cuts - 1));
}

/** Where the share reaches 1 that is 0 at `p`, 1 at `q` and `part` at `r`, straight across its lines. */
function gradientEnd(p: Pixels, q: Pixels, r: Pixels, part: number): [number, number] | undefined {
  const [ux, uy] = [q[0] - p[0], q[1] - p[1]];
  const [vx, vy] = [r[0] - p[0], r[1] - p[1]];
  const area = ux * vy - uy * vx;
  if (Math.abs(area) < 1e-3) return undefined;
  const gx = (vy - uy * part) / area;
  const gy = (ux * part - vx) / area;
  const square = gx * gx + gy * gy;
  return [p[0] + gx / square, p[1] + gy / square];
}

/** The corners of a triangle with the colours that light gives them. */
function litCorners(data: FaceData, start: number, plot: Plot): Corner[] {
  const { kind, positions, normals, colors, tags, index } = data;
  const last = index[start + 2]!;
  const look = tags[last * 2 + 1]!;
  const vertices = [index[start]!, index[start + 1]!, last];
  const at = vertices.map((vertex) => new Vector3().fromArray(positions, vertex * 3));
  return vertices.map((vertex, i) => {
    const normal = new Vector3().fromArray(normals, (kind.smoothNormals ? vertex : last) * 4);
    const color = rgbAt(colors, kind.smoothColors ? vertex : last);
    return { at: at[i]!, color: plot.lightOf(look, at[i]!, normal.normalize(), color) };
  });
}

export function surfaceShapes(data: FaceData, scope: Scope): Shape[] {
  const shapes: Shape[] = [];
  const { index, tags, colors, kind } = data;
  const varies = kind.smoothColors || kind.smoothNormals;
  for (let i = 0; i < index.length; i += 3) {
    const last = index[i + 2]!;
    if (scope.hidden.has(tags[last * 2]!)) continue;
    const triangle = litCorners(data, i, scope.plot);
    const pattern = patternOf(tags[last * 2 + 1]!);
    const alpha = colors[last * 4 + 3]!;
    const parts = varies && pattern === 0 ? cutByColors(triangle) : [triangle];
    const seen = parts
      .map((part) => areaShape(part, pattern, alpha, scope))
      .filter((shape) => shape !== undefined);
    // They share a depth, or some of them would hide the edges of the triangle.
    const depth = seen.reduce((sum, shape) => sum + shape.depth, 0) / seen.length;
    shapes.push(...seen.map(({ svg }) => ({ svg, depth })));
    const places = seen.length > 0 && projectAll(scope.plot, triangle);
    if (places) noteFace(places, depth, scope.nearest);
  }
  return shapes;
}

/** A triangle as far as it is within the box. */
function areaShape(
  triangle: readonly Corner[],
  pattern: number,
  alpha: number,
  { plot, definitions, clip }: Scope,
): Shape | undefined {
  const places = projectAll(plot, triangle);
  const clipped = clipPolygon(triangle, clip);
  const outline = clipped.length < 3 ? undefined : projectAll(plot, clipped);
  if (!places || !outline) return undefined;
  const shades = triangle.map(({ color }) => color);
  const fill =
    pattern > 0
      ? definitions.pattern(pattern, cssColor(mean(shades)))
      : paint(places, shades, definitions);
  // A rim of its own colour closes the seams: half of it lies over the neighbour's last pixel.
  const rim = pattern === 0 && alpha === 255 ? { stroke: fill, 'stroke-width': 1 } : {};
  const points = outline.map(([x, y]) => `${short(x)},${short(y)}`).join(' ');
  return {
    depth: outline.reduce((sum, place) => sum + place[2], 0) / outline.length,
    svg: tag('polygon', { points, fill, 'fill-opacity': opacity(alpha), ...rim }),
  };
}

function dashes(dash: number, width: number, before: number): Record<string, string | number> {
  const lengths = dashLengths(dash, width);
  if (!lengths) return {};
  return {
    'stroke-linecap': 'butt',
    'stroke-dasharray': lengths.map(short).join(' '),
    'stroke-dashoffset': before % (lengths[0] + lengths[1]),
  };
}

export function lineShapes(data: LineData, scope: Scope): Shape[] {
  const { plot, definitions, clip, hidden, nearest } = scope;
  const shapes: Shape[] = [];
  for (let i = 0; i < data.count; i++) {
    const [drawnWidth, object, code, before] = data.styles.subarray(i * 4, i * 4 + 4);
    if (hidden.has(object!)) continue;
    const isEdge = dashOf(code!) === ON_SURFACE;
    const seen = (color: Rgb): Rgb => (isEdge ? color : plot.seen(color));
    const start = { at: vectorAt(data.starts, i), color: seen(rgbAt(data.startColors, i)) };
    const end = { at: vectorAt(data.ends, i), color: seen(rgbAt(data.endColors, i)) };
    const clipped = clipSegment(start, end, clip);
    const places = clipped && projectAll(plot, clipped);
    if (!places) continue;
    const [a, b] = places as [Pixels, Pixels];
    const width = Math.max(drawnWidth!, 1);
    const whole = projectAll(plot, [start, end]);
    const face = whole && nearest.get(sideKey(whole[0]!, whole[1]!));
    const depth = Math.min((a[2] + b[2]) / 2, face ?? Infinity) - IN_FRONT;
    const isPlain = distance(start.color, end.color) < SAME_COLOR;
    const stroke = isPlain
      ? cssColor(start.color)
      : definitions.gradient(a, b, clipped![0].color, clipped![1].color);
    const alpha = opacity(data.startColors[i * 4 + 3]!);
    const tip = clipped![1].at === end.at ? data.tips[tipOf(code!) - 1] : undefined;
    const [x2, y2] = tip ? lineEnd(a, b, tip, width) : b;
    shapes.push({
      depth,
      svg: tag('line', {
        x1: a[0],
        y1: a[1],
        x2,
        y2,
        stroke,
        'stroke-width': width,
        'stroke-opacity': alpha,
        ...dashes(dashOf(code!), width, before! / plot.view.unitsPerPixel),
      }),
    });
    if (tip) {
      const svg = tipElement(a, b, tip, width, cssColor(end.color), alpha);
      shapes.push({ depth: depth - IN_FRONT, svg });
    }
  }
  return shapes;
}

const vectorAt = (list: Float32Array, i: number): Vector3 => new Vector3().fromArray(list, i * 3);

/** A place so many pixels back from the end of a line, and as many to its side. */
function backFrom(a: Pixels, b: Pixels, back: number, side: number): [number, number] {
  const length = Math.hypot(b[0] - a[0], b[1] - a[1]) || 1;
  const [dx, dy] = [(b[0] - a[0]) / length, (b[1] - a[1]) / length];
  return [b[0] - dx * back - dy * side, b[1] - dy * back + dx * side];
}

const tipSize = (a: Pixels, b: Pixels, tip: Tip, width: number): number =>
  Math.min(tipLength(tip, width), Math.max(Math.hypot(b[0] - a[0], b[1] - a[1]), 2));

function lineEnd(a: Pixels, b: Pixels, tip: Tip, width: number): [number, number] {
  return backFrom(a, b, tipSize(a, b, tip, width) * TIP_PARTS[tip.style], 0);
}

function tipElement(
  a: Pixels,
  b: Pixels,
  tip: Tip,
  width: number,
  color: string,
  alpha: number | undefined,
): string {
  const size = tipSize(a, b, tip, width);
  const side = size * Math.tan(tip.angle);
  const corners = [backFrom(a, b, size, side), [b[0], b[1]], backFrom(a, b, size, -side)];
  const points = corners.map(([x, y]) => `${short(x!)},${short(y!)}`).join(' ');
  if (tip.style === 'filled') return tag('polygon', { points, fill: color, 'fill-opacity': alpha });
  const pen = { fill: 'none', stroke: color, 'stroke-width': width, 'stroke-opacity': alpha };
  return tag(tip.style === 'open' ? 'polyline' : 'polygon', { points, ...pen });
}

export function pointShapes(data: PointData, { plot, clip, hidden, nearest }: Scope): Shape[] {
  const shapes: Shape[] = [];
  for (let i = 0; i < data.count; i++) {
    const [radius, object, style] = data.tags.subarray(i * 3, i * 3 + 3);
    if (hidden.has(object!)) continue;
    const at = vectorAt(data.positions, i);
    const place = project(plot, at);
    if (!place || !isWithin(at, clip)) continue;
    const { d, pen } = sign(style!, Math.max(radius!, 0.5));
    const color = cssColor(plot.seen(rgbAt(data.colors, i)));
    const alpha = opacity(data.colors[i * 4 + 3]!);
    const drawn =
      pen === 0
        ? { fill: color, 'fill-opacity': alpha }
        : {
            fill: 'none',
            stroke: color,
            'stroke-width': pen,
            'stroke-opacity': alpha,
            'stroke-linecap': 'butt',
            'stroke-linejoin': 'miter',
          };
    const transform = `translate(${short(place[0])} ${short(place[1])})`;
    const depth = Math.min(place[2], nearest.get(placeKey(place)) ?? Infinity) - 2 * IN_FRONT;
    shapes.push({ depth, svg: tag('path', { d, transform, ...drawn }) });
  }
  return shapes;
}

const isWithin = ({ x, y, z }: Vector3, { min, max }: ClipBox): boolean =>
  x >= min.x && x <= max.x && y >= min.y && y <= max.y && z >= min.z && z <= max.z;

/** A label in the middle of its rectangle. */
export function labelShape(label: Label, rectangle: Rectangle, { plot }: Scope): Shape {
  const { style, turns = 0 } = label;
  const x = rectangle.left + rectangle.width / 2;
  const y = plot.view.size.height - rectangle.bottom - rectangle.height / 2;
  const turn = turns === 0 ? '' : ` rotate(${short(-90 * turns)})`;
  const font = escape(cssFont(style, 1)).replaceAll('&#34;', "'");
  const below = style.size * 0.325;
  const halo = style.halo && {
    'paint-order': 'stroke',
    stroke: cssColor(style.halo),
    'stroke-width': 2 * HALO,
  };
  const values = {
    transform: `translate(${short(x)} ${short(y)})${turn}`,
    y: below,
    'text-anchor': 'middle',
    style: `font:${font}`,
    fill: cssColor(style.color),
    ...halo,
  };
  const depth = plot.view.toPixels(...label.at)[2] - 3 * IN_FRONT;
  return { depth, svg: tag('text', values).replace('/>', `>${escape(label.text)}</text>`) };
}
