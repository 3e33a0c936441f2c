/** Makes scenes in a worker, or on the page's own thread where there can be no worker. */
import type { Scene, SceneOrder } from '../scene/scene';
import { readScene, type SceneTexts } from './read';
import type { Reply, Request } from './worker';

/** The program of the worker, put in by the build. */
declare const WORKER_PROGRAM: string;

/** For so long the page may not respond, in milliseconds. */
const LONGEST_TURN = 12;

/** A worker that has had nothing to do for so long ends, and frees its memory. */
const IDLE = 3_000;

interface Waiting {
  request: Request;
  resolve(scene: Scene): void;
  reject(error: Error): void;
}

export class Loader {
  private worker: Worker | undefined;
  private workersStart = true;
  private idle: ReturnType<typeof setTimeout> | undefined;
  private readonly waiting = new Map<number, Waiting>();
  private nextId = 1;

  load(texts: SceneTexts, order: SceneOrder): Promise<Scene> {
    clearTimeout(this.idle);
    this.worker ??= this.startWorker();
    const { worker } = this;
    if (!worker) return readHere(texts, order);
    const request: Request = { id: this.nextId++, texts, order };
    return new Promise((resolve, reject) => {
      this.waiting.set(request.id, { request, resolve, reject });
      worker.postMessage(request);
    });
  }

  private startWorker(): Worker | undefined {
    if (!this.workersStart) return undefined;
    try {
      const url = URL.createObjectURL(new Blob([WORKER_PROGRAM], { type: 'text/javascript' }));
      const worker = new Worker(url);
      URL.revokeObjectURL(url);
      worker.onmessage = (event: MessageEvent<Reply>) => this.take(event.data);
      worker.onerror = (event) => {
        event.preventDefault();
        this.giveUpWorkers();
      };
      return worker;
    } catch {
      this.workersStart = false;
      return undefined;
    }
  }

  private take(reply: Reply): void {
    const waiting = this.waiting.get(reply.id);
    this.waiting.delete(reply.id);
    if (this.waiting.size === 0) this.idle = setTimeout(() => this.endWorker(), IDLE);
    if ('error' in reply) waiting?.reject(new Error(reply.error));
    else waiting?.resolve(reply.scene);
  }

  private endWorker(): void {
    this.worker?.terminate();
    this.worker = undefined;
  }

  /** A worker that does not start leaves its work to the page. */
  private giveUpWorkers(): void {
    this.endWorker();
    this.workersStart = false;
    for (const { request, resolve, reject } of this.waiting.values()) {
      readHere(request.texts, request.order).then(resolve, reject);
    }
    this.waiting.clear();
  }
}

function readHere(texts: SceneTexts, order: SceneOrder): Promise<Scene> {
  let turn = performance.now();
  return readScene(texts, order, async () => {
    if (performance.now() - turn < LONGEST_TURN) return;
    await new Promise((resolve) => setTimeout(resolve));
    turn = performance.now();
  });
}
