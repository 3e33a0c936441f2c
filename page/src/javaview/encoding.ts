/** Text of any encoding that the browser knows, turned into UTF-8 while it comes in. */

const HEAD = 256;

/** Encodings in which each letter takes two bytes or more. */
const WIDE = /utf[-_]?(16|32)|ucs|unicode/i;

/** The encoding of a text by its first bytes: a mark, the XML declaration, or UTF-8. */
export function detectEncoding(head: Uint8Array): string {
  const [a, b, c] = head;
  if (a === 0xff && b === 0xfe) return 'utf-16le';
  if (a === 0xfe && b === 0xff) return 'utf-16be';
  if (a === 0xef && b === 0xbb && c === 0xbf) return 'utf-8';
  if (a === 0x3c && b === 0) return 'utf-16le';
  if (a === 0 && b === 0x3c) return 'utf-16be';
  const text = String.fromCharCode(...head.subarray(0, HEAD));
  const declared = /^<\?xml[^>]*?encoding\s*=\s*["']([\w.:-]+)["']/.exec(text)?.[1];
  // A declaration that can be read byte by byte is in no such encoding, whatever it says.
  return declared === undefined || WIDE.test(declared) ? 'utf-8' : declared;
}

/** Passes bytes on as they are if they are UTF-8, and decodes and encodes them otherwise. */
export class ToUtf8 {
  private head: Uint8Array | undefined = new Uint8Array(0);
  private decoder: TextDecoder | undefined;
  private readonly encoder = new TextEncoder();

  feed(piece: Uint8Array): Uint8Array {
    if (this.head) {
      const head = join(this.head, piece);
      if (head.length < HEAD) {
        this.head = head.slice();
        return new Uint8Array(0);
      }
      return this.begin(head);
    }
    return this.convert(piece);
  }

  finish(): Uint8Array {
    const rest = this.head ? this.begin(this.head) : new Uint8Array(0);
    if (!this.decoder) return rest;
    return join(rest, this.encoder.encode(this.decoder.decode()));
  }

  private begin(head: Uint8Array): Uint8Array {
    this.head = undefined;
    const encoding = detectEncoding(head).toLowerCase();
    if (encoding === 'utf-8' || encoding === 'us-ascii') {
      return head[0] === 0xef ? head.subarray(3) : head;
    }
    try {
      this.decoder = new TextDecoder(encoding);
    } catch {
      // A name that no browser knows: the markup is most likely readable as it is.
      return head;
    }
    return this.convert(head);
  }

  private convert(piece: Uint8Array): Uint8Array {
    if (!this.decoder) return piece;
    return this.encoder.encode(this.decoder.decode(piece, { stream: true }));
  }
}

function join(a: Uint8Array, b: Uint8Array): Uint8Array {
  if (a.length === 0) return b;
  if (b.length === 0) return a;
  const joined = new Uint8Array(a.length + b.length);
  joined.set(a);
  joined.set(b, a.length);
  return joined;
}
