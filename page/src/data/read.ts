/** From packed texts or files to a scene. */
import { Reader, type ReadResult } from '../javaview/reader';
import { makeScene, type Scene, type SceneOrder } from '../scene/scene';
import { forEachPiece, open, type Source } from './source';

/** Where the texts of a scene are. */
export interface SceneTexts {
  model: Source;
  display: Source | undefined;
}

/** Called between pieces; reading goes on when its promise is kept. */
export type Pause = () => Promise<void>;

async function readText(source: Source, pause: Pause | undefined): Promise<ReadResult> {
  const reader = new Reader();
  await forEachPiece(await open(source), async (piece) => {
    reader.feed(piece);
    await pause?.();
  });
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

/** The name of the root element, read from the beginning of a text. */
export async function rootOf(source: Source): Promise<string> {
  const reader = new Reader();
  const stream = (await open(source)).getReader();
  while (reader.root === '') {
    const { done, value } = await stream.read();
    if (done) break;
    reader.feed(value);
  }
  await stream.cancel();
  return reader.root;
}
