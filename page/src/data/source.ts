/** The texts of a page or of dropped files, unpacked piece by piece. */
import { Base64Decoder } from './base64';
import { DifferenceDecoder } from './differences';

/** A text that was in the page, packed as CONTRACT.md describes it, or a file. */
export type Source = { packed: Blob } | { file: Blob };

/** In bytes, as it is packed. */
export const sizeOf = (source: Source): number =>
  ('packed' in source ? source.packed : source.file).size;

export type Bytes = Uint8Array<ArrayBuffer>;

type Pieces = AsyncIterable<Bytes>;

/** So much of a blob is in memory at a time. */
const SLICE = 2 ** 20;

/** So little is unpacked at once, since it may become a thousand times as much. */
const GULP = 2 ** 15;

/** Packed texts of plots grow four to forty times; what grows more is made to do harm. */
const MOST_GROWTH = 300;
const ALWAYS_ALLOWED = 64 * 2 ** 20;
const NEVER_ALLOWED = 1.5 * 2 ** 30;

class TooLarge extends Error {
  constructor() {
    super('the file unpacks to more than a plot can hold');
  }
}

async function* bytesOf(blob: Blob): AsyncGenerator<Bytes> {
  for (let at = 0; at < blob.size; at += SLICE) {
    yield new Uint8Array(await blob.slice(at, at + SLICE).arrayBuffer());
  }
}

async function* fromBase64(letters: Pieces): AsyncGenerator<Bytes> {
  const decoder = new Base64Decoder();
  for await (const piece of letters) yield decoder.decode(piece);
}

async function* inflate(packed: Pieces): AsyncGenerator<Bytes> {
  const { readable, writable } = new DecompressionStream('gzip');
  const writer = writable.getWriter();
  const reader = readable.getReader() as ReadableStreamDefaultReader<Bytes>;
  let taken = 0;
  const write = async (): Promise<void> => {
    for await (const piece of packed) {
      for (let at = 0; at < piece.length; at += GULP) {
        const gulp = piece.subarray(at, at + GULP);
        taken += gulp.length;
        await writer.write(gulp);
      }
    }
    await writer.close();
  };
  // A failure reaches the reader too.
  const written = write().catch((error: unknown) => writer.abort(error).catch(() => undefined));
  try {
    let total = 0;
    for (;;) {
      const { done, value } = await reader.read();
      if (done) break;
      total += value.length;
      const allowed = Math.max(ALWAYS_ALLOWED, taken * MOST_GROWTH);
      if (total > Math.min(NEVER_ALLOWED, allowed)) throw new TooLarge();
      yield value;
    }
    await written;
  } finally {
    await reader.cancel();
  }
}

async function* fromDifferences(text: Pieces): AsyncGenerator<Bytes> {
  const decoder = new DifferenceDecoder();
  for await (const piece of text) yield decoder.decode(piece);
  yield decoder.finish();
}

async function isGzip(file: Blob): Promise<boolean> {
  const head = new Uint8Array(await file.slice(0, 2).arrayBuffer());
  return head[0] === 0x1f && head[1] === 0x8b;
}

/** The bytes of the text, each piece valid until the next one. */
export async function* piecesOf(source: Source): AsyncGenerator<Bytes> {
  if ('packed' in source) yield* fromDifferences(inflate(fromBase64(bytesOf(source.packed))));
  else if (await isGzip(source.file)) yield* inflate(bytesOf(source.file));
  else if (source.file.size > NEVER_ALLOWED) throw new TooLarge();
  else yield* bytesOf(source.file);
}

/** The whole text as a file, for saving. */
export async function toFile(source: Source): Promise<Blob> {
  const parts: Bytes[] = [];
  for await (const piece of piecesOf(source)) parts.push(piece.slice());
  return new Blob(parts, { type: 'text/xml' });
}
