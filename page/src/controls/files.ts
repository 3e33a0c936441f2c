/** Files that the reader brings along, each model with its display. */
import { PLAIN_BOX, plainPanel, type PanelText } from '../data/contract';
import type { Loader } from '../data/load';
import { rootOf, type SceneTexts } from '../data/read';
import { checkRoot } from '../javaview/reader';
import type { Content } from '../scene/plot';
import { LINEAR } from '../scene/space';

/** What keeps a file from being shown. */
export class FileError extends Error {
  constructor(
    readonly file: string,
    reason: unknown,
  ) {
    super(reason instanceof Error ? reason.message : String(reason));
  }
}

export interface Dropped {
  text: PanelText;
  texts: SceneTexts;
  content: Content;
}

/** Does something with a file; what goes wrong has the name of the file. */
async function naming<T>(file: File, work: () => Promise<T>): Promise<T> {
  try {
    return await work();
  } catch (error) {
    throw new FileError(file.name, error);
  }
}

/** The name of a file without its endings, which a model and its display share. */
const stem = ({ name }: File): string => name.replace(/(\.gz|\.jvx|\.jvd|\.xml)+$/i, '');

async function kindOf(file: File): Promise<string> {
  const root = await rootOf({ file });
  checkRoot(root);
  return root;
}

async function read(model: File, display: File | undefined, loader: Loader): Promise<Dropped> {
  const texts = { model: { file: model }, display: display && { file: display } };
  const order = { runs: [], logarithmic: LINEAR, box: PLAIN_BOX, marked: [], space: undefined };
  const scene = await loader.load(texts, order);
  const text = plainPanel(scene.title || stem(model), '', undefined);
  return { text, texts, content: { name: model.name, scene } };
}

/** Each model with the display of its name, or else with one that has the name of no model. */
export async function readFiles(files: readonly File[], loader: Loader): Promise<Dropped[]> {
  const kinds = await Promise.all(files.map((file) => naming(file, () => kindOf(file))));
  const models = files.filter((_, i) => kinds[i] === 'jvx-model');
  const displays = files.filter((_, i) => kinds[i] === 'jv-disp');
  if (models.length === 0) throw new FileError(files[0]!.name, 'there is no JVX file among them');
  const stems = new Set(models.map(stem));
  const others = displays.filter((display) => !stems.has(stem(display)));
  return Promise.all(
    models.map((model) => {
      const same = displays.find((display) => stem(display) === stem(model));
      const display = same ?? others.shift();
      return naming(model, () => read(model, display, loader));
    }),
  );
}
