/** Pages that use everything that JVX and JVD have no place for. */
import { compose } from './compose';
import { example } from './examples';

const frame = (model: string, display: string | undefined, runs: unknown[] = []) => ({
  model,
  display,
  runs,
});

/** Two functions with a legend, dashed asymptotes, a hatched area and axes through the origin. */
export function functionPage(display = example('axes_origin_2d_grid.jvd')): string {
  return compose({
    page: {
      title: 'Two functions',
      header: { text: 'Two functions', size: 18, bold: true },
      footer: 'made by a test',
      panels: [
        {
          name: 'functions',
          axes: {
            kind: 'origin',
            x: { title: { text: 'x', align: 'right' }, grid: true },
            y: { title: 'tan(x)', grid: false },
            grid: { color: '#d8d8e0', width: 1, style: 'dotted' },
          },
          legend: { visible: true, placement: 'bottom' },
          objects: [
            { name: 'tangent', legend: 'tan(x)', color: '#191970' },
            { name: 'area', legend: 'sin(x)', color: '#ff8000' },
            { name: 'rest' },
          ],
          frames: [
            frame('m', 'd', [
              { object: 0, count: 1 },
              { object: 0, count: 1, line: 'dashed' },
              { object: 0, count: 1 },
              { object: 0, count: 1, line: 'dashed' },
              { object: 0, count: 1 },
              { object: 1, count: 1, fill: 'diagonalLines' },
              { object: 2, count: 20, point: 'stars' },
            ]),
          ],
        },
      ],
    },
    blocks: { m: example('function_plot2d.jvx'), d: display },
  });
}

/** Two scenes side by side. */
export function twoScenesPage(display = example('axes_boxed_3d.jvd')): string {
  return compose({
    page: {
      title: 'Two scenes',
      columns: 2,
      panels: [
        {
          name: 'left',
          header: 'A surface',
          objects: [
            {
              name: 'surface',
              legend: 'height',
              scale: { min: -1, max: 1, colors: ['#6495ed', '#dc143c'] },
            },
          ],
          frames: [frame('a', 'd')],
        },
        {
          name: 'right',
          header: { text: 'Curves', align: 'left' },
          frames: [frame('b', undefined)],
        },
      ],
    },
    blocks: {
      a: example('surface.jvx'),
      d: display,
      b: example('curves2d.jvx'),
    },
  });
}

/** A surface that changes with time. */
export function animatedPage(autoPlay = false, initial = 0): string {
  const numbers = [1, 2, 3, 4, 5];
  return compose({
    page: {
      title: 'An animation',
      animation: { times: [0, 1, 2, 3, 4], style: 'backAndForth', autoPlay, initial },
      panels: [
        {
          name: 'moving',
          frames: numbers.map((i) => frame(`m${i}`, 'd', [{ object: 0, count: 9 }])),
        },
      ],
    },
    blocks: {
      ...Object.fromEntries(
        numbers.map((i) => [`m${i}`, example(`surface_animated.frames-1.${i}.jvx`)]),
      ),
      d: example('lights_automatic.jvd'),
    },
  });
}
