/** A coarser level of a large surface: the same vertices, fewer triangles. */

/** More triangles than this are not drawn while the view moves. */
export const FINE_ENOUGH = 150_000;

const CELLS = 90;

/** Half the side of the cube that holds a scene, with room for what lies outside of its box. */
const REACH = 1.5;

/** Triangles between one vertex for each cell of a lattice over the scene. */
export function coarseIndex(positions: Float32Array, index: Uint32Array): Uint32Array {
  const cells = new Int32Array(CELLS ** 3).fill(-1);
  const cell = (value: number): number =>
    Math.min(CELLS - 1, Math.max(0, Math.floor(((value + REACH) / (2 * REACH)) * CELLS)));
  const representative = new Uint32Array(positions.length / 3);
  for (let i = 0; i < representative.length; i++) {
    const k = i * 3;
    const at =
      (cell(positions[k]!) * CELLS + cell(positions[k + 1]!)) * CELLS + cell(positions[k + 2]!);
    if (cells[at] === -1) cells[at] = i;
    representative[i] = cells[at]!;
  }
  const coarse = new Uint32Array(index.length);
  let length = 0;
  for (let i = 0; i < index.length; i += 3) {
    const a = representative[index[i]!]!;
    const b = representative[index[i + 1]!]!;
    const c = representative[index[i + 2]!]!;
    if (a === b || b === c || c === a) continue;
    coarse[length++] = a;
    coarse[length++] = b;
    coarse[length++] = c;
  }
  return coarse.slice(0, length);
}
