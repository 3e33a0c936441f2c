/** Makes scenes in a worker, or on the page's own thread where there can be no worker. */
import type { Scene, SceneOrder } from '../scene/scene';
import { readScene, type SceneTexts } from './read';
import { startWorker } from './startWorker';
import type { Reply, Request } from './worker';

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

  /** Takes the program of the worker, and one that runs it already. */
  constructor(
    private readonly program: string,
    first: Worker | undefined,
  ) {
    if (first) this.use(first);
    this.endLater();
  }

  load(texts: SceneTexts, order: SceneOrder): Promise<Scene> {
    clearTimeout(this.idle);
    const worker = this.worker ?? this.start();
    if (!worker) return readHere(texts, order);
    const request: Request = { id: this.nextId++, texts, order };
    return new Promise((resolve, reject) => {
      this.waiting.set(request.id, { request, resolve, reject });
      worker.postMessage(request);
    });
  }

  /** Ends the worker, if it has nothing to do; another one starts when there is something again. */
  rest(): void {
    if (this.waiting.size === 0) this.endWorker();
  }

  private use(worker: Worker): void {
    worker.onmessage = (event: MessageEvent<Reply>) => this.take(event.data);
    worker.onerror = (event) => {
      event.preventDefault();
      this.giveUpWorkers();
    };
    this.worker = worker;
  }

  private start(): Worker | undefined {
    if (!this.workersStart) return undefined;
    try {
      this.use(startWorker(this.program));
      return this.worker;
    } catch {
      this.workersStart = false;
      return undefined;
    }
  }

  private take(reply: Reply): void {
    const waiting = this.waiting.get(reply.id);
    this.waiting.delete(reply.id);
    if (this.waiting.size === 0) this.endLater();
    if ('error' in reply) waiting?.reject(new Error(reply.error));
    else waiting?.resolve(reply.scene);
  }

  private endLater(): void {
    this.idle = setTimeout(() => this.endWorker(), IDLE);
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
