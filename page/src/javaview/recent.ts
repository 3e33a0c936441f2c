/** Equal values that come again and again, kept once. */

const MOST_KEPT = 8;

function isSame(a: unknown, b: unknown): boolean {
  if (Object.is(a, b)) return true;
  if (typeof a !== 'object' || typeof b !== 'object' || a === null || b === null) return false;
  for (const key in a) {
    if (!isSame((a as Record<string, unknown>)[key], (b as Record<string, unknown>)[key])) {
      return false;
    }
  }
  return true;
}

/** The last few values that differ, all of one type and made in the same way. */
export class Recent<T extends object> {
  private readonly kept: T[] = [];
  private next = 0;

  /** A value that was there before and is equal to this one, or else this one. */
  find(value: T): T {
    for (const other of this.kept) if (isSame(other, value)) return other;
    this.kept[this.next] = value;
    this.next = (this.next + 1) % MOST_KEPT;
    return value;
  }
}
