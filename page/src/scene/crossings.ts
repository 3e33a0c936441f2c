/** The areas of polygons whose sides cross each other. */
import type { FillRuleName } from './styles';

export interface Place {
  x: number;
  y: number;
}

/** A place on the side that begins at a corner, at a part of its length. */
export interface OnSide {
  corner: number;
  part: number;
}

/** A side that is not level. */
interface Side {
  corner: number;
  from: Place;
  to: Place;
  low: number;
  high: number;
}

/** Whoever scribbles more than this gets a part of it, and soon. */
const MOST_PAIRS = 10_000_000;
const MOST_CROSSINGS = 20_000;
const MOST_TRIANGLES = 200_000;

const xAt = ({ from, to }: Side, y: number): number =>
  from.x + ((to.x - from.x) * (y - from.y)) / (to.y - from.y);

const onSide = ({ corner, from, to }: Side, y: number): OnSide => ({
  corner,
  part: (y - from.y) / (to.y - from.y),
});

/** The sides that are not level, the lowest first. */
function sidesOf(places: readonly Place[]): Side[] {
  const sides = places.map((from, corner): Side => {
    const to = places[(corner + 1) % places.length]!;
    return { corner, from, to, low: Math.min(from.y, to.y), high: Math.max(from.y, to.y) };
  });
  return sides.filter(({ low, high }) => low < high).sort((a, b) => a.low - b.low);
}

/** The height at which two sides cross. */
function crossing(a: Side, b: Side): number | undefined {
  const [ux, uy] = [a.to.x - a.from.x, a.to.y - a.from.y];
  const [vx, vy] = [b.to.x - b.from.x, b.to.y - b.from.y];
  const [dx, dy] = [b.from.x - a.from.x, b.from.y - a.from.y];
  const area = ux * vy - uy * vx;
  const onA = (dx * vy - dy * vx) / area;
  const onB = (dx * uy - dy * ux) / area;
  return onA > 0 && onA < 1 && onB > 0 && onB < 1 ? a.from.y + uy * onA : undefined;
}

/** The heights at which sides cross. */
function crossings(sides: readonly Side[]): Set<number> {
  const heights = new Set<number>();
  let pairs = 0;
  for (const [i, side] of sides.entries()) {
    for (let k = i + 1; k < sides.length && sides[k]!.low < side.high; k++) {
      const height = crossing(side, sides[k]!);
      if (height !== undefined) heights.add(height);
      if (++pairs > MOST_PAIRS || heights.size > MOST_CROSSINGS) return heights;
    }
  }
  return heights;
}

/** Pairs of sides with area between them, out of those that run through a slab. */
function spans(sides: readonly Side[], middle: number, rule: FillRuleName): [Side, Side][] {
  const ordered = sides.map((side) => ({ side, x: xAt(side, middle) })).sort((a, b) => a.x - b.x);
  const pairs: [Side, Side][] = [];
  let turns = 0;
  ordered.forEach(({ side }, i) => {
    const next = ordered[i + 1];
    turns += rule === 'evenOdd' ? 1 - 2 * turns : Math.sign(side.to.y - side.from.y);
    if (turns !== 0 && next) pairs.push([side, next.side]);
  });
  return pairs;
}

/**
 * Triangles that cover the area of a polygon: it is cut into slabs between the heights of its corners
 * and crossings, in which no two sides meet.
 */
export function crossedTriangles(
  places: readonly Place[],
  rule: FillRuleName,
): (readonly [OnSide, OnSide, OnSide])[] {
  const sides = sidesOf(places);
  const ends = sides.flatMap(({ low, high }) => [low, high]);
  const heights = [...new Set([...ends, ...crossings(sides)])].sort((a, b) => a - b);
  const triangles: [OnSide, OnSide, OnSide][] = [];
  let next = 0;
  let active: Side[] = [];
  for (let i = 0; i + 1 < heights.length && triangles.length < MOST_TRIANGLES; i++) {
    const [low, high] = [heights[i]!, heights[i + 1]!];
    while (next < sides.length && sides[next]!.low <= low) active.push(sides[next++]!);
    active = active.filter((side) => side.high >= high);
    for (const [left, right] of spans(active, (low + high) / 2, rule)) {
      const [a, b] = [onSide(left, low), onSide(right, low)];
      const [c, d] = [onSide(right, high), onSide(left, high)];
      if (xAt(left, low) < xAt(right, low)) triangles.push([a, b, c]);
      if (xAt(left, high) < xAt(right, high)) triangles.push([a, c, d]);
    }
  }
  return triangles;
}
