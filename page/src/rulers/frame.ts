/** What the rulers of a scene look like, out of the display and the plot document. */
import type { AxesText, AxisText } from '../data/contract';
import type { Axes, Display, Rgb, Ruler } from '../javaview/model';
import type { TextStyle } from '../scene/batches';
import { LINE_STYLES } from '../scene/styles';

export type Axis = 0 | 1 | 2;
export const AXES: readonly Axis[] = [0, 1, 2];

export interface GridLook {
  color: Rgb;
  width: number;
  dash: number;
}

export interface RulerLook {
  visible: boolean;
  title: string;
  titleStyle: TextStyle;
  /** Where the title is along the axis: 0 at its beginning, 1 at its end. */
  titlePlace: number;
  numbers: boolean;
  majorTicks: boolean;
  minorTicks: boolean;
  majorUnit: number | undefined;
  minorUnit: number | undefined;
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
  rulers: [RulerLook, RulerLook, RulerLook];
  gridPlanes: [boolean, boolean, boolean];
  grid: GridLook;
  subgrid: GridLook;
  numberStyle: TextStyle;
}

const NUMBER_SIZE = 12;
const TITLE_SIZE = 13;
const PLACES = { left: 0, center: 0.5, right: 1 } as const;

export function hexToRgb(hex: string): Rgb {
  const value = parseInt(hex.slice(1), 16);
  return [value >> 16, (value >> 8) & 255, value & 255];
}

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
    numbers: ruler?.numbers ?? true,
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
