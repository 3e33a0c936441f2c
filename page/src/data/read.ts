/** From packed texts or files to a scene. */
import { Reader, type ReadResult } from '../javaview/reader';
import { makeScene, type Scene, type SceneOrder } from '../scene/scene';
import { piecesOf, type Source } from './source';

/** Where the texts of a scene are. */
export interface SceneTexts {
  model: Source;
  display: Source | undefined;
}

/** Called between pieces; reading goes on when its promise is fulfilled. */
export type Pause = () => Promise<void>;

async function readText(source: Source, pause: Pause | undefined): Promise<ReadResult> {
  const reader = new Reader();
  for await (const piece of piecesOf(source)) {
    reader.feed(piece);
    await pause?.();
  }
  return reader.finish();
}

export async function readScene(
  { model, display }: SceneTexts,
  order: SceneOrder,
  pause?: Pause,
): Promise<Scene> {
  const displays = display && (await readText(display, pause));
  return makeScene(await readText(model, pause), displays, order);
}

/** The name of the root element, read from the beginning of a text; throws if there is none. */
export async function rootOf(source: Source): Promise<string> {
  const reader = new Reader();
  for await (const piece of piecesOf(source)) {
    reader.feed(piece);
    if (reader.root !== '') return reader.root;
  }
  // A text that is shorter than what its encoding is found by is read at its end only.
  return reader.finish().root;
}
