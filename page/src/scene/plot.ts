/** One scene with its rulers and its view, drawn into a picture; it knows nothing of the page. */
import { Vector3, type IUniform, type Texture } from 'three';
import type { BackdropText, ObjectText, PanelText } from '../data/contract';
import type { Display, Rgb } from '../javaview/model';
import { Rulers2d, fromPixels } from '../rulers/axes2d';
import { Rulers3d } from '../rulers/axes3d';
import { homeView, isDefaultView, upright } from '../rulers/camera';
import { frameLook, type FrameLook } from '../rulers/frame';
import { placeLabels, type PlacedLabels } from '../rulers/labels';
import { RulerLayout } from '../rulers/layout';
import { applyLights } from '../rulers/lights';
import { fitBox, fitLabels } from '../rulers/fit';
import type { Rectangle } from '../rulers/overlap';
import { beyondPicture, fitFrame, inset, isNoRoom, margins } from '../rulers/room2d';
import { TextAtlas } from './atlas';
import { Backdrop } from './backdrop';
import { type Label, type LineData, type TextStyle } from './batches';
import { FINE_ENOUGH_SLOW } from './coarse';
import { lightened } from './colors';
import { Drawing } from './drawing';
import type { Engine } from './engine';
import {
  LEAST_COVER,
  LEAST_COVER_ROUGH,
  makeUniforms,
  makeVisibility,
  type SceneUniforms,
} from './materials';
import { coordinatesOf, nearestPoint, type Hit } from './pick';
import type { Scene } from './scene';
import { shade, type Triple } from './shade';
import { AXES, Space, layer, type Axis } from './space';
import { View, sameView, type Size } from './view';

/** The colours of the surroundings, for what a plot leaves open. */
export interface Surroundings {
  ink: Rgb;
  ground: Rgb;
  /** Whether the ground is dark by the reader's choice, not by that of the plot. */
  darkened: boolean;
}

export interface Shown {
  axes: boolean;
  box: boolean;
  labels: boolean;
}

/** A scene and the name of the text that it comes from. */
export interface Content {
  name: string;
  scene: Scene;
}

export class Plot {
  readonly view: View;
  readonly space: Space;
  readonly flat: boolean;
  look: FrameLook;
  readonly shown: Shown;
  objects: ObjectText[] = [];
  readonly hidden = new Set<number>();
  /** The name of the text that is shown. */
  name: string;
  scene: Scene;
  /** Labels of the rulers in the last picture and where they were. */
  labels: readonly Label[] = [];
  rectangles: readonly Rectangle[] = [];
  /** The same for those of points. */
  placed: PlacedLabels = { labels: [], rectangles: [] };
  /** What of the picture a flat scene fills while nobody has moved it. */
  private homeFrame: Rectangle | undefined;
  /** What it fills in the last picture. */
  private frame: Rectangle | undefined;
  /** The lines of the rulers in the last picture. */
  rulerLines: LineData | undefined;
  private readonly uniforms: SceneUniforms;
  private readonly rulerUniforms: SceneUniforms;
  private readonly backdrop: Backdrop | undefined;
  private readonly atlas = new TextAtlas();
  private readonly texts: IUniform<Texture | null> = { value: this.atlas.texture };
  private drawing: Drawing;
  private rulers: Drawing | undefined;
  private sortedFor = '';
  private fitted = false;
  /** How much farther the view is than its camera, so that no number is cut off. */
  private stepBack = 1;

  constructor(
    private readonly engine: Engine,
    private readonly text: PanelText,
    content: Content,
    private surroundings: Surroundings,
  ) {
    const { scene } = content;
    const { display } = scene;
    this.name = content.name;
    this.scene = scene;
    this.space = new Space(scene.space);
    this.flat = this.space.flat;
    this.view = new View(homeView(display, this.space), this.flat);
    this.look = this.lookOf();
    this.shown = { axes: this.look.visible, box: this.look.box, labels: true };
    this.uniforms = makeUniforms(1);
    this.rulerUniforms = makeUniforms(1);
    this.backdrop = text.background && new Backdrop(text.background);
    applyLights(this.uniforms, display, this.space);
    this.nameObjects();
    this.drawing = this.makeDrawing();
  }

  get background(): Rgb | undefined {
    return this.display?.background;
  }

  get display(): Display | undefined {
    return this.scene.display;
  }

  /** Shows another frame of the same scene; the view follows a camera that moves. */
  setContent(content: Content): void {
    const before = homeView(this.display, this.space);
    this.name = content.name;
    this.scene = content.scene;
    this.look = this.lookOf();
    applyLights(this.uniforms, this.display, this.space);
    const home = homeView(this.display, this.space);
    if (this.view.isHome && !sameView(before, home)) {
      home.span *= this.stepBack;
      this.view.setHome(home);
      this.view.reset();
    }
    this.drawing.dispose();
    this.nameObjects();
    this.drawing = this.makeDrawing();
    this.sortedFor = '';
  }

  setSurroundings(surroundings: Surroundings): void {
    this.surroundings = surroundings;
    this.look = this.lookOf();
  }

  setHidden(object: number, hidden: boolean): void {
    if (hidden) this.hidden.add(object);
    else this.hidden.delete(object);
    this.updateVisibility();
  }

  resize(size: Size): void {
    this.view.size = size;
    if (!this.fitted) {
      this.fitted = true;
      this.reset();
    } else if (this.flat) this.fitFlat();
    else this.view.update();
  }

  /** The view that the display asks for, from so far that no number is cut off. */
  reset(): void {
    const home = homeView(this.display, this.space);
    this.view.setHome(home);
    this.view.reset();
    if (this.flat) {
      this.fitFlat();
      return;
    }
    if (isDefaultView(this.display, this.space)) fitBox(this.view, this.space, this.labelPlaces);
    else fitLabels(this.view, this.labelPlaces);
    this.stepBack = this.view.state.span / home.span;
    this.view.setHome(this.view.state);
  }

  /** Shows all from an end of an axis. */
  lookFrom(axis: Axis, sign: 1 | -1): void {
    const toEye = new Vector3().setComponent(axis, sign);
    this.view.lookFrom(toEye, upright(toEye));
    this.view.state.target.set(0, 0, 0);
    fitBox(this.view, this.space, this.labelPlaces);
  }

  /** Draws the scene at a density of pixels; the result is valid until the next picture. */
  draw(pixelRatio: number, moving: boolean, transparent: boolean): HTMLCanvasElement {
    const { view } = this;
    view.update();
    const width = Math.max(1, Math.round(view.size.width * pixelRatio));
    const height = Math.max(1, Math.round(view.size.height * pixelRatio));
    const rough = moving && this.isSlow;
    const layout = this.layOut();
    this.updateUniforms(width, height, pixelRatio, rough);
    const rulers = layout.batches.finish();
    this.rulerLines = rulers.lines;
    const before = this.rulers;
    const kind = { flat: this.flat, clipped: false, slow: this.engine.slow };
    this.rulers = new Drawing(rulers, this.rulerUniforms, this.atlas, this.texts, kind);
    const { labels, rectangles } = this.placeLabels(layout);
    this.placed = { labels: labels.map((label) => this.seenLabel(label)), rectangles };
    const halo = transparent ? undefined : this.halo;
    this.labels = layout.labels.map((label) => this.seenLabel(label, halo));
    this.atlas.place([...this.placed.labels, ...this.labels], pixelRatio);
    this.drawing.setLabels(this.placed.labels, pixelRatio);
    this.rulers.setLabels(this.labels, pixelRatio);
    this.rectangles = layout.rectangles;
    this.drawing.setMoving(moving);
    this.sort();
    const drawn = this.engine.draw({
      contents: [
        ...(this.backdrop && !transparent ? [this.backdrop.mesh] : []),
        this.drawing.group,
        this.rulers.group,
      ],
      view,
      width,
      height,
      background: transparent ? undefined : this.ground,
      rough,
    });
    // Not earlier: programs that nothing uses any more would have to be compiled again.
    before?.dispose();
    return drawn;
  }

  /** The ground of two colours, if there is one. */
  get backdropText(): BackdropText | undefined {
    return this.text.background;
  }

  /** Whether a rough or coarser picture is there much sooner than the whole one. */
  get isLarge(): boolean {
    return this.isSlow || this.drawing.isCoarser;
  }

  private get isSlow(): boolean {
    const corners = this.scene.faces.reduce((sum, { index }) => sum + index.length, 0);
    return this.engine.slow && corners > 3 * FINE_ENOUGH_SLOW;
  }

  get drawCalls(): number {
    return this.engine.drawCalls;
  }

  /** The colour behind everything. */
  get ground(): Rgb {
    return this.background ?? this.surroundings.ground;
  }

  /** A colour of a line, a point or a text as it is seen. */
  seen(color: Rgb): Rgb {
    return this.isDarkened ? lightened(color, this.surroundings.ink) : color;
  }

  private get isDarkened(): boolean {
    return this.surroundings.darkened && !this.background && !this.backdropText;
  }

  private seenLabel(label: Label, halo?: Rgb): Label {
    const { style } = label;
    return { ...label, style: { ...style, color: this.seen(style.color), halo } };
  }

  /** Numbers of axes that cross lie among lines, and are kept apart from them by the ground. */
  private get halo(): Rgb | undefined {
    return this.look.type === 'center' && !this.backdrop ? this.ground : undefined;
  }

  /** The colour that light gives to a place, for drawings that are not made by the hardware. */
  lightOf(look: number, at: Vector3, normal: Vector3, color: Triple): Triple {
    return shade(this.uniforms, this.view, { look, at, normal, color });
  }

  /** The point of the file that is seen nearest to a place of the screen. */
  pick(x: number, y: number, reach = 40): Hit | undefined {
    return nearestPoint(
      {
        scene: this.scene,
        space: this.space,
        view: this.view,
        isHidden: (object) => this.hidden.has(object),
        isClipped: (px, py, pz) => this.isClipped(px, py, pz),
      },
      [x, y],
      reach,
    );
  }

  coordinates(geometry: number, point: number): Triple {
    return coordinatesOf(this.scene.places, geometry, point);
  }

  /** Where a point of the file is drawn in the scene. */
  placeOf({ geometry, point }: Hit): readonly [number, number, number] {
    const [x, y, z] = this.space.point(...this.coordinates(geometry, point));
    return [x, y, this.flat ? layer(geometry, this.scene.objects.length) : z];
  }

  dispose(): void {
    this.drawing.dispose();
    this.rulers?.dispose();
    this.backdrop?.dispose();
    this.atlas.dispose();
    this.uniforms.shownObjects.value.dispose();
    this.rulerUniforms.shownObjects.value.dispose();
  }

  /** Objects have the names of the plot document, of their geometries, or numbers. */
  private nameObjects(): void {
    const { objectNames } = this.scene;
    const count = Math.max(objectNames.length, this.text.objects.length);
    if (this.objects.length === count) return;
    const plain = { legend: undefined, color: undefined, scale: undefined };
    this.objects = Array.from(
      { length: count },
      (_, i) => this.text.objects[i] ?? { name: objectNames[i] || `Object ${i + 1}`, ...plain },
    );
    this.uniforms.shownObjects.value.dispose();
    this.uniforms.shownObjects.value = makeVisibility(count);
    this.updateVisibility();
  }

  private lookOf(): FrameLook {
    const { ink, ground } = this.surroundings;
    return frameLook(this.display, this.text.axes, ink, ground);
  }

  private makeDrawing(): Drawing {
    const ranges = this.display?.clip ?? [];
    const clipped = this.flat || ranges.some((range) => range !== undefined);
    const kind = { flat: this.flat, clipped, slow: this.engine.slow };
    return new Drawing(this.scene, this.uniforms, this.atlas, this.texts, kind);
  }

  private updateVisibility(): void {
    const texture = this.uniforms.shownObjects.value;
    const data = texture.image.data as Uint8Array;
    for (let i = 0; i < this.objects.length; i++) data[i] = this.hidden.has(i) ? 0 : 255;
    texture.needsUpdate = true;
  }

  private updateUniforms(width: number, height: number, pixelRatio: number, rough: boolean): void {
    const { view } = this;
    for (const uniforms of [this.uniforms, this.rulerUniforms]) {
      uniforms.viewport.value.set(width, height);
      uniforms.pixelRatio.value = pixelRatio;
      uniforms.leastCover.value = rough ? LEAST_COVER_ROUGH : LEAST_COVER;
      uniforms.pixelsPerUnit.value = pixelRatio / view.unitsPerPixel;
      uniforms.viewDirection.value.copy(view.state.toEye).negate();
      uniforms.parallel.value = view.state.field === 0;
      const [r, g, b] = this.surroundings.ink;
      uniforms.ink.value.set(r / 255, g / 255, b / 255, this.isDarkened ? 1 : 0);
    }
    this.updateClipping();
  }

  private updateClipping(): void {
    const { clipMin, clipMax } = this.uniforms;
    if (this.frame) {
      const { left, bottom, width, height } = this.frame;
      const [x0, y0] = fromPixels(this.view, left, bottom);
      const [x1, y1] = fromPixels(this.view, left + width, bottom + height);
      // A line along the edge is drawn in its full width.
      const room = 2 * this.view.unitsPerPixel;
      clipMin.value.set(x0 - room, y0 - room, -1e9);
      clipMax.value.set(x1 + room, y1 + room, 1e9);
      return;
    }
    const ranges = this.display?.clip ?? [];
    for (const axis of AXES) {
      const range = ranges[axis];
      clipMin.value.setComponent(axis, range ? this.space.toScene(axis, range[0]) - 1e-6 : -1e9);
      clipMax.value.setComponent(axis, range ? this.space.toScene(axis, range[1]) + 1e-6 : 1e9);
    }
  }

  /** The box in the scene outside of which nothing is drawn. */
  get clipBox(): { min: Vector3; max: Vector3 } {
    return { min: this.uniforms.clipMin.value, max: this.uniforms.clipMax.value };
  }

  private isClipped(x: number, y: number, z: number): boolean {
    const low = this.uniforms.clipMin.value;
    const high = this.uniforms.clipMax.value;
    return x < low.x || y < low.y || z < low.z || x > high.x || y > high.y || z > high.z;
  }

  /** Lays the rulers out for the view as it is. */
  private layOut(): RulerLayout {
    if (this.homeFrame) return this.layOutFlat(this.homeFrame);
    const layout = this.newLayout();
    if (!this.flat) new Rulers3d(layout, this.shownLook, this.space).draw();
    return layout;
  }

  /** Where numbers are longer than in the home view, the frame gives way. */
  private layOutFlat(home: Rectangle): RulerLayout {
    const layout = this.layOutIn(home);
    const beyond = beyondPicture(layout.rectangles, this.view.size);
    return isNoRoom(beyond) ? layout : this.layOutIn(inset(home, beyond));
  }

  private layOutIn(frame: Rectangle): RulerLayout {
    const layout = this.newLayout();
    this.frame = frame;
    new Rulers2d(layout, this.shownLook, this.space, frame).draw();
    return layout;
  }

  private readonly labelPlaces = (): readonly Rectangle[] => this.layOut().rectangles;

  private newLayout(): RulerLayout {
    return new RulerLayout(this.view, (label) => this.atlas.measure(label));
  }

  private get shownLook(): FrameLook {
    return { ...this.look, visible: this.shown.axes, box: this.shown.box };
  }

  private placeLabels(layout: RulerLayout): PlacedLabels {
    const isShown = ({ object, at }: Label): boolean =>
      this.shown.labels && !this.hidden.has(object) && !this.isClipped(...at);
    return placeLabels(this.scene.labels, this.view, layout.measure, layout.free, isShown);
  }

  /** Puts the box of a flat scene into the picture, so that no label is cut off. */
  private fitFlat(): void {
    const measure = (text: string, style: TextStyle): readonly [number, number] =>
      this.atlas.measure({ text, at: [0, 0, 0], style, anchor: [0, 0], shift: [0, 0], object: 0 });
    const room = margins(this.shownLook, this.view.size, measure);
    const labelsIn = (frame: Rectangle): readonly Rectangle[] => {
      this.showIn(frame);
      return this.layOutIn(frame).rectangles;
    };
    this.homeFrame = fitFrame(this.view.size, this.space, room, labelsIn);
    this.showIn(this.homeFrame);
  }

  /** Makes the view show the whole box in a rectangle of the picture. */
  private showIn({ left, bottom, width, height }: Rectangle): void {
    const { view, space } = this;
    const unit = (2 * space.half[0]) / width;
    const state = homeView(this.display, space);
    state.span = unit * Math.min(view.size.width, view.size.height);
    state.target.set(
      (view.size.width / 2 - left - width / 2) * unit,
      (view.size.height / 2 - bottom - height / 2) * unit,
      0,
    );
    view.moveHome(state);
  }

  private sort(): void {
    const { toEye, field } = this.view.state;
    const { eye } = this.view;
    const key = [...(field > 0 ? eye : toEye)].map((value) => value.toFixed(2)).join();
    if (key === this.sortedFor) return;
    this.sortedFor = key;
    this.drawing.sort(this.view);
  }
}
