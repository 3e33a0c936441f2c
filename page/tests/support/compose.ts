/** Makes pages out of the template and texts of plots, as the composer of the program does. */
import { readFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';
import { toDifferences } from './differences';

const TEMPLATE = new URL('../../dist/template.html', import.meta.url);

export interface PageParts {
  /** The JSON text, as any value; see CONTRACT.md. */
  page: unknown;
  blocks: Record<string, Uint8Array | string>;
}

/** JSON that cannot end the element that it is in. */
const inert = (value: unknown): string => JSON.stringify(value).replaceAll('<', '\\u003c');

export function compose({ page, blocks }: PageParts): string {
  // As many letters as bytes, so that texts in any encoding stay as they are.
  const packed = (text: Uint8Array | string): string =>
    gzipSync(Buffer.from(toDifferences(Buffer.from(text).toString('latin1')), 'latin1')).toString(
      'base64',
    );
  const scripts = Object.entries(blocks).map(
    ([name, text]) =>
      `<script type="application/octet-stream" data-name="${name}">` + `${packed(text)}</script>`,
  );
  const json = `<script type="application/json" data-name="page">${inert(page)}</script>`;
  const template = readFileSync(TEMPLATE, 'utf8');
  const [before, after] = template.split('<!--DATA-->') as [string, string];
  return [before, json, ...scripts, after].join('\n');
}

/** A page with one panel of one JVX text and perhaps a JVD text. */
export function simplePage(
  model: Uint8Array | string,
  display?: Uint8Array | string,
  panel = {},
): string {
  const frame = { model: 'm', ...(display === undefined ? {} : { display: 'd' }), runs: [] };
  return compose({
    page: { title: 'Plot', panels: [{ name: 'plot', frames: [frame], ...panel }] },
    blocks: { m: model, ...(display === undefined ? {} : { d: display }) },
  });
}
