/**
 * The small JSON text beside the JVX and JVD texts of a page: what those have no place for.
 * CONTRACT.md describes it for those who write it. Everything is optional, and what has the wrong
 * type counts as absent, so that a page shows what it can.
 */
import {
  FILL_PATTERNS,
  FILL_RULES,
  LINE_STYLES,
  PLAIN_TIP,
  POINT_STYLES,
  TIP_STYLES,
  type FillPatternName,
  type FillRuleName,
  type LineStyleName,
  type PointStyleName,
  type Tip,
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

/** A tick at a place of its own. */
export interface TickText {
  at: number;
  text: string;
}

/** How numbers are written at their ticks. */
const NUMBER_STYLES = ['horizontal', 'vertical', 'diagonal', 'shifted'] as const;
export type NumberStyleName = (typeof NUMBER_STYLES)[number];

/** How many ticks there are beside those that are named. */
const AMOUNTS = ['normal', 'none', 'low', 'high'] as const;
export type AmountName = (typeof AMOUNTS)[number];

export interface AxisText {
  title: TextLine | undefined;
  /** Whether the title is turned to run along a vertical axis. */
  turned: boolean;
  logarithmic: boolean;
  numbers: NumberStyleName;
  amount: AmountName;
  ticks: TickText[];
  /** A value that has a tick. */
  anchor: number;
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
  /** Whether the rulers and the grid of a scene of two dimensions are drawn over its objects. */
  inFront: boolean;
  gridInFront: boolean;
  /** Whether axes through the origin end in arrows. */
  tips: boolean;
  /** In pixels; undefined leaves it to the page. */
  tickLength: number | undefined;
  /** Where axes of the kind `origin` cross. */
  origin: readonly [number, number, number];
  grid: GridStyle;
  subgrid: GridStyle;
  /** The font of the numbers. */
  numbers: TextLine | undefined;
}

/** How the box of a scene is drawn if its display has no ratio for it. */
const SCALINGS = ['constrained', 'automatic', 'unconstrained'] as const;
export interface BoxText {
  /** Whether one unit is equally long on all axes. */
  scaling: (typeof SCALINGS)[number];
  /** The proportions of the box where that is not so, undefined for the usual ones. */
  sides: number[] | undefined;
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
  rule: FillRuleName;
  tip: Tip;
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

/** A ground of two colours, which run into each other. */
export const BACKDROP_STYLES = ['flat', 'leftRight', 'topBottom', 'pyramid'] as const;
export interface BackdropText {
  style: (typeof BACKDROP_STYLES)[number];
  /** At the left, the top or the rim; and at the right, the bottom or in the middle. */
  colors: readonly [string, string];
}

export interface PanelText {
  name: string;
  background: BackdropText | undefined;
  header: TextLine | undefined;
  footer: TextLine | undefined;
  place: Place | undefined;
  axes: AxesText;
  box: BoxText;
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

const within = (value: number, least: number, most: number): number =>
  Math.min(Math.max(value, least), most);

const ALIGNMENTS = ['center', 'left', 'right'] as const;

/** A text is either the text alone or an object with its font. */
function toTextLine(value: unknown): TextLine | undefined {
  const record = typeof value === 'string' ? { text: value } : asRecord(value);
  const text = asText(record.text);
  if (text === undefined) return undefined;
  return {
    text,
    family: asText(record.family) ?? '',
    size: within(asNumber(record.size) ?? 12, 4, 72),
    bold: asFlag(record.bold) ?? false,
    italic: asFlag(record.italic) ?? false,
    color: asColor(record.color),
    align: asWord(record.align, ALIGNMENTS),
  };
}

/** More ticks than this make no picture. */
const MOST_TICKS = 200;

function toTick(value: unknown): TickText | undefined {
  const record = asRecord(value);
  const at = asNumber(record.at);
  return at === undefined ? undefined : { at, text: asText(record.text) ?? String(at) };
}

function toAxis(value: unknown): AxisText {
  const record = asRecord(value);
  return {
    title: toTextLine(record.title),
    turned: asFlag(record.turned) ?? true,
    logarithmic: asFlag(record.logarithmic) ?? false,
    numbers: asWord(record.numbers, NUMBER_STYLES),
    amount: asWord(record.amount, AMOUNTS),
    ticks: asList(record.ticks)
      .slice(0, MOST_TICKS)
      .map(toTick)
      .filter((tick) => tick !== undefined),
    anchor: asNumber(record.anchor) ?? 0,
    grid: asFlag(record.grid),
    subgrid: asFlag(record.subgrid) ?? false,
  };
}

function toGrid(value: unknown): GridStyle {
  const record = asRecord(value);
  return {
    color: asColor(record.color),
    width: within(asNumber(record.width) ?? 1, 0.5, 20),
    style: asWord(record.style, ['solid', ...LINE_STYLES]),
  };
}

const AXES_KINDS = ['boxed', 'frame', 'origin', 'automatic', 'none'] as const;

function toAxes(value: unknown): AxesText {
  const record = asRecord(value);
  const tickLength = asNumber(record.tickLength);
  const origin = asList(record.origin);
  return {
    kind: AXES_KINDS.find((kind) => kind === record.kind),
    x: toAxis(record.x),
    y: toAxis(record.y),
    z: toAxis(record.z),
    inFront: asFlag(record.inFront) ?? true,
    gridInFront: asFlag(record.gridInFront) ?? false,
    tips: asFlag(record.tips) ?? true,
    tickLength: tickLength === undefined ? undefined : within(tickLength, 0, 100),
    origin: [asNumber(origin[0]) ?? 0, asNumber(origin[1]) ?? 0, asNumber(origin[2]) ?? 0],
    grid: toGrid(record.grid),
    subgrid: toGrid(record.subgrid),
    numbers: toTextLine({ ...asRecord(record.numbers), text: '' }),
  };
}

function toBox(value: unknown): BoxText {
  const record = asRecord(value);
  const sides = asList(record.sides)
    .map(asNumber)
    .filter((side) => side !== undefined && side > 0);
  const enough = sides.length === 2 || sides.length === 3;
  return {
    scaling: asWord(record.scaling, SCALINGS),
    sides: enough ? (sides as number[]) : undefined,
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

function toTip(value: unknown): Tip {
  const record = asRecord(value);
  const length = asNumber(record.length);
  return {
    style: asWord(record.style, TIP_STYLES),
    length: length === undefined || length <= 0 ? undefined : within(length, 1, 200),
    angle: within(asNumber(record.angle) ?? PLAIN_TIP.angle, 0.02, 1.5),
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
    rule: asWord(record.rule, FILL_RULES),
    tip: toTip(record.tip),
  };
}

/** A frame that says nothing of its runs has those of the frame before. */
function toFrames(values: unknown[]): FrameText[] {
  let runs: Run[] = [];
  return values.map((value) => {
    const record = asRecord(value);
    if (Array.isArray(record.runs)) runs = record.runs.map(toRun);
    return { model: asText(record.model) ?? '', display: asText(record.display), runs };
  });
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

function toBackdrop(value: unknown): BackdropText | undefined {
  const record = asRecord(value);
  const [first, second] = asList(record.colors).map(asColor);
  if (first === undefined || second === undefined) return undefined;
  return { style: asWord(record.style, BACKDROP_STYLES), colors: [first, second] };
}

function toPanel(value: unknown): PanelText {
  const record = asRecord(value);
  return {
    name: asText(record.name) ?? '',
    background: toBackdrop(record.background),
    header: toTextLine(record.header),
    footer: toTextLine(record.footer),
    place: toPlace(record.place),
    axes: toAxes(record.axes),
    box: toBox(record.box),
    legend: toLegend(record.legend),
    objects: asList(record.objects).map(toObject),
    frames: toFrames(asList(record.frames)),
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

/** A box about which nothing is known. */
export const PLAIN_BOX: BoxText = toBox({});

/** A panel about which nothing is known but the blocks it shows. */
export function plainPanel(name: string, model: string, display: string | undefined): PanelText {
  return toPanel({ name, frames: [{ model, display }] });
}
