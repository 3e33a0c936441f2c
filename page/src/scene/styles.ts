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

/** What is within a face whose sides cross. */
export const FILL_RULES = ['winding', 'evenOdd'] as const;
export type FillRuleName = (typeof FILL_RULES)[number];

export const TIP_STYLES = ['filled', 'open', 'closed'] as const;
export type TipStyleName = (typeof TIP_STYLES)[number];

/** The tip of an arrow. */
export interface Tip {
  style: TipStyleName;
  /** In pixels along the arrow; undefined goes by the width of its line. */
  length: number | undefined;
  /** Between the arrow and each side of its tip, in radians. */
  angle: number;
}

export const PLAIN_TIP: Tip = { style: 'filled', length: undefined, angle: Math.atan(0.35) };

/** A tip without a length of its own has this one in pixels, and so much more for each of its line's. */
export const TIP_LENGTH = 7;
export const TIP_LENGTH_A_WIDTH = 3;

/** The length of a tip in pixels, by the width of its line if it has none of its own. */
export const tipLength = ({ length }: Tip, width: number): number =>
  length ?? TIP_LENGTH + TIP_LENGTH_A_WIDTH * width;

/** A line ends below a filled tip, at a closed one, and runs through an open one: parts of its length. */
export const TIP_PARTS: Record<TipStyleName, number> = { filled: 0.7, open: 0, closed: 1 };

/** What a geometry belongs to and how it is drawn. */
export interface GeometryStyle {
  object: number;
  line: LineStyleName;
  point: PointStyleName;
  fill: FillPatternName;
  rule: FillRuleName;
  tip: Tip;
}

export const PLAIN_STYLE: GeometryStyle = {
  object: 0,
  line: 'solid',
  point: 'filledCircles',
  fill: 'solid',
  rule: 'winding',
  tip: PLAIN_TIP,
};
