/**
 * What is drawn, in merged arrays: any number of geometries end up in a few batches, each of which
 * is one draw call.
 */
import { GrowingFloat32, GrowingUint32, GrowingUint8 } from '../javaview/growing';
import type { Rgb } from '../javaview/model';
import { coarseIndex, FINE_ENOUGH } from './coarse';
import type { Tip } from './styles';

export type Rgba = readonly [number, number, number, number];

export const withAlpha = (color: Rgb, alpha: number): Rgba => [...color, Math.round(alpha * 255)];

function pushColor(to: GrowingUint8, color: Rgba): void {
  to.push(color[0]);
  to.push(color[1]);
  to.push(color[2]);
  to.push(color[3]);
}

/** Which way a batch of faces is coloured and lit; faces that differ go to different batches. */
export interface FaceKind {
  smoothNormals: boolean;
  smoothColors: boolean;
  transparent: boolean;
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

/** So many kinds of gloss are told apart in one scene; others look like the last of them. */
export const MOST_GLOSSES = 32;

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
  /** Four signed bytes a vertex, the last unused. */
  readonly normals = new GrowingUint8();
  readonly colors = new GrowingUint8();
  readonly tags = new GrowingFloat32();
  readonly index = new GrowingUint32();

  constructor(readonly kind: FaceKind) {}

  get vertexCount(): number {
    return this.positions.length / 3;
  }

  addVertex(
    x: number,
    y: number,
    z: number,
    normal: readonly number[],
    color: Rgba,
    object: number,
    look: number,
  ): number {
    const vertex = this.vertexCount;
    this.positions.push(x);
    this.positions.push(y);
    this.positions.push(z);
    for (let i = 0; i < 4; i++) this.normals.push(0);
    this.setNormal(vertex, normal);
    pushColor(this.colors, color);
    this.tags.push(object);
    this.tags.push(look);
    return vertex;
  }

  setNormal(vertex: number, normal: readonly number[]): void {
    const length = Math.hypot(normal[0]!, normal[1]!, normal[2]!) || 1;
    for (let i = 0; i < 3; i++) {
      this.normals.set(vertex * 4 + i, Math.round((normal[i]! / length) * 127) & 255);
    }
  }

  setColor(vertex: number, color: Rgba): void {
    for (let i = 0; i < 4; i++) this.colors.set(vertex * 4 + i, color[i]!);
  }

  copyVertex(vertex: number): number {
    const copy = this.vertexCount;
    for (let i = 0; i < 3; i++) this.positions.push(this.positions.at(vertex * 3 + i));
    for (let i = 0; i < 4; i++) this.normals.push(this.normals.at(vertex * 4 + i));
    for (let i = 0; i < 4; i++) this.colors.push(this.colors.at(vertex * 4 + i));
    for (let i = 0; i < 2; i++) this.tags.push(this.tags.at(vertex * 2 + i));
    return copy;
  }

  finish(): FaceData {
    const positions = this.positions.take();
    const index = this.index.take();
    const isLarge = !this.kind.transparent && index.length > FINE_ENOUGH * 3;
    return {
      kind: this.kind,
      positions,
      normals: new Int8Array(this.normals.take().buffer),
      colors: this.colors.take(),
      tags: this.tags.take(),
      index,
      coarse: isLarge ? coarseIndex(positions, index) : undefined,
    };
  }
}

export interface LineStyle {
  width: number;
  object: number;
  /** 0 solid, 1 dashed, 2 dotted. */
  dash: number;
  /** At the end of the line, if there is one. */
  tip: Tip | undefined;
}

/** So many kinds of tips are told apart in one scene; others look like the last of them. */
export const MOST_TIPS = 15;

/** How the third number of a style holds a dash, and the number of a tip from 1 on. */
export const styleCode = (dash: number, tip: number): number => dash + 4 * tip;
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
    for (let i = 0; i < 3; i++) this.starts.push(a[i]!);
    for (let i = 0; i < 3; i++) this.ends.push(b[i]!);
    pushColor(this.startColors, colorA);
    pushColor(this.endColors, colorB);
    this.styles.push(style.width);
    this.styles.push(style.object);
    this.styles.push(styleCode(style.dash, style.tip ? this.numberOf(style.tip) : 0));
    this.styles.push(distance);
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
    for (let i = 0; i < 3; i++) this.positions.push(at[i]!);
    pushColor(this.colors, color);
    this.tags.push(radius);
    this.tags.push(object);
    this.tags.push(style);
  }
}

export interface TextStyle {
  family: string;
  size: number;
  bold: boolean;
  italic: boolean;
  color: Rgb;
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

/** A geometry whose points may be pointed at. */
export interface Pickable {
  geometry: number;
  object: number;
  /** The height at which it is drawn in a scene of two dimensions. */
  layer: number;
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
  pickables: Pickable[];
  counts: Counts;
}

export class SceneBatches {
  readonly faces: FaceBatch[] = [];
  private readonly glosses: Gloss[] = [PLAIN_GLOSS];
  readonly lines = new LineBatch();
  readonly points = new PointBatch();
  readonly labels: Label[] = [];
  readonly pickables: Pickable[] = [];
  readonly counts: Counts = { points: 0, lines: 0, faces: 0, labels: 0, vectors: 0 };

  faceBatch(kind: FaceKind): FaceBatch {
    const same = this.faces.find(
      (batch) =>
        batch.kind.transparent === kind.transparent &&
        batch.kind.smoothColors === kind.smoothColors &&
        batch.kind.smoothNormals === kind.smoothNormals,
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
    const { glosses, labels, pickables, counts } = this;
    return {
      glosses,
      faces: this.faces.map((batch) => batch.finish()),
      lines: this.lines.finish(),
      points: this.points.finish(),
      labels,
      pickables,
      counts,
    };
  }
}
