/** What JVX and JVD texts say, in plain data that a worker can hand over. */

/** Red, green and blue, 0 to 255. */
export type Rgb = readonly [number, number, number];

export type Vector = readonly [number, number, number];

/** Lists of different lengths in one array: list i is `values[offsets[i]]` up to `offsets[i + 1]`. */
export interface Lists {
  offsets: Int32Array;
  values: Int32Array;
}

export interface Font {
  family: string;
  /** In pixels. */
  size: number;
  bold: boolean;
  italic: boolean;
  color: Rgb;
  horizontal: 'head' | 'center' | 'tail';
  vertical: 'top' | 'middle' | 'bottom';
}

/** What all points of a set share. */
export interface PointLook {
  visible: boolean;
  showColors: boolean;
  color: Rgb | undefined;
  /** The radius in pixels, undefined if the file is silent. */
  thickness: number | undefined;
  labelsVisible: boolean;
  font: Font | undefined;
}

export interface PointSet extends PointLook {
  /** Three coordinates a point, as the file has them; z is 0 in a set of two dimensions. */
  coordinates: Float64Array;
  /** Names of points, by their number; only those that have one. */
  names: ReadonlyMap<number, string>;
  /** Three bytes a point, empty if the file has none. */
  colors: Uint8Array;
  normals: Float64Array;
}

export interface LineLook {
  visible: boolean;
  showColors: boolean;
  colorFromPoints: boolean;
  smoothColors: boolean;
  arrows: boolean;
  color: Rgb | undefined;
  thickness: number | undefined;
}

export interface LineSet extends LineLook {
  lines: Lists;
  colors: Uint8Array;
}

export interface FaceLook {
  visible: boolean;
  edgesVisible: boolean;
  showColors: boolean;
  colorFromPoints: boolean;
  smoothColors: boolean;
  colorEdges: boolean;
  color: Rgb | undefined;
  edgeColor: Rgb | undefined;
  edgeThickness: number | undefined;
}

export interface FaceSet extends FaceLook {
  faces: Lists;
  colors: Uint8Array;
}

export interface FieldLook {
  visible: boolean;
  arrows: boolean;
  showColors: boolean;
  color: Rgb | undefined;
  thickness: number | undefined;
  /** The length of each drawn vector; undefined draws them as long as they are. */
  length: number | undefined;
}

export interface VectorField extends FieldLook {
  vectors: Float64Array;
  colors: Uint8Array;
}

export interface Material {
  smooth: boolean;
  ambient: number;
  diffuse: Rgb;
  specular: Rgb;
  emissive: Rgb;
  shininess: number;
  /** 0 is opaque, 1 cannot be seen. */
  transparency: number;
}

export interface Geometry {
  name: string;
  visible: boolean;
  dimension: 2 | 3;
  points: PointSet;
  lines: LineSet | undefined;
  faces: FaceSet | undefined;
  fields: VectorField[];
  material: Material | undefined;
}

/** The points of many geometries, three coordinates each, as the file has them. */
export interface Places {
  values: Float64Array;
  /** The values of geometry i are those from `begins[i]` up to `ends[i]`. */
  begins: Int32Array;
  ends: Int32Array;
  /** 2 or 3 for each geometry. */
  dimensions: Uint8Array;
}

export interface Ruler {
  visible: boolean;
  name: string;
  nameVisible: boolean;
  numbers: boolean;
  majorTicks: boolean;
  minorTicks: boolean;
  min: number | undefined;
  max: number | undefined;
  majorUnit: number | undefined;
  minorUnit: number | undefined;
  color: Rgb;
  thickness: number;
}

export type AxesType = 'center' | 'corner' | 'bndbox';

export interface Axes {
  visible: boolean;
  dimension: 2 | 3;
  type: AxesType;
  /** Which planes (xy, xz, yz) carry lines across. */
  gridPlanes: [boolean, boolean, boolean];
  rulers: Ruler[];
}

export interface Camera {
  projection: string;
  position: Vector;
  interest: Vector;
  /** Height of the view at distance 1; 0 is a parallel projection. */
  fieldOfView: number;
  /** In degrees. */
  roll: number;
}

export interface Light {
  type: 'ambient' | 'point' | 'direction' | 'spot';
  position: Vector;
  interest: Vector;
  color: Rgb;
  intensity: number;
}

export type Range = readonly [number, number];

export interface Display {
  axes: Axes | undefined;
  boxVisible: boolean;
  boxColor: Rgb;
  boxThickness: number;
  /** Factors of the coordinates, undefined if the box keeps its own proportions. */
  boxRatio: Vector | undefined;
  clip: [Range | undefined, Range | undefined, Range | undefined];
  /** The one that is selected comes first. */
  cameras: Camera[];
  lights: Light[] | undefined;
  background: Rgb | undefined;
}
