/** The view that a display asks for. */
import { Vector3 } from 'three';
import { DEFAULT_FIELD } from '../javaview/jvd';
import type { Camera, Display } from '../javaview/model';
import type { Space } from '../scene/space';
import type { ViewState } from '../scene/view';

/** The direction of a view that shows any box well. */
const DEFAULT_DIRECTION = new Vector3(-9.3, -14.6, 5.9);

/** The direction upwards for a view along `toEye`: the z axis where that is seen. */
export function upright(toEye: Vector3): Vector3 {
  const z = new Vector3(0, 0, 1);
  const up = z.clone().addScaledVector(toEye, -z.dot(toEye));
  return up.length() > 1e-6 ? up.normalize() : new Vector3(0, 1, 0);
}

export function homeView(display: Display | undefined, space: Space): ViewState {
  if (space.flat) return flatView();
  const camera = display?.cameras[0];
  const view = camera ? cameraView(camera, space) : undefined;
  return view ?? defaultView(space);
}

function flatView(): ViewState {
  return {
    target: new Vector3(),
    toEye: new Vector3(0, 0, 1),
    up: new Vector3(0, 1, 0),
    span: 2,
    field: 0,
  };
}

function defaultView(space: Space): ViewState {
  const toEye = DEFAULT_DIRECTION.clone().normalize();
  return {
    target: new Vector3(),
    toEye,
    up: upright(toEye),
    span: Math.max(2 * new Vector3(...space.half).length() * 1.05, 0.1),
    field: DEFAULT_FIELD,
  };
}

/**
 * Whether the display leaves the view to the viewer: it has no camera, or the one that is written
 * where a plot document has none.
 */
export function isDefaultView(display: Display | undefined, space: Space): boolean {
  const camera = display?.cameras[0];
  if (!camera) return true;
  if (Math.abs(camera.fieldOfView - DEFAULT_FIELD) > 1e-3) return false;
  const { min, max } = space.box;
  const offset = camera.position.map((value, axis) => {
    const half = (max[axis]! - min[axis]!) / 2;
    return (value - camera.interest[axis]!) / (half * camera.fieldOfView);
  });
  return new Vector3(...(offset as [number, number, number])).distanceTo(DEFAULT_DIRECTION) < 0.05;
}

function cameraView(camera: Camera, space: Space): ViewState | undefined {
  const target = new Vector3(...space.point(...camera.interest));
  // The position of a parallel camera is a direction with the height of the view as its length.
  const from = camera.fieldOfView > 0 ? camera.interest : [0, 0, 0];
  const [x, y, z] = camera.position.map((value, axis) => value - from[axis]!);
  const offset = new Vector3(...space.direction(x!, y!, z!));
  const span = offset.length();
  if (!(span > 1e-9) || !Number.isFinite(span)) return undefined;
  const toEye = offset.normalize();
  const up = upright(toEye).applyAxisAngle(toEye, (camera.roll * Math.PI) / 180);
  return {
    target,
    toEye,
    up,
    span: Math.min(Math.max(span, 1e-3), 50),
    field: Math.min(camera.fieldOfView, 4),
  };
}
