/**
 * The geometries of a text. There may be a hundred thousand small ones. So their numbers lie side by
 * side in a few long arrays, equal looks are kept once, and a geometry is put together when it is
 * asked for.
 */
import { GrowingFloat64, GrowingInt32, GrowingUint8 } from './growing';
import type {
  FaceLook,
  FieldLook,
  Geometry,
  LineLook,
  Lists,
  Material,
  Places,
  PointLook,
  VectorField,
} from './model';
import { Recent } from './recent';

/** The long arrays into which all lists are read. */
export class Pools {
  readonly coordinates = new GrowingFloat64();
  /** Of normals and vectors. */
  readonly numbers = new GrowingFloat64();
  readonly colors = new GrowingUint8();
  readonly offsets = new GrowingInt32();
  readonly indices = new GrowingInt32();
}

/** Where a list lies in its long array. */
export interface Slice {
  begin: number;
  end: number;
}

export const EMPTY: Slice = { begin: 0, end: 0 };

/** The lists of a geometry, each with its number among them. */
const LISTS = {
  coordinates: 0,
  normals: 1,
  pointColors: 2,
  lineOffsets: 3,
  lineIndices: 4,
  lineColors: 5,
  faceOffsets: 6,
  faceIndices: 7,
  faceColors: 8,
} as const;

export type ListName = keyof typeof LISTS;

const LIST_COUNT = Object.keys(LISTS).length;

export interface FieldDraft {
  look: FieldLook;
  vectors: Slice;
  colors: Slice;
}

/** A geometry while it is read. */
export class GeometryDraft {
  dimension: 2 | 3 = 3;
  lines: LineLook | undefined;
  faces: FaceLook | undefined;
  material: Material | undefined;
  readonly fields: FieldDraft[] = [];
  /** Of points, by their numbers. */
  names: Map<number, string> | undefined;
  /** Begin and end of each list. */
  readonly slices = new Array<number>(2 * LIST_COUNT).fill(0);

  constructor(
    readonly name: string,
    readonly visible: boolean,
    public points: PointLook,
  ) {}

  put(list: ListName, { begin, end }: Slice): void {
    this.slices[2 * LISTS[list]] = begin;
    this.slices[2 * LISTS[list] + 1] = end;
  }
}

/** What geometries that look alike have in common. */
interface Look {
  visible: boolean;
  points: PointLook;
  lines: LineLook | undefined;
  faces: FaceLook | undefined;
  material: Material | undefined;
}

/** Those of no list at all. */
const NO_OFFSETS = new Int32Array(1);
const NO_NAMES: ReadonlyMap<number, string> = new Map();

export class Geometries implements Iterable<Geometry> {
  private readonly looks: Look[] = [];
  private readonly dimensions = new GrowingUint8();
  private readonly slices = new GrowingInt32();
  /** Names of geometries, names of points and vector fields, of those that have any. */
  private readonly names = new Map<number, string>();
  private readonly pointNames = new Map<number, ReadonlyMap<number, string>>();
  private readonly fields = new Map<number, readonly FieldDraft[]>();
  private known: Places | undefined;
  private readonly recentLooks = new Recent<Look>();
  private readonly recentPoints = new Recent<PointLook>();
  private readonly recentLines = new Recent<LineLook>();
  private readonly recentFaces = new Recent<FaceLook>();
  private readonly recentMaterials = new Recent<Material>();

  constructor(private readonly pools: Pools) {}

  get length(): number {
    return this.looks.length;
  }

  add(draft: GeometryDraft): void {
    const i = this.length;
    this.known = undefined;
    if (draft.name !== '') this.names.set(i, draft.name);
    if (draft.names) this.pointNames.set(i, draft.names);
    if (draft.fields.length > 0) this.fields.set(i, draft.fields);
    this.dimensions.push(draft.dimension);
    this.slices.pushAll(draft.slices);
    const { visible, points, lines, faces, material } = draft;
    this.looks.push(
      this.recentLooks.find({
        visible,
        points: this.recentPoints.find(points),
        lines: lines && this.recentLines.find(lines),
        faces: faces && this.recentFaces.find(faces),
        material: material && this.recentMaterials.find(material),
      }),
    );
  }

  /** Geometry `i`; its arrays are parts of the long ones. */
  at(i: number): Geometry {
    const { visible, points, lines, faces, material } = this.looks[i]!;
    const { coordinates, numbers, colors } = this.pools;
    return {
      name: this.nameOf(i),
      visible,
      dimension: this.dimensions.at(i) === 2 ? 2 : 3,
      points: {
        ...points,
        coordinates: coordinates.part(this.slice(i, 'coordinates')),
        names: this.pointNames.get(i) ?? NO_NAMES,
        colors: colors.part(this.slice(i, 'pointColors')),
        normals: numbers.part(this.slice(i, 'normals')),
      },
      lines: lines && {
        ...lines,
        lines: this.lists(i, 'lineOffsets', 'lineIndices'),
        colors: colors.part(this.slice(i, 'lineColors')),
      },
      faces: faces && {
        ...faces,
        faces: this.lists(i, 'faceOffsets', 'faceIndices'),
        colors: colors.part(this.slice(i, 'faceColors')),
      },
      fields: this.fieldsOf(i),
      material,
    };
  }

  *[Symbol.iterator](): Iterator<Geometry> {
    for (let i = 0; i < this.length; i++) yield this.at(i);
  }

  /** The name of geometry `i`, empty if it has none. */
  nameOf(i: number): string {
    return this.names.get(i) ?? '';
  }

  isVisible(i: number): boolean {
    return this.looks[i]!.visible;
  }

  fieldsOf(i: number): VectorField[] {
    const { numbers, colors } = this.pools;
    return (this.fields.get(i) ?? []).map((field) => ({
      ...field.look,
      vectors: numbers.part(field.vectors),
      colors: colors.part(field.colors),
    }));
  }

  /** The points of all geometries, where they were read, as far as that has come. */
  get places(): Places {
    this.known ??= this.findPlaces();
    return this.known;
  }

  private findPlaces(): Places {
    const column = (first: number): Int32Array =>
      Int32Array.from({ length: this.length }, (_, i) =>
        this.slices.at(i * 2 * LIST_COUNT + first),
      );
    return {
      values: this.pools.coordinates.part({ begin: 0, end: this.pools.coordinates.length }),
      begins: column(2 * LISTS.coordinates),
      ends: column(2 * LISTS.coordinates + 1),
      dimensions: this.dimensions.part({ begin: 0, end: this.length }),
    };
  }

  private slice(i: number, list: ListName): Slice {
    const at = 2 * (i * LIST_COUNT + LISTS[list]);
    return { begin: this.slices.at(at), end: this.slices.at(at + 1) };
  }

  private lists(i: number, offsets: ListName, indices: ListName): Lists {
    const { pools } = this;
    const found = pools.offsets.part(this.slice(i, offsets));
    return {
      offsets: found.length > 0 ? found : NO_OFFSETS,
      values: pools.indices.part(this.slice(i, indices)),
    };
  }
}
