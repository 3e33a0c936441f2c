/** The lights that a display asks for. */
import { Vector3 } from 'three';
import type { Display, Light } from '../javaview/model';
import { PLAIN_GLOSS } from '../scene/batches';
import type { SceneUniforms } from '../scene/materials';
import { MOST_LIGHTS } from '../scene/shaders';
import type { Space } from '../scene/space';

/** Lights of a plot are made for surfaces that throw back more than they get, as plots do. */
const GAIN = 1.35;

/** More light than this, beside what a material throws back on its own, washes out its colour. */
const BRIGHTEST = 1 - PLAIN_GLOSS.ambient;

/** The light for plots that come without any: from above, from the left and the right. */
const DEFAULT_LIGHTS: readonly Light[] = [
  {
    type: 'ambient',
    position: [0, 0, 0],
    interest: [0, 0, 0],
    color: [255, 255, 255],
    intensity: 0.45,
  },
  {
    type: 'direction',
    position: [-5, -6, 8],
    interest: [0, 0, 0],
    color: [255, 255, 255],
    intensity: 0.65,
  },
  {
    type: 'direction',
    position: [6, -2, 3],
    interest: [0, 0, 0],
    color: [255, 255, 255],
    intensity: 0.25,
  },
  {
    type: 'direction',
    position: [0, 8, -5],
    interest: [0, 0, 0],
    color: [255, 255, 255],
    intensity: 0.25,
  },
];

export function applyLights(
  uniforms: SceneUniforms,
  display: Display | undefined,
  space: Space,
): void {
  const own = display?.lights?.length ? display.lights : undefined;
  uniforms.lit.value = !space.flat;
  uniforms.ambient.value.setScalar(0);
  let count = 0;
  for (const light of own ?? DEFAULT_LIGHTS) {
    const strength = GAIN * Math.min(Math.max(light.intensity, 0), 4);
    const [r, g, b] = light.color.map((channel) => (channel / 255) * strength) as [
      number,
      number,
      number,
    ];
    if (light.type === 'ambient') {
      uniforms.ambient.value.x += r;
      uniforms.ambient.value.y += g;
      uniforms.ambient.value.z += b;
      continue;
    }
    if (count === MOST_LIGHTS) break;
    placeLight(uniforms, count, light, own && space);
    uniforms.lightColors.value[count]!.set(r, g, b);
    count++;
  }
  uniforms.lightCount.value = count;
  const brightness = brightnessOf(uniforms);
  if (brightness > BRIGHTEST) dim(uniforms, BRIGHTEST / brightness);
}

/** The light on a face in the middle of the scene, turned towards one light or between two. */
function brightnessOf({ ambient, lightCount, lightPositions, lightColors }: SceneUniforms): number {
  const strengths = lightColors.value.slice(0, lightCount.value).map((color) => Math.max(...color));
  const beams = strengths.map((strength, i) => {
    const { x, y, z } = lightPositions.value[i]!;
    return new Vector3(x, y, z).setLength(strength);
  });
  const sides = beams.flatMap((one) => beams.map((other) => one.clone().add(other)));
  const fromSides = sides.map((side) =>
    beams
      .filter((beam) => beam.dot(side) > 0)
      .reduce((sum, beam) => sum.add(beam), new Vector3())
      .length(),
  );
  return Math.max(...ambient.value) + Math.max(0, ...strengths, ...fromSides);
}

function dim({ ambient, lightColors }: SceneUniforms, factor: number): void {
  for (const color of [ambient.value, ...lightColors.value]) color.multiplyScalar(factor);
}

function placeLight(
  uniforms: SceneUniforms,
  index: number,
  light: Light,
  space: Space | undefined,
): void {
  const at = space ? space.point(...light.position) : light.position;
  const to = space ? space.point(...light.interest) : light.interest;
  const target = uniforms.lightPositions.value[index]!;
  if (light.type === 'direction') target.set(at[0] - to[0], at[1] - to[1], at[2] - to[2], 0);
  else target.set(at[0], at[1], at[2], 1);
}
