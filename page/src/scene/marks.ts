/** What objects look like, in the few shapes that a legend has room for. */
import type { Geometries } from '../javaview/geometries';
import type { Geometry, Rgb } from '../javaview/model';
import { DEFAULT_POINT_COLOR, DEFAULT_POINT_RADIUS, type StyleOf } from './build';
import { DEFAULT_EDGE_COLOR, DEFAULT_FACE_COLOR } from './faces';
import { DEFAULT_LINE_COLOR } from './lines';
import type { FillPatternName, GeometryStyle, LineStyleName, PointStyleName, Tip } from './styles';

export interface AreaMark {
  color: Rgb;
  pattern: FillPatternName;
}

export interface LineMark {
  color: Rgb;
  width: number;
  style: LineStyleName;
  /** At its end, if there is one. */
  tip: Tip | undefined;
}

export interface PointMark {
  color: Rgb;
  radius: number;
  style: PointStyleName;
}

/** The first area, line and point of an object, as far as it has them. */
export interface Mark {
  area?: AreaMark;
  line?: LineMark;
  point?: PointMark;
  /** 0 to 1. */
  opacity: number;
}

function areaOf({ faces }: Geometry, style: GeometryStyle): AreaMark | undefined {
  if (!faces?.visible || faces.faces.offsets.length < 2) return undefined;
  return { color: faces.color ?? DEFAULT_FACE_COLOR, pattern: style.fill };
}

function lineOf(geometry: Geometry, style: GeometryStyle): LineMark | undefined {
  const { points, lines, faces } = geometry;
  if (lines?.visible && lines.lines.offsets.length > 1) {
    return {
      color: lines.color ?? points.color ?? DEFAULT_LINE_COLOR,
      width: lines.thickness ?? 1,
      style: style.line,
      tip: lines.arrows ? style.tip : undefined,
    };
  }
  const field = geometry.fields.find(({ visible }) => visible);
  if (field) {
    return {
      color: field.color ?? DEFAULT_LINE_COLOR,
      width: field.thickness ?? 1,
      style: style.line,
      tip: field.arrows ? style.tip : undefined,
    };
  }
  if (!faces?.edgesVisible || faces.faces.offsets.length < 2) return undefined;
  return {
    color: faces.edgeColor ?? DEFAULT_EDGE_COLOR,
    width: faces.edgeThickness ?? 1,
    style: style.line,
    tip: undefined,
  };
}

function pointOf({ points }: Geometry, style: GeometryStyle): PointMark | undefined {
  const radius = points.thickness ?? DEFAULT_POINT_RADIUS;
  if (!points.visible || radius <= 0 || points.coordinates.length === 0) return undefined;
  return { color: points.color ?? DEFAULT_POINT_COLOR, radius, style: style.point };
}

/** The marks of some objects, by their numbers; none for an object that shows nothing. */
export function marksOf(
  geometries: Geometries,
  objects: ArrayLike<number>,
  marked: readonly number[],
  styleOf: StyleOf,
): Map<number, Mark> {
  const marks = new Map<number, Mark>();
  const wanted = new Set(marked);
  for (let i = 0; i < geometries.length; i++) {
    const object = objects[i]!;
    if (!wanted.has(object)) continue;
    const geometry = geometries.at(i);
    if (!geometry.visible) continue;
    const style = styleOf(i);
    const area = areaOf(geometry, style);
    const line = lineOf(geometry, style);
    const point = pointOf(geometry, style);
    if (!area && !line && !point) continue;
    const mark = marks.get(object) ?? { opacity: 1 - (geometry.material?.transparency ?? 0) };
    mark.area ??= area;
    mark.line ??= line;
    mark.point ??= point;
    marks.set(object, mark);
  }
  return marks;
}
