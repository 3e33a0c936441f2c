/** Turns geometries into the batches that are drawn. */
import type { Geometries } from '../javaview/geometries';
import type { Geometry, PointSet, Rgb } from '../javaview/model';
import { SceneBatches, withAlpha } from './batches';
import { colorAt, type Draft } from './draft';
import { addFaces } from './faces';
import { addField, addLines } from './lines';
import { layer, type Space } from './space';
import { POINT_STYLES, type GeometryStyle } from './styles';

export const DEFAULT_POINT_COLOR: Rgb = [255, 0, 0];
export const DEFAULT_POINT_RADIUS = 2;
const DEFAULT_FONT = { family: 'sans-serif', size: 12, bold: false, italic: false };

function drawnPoints(points: PointSet, space: Space, flatLayer: number): Float32Array {
  const { coordinates } = points;
  const at = new Float32Array(coordinates.length);
  for (let i = 0; i < coordinates.length; i += 3) {
    const x = space.toScene(0, coordinates[i]!);
    const y = space.toScene(1, coordinates[i + 1]!);
    const z = space.flat ? flatLayer : space.toScene(2, coordinates[i + 2]!);
    // Beyond these sizes the graphics hardware makes stripes of triangles; no plot needs them.
    const drawable = Math.abs(x) < 1e6 && Math.abs(y) < 1e6 && Math.abs(z) < 1e6;
    at[i] = drawable ? x : NaN;
    at[i + 1] = drawable ? y : NaN;
    at[i + 2] = drawable ? z : NaN;
  }
  return at;
}

function addPoints({ geometry, style, batches, at, alpha }: Draft): void {
  const { points } = geometry;
  const radius = points.thickness ?? DEFAULT_POINT_RADIUS;
  if (!points.visible || radius <= 0) return;
  const base = points.color ?? DEFAULT_POINT_COLOR;
  const pointStyle = POINT_STYLES.indexOf(style.point);
  for (let i = 0; i * 3 < at.length; i++) {
    batches.counts.points++;
    if (Number.isNaN(at[i * 3])) continue;
    const color = points.showColors ? colorAt(points.colors, i, base) : base;
    const place = at.subarray(i * 3, i * 3 + 3);
    batches.points.add(place, withAlpha(color, alpha), radius, style.object, pointStyle);
  }
}

const HORIZONTAL = { head: 0, center: 0.5, tail: 1 } as const;
const VERTICAL = { top: 0, middle: 0.5, bottom: 1 } as const;

function addLabels({ geometry, style, batches, at }: Draft): void {
  const { points } = geometry;
  if (!points.labelsVisible) return;
  const font = points.font;
  for (const [i, text] of points.names) {
    if (text.trim() === '') continue;
    batches.counts.labels++;
    const x = at[i * 3];
    if (x === undefined || Number.isNaN(x)) continue;
    batches.labels.push({
      text,
      at: [x, at[i * 3 + 1]!, at[i * 3 + 2]!],
      style: font ?? { ...DEFAULT_FONT, color: points.color ?? [0, 0, 0] },
      anchor: [HORIZONTAL[font?.horizontal ?? 'head'], VERTICAL[font?.vertical ?? 'bottom']],
      shift: [0, 0],
      object: style.object,
    });
  }
}

/** The style of geometry `i`. */
export type StyleOf = (i: number) => GeometryStyle;

export function buildScene(geometries: Geometries, space: Space, styleOf: StyleOf): SceneBatches {
  const batches = new SceneBatches(geometries.length);
  for (let i = 0; i < geometries.length; i++) {
    const geometry = geometries.at(i);
    if (!geometry.visible) continue;
    const draft: Draft = {
      geometry,
      style: styleOf(i),
      batches,
      space,
      at: drawnPoints(geometry.points, space, layer(i, geometries.length)),
      alpha: 1 - (geometry.material?.transparency ?? 0),
    };
    addFaces(draft);
    addLines(draft);
    for (const field of geometry.fields) addField(draft, field);
    addPoints(draft);
    addLabels(draft);
    batches.seen[i] = isSeen(geometry) ? 1 : 0;
  }
  return batches;
}

function isSeen({ points, lines, faces, fields }: Geometry): boolean {
  const discs = points.visible && (points.thickness ?? DEFAULT_POINT_RADIUS) > 0;
  const surface = faces !== undefined && (faces.visible || faces.edgesVisible);
  return discs || surface || lines?.visible === true || fields.some((field) => field.visible);
}
