/** The bar that plays an animation. */
import type { AnimationText } from '../data/contract';
import { ICONS, button, element, icon } from './dom';

const SPEEDS = [0.25, 0.5, 1, 2, 4] as const;

/** So many units of time pass in a second. */
const UNITS_PER_SECOND = 1;

/**
 * The frame that is nearest to a time. So the first and the last of an animation that goes on for ever
 * are both seen, each for half as long as the others.
 */
export function frameAt(times: readonly number[], time: number): number {
  let low = 0;
  let high = times.length - 1;
  while (low < high) {
    const middle = (low + high + 1) >> 1;
    if ((times[middle - 1]! + times[middle]!) / 2 <= time) low = middle;
    else high = middle - 1;
  }
  return low;
}

/**
 * Where an animation is after `elapsed` units of time since its beginning, and whether it has come
 * to its end.
 */
export function playedTime(
  animation: AnimationText,
  elapsed: number,
): { time: number; ended: boolean } {
  const { times, style } = animation;
  const begin = times[0]!;
  const length = times[times.length - 1]! - begin;
  if (style === 'once')
    return { time: begin + Math.min(elapsed, length), ended: elapsed >= length };
  if (style === 'loop') return { time: begin + (elapsed % length), ended: false };
  const within = elapsed % (2 * length);
  return { time: begin + (within <= length ? within : 2 * length - within), ended: false };
}

export class Player {
  readonly element: HTMLElement;
  private readonly life = new AbortController();
  /** Aborted when the player leaves the page. */
  readonly ended = this.life.signal;
  private readonly slider: HTMLInputElement;
  private readonly output = element('output');
  private readonly toggle: HTMLButtonElement;
  private speed = 1;
  private playing = false;
  private elapsed = 0;
  private last = 0;
  private busy = false;

  /** `show` draws a frame and resolves when it is there. */
  constructor(
    private readonly animation: AnimationText,
    private readonly show: (frame: number) => Promise<void>,
  ) {
    const last = animation.times.length - 1;
    this.slider = element('input', {
      attributes: { type: 'range', min: '0', max: String(last), step: '1', 'aria-label': 'Time' },
      on: { input: () => this.seek(Number(this.slider.value)) },
    });
    this.toggle = button('Play', ICONS.play, () => (this.playing ? this.pause() : this.play()));
    const style = element('select', { attributes: { 'aria-label': 'Repetition' } });
    for (const [value, name] of [
      ['once', 'Once'],
      ['loop', 'Loop'],
      ['backAndForth', 'Back and forth'],
    ] as const) {
      style.append(element('option', { text: name, attributes: { value } }));
    }
    style.value = animation.style;
    style.addEventListener('change', () => {
      animation.style = style.value as AnimationText['style'];
      this.seek(Number(this.slider.value));
    });
    const speed = element('select', { attributes: { 'aria-label': 'Speed' } });
    for (const value of SPEEDS) {
      speed.append(element('option', { text: `${value}×`, attributes: { value: String(value) } }));
    }
    speed.value = '1';
    speed.addEventListener('change', () => (this.speed = Number(speed.value)));
    this.element = element(
      'div',
      { class: 'player', attributes: { role: 'group', 'aria-label': 'Animation' } },
      button('One frame back', ICONS.back, () => this.step(-1)),
      this.toggle,
      button('One frame forward', ICONS.forward, () => this.step(1)),
      this.slider,
      this.output,
      speed,
      style,
    );
  }

  start(): void {
    this.seek(this.animation.initial);
    const still = matchMedia('(prefers-reduced-motion: reduce)').matches;
    if (this.animation.autoPlay && !still) this.play();
  }

  /** Leaves the page. */
  end(): void {
    this.pause();
    this.wanted = undefined;
    this.life.abort();
    this.element.remove();
  }

  /** Takes a key; false if it means nothing here. */
  key(key: string): boolean {
    if (key === ' ') {
      if (this.playing) this.pause();
      else this.play();
    } else if (key === 'PageUp' || key === ',') this.step(-1);
    else if (key === 'PageDown' || key === '.') this.step(1);
    else return false;
    return true;
  }

  private play(): void {
    const { times, style } = this.animation;
    const length = times[times.length - 1]! - times[0]!;
    if (style === 'once' && this.elapsed >= length) this.elapsed = 0;
    this.playing = true;
    this.last = performance.now();
    this.label('Pause', ICONS.pause);
    requestAnimationFrame((now) => this.tick(now));
  }

  private pause(): void {
    this.playing = false;
    this.label('Play', ICONS.play);
  }

  private label(name: string, path: string): void {
    this.toggle.setAttribute('aria-label', name);
    this.toggle.title = name;
    this.toggle.replaceChildren(icon(path));
  }

  private tick(now: number): void {
    if (!this.playing) return;
    this.elapsed += (Math.max(now - this.last, 0) / 1000) * UNITS_PER_SECOND * this.speed;
    this.last = now;
    const { time, ended } = playedTime(this.animation, this.elapsed);
    this.showFrame(frameAt(this.animation.times, time + 1e-9));
    if (ended) this.pause();
    else requestAnimationFrame((next) => this.tick(next));
  }

  private step(by: number): void {
    const last = this.animation.times.length - 1;
    this.seek(Math.min(Math.max(Number(this.slider.value) + by, 0), last));
  }

  private seek(frame: number): void {
    if (this.playing) this.pause();
    this.elapsed = this.animation.times[frame]! - this.animation.times[0]!;
    this.showFrame(frame);
  }

  /** Shows a frame; while one is being made, others are left out except the last asked for. */
  private wanted: number | undefined;

  private showFrame(frame: number): void {
    const time = this.animation.times[frame]!;
    const text = String(Number(time.toPrecision(4)));
    this.slider.value = String(frame);
    this.slider.setAttribute('aria-valuetext', `time ${text}`);
    this.output.value = text;
    this.wanted = frame;
    if (!this.busy) void this.showWanted();
  }

  private async showWanted(): Promise<void> {
    this.busy = true;
    while (this.wanted !== undefined) {
      const frame = this.wanted;
      this.wanted = undefined;
      await this.show(frame);
    }
    this.busy = false;
  }
}
