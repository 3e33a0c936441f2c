/** Batches as objects of the graphics library. */
import {
  BufferAttribute,
  BufferGeometry,
  Group,
  InstancedBufferAttribute,
  InstancedBufferGeometry,
  LineSegments,
  Mesh,
  Points,
  Sphere,
  Vector3,
  type IUniform,
  type RawShaderMaterial,
  type Texture,
} from 'three';
import type { TextAtlas } from './atlas';
import type { FaceData, Label, LineData, PointData, SceneData } from './batches';
import { FINE_ENOUGH, FINE_ENOUGH_SLOW } from './coarse';
import * as materials from './materials';
import type { Lift, SceneUniforms } from './materials';
import { sortTriangles } from './sort';
import type { View } from './view';

/** So many lines are drawn thin even when nothing moves, and so many wide ones while it does. */
const MOST_WIDE_LINES = 250_000;
const MOST_WIDE_LINES_MOVING = 3_000;

/** The order of drawing: what is transparent after what is not, labels last. */
const ORDER = { faces: 0, lines: 1, tips: 2, points: 3, labels: 4 } as const;

const LIFT: Lift = { lines: 0.0006, points: 0.0012, labels: 0.004 };
/** Less than from one object to the next, and enough for clear points to lie on their clear line. */
const FLAT_LIFT: Lift = { lines: 0, points: 1e-6, labels: 0 };

/** Lines or points of more opacities than these are drawn in groups with that of their mean. */
const MOST_OPACITIES = 8;

/** The opacities of colours, as they are drawn: what is opaque first. */
function opacitiesOf(colors: Uint8Array): materials.Opacity[] {
  const seen = new Set<number>();
  for (let i = 3; i < colors.length; i += 4) seen.add(colors[i]!);
  const clear = [...seen].filter((opacity) => opacity < 255).sort((a, b) => b - a);
  const size = Math.ceil(clear.length / MOST_OPACITIES);
  const groups: materials.Opacity[] = seen.has(255) ? [materials.OPAQUE_ONLY] : [];
  for (let i = 0; i < clear.length; i += size) {
    const [most, least] = [clear[i]!, clear[Math.min(i + size, clear.length) - 1]!];
    groups.push({ least, most, mean: (least + most) / 2 });
  }
  return groups;
}

type Drawn = Mesh | LineSegments | Points;

/** Everything is always drawn, in an order of its own; nobody has to measure it for that. */
const EVERYWHERE = new Sphere(new Vector3(), Infinity);

function add(group: Group, object: Drawn, order: number): void {
  object.geometry.boundingSphere = EVERYWHERE;
  object.frustumCulled = false;
  object.matrixAutoUpdate = false;
  object.renderOrder = order;
  group.add(object);
}

function faceGeometry(data: FaceData): BufferGeometry {
  const geometry = new BufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(data.positions, 3));
  geometry.setAttribute('normal', new BufferAttribute(data.normals, 4, true));
  geometry.setAttribute('color', new BufferAttribute(data.colors, 4, true));
  geometry.setAttribute('tag', new BufferAttribute(data.tags, 2));
  // What is sorted for each view has an order of its own, apart from that of the scene.
  const index = data.kind.transparent ? data.index.slice() : data.index;
  geometry.setIndex(new BufferAttribute(index, 1));
  return geometry;
}

function instances(data: LineData, corners: number[], index: number[]): InstancedBufferGeometry {
  const geometry = new InstancedBufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(Float32Array.from(corners), 3));
  geometry.setIndex(index);
  const set = (name: string, values: Float32Array | Uint8Array, size: number): void => {
    const normalized = values instanceof Uint8Array;
    geometry.setAttribute(name, new InstancedBufferAttribute(values, size, normalized));
  };
  set('start', data.starts, 3);
  set('end', data.ends, 3);
  set('startColor', data.startColors, 4);
  set('endColor', data.endColors, 4);
  set('style', data.styles, 4);
  geometry.instanceCount = data.count;
  return geometry;
}

/** Gives a geometry what another has at its vertices. */
function share<T extends BufferGeometry>(geometry: BufferGeometry, other: T): T {
  for (const name of Object.keys(geometry.attributes)) {
    other.setAttribute(name, geometry.getAttribute(name));
  }
  return other;
}

const sharing = (
  geometry: InstancedBufferGeometry,
  corners: number[],
  index: number[],
): InstancedBufferGeometry => {
  const other = share(geometry, new InstancedBufferGeometry());
  other.setAttribute('position', new BufferAttribute(Float32Array.from(corners), 3));
  other.setIndex(index);
  other.instanceCount = geometry.instanceCount;
  return other;
};

const QUAD = [0, -1, 0, 1, -1, 0, 1, 1, 0, 0, 1, 0];
const QUAD_INDEX = [0, 1, 2, 0, 2, 3];
const SEGMENT = [0, 0, 0, 1, 0, 0];
const SEGMENT_INDEX = [0, 1];
const TIP = [0, 0, 0, 1, -1, 0, 1, 1, 0];
const TIP_INDEX = [0, 1, 2];

function pointGeometry(data: PointData): BufferGeometry {
  const geometry = new BufferGeometry();
  geometry.setAttribute('position', new BufferAttribute(data.positions, 3));
  geometry.setAttribute('color', new BufferAttribute(data.colors, 4, true));
  geometry.setAttribute('tag', new BufferAttribute(data.tags, 3));
  return geometry;
}

/** A geometry with the same vertices. It is apart, so that its index is freed with it. */
function withIndex(geometry: BufferGeometry, index: Uint32Array): BufferGeometry {
  const other = share(geometry, new BufferGeometry());
  other.setIndex(new BufferAttribute(index, 1));
  other.boundingSphere = EVERYWHERE;
  return other;
}

interface CoarseFaces {
  mesh: Mesh;
  fine: BufferGeometry;
  coarse: BufferGeometry;
}

interface SortedFaces {
  geometry: BufferGeometry;
  positions: Float32Array;
  index: Uint32Array;
}

/** Whether faces are drawn coarsely while the view moves. */
const isTooFine = ({ index }: FaceData, slow: boolean): boolean =>
  index.length > 3 * (slow ? FINE_ENOUGH_SLOW : FINE_ENOUGH);

export interface DrawingKind {
  /** Whether it is of two dimensions. */
  flat: boolean;
  /** Whether something is cut off. */
  clipped: boolean;
  /** Whether it is drawn without graphics hardware. */
  slow: boolean;
}

export class Drawing {
  readonly group = new Group();
  private readonly coarse: CoarseFaces[] = [];
  private readonly sorted: SortedFaces[] = [];
  private readonly owned: { dispose(): void }[] = [];
  private readonly wide = new Group();
  private readonly thin = new Group();
  private lineCount = 0;
  private labels: Mesh | undefined;
  private labelMaterial: RawShaderMaterial | undefined;
  private readonly lift: Lift;

  constructor(
    data: SceneData,
    private readonly uniforms: SceneUniforms,
    private readonly atlas: TextAtlas,
    private readonly texts: IUniform<Texture | null>,
    { flat, clipped, slow }: DrawingKind,
  ) {
    this.lift = flat ? FLAT_LIFT : LIFT;
    materials.setTables(uniforms, data.glosses, data.lines.tips);
    for (const faces of data.faces) this.addFaces(faces, clipped, slow);
    if (data.lines.count > 0) this.addLines(data.lines);
    if (data.points.count > 0) this.addPoints(data.points);
  }

  /** Whether there are fewer faces while the view moves. */
  get isCoarser(): boolean {
    return this.coarse.length > 0;
  }

  /** Fewer and thinner things while the view moves. */
  setMoving(moving: boolean): void {
    for (const { mesh, fine, coarse } of this.coarse) mesh.geometry = moving ? coarse : fine;
    const most = moving ? MOST_WIDE_LINES_MOVING : MOST_WIDE_LINES;
    this.wide.visible = this.lineCount <= most;
    this.thin.visible = !this.wide.visible;
  }

  /** Puts transparent triangles in order for the view. */
  sort(view: View): void {
    const { toEye } = view.state;
    const eye = view.eye;
    const parallel = view.state.field === 0;
    const depthOf = (x: number, y: number, z: number): number =>
      parallel
        ? -(x * toEye.x + y * toEye.y + z * toEye.z)
        : (x - eye.x) ** 2 + (y - eye.y) ** 2 + (z - eye.z) ** 2;
    for (const { geometry, positions, index } of this.sorted) {
      const attribute = geometry.getIndex()!;
      (attribute.array as Uint32Array).set(sortTriangles(positions, index, depthOf));
      attribute.needsUpdate = true;
    }
  }

  /** Draws the labels for a density of pixels, all of them or those that pass. */
  setLabels(labels: readonly Label[], pixelRatio: number): void {
    if (this.labels) {
      this.group.remove(this.labels);
      this.labels.geometry.dispose();
      this.labels = undefined;
    }
    if (labels.length === 0) return;
    this.labelMaterial ??= this.keep(materials.labelMaterial(this.uniforms, this.lift, this.texts));
    const geometry = labelGeometry(labels, this.atlas, pixelRatio);
    this.labels = new Mesh(geometry, this.labelMaterial);
    add(this.group, this.labels, ORDER.labels);
  }

  dispose(): void {
    this.labels?.geometry.dispose();
    for (const thing of this.owned) thing.dispose();
    this.group.clear();
  }

  private keep<T extends { dispose(): void }>(thing: T): T {
    this.owned.push(thing);
    return thing;
  }

  private addFaces(data: FaceData, clipped: boolean, slow: boolean): void {
    const geometry = this.keep(faceGeometry(data));
    const material = this.keep(materials.faceMaterial(this.uniforms, data.kind, clipped));
    const { kind, positions, index, coarse } = data;
    const mesh = new Mesh(geometry, material);
    if (kind.transparent) this.sorted.push({ geometry, positions, index });
    if (coarse && isTooFine(data, slow)) {
      const other = this.keep(withIndex(geometry, coarse));
      this.coarse.push({ mesh, fine: geometry, coarse: other });
    }
    add(this.group, mesh, ORDER.faces);
  }

  private addLines(data: LineData): void {
    this.lineCount = data.count;
    const quads = this.keep(instances(data, QUAD, QUAD_INDEX));
    const segments = this.keep(sharing(quads, SEGMENT, SEGMENT_INDEX));
    const tips = data.tips.length > 0 ? this.keep(sharing(quads, TIP, TIP_INDEX)) : undefined;
    for (const opacity of opacitiesOf(data.endColors)) {
      const line = (thin: boolean): RawShaderMaterial =>
        this.keep(materials.lineMaterial(this.uniforms, this.lift, opacity, thin));
      add(this.wide, new Mesh(quads, line(false)), ORDER.lines);
      add(this.thin, new LineSegments(segments, line(true)), ORDER.lines);
      if (!tips) continue;
      const tip = this.keep(materials.tipMaterial(this.uniforms, this.lift, opacity));
      add(this.group, new Mesh(tips, tip), ORDER.tips);
    }
    this.group.add(this.wide, this.thin);
    this.setMoving(false);
  }

  private addPoints(data: PointData): void {
    const geometry = this.keep(pointGeometry(data));
    for (const opacity of opacitiesOf(data.colors)) {
      const material = this.keep(materials.pointMaterial(this.uniforms, this.lift, opacity));
      add(this.group, new Points(geometry, material), ORDER.points);
    }
  }
}

function labelGeometry(
  labels: readonly Label[],
  atlas: TextAtlas,
  pixelRatio: number,
): InstancedBufferGeometry {
  const places = atlas.place(labels, pixelRatio);
  const [width, height] = atlas.size;
  const geometry = new InstancedBufferGeometry();
  const corners = Float32Array.of(0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0);
  geometry.setAttribute('position', new BufferAttribute(corners, 3));
  geometry.setIndex(QUAD_INDEX);
  const set = (name: string, size: number, values: number[]): void => {
    geometry.setAttribute(name, new InstancedBufferAttribute(Float32Array.from(values), size));
  };
  set(
    'at',
    3,
    labels.flatMap(({ at }) => [...at]),
  );
  set(
    'box',
    4,
    labels.flatMap(({ anchor, shift }, i) => {
      const glyphs = places[i]!;
      return [
        shift[0] * pixelRatio - anchor[0] * glyphs.width,
        shift[1] * pixelRatio - (1 - anchor[1]) * glyphs.height,
        glyphs.width,
        glyphs.height,
      ];
    }),
  );
  set(
    'source',
    4,
    places.flatMap((glyphs) => [
      glyphs.x / width,
      (glyphs.y + glyphs.height) / height,
      (glyphs.x + glyphs.width) / width,
      glyphs.y / height,
    ]),
  );
  set(
    'object',
    1,
    labels.map(({ object }) => object),
  );
  geometry.instanceCount = labels.length;
  return geometry;
}
