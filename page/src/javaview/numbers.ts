/** Numbers in text, scanned from bytes without making strings of them. */

const SPACE = 0x20;
const ZERO = 0x30;
const NINE = 0x39;
const MINUS = 0x2d;
const PLUS = 0x2b;
const POINT = 0x2e;
const UPPER_E = 0x45;
const LOWER_E = 0x65;

/** Powers of ten that a double holds exactly. */
const POWERS = Array.from({ length: 23 }, (_, i) => Number(`1e${i}`));

/** Up to here every whole number is a double, so that one division gives the nearest double. */
const EXACT = 2 ** 53;

const decoder = new TextDecoder();

/**
 * Scans one number after another out of a range of bytes. `next` returns false at the end of the
 * range; otherwise `value` is the number, NaN for a word that is none ("nan" and garbage alike).
 */
export class NumberScanner {
  value = NaN;
  private bytes: Uint8Array = new Uint8Array(0);
  private at = 0;
  private end = 0;

  reset(bytes: Uint8Array, start: number, end: number): void {
    this.bytes = bytes;
    this.at = start;
    this.end = end;
  }

  next(): boolean {
    const { bytes, end } = this;
    let at = this.at;
    while (at < end && bytes[at]! <= SPACE) at++;
    if (at === end) {
      this.at = at;
      return false;
    }
    const start = at;
    let byte = bytes[at]!;
    const negative = byte === MINUS;
    if (negative || byte === PLUS) byte = bytes[++at]!;
    let mantissa = 0;
    let digits = 0;
    let scale = 0;
    while (at < end && byte >= ZERO && byte <= NINE) {
      mantissa = mantissa * 10 + byte - ZERO;
      digits++;
      byte = bytes[++at]!;
    }
    if (at < end && byte === POINT) {
      byte = bytes[++at]!;
      while (at < end && byte >= ZERO && byte <= NINE) {
        mantissa = mantissa * 10 + byte - ZERO;
        digits++;
        scale--;
        byte = bytes[++at]!;
      }
    }
    if (digits > 0 && at < end && (byte === LOWER_E || byte === UPPER_E)) {
      byte = bytes[++at]!;
      const down = byte === MINUS;
      if (down || byte === PLUS) byte = bytes[++at]!;
      let exponent = 0;
      let exponentDigits = 0;
      while (at < end && byte >= ZERO && byte <= NINE) {
        exponent = Math.min(exponent * 10 + byte - ZERO, 9999);
        exponentDigits++;
        byte = bytes[++at]!;
      }
      if (exponentDigits === 0) digits = 0;
      scale += down ? -exponent : exponent;
    }
    const clean = digits > 0 && (at === end || byte <= SPACE);
    if (clean && mantissa < EXACT && scale >= -22 && scale <= 22) {
      this.at = at;
      const size = scale < 0 ? mantissa / POWERS[-scale]! : mantissa * POWERS[scale]!;
      this.value = negative ? -size : size;
      return true;
    }
    return this.slowly(start);
  }

  /** A number that is too long for the fast way, or a word. */
  private slowly(start: number): boolean {
    let at = start;
    while (at < this.end && this.bytes[at]! > SPACE) at++;
    this.at = at;
    this.value = toNumber(decoder.decode(this.bytes.subarray(start, Math.min(at, start + 400))));
    return true;
  }
}

const INFINITY = /^([+-]?)(inf|infinity)$/i;
const DECIMAL = /^[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i;

/** The number that a word means, NaN if it means none. */
export function toNumber(word: string): number {
  if (DECIMAL.test(word)) return Number(word);
  const infinite = INFINITY.exec(word);
  return infinite ? (infinite[1] === '-' ? -Infinity : Infinity) : NaN;
}

/** All numbers of a text. */
export function toNumbers(text: string): number[] {
  return text
    .split(/[\s,]+/)
    .filter((word) => word !== '')
    .map(toNumber);
}
