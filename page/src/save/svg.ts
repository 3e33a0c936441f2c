/** A plot as a drawing of lines and areas, the farthest first. */
import { cssColor, cssFont } from '../scene/atlas';
import type { FaceBatch, Label, LineBatch, PointBatch } from '../scene/batches';
import type { Plot } from '../scene/plot';

export const MOST_PRIMITIVES = 20_000;

interface Shape {
  depth: number;
  svg: string;
}

type Project = (x: number, y: number, z: number) => readonly [number, number, number];

export function countPrimitives({ batches }: Plot): number {
  const triangles = batches.faces.reduce((sum, batch) => sum + batch.index.length / 3, 0);
  return triangles + batches.lines.count + batches.points.count + batches.labels.length;
}

const escape = (text: string): string => text.replace(/[&<>"]/g, (c) => `&#${c.charCodeAt(0)};`);

const short = (value: number): string => String(Math.round(value * 100) / 100);

/** Strokes of the fill patterns, in a square of seven pixels, by their places in the list of names. */
const STROKES = [
  '',
  'M0 0H7',
  'M0 0V7',
  'M0 7 7 0',
  'M0 0 7 7',
  'M0 0H7M0 0V7',
  'M0 7 7 0M0 0 7 7',
];

/** The patterns that a drawing uses, each defined once. */
class Patterns {
  private readonly defined = new Map<string, string>();

  use(pattern: number, color: string): string {
    const name = `p${pattern}-${color.replace(/\D+/g, '-')}`;
    this.defined.set(
      name,
      `<pattern id="${name}" width="7" height="7" patternUnits="userSpaceOnUse">` +
        `<path d="${STROKES[pattern] ?? ''}" stroke="${color}" stroke-width="1.25"/></pattern>`,
    );
    return `url(#${name})`;
  }

  toString(): string {
    return [...this.defined.values()].join('');
  }
}

function triangles(
  batch: FaceBatch,
  project: Project,
  hidden: Set<number>,
  lit: Lit,
  patterns: Patterns,
): Shape[] {
  const shapes: Shape[] = [];
  for (let i = 0; i < batch.index.length; i += 3) {
    const corners = [0, 1, 2].map((k) => batch.index.at(i + k));
    const last = corners[2]!;
    if (hidden.has(batch.tags.at(last * 2))) continue;
    const places = corners.map((v) =>
      project(
        batch.positions.at(v * 3),
        batch.positions.at(v * 3 + 1),
        batch.positions.at(v * 3 + 2),
      ),
    );
    const rgb = [0, 1, 2].map((k) =>
      batch.kind.smoothColors
        ? corners.reduce((sum, v) => sum + batch.colors.at(v * 4 + k), 0) / 3
        : batch.colors.at(last * 4 + k),
    );
    const color = cssColor(lit(batch, corners, rgb));
    const alpha = batch.colors.at(last * 4 + 3) / 255;
    const pattern = batch.tags.at(last * 2 + 1);
    const fill = pattern > 0 ? patterns.use(pattern, color) : color;
    const opacity =
      pattern > 0
        ? ''
        : alpha < 1
          ? ` fill-opacity="${short(alpha)}"`
          : ` stroke="${color}" stroke-width="0.4"`;
    const points = places.map(([x, y]) => `${short(x)},${short(y)}`).join(' ');
    shapes.push({
      depth: (places[0]![2] + places[1]![2] + places[2]![2]) / 3,
      svg: `<polygon points="${points}" fill="${fill}"${opacity}/>`,
    });
  }
  return shapes;
}

type Lit = (batch: FaceBatch, corners: readonly number[], color: readonly number[]) => number[];

/** How far what lies on a surface is moved to the front, so that it is drawn after it. */
const IN_FRONT = 0.004;

function lines(batch: LineBatch, project: Project, hidden: Set<number>): Shape[] {
  const shapes: Shape[] = [];
  for (let i = 0; i < batch.count; i++) {
    if (hidden.has(batch.styles.at(i * 4 + 1))) continue;
    const a = project(
      batch.starts.at(i * 3),
      batch.starts.at(i * 3 + 1),
      batch.starts.at(i * 3 + 2),
    );
    const b = project(batch.ends.at(i * 3), batch.ends.at(i * 3 + 1), batch.ends.at(i * 3 + 2));
    const rgb = [0, 1, 2].map(
      (k) => (batch.startColors.at(i * 4 + k) + batch.endColors.at(i * 4 + k)) / 2,
    );
    const width = Math.max(batch.styles.at(i * 4), 1);
    const code = batch.styles.at(i * 4 + 2);
    const dash = code % 4;
    const dashes =
      dash === 0
        ? ''
        : ` stroke-dasharray="${dash === 1 ? `${short(5 * width)} ${short(3 * width)}` : `${short(width)} ${short(2 * width)}`}"`;
    const alpha = batch.startColors.at(i * 4 + 3) / 255;
    const opacity = alpha < 1 ? ` stroke-opacity="${short(alpha)}"` : '';
    const color = cssColor(rgb);
    const depth = Math.min(a[2], b[2]) * 0.5 + Math.max(a[2], b[2]) * 0.5 - IN_FRONT;
    shapes.push({
      depth,
      svg: `<line x1="${short(a[0])}" y1="${short(a[1])}" x2="${short(b[0])}" y2="${short(b[1])}" stroke="${color}" stroke-width="${short(width)}"${dashes}${opacity}/>`,
    });
    if (code > 3.5) shapes.push({ depth: depth - IN_FRONT, svg: tip(a, b, width, color) });
  }
  return shapes;
}

function tip(a: readonly number[], b: readonly number[], width: number, color: string): string {
  const length = Math.hypot(b[0]! - a[0]!, b[1]! - a[1]!) || 1;
  const size = Math.min(7 + 3 * width, Math.max(length, 2));
  const dx = ((b[0]! - a[0]!) / length) * size;
  const dy = ((b[1]! - a[1]!) / length) * size;
  const corner = (side: number): string =>
    `${short(b[0]! - dx - dy * 0.35 * side)},${short(b[1]! - dy + dx * 0.35 * side)}`;
  return `<polygon points="${short(b[0]!)},${short(b[1]!)} ${corner(1)} ${corner(-1)}" fill="${color}"/>`;
}

function discs(batch: PointBatch, project: Project, hidden: Set<number>): Shape[] {
  const shapes: Shape[] = [];
  for (let i = 0; i < batch.count; i++) {
    if (hidden.has(batch.tags.at(i * 3 + 1))) continue;
    const [x, y, depth] = project(
      batch.positions.at(i * 3),
      batch.positions.at(i * 3 + 1),
      batch.positions.at(i * 3 + 2),
    );
    const color = cssColor([0, 1, 2].map((k) => batch.colors.at(i * 4 + k)));
    const radius = short(Math.max(batch.tags.at(i * 3), 0.5));
    shapes.push({
      depth: depth - 2 * IN_FRONT,
      svg: `<circle cx="${short(x)}" cy="${short(y)}" r="${radius}" fill="${color}"/>`,
    });
  }
  return shapes;
}

function text(label: Label, project: Project, width: number): Shape {
  const [x, y, depth] = project(...label.at);
  const left = x + label.shift[0];
  const top = y - label.shift[1];
  const anchor = ['start', 'middle', 'end'][Math.round(label.anchor[0] * 2)]!;
  const { size } = label.style;
  const turned = (label.turns ?? 0) === 1;
  const place = turned
    ? `transform="translate(${short(left - label.anchor[0] * size * 1.25 + size * 0.95)} ${short(top)}) rotate(-90)" text-anchor="middle"`
    : `x="${short(left - (label.anchor[0] * 2 - Math.round(label.anchor[0] * 2)) * width * 0.5)}" y="${short(top + size * (0.95 - 1.25 * label.anchor[1]))}" text-anchor="${anchor}"`;
  const font = escape(cssFont(label.style, 1)).replaceAll('&#34;', "'");
  return {
    depth: depth - 3 * IN_FRONT,
    svg: `<text ${place} style="font:${font}" fill="${cssColor(label.style.color)}">${escape(label.text)}</text>`,
  };
}

/** The drawing as it is seen now. */
export function toSvg(plot: Plot): string {
  plot.draw(1, false, false);
  const { view, batches, hidden, layout, placed } = plot;
  const { width, height } = view.size;
  const project: Project = (x, y, z) => {
    const [px, py, depth] = view.toPixels(x, y, z);
    return [px, height - py, depth];
  };
  const lit: Lit = (batch, corners, color) => plot.lightOf(batch, corners, color);
  const none = new Set<number>();
  const patterns = new Patterns();
  const scene = [
    ...batches.faces.flatMap((batch) => triangles(batch, project, hidden, lit, patterns)),
    ...lines(batches.lines, project, hidden),
    ...discs(batches.points, project, hidden),
    ...placed.labels.map((label, i) => text(label, project, placed.rectangles[i]!.width)),
  ].sort((a, b) => b.depth - a.depth);
  const rulers = [
    ...(layout ? lines(layout.batches.lines, project, none) : []),
    ...plot.labels.map((label, i) => text(label, project, plot.rectangles[i]!.width)),
  ].sort((a, b) => b.depth - a.depth);
  const inFront = rulers.filter(({ depth }) => plot.flat && depth < -0.1);
  const clip = plot.plotRectangle;
  const background = cssColor(plot.ground);
  const clipPath = clip
    ? `<clipPath id="c"><rect x="${short(clip.left)}" y="${short(height - clip.bottom - clip.height)}" width="${short(clip.width)}" height="${short(clip.height)}"/></clipPath>`
    : '';
  const all = clip
    ? [
        ...rulers.filter((shape) => !inFront.includes(shape)).map(({ svg }) => svg),
        `<g clip-path="url(#c)">`,
        ...scene.map(({ svg }) => svg),
        '</g>',
        ...inFront.map(({ svg }) => svg),
      ]
    : [...scene, ...rulers].sort((a, b) => b.depth - a.depth).map(({ svg }) => svg);
  return [
    `<svg xmlns="http://www.w3.org/2000/svg" width="${width}" height="${height}" viewBox="0 0 ${width} ${height}">`,
    `<defs>${clipPath}${patterns}</defs>`,
    `<rect width="100%" height="100%" fill="${background}"/>`,
    '<g stroke-linecap="round" stroke-linejoin="round">',
    ...all,
    '</g>',
    '</svg>',
    '',
  ].join('\n');
}
