/** A ground of two colours behind everything. */
import { GLSL3, RawShaderMaterial, Vector3, type BufferGeometry, type Mesh } from 'three';
import { BACKDROP_STYLES, type BackdropText } from '../data/contract';
import { hexToRgb } from './colors';
import { overPicture } from './screen';
import { backdropFragment, pictureVertex } from './shaders';

/** Before everything else. */
const ORDER = -1;

export class Backdrop {
  readonly mesh: Mesh<BufferGeometry, RawShaderMaterial>;

  constructor({ style, colors }: BackdropText) {
    const [first, second] = colors.map((color) =>
      new Vector3(...hexToRgb(color)).divideScalar(255),
    );
    const material = new RawShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: pictureVertex,
      fragmentShader: backdropFragment,
      uniforms: {
        first: { value: first },
        second: { value: second },
        kind: { value: BACKDROP_STYLES.indexOf(style) },
      },
      depthTest: false,
      depthWrite: false,
    });
    this.mesh = overPicture(material);
    this.mesh.renderOrder = ORDER;
  }

  dispose(): void {
    this.mesh.geometry.dispose();
    this.mesh.material.dispose();
  }
}
