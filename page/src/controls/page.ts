/** The whole page: its panels in their layout, the animation, dropped files. */
import { toPageText, type FrameText, type PageText, type PanelText } from '../data/contract';
import type { Loader } from '../data/load';
import type { SceneTexts } from '../data/read';
import { sizeOf, type Source } from '../data/source';
import { brightness, hexToRgb } from '../scene/colors';
import { Engine } from '../scene/engine';
import type { Flags, SpaceParts } from '../scene/space';
import type { Content, Surroundings } from '../scene/plot';
import { warmUp } from '../scene/warm';
import { button, element } from './dom';
import { FileError, readFiles, type Dropped } from './files';
import { legendEntries } from './legend';
import { makeNumbers, numbersSentence } from './numbers';
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

export class Page {
  private readonly area = element('div', { class: 'area' });
  private readonly room = element('div', { class: 'room' }, this.area);
  private readonly message = element('p', { class: 'message', attributes: { role: 'status' } });
  private readonly heading = element('h1', { class: 'unseen' });
  /** Opens further files, on a page that began without a plot. */
  private opener: HTMLElement | undefined;
  private panels: PanelSet[] = [];
  private engine: Engine | undefined;
  private player: Player | undefined;
  /** How many times files were opened. */
  private requests = 0;
  private readonly dark = matchMedia('(prefers-color-scheme: dark)');

  constructor(
    private readonly root: HTMLElement,
    private text: PageText,
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
    if (background === undefined) style.removeProperty('--ground');
    else style.setProperty('--ground', background);
  }

  /** The panels in their order, for tests and for hosts of the page. */
  get all(): readonly Panel[] {
    return this.panels.map(({ panel }) => panel);
  }

  get drawingEngine(): Engine | undefined {
    return this.engine;
  }

  async show(): Promise<void> {
    this.heading.textContent = document.title;
    this.root.append(this.heading);
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
    if (!this.canDraw()) {
      this.area.append(numbersSentence());
      await this.showPanels(ahead, first, ({ objects }, { scene }) =>
        this.area.append(makeNumbers(scene, objects)),
      );
      return;
    }
    if (this.isLong(this.text.panels[0]!, first)) warmUp(this.engine!);
    this.arrange();
    const isStillHere = await this.showPanels(ahead, first, (text, content) =>
      this.putPanel(text, content, first),
    );
    if (isStillHere) this.addPlayer();
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

  /**
   * Shows one panel after another, the first of which is being read already. Stops, and returns false,
   * when another plot has taken the place of this one.
   */
  private async showPanels(
    ahead: Promise<Content>,
    frame: number,
    show: (text: PanelText, content: Content) => void,
  ): Promise<boolean> {
    const opening = this.text;
    for (const [i, text] of opening.panels.entries()) {
      try {
        const content = await (i === 0 ? ahead : this.content(text, frame));
        if (this.text !== opening) return false;
        show(text, content);
      } catch (error) {
        if (this.text !== opening) return false;
        this.fail(text.name, error);
      }
    }
    return true;
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
    const opening = this.text;
    const scene = await this.loader.load(texts, order);
    if (!scene.whole && this.text === opening) this.message.textContent = CUT_OFF;
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
        for (const key of ahead.keys()) if (key !== frame) ahead.delete(key);
        const contents = await get(frame);
        if (player.ended.aborted) return;
        this.panels.forEach(({ text, panel }, i) =>
          panel.setContent(contents[i]!, this.textsOf(frameOf(text, frame))),
        );
        const step = frame >= shown ? 1 : -1;
        shown = frame;
        ahead.clear();
        const next = frame + step;
        if (next >= 0 && next < animation.times.length) get(next).catch(() => undefined);
      } catch (error) {
        if (!player.ended.aborted) this.fail('', error);
      }
    });
    this.player = player;
    this.placePlayer(player);
    const until = { signal: player.ended };
    document.addEventListener('fullscreenchange', () => this.placePlayer(player), until);
    const takeKey = (event: KeyboardEvent): void => {
      const target = event.target as HTMLElement;
      if (target.closest('button, input, select, a') || event.ctrlKey || event.metaKey) return;
      if (player.key(event.key)) event.preventDefault();
    };
    document.addEventListener('keydown', takeKey, until);
    player.start();
  }

  /** The player goes with the panel that fills the screen. */
  private placePlayer(player: Player): void {
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
    this.opener = element('div', { class: 'bar' }, open, input);
    this.area.append(element('div', { class: 'invitation' }, element('p', { text }), this.opener));
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

  /** Shows files in the place of what was there, unless others are asked for before they are read. */
  async openFiles(files: readonly File[]): Promise<void> {
    if (files.length === 0) return;
    const request = ++this.requests;
    this.message.textContent = 'Reading\u2026';
    try {
      const dropped = await readFiles(files, this.loader);
      if (request !== this.requests) return;
      this.clear(dropped.map(({ text }) => text.name).join(', '));
      this.showDropped(dropped);
      const whole = dropped.every(({ content }) => content.scene.whole);
      this.message.textContent = whole ? '' : CUT_OFF;
    } catch (error) {
      if (request !== this.requests) return;
      this.fail(error instanceof FileError ? error.file : '', error);
    }
  }

  /** Takes away everything of the plot that was there. */
  private clear(title: string): void {
    for (const { panel } of this.panels) panel.dispose();
    this.panels = [];
    this.player?.end();
    this.player = undefined;
    this.area.replaceChildren();
    this.area.classList.remove('placed', 'several', 'single');
    for (const line of this.root.querySelectorAll(':scope > .line')) line.remove();
    if (this.opener) this.room.after(this.opener);
    this.text = toPageText({ title });
    document.title = title;
    this.heading.textContent = title;
    this.applyScheme();
  }

  private showDropped(dropped: readonly Dropped[]): void {
    if (!this.canDraw()) {
      const numbers = dropped.map(({ content }) => makeNumbers(content.scene, []));
      this.area.append(numbersSentence(), ...numbers);
      return;
    }
    this.area.classList.add(dropped.length > 1 ? 'several' : 'single');
    this.area.style.setProperty('--columns', String(Math.ceil(Math.sqrt(dropped.length))));
    this.panels = dropped.map(({ text, content, texts }) => ({
      text,
      panel: this.makePanel(text, content, texts),
    }));
    for (const { panel } of this.panels) this.area.append(panel.element);
  }

  /** Whether there is, or can be, an engine. */
  private canDraw(): boolean {
    try {
      this.engine ??= new Engine(() => this.redraw());
      return true;
    } catch {
      return false;
    }
  }
}
