/** A coarser level of a large surface: the same vertices, fewer triangles. */

/** More triangles than this are not drawn while the view moves, with graphics hardware and without. */
export const FINE_ENOUGH = 150_000;
export const FINE_ENOUGH_SLOW = 20_000;

const CELLS = 90;

/** Half the side of the cube that holds a scene, with room for what lies outside of its box. */
const REACH = 1.5;

/**
 * Triangles between one vertex for each cell of a lattice over the scene. A surface has about two for
 * each cell that it runs through. Where there are far fewer, most of what is seen are parts that lie in
 * one cell each, and there is no coarser level.
 */
export function coarseIndex(positions: Float32Array, index: Uint32Array): Uint32Array | undefined {
  const cells = new Int32Array(CELLS ** 3).fill(-1);
  const cell = (value: number): number =>
    Math.min(CELLS - 1, Math.max(0, Math.floor(((value + REACH) / (2 * REACH)) * CELLS)));
  const representative = new Uint32Array(positions.length / 3);
  let occupied = 0;
  for (let i = 0; i < representative.length; i++) {
    const k = i * 3;
    const at =
      (cell(positions[k]!) * CELLS + cell(positions[k + 1]!)) * CELLS + cell(positions[k + 2]!);
    if (cells[at] === -1) {
      cells[at] = i;
      occupied++;
    }
    representative[i] = cells[at]!;
  }
  const corner = (i: number): number => representative[index[i]!]!;
  const isSeen = (i: number): boolean =>
    corner(i) !== corner(i + 1) && corner(i + 1) !== corner(i + 2) && corner(i + 2) !== corner(i);
  let count = 0;
  for (let i = 0; i < index.length; i += 3) if (isSeen(i)) count++;
  if (count < occupied) return undefined;
  const coarse = new Uint32Array(count * 3);
  let length = 0;
  for (let i = 0; i < index.length; i += 3) {
    if (!isSeen(i)) continue;
    for (let k = 0; k < 3; k++) coarse[length++] = corner(i + k);
  }
  return coarse;
}
