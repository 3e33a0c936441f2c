/** A finished picture laid on the canvas, pixel by pixel. */
import { GLSL3, NoBlending, RawShaderMaterial, type Mesh, type Texture } from 'three';
import { overPicture } from './screen';
import { copyFragment, pictureVertex } from './shaders';

export const makeCopy = (picture: Texture): Mesh =>
  overPicture(
    new RawShaderMaterial({
      glslVersion: GLSL3,
      vertexShader: pictureVertex,
      fragmentShader: copyFragment,
      uniforms: { picture: { value: picture } },
      depthTest: false,
      depthWrite: false,
      blending: NoBlending,
    }),
  );
