/** Mouse, touch, wheel and keys become movements of the view. */
import type { Axis } from '../scene/space';
import type { View } from '../scene/view';

/** A movement of this many pixels is no click any more. */
const CLICK_REACH = 5;
const TURN_PER_PIXEL = 0.008;
const TURN_PER_KEY = Math.PI / 24;
const PIXELS_PER_KEY = 40;
const ZOOM_PER_KEY = 1.2;
/** Of the wheel. */
const PIXELS_PER_LINE = 40;

export interface GestureEvents {
  /** The view has changed; `moving` if more is to be expected at once. */
  moved(moving: boolean): void;
  hover(x: number, y: number): void;
  leave(): void;
  click(x: number, y: number): void;
  doubleClick(x: number, y: number): void;
  reset(): void;
  /** The view from an end of an axis is asked for. */
  lookFrom(axis: Axis, sign: 1 | -1): void;
}

interface Finger {
  x: number;
  y: number;
}

export class Gestures {
  private readonly fingers = new Map<number, Finger>();
  private travelled = 0;

  constructor(
    private readonly target: HTMLElement,
    private readonly view: View,
    private readonly events: GestureEvents,
  ) {
    target.addEventListener('pointerdown', (event) => this.down(event));
    target.addEventListener('pointermove', (event) => this.move(event));
    target.addEventListener('pointerup', (event) => this.up(event));
    target.addEventListener('pointercancel', (event) => this.fingers.delete(event.pointerId));
    target.addEventListener('pointerleave', () => events.leave());
    target.addEventListener('wheel', (event) => this.wheel(event), { passive: false });
    target.addEventListener('dblclick', (event) => {
      const [x, y] = this.place(event);
      events.doubleClick(x, y);
    });
    target.addEventListener('contextmenu', (event) => event.preventDefault());
    target.addEventListener('keydown', (event) => this.key(event));
  }

  /** Pixels from the left and the bottom. */
  private place(event: { clientX: number; clientY: number }): [number, number] {
    const box = this.target.getBoundingClientRect();
    return [event.clientX - box.left, box.bottom - event.clientY];
  }

  private down(event: PointerEvent): void {
    // A button on the drawing keeps its own clicks.
    if ((event.target as Element).closest('button')) return;
    this.target.setPointerCapture(event.pointerId);
    const [x, y] = this.place(event);
    this.fingers.set(event.pointerId, { x, y });
    if (this.fingers.size === 1) this.travelled = 0;
  }

  private move(event: PointerEvent): void {
    const [x, y] = this.place(event);
    const finger = this.fingers.get(event.pointerId);
    if (!finger) {
      this.events.hover(x, y);
      return;
    }
    const dx = x - finger.x;
    const dy = y - finger.y;
    this.travelled += Math.hypot(dx, dy);
    if (this.fingers.size > 1) this.pinch(event.pointerId, x, y);
    else if (this.view.flat || event.shiftKey || event.ctrlKey || (event.buttons & 6) !== 0) {
      this.view.pan(dx, dy);
    } else this.view.turn(dx * TURN_PER_PIXEL, -dy * TURN_PER_PIXEL);
    finger.x = x;
    finger.y = y;
    this.events.moved(true);
  }

  /** Two fingers: the middle between them moves the scene, their distance sizes it. */
  private pinch(id: number, x: number, y: number): void {
    const mine = this.fingers.get(id)!;
    const [otherId] = [...this.fingers.keys()].filter((other) => other !== id);
    const other = this.fingers.get(otherId!)!;
    const before = Math.hypot(mine.x - other.x, mine.y - other.y);
    const after = Math.hypot(x - other.x, y - other.y);
    this.view.pan((x - mine.x) / 2, (y - mine.y) / 2);
    if (before > 5 && after > 5)
      this.view.zoom(after / before, (x + other.x) / 2, (y + other.y) / 2);
  }

  private up(event: PointerEvent): void {
    const known = this.fingers.delete(event.pointerId);
    if (!known || this.fingers.size > 0) return;
    if (this.travelled <= CLICK_REACH) {
      const [x, y] = this.place(event);
      this.events.click(x, y);
    } else this.events.moved(false);
  }

  private wheel(event: WheelEvent): void {
    event.preventDefault();
    // A pinch on a touchpad arrives as a wheel with Ctrl that turns by small steps.
    const isPinch = event.ctrlKey && Math.abs(event.deltaY) < PIXELS_PER_LINE;
    const perLine = isPinch ? PIXELS_PER_LINE / 10 : PIXELS_PER_LINE;
    const lines = event.deltaMode === 0 ? event.deltaY / perLine : event.deltaY;
    const [x, y] = this.place(event);
    this.view.zoom(1.06 ** -Math.min(Math.max(lines, -20), 20), x, y);
    this.events.moved(true);
  }

  private key(event: KeyboardEvent): void {
    if (event.ctrlKey || event.metaKey || event.altKey || event.target !== this.target) return;
    if (!this.act(event.key, event.shiftKey)) return;
    event.preventDefault();
    event.stopPropagation();
  }

  private act(key: string, shift: boolean): boolean {
    const { view, events } = this;
    const arrows: Record<string, readonly [number, number]> = {
      ArrowLeft: [-1, 0],
      ArrowRight: [1, 0],
      ArrowUp: [0, 1],
      ArrowDown: [0, -1],
    };
    const arrow = arrows[key];
    const axis = ({ x: 0, y: 1, z: 2 } as const)[key.toLowerCase()];
    if (arrow) {
      if (view.flat || shift) view.pan(-arrow[0] * PIXELS_PER_KEY, -arrow[1] * PIXELS_PER_KEY);
      else view.turn(arrow[0] * TURN_PER_KEY, arrow[1] * TURN_PER_KEY);
    } else if (key === '+' || key === '=') view.zoom(ZOOM_PER_KEY);
    else if (key === '-' || key === '_') view.zoom(1 / ZOOM_PER_KEY);
    else if (key === '<' || key === '>') view.roll(key === '<' ? TURN_PER_KEY : -TURN_PER_KEY);
    else if (key === 'Home' || key === '0') events.reset();
    else if (axis !== undefined && !view.flat) events.lookFrom(axis, shift ? -1 : 1);
    else return false;
    events.moved(true);
    return true;
  }
}
