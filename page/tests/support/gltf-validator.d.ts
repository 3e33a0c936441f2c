declare module 'gltf-validator' {
  export interface Report {
    issues: { messages: { code: string; severity: number; pointer?: string }[] };
    info: { drawCallCount: number; totalTriangleCount: number; totalVertexCount: number };
  }
  export function validateBytes(file: Uint8Array): Promise<Report>;
}
