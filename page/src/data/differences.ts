/** Integers out of their differences to the line before, as CONTRACT.md describes them. */

/** Integers have at most nine digits, and perhaps a sign. */
const MODULUS = 2e9 - 1;
const MOST_DIGITS = 9;
const LONGEST = MOST_DIGITS + 1;
const COLUMNS = 16;

/** In the place of an integer; one that is too large. */
const NONE = 1e9;
const LINE_END = 10;
const MINUS = 45;
const ZERO = 48;

const SEPARATES = new Uint8Array(256);
for (const letter of '\n <>') SEPARATES[letter.charCodeAt(0)] = 1;

/** The three digits of each number below a thousand. */
const TRIPLES = new Uint8Array(3000);
for (let i = 0; i < 1000; i++) {
  TRIPLES[i * 3] = ZERO + Math.floor(i / 100);
  TRIPLES[i * 3 + 1] = ZERO + (Math.floor(i / 10) % 10);
  TRIPLES[i * 3 + 2] = ZERO + (i % 10);
}

/** Writes the last `count` digits of a number below a thousand; returns where they end. */
function writeDigits(bytes: Uint8Array, begin: number, value: number, count: number): number {
  for (let i = 3 - count; i < 3; i++) bytes[begin++] = TRIPLES[value * 3 + i]!;
  return begin;
}

/** Writes an integer; returns where it ends. */
function writeInteger(bytes: Uint8Array, begin: number, value: number): number {
  let at = begin;
  if (value < 0) bytes[at++] = MINUS;
  const size = Math.abs(value);
  const millions = Math.floor(size / 1e6);
  const thousands = Math.floor(size / 1e3);
  const head = millions > 0 ? millions : thousands > 0 ? thousands : size;
  at = writeDigits(bytes, at, head, head < 10 ? 1 : head < 100 ? 2 : 3);
  if (millions > 0) at = writeDigits(bytes, at, thousands - millions * 1000, 3);
  if (thousands > 0) at = writeDigits(bytes, at, size - thousands * 1000, 3);
  return at;
}

/** Decodes bytes that come in pieces. */
export class DifferenceDecoder {
  private readonly before = new Int32Array(COLUMNS);
  private column = 0;
  /** The word at the end of the last piece, if it may still become an integer. */
  private held = new Uint8Array(0);
  /** Whether the last piece ended in a word that is none. */
  private inOther = false;
  /** For what a piece becomes; it grows to what the largest one takes. */
  private room = new Uint8Array(0);
  /** Where the last word of digits has ended. */
  private wordEnd = 0;

  /** The bytes for a piece, valid until the next one. */
  decode(piece: Uint8Array): Uint8Array<ArrayBuffer> {
    const text = this.withHeld(piece);
    const end = text.length;
    if (this.room.length < end * (LONGEST + 1)) this.room = new Uint8Array(end * (LONGEST + 1));
    const out = this.room;
    let at = 0;
    for (let i = 0; i < end; i++) {
      const begin = i;
      const difference = this.inOther ? NONE : this.integerAt(text, begin);
      if (difference !== NONE) {
        at = writeInteger(out, at, this.add(difference));
        i = this.wordEnd;
      } else {
        const word = at;
        for (; i < end && SEPARATES[text[i]!] === 0; i++) out[at++] = text[i]!;
        if (i === end && !this.inOther && end - begin <= LONGEST) {
          this.held = text.slice(begin);
          at = word;
          break;
        }
        if (i > begin || this.inOther) this.passOther(i === end);
        if (i === end) break;
      }
      if (text[i] === LINE_END) this.column = 0;
      out[at++] = text[i]!;
    }
    return out.subarray(0, at);
  }

  /** What is left. */
  finish(): Uint8Array<ArrayBuffer> {
    return this.decode(Uint8Array.of(LINE_END)).subarray(0, -1);
  }

  private withHeld(piece: Uint8Array): Uint8Array {
    const { held } = this;
    if (held.length === 0) return piece;
    this.held = new Uint8Array(0);
    const text = new Uint8Array(held.length + piece.length);
    text.set(held);
    text.set(piece, held.length);
    return text;
  }

  /** The integer that a whole word from here on is, in its only form, or NONE. */
  private integerAt(text: Uint8Array, begin: number): number {
    const end = text.length;
    const isNegative = begin < end && text[begin] === MINUS;
    const first = isNegative ? begin + 1 : begin;
    let value = 0;
    let i = first;
    for (; i < end && i - first <= MOST_DIGITS; i++) {
      const digit = text[i]! - ZERO;
      if (digit < 0 || digit > 9) break;
      value = value * 10 + digit;
    }
    const count = i - first;
    if (count === 0 || count > MOST_DIGITS || i === end || SEPARATES[text[i]!] === 0) return NONE;
    if (text[first] === ZERO && (count > 1 || isNegative)) return NONE;
    this.wordEnd = i;
    return isNegative ? -value : value;
  }

  /** The integer for a difference. */
  private add(difference: number): number {
    const column = this.column++ % COLUMNS;
    let value = this.before[column]! + difference;
    if (value >= 1e9) value -= MODULUS;
    else if (value <= -1e9) value += MODULUS;
    this.before[column] = value;
    return value;
  }

  /** A word that is no integer counts once it has ended. */
  private passOther(goesOn: boolean): void {
    this.inOther = goesOn;
    if (!goesOn) this.column++;
  }
}
