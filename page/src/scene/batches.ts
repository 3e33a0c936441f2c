/**
 * What is drawn, in merged arrays: any number of geometries end up in a few batches, each of which
 * is one draw call.
 */
import { GrowingFloat32, GrowingUint32, GrowingUint8 } from '../javaview/growing';
import type { Rgb } from '../javaview/model';

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

export class FaceBatch {
  readonly positions = new GrowingFloat32();
  /** Four signed bytes a vertex, the last unused. */
  readonly normals = new GrowingUint8();
  readonly colors = new GrowingUint8();
  /** Object and pattern of each vertex. */
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
    pattern: number,
  ): number {
    const vertex = this.vertexCount;
    this.positions.push(x);
    this.positions.push(y);
    this.positions.push(z);
    for (let i = 0; i < 4; i++) this.normals.push(0);
    this.setNormal(vertex, normal);
    pushColor(this.colors, color);
    this.tags.push(object);
    this.tags.push(pattern);
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
}

export interface LineStyle {
  width: number;
  object: number;
  /** 0 solid, 1 dashed, 2 dotted. */
  dash: number;
  /** Whether the end is covered by the tip of an arrow. */
  tip: boolean;
}

export class LineBatch {
  readonly starts = new GrowingFloat32();
  readonly ends = new GrowingFloat32();
  readonly startColors = new GrowingUint8();
  readonly endColors = new GrowingUint8();
  /** Width, object, dash (and 4 for a tip), distance from the start of the whole line. */
  readonly styles = new GrowingFloat32();

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
    this.styles.push(style.dash + (style.tip ? 4 : 0));
    this.styles.push(distance);
  }
}

export class PointBatch {
  readonly positions = new GrowingFloat32();
  readonly colors = new GrowingUint8();
  /** Radius, object, style. */
  readonly tags = new GrowingFloat32();

  get count(): number {
    return this.positions.length / 3;
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

/** Every vertex of the file that may be pointed at. */
export interface Pickable {
  geometry: number;
  object: number;
  /** Drawn coordinates, three a point; NaN where the file has none. */
  positions: Float32Array;
}

export interface Counts {
  points: number;
  lines: number;
  faces: number;
  labels: number;
  vectors: number;
}

export class SceneBatches {
  readonly faces: FaceBatch[] = [];
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
}
