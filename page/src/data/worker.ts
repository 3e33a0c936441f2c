/** The worker: reads a text into typed arrays and hands them over without copying. */
import type { ReadResult } from '../javaview/reader';
import { Reader } from '../javaview/reader';
import { forEachPiece, open, type Source } from './source';

export interface Request {
  id: number;
  source: Source;
}

export type Reply = { id: number; result: ReadResult } | { id: number; error: string };

/** The buffers of all arrays in a document. */
function buffersOf(result: ReadResult): ArrayBuffer[] {
  const buffers = new Set<ArrayBuffer>();
  const take = (array: { buffer: ArrayBufferLike }): void => {
    const { buffer } = array;
    // The arrays of what a file has not are shared by all files and stay here.
    if (buffer instanceof ArrayBuffer && buffer.byteLength > 4) buffers.add(buffer);
  };
  for (const { points, lines, faces, fields } of result.geometries) {
    [points.coordinates, points.colors, points.normals].forEach(take);
    if (lines) [lines.lines.offsets, lines.lines.values, lines.colors].forEach(take);
    if (faces) [faces.faces.offsets, faces.faces.values, faces.colors].forEach(take);
    for (const field of fields) [field.vectors, field.colors].forEach(take);
  }
  return [...buffers];
}

async function read(source: Source): Promise<ReadResult> {
  const reader = new Reader();
  await forEachPiece(await open(source), (piece) => {
    reader.feed(piece);
  });
  return reader.finish();
}

const scope = self as unknown as {
  onmessage: (event: { data: Request }) => void;
  postMessage: (reply: Reply, transfer?: ArrayBuffer[]) => void;
};

scope.onmessage = ({ data: { id, source } }) => {
  read(source).then(
    (result) => scope.postMessage({ id, result }, buffersOf(result)),
    (error: unknown) =>
      scope.postMessage({ id, error: error instanceof Error ? error.message : String(error) }),
  );
};
