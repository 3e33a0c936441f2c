/** The examples of the converter and what it writes for them. */
import { readdirSync, readFileSync } from 'node:fs';

const FOLDER = new URL('../../../tests/examples/', import.meta.url);

/** The bytes of a converted example, such as "surface.jvx". */
export function example(name: string): Uint8Array {
  return new Uint8Array(readFileSync(new URL(name, FOLDER)));
}

/** The names of all converted examples with this ending. */
export function exampleNames(ending: string): string[] {
  return readdirSync(FOLDER)
    .filter((name) => name.endsWith(ending))
    .sort();
}

export const textOf = (bytes: Uint8Array): string => new TextDecoder().decode(bytes);
