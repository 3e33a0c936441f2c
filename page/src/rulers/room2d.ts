/** The room that a scene of two dimensions has in its picture, beside its numbers and titles. */
import type { TextStyle } from '../scene/batches';
import type { Space } from '../scene/space';
import type { Size } from '../scene/view';
import type { FrameLook, RulerLook } from './frame';
import { RIM, type Rectangle } from './overlap';

/** As wide as the widest number of most plots. */
const TYPICAL_NUMBER = '\u22120.000';
/** Between a tick and its number. */
export const LABEL_GAP = 3;
/** Between the widest number and the title; as near as that labels are taken to meet. */
export const TITLE_GAP = 5;

/** More often room is not made; by then the ticks have settled. */
const MOST_TRIES = 4;

/** The room that numbers and titles need round the drawing, in pixels. */
type Margins = Record<'left' | 'right' | 'top' | 'bottom', number>;

/** The widest title beside a vertical ruler, in parts of the picture; a wider one is turned. */
const WIDEST_TITLE = 0.2;

/** Whether the title of a vertical ruler runs along it. */
export const isTurned = ({ titleTurned }: RulerLook, length: number, { width }: Size): boolean =>
  titleTurned || length > WIDEST_TITLE * width;

/** The room for numbers of the usual width, so that most pictures are alike. */
export function margins(
  look: FrameLook,
  size: Size,
  measure: (text: string, style: TextStyle) => readonly [number, number],
): Margins {
  const [x, y] = look.rulers;
  if (!look.visible || look.type === 'center') return { left: 12, right: 12, top: 12, bottom: 12 };
  const [width, height] = measure(TYPICAL_NUMBER, look.numberStyle);
  const slanted = (width + height) * Math.SQRT1_2;
  const below = { horizontal: height, vertical: width, diagonal: slanted, shifted: 2 * height };
  const left = { horizontal: width, vertical: height, diagonal: slanted, shifted: 2 * width };
  const titleOf = ({ title, titleStyle }: RulerLook): readonly [number, number] =>
    measure(title, titleStyle);
  const beside = (ruler: RulerLook, numbers: number, title: number): number =>
    !ruler.visible
      ? 12
      : look.tickLength +
        (ruler.numbers ? numbers + LABEL_GAP * 2 : 0) +
        (ruler.title === '' ? 4 : title + TITLE_GAP);
  return {
    left: beside(y, left[y.numberPlaces], titleOf(y)[isTurned(y, titleOf(y)[0], size) ? 1 : 0]),
    bottom: beside(x, below[x.numberPlaces], titleOf(x)[1]),
    right: 18,
    top: 12,
  };
}

/** The largest rectangle of the proportions of the box that leaves room for the margins. */
function frameIn({ width, height }: Size, space: Space, room: Margins): Rectangle {
  const freeWidth = Math.max(width - room.left - room.right, 20);
  const freeHeight = Math.max(height - room.top - room.bottom, 20);
  const aspect = space.half[0] / space.half[1];
  const w = Math.min(freeWidth, freeHeight * aspect);
  const h = w / aspect;
  return {
    left: room.left + (freeWidth - w) / 2,
    bottom: room.bottom + (freeHeight - h) / 2,
    width: w,
    height: h,
  };
}

/** How far labels reach beyond the picture; those that never fit do not count. */
export function beyondPicture(labels: readonly Rectangle[], size: Size): Margins {
  const least = { left: 0, right: 0, top: 0, bottom: 0 };
  return labels
    .filter(({ width, height }) => width + 2 * RIM < size.width && height + 2 * RIM < size.height)
    .reduce(
      (most, { left, bottom, width, height }) => ({
        left: Math.max(most.left, RIM - left),
        right: Math.max(most.right, left + width + RIM - size.width),
        top: Math.max(most.top, bottom + height + RIM - size.height),
        bottom: Math.max(most.bottom, RIM - bottom),
      }),
      least,
    );
}

export const isNoRoom = ({ left, right, top, bottom }: Margins): boolean =>
  left + right + top + bottom < 0.5;

/** A rectangle that gives way on each side. */
export function inset(rectangle: Rectangle, { left, right, top, bottom }: Margins): Rectangle {
  return {
    left: rectangle.left + left,
    bottom: rectangle.bottom + bottom,
    width: Math.max(rectangle.width - left - right, 20),
    height: Math.max(rectangle.height - top - bottom, 20),
  };
}

/** The frame of a scene in which none of the labels that `labelsIn` finds is cut off. */
export function fitFrame(
  size: Size,
  space: Space,
  room: Margins,
  labelsIn: (frame: Rectangle) => readonly Rectangle[],
): Rectangle {
  for (let i = 0; i < MOST_TRIES; i++) {
    const frame = frameIn(size, space, room);
    const beyond = beyondPicture(labelsIn(frame), size);
    if (isNoRoom(beyond)) return frame;
    room = {
      left: room.left + beyond.left,
      right: room.right + beyond.right,
      top: room.top + beyond.top,
      bottom: room.bottom + beyond.bottom,
    };
  }
  return frameIn(size, space, room);
}
