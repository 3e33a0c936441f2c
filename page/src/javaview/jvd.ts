/** Displays out of a JVD text. */
import { shown, toColor, toNumberOr } from './jvx';
import type { Axes, AxesType, Camera, Display, Light, Range, Ruler, Vector } from './model';
import { toNumbers } from './numbers';
import type { Attributes } from './scanner';

const newDisplay = (): Display => ({
  axes: undefined,
  boxVisible: false,
  boxColor: [0, 0, 0],
  boxThickness: 1,
  boxRatio: undefined,
  clip: [undefined, undefined, undefined],
  cameras: [],
  lights: undefined,
  background: undefined,
});

const AXES_TYPES: readonly AxesType[] = ['center', 'corner', 'bndbox'];

/**
 * The letters of `longHash` stand for the planes xy, xz and yz, and again for those across of them.
 */
function gridPlanes(letters: string): [boolean, boolean, boolean] {
  const on = (i: number): boolean => letters[i] === 't' || letters[i + 3] === 't';
  return [on(0), on(1), on(2)];
}

const newAxes = (attributes: Attributes): Axes => ({
  visible: shown(attributes, 'visible', true),
  dimension: attributes.get('dim') === '2' ? 2 : 3,
  type: AXES_TYPES.find((type) => type === attributes.get('type')) ?? 'center',
  gridPlanes: gridPlanes(attributes.get('longHash') ?? ''),
  rulers: [],
});

const newRuler = (attributes: Attributes): Ruler => ({
  visible: shown(attributes, 'visible', true),
  name: attributes.get('name') ?? '',
  nameVisible: shown(attributes, 'label', true),
  numbers: shown(attributes, 'numbers', true),
  majorTicks: shown(attributes, 'ticksMajor', true),
  minorTicks: shown(attributes, 'ticksMinor', true),
  min: undefined,
  max: undefined,
  majorUnit: undefined,
  minorUnit: undefined,
  color: [0, 0, 0],
  thickness: 1,
});

/** The opening of a camera in perspective that names none. */
export const DEFAULT_FIELD = 0.175;

function newCamera(attributes: Attributes): Camera {
  const projection = attributes.get('projection') ?? 'Perspective';
  return {
    projection,
    position: [0, 0, 1],
    interest: [0, 0, 0],
    fieldOfView: projection === 'Perspective' ? DEFAULT_FIELD : 0,
    roll: 0,
  };
}

const LIGHT_TYPES: readonly Light['type'][] = ['ambient', 'point', 'direction', 'spot'];

const newLight = (attributes: Attributes): Light => ({
  type: LIGHT_TYPES.find((type) => type === attributes.get('type')) ?? 'point',
  position: [0, 0, 1],
  interest: [0, 0, 0],
  color: [255, 255, 255],
  intensity: 1,
});

function toVector(text: string, otherwise: Vector): Vector {
  const [x, y, z] = toNumbers(text);
  const all = [x, y, z].every((value) => value !== undefined && Number.isFinite(value));
  return all ? [x!, y!, z!] : otherwise;
}

function toRange(text: string): Range | undefined {
  const [low, high] = toNumbers(text);
  return low !== undefined && high !== undefined && low < high ? [low, high] : undefined;
}

type Opener = (attributes: Attributes) => void;
type Closer = (text: string) => void;

/** Takes the elements below `displays`, each by its name and that of its parent. */
export class JvdHandler {
  readonly displays: Display[] = [];
  private display = newDisplay();
  private axes = newAxes(new Map());
  private ruler = newRuler(new Map());
  private camera = newCamera(new Map());
  private selected: string | undefined;
  private light = newLight(new Map());
  private ratioVisible = true;
  private clipVisible = true;
  private clipAxis = -1;

  open(name: string, attributes: Attributes, path: readonly string[]): void {
    this.openers[`${path[path.length - 2] ?? ''}/${name}`]?.(attributes);
  }

  close(name: string, text: string, path: readonly string[]): void {
    this.closers[`${path[path.length - 2] ?? ''}/${name}`]?.(text);
  }

  private readonly openers: Record<string, Opener> = {
    'displays/display': () => {
      this.display = newDisplay();
      this.displays.push(this.display);
    },
    'display/axes': (attributes) => {
      this.axes = newAxes(attributes);
      this.display.axes = this.axes;
    },
    'axes/ruler': (attributes) => {
      this.ruler = newRuler(attributes);
      if (this.axes.rulers.length < 3) this.axes.rulers.push(this.ruler);
    },
    'display/bndbox': (attributes) =>
      (this.display.boxVisible = shown(attributes, 'visible', true)),
    'display/boxRatio': (attributes) => (this.ratioVisible = shown(attributes, 'visible', true)),
    'display/clipRange': (attributes) => (this.clipVisible = shown(attributes, 'visible', true)),
    'clipRange/range': (attributes) => {
      this.clipAxis = ['X', 'Y', 'Z'].indexOf(attributes.get('type') ?? '');
    },
    'display/cameras': (attributes) => (this.selected = attributes.get('select')),
    'cameras/camera': (attributes) => {
      this.camera = newCamera(attributes);
      this.display.cameras.push(this.camera);
    },
    'display/lights': () => (this.display.lights = []),
    'lights/light': (attributes) => {
      this.light = newLight(attributes);
      this.display.lights?.push(this.light);
    },
  };

  private readonly closers: Record<string, Closer> = {
    'ruler/minValue': (text) => (this.ruler.min = toNumberOr(text, undefined)),
    'ruler/maxValue': (text) => (this.ruler.max = toNumberOr(text, undefined)),
    'ruler/majorUnit': (text) => (this.ruler.majorUnit = toNumberOr(text, undefined)),
    'ruler/minorUnit': (text) => (this.ruler.minorUnit = toNumberOr(text, undefined)),
    'ruler/color': (text) => (this.ruler.color = toColor(text) ?? this.ruler.color),
    'ruler/thickness': (text) => (this.ruler.thickness = toNumberOr(text, 1)),
    'bndbox/color': (text) => (this.display.boxColor = toColor(text) ?? this.display.boxColor),
    'bndbox/thickness': (text) => (this.display.boxThickness = toNumberOr(text, 1)),
    'display/boxRatio': (text) => {
      const ratio = toVector(text, [0, 0, 0]);
      if (this.ratioVisible && ratio.every((r) => r > 0)) this.display.boxRatio = ratio;
    },
    'clipRange/range': (text) => {
      if (this.clipVisible && this.clipAxis >= 0) this.display.clip[this.clipAxis] = toRange(text);
    },
    'display/cameras': () => {
      const isSelected = ({ projection }: Camera): boolean => projection === this.selected;
      const { cameras } = this.display;
      this.display.cameras = [
        ...cameras.filter(isSelected),
        ...cameras.filter((camera) => !isSelected(camera)),
      ];
    },
    'camera/position': (text) => (this.camera.position = toVector(text, this.camera.position)),
    'camera/interest': (text) => (this.camera.interest = toVector(text, this.camera.interest)),
    'camera/fieldOfView': (text) => {
      this.camera.fieldOfView = Math.max(0, toNumberOr(text, this.camera.fieldOfView));
    },
    'camera/roll': (text) => (this.camera.roll = toNumberOr(text, 0)),
    'light/position': (text) => (this.light.position = toVector(text, this.light.position)),
    'light/interest': (text) => (this.light.interest = toVector(text, this.light.interest)),
    'light/color': (text) => (this.light.color = toColor(text) ?? this.light.color),
    'light/intensity': (text) => (this.light.intensity = toNumberOr(text, 1)),
    'background/color': (text) => (this.display.background = toColor(text)),
  };
}
