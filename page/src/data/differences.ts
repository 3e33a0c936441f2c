/** Integers out of their differences to the line before, as CONTRACT.md describes them. */

/** Integers have at most nine digits. */
const MODULUS = 2e9 - 1;
const LONGEST = 10;
const COLUMNS = 16;

/** In the place of an integer; one that is too large. */
const NONE = 1e9;
const LINE_END = 10;
const MINUS = 45;
const ZERO = 48;

const SEPARATES = new Uint8Array(256);
for (const letter of '\n <>') SEPARATES[letter.charCodeAt(0)] = 1;

/** The integer that is written in the bytes in its only form, or NONE. */
function integerIn(bytes: Uint8Array, begin: number, end: number): number {
  const digits = bytes[begin] === MINUS ? begin + 1 : begin;
  const length = end - digits;
  if (length < 1 || length > 9) return NONE;
  if (bytes[digits] === ZERO) return length === 1 && digits === begin ? 0 : NONE;
  let value = 0;
  for (let i = digits; i < end; i++) {
    const digit = bytes[i]! - ZERO;
    if (digit < 0 || digit > 9) return NONE;
    value = value * 10 + digit;
  }
  return digits === begin ? value : -value;
}

/** Writes an integer; returns where it ends. */
function writeInteger(bytes: Uint8Array, begin: number, value: number): number {
  let rest = Math.abs(value);
  let end = begin + (value < 0 ? 2 : 1);
  for (let bound = 10; rest >= bound; bound *= 10) end++;
  for (let i = end - 1; i >= begin; i--) {
    bytes[i] = ZERO + (rest % 10);
    rest = (rest / 10) | 0;
  }
  if (value < 0) bytes[begin] = MINUS;
  return end;
}

/** Decodes bytes that come in pieces. */
export class DifferenceDecoder {
  private readonly before = new Int32Array(COLUMNS);
  private column = 0;
  private wordIsLong = false;
  /** The last word so far, unless it is too long for an integer. */
  private held = new Uint8Array(0);
  /** For the bytes of a piece; it grows to what the largest one takes. */
  private room = new Uint8Array(0);

  decode(piece: Uint8Array): Uint8Array<ArrayBuffer> {
    const { held } = this;
    const most = held.length + piece.length * (LONGEST + 1);
    if (this.room.length < most) this.room = new Uint8Array(most);
    const out = this.room;
    out.set(held);
    let word = 0;
    let at = held.length;
    for (let i = 0; i < piece.length; i++) {
      const byte = piece[i]!;
      if (SEPARATES[byte] !== 0) {
        at = this.endWord(out, word, at);
        if (byte === LINE_END) this.column = 0;
        word = at + 1;
      }
      out[at++] = byte;
    }
    return this.hold(out, word, at);
  }

  /** What is left. */
  finish(): Uint8Array<ArrayBuffer> {
    const out = new Uint8Array(LONGEST + 1);
    out.set(this.held);
    return out.slice(0, this.endWord(out, 0, this.held.length));
  }

  /** Puts the integer in the place of a difference; returns where the word ends. */
  private endWord(out: Uint8Array, begin: number, end: number): number {
    if (end === begin && !this.wordIsLong) return end;
    const difference = this.wordIsLong ? NONE : integerIn(out, begin, end);
    this.wordIsLong = false;
    const column = this.column++ % COLUMNS;
    if (difference === NONE) return end;
    let value = this.before[column]! + difference;
    if (value >= 1e9) value -= MODULUS;
    else if (value <= -1e9) value += MODULUS;
    this.before[column] = value;
    return writeInteger(out, begin, value);
  }

  /** Keeps the word at the end for the next piece, and returns what is before it. */
  private hold(out: Uint8Array<ArrayBuffer>, word: number, end: number): Uint8Array<ArrayBuffer> {
    this.wordIsLong ||= end - word > LONGEST;
    const whole = this.wordIsLong ? end : word;
    this.held = out.slice(whole, end);
    return out.slice(0, whole);
  }
}
