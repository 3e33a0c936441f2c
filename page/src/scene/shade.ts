/** Light on surfaces, for drawings that are not made by the graphics hardware. */
import { Vector3 } from 'three';
import { glossOf } from './batches';
import type { SceneUniforms } from './materials';
import type { View } from './view';

export type Triple = readonly [number, number, number];

/** A place of a surface. */
export interface Spot {
  /** Its code of pattern and gloss. */
  look: number;
  at: Vector3;
  normal: Vector3;
  color: Triple;
}

/** The colour that light gives to a place, as the programs of the hardware do. */
export function shade(
  uniforms: SceneUniforms,
  view: View,
  { look, at, normal, color }: Spot,
): Triple {
  const { lit, ambient, lightCount, lightPositions, lightColors, speculars, emissives } = uniforms;
  if (!lit.value) return color;
  const { state } = view;
  const toEye = state.field === 0 ? state.toEye.clone() : view.eye.sub(at).normalize();
  const facing = normal.clone().multiplyScalar(normal.dot(toEye) < 0 ? -1 : 1);
  const specular = speculars.value[glossOf(look)]!;
  const emissive = emissives.value[glossOf(look)]!;
  const diffuse = ambient.value.clone().addScalar(emissive.w);
  const shine = new Vector3();
  for (let i = 0; i < lightCount.value; i++) {
    const position = lightPositions.value[i]!;
    const toLight = new Vector3(position.x, position.y, position.z);
    if (position.w > 0.5) toLight.sub(at);
    const strength = facing.dot(toLight.normalize());
    if (strength <= 0) continue;
    diffuse.addScaledVector(lightColors.value[i]!, strength);
    const spot = Math.max(facing.dot(toLight.add(toEye).normalize()), 0) ** specular.w;
    shine.addScaledVector(lightColors.value[i]!, spot);
  }
  const channel = (k: 0 | 1 | 2): number =>
    color[k] * diffuse.getComponent(k) +
    255 * (specular.getComponent(k) * shine.getComponent(k) + emissive.getComponent(k));
  return [Math.min(channel(0), 255), Math.min(channel(1), 255), Math.min(channel(2), 255)];
}
