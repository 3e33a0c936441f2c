/** Bytes out of base64. */

const CODES = new Uint8Array(128).fill(255);
const LETTERS = 'ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/';
for (let i = 0; i < LETTERS.length; i++) CODES[LETTERS.charCodeAt(i)] = i;

/** Decodes letters that come in pieces; white space and padding are passed over. */
export class Base64Decoder {
  private bits = 0;
  private held = 0;

  decode(letters: Uint8Array): Uint8Array<ArrayBuffer> {
    const bytes = new Uint8Array(Math.ceil((letters.length * 3) / 4) + 1);
    let { bits, held } = this;
    let length = 0;
    for (let i = 0; i < letters.length; i++) {
      const code = CODES[letters[i]! & 127]!;
      if (code === 255) continue;
      bits = ((bits << 6) | code) & 0xffffff;
      held += 6;
      if (held < 8) continue;
      held -= 8;
      bytes[length++] = (bits >> held) & 255;
    }
    this.bits = bits;
    this.held = held;
    return bytes.subarray(0, length);
  }
}
