/** What an object looks like, as a small drawing: its area, its line and its point. */
import type { Rgb } from '../javaview/model';
import { cssColor } from '../scene/atlas';
import { hexToRgb } from '../scene/colors';
import type { AreaMark, LineMark, Mark, PointMark } from '../scene/marks';
import { PATTERNS, PERIOD, STROKE, dashLengths, sign } from '../scene/signs';
import { LINE_STYLES, POINT_STYLES, TIP_PARTS, tipLength, type Tip } from '../scene/styles';
import { drawing, shape } from './dom';

/** In pixels; as long as two dashes of the widest line. */
const WIDTH = 40;
const HEIGHT = 16;
const MIDDLE = HEIGHT / 2;
const WIDEST = 4;
const WIDEST_DASHED = 3;
const LARGEST_RADIUS = 6;
const LONGEST_TIP = 16;

/** For an object that is not there yet. */
const PLAIN: Mark = {
  line: { color: [0, 0, 0], width: WIDEST, style: 'solid', tip: undefined },
  opacity: 1,
};

const within = (value: number, least: number, most: number): number =>
  Math.min(Math.max(value, least), most);

type Shapes = SVGElement[];

interface Pen extends Record<string, string | number | undefined> {
  fill: 'none';
}

/** How a line is drawn; short dashes stay apart from each other. */
function penOf({ width, style }: LineMark, color: string): Pen {
  const lengths = dashLengths(LINE_STYLES.indexOf(style), within(width, 1, WIDEST_DASHED));
  return {
    fill: 'none',
    stroke: color,
    'stroke-width': within(width, 1, lengths ? WIDEST_DASHED : WIDEST),
    'stroke-dasharray': lengths?.join(' '),
  };
}

let patterns = 0;

function areaShapes({ pattern }: AreaMark, color: string, outline: Pen | undefined): Shapes {
  const rect = (more: Record<string, string | number | undefined>): SVGElement =>
    shape('rect', { x: 6, y: 1.5, width: WIDTH - 12, height: HEIGHT - 3, ...more });
  const border = outline ? [rect(outline)] : [];
  if (pattern === 'solid') return [rect({ fill: color }), ...border];
  const { d, turn } = PATTERNS[pattern];
  const id = `mark-${patterns++}`;
  const tile = {
    id,
    width: PERIOD,
    height: PERIOD,
    patternUnits: 'userSpaceOnUse',
    patternTransform: turn === 0 ? undefined : `rotate(${turn})`,
  };
  const strokes = shape('path', { d, stroke: color, 'stroke-width': STROKE });
  return [shape('pattern', tile, strokes), rect({ fill: `url(#${id})` }), ...border];
}

function tipShape(tip: Tip, width: number, color: string): SVGElement {
  const length = Math.min(tipLength(tip, width), LONGEST_TIP);
  const side = Math.min(length * Math.tan(tip.angle), MIDDLE - 1);
  const [point, back] = [WIDTH - 1, WIDTH - 1 - length];
  const d = `M${back} ${MIDDLE - side}L${point} ${MIDDLE}L${back} ${MIDDLE + side}`;
  if (tip.style === 'filled') return shape('path', { d, fill: color });
  const end = tip.style === 'closed' ? 'z' : '';
  return shape('path', { d: d + end, fill: 'none', stroke: color, 'stroke-width': width });
}

function lineShapes({ width, tip }: LineMark, color: string, pen: Pen): Shapes {
  const drawn = within(width, 1, WIDEST);
  const back = tip ? Math.min(tipLength(tip, drawn), LONGEST_TIP) * TIP_PARTS[tip.style] : 0;
  const line = shape('path', { d: `M1 ${MIDDLE}H${WIDTH - 1 - back}`, ...pen });
  return tip ? [line, tipShape(tip, drawn, color)] : [line];
}

function pointShape({ radius, style }: PointMark, color: string): SVGElement {
  const { d, pen } = sign(POINT_STYLES.indexOf(style), within(radius, 1.5, LARGEST_RADIUS));
  const drawn = pen === 0 ? { fill: color } : { fill: 'none', stroke: color, 'stroke-width': pen };
  return shape('path', { d, transform: `translate(${WIDTH / 2} ${MIDDLE})`, ...drawn });
}

/** A colour of a line or a point as it is seen on the ground of the page. */
export type Seen = (color: Rgb) => Rgb;

/** The drawing of a mark; `color` is that of the largest of its parts. */
export function makeMark(
  mark: Mark | undefined,
  color: string | undefined,
  seen: Seen,
): SVGSVGElement {
  const { area, line, point, opacity } = mark ?? PLAIN;
  const largest = area ?? line ?? point;
  const colorOf = (part: { color: Rgb }): string => {
    const own = part === largest && color !== undefined ? hexToRgb(color) : part.color;
    return cssColor(area ? own : seen(own));
  };
  const pen = line && penOf(line, colorOf(line));
  const shapes = [
    ...(area ? areaShapes(area, colorOf(area), pen) : []),
    ...(line && pen && !area ? lineShapes(line, colorOf(line), pen) : []),
    ...(point ? [pointShape(point, colorOf(point))] : []),
  ];
  const group = shape('g', { opacity: opacity < 1 ? opacity : undefined }, ...shapes);
  const made = drawing(`0 0 ${WIDTH} ${HEIGHT}`, group);
  made.classList.add('mark');
  return made;
}
