/** The worker: makes scenes and hands their arrays over without copying. */
import type { Scene, SceneOrder } from '../scene/scene';
import { readScene, type SceneTexts } from './read';

export interface Request {
  id: number;
  texts: SceneTexts;
  order: SceneOrder;
}

export type Reply = { id: number; scene: Scene } | { id: number; error: string };

/** The buffers of all arrays in a scene. */
function buffersOf({ faces, lines, points, places, objects, seen }: Scene): ArrayBuffer[] {
  const parts: object[] = [...faces, lines, points, places, { objects, seen }];
  const buffers = new Set<ArrayBuffer>();
  for (const value of parts.flatMap((part) => Object.values(part) as unknown[])) {
    if (ArrayBuffer.isView(value) && value.buffer instanceof ArrayBuffer) buffers.add(value.buffer);
  }
  return [...buffers];
}

const scope = self as unknown as {
  onmessage: (event: { data: Request }) => void;
  postMessage: (reply: Reply, transfer?: ArrayBuffer[]) => void;
};

scope.onmessage = ({ data: { id, texts, order } }) => {
  readScene(texts, order)
    .then((scene) => scope.postMessage({ id, scene }, buffersOf(scene)))
    .catch((error: unknown) =>
      scope.postMessage({ id, error: error instanceof Error ? error.message : String(error) }),
    );
};
