/** The data in the page: inert script elements, a JSON text and packed JVX and JVD texts. */
import { toPageText, type PageText } from './contract';
import type { Source } from './source';

const TEXT_TYPE = 'application/json';
const DATA_TYPE = 'application/octet-stream';

export function readPageText(root: ParentNode): PageText {
  const json = root.querySelector(`script[type="${TEXT_TYPE}"][data-name="page"]`)?.textContent;
  try {
    return toPageText(JSON.parse(json ?? '{}'));
  } catch {
    return toPageText({});
  }
}

/**
 * All blocks by their names. Their texts are taken out of the page into blobs, which another thread
 * reads without a copy and which browsers may keep on disk.
 */
export function takeBlocks(root: ParentNode): Map<string, Source> {
  const blocks = new Map<string, Source>();
  for (const script of root.querySelectorAll<HTMLElement>(`script[type="${DATA_TYPE}"]`)) {
    blocks.set(script.dataset.name ?? '', { packed: new Blob([script.textContent ?? '']) });
    script.remove();
  }
  return blocks;
}
