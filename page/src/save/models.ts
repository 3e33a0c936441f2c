/** A plot as files of models, for other programs. Hidden objects are left out. */
import {
  BufferAttribute,
  BufferGeometry,
  Color,
  DoubleSide,
  Group,
  LineBasicMaterial,
  LineSegments,
  Mesh,
  MeshStandardMaterial,
  Points,
  PointsMaterial,
} from 'three';
import { GLTFExporter } from 'three/examples/jsm/exporters/GLTFExporter.js';
import { OBJExporter } from 'three/examples/jsm/exporters/OBJExporter.js';
import { STLExporter } from 'three/examples/jsm/exporters/STLExporter.js';
import { GrowingFloat32 } from '../javaview/growing';
import type { FaceData } from '../scene/batches';
import type { Plot } from '../scene/plot';

class Vertices {
  private readonly positions = new GrowingFloat32();
  private readonly colors = new GrowingFloat32();

  /** Colours in files of models are linear, those of plots are not. */
  add(position: readonly number[], color: readonly number[]): void {
    for (const value of position) this.positions.push(value);
    linear.setRGB(color[0]! / 255, color[1]! / 255, color[2]! / 255).convertSRGBToLinear();
    this.colors.push(linear.r);
    this.colors.push(linear.g);
    this.colors.push(linear.b);
  }

  get isEmpty(): boolean {
    return this.positions.length === 0;
  }

  geometry(): BufferGeometry {
    const geometry = new BufferGeometry();
    geometry.setAttribute('position', new BufferAttribute(this.positions.take(), 3));
    geometry.setAttribute('color', new BufferAttribute(this.colors.take(), 3));
    return geometry;
  }
}

const linear = new Color();

const three = (source: Float32Array, index: number): number[] => [
  source[index * 3]!,
  source[index * 3 + 1]!,
  source[index * 3 + 2]!,
];

const rgb = (source: Uint8Array, index: number): number[] => [
  source[index * 4]!,
  source[index * 4 + 1]!,
  source[index * 4 + 2]!,
];

function surface(batch: FaceData, hidden: Set<number>): Mesh | undefined {
  const vertices = new Vertices();
  let alpha = 255;
  for (let i = 0; i < batch.index.length; i += 3) {
    const last = batch.index[i + 2]!;
    if (hidden.has(batch.tags[last * 2]!)) continue;
    alpha = Math.min(alpha, batch.colors[last * 4 + 3]!);
    for (let k = 0; k < 3; k++) {
      const vertex = batch.index[i + k]!;
      const color = batch.kind.smoothColors ? vertex : last;
      vertices.add(three(batch.positions, vertex), rgb(batch.colors, color));
    }
  }
  if (vertices.isEmpty) return undefined;
  const geometry = vertices.geometry();
  geometry.computeVertexNormals();
  const material = new MeshStandardMaterial({
    vertexColors: true,
    side: DoubleSide,
    roughness: 0.7,
    metalness: 0,
    transparent: alpha < 255,
    opacity: alpha / 255,
  });
  return new Mesh(geometry, material);
}

function segments({ scene, hidden }: Plot): LineSegments | undefined {
  const { lines } = scene;
  const vertices = new Vertices();
  for (let i = 0; i < lines.count; i++) {
    if (hidden.has(lines.styles[i * 4 + 1]!)) continue;
    vertices.add(three(lines.starts, i), rgb(lines.startColors, i));
    vertices.add(three(lines.ends, i), rgb(lines.endColors, i));
  }
  if (vertices.isEmpty) return undefined;
  return new LineSegments(vertices.geometry(), new LineBasicMaterial({ vertexColors: true }));
}

function cloud({ scene, hidden }: Plot): Points | undefined {
  const { points } = scene;
  const vertices = new Vertices();
  for (let i = 0; i < points.count; i++) {
    if (hidden.has(points.tags[i * 3 + 1]!)) continue;
    vertices.add(three(points.positions, i), rgb(points.colors, i));
  }
  if (vertices.isEmpty) return undefined;
  return new Points(vertices.geometry(), new PointsMaterial({ vertexColors: true, size: 0.02 }));
}

/** Everything that is shown, with the z axis of the plot upwards. */
function makeGroup(plot: Plot, upwards: 'y' | 'z'): Group {
  const group = new Group();
  for (const batch of plot.scene.faces) {
    const mesh = surface(batch, plot.hidden);
    if (mesh) group.add(mesh);
  }
  const lines = segments(plot);
  if (lines) group.add(lines);
  const points = cloud(plot);
  if (points) group.add(points);
  if (upwards === 'y' && !plot.flat) group.rotation.x = -Math.PI / 2;
  group.updateMatrixWorld(true);
  return group;
}

export async function toGlb(plot: Plot): Promise<Blob> {
  const result = await new GLTFExporter().parseAsync(makeGroup(plot, 'y'), { binary: true });
  return new Blob([result as ArrayBuffer], { type: 'model/gltf-binary' });
}

export function toStl(plot: Plot): Blob {
  const data = new STLExporter().parse(makeGroup(plot, 'z'), { binary: true });
  return new Blob([data as unknown as ArrayBuffer], { type: 'model/stl' });
}

export function toObj(plot: Plot): Blob {
  return new Blob([new OBJExporter().parse(makeGroup(plot, 'z'))], { type: 'model/obj' });
}
