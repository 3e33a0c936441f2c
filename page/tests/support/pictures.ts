/** The plots whose pictures are compared, and where their references are. */
import { existsSync, readFileSync } from 'node:fs';
import { FILL_PATTERNS, LINE_STYLES, POINT_STYLES, TIP_STYLES } from '../../src/scene/styles';
import { readDocument } from '../../src/javaview/reader';
import { simplePage } from './compose';
import { animatedPage, functionPage, twoScenesPage } from './demos';
import { example } from './examples';
import { axes, curve, display, model, sheet } from './plots';

export const REFERENCES = new URL('../../tests/pictures/', import.meta.url);

/** A text beside the references, or one that the converter's tests have. */
function text(name: string): Uint8Array {
  const path = new URL(`texts/${name}`, REFERENCES);
  return existsSync(path) ? new Uint8Array(readFileSync(path)) : example(name);
}

const plot = (name: string, displayName = name): string =>
  simplePage(text(`${name}.jvx`), text(`${displayName}.jvd`));

const wave = (x: number, y: number): number => 0.6 * Math.sin(3 * x) * Math.cos(2 * y);

const see = (part: number): string =>
  `<material><transparency visible="show">${part}</transparency></material>`;

const colored = (color: string): string => `<color>${color}</color>`;

/** A wave in the axes of an example, which fills four fifths of their box. */
function axesAround(name: string): string {
  const axes = example(`${name}.jvd`);
  const { rulers } = readDocument(axes).displays[0]!.axes!;
  const ranges = rulers.map(({ min, max }) => {
    const [middle, half] = [(min! + max!) / 2, (max! - min!) / 2];
    return [middle - 0.8 * half, middle + 0.8 * half] as const;
  });
  const color = (x: number, y: number): [number, number, number] => {
    const part = wave(x, y) / 1.2 + 0.5;
    return [60 + 190 * part, 120 + 60 * part, 220 - 160 * part];
  };
  const faces = 'edge="show" color="show" colorSmooth="show" colorFromPoints="show"';
  return simplePage(model(sheet({ side: 17, height: wave, color, faces, ranges })), axes);
}

/** A sheet whose faces have one colour. */
const plain = (height: (x: number, y: number) => number, color: string, more = ''): string =>
  sheet({ side: 25, height, more }).replace('</faces>', `${colored(color)}</faces>`);

const UNIT: readonly [number, number] = [-1, 1];
const CUBE = axes('bndbox', 3, [UNIT, UNIT, UNIT]);
const LIGHTS =
  '<lights><light type="ambient"><intensity>0.2</intensity></light><light type="direction">' +
  '<position>-2 -3 4</position><intensity>0.7</intensity></light></lights>';

function transparent(): string {
  return simplePage(
    model(
      plain((x) => 0.5 * x, '200 40 40', see(0.5)),
      plain((x) => -0.5 * x, '40 80 200', see(0.5)),
      plain(() => -0.6, '90 160 60'),
    ),
    display(CUBE, LIGHTS),
  );
}

function clipped(): string {
  const clip =
    '<clipRange><range type="X">-0.5 1</range><range type="Z">-0.25 0.4</range></clipRange>';
  const lines = sheet({ side: 17, height: wave, faces: 'edge="show"' });
  return simplePage(model(lines), display(CUBE, clip, LIGHTS));
}

function materials(): string {
  const shining = (specular: string, shininess: number, emissive = '0 0 0'): string =>
    `<material shading="gouraud"><specular>${colored(specular)}</specular>` +
    `<emissive>${colored(emissive)}</emissive><shininess>${shininess}</shininess></material>`;
  const bump = (x: number, y: number): number => 0.9 * Math.exp(-4 * (x * x + y * y)) - 0.9;
  const beside = (jvx: string, shift: number): string =>
    jvx.replace(/<p>(\S+)/g, (_, x: string) => `<p>${Number(x) + shift}`);
  return simplePage(
    model(
      beside(plain(bump, '60 90 160', shining('255 255 255', 1)), -2.1),
      plain(bump, '60 90 160', shining('255 160 0', 0.1)),
      beside(plain(bump, '60 90 160', shining('0 0 0', 1, '90 0 0')), 2.1),
    ),
    display(LIGHTS),
  );
}

function smoothColors(): string {
  const color = (x: number, y: number): [number, number, number] => {
    const part = wave(x, y) / 1.2 + 0.5;
    return [255 * part, 150 - 90 * part, 255 * (1 - part)];
  };
  const faces = 'edge="hide" color="show" colorSmooth="show" colorFromPoints="show"';
  return simplePage(model(sheet({ side: 30, height: wave, color, faces })), display(CUBE));
}

/** Every kind of point, line, tip and pattern. */
function styles(): string {
  const row = (y: number): [number, number][] => [0, 1, 2, 3].map((x) => [x, y]);
  const points = POINT_STYLES.map((_, i) =>
    curve(
      row(-i).slice(0, 2),
      { points: '', lines: 'line="hide"' },
      { points: '<thickness>6</thickness><color>25 25 112</color>', lines: '' },
    ),
  );
  const lines = LINE_STYLES.map((_, i) =>
    curve(
      row(-i)
        .slice(2)
        .concat([[2.5, -i - 0.6]]),
      { points: 'point="hide"', lines: '' },
      { points: '', lines: '<thickness>3</thickness><color>170 30 30</color>' },
    ),
  );
  const tips = TIP_STYLES.map((_, i) =>
    curve(
      row(-3.5 - i).slice(2),
      { points: 'point="hide"', lines: 'arrow="show"' },
      { points: '', lines: '<thickness>2</thickness><color>20 110 40</color>' },
    ),
  );
  const area = (x: number, y: number): string =>
    `<geometry><pointSet dim="2" point="hide"><points><p>${x} ${y}</p><p>${x + 0.8} ${y}</p>` +
    `<p>${x + 0.8} ${y - 1.2}</p><p>${x} ${y - 1.2}</p></points></pointSet>` +
    `<faceSet><faces><f>0 1 2 3</f>${colored('190 160 140')}</faces></faceSet></geometry>`;
  const fills = FILL_PATTERNS.map((_, i) => area(4 + (i % 2), -2.2 * Math.floor(i / 2)));
  const tip = { length: 22, angle: 0.4 };
  const runs = [
    ...POINT_STYLES.map((point) => ({ object: 0, count: 1, point })),
    ...LINE_STYLES.map((line) => ({ object: 0, count: 1, line })),
    ...TIP_STYLES.map((style) => ({ object: 0, count: 1, tip: { style, ...tip } })),
    ...FILL_PATTERNS.map((fill) => ({ object: 0, count: 1, fill })),
  ];
  const frames = [{ model: 'm', runs }];
  return simplePage(model(...points, ...lines, ...tips, ...fills), undefined, { frames });
}

function logarithmic(): string {
  const values = Array.from({ length: 61 }, (_, i) => 10 ** (i / 20));
  return simplePage(
    model(curve(values.map((x) => [x, x * x])), curve(values.map((x) => [x, 1000 / x]))),
    display(
      axes('bndbox', 2, [
        [1, 1000],
        [0.1, 1e6],
      ]),
      '<boxRatio>1 0.00066 1</boxRatio>',
    ),
    {
      axes: {
        x: { logarithmic: true, grid: true, subgrid: true },
        y: { logarithmic: true, grid: true },
      },
    },
  );
}

/** Numbers that are turned, ticks with texts, axes that cross away from 0, behind an area. */
function numbers(): string {
  const area =
    '<geometry><pointSet dim="2" point="hide"><points><p>0 -1</p><p>4 -1</p><p>2 2</p></points></pointSet>' +
    `<faceSet><faces><f>0 1 2</f>${colored('250 210 120')}</faces></faceSet></geometry>`;
  return simplePage(
    model(area),
    display(
      axes('center', 2, [
        [-1, 5],
        [-2, 3],
      ]),
    ),
    {
      axes: {
        inFront: false,
        origin: [1, 1],
        tips: false,
        tickLength: 10,
        x: { numbers: 'diagonal', title: { text: 'time', align: 'right' } },
        y: {
          amount: 'none',
          ticks: [
            { at: -1, text: 'low' },
            { at: 2, text: 'high' },
          ],
        },
      },
    },
  );
}

const backdrop = (style: string): string =>
  simplePage(model(plain(wave, '230 230 60')), display(LIGHTS), {
    background: { style, colors: ['#103060', '#c0d8f0'] },
  });

const frames = Object.fromEntries(
  [0, 2, 4].map((frame) => [`animation_${frame}`, (): string => animatedPage(false, frame)]),
);

/** Each page by the name of its picture. */
export const PICTURES: Record<string, () => string> = {
  axes_boxed_3d: () => axesAround('axes_boxed_3d'),
  axes_boxed_3d_grid: () => axesAround('axes_boxed_3d_grid'),
  axes_frame_3d: () => axesAround('axes_frame_3d'),
  axes_origin_3d: () => axesAround('axes_origin_3d'),
  axes_automatic_3d: () => axesAround('axes_automatic_3d'),
  axes_none_3d: () => axesAround('axes_none_3d'),
  axes_boxed_2d: () => plot('axes_boxed_2d'),
  axes_frame_2d_grid: () => plot('axes_boxed_2d', 'axes_frame_2d_grid'),
  axes_origin_2d: () => plot('axes_boxed_2d', 'axes_origin_2d'),
  axes_logarithmic: logarithmic,
  axes_numbers: numbers,
  camera_parallel: () => plot('camera_parallel'),
  camera_start: () => plot('camera_animated'),
  camera_later: () => plot('camera_animated', 'camera_animated@9'),
  lights_explicit: () => plot('lights_explicit'),
  lights_automatic: () => plot('lights_automatic'),
  surface: () => plot('surface'),
  surface_refined: () => plot('surface_refined', 'plain_3d'),
  surface_wire: () => plot('surface_wire'),
  smooth_colors: smoothColors,
  materials,
  clipped,
  transparent,
  solids: () => plot('solids', 'plain_3d'),
  color_array: () => plot('color_array', 'plain_2d'),
  density_arrays: () => plot('density_arrays'),
  height_colors: () => plot('height_colors', 'plain_2d_constrained'),
  point_colors: () => plot('point_colors', 'plain_2d'),
  polygon: () => plot('polygon', 'plain_2d'),
  arcs: () => plot('arcs', 'plain_2d'),
  field2d: () => plot('field2d', 'plain_2d'),
  vector_field3d: () => plot('vector_field3d', 'plain_3d'),
  points_and_arrows3d: () => plot('points_and_arrows3d', 'plain_3d'),
  texts2d: () => plot('texts2d', 'plain_2d'),
  text3d: () => plot('text3d', 'plain_3d'),
  transforms3d_start: () => plot('transforms3d', 'transforms3d'),
  transforms3d_later: () => plot('transforms3d@7.5', 'transforms3d'),
  styles,
  backdrop_pyramid: () => backdrop('pyramid'),
  backdrop_top_bottom: () => backdrop('topBottom'),
  function_plot: () => functionPage(text('function_plot2d.jvd')),
  two_scenes: () => twoScenesPage(text('surface.jvd')),
  ...frames,
};
