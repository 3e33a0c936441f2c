/** What the rulers of a scene look like, out of the display and the plot document. */
import type { AxesText, AxisText, NumberStyleName } from '../data/contract';
import type { Axes, Display, Rgb, Ruler } from '../javaview/model';
import type { TextStyle } from '../scene/batches';
import { hexToRgb } from '../scene/colors';
import { LINE_STYLES } from '../scene/styles';
import type { TickLook } from './ticks';

export interface GridLook {
  color: Rgb;
  width: number;
  dash: number;
}

export interface RulerLook extends TickLook {
  visible: boolean;
  title: string;
  titleStyle: TextStyle;
  /** Where the title is along the axis: 0 at its beginning, 1 at its end. */
  titlePlace: number;
  /** Whether the title runs along a vertical ruler. */
  titleTurned: boolean;
  numbers: boolean;
  numberPlaces: NumberStyleName;
  majorTicks: boolean;
  minorTicks: boolean;
  color: Rgb;
  width: number;
  grid: boolean;
  subgrid: boolean;
}

export interface FrameLook {
  visible: boolean;
  /** Rulers through the origin, on the outline of the box, or on its planes. */
  type: Axes['type'];
  box: boolean;
  boxColor: Rgb;
  boxWidth: number;
  inFront: boolean;
  gridInFront: boolean;
  tips: boolean;
  /** In pixels. */
  tickLength: number;
  origin: readonly [number, number, number];
  rulers: [RulerLook, RulerLook, RulerLook];
  gridPlanes: [boolean, boolean, boolean];
  grid: GridLook;
  subgrid: GridLook;
  numberStyle: TextStyle;
}

const TICK_LENGTH = 6;
const NUMBER_SIZE = 12;
const TITLE_SIZE = 13;
const PLACES = { left: 0, center: 0.5, right: 1 } as const;

/** A mixture that stays readable on any ground between the two colours. */
const fade = (color: Rgb, ground: Rgb, part: number): Rgb => [
  color[0] + (ground[0] - color[0]) * part,
  color[1] + (ground[1] - color[1]) * part,
  color[2] + (ground[2] - color[2]) * part,
];

const textStyle = (text: AxisText['title'], size: number, color: Rgb): TextStyle => ({
  family: text?.family ?? '',
  size: text?.size ?? size,
  bold: text?.bold ?? false,
  italic: text?.italic ?? false,
  color: text?.color === undefined ? color : hexToRgb(text.color),
});

function rulerLook(ruler: Ruler | undefined, text: AxisText, ink: Rgb): RulerLook {
  const color = ruler?.color ?? ink;
  const title = text.title?.text ?? (ruler?.nameVisible ? ruler.name : '');
  return {
    visible: ruler?.visible ?? true,
    title,
    titleStyle: textStyle(text.title, TITLE_SIZE, color),
    titlePlace: PLACES[text.title?.align ?? 'center'],
    titleTurned: text.turned,
    numbers: ruler?.numbers ?? true,
    numberPlaces: text.numbers,
    logarithmic: text.logarithmic,
    amount: text.amount,
    anchor: text.anchor,
    ticks: text.ticks,
    majorTicks: ruler?.majorTicks ?? true,
    minorTicks: ruler?.minorTicks ?? true,
    majorUnit: ruler?.majorUnit,
    minorUnit: ruler?.minorUnit,
    color,
    width: ruler?.thickness ?? 1,
    grid: text.grid ?? false,
    subgrid: text.subgrid,
  };
}

/**
 * The looks of the rulers. `ink` and `ground` are the colours of the surroundings, for what the
 * display leaves open.
 */
export function frameLook(
  display: Display | undefined,
  text: AxesText,
  ink: Rgb,
  ground: Rgb,
): FrameLook {
  const axes = display?.axes;
  const rulers = [text.x, text.y, text.z].map((axis, i) => rulerLook(axes?.rulers[i], axis, ink));
  const known = [text.x, text.y, text.z].some((axis) => axis.grid !== undefined);
  const planes = axes?.gridPlanes ?? [false, false, false];
  const line = rulers[0]!.color;
  const look: FrameLook = {
    visible: axes?.visible ?? false,
    type: axes?.type ?? 'bndbox',
    box: display?.boxVisible ?? false,
    boxColor: display?.boxColor ?? ink,
    boxWidth: display?.boxThickness ?? 1,
    inFront: text.inFront,
    gridInFront: text.gridInFront,
    tips: text.tips,
    tickLength: text.tickLength ?? TICK_LENGTH,
    origin: text.origin,
    rulers: [rulers[0]!, rulers[1]!, rulers[2]!],
    gridPlanes: planes,
    grid: gridLook(text.grid, fade(line, ground, 0.75)),
    subgrid: gridLook(text.subgrid, fade(line, ground, 0.88)),
    numberStyle: textStyle(text.numbers, NUMBER_SIZE, line),
  };
  if (!known) {
    // Each plane with a grid carries lines of both its axes; a display cannot say more.
    const [xy, xz, yz] = planes;
    look.rulers[0].grid = xy || xz;
    look.rulers[1].grid = xy || yz;
    look.rulers[2].grid = xz || yz;
  }
  applyKind(look, text.kind);
  return look;
}

const gridLook = (text: AxesText['grid'], otherwise: Rgb): GridLook => ({
  color: text.color === undefined ? otherwise : hexToRgb(text.color),
  width: text.width,
  dash: LINE_STYLES.indexOf(text.style),
});

/** With a grid a display loses what kind of axes there are; the plot document knows. */
function applyKind(look: FrameLook, kind: AxesText['kind']): void {
  if (kind === undefined) return;
  if (kind === 'origin') look.type = 'center';
  if (kind === 'boxed' || kind === 'frame')
    look.type = look.type === 'center' ? 'bndbox' : look.type;
  if (kind === 'none') for (const ruler of look.rulers) ruler.visible = false;
}
