/** Lines, arrows and vector fields. */
import type { Rgb, VectorField } from '../javaview/model';
import { withAlpha } from './batches';
import { colorAt, type Draft } from './draft';
import { meanColor, usesPointColors } from './faces';
import { vectorEnd } from './space';
import { LINE_STYLES } from './styles';

export const DEFAULT_LINE_COLOR: Rgb = [0, 0, 0];

export function addLines({ geometry, style, batches, at, alpha }: Draft): void {
  const { lines, points } = geometry;
  if (!lines?.visible || alpha <= 0) return;
  // A list of lines without a colour takes that of its points, which the same pen has drawn.
  const base = lines.color ?? points.color ?? DEFAULT_LINE_COLOR;
  const smooth = lines.showColors && lines.smoothColors && points.colors.length > 0;
  const { offsets, values } = lines.lines;
  const drawn = (point: number): boolean => point >= 0 && !Number.isNaN(at[point * 3] ?? NaN);
  const byPoints = usesPointColors(lines, points);
  const lineColor = (line: number, a: number, b: number): Rgb => {
    if (!lines.showColors) return base;
    return byPoints ? meanColor(points.colors, [a, b], base) : colorAt(lines.colors, line, base);
  };
  for (let line = 0; line + 1 < offsets.length; line++) {
    batches.counts.lines++;
    let distance = 0;
    for (let k = offsets[line]!; k + 1 < offsets[line + 1]!; k++) {
      const a = values[k]!;
      const b = values[k + 1]!;
      if (!drawn(a) || !drawn(b)) continue;
      const color = smooth ? undefined : withAlpha(lineColor(line, a, b), alpha);
      batches.lines.add(
        at.subarray(a * 3, a * 3 + 3),
        at.subarray(b * 3, b * 3 + 3),
        color ?? withAlpha(colorAt(points.colors, a, base), alpha),
        color ?? withAlpha(colorAt(points.colors, b, base), alpha),
        {
          width: lines.thickness ?? 1,
          object: style.object,
          dash: LINE_STYLES.indexOf(style.line),
          tip: lines.arrows && k + 2 === offsets[line + 1] ? style.tip : undefined,
        },
        distance,
      );
      distance += Math.hypot(
        at[a * 3]! - at[b * 3]!,
        at[a * 3 + 1]! - at[b * 3 + 1]!,
        at[a * 3 + 2]! - at[b * 3 + 2]!,
      );
    }
  }
}

/** Vectors start at the points; their length is that of the field if it names one. */
export function addField(draft: Draft, field: VectorField): void {
  const { geometry, style, batches, space, at, alpha } = draft;
  if (!field.visible || alpha <= 0) return;
  const base = field.color ?? DEFAULT_LINE_COLOR;
  const { vectors } = field;
  const { coordinates } = geometry.points;
  const lineStyle = {
    width: field.thickness ?? 1,
    object: style.object,
    dash: LINE_STYLES.indexOf(style.line),
    tip: field.arrows ? style.tip : undefined,
  };
  for (let i = 0; i * 3 < Math.min(vectors.length, at.length); i++) {
    batches.counts.vectors++;
    const k = i * 3;
    const end = space.point(...vectorEnd(field, coordinates, i));
    if (space.flat) end[2] = at[k + 2]!;
    if (!end.every(Number.isFinite) || Number.isNaN(at[k])) continue;
    const color = withAlpha(field.showColors ? colorAt(field.colors, i, base) : base, alpha);
    batches.lines.add(at.subarray(k, k + 3), end, color, color, lineStyle, 0);
  }
}
