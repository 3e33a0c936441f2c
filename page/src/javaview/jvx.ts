/** Geometries out of a JVX text. */
import {
  EMPTY,
  Geometries,
  GeometryDraft,
  Pools,
  type FieldDraft,
  type ListName,
  type Slice,
} from './geometries';
import type { GrowingFloat64, GrowingInt32, GrowingUint8 } from './growing';
import type { FaceLook, Font, LineLook, Material, PointLook, Rgb } from './model';
import { NumberScanner, toNumbers } from './numbers';
import type { Attributes, ItemList } from './scanner';

/** A list that lies in one long array, beyond what that holds already. */
abstract class PooledList implements ItemList {
  private readonly begin: number;

  constructor(
    readonly item: string,
    protected readonly pool: GrowingFloat64 | GrowingUint8,
  ) {
    this.begin = pool.length;
  }

  get length(): number {
    return this.pool.length - this.begin;
  }

  get slice(): Slice {
    return { begin: this.begin, end: this.pool.length };
  }

  abstract add(numbers: NumberScanner): void;
}

/** Numbers of a fixed count an item; what is missing counts as `missing[i]`. */
class TupleList extends PooledList {
  constructor(
    item: string,
    pool: GrowingFloat64,
    private readonly missing: readonly number[],
    private readonly dimension = missing.length,
  ) {
    super(item, pool);
  }

  get count(): number {
    return this.length / this.missing.length;
  }

  add(numbers: NumberScanner): void {
    for (let i = 0; i < this.missing.length; i++) {
      const given = i < this.dimension && numbers.next();
      this.pool.push(given ? numbers.value : this.missing[i]!);
    }
  }
}

class ColorList extends PooledList {
  add(numbers: NumberScanner): void {
    for (let i = 0; i < 3; i++) this.pool.push(numbers.next() ? channel(numbers.value) : 0);
  }
}

/** Lists of numbers of points; what is no such number becomes -1. */
class IndexLists implements ItemList {
  private readonly firstOffset: number;
  private readonly firstIndex: number;

  constructor(
    private readonly offsetPool: GrowingInt32,
    private readonly indexPool: GrowingInt32,
    readonly item: string,
  ) {
    this.firstOffset = offsetPool.length;
    this.firstIndex = indexPool.length;
    offsetPool.push(0);
  }

  get offsets(): Slice {
    return { begin: this.firstOffset, end: this.offsetPool.length };
  }

  get indices(): Slice {
    return { begin: this.firstIndex, end: this.indexPool.length };
  }

  add(numbers: NumberScanner): void {
    while (numbers.next()) {
      const value = numbers.value;
      this.indexPool.push(value >= 0 && value < 2 ** 31 && Number.isInteger(value) ? value : -1);
    }
    this.offsetPool.push(this.indexPool.length - this.firstIndex);
  }
}

/** Passes over the numbers of items that nothing is drawn of. */
class UnusedList implements ItemList {
  constructor(readonly item: string) {}

  add(): void {
    // Nothing is kept.
  }
}

function channel(value: number): number {
  return value > 0 ? Math.min(Math.round(value), 255) : 0;
}

export function toColor(text: string): Rgb | undefined {
  const [r, g, b] = toNumbers(text);
  if (r === undefined || g === undefined || b === undefined) return undefined;
  return [channel(r), channel(g), channel(b)];
}

export function toNumberOr<T>(text: string, otherwise: T): number | T {
  const value = toNumbers(text)[0];
  return value === undefined || Number.isNaN(value) ? otherwise : value;
}

/** A "show" or "hide" attribute. */
export function shown(attributes: Attributes, name: string, otherwise: boolean): boolean {
  const value = attributes.get(name);
  return value === 'show' ? true : value === 'hide' ? false : otherwise;
}

const newPoints = (attributes: Attributes): PointLook => ({
  visible: shown(attributes, 'point', true),
  showColors: shown(attributes, 'color', false),
  color: undefined,
  thickness: undefined,
  labelsVisible: false,
  font: undefined,
});

const newLines = (attributes: Attributes): LineLook => ({
  visible: shown(attributes, 'line', true),
  showColors: shown(attributes, 'color', false),
  colorFromPoints: shown(attributes, 'colorFromPoints', false),
  smoothColors: shown(attributes, 'colorSmooth', false),
  arrows: shown(attributes, 'arrow', false),
  color: undefined,
  thickness: undefined,
});

const newFaces = (attributes: Attributes): FaceLook => ({
  visible: shown(attributes, 'face', true),
  edgesVisible: shown(attributes, 'edge', true),
  showColors: shown(attributes, 'color', false),
  colorFromPoints: shown(attributes, 'colorFromPoints', false),
  smoothColors: shown(attributes, 'colorSmooth', false),
  colorEdges: shown(attributes, 'colorEdge', false),
  color: undefined,
  edgeColor: undefined,
  edgeThickness: undefined,
});

const newField = (attributes: Attributes): FieldDraft => ({
  look: {
    visible: shown(attributes, 'vector', true),
    arrows: shown(attributes, 'arrow', false),
    showColors: shown(attributes, 'color', false),
    color: undefined,
    thickness: undefined,
    length: undefined,
  },
  vectors: EMPTY,
  colors: EMPTY,
});

const newFont = (attributes: Attributes): Font => {
  const style = attributes.get('style') ?? '';
  return {
    family: attributes.get('name') ?? '',
    size: 12,
    bold: style.includes('bold'),
    italic: style.includes('italic'),
    color: [0, 0, 0],
    horizontal: oneOf(attributes.get('horAlign'), ['head', 'center', 'tail']),
    vertical: oneOf(attributes.get('verAlign'), ['bottom', 'middle', 'top']),
  };
};

function oneOf<T extends string>(word: string | undefined, words: readonly [T, ...T[]]): T {
  return words.find((known) => known === word) ?? words[0];
}

const newMaterial = (attributes: Attributes): Material => ({
  smooth: attributes.get('shading') === 'gouraud',
  ambient: 0.2,
  diffuse: [128, 128, 128],
  specular: [128, 128, 128],
  emissive: [0, 0, 0],
  shininess: 0.9,
  transparency: 0,
});

const newGeometry = (attributes: Attributes): GeometryDraft =>
  new GeometryDraft(
    attributes.get('name') ?? '',
    shown(attributes, 'visible', true),
    newPoints(NO_ATTRIBUTES),
  );

const NO_ATTRIBUTES: Attributes = new Map();

const slowNumbers = new NumberScanner();

type Opener = (attributes: Attributes) => void;
type Closer = (text: string) => void;

/** Takes the elements below `geometries`, each by its name and that of its parent. */
export class JvxHandler {
  list: ItemList | undefined;
  title = '';
  private readonly pools = new Pools();
  readonly geometries = new Geometries(this.pools);
  private geometry = newGeometry(NO_ATTRIBUTES);
  private field = newField(NO_ATTRIBUTES);
  private font = newFont(NO_ATTRIBUTES);
  private material = newMaterial(NO_ATTRIBUTES);
  private transparencyVisible = true;

  private readonly points = (): PointLook => this.geometry.points;
  private readonly lines = (): LineLook => (this.geometry.lines ??= newLines(NO_ATTRIBUTES));
  private readonly faces = (): FaceLook => (this.geometry.faces ??= newFaces(NO_ATTRIBUTES));

  open(name: string, attributes: Attributes, path: readonly string[]): void {
    const parent = path[path.length - 2] ?? '';
    if (parent === 'points' && name === 'p') this.openPoint(attributes);
    this.openers[`${parent}/${name}`]?.(attributes);
  }

  close(name: string, text: string, path: readonly string[]): void {
    this.closers[`${path[path.length - 2] ?? ''}/${name}`]?.(text);
  }

  private openPoint(attributes: Attributes): void {
    const name = attributes.get('name');
    if (name !== undefined && this.list instanceof TupleList) {
      (this.geometry.names ??= new Map()).set(this.list.count, name);
    }
  }

  private readonly openers: Record<string, Opener> = {
    'geometries/geometry': (attributes) => (this.geometry = newGeometry(attributes)),
    'geometry/pointSet': (attributes) => {
      this.forget('coordinates', 'normals', 'pointColors');
      this.geometry.names = undefined;
      this.geometry.points = newPoints(attributes);
      this.geometry.dimension = attributes.get('dim') === '2' ? 2 : 3;
    },
    'geometry/lineSet': (attributes) => {
      this.forget('lineOffsets', 'lineIndices', 'lineColors');
      this.geometry.lines = newLines(attributes);
    },
    'geometry/faceSet': (attributes) => {
      this.forget('faceOffsets', 'faceIndices', 'faceColors');
      this.geometry.faces = newFaces(attributes);
    },
    'geometry/vectorField': (attributes) => {
      this.field = newField(attributes);
      this.geometry.fields.push(this.field);
    },
    'geometry/material': (attributes) => {
      this.material = newMaterial(attributes);
      this.geometry.material = this.material;
    },
    'points/labelAtt': (attributes) => {
      this.font = newFont(attributes);
      this.points().font = this.font;
      this.points().labelsVisible = shown(attributes, 'visible', true);
    },
    'material/transparency': (attributes) => {
      this.transparencyVisible = shown(attributes, 'visible', true);
    },
    'pointSet/points': () =>
      this.openList(
        new TupleList('p', this.pools.coordinates, [NaN, NaN, 0], this.geometry.dimension),
      ),
    'pointSet/normals': () =>
      this.openList(new TupleList('n', this.pools.numbers, [NaN, NaN, NaN])),
    'pointSet/colors': () => this.openList(new ColorList('c', this.pools.colors)),
    'lineSet/lines': () =>
      this.openList(new IndexLists(this.pools.offsets, this.pools.indices, 'l')),
    'lineSet/colors': () => this.openList(new ColorList('c', this.pools.colors)),
    'faceSet/faces': () =>
      this.openList(new IndexLists(this.pools.offsets, this.pools.indices, 'f')),
    'faceSet/neighbours': () => this.openList(new UnusedList('nb')),
    'faceSet/colors': () => this.openList(new ColorList('c', this.pools.colors)),
    'vectorField/vectors': () => {
      this.openList(new TupleList('v', this.pools.numbers, [NaN, NaN, 0], this.geometry.dimension));
    },
    'vectorField/colors': () => this.openList(new ColorList('c', this.pools.colors)),
  };

  private readonly closers: Record<string, Closer> = {
    'jvx-model/title': (text) => (this.title = text.trim()),
    'geometries/geometry': () => {
      this.geometries.add(this.geometry);
      this.startOver();
    },
    'pointSet/points': () => this.putSlice('coordinates'),
    'pointSet/normals': () => this.putSlice('normals'),
    'pointSet/colors': () => this.putSlice('pointColors'),
    'points/thickness': (text) => (this.points().thickness = toNumberOr(text, undefined)),
    'points/color': (text) => (this.points().color = toColor(text)),
    'labelAtt/size': (text) => (this.font.size = toNumberOr(text, this.font.size)),
    'labelAtt/color': (text) => (this.font.color = toColor(text) ?? this.font.color),
    'lineSet/lines': () => this.putLists('lineOffsets', 'lineIndices'),
    'lineSet/colors': () => this.putSlice('lineColors'),
    'lines/thickness': (text) => (this.lines().thickness = toNumberOr(text, undefined)),
    'lines/color': (text) => (this.lines().color = toColor(text)),
    'faceSet/faces': () => this.putLists('faceOffsets', 'faceIndices'),
    'faceSet/neighbours': () => (this.list = undefined),
    'faceSet/colors': () => this.putSlice('faceColors'),
    'faces/color': (text) => (this.faces().color = toColor(text)),
    'edges/thickness': (text) => (this.faces().edgeThickness = toNumberOr(text, undefined)),
    'edges/color': (text) => (this.faces().edgeColor = toColor(text)),
    'vectorField/vectors': () => (this.field.vectors = this.takeSlice()),
    'vectorField/colors': () => (this.field.colors = this.takeSlice()),
    'vectors/thickness': (text) => (this.field.look.thickness = toNumberOr(text, undefined)),
    'vectors/length': (text) => (this.field.look.length = toNumberOr(text, undefined)),
    'vectors/color': (text) => (this.field.look.color = toColor(text)),
    'material/ambientIntensity': (text) => {
      this.material.ambient = toNumberOr(text, this.material.ambient);
    },
    'material/shininess': (text) => {
      this.material.shininess = toNumberOr(text, this.material.shininess);
    },
    'diffuse/color': (text) => (this.material.diffuse = toColor(text) ?? this.material.diffuse),
    'specular/color': (text) => (this.material.specular = toColor(text) ?? this.material.specular),
    'emissive/color': (text) => (this.material.emissive = toColor(text) ?? this.material.emissive),
    'material/transparency': (text) => {
      const value = this.transparencyVisible ? toNumberOr(text, 0) : 0;
      this.material.transparency = Math.min(Math.max(value, 0), 1);
    },
    'points/p': (text) => this.addItem(text),
    'normals/n': (text) => this.addItem(text),
    'colors/c': (text) => this.addItem(text),
    'lines/l': (text) => this.addItem(text),
    'faces/f': (text) => this.addItem(text),
    'vectors/v': (text) => this.addItem(text),
  };

  /** Geometries share looks once they are complete: what follows must not change them. */
  private startOver(): void {
    this.geometry = newGeometry(NO_ATTRIBUTES);
    this.field = newField(NO_ATTRIBUTES);
    this.font = newFont(NO_ATTRIBUTES);
    this.material = newMaterial(NO_ATTRIBUTES);
  }

  private openList(list: ItemList): void {
    this.list = list;
  }

  /** An item that the scanner could not take the fast way. */
  private addItem(text: string): void {
    if (!this.list) return;
    const bytes = new TextEncoder().encode(text);
    slowNumbers.reset(bytes, 0, bytes.length);
    this.list.add(slowNumbers);
  }

  /** A set that comes a second time takes the place of the first. */
  private forget(...lists: ListName[]): void {
    for (const list of lists) this.geometry.put(list, EMPTY);
  }

  /** Ends the list; returns where it lies. */
  private takeSlice(): Slice {
    const { list } = this;
    this.list = undefined;
    return list instanceof PooledList ? list.slice : EMPTY;
  }

  private putSlice(name: ListName): void {
    this.geometry.put(name, this.takeSlice());
  }

  private putLists(offsets: ListName, indices: ListName): void {
    const { list } = this;
    this.list = undefined;
    if (!(list instanceof IndexLists)) return;
    this.geometry.put(offsets, list.offsets);
    this.geometry.put(indices, list.indices);
  }
}
