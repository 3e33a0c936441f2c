/** Materials for the batches, over uniforms that all of one scene share. */
import {
  ConstantAlphaFactor,
  CustomBlending,
  DataTexture,
  DoubleSide,
  GLSL3,
  LessDepth,
  NearestFilter,
  OneFactor,
  OneMinusConstantAlphaFactor,
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
import { MOST_GLOSSES, MOST_TIPS, type FaceKind, type Gloss } from './batches';
import * as shaders from './shaders';
import { TIP_STYLES, type Tip } from './styles';

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
  /** Specular colour and exponent; emissive colour and share of the light from all sides. */
  speculars: IUniform<Vector4[]>;
  emissives: IUniform<Vector4[]>;
  /** Style, length (0 goes by the width) and spread of each tip. */
  tips: IUniform<Vector3[]>;
  shownObjects: IUniform<DataTexture>;
  leastCover: IUniform<number>;
  /** That of the surroundings, whose fourth number is 1 if dark colours are made lighter. */
  ink: IUniform<Vector4>;
}

const FAR = 1e9;

/** Of a pixel, where the samples in it are drawn one by one, and where they are not. */
export const LEAST_COVER = 0.02;
export const LEAST_COVER_ROUGH = 0.5;

const vectors = (count: number): Vector4[] => Array.from({ length: count }, () => new Vector4());

export function makeUniforms(objects: number): SceneUniforms {
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
    lightPositions: { value: vectors(shaders.MOST_LIGHTS) },
    lightColors: { value: Array.from({ length: shaders.MOST_LIGHTS }, () => new Vector3()) },
    speculars: { value: vectors(MOST_GLOSSES) },
    emissives: { value: vectors(MOST_GLOSSES) },
    tips: { value: Array.from({ length: MOST_TIPS }, () => new Vector3()) },
    shownObjects: { value: makeVisibility(objects) },
    leastCover: { value: LEAST_COVER },
    ink: { value: new Vector4() },
  };
}

/** Sets what the tags of faces and the styles of lines refer to by numbers. */
export function setTables(
  { speculars, emissives, tips }: SceneUniforms,
  glosses: readonly Gloss[],
  looks: readonly Tip[],
): void {
  glosses.forEach(({ specular, exponent, emissive, ambient }, i) => {
    speculars.value[i]!.set(...specular, exponent);
    emissives.value[i]!.set(...emissive, ambient);
  });
  looks.forEach(({ style, length, angle }, i) => {
    tips.value[i]!.set(TIP_STYLES.indexOf(style), length ?? 0, Math.tan(angle));
  });
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

/** Alpha says how much of a pixel is covered; of that, colours and depths are set. */
const COVERING: ShaderMaterialParameters = {
  alphaToCoverage: true,
  blending: CustomBlending,
  blendSrc: OneFactor,
  blendDst: ZeroFactor,
  blendSrcAlpha: OneFactor,
  blendDstAlpha: OneFactor,
};

/** What is drawn together of lines and points: opacities in 255ths, and the one they all get. */
export interface Opacity {
  least: number;
  most: number;
  mean: number;
}

export const OPAQUE_ONLY: Opacity = { least: 255, most: 255, mean: 255 };

/**
 * How lines and points are laid on what is there. Where they can be seen through, what covers a pixel
 * is one thing and how much is seen through it another: so a line is as clear where its parts meet as
 * elsewhere.
 */
function penParameters({ mean }: Opacity): ShaderMaterialParameters {
  if (mean === 255) return COVERING;
  return {
    ...COVERING,
    transparent: true,
    depthFunc: LessDepth,
    blendAlpha: mean / 255,
    blendSrc: ConstantAlphaFactor,
    blendDst: OneMinusConstantAlphaFactor,
    blendSrcAlpha: ConstantAlphaFactor,
  };
}

const opacityUniform = ({ least, most }: Opacity): Record<string, IUniform> => ({
  opacities: { value: new Vector2((least - 0.5) / 255, (most + 0.5) / 255) },
});

export function faceMaterial(
  uniforms: SceneUniforms,
  kind: FaceKind,
  clipped: boolean,
): RawShaderMaterial {
  const program = { ...kind, clipped };
  return make(
    uniforms,
    shaders.facesVertex(program),
    shaders.facesFragment(program),
    {},
    {
      ...(kind.transparent ? SEE_THROUGH : clipped ? COVERING : OPAQUE),
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
  opacity: Opacity,
  thin: boolean,
): RawShaderMaterial {
  return make(
    uniforms,
    shaders.linesVertex,
    shaders.linesFragment,
    { lift: { value: lift.lines }, thin: { value: thin }, ...opacityUniform(opacity) },
    penParameters(opacity),
  );
}

export function tipMaterial(
  uniforms: SceneUniforms,
  lift: Lift,
  opacity: Opacity,
): RawShaderMaterial {
  return make(
    uniforms,
    shaders.tipsVertex,
    shaders.tipsFragment,
    { lift: { value: lift.lines }, ...opacityUniform(opacity) },
    penParameters(opacity),
  );
}

export function pointMaterial(
  uniforms: SceneUniforms,
  lift: Lift,
  opacity: Opacity,
): RawShaderMaterial {
  return make(
    uniforms,
    shaders.pointsVertex,
    shaders.pointsFragment,
    { lift: { value: lift.points }, ...opacityUniform(opacity) },
    penParameters(opacity),
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
