/** Geometries out of a JVX text. */
import { Arena, GrowingFloat64, GrowingInt32, GrowingUint8 } from './growing';
import type {
  FaceSet,
  Font,
  Geometry,
  Lists,
  LineSet,
  Material,
  PointSet,
  Rgb,
  VectorField,
} from './model';
import { NumberScanner, toNumbers } from './numbers';
import type { Attributes, ItemList } from './scanner';

/** Numbers of a fixed count an item; what is missing counts as `missing[i]`. */
class TupleList implements ItemList {
  constructor(
    readonly values: GrowingFloat64,
    readonly item: string,
    private readonly missing: readonly number[],
    private readonly dimension = missing.length,
  ) {
    values.clear();
  }

  get count(): number {
    return this.values.length / this.missing.length;
  }

  add(numbers: NumberScanner): void {
    for (let i = 0; i < this.missing.length; i++) {
      const given = i < this.dimension && numbers.next();
      this.values.push(given ? numbers.value : this.missing[i]!);
    }
  }
}

class ColorList implements ItemList {
  readonly item = 'c';

  constructor(readonly values: GrowingUint8) {
    values.clear();
  }

  add(numbers: NumberScanner): void {
    for (let i = 0; i < 3; i++) this.values.push(numbers.next() ? channel(numbers.value) : 0);
  }
}

/** Lists of numbers of points; what is no such number becomes -1. */
class IndexLists implements ItemList {
  constructor(
    private readonly offsets: GrowingInt32,
    private readonly values: GrowingInt32,
    readonly item: string,
  ) {
    offsets.clear();
    values.clear();
    offsets.push(0);
  }

  add(numbers: NumberScanner): void {
    while (numbers.next()) {
      const value = numbers.value;
      this.values.push(value >= 0 && value < 2 ** 31 && Number.isInteger(value) ? value : -1);
    }
    this.offsets.push(this.values.length);
  }

  take(arena: Arena): Lists {
    return { offsets: this.offsets.take(arena.int32), values: this.values.take(arena.int32) };
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

/** What a geometry has before anything is read; never written to. */
const NO_NUMBERS = new Float64Array(0);
const NO_COLORS = new Uint8Array(0);
const NO_NAMES: ReadonlyMap<number, string> = new Map();
const NO_LISTS: Lists = { offsets: new Int32Array(1), values: new Int32Array(0) };

const newPoints = (attributes: Attributes): PointSet => ({
  visible: shown(attributes, 'point', true),
  showColors: shown(attributes, 'color', false),
  coordinates: NO_NUMBERS,
  names: NO_NAMES,
  colors: NO_COLORS,
  normals: NO_NUMBERS,
  color: undefined,
  thickness: undefined,
  labelsVisible: false,
  font: undefined,
});

const newLines = (attributes: Attributes): LineSet => ({
  visible: shown(attributes, 'line', true),
  showColors: shown(attributes, 'color', false),
  colorFromPoints: shown(attributes, 'colorFromPoints', false),
  smoothColors: shown(attributes, 'colorSmooth', false),
  arrows: shown(attributes, 'arrow', false),
  lines: NO_LISTS,
  colors: NO_COLORS,
  color: undefined,
  thickness: undefined,
});

const newFaces = (attributes: Attributes): FaceSet => ({
  visible: shown(attributes, 'face', true),
  edgesVisible: shown(attributes, 'edge', true),
  showColors: shown(attributes, 'color', false),
  colorFromPoints: shown(attributes, 'colorFromPoints', false),
  smoothColors: shown(attributes, 'colorSmooth', false),
  colorEdges: shown(attributes, 'colorEdge', false),
  faces: NO_LISTS,
  colors: NO_COLORS,
  color: undefined,
  edgeColor: undefined,
  edgeThickness: undefined,
});

const newField = (attributes: Attributes): VectorField => ({
  visible: shown(attributes, 'vector', true),
  arrows: shown(attributes, 'arrow', false),
  showColors: shown(attributes, 'color', false),
  vectors: NO_NUMBERS,
  colors: NO_COLORS,
  color: undefined,
  thickness: undefined,
  length: undefined,
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

const newGeometry = (attributes: Attributes): Geometry => ({
  name: attributes.get('name') ?? '',
  visible: shown(attributes, 'visible', true),
  dimension: 3,
  points: newPoints(NO_ATTRIBUTES),
  lines: undefined,
  faces: undefined,
  fields: [],
  material: undefined,
});

const NO_ATTRIBUTES: Attributes = new Map();

const slowNumbers = new NumberScanner();

type Opener = (attributes: Attributes) => void;
type Closer = (text: string) => void;

/** Takes the elements below `geometries`, each by its name and that of its parent. */
export class JvxHandler {
  list: ItemList | undefined;
  title = '';
  readonly geometries: Geometry[] = [];
  private geometry = newGeometry(NO_ATTRIBUTES);
  private field = newField(NO_ATTRIBUTES);
  private font = newFont(NO_ATTRIBUTES);
  private material = newMaterial(NO_ATTRIBUTES);
  private transparencyVisible = true;
  /** The names of points of the geometry that is being read, from its first name on. */
  private names = new Map<number, string>();
  private readonly arena = new Arena();
  private readonly numbers = new GrowingFloat64();
  private readonly colors = new GrowingUint8();
  private readonly offsets = new GrowingInt32();
  private readonly indices = new GrowingInt32();

  private readonly points = (): PointSet => this.geometry.points;
  private readonly lines = (): LineSet => (this.geometry.lines ??= newLines(NO_ATTRIBUTES));
  private readonly faces = (): FaceSet => (this.geometry.faces ??= newFaces(NO_ATTRIBUTES));

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
    if (name === undefined || !(this.list instanceof TupleList)) return;
    const points = this.points();
    if (points.names === NO_NAMES) {
      this.names = new Map();
      points.names = this.names;
    }
    this.names.set(this.list.count, name);
  }

  private readonly openers: Record<string, Opener> = {
    'geometries/geometry': (attributes) => {
      this.geometry = newGeometry(attributes);
      this.geometries.push(this.geometry);
    },
    'geometry/pointSet': (attributes) => {
      this.geometry.points = newPoints(attributes);
      this.geometry.dimension = attributes.get('dim') === '2' ? 2 : 3;
    },
    'geometry/lineSet': (attributes) => (this.geometry.lines = newLines(attributes)),
    'geometry/faceSet': (attributes) => (this.geometry.faces = newFaces(attributes)),
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
      this.openList(new TupleList(this.numbers, 'p', [NaN, NaN, 0], this.geometry.dimension)),
    'pointSet/normals': () => this.openList(new TupleList(this.numbers, 'n', [NaN, NaN, NaN])),
    'pointSet/colors': () => this.openList(new ColorList(this.colors)),
    'lineSet/lines': () => this.openList(new IndexLists(this.offsets, this.indices, 'l')),
    'lineSet/colors': () => this.openList(new ColorList(this.colors)),
    'faceSet/faces': () => this.openList(new IndexLists(this.offsets, this.indices, 'f')),
    'faceSet/neighbours': () => this.openList(new UnusedList('nb')),
    'faceSet/colors': () => this.openList(new ColorList(this.colors)),
    'vectorField/vectors': () => {
      this.openList(new TupleList(this.numbers, 'v', [NaN, NaN, 0], this.geometry.dimension));
    },
    'vectorField/colors': () => this.openList(new ColorList(this.colors)),
  };

  private readonly closers: Record<string, Closer> = {
    'jvx-model/title': (text) => (this.title = text.trim()),
    'pointSet/points': () => (this.points().coordinates = this.takeNumbers()),
    'pointSet/normals': () => (this.points().normals = this.takeNumbers()),
    'pointSet/colors': () => (this.points().colors = this.takeColors()),
    'points/thickness': (text) => (this.points().thickness = toNumberOr(text, undefined)),
    'points/color': (text) => (this.points().color = toColor(text)),
    'labelAtt/size': (text) => (this.font.size = toNumberOr(text, this.font.size)),
    'labelAtt/color': (text) => (this.font.color = toColor(text) ?? this.font.color),
    'lineSet/lines': () => (this.lines().lines = this.takeLists()),
    'lineSet/colors': () => (this.lines().colors = this.takeColors()),
    'lines/thickness': (text) => (this.lines().thickness = toNumberOr(text, undefined)),
    'lines/color': (text) => (this.lines().color = toColor(text)),
    'faceSet/faces': () => (this.faces().faces = this.takeLists()),
    'faceSet/neighbours': () => (this.list = undefined),
    'faceSet/colors': () => (this.faces().colors = this.takeColors()),
    'faces/color': (text) => (this.faces().color = toColor(text)),
    'edges/thickness': (text) => (this.faces().edgeThickness = toNumberOr(text, undefined)),
    'edges/color': (text) => (this.faces().edgeColor = toColor(text)),
    'vectorField/vectors': () => (this.field.vectors = this.takeNumbers()),
    'vectorField/colors': () => (this.field.colors = this.takeColors()),
    'vectors/thickness': (text) => (this.field.thickness = toNumberOr(text, undefined)),
    'vectors/length': (text) => (this.field.length = toNumberOr(text, undefined)),
    'vectors/color': (text) => (this.field.color = toColor(text)),
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

  private takeNumbers(): Float64Array {
    const { list } = this;
    this.list = undefined;
    return list instanceof TupleList ? list.values.take(this.arena.float64) : NO_NUMBERS;
  }

  private takeColors(): Uint8Array {
    const { list } = this;
    this.list = undefined;
    return list instanceof ColorList ? list.values.take(this.arena.uint8) : NO_COLORS;
  }

  private takeLists(): Lists {
    const { list } = this;
    this.list = undefined;
    return list instanceof IndexLists ? list.take(this.arena) : NO_LISTS;
  }
}
