/**
 * What is drawn, in merged arrays: any number of geometries end up in a few batches, each of which
 * is one draw call.
 */
import { GrowingFloat32, GrowingInt8, GrowingUint32, GrowingUint8 } from '../javaview/growing';
import type { Rgb } from '../javaview/model';
import { coarseIndex, FINE_ENOUGH_SLOW } from './coarse';
import type { Tip } from './styles';

export type Rgba = readonly [number, number, number, number];

export const withAlpha = (color: Rgb, alpha: number): Rgba => [...color, Math.round(alpha * 255)];

// Loops over all points of a scene write to arrays of one type each, which engines compile best.

function pushPlace(to: GrowingFloat32, at: ArrayLike<number>, from = 0): void {
  const first = to.extend(3);
  const { values } = to;
  values[first] = at[from]!;
  values[first + 1] = at[from + 1]!;
  values[first + 2] = at[from + 2]!;
}

function pushColor(to: GrowingUint8, color: Rgba): void {
  setColor(to, to.extend(4), color);
}

function setColor({ values }: GrowingUint8, first: number, color: Rgba): void {
  values[first] = color[0];
  values[first + 1] = color[1];
  values[first + 2] = color[2];
  values[first + 3] = color[3];
}

/** Which way a batch of faces is coloured and lit; faces that differ go to different batches. */
export interface FaceKind {
  smoothNormals: boolean;
  smoothColors: boolean;
  transparent: boolean;
  /** Whether faces may have patterns, which leave pixels out. */
  hatched: boolean;
}

/** What a surface does with light, in parts of it. */
export interface Gloss {
  specular: readonly [number, number, number];
  /** The larger, the smaller the shining spots. */
  exponent: number;
  emissive: readonly [number, number, number];
  /** Of the white light from all sides. */
  ambient: number;
}

export const PLAIN_GLOSS: Gloss = {
  specular: [0.3, 0.3, 0.3],
  exponent: 50,
  emissive: [0, 0, 0],
  ambient: 0.2,
};

/** A scene has at most so many kinds of gloss; further ones look like the last of them. */
export const MOST_GLOSSES = 32;

/** Object, and code of pattern and gloss. */
export type Tag = readonly [number, number];

/** How the second number of a tag holds a pattern and the number of a gloss. */
export const lookCode = (pattern: number, gloss: number): number => pattern + 8 * gloss;
export const patternOf = (code: number): number => code % 8;
export const glossOf = (code: number): number => Math.floor(code / 8);

/** A batch of faces as it is drawn. */
export interface FaceData {
  kind: FaceKind;
  positions: Float32Array;
  /** Four a vertex, the last unused. */
  normals: Int8Array;
  colors: Uint8Array;
  /** Object, and code of pattern and gloss, of each vertex. */
  tags: Float32Array;
  index: Uint32Array;
  /** Fewer triangles of a large surface, for as long as it moves. */
  coarse: Uint32Array | undefined;
}

export class FaceBatch {
  readonly positions = new GrowingFloat32();
  readonly normals = new GrowingInt8();
  readonly colors = new GrowingUint8();
  readonly tags = new GrowingFloat32();
  readonly index = new GrowingUint32();

  constructor(readonly kind: FaceKind) {}

  get vertexCount(): number {
    return this.positions.length / 3;
  }

  /** Adds a vertex; its place begins at `from` in a list, and so does its normal at `normalFrom`. */
  addVertex(
    at: ArrayLike<number>,
    from: number,
    normal: ArrayLike<number>,
    normalFrom: number,
    color: Rgba,
    tag: Tag,
  ): number {
    const vertex = this.vertexCount;
    pushPlace(this.positions, at, from);
    this.normals.extend(4);
    this.setNormal(vertex, normal, normalFrom);
    pushColor(this.colors, color);
    this.pushTag(tag[0], tag[1]);
    return vertex;
  }

  setNormal(vertex: number, normal: ArrayLike<number>, from = 0): void {
    const { values } = this.normals;
    const x = normal[from]!;
    const y = normal[from + 1]!;
    const z = normal[from + 2]!;
    const scale = 127 / (Math.sqrt(x * x + y * y + z * z) || 1);
    values[vertex * 4] = Math.round(x * scale);
    values[vertex * 4 + 1] = Math.round(y * scale);
    values[vertex * 4 + 2] = Math.round(z * scale);
  }

  setColor(vertex: number, color: Rgba): void {
    setColor(this.colors, vertex * 4, color);
  }

  copyVertex(vertex: number): number {
    const copy = this.vertexCount;
    const { positions, normals, colors, tags } = this;
    positions.extend(3);
    positions.values.copyWithin(copy * 3, vertex * 3, vertex * 3 + 3);
    normals.extend(4);
    normals.values.copyWithin(copy * 4, vertex * 4, vertex * 4 + 4);
    colors.extend(4);
    colors.values.copyWithin(copy * 4, vertex * 4, vertex * 4 + 4);
    this.pushTag(tags.at(vertex * 2), tags.at(vertex * 2 + 1));
    return copy;
  }

  addTriangle(a: number, b: number, c: number): void {
    const first = this.index.extend(3);
    const { values } = this.index;
    values[first] = a;
    values[first + 1] = b;
    values[first + 2] = c;
  }

  private pushTag(object: number, look: number): void {
    const first = this.tags.extend(2);
    const { values } = this.tags;
    values[first] = object;
    values[first + 1] = look;
  }

  finish(): FaceData {
    const positions = this.positions.take();
    const index = this.index.take();
    const isLarge = !this.kind.transparent && index.length > FINE_ENOUGH_SLOW * 3;
    return {
      kind: this.kind,
      positions,
      normals: this.normals.take(),
      colors: this.colors.take(),
      tags: this.tags.take(),
      index,
      coarse: isLarge ? coarseIndex(positions, index) : undefined,
    };
  }
}

/** In the place of a dash, for solid lines that are seen before the faces that they surround. */
export const ON_SURFACE = 3;

export interface LineStyle {
  width: number;
  object: number;
  /** 0 solid, 1 dashed, 2 dotted, or `ON_SURFACE`. */
  dash: number;
  /** At the end of the line, if there is one. */
  tip: Tip | undefined;
}

/** A scene has at most so many kinds of tips; further ones look like the last of them. */
export const MOST_TIPS = 15;

/** How the third number of a style holds a dash, and the number of a tip from 1 on. */
const styleCode = (dash: number, tip: number): number => dash + 4 * tip;
export const dashOf = (code: number): number => code % 4;
export const tipOf = (code: number): number => Math.floor(code / 4);

export interface LineData {
  count: number;
  starts: Float32Array;
  ends: Float32Array;
  startColors: Uint8Array;
  endColors: Uint8Array;
  /** Width, object, code of dash and tip, distance from the start of the whole line. */
  styles: Float32Array;
  /** The tips that are counted from 1. */
  tips: Tip[];
}

export class LineBatch {
  readonly starts = new GrowingFloat32();
  readonly ends = new GrowingFloat32();
  readonly startColors = new GrowingUint8();
  readonly endColors = new GrowingUint8();
  readonly styles = new GrowingFloat32();
  private readonly tips: Tip[] = [];

  get count(): number {
    return this.styles.length / 4;
  }

  add(
    a: ArrayLike<number>,
    b: ArrayLike<number>,
    colorA: Rgba,
    colorB: Rgba,
    style: LineStyle,
    distance: number,
  ): void {
    pushPlace(this.starts, a);
    pushPlace(this.ends, b);
    pushColor(this.startColors, colorA);
    pushColor(this.endColors, colorB);
    const first = this.styles.extend(4);
    const { values } = this.styles;
    values[first] = style.width;
    values[first + 1] = style.object;
    values[first + 2] = styleCode(style.dash, style.tip ? this.numberOf(style.tip) : 0);
    values[first + 3] = distance;
  }

  finish(): LineData {
    return {
      count: this.count,
      starts: this.starts.take(),
      ends: this.ends.take(),
      startColors: this.startColors.take(),
      endColors: this.endColors.take(),
      styles: this.styles.take(),
      tips: this.tips,
    };
  }

  private numberOf(tip: Tip): number {
    const same = this.tips.findIndex(
      ({ style, length, angle }) =>
        style === tip.style && length === tip.length && angle === tip.angle,
    );
    if (same >= 0) return same + 1;
    if (this.tips.length < MOST_TIPS) this.tips.push(tip);
    return this.tips.length;
  }
}

export interface PointData {
  count: number;
  positions: Float32Array;
  colors: Uint8Array;
  /** Radius, object, style. */
  tags: Float32Array;
}

export class PointBatch {
  readonly positions = new GrowingFloat32();
  readonly colors = new GrowingUint8();
  readonly tags = new GrowingFloat32();

  get count(): number {
    return this.positions.length / 3;
  }

  finish(): PointData {
    return {
      count: this.count,
      positions: this.positions.take(),
      colors: this.colors.take(),
      tags: this.tags.take(),
    };
  }

  add(at: ArrayLike<number>, color: Rgba, radius: number, object: number, style: number): void {
    pushPlace(this.positions, at);
    pushColor(this.colors, color);
    const first = this.tags.extend(3);
    const { values } = this.tags;
    values[first] = radius;
    values[first + 1] = object;
    values[first + 2] = style;
  }
}

export interface TextStyle {
  family: string;
  size: number;
  bold: boolean;
  italic: boolean;
  color: Rgb;
  /** Round the letters, which are read on top of lines then. */
  halo?: Rgb | undefined;
}

export interface Label {
  text: string;
  at: readonly [number, number, number];
  style: TextStyle;
  /** Where the anchor lies in the text, 0 to 1 from left to right and from top to bottom. */
  anchor: readonly [number, number];
  /** Shift in pixels, y up. */
  shift: readonly [number, number];
  object: number;
  /** Quarter turns to the left. */
  turns?: number;
}

export interface Counts {
  points: number;
  lines: number;
  faces: number;
  labels: number;
  vectors: number;
}

/** What is drawn, in arrays that can be handed from one thread to another. */
export interface SceneData {
  faces: FaceData[];
  glosses: Gloss[];
  lines: LineData;
  points: PointData;
  labels: Label[];
  /** For each geometry, whether its points may be pointed at: 1 or 0. */
  seen: Uint8Array;
  counts: Counts;
}

export class SceneBatches {
  readonly faces: FaceBatch[] = [];
  private readonly glosses: Gloss[] = [PLAIN_GLOSS];
  readonly lines = new LineBatch();
  readonly points = new PointBatch();
  readonly labels: Label[] = [];
  readonly seen: Uint8Array;
  readonly counts: Counts = { points: 0, lines: 0, faces: 0, labels: 0, vectors: 0 };

  constructor(geometryCount = 0) {
    this.seen = new Uint8Array(geometryCount);
  }

  faceBatch(kind: FaceKind): FaceBatch {
    const same = this.faces.find(
      (batch) =>
        batch.kind.transparent === kind.transparent &&
        batch.kind.smoothColors === kind.smoothColors &&
        batch.kind.smoothNormals === kind.smoothNormals &&
        batch.kind.hatched === kind.hatched,
    );
    if (same) return same;
    const fresh = new FaceBatch(kind);
    this.faces.push(fresh);
    return fresh;
  }

  /** The number of a gloss, for the tags of faces. */
  glossNumber(gloss: Gloss): number {
    const text = JSON.stringify(gloss);
    const same = this.glosses.findIndex((other) => JSON.stringify(other) === text);
    if (same >= 0) return same;
    if (this.glosses.length < MOST_GLOSSES) this.glosses.push(gloss);
    return this.glosses.length - 1;
  }

  finish(): SceneData {
    const { glosses, labels, seen, counts } = this;
    return {
      glosses,
      faces: this.faces.map((batch) => batch.finish()),
      lines: this.lines.finish(),
      points: this.points.finish(),
      labels,
      seen,
      counts,
    };
  }
}
