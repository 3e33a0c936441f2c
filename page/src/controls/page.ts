/** The whole page: its panels in their layout, the animation, dropped files. */
import { plainPanel, type PageText, type PanelText } from '../data/contract';
import type { Loader } from '../data/load';
import type { Source } from '../data/source';
import type { ReadResult } from '../javaview/reader';
import { Engine } from '../scene/engine';
import type { Content, Surroundings } from '../scene/plot';
import { button, element } from './dom';
import { Panel, textLine } from './panel';
import { Player } from './player';

const LIGHT: Surroundings = { ink: [32, 32, 36], ground: [255, 255, 255] };
const DARK: Surroundings = { ink: [225, 225, 230], ground: [24, 24, 28] };

/** How a picture is asked for: the page without its controls, opened with this behind a "#". */
export interface Mode {
  picture: boolean;
  transparent: boolean;
}

export function modeOf(hash: string): Mode {
  const words = new Set(hash.replace(/^#/, '').split(/[&,]/));
  return { picture: words.has('picture'), transparent: words.has('transparent') };
}

interface PanelSet {
  text: PanelText;
  panel: Panel;
}

export class Page {
  private readonly area = element('div', { class: 'area' });
  private readonly message = element('p', { class: 'message', attributes: { role: 'status' } });
  private panels: PanelSet[] = [];
  private engine: Engine | undefined;
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
    if (text.background !== undefined) root.style.setProperty('--canvas', text.background);
    this.dark.addEventListener('change', () => {
      for (const { panel } of this.panels) panel.setSurroundings(this.surroundings);
    });
  }

  get surroundings(): Surroundings {
    return this.dark.matches && !this.mode.picture ? DARK : LIGHT;
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
      ...[header, this.area, this.message, footer].filter((some) => some !== undefined),
    );
    this.acceptFiles();
    if (this.text.panels.length === 0) {
      this.invite();
      return;
    }
    try {
      this.engine = new Engine(() => this.redraw());
    } catch {
      await this.showNumbers();
      return;
    }
    this.arrange();
    const first = this.text.animation?.initial ?? 0;
    for (const text of this.text.panels) await this.addPanel(text, first);
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

  private async addPanel(text: PanelText, frame: number): Promise<void> {
    try {
      const content = await this.content(text, frame);
      this.putPanel(text, content, frame);
    } catch (error) {
      this.fail(text.name, error);
    }
  }

  private putPanel(text: PanelText, content: Content, frame: number): void {
    const { model, display } = text.frames[Math.min(frame, text.frames.length - 1)]!;
    const panel = new Panel(
      this.engine!,
      text,
      content,
      {
        model: this.block(model),
        display: display === undefined ? undefined : this.block(display),
      },
      this.surroundings,
      () => this.mode.transparent,
    );
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

  private block(name: string): Source {
    const source = this.blocks.get(name);
    if (!source) throw new Error(`the page has no data named "${name}"`);
    return source;
  }

  private async content(text: PanelText, frame: number): Promise<Content> {
    const frameText = text.frames[Math.min(frame, text.frames.length - 1)];
    if (!frameText) throw new Error('there is nothing to show');
    const [model, display] = await Promise.all([
      this.read(frameText.model),
      frameText.display === undefined ? undefined : this.read(frameText.display),
    ]);
    if (!model.whole) this.message.textContent = 'The file is cut off; this is what it holds.';
    return { geometries: model.geometries, display: display?.displays[0], frame: frameText };
  }

  private read(name: string): Promise<ReadResult> {
    return this.loader.load(this.block(name));
  }

  private addPlayer(): void {
    const { animation } = this.text;
    if (!animation) return;
    /** The frame that comes next, read ahead; older ones are let go. */
    const ahead = new Map<number, Promise<Content[]>>();
    const get = (frame: number): Promise<Content[]> => {
      const known = ahead.get(frame);
      if (known) return known;
      const contents = Promise.all(this.panels.map(({ text }) => this.content(text, frame)));
      ahead.set(frame, contents);
      return contents;
    };
    let shown = animation.initial;
    const player = new Player(animation, async (frame) => {
      try {
        if (frame === shown) return;
        const contents = await get(frame);
        contents.forEach((content, i) => this.panels[i]!.panel.setContent(content));
        const step = frame >= shown ? 1 : -1;
        shown = frame;
        for (const key of ahead.keys()) if (key !== frame + step) ahead.delete(key);
        const next = frame + step;
        if (next >= 0 && next < animation.times.length) get(next).catch(() => undefined);
      } catch (error) {
        this.fail('', error);
      }
    });
    this.area.after(player.element);
    document.addEventListener('keydown', (event) => {
      const target = event.target as HTMLElement;
      if (target.closest('button, input, select, a') || event.ctrlKey || event.metaKey) return;
      if (player.key(event.key)) event.preventDefault();
    });
    player.start();
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
      const read = await Promise.all(
        files.map(async (file) => ({ file, result: await this.loader.load({ file }) })),
      );
      const models = read.filter(({ result }) => result.root === 'jvx-model');
      if (models.length === 0) throw new Error('there is no JVX file among them');
      this.engine ??= new Engine(() => this.redraw());
      for (const { panel } of this.panels) panel.dispose();
      this.panels = [];
      this.area.replaceChildren();
      this.root.querySelector('.player')?.remove();
      this.area.classList.remove('placed');
      this.area.classList.add(models.length > 1 ? 'several' : 'single');
      this.area.style.setProperty('--columns', String(Math.ceil(Math.sqrt(models.length))));
      const displays = read.filter(({ result }) => result.root === 'jv-disp');
      models.forEach(({ file, result }, i) => {
        const stem = (name: string): string => name.replace(/(\.gz|\.jvx|\.jvd|\.xml)+$/i, '');
        const display =
          displays.find((other) => stem(other.file.name) === stem(file.name)) ?? displays[i];
        const text = plainPanel(result.title || stem(file.name), '', undefined);
        const frame = text.frames[0]!;
        const content = {
          geometries: result.geometries,
          display: display?.result.displays[0] ?? result.displays[0],
          frame,
        };
        this.panels.push({ text, panel: this.droppedPanel(text, content, file, display?.file) });
      });
      for (const { panel } of this.panels) this.area.append(panel.element);
      const whole = read.every(({ result }) => result.whole);
      this.message.textContent = whole ? '' : 'The file is cut off; this is what it holds.';
    } catch (error) {
      this.fail(files[0]!.name, error);
    }
  }

  private droppedPanel(
    text: PanelText,
    content: Content,
    model: File,
    display: File | undefined,
  ): Panel {
    return new Panel(
      this.engine!,
      text,
      content,
      { model: { file: model }, display: display ? { file: display } : undefined },
      this.surroundings,
      () => this.mode.transparent,
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
        const { geometries } = await this.content(text, 0);
        const lines = geometries.flatMap(({ points, dimension }) => {
          const { coordinates } = points;
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
