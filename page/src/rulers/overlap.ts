/** Rectangles of labels on the screen, in pixels. */

export interface Rectangle {
  left: number;
  bottom: number;
  width: number;
  height: number;
}

/** Free room between labels and the rim of the picture, in pixels. */
export const RIM = 2;

/** Lines of text are lower than their rectangles, which may overlap by so many pixels. */
const SLACK = 2;

/** Whether two texts meet, or are side by side with less than a gap between them. */
export function overlaps(a: Rectangle, b: Rectangle, gap: number): boolean {
  return (
    a.left < b.left + b.width + gap &&
    b.left < a.left + a.width + gap &&
    a.bottom < b.bottom + b.height - SLACK &&
    b.bottom < a.bottom + a.height - SLACK
  );
}

export function isInside(a: Rectangle, width: number, height: number): boolean {
  return a.left >= 0 && a.bottom >= 0 && a.left + a.width <= width && a.bottom + a.height <= height;
}

/** Moves a rectangle into the picture; one that is larger keeps its left end and its top. */
export function intoPicture(rectangle: Rectangle, width: number, height: number): Rectangle {
  const within = (at: number, most: number): number => Math.min(Math.max(at, RIM), most - RIM);
  const left = Math.max(RIM, within(rectangle.left, width - rectangle.width));
  const bottom = Math.min(
    height - rectangle.height - RIM,
    within(rectangle.bottom, height - rectangle.height),
  );
  return { ...rectangle, left, bottom };
}

/** The side of the cells in which neighbours are looked for. */
const CELL = 64;
const CELLS_A_ROW = 1 << 16;
const FAR = 1e6;

/** Rectangles of which none may touch another. */
export class FreePlaces {
  private readonly cells = new Map<number, Rectangle[]>();

  constructor(private readonly gap: number) {}

  /** Takes a place; false if something is there already, or if it is far off every screen. */
  take(rectangle: Rectangle): boolean {
    const { left, bottom } = rectangle;
    if (!(Math.abs(left) < FAR && Math.abs(bottom) < FAR)) return false;
    const keys = this.cellsAt(rectangle);
    const isTaken = (key: number): boolean =>
      this.cells.get(key)?.some((other) => overlaps(rectangle, other, this.gap)) ?? false;
    if (keys.some(isTaken)) return false;
    for (const key of keys) {
      const known = this.cells.get(key);
      if (known) known.push(rectangle);
      else this.cells.set(key, [rectangle]);
    }
    return true;
  }

  /** The cells that a rectangle and the gap beside it lie in. */
  private cellsAt({ left, bottom, width, height }: Rectangle): number[] {
    const keys: number[] = [];
    const cell = (at: number): number => Math.floor(at / CELL);
    for (let x = cell(left - this.gap); x <= cell(left + width + this.gap); x++) {
      for (let y = cell(bottom); y <= cell(bottom + height); y++) keys.push(x * CELLS_A_ROW + y);
    }
    return keys;
  }
}
