/** A ground of two colours behind everything. */
import {
  BufferAttribute,
  BufferGeometry,
  GLSL3,
  Mesh,
  RawShaderMaterial,
  Sphere,
  Vector3,
} from 'three';
import { BACKDROP_STYLES, type BackdropText } from '../data/contract';
import { hexToRgb } from './colors';
import { backdropFragment, backdropVertex } from './shaders';

/** Before everything else. */
const ORDER = -1;

export class Backdrop {
  readonly mesh: Mesh<BufferGeometry, RawShaderMaterial>;

  constructor({ style, colors }: BackdropText) {
    const [first, second] = colors.map((color) =>
      new Vector3(...hexToRgb(color)).divideScalar(255),
    );
    const geometry = new BufferGeometry();
    // One triangle that covers the picture.
    geometry.setAttribute(
      'position',
      new BufferAttribute(Float32Array.of(-1, -1, 3, -1, -1, 3), 2),
    );
    const material = new RawShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: backdropVertex,
      fragmentShader: backdropFragment,
      uniforms: {
        first: { value: first },
        second: { value: second },
        kind: { value: BACKDROP_STYLES.indexOf(style) },
      },
      depthTest: false,
      depthWrite: false,
    });
    this.mesh = new Mesh(geometry, material);
    geometry.boundingSphere = new Sphere();
    this.mesh.frustumCulled = false;
    this.mesh.renderOrder = ORDER;
  }

  dispose(): void {
    this.mesh.geometry.dispose();
    this.mesh.material.dispose();
  }
}
