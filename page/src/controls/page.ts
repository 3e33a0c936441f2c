/** The whole page: its panels in their layout, the animation, dropped files. */
import {
  PLAIN_BOX,
  plainPanel,
  type FrameText,
  type PageText,
  type PanelText,
} from '../data/contract';
import type { Loader } from '../data/load';
import { rootOf, type SceneTexts } from '../data/read';
import { sizeOf, type Source } from '../data/source';
import { checkRoot } from '../javaview/reader';
import { brightness, hexToRgb } from '../scene/colors';
import { Engine } from '../scene/engine';
import { LINEAR, type Flags, type SpaceParts } from '../scene/space';
import type { Content, Surroundings } from '../scene/plot';
import { warmUp } from '../scene/warm';
import { button, element } from './dom';
import { legendEntries } from './legend';
import { Panel, textLine, type Mode } from './panel';
import { Player } from './player';

/** A ground that is brighter than this has dark texts. */
const MIDDLE = 0.5;

/** In bytes, packed: a mesh of some ten thousand points. */
const LONG_TEXT = 150_000;

const LIGHT: Surroundings = { ink: [32, 32, 36], ground: [255, 255, 255], darkened: false };
const DARK: Surroundings = { ink: [225, 225, 230], ground: [24, 24, 28], darkened: true };

/** What the address says behind its "#". */
export function modeOf(hash: string): Mode {
  const words = new Set(hash.replace(/^#/, '').split(/[&,]/));
  return { picture: words.has('picture'), transparent: words.has('transparent') };
}

interface Dropped {
  text: PanelText;
  texts: SceneTexts;
  content: Content;
}

interface PanelSet {
  text: PanelText;
  panel: Panel;
}

const CUT_OFF = 'The file is cut off; this is what it holds.';

function frameOf(text: PanelText, frame: number): FrameText {
  const found = text.frames[Math.min(frame, text.frames.length - 1)];
  if (!found) throw new Error('there is nothing to show');
  return found;
}

/** The name of a file without its endings, which a model and its display share. */
const stem = (name: string): string => name.replace(/(\.gz|\.jvx|\.jvd|\.xml)+$/i, '');

export class Page {
  private readonly area = element('div', { class: 'area' });
  private readonly room = element('div', { class: 'room' }, this.area);
  private readonly message = element('p', { class: 'message', attributes: { role: 'status' } });
  private panels: PanelSet[] = [];
  private engine: Engine | undefined;
  private player: Player | undefined;
  private readonly dark = matchMedia('(prefers-color-scheme: dark)');

  constructor(
    private readonly root: HTMLElement,
    private readonly text: PageText,
    private readonly blocks: ReadonlyMap<string, Source>,
    private readonly loader: Loader,
    private readonly mode: Mode,
  ) {
    document.documentElement.classList.toggle('picture', mode.picture);
    document.documentElement.classList.toggle('transparent', mode.transparent);
    this.applyScheme();
    this.dark.addEventListener('change', () => {
      this.applyScheme();
      for (const { panel } of this.panels) panel.setSurroundings(this.surroundings);
    });
  }

  /** Those of the canvas where it has a ground, or else as the reader likes them. */
  get surroundings(): Surroundings {
    const { background } = this.text;
    if (background === undefined) {
      return this.dark.matches && !this.mode.picture ? DARK : LIGHT;
    }
    const ground = hexToRgb(background);
    return { ink: (brightness(ground) < MIDDLE ? DARK : LIGHT).ink, ground, darkened: false };
  }

  private applyScheme(): void {
    const { ground } = this.surroundings;
    const { dataset, style } = document.documentElement;
    dataset.scheme = brightness(ground) < MIDDLE ? 'dark' : 'light';
    const { background } = this.text;
    if (background !== undefined) style.setProperty('--ground', background);
  }

  /** The panels in their order, for tests and for hosts of the page. */
  get all(): readonly Panel[] {
    return this.panels.map(({ panel }) => panel);
  }

  get drawingEngine(): Engine | undefined {
    return this.engine;
  }

  async show(): Promise<void> {
    this.root.append(element('h1', { class: 'unseen', text: document.title }));
    const header = textLine(this.text.header, 'header');
    const footer = textLine(this.text.footer, 'footer');
    this.root.append(
      ...[header, this.room, this.message, footer].filter((some) => some !== undefined),
    );
    this.acceptFiles();
    if (this.text.panels.length === 0) {
      this.invite();
      return;
    }
    const first = this.text.animation?.initial ?? 0;
    // The first text is read while the browser gets ready to draw.
    const ahead = this.content(this.text.panels[0]!, first);
    ahead.catch(() => undefined);
    try {
      this.engine = new Engine(() => this.redraw());
      if (this.isLong(this.text.panels[0]!, first)) warmUp(this.engine);
    } catch {
      await this.showNumbers();
      return;
    }
    this.arrange();
    for (const [i, text] of this.text.panels.entries()) {
      await this.addPanel(text, i === 0 ? ahead : this.content(text, first), first);
    }
    this.addPlayer();
  }

  private redraw(): void {
    for (const { panel } of this.panels) panel.request();
  }

  /** Panels at their places, or in rows and columns. */
  private arrange(): void {
    const { panels, columns, aspect } = this.text;
    if (aspect !== undefined) this.area.style.setProperty('--aspect', String(aspect));
    if (panels.length > 1 && panels.every((panel) => panel.place)) {
      this.area.classList.add('placed');
      return;
    }
    const count = columns ?? Math.ceil(Math.sqrt(panels.length));
    this.area.style.setProperty('--columns', String(Math.max(1, Math.min(count, 12))));
    this.area.classList.add(panels.length > 1 ? 'several' : 'single');
  }

  private async addPanel(text: PanelText, content: Promise<Content>, frame: number): Promise<void> {
    try {
      this.putPanel(text, await content, frame);
    } catch (error) {
      this.fail(text.name, error);
    }
  }

  private putPanel(text: PanelText, content: Content, frame: number): void {
    const panel = this.makePanel(text, content, this.textsOf(frameOf(text, frame)));
    if (text.place && this.area.classList.contains('placed')) {
      const { left, top, width, height } = text.place;
      const { style } = panel.element;
      style.left = `${left * 100}%`;
      style.top = `${top * 100}%`;
      style.width = `${width * 100}%`;
      style.height = `${height * 100}%`;
    }
    this.panels.push({ text, panel });
    this.area.append(panel.element);
  }

  /** Whether a text takes longer to read than the first programs to compile. */
  private isLong({ frames }: PanelText, frame: number): boolean {
    const source = this.blocks.get(frames[Math.min(frame, frames.length - 1)]?.model ?? '');
    return source !== undefined && sizeOf(source) > LONG_TEXT;
  }

  private block(name: string): Source {
    const source = this.blocks.get(name);
    if (!source) throw new Error(`the page has no data named "${name}"`);
    return source;
  }

  private textsOf({ model, display }: FrameText): SceneTexts {
    return {
      model: this.block(model),
      display: display === undefined ? undefined : this.block(display),
    };
  }

  private makePanel(text: PanelText, content: Content, texts: SceneTexts): Panel {
    return new Panel(this.engine!, text, content, texts, this.surroundings, this.mode);
  }

  /** A frame, in the space of an earlier one if that is given. */
  private async content(text: PanelText, frame: number, space?: SpaceParts): Promise<Content> {
    const { model, display, runs } = frameOf(text, frame);
    const texts = this.textsOf({ model, display, runs });
    const { x, y, z } = text.axes;
    const logarithmic: Flags = [x.logarithmic, y.logarithmic, z.logarithmic];
    const marked = legendEntries(text.objects);
    const order = { runs, logarithmic, box: text.box, marked, space };
    const scene = await this.loader.load(texts, order);
    if (!scene.whole) this.message.textContent = CUT_OFF;
    return { name: model, scene };
  }

  private addPlayer(): void {
    const { animation } = this.text;
    if (!animation) return;
    /** The frame that comes next, read ahead; older ones are let go. */
    const ahead = new Map<number, Promise<Content[]>>();
    const get = (frame: number): Promise<Content[]> => {
      const known = ahead.get(frame);
      if (known) return known;
      const contents = Promise.all(
        this.panels.map(({ text, panel }) => this.content(text, frame, panel.plot.scene.space)),
      );
      ahead.set(frame, contents);
      return contents;
    };
    let shown = animation.initial;
    const player = new Player(animation, async (frame) => {
      try {
        if (frame === shown) return;
        const contents = await get(frame);
        if (this.player !== player) return;
        this.panels.forEach(({ text, panel }, i) =>
          panel.setContent(contents[i]!, this.textsOf(frameOf(text, frame))),
        );
        const step = frame >= shown ? 1 : -1;
        shown = frame;
        for (const key of ahead.keys()) if (key !== frame + step) ahead.delete(key);
        const next = frame + step;
        if (next >= 0 && next < animation.times.length) get(next).catch(() => undefined);
      } catch (error) {
        this.fail('', error);
      }
    });
    this.player = player;
    this.placePlayer(player);
    document.addEventListener('fullscreenchange', () => this.placePlayer(player));
    document.addEventListener('keydown', (event) => {
      const target = event.target as HTMLElement;
      if (target.closest('button, input, select, a') || event.ctrlKey || event.metaKey) return;
      if (this.player?.key(event.key)) event.preventDefault();
    });
    player.start();
  }

  /** The player goes with the panel that fills the screen. */
  private placePlayer(player: Player): void {
    if (this.player !== player) return;
    const full = this.all.find((panel) => panel.element === document.fullscreenElement);
    if (full) full.element.append(player.element);
    else this.room.after(player.element);
  }

  private fail(name: string, error: unknown): void {
    const reason = error instanceof Error ? error.message : String(error);
    const subject = name === '' ? 'The plot' : `\u201c${name}\u201d`;
    this.message.textContent = `${subject} cannot be shown: ${reason}.`;
  }

  /** A page without a plot is a viewer. */
  private invite(): void {
    const input = element('input', {
      attributes: {
        type: 'file',
        multiple: '',
        accept: '.jvx,.jvd,.gz,.xml',
        'aria-label': 'Files',
      },
    });
    input.hidden = true;
    input.addEventListener('change', () => void this.openFiles([...(input.files ?? [])]));
    const text = 'Drop a JVX file here, with its JVD file if there is one.';
    const open = button('Open files', undefined, () => input.click());
    this.area.append(element('div', { class: 'invitation' }, element('p', { text }), open, input));
  }

  private acceptFiles(): void {
    this.root.addEventListener('dragover', (event) => {
      event.preventDefault();
      this.root.classList.add('dropping');
    });
    this.root.addEventListener('dragleave', () => this.root.classList.remove('dropping'));
    this.root.addEventListener('drop', (event) => {
      event.preventDefault();
      this.root.classList.remove('dropping');
      void this.openFiles([...(event.dataTransfer?.files ?? [])]);
    });
  }

  /** Shows files in the place of what was there. */
  async openFiles(files: readonly File[]): Promise<void> {
    if (files.length === 0) return;
    this.message.textContent = 'Reading…';
    try {
      const dropped = await this.readFiles(files);
      this.engine ??= new Engine(() => this.redraw());
      for (const { panel } of this.panels) panel.dispose();
      this.area.replaceChildren();
      this.player?.end();
      this.player = undefined;
      this.area.classList.remove('placed');
      this.area.classList.add(dropped.length > 1 ? 'several' : 'single');
      this.area.style.setProperty('--columns', String(Math.ceil(Math.sqrt(dropped.length))));
      this.panels = dropped.map(({ text, content, texts }) => ({
        text,
        panel: this.makePanel(text, content, texts),
      }));
      for (const { panel } of this.panels) this.area.append(panel.element);
      const whole = dropped.every(({ content }) => content.scene.whole);
      this.message.textContent = whole ? '' : CUT_OFF;
    } catch (error) {
      this.fail(files[0]!.name, error);
    }
  }

  /** Each model with the display of its name, or else with the next that has the name of none. */
  private async readFiles(files: readonly File[]): Promise<Dropped[]> {
    const kinds = await Promise.all(
      files.map(async (file) => {
        const root = await rootOf({ file });
        checkRoot(root);
        return { file, root };
      }),
    );
    const ofKind = (kind: string): File[] =>
      kinds.filter(({ root }) => root === kind).map(({ file }) => file);
    const models = ofKind('jvx-model');
    const displays = ofKind('jv-disp');
    if (models.length === 0) throw new Error('there is no JVX file among them');
    const isPair = (one: File, other: File): boolean => stem(one.name) === stem(other.name);
    const unclaimed = displays.filter((display) => !models.some((model) => isPair(model, display)));
    const choices = models.map(
      (model) => displays.find((display) => isPair(model, display)) ?? unclaimed.shift(),
    );
    return Promise.all(
      models.map(async (file, i) => {
        const display = choices[i];
        const texts = { model: { file }, display: display && { file: display } };
        const order = {
          runs: [],
          logarithmic: LINEAR,
          box: PLAIN_BOX,
          marked: [],
          space: undefined,
        };
        const scene = await this.loader.load(texts, order);
        const text = plainPanel(scene.title || stem(file.name), '', undefined);
        return { text, texts, content: { name: file.name, scene } };
      }),
    );
  }

  /** What a browser shows that cannot draw: a sentence and the numbers. */
  private async showNumbers(): Promise<void> {
    this.area.append(
      element('p', {
        text: 'This browser cannot draw the plot, since it has no WebGL. These are its numbers.',
      }),
    );
    for (const text of this.text.panels) {
      try {
        const { scene } = await this.content(text, 0);
        const { values, begins, ends, dimensions } = scene.places;
        const lines = [...dimensions].flatMap((dimension, g) => {
          const coordinates = values.subarray(begins[g], ends[g]);
          return Array.from({ length: Math.min(coordinates.length / 3, 1000) }, (_, i) =>
            [...coordinates.subarray(i * 3, i * 3 + dimension)].join(' '),
          );
        });
        const numbers = lines.slice(0, 5000).join('\n');
        this.area.append(
          element('pre', {
            class: 'numbers',
            text: numbers,
            attributes: { tabindex: '0', 'aria-label': 'Numbers' },
          }),
        );
      } catch (error) {
        this.fail(text.name, error);
      }
    }
  }
}
