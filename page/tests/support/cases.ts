/** The examples that are opened in browsers, and what has to be drawn of each. */
import { readDocument } from '../../src/javaview/reader';
import { example, exampleNames } from './examples';

const EMPTY = new TextEncoder().encode('<jvx-model><geometries></geometries></jvx-model>');

export interface Expected {
  points: number;
  lines: number;
  faces: number;
  labels: number;
  vectors: number;
}

/** What has to be drawn, counted in the text itself. */
export function expected(model: Uint8Array): Expected {
  const sum: Expected = { points: 0, lines: 0, faces: 0, labels: 0, vectors: 0 };
  for (const { points, lines, faces, fields } of readDocument(model).geometries) {
    if (points.visible && points.thickness !== 0) sum.points += points.coordinates.length / 3;
    if (points.labelsVisible) {
      sum.labels += [...points.names.values()].filter((name) => name.trim() !== '').length;
    }
    if (lines?.visible) sum.lines += lines.lines.offsets.length - 1;
    if (faces?.visible) sum.faces += faces.faces.offsets.length - 1;
    for (const field of fields) sum.vectors += field.vectors.length / 3;
  }
  return sum;
}

/** Every example as a page: models without a display, and displays of nothing. */
export const CASES = [
  ...exampleNames('.jvx')
    .filter((name) => !name.includes('frames'))
    .map((name) => ({ name, model: example(name), display: undefined })),
  ...exampleNames('.jvd').map((name) => ({ name, model: EMPTY, display: example(name) })),
];
