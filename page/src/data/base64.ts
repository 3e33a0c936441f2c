/** Bytes out of base64, in pieces. */

const CODES = new Uint8Array(128).fill(255);
const LETTERS = 'ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/';
for (let i = 0; i < LETTERS.length; i++) CODES[LETTERS.charCodeAt(i)] = i;

const LETTERS_A_PIECE = 1 << 20;

/** Decodes a text piece by piece; white space and padding are passed over. */
export function* decodeBase64(text: string): Generator<Uint8Array<ArrayBuffer>> {
  let bits = 0;
  let held = 0;
  for (let start = 0; start < text.length; start += LETTERS_A_PIECE) {
    const end = Math.min(start + LETTERS_A_PIECE, text.length);
    const bytes = new Uint8Array(((end - start) * 3) / 4 + 3);
    let length = 0;
    for (let i = start; i < end; i++) {
      const code = CODES[text.charCodeAt(i)] ?? 255;
      if (code === 255) continue;
      bits = ((bits << 6) | code) & 0xffffff;
      held += 6;
      if (held < 8) continue;
      held -= 8;
      bytes[length++] = (bits >> held) & 255;
    }
    yield bytes.subarray(0, length);
  }
}
