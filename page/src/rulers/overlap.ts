/** Rectangles of labels on the screen, in pixels. */

export interface Rectangle {
  left: number;
  bottom: number;
  width: number;
  height: number;
}

/** Whether two rectangles meet, or stand side by side with less than a gap between them. */
export function overlaps(a: Rectangle, b: Rectangle, gap: number): boolean {
  return (
    a.left < b.left + b.width + gap &&
    b.left < a.left + a.width + gap &&
    a.bottom < b.bottom + b.height &&
    b.bottom < a.bottom + a.height
  );
}

export function isInside(a: Rectangle, width: number, height: number): boolean {
  return a.left >= 0 && a.bottom >= 0 && a.left + a.width <= width && a.bottom + a.height <= height;
}

/** Rectangles of which none may touch another. */
export class FreePlaces {
  private readonly taken: Rectangle[] = [];

  constructor(private readonly gap: number) {}

  /** Takes a place; false if something is there already. */
  take(rectangle: Rectangle): boolean {
    if (this.taken.some((other) => overlaps(rectangle, other, this.gap))) return false;
    this.taken.push(rectangle);
    return true;
  }
}
