/** Plots of discs, each an object of its own colour, so that a picture shows where each of them is. */
import { model } from './plots';
import type { Color } from './observe';

export interface Disc {
  name: string;
  /** The coordinates as the file has them. */
  at: string;
  color: Color;
}

export const discs = (dimension: 2 | 3, all: readonly Disc[]): string =>
  model(
    ...all.map(
      ({ name, at, color }) =>
        `<geometry name="${name}"><pointSet dim="${dimension}" point="show"><points><p>${at}</p>` +
        `<thickness>6</thickness><color>${color.join(' ')}</color></points></pointSet></geometry>`,
    ),
  );
