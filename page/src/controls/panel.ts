/** One plot of the page: its drawing, its texts and its buttons. */
import { Vector3 } from 'three';
import type { PanelText, TextLine } from '../data/contract';
import type { SceneTexts } from '../data/read';
import { cssFont } from '../scene/atlas';
import { brightness, hexToRgb } from '../scene/colors';
import type { Engine } from '../scene/engine';
import type { Hit } from '../scene/pick';
import { Plot, type Content, type Surroundings } from '../scene/plot';
import { AXES, type Axis } from '../scene/space';
import { describe } from './describe';
import { ICONS, button, checkbox, element, menu, newId } from './dom';
import { Gestures } from './gestures';
import { makeLegend } from './legend';
import { makeObjectList } from './objects';
import { makeSaveMenu, type Savable } from './save';

/** So long after the last movement everything is drawn finely, in milliseconds. */
const REST = 180;
/** The field of a view in perspective of a plot that is parallel itself. */
const FIELD_OF_PARALLEL_PLOTS = 0.3;

export function textLine(line: TextLine | undefined, name: string): HTMLElement | undefined {
  if (!line || line.text.trim() === '') return undefined;
  const made = element('p', { class: `line ${name}`, text: line.text });
  made.style.font = cssFont({ ...line, color: [0, 0, 0] }, 1);
  made.style.textAlign = line.align;
  if (line.color !== undefined) {
    const bright = brightness(hexToRgb(line.color));
    made.style.setProperty('--own', line.color);
    made.classList.toggle('dim', bright < 0.3);
    made.classList.toggle('bright', bright > 0.85);
  }
  return made;
}

/** How a picture is asked for: the page without its controls. */
export interface Mode {
  picture: boolean;
  transparent: boolean;
}

export class Panel {
  readonly element: HTMLElement;
  readonly plot: Plot;
  private readonly canvas = element('canvas', { attributes: { 'aria-hidden': 'true' } });
  private readonly stage: HTMLElement;
  private readonly tip = element('div', { class: 'tip' });
  private readonly pinned = element('div', { class: 'tip pinned', attributes: { role: 'status' } });
  private readonly description = element('p', { class: 'unseen' });
  private readonly fullScreen = button('Full screen', ICONS.full, () => this.toggleFullScreen());
  private readonly parallel = checkbox('Parallel', false, (on) => this.setParallel(on));
  /** The field of the view that was left for a parallel one. */
  private perspective = FIELD_OF_PARALLEL_PLOTS;
  private legend: HTMLElement | undefined;
  private pin: Hit | undefined;
  private requested = false;
  private rest: ReturnType<typeof setTimeout> | undefined;
  private moving = false;
  private readonly observer: ResizeObserver;

  constructor(
    private readonly engine: Engine,
    readonly text: PanelText,
    content: Content,
    private sources: SceneTexts,
    surroundings: Surroundings,
    private readonly mode: Mode,
  ) {
    this.plot = new Plot(engine, text, content, surroundings);
    this.tip.hidden = true;
    this.pinned.hidden = true;
    this.description.id = newId('description');
    this.stage = this.makeStage();
    this.legend = this.makeLegend();
    const above = text.legend.placement === 'top';
    this.element = element(
      'section',
      { class: 'panel', attributes: { 'aria-label': text.name || text.header?.text || 'Plot' } },
      textLine(text.header, 'header'),
      above ? this.legend : undefined,
      element('div', { class: 'frame' }, this.stage, this.makeTools()),
      above ? undefined : this.legend,
      textLine(text.footer, 'footer'),
      this.description,
    );
    this.element.addEventListener('fullscreenchange', () => this.markFullScreen());
    this.markFullScreen();
    new Gestures(this.stage, this.plot.view, {
      moved: (moving) => this.moved(moving),
      hover: (x, y) => this.hover(x, y),
      leave: () => (this.tip.hidden = true),
      click: (x, y) => this.click(x, y),
      doubleClick: (x, y) => this.center(x, y),
      reset: () => this.reset(),
      lookFrom: (axis, sign) => this.plot.lookFrom(axis, sign),
    });
    this.stage.addEventListener('keydown', (event) => {
      if (event.key === 'Escape') this.unpin();
      if (event.key === 'Enter' && event.target === this.stage) this.pinMiddle();
    });
    this.observer = new ResizeObserver(() => this.resize());
    this.observer.observe(this.stage);
    this.describe();
  }

  private makeStage(): HTMLElement {
    const { header, name } = this.text;
    return element(
      'div',
      {
        class: 'stage',
        attributes: {
          tabindex: '0',
          role: 'application',
          'aria-roledescription': 'plot',
          'aria-label': header?.text || name || 'Plot',
          'aria-describedby': this.description.id,
        },
      },
      this.canvas,
      this.tip,
      this.pinned,
    );
  }

  /** Shows another frame, and the texts that it comes from. */
  setContent(content: Content, sources: SceneTexts): void {
    this.sources = sources;
    this.plot.setContent(content);
    this.unpin();
    this.describe();
    this.request();
  }

  setSurroundings(surroundings: Surroundings): void {
    this.plot.setSurroundings(surroundings);
    const legend = this.makeLegend();
    if (legend) this.legend?.replaceWith(legend);
    this.legend = legend;
    this.request();
  }

  /** Whether the last movement was just now; finer pictures come a moment later. */
  get isMoving(): boolean {
    return this.moving;
  }

  /** Asks for a new picture before the next frame of the screen. */
  request(): void {
    if (this.requested) return;
    this.requested = true;
    requestAnimationFrame(() => {
      this.requested = false;
      this.draw();
    });
  }

  draw(): void {
    const { clientWidth: width, clientHeight: height } = this.stage;
    if (width === 0 || height === 0 || this.engine.lost) return;
    const density = Math.min(
      window.devicePixelRatio || 1,
      this.engine.largest / Math.max(width, height),
    );
    const picture = this.plot.draw(density, this.moving, this.mode.transparent);
    if (this.canvas.width !== picture.width || this.canvas.height !== picture.height) {
      this.canvas.width = picture.width;
      this.canvas.height = picture.height;
    }
    const context = this.canvas.getContext('2d')!;
    context.clearRect(0, 0, picture.width, picture.height);
    context.drawImage(picture, 0, 0);
    // The reset or the camera of a frame may have changed it.
    this.parallel.querySelector('input')!.checked = this.plot.view.state.field === 0;
    this.placePin();
  }

  /** A picture of the drawing in a multiple of its size. */
  picture(factor: number, transparent: boolean): HTMLCanvasElement {
    const { width, height } = this.plot.view.size;
    const copy = element('canvas');
    copy.width = Math.round(width * factor);
    copy.height = Math.round(height * factor);
    const density = Math.min(factor, this.engine.largest / Math.max(width, height));
    const drawn = this.plot.draw(density, false, transparent);
    copy.getContext('2d')!.drawImage(drawn, 0, 0, copy.width, copy.height);
    this.request();
    return copy;
  }

  dispose(): void {
    this.observer.disconnect();
    this.plot.dispose();
    this.element.remove();
  }

  private get savable(): Savable {
    return {
      plot: this.plot,
      name: this.text.name,
      sources: this.sources,
      picture: (f) => this.picture(f, this.mode.transparent),
    };
  }

  private makeLegend(): HTMLElement | undefined {
    const { objects, scene } = this.plot;
    return makeLegend(this.text.legend, objects, scene.marks, (color) => this.plot.seen(color));
  }

  private makeTools(): HTMLElement {
    const { plot } = this;
    const look = (axis: Axis, sign: 1 | -1) => (): void => {
      plot.lookFrom(axis, sign);
      this.moved(false);
    };
    const views = element(
      'div',
      { class: 'grid' },
      ...AXES.flatMap((axis) => [
        button(`From +${'xyz'[axis]}`, undefined, look(axis, 1)),
        button(`From \u2212${'xyz'[axis]}`, undefined, look(axis, -1)),
      ]),
    );
    const toggle = (name: string, key: 'axes' | 'box' | 'labels'): HTMLElement =>
      checkbox(name, plot.shown[key], (on) => {
        plot.shown[key] = on;
        this.request();
      });
    return element(
      'div',
      { class: 'tools', attributes: { role: 'toolbar', 'aria-label': 'Plot' } },
      button('Reset the view', ICONS.reset, () => this.reset()),
      plot.flat ? undefined : menu('View', ICONS.view, views, this.parallel),
      menu(
        'Show',
        ICONS.show,
        toggle('Axes', 'axes'),
        toggle('Box', 'box'),
        toggle('Labels', 'labels'),
      ),
      menu(
        'Objects',
        ICONS.objects,
        makeObjectList(plot, () => {
          this.describe();
          this.request();
        }),
      ),
      menu('Save', ICONS.save, ...makeSaveMenu(() => this.savable)),
      document.fullscreenEnabled ? this.fullScreen : undefined,
    );
  }

  private toggleFullScreen(): void {
    if (document.fullscreenElement) void document.exitFullscreen();
    else void this.element.requestFullscreen().catch(() => undefined);
  }

  private markFullScreen(): void {
    const isFull = document.fullscreenElement === this.element;
    this.fullScreen.setAttribute('aria-pressed', String(isFull));
  }

  private setParallel(on: boolean): void {
    const { state } = this.plot.view;
    if (on) this.perspective = state.field;
    state.field = on ? 0 : this.perspective;
    this.moved(false);
  }

  private reset(): void {
    this.plot.reset();
    this.moved(false);
  }

  private moved(moving: boolean): void {
    this.tip.hidden = true;
    this.moving = moving;
    clearTimeout(this.rest);
    if (moving) this.restLater();
    this.request();
  }

  private restLater(): void {
    clearTimeout(this.rest);
    this.rest = setTimeout(() => this.moved(false), REST);
  }

  private resize(): void {
    const { clientWidth: width, clientHeight: height } = this.stage;
    if (width === 0 || height === 0) return;
    this.plot.resize({ width, height });
    // A large surface is seen coarsely at once, and finely a moment later.
    if (this.plot.isLarge && !this.mode.picture) {
      this.moving = true;
      this.restLater();
    }
    this.draw();
  }

  private hover(x: number, y: number): void {
    const hit = this.plot.pick(x, y);
    this.tip.hidden = hit === undefined;
    if (hit) this.fillTip(this.tip, hit, hit.at);
  }

  private click(x: number, y: number): void {
    const hit = this.plot.pick(x, y);
    if (hit) this.pinHit(hit);
    else this.unpin();
  }

  /** Pins the point that is nearest to the middle, for those who do not point. */
  private pinMiddle(): void {
    const { width, height } = this.plot.view.size;
    const hit = this.plot.pick(width / 2, height / 2, Infinity);
    if (hit) this.pinHit(hit);
  }

  private pinHit(hit: Hit): void {
    this.pin = hit;
    this.tip.hidden = true;
    this.pinned.hidden = false;
    this.placePin();
  }

  private unpin(): void {
    this.pin = undefined;
    this.pinned.hidden = true;
  }

  private placePin(): void {
    if (!this.pin) return;
    const [x, y] = this.plot.view.toPixels(...this.plot.placeOf(this.pin));
    this.fillTip(this.pinned, this.pin, [x, y]);
  }

  private center(x: number, y: number): void {
    const hit = this.plot.pick(x, y);
    if (!hit) return;
    this.plot.view.state.target.copy(new Vector3(...this.plot.placeOf(hit)));
    this.moved(false);
  }

  private fillTip(tip: HTMLElement, hit: Hit, at: readonly [number, number]): void {
    const names = this.plot.flat ? ['x', 'y'] : ['x', 'y', 'z'];
    const rows = names.map((name, i) =>
      element(
        'div',
        { class: 'value' },
        element('span', { text: name }),
        element('span', { text: String(hit.coordinates[i]) }),
      ),
    );
    const object = this.plot.objects[hit.object];
    tip.replaceChildren(
      element('strong', { text: object?.name ?? '' }),
      ...rows,
      ...(tip === this.pinned ? [this.unpinButton()] : []),
    );
    const { width, height } = this.plot.view.size;
    const box = tip.getBoundingClientRect();
    const left = at[0] + 12 + box.width > width ? at[0] - 12 - box.width : at[0] + 12;
    const top = height - at[1] - box.height - 8;
    tip.style.transform = `translate(${Math.round(Math.max(0, left))}px, ${Math.round(Math.max(0, top))}px)`;
  }

  private unpinButton(): HTMLElement {
    const made = button('Unpin', 'M6 6l12 12M18 6 6 18', () => {
      this.unpin();
      this.stage.focus();
    });
    made.classList.add('close');
    return made;
  }

  private describe(): void {
    this.description.textContent = describe(this.plot);
  }
}
