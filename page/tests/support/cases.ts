/** The examples that are opened in browsers. */
import { example, exampleNames } from './examples';

const EMPTY = new TextEncoder().encode('<jvx-model><geometries></geometries></jvx-model>');

/** Every example as a page: models without a display, and displays of nothing. */
export const CASES = [
  ...exampleNames('.jvx')
    .filter((name) => !name.includes('frames'))
    .map((name) => ({ name, model: example(name), display: undefined })),
  ...exampleNames('.jvd').map((name) => ({ name, model: EMPTY, display: example(name) })),
];
