/** Makes pages out of the template and texts of plots, as the composer of the program does. */
import { readFileSync } from 'node:fs';
import { gzipSync } from 'node:zlib';

const TEMPLATE = new URL('../../dist/template.html', import.meta.url);

export interface PageParts {
  /** The JSON text, as any value; see CONTRACT.md. */
  page: unknown;
  blocks: Record<string, Uint8Array | string>;
}

/** JSON that cannot end the element it stands in. */
const inert = (value: unknown): string => JSON.stringify(value).replaceAll('<', '\\u003c');

export function compose({ page, blocks }: PageParts): string {
  const scripts = Object.entries(blocks).map(
    ([name, text]) =>
      `<script type="application/octet-stream" data-name="${name}">` +
      `${gzipSync(text).toString('base64')}</script>`,
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
