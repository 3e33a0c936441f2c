/** Faces of any number of corners, and their edges. */
import { GrowingInt32 } from '../javaview/growing';
import type { FaceSet, LineSet, Material, PointSet, Rgb } from '../javaview/model';
import {
  lookCode,
  ON_SURFACE,
  withAlpha,
  type FaceBatch,
  type Gloss,
  type Rgba,
  type Tag,
} from './batches';
import { colorAt, type Draft } from './draft';
import { crossedTriangles, type OnSide } from './crossings';
import { areaNormal, project, triangulate } from './polygons';
import type { Space } from './space';
import { FILL_PATTERNS } from './styles';

export const DEFAULT_FACE_COLOR: Rgb = [0, 160, 200];
export const DEFAULT_EDGE_COLOR: Rgb = [0, 0, 0];

/** Above this number of points, coincident ones are no longer found for common normals. */
const MOST_WELDED = 200_000;

const UPWARDS = [0, 0, 1];
const NO_CORNERS: readonly number[] = [];

/** White spots are as bright as this on a surface that throws all light back. */
const BRIGHTEST_SPOT = 0.6;
/** The exponent for the shininess 1. */
const SHARPEST = 56;

/** Transparent triangles are cut until no side is longer, so that sorting them is right. */
const LONGEST_TRANSPARENT_SIDE = 0.25;

/** The corners of face `i` that are there, in `corners`; none if one of them cannot be drawn. */
function cornersOf(
  faces: FaceSet,
  i: number,
  at: Float32Array,
  corners: number[] = [],
): readonly number[] {
  const { offsets, values } = faces.faces;
  corners.length = 0;
  for (let k = offsets[i]!; k < offsets[i + 1]!; k++) {
    const corner = values[k]!;
    const x = corner < 0 ? undefined : at[corner * 3];
    if (x === undefined) continue;
    if (Number.isNaN(x)) return NO_CORNERS;
    if (corner !== corners[corners.length - 1]) corners.push(corner);
  }
  if (corners.length > 1 && corners[0] === corners[corners.length - 1]) corners.pop();
  return corners.length < 3 ? NO_CORNERS : corners;
}

/** The mean of the colours of points. */
export function meanColor(colors: Uint8Array, points: readonly number[], otherwise: Rgb): Rgb {
  const sum = [0, 0, 0];
  for (const point of points) {
    const color = colorAt(colors, point, otherwise);
    for (let i = 0; i < 3; i++) sum[i]! += color[i]!;
  }
  return [sum[0]! / points.length, sum[1]! / points.length, sum[2]! / points.length];
}

/** Whether lines or faces have the colours of their points: if they say so, or have none. */
export function usesPointColors(set: LineSet | FaceSet, points: PointSet): boolean {
  return points.colors.length > 0 && (set.colorFromPoints || set.colors.length === 0);
}

/** Shininess is a part of the sharpest, or an exponent. */
function glossOfMaterial({ specular, shininess, emissive, ambient }: Material): Gloss {
  const part = (color: Rgb, most: number): [number, number, number] => [
    (color[0] / 255) * most,
    (color[1] / 255) * most,
    (color[2] / 255) * most,
  ];
  const exponent = shininess <= 1 ? shininess * SHARPEST : shininess;
  return {
    specular: part(specular, BRIGHTEST_SPOT),
    exponent: Math.min(Math.max(exponent, 1), 128),
    emissive: part(emissive, 1),
    ambient: Math.min(Math.max(ambient, 0), 1),
  };
}

/** The colour before it was made lighter in the place of a pattern. */
function undoLightening(color: Rgb): Rgb {
  const darker = (channel: number): number => Math.max(0, 2 * channel - 256);
  return [darker(color[0]), darker(color[1]), darker(color[2])];
}

/** The normals that the file has, as they are in the scene. */
function givenNormals(given: Float64Array, space: Space): Float32Array {
  const normals = new Float32Array(given.length);
  for (let i = 0; i < given.length; i += 3) {
    normals.set(space.normal(given[i]!, given[i + 1]!, given[i + 2]!), i);
  }
  return normals;
}

/** Sums of the area normals at each point, points at the same place taken together. */
function pointNormals(faces: FaceSet, at: Float32Array): Float32Array {
  const count = at.length / 3;
  const normals = new Float32Array(at.length);
  const same = count <= MOST_WELDED ? firstAtSamePlace(at) : undefined;
  for (let i = 0; i + 1 < faces.faces.offsets.length; i++) {
    const corners = cornersOf(faces, i, at);
    if (corners.length === 0) continue;
    const normal = areaNormal(at, corners);
    for (const corner of corners) {
      const target = (same ? same[corner]! : corner) * 3;
      for (let k = 0; k < 3; k++) normals[target + k]! += normal[k]!;
    }
  }
  if (same) {
    for (let i = 0; i < count; i++) {
      const from = same[i]! * 3;
      if (from !== i * 3) normals.copyWithin(i * 3, from, from + 3);
    }
  }
  return normals;
}

function normalsOf({ geometry, space, at }: Draft, faces: FaceSet): Float32Array {
  const { normals } = geometry.points;
  return normals.length >= at.length ? givenNormals(normals, space) : pointNormals(faces, at);
}

function firstAtSamePlace(at: Float32Array): Int32Array {
  const first = new Int32Array(at.length / 3);
  const seen = new Map<string, number>();
  const round = (value: number): number => Math.round(value * 1e5);
  for (let i = 0; i < first.length; i++) {
    const key = `${round(at[i * 3]!)} ${round(at[i * 3 + 1]!)} ${round(at[i * 3 + 2]!)}`;
    const known = seen.get(key);
    if (known === undefined) seen.set(key, i);
    first[i] = known ?? i;
  }
  return first;
}

/**
 * Puts opaque faces into a batch. A flat normal or colour is that of the last vertex of a triangle,
 * so each face needs a vertex of its own there; most faces find one among their corners that no
 * other face has taken, and vertices stay shared.
 */
class OpaqueFaces {
  private readonly vertexOfPoint: Int32Array;
  /** The face that has taken each vertex of this geometry, or -1. */
  private readonly owners = new GrowingInt32();
  private readonly firstVertex: number;
  private readonly shared: boolean;
  /** Those of the face that is added. */
  private readonly vertices: number[] = [];
  private lastColor: Rgb = DEFAULT_FACE_COLOR;
  private lastOpaque = withAlpha(DEFAULT_FACE_COLOR, 1);

  constructor(
    private readonly batch: FaceBatch,
    private readonly at: Float32Array,
    private readonly normals: Float32Array | undefined,
    private readonly pointColor: ((point: number) => Rgb) | undefined,
    private readonly tag: Tag,
  ) {
    this.vertexOfPoint = new Int32Array(at.length / 3).fill(-1);
    this.shared = normals !== undefined && pointColor !== undefined;
    this.firstVertex = batch.vertexCount;
  }

  add(
    face: number,
    corners: readonly number[],
    normal: readonly number[],
    color: Rgb,
    cut: 'fan' | number[],
  ): void {
    const { vertices } = this;
    vertices.length = 0;
    for (const corner of corners) vertices.push(this.vertex(corner, color));
    if (cut === 'fan') {
      this.addFan(vertices, face, normal, color);
      return;
    }
    for (let i = 0; i < cut.length; i += 3) {
      const own = [vertices[cut[i]!]!, vertices[cut[i + 1]!]!, vertices[cut[i + 2]!]!];
      this.addFan(own, face, normal, color);
    }
  }

  private vertex(point: number, color: Rgb): number {
    const known = this.vertexOfPoint[point]!;
    if (known >= 0) return known;
    const { at, normals, pointColor } = this;
    const k = point * 3;
    const vertex = this.batch.addVertex(
      at,
      k,
      normals ?? UPWARDS,
      normals ? k : 0,
      this.opaque(pointColor ? pointColor(point) : color),
      this.tag,
    );
    this.vertexOfPoint[point] = vertex;
    this.owners.push(-1);
    return vertex;
  }

  /** Triangles round one corner, which comes last in each. */
  private addFan(vertices: number[], face: number, normal: readonly number[], color: Rgb): void {
    const count = vertices.length;
    let apex = 0;
    if (!this.shared) {
      apex = this.freeCorner(vertices, face);
      vertices[apex] = this.claim(vertices[apex]!, face, normal, color);
    }
    for (let i = 1; i + 1 < count; i++) {
      const a = vertices[(apex + i) % count]!;
      const b = vertices[(apex + i + 1) % count]!;
      this.batch.addTriangle(a, b, vertices[apex]!);
    }
  }

  private freeCorner(vertices: readonly number[], face: number): number {
    for (let i = 0; i < vertices.length; i++) if (this.isFree(vertices[i]!, face)) return i;
    return 0;
  }

  private isFree(vertex: number, face: number): boolean {
    const owner = this.owners.at(vertex - this.firstVertex);
    return owner === -1 || owner === face;
  }

  private claim(vertex: number, face: number, normal: readonly number[], color: Rgb): number {
    const own = this.isFree(vertex, face) ? vertex : this.batch.copyVertex(vertex);
    if (own === vertex) this.owners.set(own - this.firstVertex, face);
    else this.owners.push(face);
    if (!this.normals) this.batch.setNormal(own, normal);
    if (!this.pointColor) this.batch.setColor(own, this.opaque(color));
    return own;
  }

  /** The colour without transparency; most faces have that of the face before. */
  private opaque(color: Rgb): Rgba {
    if (color !== this.lastColor) {
      this.lastColor = color;
      this.lastOpaque = withAlpha(color, 1);
    }
    return this.lastOpaque;
  }
}

/** Places of the triangles round the first corner. */
function fan(corners: number): number[] {
  const places: number[] = [];
  for (let i = 1; i + 1 < corners; i++) places.push(0, i, i + 1);
  return places;
}

interface Corner {
  at: number[];
  normal: number[];
  color: Rgb;
}

const mix = (a: readonly number[], b: readonly number[], part: number): number[] =>
  a.map((value, i) => value + (b[i]! - value) * part);

const between = (a: Corner, b: Corner, part: number): Corner => ({
  at: mix(a.at, b.at, part),
  normal: mix(a.normal, b.normal, part),
  color: mix(a.color, b.color, part) as unknown as Rgb,
});

const distance = (a: Corner, b: Corner): number =>
  Math.hypot(a.at[0]! - b.at[0]!, a.at[1]! - b.at[1]!, a.at[2]! - b.at[2]!);

/** Adds a triangle with vertices of its own, cut in half so often while a side is too long. */
function addApart(
  batch: FaceBatch,
  corners: Triangle,
  alpha: number,
  tag: Tag,
  depth: number,
): void {
  const [a, b, c] = corners;
  const sides = [distance(a, b), distance(b, c), distance(c, a)];
  const longest = sides.indexOf(Math.max(...sides));
  if (depth > 0 && sides[longest]! > LONGEST_TRANSPARENT_SIDE) {
    const p = corners[longest]!;
    const q = corners[(longest + 1) % 3]!;
    const r = corners[(longest + 2) % 3]!;
    const m = between(p, q, 0.5);
    addApart(batch, [p, m, r], alpha, tag, depth - 1);
    addApart(batch, [m, q, r], alpha, tag, depth - 1);
    return;
  }
  const [p, q, r] = corners.map(({ at, normal, color }) =>
    batch.addVertex(at, 0, normal, 0, withAlpha(color, alpha), tag),
  );
  batch.addTriangle(p!, q!, r!);
}

/** How the faces of a geometry are coloured. */
interface Paint {
  /** Of each point, where colours vary over a face. */
  pointColor: ((point: number) => Rgb) | undefined;
  faceColor(face: number, corners: readonly number[]): Rgb;
}

function paintOf(faces: FaceSet, points: PointSet, pattern: number): Paint {
  const given = faces.color ?? DEFAULT_FACE_COLOR;
  const base = pattern > 0 ? undoLightening(given) : given;
  const smooth = faces.showColors && faces.smoothColors && points.colors.length > 0;
  const byPoints = usesPointColors(faces, points);
  return {
    pointColor: smooth ? (point): Rgb => colorAt(points.colors, point, base) : undefined,
    faceColor: (face, corners) => {
      if (!faces.showColors) return base;
      return byPoints ? meanColor(points.colors, corners, base) : colorAt(faces.colors, face, base);
    },
  };
}

export function addFaces(draft: Draft): void {
  const { geometry, style, batches, at, alpha } = draft;
  const { faces, points, material } = geometry;
  if (!faces) return;
  const count = faces.faces.offsets.length - 1;
  if (faces.edgesVisible) addEdges(draft, faces);
  batches.counts.faces += faces.visible ? count : 0;
  if (!faces.visible || alpha <= 0) return;

  const pattern = FILL_PATTERNS.indexOf(style.fill);
  const { pointColor, faceColor } = paintOf(faces, points, pattern);
  const normals = material?.smooth ? normalsOf(draft, faces) : undefined;
  const gloss = material ? batches.glossNumber(glossOfMaterial(material)) : 0;
  const tag: Tag = [style.object, lookCode(pattern, gloss)];
  const transparent = alpha < 1;
  // What is transparent is sorted, for which it has to be in one batch.
  const batch = batches.faceBatch(
    transparent
      ? { transparent, smoothColors: true, smoothNormals: true, hatched: true }
      : {
          transparent,
          smoothColors: pointColor !== undefined,
          smoothNormals: normals !== undefined,
          hatched: pattern > 0,
        },
  );
  const opaque = new OpaqueFaces(batch, at, normals, pointColor, tag);
  const room: number[] = [];
  /** Triangles of opaque faces that share no vertices; those of all others lie side by side. */
  const later: Triangle[] = [];
  for (let face = 0; face < count; face++) {
    const corners = cornersOf(faces, face, at, room);
    if (corners.length === 0) continue;
    const normal = areaNormal(at, corners);
    const cut = triangulate(at, corners, normal);
    const color = faceColor(face, corners);
    if (!transparent && cut !== 'crossed') {
      opaque.add(face, corners, normal, color, cut);
      continue;
    }
    const full = corners.map((corner): Corner => {
      const k = corner * 3;
      return {
        at: [at[k]!, at[k + 1]!, at[k + 2]!],
        normal: normals ? [normals[k]!, normals[k + 1]!, normals[k + 2]!] : normal,
        color: pointColor?.(corner) ?? color,
      };
    });
    const depth = count < 20_000 ? 12 : 0;
    const triangles =
      cut === 'crossed'
        ? crossed(full, crossedTriangles(project(at, corners, normal), style.rule))
        : threes(full, cut === 'fan' ? fan(full.length) : cut);
    for (const triangle of triangles) {
      if (transparent) addApart(batch, triangle, alpha, tag, depth);
      else later.push(triangle);
    }
  }
  for (const triangle of later) addApart(batch, triangle, alpha, tag, 0);
}

type Triangle = readonly [Corner, Corner, Corner];

const threes = (full: readonly Corner[], places: readonly number[]): Triangle[] =>
  Array.from({ length: places.length / 3 }, (_, i) => [
    full[places[i * 3]!]!,
    full[places[i * 3 + 1]!]!,
    full[places[i * 3 + 2]!]!,
  ]);

function crossed(
  full: readonly Corner[],
  triangles: readonly (readonly [OnSide, OnSide, OnSide])[],
): Triangle[] {
  const place = ({ corner, part }: OnSide): Corner =>
    between(full[corner]!, full[(corner + 1) % full.length]!, part);
  return triangles.map(([a, b, c]) => [place(a), place(b), place(c)]);
}

/** Pairs of numbers that have been seen, in a table that is kept half empty. */
class PairSet {
  private readonly table: Int32Array;
  private readonly mask: number;

  constructor(most: number) {
    let size = 64;
    while (size < most * 2) size *= 2;
    this.table = new Int32Array(size * 2).fill(-1);
    this.mask = size - 1;
  }

  /** Adds a pair; false if it was there. */
  add(a: number, b: number): boolean {
    const low = Math.min(a, b);
    const high = Math.max(a, b);
    let slot = (Math.imul(low, 0x9e3779b1) ^ Math.imul(high, 0x85ebca6b)) & this.mask;
    for (;;) {
      const found = this.table[slot * 2]!;
      if (found === -1) break;
      if (found === low && this.table[slot * 2 + 1] === high) return false;
      slot = (slot + 1) & this.mask;
    }
    this.table[slot * 2] = low;
    this.table[slot * 2 + 1] = high;
    return true;
  }
}

/** An edge between such points, as at the top of a cone, would be drawn as a dot. */
const isSamePlace = (at: Float32Array, a: number, b: number): boolean =>
  at[a * 3] === at[b * 3] && at[a * 3 + 1] === at[b * 3 + 1] && at[a * 3 + 2] === at[b * 3 + 2];

function addEdges({ geometry, style, batches, at }: Draft, faces: FaceSet): void {
  const { points } = geometry;
  const width = faces.edgeThickness ?? 1;
  const base = faces.edgeColor ?? DEFAULT_EDGE_COLOR;
  const byPoints = faces.colorEdges && points.colors.length > 0;
  const seen = new PairSet(faces.faces.values.length);
  const dash = faces.visible ? ON_SURFACE : 0;
  const lineStyle = { width, object: style.object, dash, tip: undefined };
  for (let face = 0; face + 1 < faces.faces.offsets.length; face++) {
    const corners = cornersOf(faces, face, at);
    for (let i = 0; i < corners.length; i++) {
      const a = corners[i]!;
      const b = corners[(i + 1) % corners.length]!;
      if (!seen.add(a, b) || isSamePlace(at, a, b)) continue;
      const colorA = byPoints ? colorAt(points.colors, a, base) : base;
      const colorB = byPoints ? colorAt(points.colors, b, base) : base;
      batches.lines.add(
        at.subarray(a * 3, a * 3 + 3),
        at.subarray(b * 3, b * 3 + 3),
        withAlpha(colorA, 1),
        withAlpha(colorB, 1),
        lineStyle,
        0,
      );
    }
  }
}
