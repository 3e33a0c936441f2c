/**
 * The small JSON text beside the JVX and JVD texts of a page: what those have no place for.
 * CONTRACT.md describes it for those who write it. Everything is optional, and what has the wrong
 * type counts as absent, so that a page shows what it can.
 */
import {
  FILL_PATTERNS,
  LINE_STYLES,
  POINT_STYLES,
  type FillPatternName,
  type LineStyleName,
  type PointStyleName,
} from '../scene/styles';

export interface TextLine {
  text: string;
  family: string;
  size: number;
  bold: boolean;
  italic: boolean;
  color: string | undefined;
  align: 'left' | 'center' | 'right';
}

export interface AxisText {
  title: TextLine | undefined;
  grid: boolean | undefined;
  subgrid: boolean;
}

export interface GridStyle {
  color: string | undefined;
  width: number;
  style: LineStyleName;
}

export interface AxesText {
  kind: 'boxed' | 'frame' | 'origin' | 'automatic' | 'none' | undefined;
  x: AxisText;
  y: AxisText;
  z: AxisText;
  grid: GridStyle;
  subgrid: GridStyle;
  /** The font of the numbers. */
  numbers: TextLine | undefined;
}

export interface ColorScale {
  min: number;
  max: number;
  /** Colours at even steps from `min` to `max`. */
  colors: string[];
}

export interface ObjectText {
  name: string;
  /** The entry in the legend; none if undefined. */
  legend: string | undefined;
  color: string | undefined;
  scale: ColorScale | undefined;
}

/** A run of geometries that follow each other in the JVX text. */
export interface Run {
  object: number;
  count: number;
  line: LineStyleName;
  point: PointStyleName;
  fill: FillPatternName;
}

export interface FrameText {
  /** The name of the block with the JVX text. */
  model: string;
  /** The name of the block with the JVD text. */
  display: string | undefined;
  runs: Run[];
}

export interface LegendText {
  visible: boolean;
  placement: 'top' | 'bottom';
  align: 'left' | 'center' | 'right';
  font: TextLine | undefined;
}

/** A place in the drawing area, in parts of its width and height, from the left and the top. */
export interface Place {
  left: number;
  top: number;
  width: number;
  height: number;
}

export interface PanelText {
  name: string;
  header: TextLine | undefined;
  footer: TextLine | undefined;
  place: Place | undefined;
  axes: AxesText;
  legend: LegendText;
  objects: ObjectText[];
  /** One for each time of the animation, or just one. */
  frames: FrameText[];
}

export interface AnimationText {
  /** The time of each frame. */
  times: number[];
  style: 'once' | 'loop' | 'backAndForth';
  autoPlay: boolean;
  /** The frame to begin with. */
  initial: number;
}

export interface PageText {
  title: string;
  header: TextLine | undefined;
  footer: TextLine | undefined;
  /** The proportions of the canvas, width by height. */
  aspect: number | undefined;
  background: string | undefined;
  columns: number | undefined;
  animation: AnimationText | undefined;
  panels: PanelText[];
}

type Unknown = Record<string, unknown>;

const asRecord = (value: unknown): Unknown =>
  typeof value === 'object' && value !== null && !Array.isArray(value) ? (value as Unknown) : {};
const asList = (value: unknown): unknown[] => (Array.isArray(value) ? value : []);
const asText = (value: unknown): string | undefined =>
  typeof value === 'string' ? value : undefined;
const asNumber = (value: unknown): number | undefined =>
  typeof value === 'number' && Number.isFinite(value) ? value : undefined;
const asCount = (value: unknown): number => Math.max(0, Math.floor(asNumber(value) ?? 0));
const asFlag = (value: unknown): boolean | undefined =>
  typeof value === 'boolean' ? value : undefined;

function asWord<T extends string>(value: unknown, words: readonly [T, ...T[]]): T {
  return words.find((word) => word === value) ?? words[0];
}

const COLOR = /^#[0-9a-f]{6}$/i;
const asColor = (value: unknown): string | undefined =>
  typeof value === 'string' && COLOR.test(value) ? value : undefined;

const ALIGNMENTS = ['center', 'left', 'right'] as const;

/** A text is either the text alone or an object with its font. */
function toTextLine(value: unknown): TextLine | undefined {
  const record = typeof value === 'string' ? { text: value } : asRecord(value);
  const text = asText(record.text);
  if (text === undefined) return undefined;
  return {
    text,
    family: asText(record.family) ?? '',
    size: Math.min(Math.max(asNumber(record.size) ?? 12, 4), 72),
    bold: asFlag(record.bold) ?? false,
    italic: asFlag(record.italic) ?? false,
    color: asColor(record.color),
    align: asWord(record.align, ALIGNMENTS),
  };
}

function toAxis(value: unknown): AxisText {
  const record = asRecord(value);
  return {
    title: toTextLine(record.title),
    grid: asFlag(record.grid),
    subgrid: asFlag(record.subgrid) ?? false,
  };
}

function toGrid(value: unknown): GridStyle {
  const record = asRecord(value);
  return {
    color: asColor(record.color),
    width: Math.min(Math.max(asNumber(record.width) ?? 1, 0.5), 20),
    style: asWord(record.style, ['solid', ...LINE_STYLES]),
  };
}

const AXES_KINDS = ['boxed', 'frame', 'origin', 'automatic', 'none'] as const;

function toAxes(value: unknown): AxesText {
  const record = asRecord(value);
  return {
    kind: AXES_KINDS.find((kind) => kind === record.kind),
    x: toAxis(record.x),
    y: toAxis(record.y),
    z: toAxis(record.z),
    grid: toGrid(record.grid),
    subgrid: toGrid(record.subgrid),
    numbers: toTextLine({ ...asRecord(record.numbers), text: '' }),
  };
}

function toScale(value: unknown): ColorScale | undefined {
  const record = asRecord(value);
  const min = asNumber(record.min);
  const max = asNumber(record.max);
  const colors = asList(record.colors)
    .map(asColor)
    .filter((color) => color !== undefined);
  if (min === undefined || max === undefined || colors.length < 2) return undefined;
  return { min, max, colors };
}

function toObject(value: unknown, index: number): ObjectText {
  const record = asRecord(value);
  return {
    name: asText(record.name) ?? `Object ${index + 1}`,
    legend: asText(record.legend),
    color: asColor(record.color),
    scale: toScale(record.scale),
  };
}

function toRun(value: unknown): Run {
  const record = asRecord(value);
  return {
    object: asCount(record.object),
    count: asCount(record.count ?? 1),
    line: asWord(record.line, LINE_STYLES),
    point: asWord(record.point, POINT_STYLES),
    fill: asWord(record.fill, FILL_PATTERNS),
  };
}

function toFrame(value: unknown): FrameText {
  const record = asRecord(value);
  return {
    model: asText(record.model) ?? '',
    display: asText(record.display),
    runs: asList(record.runs).map(toRun),
  };
}

function toPlace(value: unknown): Place | undefined {
  const record = asRecord(value);
  const [left, top] = [asNumber(record.left), asNumber(record.top)];
  const [width, height] = [asNumber(record.width), asNumber(record.height)];
  if (left === undefined || top === undefined || width === undefined || height === undefined) {
    return undefined;
  }
  return width > 0 && height > 0 ? { left, top, width, height } : undefined;
}

function toLegend(value: unknown): LegendText {
  const record = asRecord(value);
  return {
    visible: asFlag(record.visible) ?? true,
    placement: asWord(record.placement, ['bottom', 'top']),
    align: asWord(record.align, ALIGNMENTS),
    font: toTextLine({ ...asRecord(record.font), text: '' }),
  };
}

function toPanel(value: unknown): PanelText {
  const record = asRecord(value);
  return {
    name: asText(record.name) ?? '',
    header: toTextLine(record.header),
    footer: toTextLine(record.footer),
    place: toPlace(record.place),
    axes: toAxes(record.axes),
    legend: toLegend(record.legend),
    objects: asList(record.objects).map(toObject),
    frames: asList(record.frames).map(toFrame),
  };
}

const ANIMATION_STYLES = ['once', 'loop', 'backAndForth'] as const;

function toAnimation(value: unknown): AnimationText | undefined {
  const record = asRecord(value);
  const times = asList(record.times)
    .map(asNumber)
    .filter((time) => time !== undefined);
  if (times.length < 2) return undefined;
  return {
    times,
    style: asWord(record.style, ANIMATION_STYLES),
    autoPlay: asFlag(record.autoPlay) ?? false,
    initial: Math.min(asCount(record.initial), times.length - 1),
  };
}

/** Everything that a parsed JSON text says. */
export function toPageText(value: unknown): PageText {
  const record = asRecord(value);
  const aspect = asNumber(record.aspect);
  return {
    title: asText(record.title) ?? '',
    header: toTextLine(record.header),
    footer: toTextLine(record.footer),
    aspect: aspect !== undefined && aspect > 0.05 && aspect < 20 ? aspect : undefined,
    background: asColor(record.background),
    columns: asNumber(record.columns),
    animation: toAnimation(record.animation),
    panels: asList(record.panels).map(toPanel),
  };
}

/** A panel about which nothing is known but the blocks it shows. */
export function plainPanel(name: string, model: string, display: string | undefined): PanelText {
  return toPanel({ name, frames: [{ model, display }] });
}
