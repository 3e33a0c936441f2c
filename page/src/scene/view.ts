/** From where a scene is seen: the point looked at, the direction, and how much fits on the screen. */
import { Matrix4, OrthographicCamera, PerspectiveCamera, Quaternion, Vector3 } from 'three';

export interface ViewState {
  /** The point in the middle of the picture. */
  target: Vector3;
  /** From the target to the eye, of length 1. */
  toEye: Vector3;
  up: Vector3;
  /** What fits into the shorter side of the picture, at the target. */
  span: number;
  /** Height of the picture at distance 1; 0 is a parallel projection. */
  field: number;
}

export interface Size {
  width: number;
  height: number;
}

/** Half of what is drawn lies within this distance of the origin. */
const REACH = 2.4;
const DEEPEST_ZOOM = 1e-5;
const WIDEST = 100;

export class View {
  state: ViewState;
  readonly perspective = new PerspectiveCamera();
  readonly orthographic = new OrthographicCamera();
  size: Size = { width: 1, height: 1 };

  constructor(
    private home: ViewState,
    readonly flat: boolean,
  ) {
    this.state = copy(home);
  }

  get camera(): PerspectiveCamera | OrthographicCamera {
    return this.state.field > 0 ? this.perspective : this.orthographic;
  }

  get eye(): Vector3 {
    const { target, toEye } = this.state;
    return toEye.clone().multiplyScalar(this.distance).add(target);
  }

  get right(): Vector3 {
    return this.state.up.clone().cross(this.state.toEye).normalize();
  }

  /** The size of a pixel in the scene, at the target. */
  get unitsPerPixel(): number {
    return this.state.span / Math.min(this.size.width, this.size.height);
  }

  setHome(home: ViewState): void {
    this.home = copy(home);
  }

  /** Makes another view the home, and moves from it by as much as from the one before. */
  moveHome(home: ViewState): void {
    const { state } = this;
    const zoom = this.home.span / state.span;
    state.target
      .addScaledVector(this.home.target, -1 / zoom)
      .addScaledVector(home.target, 1 / zoom);
    state.span = home.span / zoom;
    this.setHome(home);
    this.update();
  }

  /** Whether nobody has moved the view. */
  get isHome(): boolean {
    return sameView(this.state, this.home);
  }

  reset(): void {
    this.state = copy(this.home);
    this.update();
  }

  /** Makes the matrices of the camera follow the state. */
  update(): void {
    const { state, size } = this;
    const distance = this.distance;
    const shorter = Math.min(size.width, size.height);
    const halfWidth = (state.span * size.width) / shorter / 2;
    const halfHeight = (state.span * size.height) / shorter / 2;
    const { camera } = this;
    const depth = state.target.length() + REACH;
    if (camera instanceof PerspectiveCamera) {
      camera.near = Math.max(distance - depth, distance * 0.01, 1e-4);
      camera.far = distance + depth;
      camera.fov = (Math.atan(halfHeight / distance) * 360) / Math.PI;
      camera.aspect = size.width / size.height;
    } else {
      camera.left = -halfWidth;
      camera.right = halfWidth;
      camera.top = halfHeight;
      camera.bottom = -halfHeight;
      camera.near = distance - depth;
      camera.far = distance + depth;
    }
    camera.position.copy(this.eye);
    camera.up.copy(state.up);
    camera.lookAt(state.target);
    camera.updateMatrixWorld();
    camera.updateProjectionMatrix();
  }

  /** Where a point of the scene is seen, in pixels from the left and from the bottom. */
  toPixels(x: number, y: number, z: number): [number, number, number] {
    projected.set(x, y, z).applyMatrix4(this.matrix());
    return [
      (projected.x * 0.5 + 0.5) * this.size.width,
      (projected.y * 0.5 + 0.5) * this.size.height,
      projected.z,
    ];
  }

  matrix(): Matrix4 {
    const { camera } = this;
    return product.multiplyMatrices(camera.projectionMatrix, camera.matrixWorldInverse);
  }

  /** Turns the view round the target, by angles to the right and upwards. */
  turn(right: number, upwards: number): void {
    if (this.flat) return;
    const { state } = this;
    const vertical =
      Math.abs(state.up.z) > 0.05 ? new Vector3(0, 0, Math.sign(state.up.z)) : state.up;
    this.rotate(new Quaternion().setFromAxisAngle(vertical, -right));
    const elevation = Math.asin(Math.min(1, Math.max(-1, state.toEye.dot(vertical))));
    const limited = Math.min(Math.max(elevation + upwards, -1.5706), 1.5706) - elevation;
    this.rotate(new Quaternion().setFromAxisAngle(this.right, -limited));
  }

  /** Turns the picture round its middle. */
  roll(angle: number): void {
    if (!this.flat) this.rotate(new Quaternion().setFromAxisAngle(this.state.toEye, angle));
  }

  /** Moves the scene by pixels to the right and upwards. */
  pan(right: number, upwards: number): void {
    const { state } = this;
    const unit = this.unitsPerPixel;
    state.target
      .addScaledVector(this.right, -right * unit)
      .addScaledVector(state.up, -upwards * unit);
    state.target.clampLength(0, 50);
  }

  /** Brings what is at a place of the screen nearer by a factor; the place stays where it is. */
  zoom(factor: number, x = this.size.width / 2, y = this.size.height / 2): void {
    const { state, size } = this;
    const span = Math.min(WIDEST, Math.max(DEEPEST_ZOOM, state.span / factor));
    const applied = state.span / span;
    const shift = 1 - 1 / applied;
    this.pan(-(x - size.width / 2) * shift, -(y - size.height / 2) * shift);
    state.span = span;
  }

  lookFrom(toEye: Vector3, up: Vector3): void {
    this.state.toEye.copy(toEye).normalize();
    this.state.up.copy(up);
    this.straighten();
  }

  private get distance(): number {
    return this.state.field > 0 ? this.state.span / this.state.field : REACH * 2;
  }

  private rotate(by: Quaternion): void {
    this.state.toEye.applyQuaternion(by).normalize();
    this.state.up.applyQuaternion(by);
    this.straighten();
  }

  private straighten(): void {
    const { up, toEye } = this.state;
    up.addScaledVector(toEye, -up.dot(toEye)).normalize();
  }
}

const projected = new Vector3();
const product = new Matrix4();

function copy(state: ViewState): ViewState {
  return {
    ...state,
    target: state.target.clone(),
    toEye: state.toEye.clone(),
    up: state.up.clone(),
  };
}

/** Whether two views show the same, but for errors of rounding. */
export function sameView(a: ViewState, b: ViewState): boolean {
  const numbers = ({ target, toEye, up, span, field }: ViewState): number[] => [
    ...target,
    ...toEye,
    ...up,
    span,
    field,
  ];
  const others = numbers(b);
  return numbers(a).every((value, i) => Math.abs(value - others[i]!) < 1e-9);
}
