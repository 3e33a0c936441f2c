/**
 * A scanner of XML over bytes of UTF-8 that come in pieces. It checks little: what is not well
 * formed is passed over, since a plot that can be shown in part is better than none.
 */
import { NumberScanner } from './numbers';

export type Attributes = ReadonlyMap<string, string>;

/** A list of many small elements of numbers, such as the `p` of `points`. */
export interface ItemList {
  readonly item: string;
  /** Takes the numbers of one item. */
  add(numbers: NumberScanner): void;
}

export interface Handler {
  /** The list to which the items of the current element go, if it is one. */
  list: ItemList | undefined;
  /** `path` holds the names of all open elements, this one last. */
  open(name: string, attributes: Attributes, path: readonly string[]): void;
  /** `text` is what came since the last tag. */
  close(name: string, text: string, path: readonly string[]): void;
}

const LT = 0x3c;
const GT = 0x3e;
const SLASH = 0x2f;
const BANG = 0x21;
const QUESTION = 0x3f;
const QUOTE = 0x22;
const APOSTROPHE = 0x27;
const OPEN_BRACKET = 0x5b;
const CLOSE_BRACKET = 0x5d;
const SPACE = 0x20;

const LONGEST_TAG = 1 << 20;
const LONGEST_TEXT = 1 << 24;
const DEEPEST = 200;
const MOST_KNOWN = 200;
const LONGEST_KNOWN = 500;

const NO_ATTRIBUTES: Attributes = new Map();

const ascii = (text: string): Uint8Array => Uint8Array.from(text, (c) => c.charCodeAt(0));
const COMMENT = ascii('!--');
const CDATA = ascii('![CDATA[');

const ENTITIES: Record<string, string> = { lt: '<', gt: '>', amp: '&', quot: '"', apos: "'" };

class ScanError extends Error {}

/** The text that a run of characters with references stands for; unknown references stay. */
function unescape(text: string): string {
  if (!text.includes('&')) return text;
  return text.replace(/&(#x[0-9a-f]+|#[0-9]+|[a-z]+);/gi, (whole, name: string) => {
    if (!name.startsWith('#')) return ENTITIES[name] ?? whole;
    const code = /^#x/i.test(name) ? parseInt(name.slice(2), 16) : parseInt(name.slice(1), 10);
    return code > 0 && code <= 0x10ffff ? String.fromCodePoint(code) : whole;
  });
}

/** Strings for the few names that come again and again, without decoding them each time. */
class Names {
  private readonly known = new Map<number, string>();
  private readonly decoder = new TextDecoder();

  get(bytes: Uint8Array, start: number, end: number): string {
    let hash = end - start;
    for (let i = start; i < end; i++) hash = (Math.imul(hash, 31) + bytes[i]!) | 0;
    const name = this.known.get(hash);
    if (name !== undefined && this.equals(name, bytes, start, end)) return name;
    const fresh = this.decoder.decode(bytes.subarray(start, end));
    if (this.known.size < 1000) this.known.set(hash, fresh);
    return fresh;
  }

  private equals(name: string, bytes: Uint8Array, start: number, end: number): boolean {
    if (name.length !== end - start) return false;
    for (let i = 0; i < name.length; i++) {
      if (name.charCodeAt(i) !== bytes[start + i]) return false;
    }
    return true;
  }
}

interface ItemTags {
  open: Uint8Array;
  close: Uint8Array;
}

const itemTagsOf = (item: string): ItemTags => ({
  open: ascii(`<${item}>`),
  close: ascii(`</${item}>`),
});

/** Most tags of a text have one of a few lists of attributes. */
class KnownAttributes {
  private readonly known = new Map<string, Attributes>();

  get(text: string): Attributes {
    const known = this.known.get(text);
    if (known) return known;
    const fresh = parseAttributes(text);
    if (this.known.size < MOST_KNOWN && text.length < LONGEST_KNOWN) this.known.set(text, fresh);
    return fresh;
  }
}

export class Scanner {
  private buffer: Uint8Array = new Uint8Array(0);
  private at = 0;
  private end = 0;
  /** What ends the passage that is being passed over: a comment, an instruction. */
  private terminator: Uint8Array | undefined;
  private inDoctype = false;
  private brackets = 0;
  private quote = 0;
  private inCdata = false;
  private text = '';
  private readonly path: string[] = [];
  private readonly names = new Names();
  private readonly numbers = new NumberScanner();
  private readonly decoder = new TextDecoder();
  private listOf: ItemList | undefined;
  private itemOpen: Uint8Array = new Uint8Array(0);
  private itemClose: Uint8Array = new Uint8Array(0);
  private readonly itemTags = new Map<string, ItemTags>();
  private readonly attributes = new KnownAttributes();

  constructor(private readonly handler: Handler) {}

  /** Takes the next piece of the text, of which nothing is kept where it is. */
  feed(piece: Uint8Array): void {
    this.append(piece);
    while (this.at < this.end && this.step());
    if (this.end - this.at > LONGEST_TEXT) throw new ScanError('an element is too long');
  }

  /** Ends the text; returns whether all elements were closed. */
  finish(): boolean {
    const whole = this.path.length === 0;
    while (this.path.length > 0) this.closeLast();
    return whole;
  }

  private append(piece: Uint8Array): void {
    const rest = this.buffer.subarray(this.at, this.end);
    if (this.end + piece.length > this.buffer.length) {
      const needed = rest.length + piece.length;
      // Twice the room, so that a long element is moved a few times only.
      if (2 * needed > this.buffer.length) this.buffer = new Uint8Array(2 * needed);
      this.buffer.set(rest);
      this.at = 0;
      this.end = rest.length;
    }
    this.buffer.set(piece, this.end);
    this.end += piece.length;
  }

  /** Goes one token further; false if the token's end has not come yet. */
  private step(): boolean {
    if (this.terminator) return this.skipTo(this.terminator);
    if (this.inDoctype) return this.skipDoctype();
    if (this.inCdata) return this.takeCdata();
    if (this.listOf && !this.takeItems(this.listOf)) return false;
    const { buffer, at, end } = this;
    if (at >= end) return false;
    if (buffer[at] !== LT) return this.takeText();
    const second = buffer[at + 1];
    if (at + 1 >= end) return false;
    if (second === QUESTION) return this.skipFrom(at + 2, ascii('?>'));
    if (second === BANG) return this.takeDeclaration();
    const close = this.findTagEnd(at + 1);
    if (close < 0) {
      if (end - at > LONGEST_TAG) throw new ScanError('a tag is too long');
      return false;
    }
    this.at = close + 1;
    if (second === SLASH) this.closeTag(at + 2, close);
    else this.openTag(at + 1, close);
    return true;
  }

  /** The fast way through a list: items of numbers without attributes. */
  private takeItems(list: ItemList): boolean {
    const { itemOpen, itemClose } = this;
    const { buffer, end } = this;
    for (;;) {
      let at = this.at;
      while (at < end && buffer[at]! <= SPACE) at++;
      if (at + itemOpen.length > end) return at < end && buffer[at] !== LT;
      if (!startsWith(buffer, at, itemOpen)) {
        this.at = at;
        return true;
      }
      const start = at + itemOpen.length;
      const stop = indexOf(buffer, LT, start, end);
      if (stop < 0 || stop + itemClose.length > end) return false;
      if (!startsWith(buffer, stop, itemClose)) return true;
      this.numbers.reset(buffer, start, stop);
      list.add(this.numbers);
      this.at = stop + itemClose.length;
    }
  }

  private takeText(): boolean {
    const stop = indexOf(this.buffer, LT, this.at, this.end);
    if (stop < 0) return false;
    this.addText(unescape(this.decoder.decode(this.buffer.subarray(this.at, stop))));
    this.at = stop;
    return true;
  }

  private addText(text: string): void {
    if (this.text.length + text.length > LONGEST_TEXT) throw new ScanError('a text is too long');
    this.text += text;
  }

  private takeDeclaration(): boolean {
    const { buffer, at, end } = this;
    if (end - at < 1 + CDATA.length) {
      const needed = startsWith(buffer, at + 1, COMMENT) ? COMMENT.length : CDATA.length;
      if (end - at < 1 + needed) return false;
    }
    if (startsWith(buffer, at + 1, COMMENT)) return this.skipFrom(at + 4, ascii('-->'));
    if (startsWith(buffer, at + 1, CDATA)) {
      this.inCdata = true;
      this.at = at + 1 + CDATA.length;
      return true;
    }
    this.inDoctype = true;
    this.brackets = 0;
    this.quote = 0;
    this.at = at + 2;
    return true;
  }

  private takeCdata(): boolean {
    const { buffer, at, end } = this;
    for (let i = at; i + 2 < end; i++) {
      if (buffer[i] !== CLOSE_BRACKET || buffer[i + 1] !== CLOSE_BRACKET || buffer[i + 2] !== GT) {
        continue;
      }
      this.addText(this.decoder.decode(buffer.subarray(at, i)));
      this.inCdata = false;
      this.at = i + 3;
      return true;
    }
    return false;
  }

  private skipFrom(at: number, terminator: Uint8Array): boolean {
    this.terminator = terminator;
    this.at = at;
    return true;
  }

  private skipTo(terminator: Uint8Array): boolean {
    const last = this.end - terminator.length;
    for (let i = this.at; i <= last; i++) {
      if (!startsWith(this.buffer, i, terminator)) continue;
      this.at = i + terminator.length;
      this.terminator = undefined;
      return true;
    }
    this.at = Math.max(this.at, last + 1);
    return false;
  }

  private skipDoctype(): boolean {
    const { buffer, end } = this;
    for (; this.at < end; this.at++) {
      const byte = buffer[this.at]!;
      if (this.quote !== 0) {
        if (byte === this.quote) this.quote = 0;
        continue;
      }
      if (byte === LT) {
        if (this.at + 3 >= end) return false;
        if (startsWith(buffer, this.at + 1, COMMENT))
          return this.skipFrom(this.at + 4, ascii('-->'));
        if (buffer[this.at + 1] === QUESTION) return this.skipFrom(this.at + 2, ascii('?>'));
      }
      if (byte === QUOTE || byte === APOSTROPHE) this.quote = byte;
      else if (byte === OPEN_BRACKET) this.brackets++;
      else if (byte === CLOSE_BRACKET) this.brackets--;
      else if (byte === GT && this.brackets <= 0) {
        this.at++;
        this.inDoctype = false;
        return true;
      }
    }
    return false;
  }

  /** The ">" of a tag, which may hold others in its attributes; -1 if it has not come yet. */
  private findTagEnd(from: number): number {
    const { buffer, end } = this;
    let quote = 0;
    for (let i = from; i < end; i++) {
      const byte = buffer[i]!;
      if (quote !== 0) {
        if (byte === quote) quote = 0;
      } else if (byte === GT) return i;
      else if (byte === QUOTE || byte === APOSTROPHE) quote = byte;
    }
    return -1;
  }

  private openTag(start: number, close: number): void {
    const { buffer } = this;
    const selfClosing = buffer[close - 1] === SLASH;
    const stop = selfClosing ? close - 1 : close;
    let nameEnd = start;
    while (nameEnd < stop && buffer[nameEnd]! > SPACE) nameEnd++;
    const name = this.names.get(buffer, start, nameEnd);
    const attributes =
      nameEnd === stop
        ? NO_ATTRIBUTES
        : this.attributes.get(this.decoder.decode(buffer.subarray(nameEnd, stop)));
    if (this.path.length === DEEPEST) throw new ScanError('elements are nested too deep');
    this.path.push(name);
    this.text = '';
    this.handler.open(name, attributes, this.path);
    if (selfClosing) this.closeLast();
    this.followList();
  }

  private closeTag(start: number, close: number): void {
    let end = close;
    while (end > start && this.buffer[end - 1]! <= SPACE) end--;
    const name = this.names.get(this.buffer, start, end);
    if (!this.path.includes(name)) return;
    while (this.path[this.path.length - 1] !== name) this.closeLast();
    this.closeLast();
    this.followList();
  }

  private closeLast(): void {
    const name = this.path[this.path.length - 1]!;
    this.handler.close(name, this.text, this.path);
    this.path.pop();
    this.text = '';
  }

  private followList(): void {
    const list = this.handler.list;
    if (list === this.listOf) return;
    this.listOf = list;
    if (!list) return;
    const tags = this.itemTags.get(list.item) ?? itemTagsOf(list.item);
    this.itemTags.set(list.item, tags);
    this.itemOpen = tags.open;
    this.itemClose = tags.close;
  }
}

function startsWith(bytes: Uint8Array, at: number, pattern: Uint8Array): boolean {
  for (let i = 0; i < pattern.length; i++) {
    if (bytes[at + i] !== pattern[i]) return false;
  }
  return true;
}

function indexOf(bytes: Uint8Array, byte: number, from: number, end: number): number {
  const found = bytes.indexOf(byte, from);
  return found < end ? found : -1;
}

function parseAttributes(text: string): Attributes {
  const attributes = new Map<string, string>();
  for (const match of text.matchAll(/([^\s=]+)\s*=\s*(?:"([^"]*)"|'([^']*)')/g)) {
    attributes.set(match[1]!, unescape(match[2] ?? match[3] ?? ''));
  }
  return attributes;
}
