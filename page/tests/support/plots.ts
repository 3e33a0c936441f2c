/** Texts of plots that are computed, for what the examples do not show. */

/** A height, and a colour if there is one, over a square lattice on -1 to 1. */
export interface Sheet {
  /** Points along each side. */
  side: number;
  height(x: number, y: number): number;
  color?(x: number, y: number): readonly [number, number, number];
  /** Attributes of the list of faces. */
  faces?: string;
  /** Elements behind the list of faces. */
  more?: string;
  /** What -1 and 1 stand for along each axis. */
  ranges?: readonly (readonly [number, number])[];
}

const list = (name: string, item: string, items: readonly string[]): string =>
  `<${name}>${items.map((text) => `<${item}>${text}</${item}>`).join('')}</${name}>`;

const CUBE = [0, 1, 2].map(() => [-1, 1] as const);

export function sheet(parts: Sheet): string {
  const { side, height, color, faces = 'edge="hide"', more = '', ranges = CUBE } = parts;
  const places = Array.from({ length: side }, (_, i) => (2 * i) / (side - 1) - 1);
  const all = places.flatMap((y) => places.map((x) => [x, y] as const));
  const short = (value: number): string => String(Number(value.toPrecision(6)));
  const placed = (value: number, i: number): string => {
    const [low, high] = ranges[i]!;
    return short(low + ((value + 1) / 2) * (high - low));
  };
  const points = all.map(([x, y]) => [x, y, height(x, y)].map(placed).join(' '));
  const colors = color
    ? list(
        'colors',
        'c',
        all.map(([x, y]) => color(x, y).map(Math.round).join(' ')),
      )
    : '';
  const corners = all.flatMap((_, i) =>
    i % side < side - 1 && i < side * (side - 1)
      ? [`${i} ${i + 1} ${i + side + 1} ${i + side}`]
      : [],
  );
  return (
    `<geometry><pointSet dim="3" point="hide"${color ? ' color="show"' : ''}>` +
    `${list('points', 'p', points)}${colors}</pointSet>` +
    `<faceSet ${faces}>${list('faces', 'f', corners)}</faceSet>${more}</geometry>`
  );
}

export const model = (...geometries: string[]): string =>
  `<jvx-model><geometries>${geometries.join('')}</geometries></jvx-model>`;

export const display = (...parts: string[]): string =>
  `<jv-disp><displays><display>${parts.join('')}</display></displays></jv-disp>`;

/** Rulers for x, y and, in space, z. */
export function axes(
  type: string,
  dimension: 2 | 3,
  ranges: readonly (readonly [number, number])[],
): string {
  const rulers = ranges.map(
    ([low, high], i) =>
      `<ruler name="${'xyz'[i]}"><minValue>${low}</minValue><maxValue>${high}</maxValue></ruler>`,
  );
  return `<axes visible="show" dim="${dimension}" type="${type}">${rulers.join('')}</axes><bndbox visible="show"/>`;
}

/** A line or points, in the plane. */
export const curve = (
  places: readonly (readonly [number, number])[],
  attributes = { points: 'point="hide"', lines: '' },
  more = { points: '', lines: '' },
): string =>
  `<geometry><pointSet dim="2" ${attributes.points}><points>` +
  `${places.map(([x, y]) => `<p>${x} ${y}</p>`).join('')}${more.points}</points></pointSet>` +
  `<lineSet ${attributes.lines}><lines><l>${places.map((_, i) => i).join(' ')}</l>${more.lines}</lines></lineSet></geometry>`;
