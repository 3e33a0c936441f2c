/** Materials for the batches, over uniforms that all of one scene share. */
import {
  CustomBlending,
  DataTexture,
  DoubleSide,
  GLSL3,
  NearestFilter,
  OneFactor,
  OneMinusSrcAlphaFactor,
  RawShaderMaterial,
  RedFormat,
  SrcAlphaFactor,
  Vector2,
  Vector3,
  Vector4,
  ZeroFactor,
  type IUniform,
  type ShaderMaterialParameters,
  type Texture,
} from 'three';
import type { FaceKind } from './batches';
import * as shaders from './shaders';

const TEXELS_A_ROW = 1024;

/** Which objects are shown, one texel each. */
export function makeVisibility(objects: number): DataTexture {
  const rows = Math.max(1, Math.ceil(objects / TEXELS_A_ROW));
  const data = new Uint8Array(rows * TEXELS_A_ROW).fill(255);
  const texture = new DataTexture(data, TEXELS_A_ROW, rows, RedFormat);
  texture.minFilter = NearestFilter;
  texture.magFilter = NearestFilter;
  texture.needsUpdate = true;
  return texture;
}

export interface SceneUniforms extends Record<string, IUniform> {
  viewport: IUniform<Vector2>;
  pixelRatio: IUniform<number>;
  pixelsPerUnit: IUniform<number>;
  clipMin: IUniform<Vector3>;
  clipMax: IUniform<Vector3>;
  viewDirection: IUniform<Vector3>;
  parallel: IUniform<boolean>;
  lit: IUniform<boolean>;
  ambient: IUniform<Vector3>;
  lightCount: IUniform<number>;
  lightPositions: IUniform<Vector4[]>;
  lightColors: IUniform<Vector3[]>;
  gloss: IUniform<number>;
  shownObjects: IUniform<DataTexture>;
  thin: IUniform<boolean>;
}

const FAR = 1e9;

export function makeUniforms(objects: number): SceneUniforms {
  const lights = Array.from({ length: shaders.MOST_LIGHTS });
  return {
    viewport: { value: new Vector2(1, 1) },
    pixelRatio: { value: 1 },
    pixelsPerUnit: { value: 1 },
    clipMin: { value: new Vector3(-FAR, -FAR, -FAR) },
    clipMax: { value: new Vector3(FAR, FAR, FAR) },
    viewDirection: { value: new Vector3(0, 0, -1) },
    parallel: { value: true },
    lit: { value: false },
    ambient: { value: new Vector3(1, 1, 1) },
    lightCount: { value: 0 },
    lightPositions: { value: lights.map(() => new Vector4()) },
    lightColors: { value: lights.map(() => new Vector3()) },
    gloss: { value: 0 },
    shownObjects: { value: makeVisibility(objects) },
    thin: { value: false },
  };
}

function make(
  uniforms: SceneUniforms,
  vertexShader: string,
  fragmentShader: string,
  own: Record<string, IUniform>,
  parameters: ShaderMaterialParameters,
): RawShaderMaterial {
  return new RawShaderMaterial({
    glslVersion: GLSL3,
    vertexShader,
    fragmentShader,
    uniforms: { ...uniforms, ...own },
    side: DoubleSide,
    ...parameters,
  });
}

/** Opaque colours whose alpha keeps edges smooth and still leaves the picture opaque. */
const OPAQUE: ShaderMaterialParameters = { transparent: false };

const SEE_THROUGH: ShaderMaterialParameters = {
  transparent: true,
  depthWrite: false,
  blending: CustomBlending,
  blendSrc: SrcAlphaFactor,
  blendDst: OneMinusSrcAlphaFactor,
  blendSrcAlpha: OneFactor,
  blendDstAlpha: OneMinusSrcAlphaFactor,
};

export function faceMaterial(uniforms: SceneUniforms, kind: FaceKind): RawShaderMaterial {
  const colors = kind.smoothColors ? '' : 'flat';
  const normals = kind.smoothNormals ? '' : 'flat';
  return make(
    uniforms,
    shaders.facesVertex(colors, normals),
    shaders.facesFragment(colors, normals),
    {},
    {
      ...(kind.transparent ? SEE_THROUGH : OPAQUE),
      polygonOffset: true,
      polygonOffsetFactor: 1,
      polygonOffsetUnits: 1,
    },
  );
}

/** How far lines, points and labels are drawn before the surface that they lie on. */
export interface Lift {
  lines: number;
  points: number;
  labels: number;
}

export function lineMaterial(
  uniforms: SceneUniforms,
  lift: Lift,
  thin: boolean,
): RawShaderMaterial {
  return make(
    uniforms,
    shaders.linesVertex,
    shaders.linesFragment,
    { lift: { value: lift.lines }, thin: { value: thin } },
    { ...SEE_THROUGH, transparent: false, depthWrite: true },
  );
}

export function tipMaterial(uniforms: SceneUniforms, lift: Lift): RawShaderMaterial {
  return make(
    uniforms,
    shaders.tipsVertex,
    shaders.tipsFragment,
    { lift: { value: lift.lines } },
    OPAQUE,
  );
}

export function pointMaterial(uniforms: SceneUniforms, lift: Lift): RawShaderMaterial {
  return make(
    uniforms,
    shaders.pointsVertex,
    shaders.pointsFragment,
    { lift: { value: lift.points } },
    {
      alphaToCoverage: true,
      blending: CustomBlending,
      blendSrc: OneFactor,
      blendDst: ZeroFactor,
      blendSrcAlpha: OneFactor,
      blendDstAlpha: OneFactor,
    },
  );
}

export function labelMaterial(
  uniforms: SceneUniforms,
  lift: Lift,
  texts: IUniform<Texture | null>,
): RawShaderMaterial {
  return make(
    uniforms,
    shaders.labelsVertex,
    shaders.labelsFragment,
    { lift: { value: lift.labels }, texts },
    {
      ...SEE_THROUGH,
      blendSrc: OneFactor,
    },
  );
}
