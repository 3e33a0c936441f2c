/** What covers a whole picture: the program of its material says how. */
import { BufferAttribute, BufferGeometry, Mesh, RawShaderMaterial, Sphere } from 'three';

/** One triangle that is larger than the picture. */
export function overPicture(material: RawShaderMaterial): Mesh<BufferGeometry, RawShaderMaterial> {
  const geometry = new BufferGeometry();
  const corners = Float32Array.of(-1, -1, 3, -1, -1, 3);
  geometry.setAttribute('position', new BufferAttribute(corners, 2));
  geometry.boundingSphere = new Sphere();
  const mesh = new Mesh(geometry, material);
  mesh.frustumCulled = false;
  return mesh;
}
