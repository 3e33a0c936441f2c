/** One picture of all texts of a scene, from which labels are drawn. */
import { CanvasTexture, LinearFilter } from 'three';
import type { Label, TextStyle } from './batches';

/** A place in the picture, in its pixels, and the size of the text there. */
export interface Glyphs {
  x: number;
  y: number;
  width: number;
  height: number;
}

const MARGIN = 2;
const SAFE_FAMILIES = 'system-ui, "DejaVu Sans", Arial, sans-serif';
const GENERIC = ['serif', 'sans-serif', 'monospace', 'cursive', 'fantasy', 'system-ui'];

/** What style sheets call the families that every machine has, by that and by their names in Java. */
const FAMILIES = new Map([
  ...GENERIC.map((name) => [name, name] as const),
  ['sansserif', 'sans-serif'],
  ['dialog', 'sans-serif'],
  ['monospaced', 'monospace'],
  ['dialoginput', 'monospace'],
]);

/** A font as style sheets write it; names of families are quoted, whatever they hold. */
export function cssFont(style: TextStyle, pixelRatio: number): string {
  const weight = style.bold ? 'bold ' : '';
  const slant = style.italic ? 'italic ' : '';
  const size = Math.min(Math.max(style.size, 1), 200) * pixelRatio;
  const name = style.family.replace(/["\\\n]/g, '').trim();
  const generic = FAMILIES.get(name.toLowerCase());
  const family = name === '' ? '' : `${generic ?? `"${name}"`}, `;
  return `${slant}${weight}${size}px ${family}${SAFE_FAMILIES}`;
}

export const cssColor = (color: readonly number[]): string =>
  `rgb(${color.slice(0, 3).map(Math.round).join(' ')})`;

const LINE_HEIGHT = 1.25;
/** How far a halo reaches beyond the letters, in pixels. */
export const HALO = 2;
/** The longest side of the picture. */
const LARGEST = 8192;
const LONGEST_LABEL = 300;
const MOST_WIDTHS = 20_000;

export class TextAtlas {
  readonly texture: CanvasTexture;
  private readonly canvas = document.createElement('canvas');
  private readonly context: CanvasRenderingContext2D;
  private readonly places = new Map<string, Glyphs>();
  private readonly widths = new Map<string, number>();
  private x = 0;
  private y = 0;
  private rowHeight = 0;
  private pixelRatio = 0;

  constructor() {
    this.canvas.width = 1024;
    this.canvas.height = 256;
    this.context = this.canvas.getContext('2d', { willReadFrequently: true })!;
    this.texture = new CanvasTexture(this.canvas);
    this.texture.flipY = false;
    this.texture.premultiplyAlpha = true;
    this.texture.generateMipmaps = false;
    this.texture.minFilter = LinearFilter;
    this.texture.magFilter = LinearFilter;
  }

  get size(): readonly [number, number] {
    return [this.canvas.width, this.canvas.height];
  }

  /** The width and height of a label in pixels of the page. */
  measure(label: Label): readonly [number, number] {
    const width = this.widthOf(label);
    const height = Math.ceil(label.style.size * LINE_HEIGHT);
    const angle = ((label.turns ?? 0) * Math.PI) / 2;
    const [along, across] = [Math.abs(Math.cos(angle)), Math.abs(Math.sin(angle))];
    return [
      Math.ceil(width * along + height * across - 1e-9),
      Math.ceil(width * across + height * along - 1e-9),
    ];
  }

  /** Places for all labels, drawn anew only where a text is not there yet. */
  place(labels: readonly Label[], pixelRatio: number): Glyphs[] {
    if (pixelRatio !== this.pixelRatio) this.clear(pixelRatio);
    const tried = this.tryPlace(labels);
    if (tried) return tried;
    this.clear(pixelRatio);
    const again = this.tryPlace(labels);
    if (again) return again;
    return this.grow() ? this.place(labels, pixelRatio) : labels.map(() => NO_GLYPHS);
  }

  dispose(): void {
    this.texture.dispose();
  }

  private widthOf({ text, style }: Label): number {
    const font = cssFont(style, 1);
    const key = `${font}|${text}`;
    const known = this.widths.get(key);
    if (known !== undefined) return known;
    if (this.widths.size >= MOST_WIDTHS) this.widths.clear();
    this.context.font = font;
    const width = Math.ceil(this.context.measureText(shorten(text)).width);
    this.widths.set(key, width);
    return width;
  }

  private clear(pixelRatio: number): void {
    this.pixelRatio = pixelRatio;
    this.places.clear();
    this.context.clearRect(0, 0, this.canvas.width, this.canvas.height);
    this.x = 0;
    this.y = 0;
    this.rowHeight = 0;
  }

  private grow(): boolean {
    const next = Math.max(this.canvas.width, this.canvas.height) * 2;
    if (next > LARGEST) return false;
    this.canvas.width = next;
    this.canvas.height = next;
    this.texture.dispose();
    this.clear(this.pixelRatio);
    return true;
  }

  private tryPlace(labels: readonly Label[]): Glyphs[] | undefined {
    const placed: Glyphs[] = [];
    for (const label of labels) {
      const { text, style, turns = 0 } = label;
      const colors = [style.color, style.halo ?? []].map(cssColor).join();
      const key = `${cssFont(style, 1)}|${colors}|${turns}|${text}`;
      const glyphs = this.places.get(key) ?? this.draw(label, key);
      if (!glyphs) return undefined;
      placed.push(glyphs);
    }
    return placed;
  }

  private draw(label: Label, key: string): Glyphs | undefined {
    const { context, canvas, pixelRatio } = this;
    const [cssWidth, cssHeight] = this.measure(label);
    const cssLine = Math.ceil(label.style.size * LINE_HEIGHT);
    const wanted = Math.ceil(cssWidth * pixelRatio);
    const most = canvas.width - 2 * MARGIN;
    if (wanted > most && canvas.width < LARGEST) return undefined;
    const width = Math.min(wanted, most);
    const height = Math.ceil(cssHeight * pixelRatio);
    if (this.x + width + 2 * MARGIN > canvas.width) {
      this.x = 0;
      this.y += this.rowHeight;
      this.rowHeight = 0;
    }
    if (this.y + height + 2 * MARGIN > canvas.height) return undefined;
    const glyphs = { x: this.x + MARGIN, y: this.y + MARGIN, width, height };
    context.save();
    // A wide halo stays off the texts beside this one.
    context.beginPath();
    context.rect(this.x, this.y, width + 2 * MARGIN, height + 2 * MARGIN);
    context.clip();
    context.translate(glyphs.x + width / 2, glyphs.y + height / 2);
    context.rotate((-(label.turns ?? 0) * Math.PI) / 2);
    context.translate(-this.widthOf(label) * 0.5 * pixelRatio, -cssLine * 0.5 * pixelRatio);
    context.font = cssFont(label.style, pixelRatio);
    context.fillStyle = cssColor(label.style.color);
    context.textBaseline = 'alphabetic';
    const text = shorten(label.text);
    const line = label.style.size * pixelRatio * 0.95;
    if (label.style.halo) {
      context.strokeStyle = cssColor(label.style.halo);
      context.lineWidth = 2 * HALO * pixelRatio;
      context.lineJoin = 'round';
      context.strokeText(text, 0, line);
    }
    context.fillText(text, 0, line);
    context.restore();
    this.x += width + 2 * MARGIN;
    this.rowHeight = Math.max(this.rowHeight, height + 2 * MARGIN);
    this.places.set(key, glyphs);
    this.texture.needsUpdate = true;
    return glyphs;
  }
}

const NO_GLYPHS: Glyphs = { x: 0, y: 0, width: 0, height: 0 };

function shorten(text: string): string {
  const line = text.replace(/\s+/g, ' ');
  return line.length > LONGEST_LABEL ? `${line.slice(0, LONGEST_LABEL - 1)}…` : line;
}
