/** One drawing context for all panels of a page; each picture is copied to where it is seen. */
import {
  ColorManagement,
  LinearSRGBColorSpace,
  NearestFilter,
  Scene,
  WebGLRenderer,
  WebGLRenderTarget,
  type Object3D,
} from 'three';
import type { Rgb } from '../javaview/model';
import { makeCopy } from './copy';
import type { View } from './view';

ColorManagement.enabled = false;

export interface Picture {
  contents: readonly Object3D[];
  view: View;
  /** In pixels of the picture. */
  width: number;
  height: number;
  /** Undefined leaves the ground transparent. */
  background: Rgb | undefined;
  /** Whether edges may be jagged, which a processor draws in half the time or less. */
  rough: boolean;
}

/** So many samples a pixel make edges smooth. */
const SAMPLES = 4;

/** Whether the drawing is left to the processor, for want of graphics hardware. */
function isSoftware(context: WebGLRenderingContext | WebGL2RenderingContext): boolean {
  let name = String(context.getParameter(context.RENDERER));
  if (name === 'WebKit WebGL') {
    const info = context.getExtension('WEBGL_debug_renderer_info');
    if (info) name = String(context.getParameter(info.UNMASKED_RENDERER_WEBGL));
  }
  return /swiftshader|llvmpipe|softpipe|software|basic render/i.test(name);
}

export class Engine {
  private readonly renderer: WebGLRenderer;
  private readonly scene = new Scene();
  private readonly smooth = new WebGLRenderTarget(1, 1, {
    samples: SAMPLES,
    minFilter: NearestFilter,
    magFilter: NearestFilter,
    generateMipmaps: false,
    resolveDepthBuffer: false,
  });
  private readonly copy = makeCopy(this.smooth.texture);
  /** Whether large scenes take long to draw. */
  readonly slow: boolean;
  lost = false;

  /** Throws if the browser has no WebGL. */
  constructor(onRestored: () => void) {
    this.renderer = new WebGLRenderer({
      antialias: false,
      alpha: true,
      preserveDrawingBuffer: false,
    });
    this.renderer.outputColorSpace = LinearSRGBColorSpace;
    this.renderer.info.autoReset = false;
    this.scene.matrixWorldAutoUpdate = false;
    this.slow = isSoftware(this.context);
    const canvas = this.renderer.domElement;
    canvas.addEventListener('webglcontextlost', (event) => {
      event.preventDefault();
      this.lost = true;
    });
    canvas.addEventListener('webglcontextrestored', () => {
      this.lost = false;
      onRestored();
    });
  }

  /** For tests: takes the context away and gives it back. */
  get context(): WebGLRenderingContext | WebGL2RenderingContext {
    return this.renderer.getContext();
  }

  get largest(): number {
    return Math.min(this.renderer.capabilities.maxTextureSize, 8192);
  }

  /** How many draw calls the last picture took. */
  get drawCalls(): number {
    return this.renderer.info.render.calls;
  }

  /**
   * Starts all work that was asked for so far, without waiting for it. Reading into a buffer ends the
   * picture, which a mere flush may leave open.
   */
  submit(): void {
    const context = this.context as WebGL2RenderingContext;
    const buffer = context.createBuffer();
    context.bindBuffer(context.PIXEL_PACK_BUFFER, buffer);
    context.bufferData(context.PIXEL_PACK_BUFFER, 4, context.STREAM_READ);
    context.readPixels(0, 0, 1, 1, context.RGBA, context.UNSIGNED_BYTE, 0);
    context.bindBuffer(context.PIXEL_PACK_BUFFER, null);
    context.deleteBuffer(buffer);
    context.flush();
  }

  /** Draws a picture; the result is valid until the next one. */
  draw(picture: Picture): HTMLCanvasElement {
    const { renderer, scene } = this;
    const canvas = renderer.domElement;
    if (canvas.width !== picture.width || canvas.height !== picture.height) {
      renderer.setSize(picture.width, picture.height, false);
    }
    const [r, g, b] = picture.background ?? [0, 0, 0];
    renderer.setClearColor((r << 16) | (g << 8) | b, picture.background ? 1 : 0);
    renderer.info.reset();
    scene.clear();
    if (picture.contents.length > 0) scene.add(...picture.contents);
    if (picture.rough) {
      renderer.render(scene, picture.view.camera);
      return canvas;
    }
    this.smooth.setSize(picture.width, picture.height);
    renderer.setRenderTarget(this.smooth);
    renderer.render(scene, picture.view.camera);
    renderer.setRenderTarget(null);
    renderer.render(this.copy, picture.view.camera);
    return canvas;
  }
}
