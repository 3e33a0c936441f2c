/** Styles that JVX has no place for; the plot document names them for runs of geometries. */

export const LINE_STYLES = ['solid', 'dashed', 'dotted'] as const;
export type LineStyleName = (typeof LINE_STYLES)[number];

export const POINT_STYLES = [
  'filledCircles',
  'circles',
  'filledSquares',
  'squares',
  'filledDiamonds',
  'diamonds',
  'crosses',
  'xCrosses',
  'stars',
] as const;
export type PointStyleName = (typeof POINT_STYLES)[number];

export const FILL_PATTERNS = [
  'solid',
  'horizontalLines',
  'verticalLines',
  'diagonalLines',
  'fDiagonalLines',
  'crossedLines',
  'xCrossedLines',
] as const;
export type FillPatternName = (typeof FILL_PATTERNS)[number];

/** What a geometry belongs to and how it is drawn. */
export interface GeometryStyle {
  object: number;
  line: LineStyleName;
  point: PointStyleName;
  fill: FillPatternName;
}
