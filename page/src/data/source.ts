/** The texts of a page or of dropped files as streams of bytes, unpacked where they are packed. */
import { Base64Decoder } from './base64';
import { DifferenceDecoder } from './differences';

/** A text that was in the page, packed as CONTRACT.md describes it, or a file. */
export type Source = { packed: Blob } | { file: Blob };

export type Bytes = Uint8Array<ArrayBuffer>;

/** Packed texts of plots grow four to forty times; what grows more is made to do harm. */
const MOST_GROWTH = 300;
const ALWAYS_ALLOWED = 64 * 2 ** 20;
const NEVER_ALLOWED = 1.5 * 2 ** 30;

export class TooLarge extends Error {
  constructor() {
    super('the file unpacks to more than a plot can hold');
  }
}

/** Passes bytes on until they are more than `allowed` of the bytes that came in. */
function guard(allowed: () => number): TransformStream<Bytes, Bytes> {
  let total = 0;
  return new TransformStream({
    transform(piece, controller) {
      total += piece.length;
      if (total > allowed()) controller.error(new TooLarge());
      else controller.enqueue(piece);
    },
  });
}

function inflate(packed: ReadableStream<Bytes>): ReadableStream<Bytes> {
  let taken = 0;
  const counted = packed.pipeThrough(
    new TransformStream<Bytes, Bytes>({
      transform(piece, controller) {
        taken += piece.length;
        controller.enqueue(piece);
      },
    }),
  );
  const allowed = (): number =>
    Math.min(NEVER_ALLOWED, Math.max(ALWAYS_ALLOWED, taken * MOST_GROWTH));
  const unpacked = counted.pipeThrough(
    new DecompressionStream('gzip') as unknown as TransformStream<Bytes, Bytes>,
  );
  return unpacked.pipeThrough(guard(allowed));
}

function fromBase64(letters: ReadableStream<Bytes>): ReadableStream<Bytes> {
  const decoder = new Base64Decoder();
  return letters.pipeThrough(
    new TransformStream<Bytes, Bytes>({
      transform: (piece, controller) => controller.enqueue(decoder.decode(piece)),
    }),
  );
}

function fromDifferences(text: ReadableStream<Bytes>): ReadableStream<Bytes> {
  const decoder = new DifferenceDecoder();
  return text.pipeThrough(
    new TransformStream<Bytes, Bytes>({
      transform: (piece, controller) => controller.enqueue(decoder.decode(piece)),
      flush: (controller) => controller.enqueue(decoder.finish()),
    }),
  );
}

async function isGzip(file: Blob): Promise<boolean> {
  const head = new Uint8Array(await file.slice(0, 2).arrayBuffer());
  return head[0] === 0x1f && head[1] === 0x8b;
}

/** The bytes of the text. */
export async function open(source: Source): Promise<ReadableStream<Bytes>> {
  if ('packed' in source) return fromDifferences(inflate(fromBase64(source.packed.stream())));
  const stream = source.file.stream();
  return (await isGzip(source.file))
    ? inflate(stream)
    : stream.pipeThrough(guard(() => NEVER_ALLOWED));
}

/** The whole text as a file, for saving. */
export async function toFile(source: Source): Promise<Blob> {
  const parts: Bytes[] = [];
  await forEachPiece(await open(source), (piece) => {
    parts.push(piece);
  });
  return new Blob(parts, { type: 'text/xml' });
}

/** Reads a stream to its end; a promise from `take` is waited for. */
export async function forEachPiece(
  stream: ReadableStream<Bytes>,
  take: (piece: Bytes) => void | Promise<void>,
): Promise<void> {
  const reader = stream.getReader();
  for (;;) {
    const { done, value } = await reader.read();
    if (done) return;
    await take(value);
  }
}
