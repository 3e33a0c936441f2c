/** Saving: pictures, models and the texts of the plot. */
import type { SceneTexts } from '../data/read';
import { toFile } from '../data/source';
import { MOST_PRIMITIVES, countPrimitives, toSvg } from '../save/svg';
import { toGlb, toObj, toStl } from '../save/models';
import type { Plot } from '../scene/plot';
import { button, element } from './dom';

export interface Savable {
  plot: Plot;
  name: string;
  sources: SceneTexts;
  picture(factor: number): HTMLCanvasElement;
}

/** A file name out of any text, such as the name of another file. */
function fileName(name: string, ending: string): string {
  const plain = name
    .replace(/\.(zrd|xml|jvx|jvd)$/i, '')
    .replace(/[^\p{L}\p{N}._ -]+/gu, '')
    .trim()
    .slice(0, 80);
  return `${plain === '' ? 'plot' : plain}.${ending}`;
}

function download(contents: Blob, name: string): void {
  const url = URL.createObjectURL(contents);
  const link = element('a', { attributes: { href: url, download: name } });
  link.click();
  setTimeout(() => URL.revokeObjectURL(url), 60_000);
}

async function png(savable: Savable, factor: number): Promise<Blob> {
  const canvas = savable.picture(factor);
  return new Promise((resolve, reject) => {
    canvas.toBlob((blob) => (blob ? resolve(blob) : reject(new Error('the picture is too large'))));
  });
}

const FORMATS: readonly {
  label: string;
  ending: string;
  make: (savable: Savable) => Promise<Blob> | Blob;
}[] = [
  { label: 'PNG, twice the size', ending: 'png', make: (savable) => png(savable, 2) },
  { label: 'PNG, four times the size', ending: 'png', make: (savable) => png(savable, 4) },
  { label: 'SVG', ending: 'svg', make: ({ plot }) => svg(plot) },
  { label: 'GLB', ending: 'glb', make: ({ plot }) => toGlb(plot) },
  { label: 'STL', ending: 'stl', make: ({ plot }) => toStl(plot) },
  { label: 'OBJ', ending: 'obj', make: ({ plot }) => toObj(plot) },
  { label: 'JVX', ending: 'jvx', make: ({ sources }) => toFile(sources.model) },
];

function svg(plot: Plot): Blob {
  if (countPrimitives(plot) > MOST_PRIMITIVES) {
    throw new Error(`more than ${MOST_PRIMITIVES} parts; save a PNG instead`);
  }
  return new Blob([toSvg(plot)], { type: 'image/svg+xml' });
}

export function makeSaveMenu(savable: () => Savable): HTMLElement[] {
  const message = element('p', { class: 'message', attributes: { role: 'status' } });
  const save = async (
    ending: string,
    make: (savable: Savable) => Promise<Blob> | Blob,
  ): Promise<void> => {
    message.textContent = '';
    try {
      download(await make(savable()), fileName(savable().name, ending));
    } catch (error) {
      message.textContent = error instanceof Error ? error.message : String(error);
    }
  };
  const buttons = FORMATS.map(({ label, ending, make }) =>
    button(label, undefined, () => void save(ending, make)),
  );
  if (savable().sources.display) {
    const make = ({ sources }: Savable): Promise<Blob> => toFile(sources.display!);
    buttons.push(button('JVD', undefined, () => void save('jvd', make)));
  }
  return [...buttons, message];
}
