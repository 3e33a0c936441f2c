/** Reads texts in a worker, or in pieces on the page's own thread where there can be no worker. */
import { Reader, type ReadResult } from '../javaview/reader';
import { forEachPiece, open, type Source } from './source';
import type { Reply, Request } from './worker';

/** The program of the worker, put in by the build. */
declare const WORKER_PROGRAM: string;

/** So long the page may stand still, in milliseconds. */
const LONGEST_TURN = 12;

interface Waiting {
  resolve(result: ReadResult): void;
  reject(error: Error): void;
}

export class Loader {
  private worker: Worker | undefined;
  private readonly waiting = new Map<number, Waiting & { source: Source }>();
  private nextId = 1;

  constructor() {
    try {
      const url = URL.createObjectURL(new Blob([WORKER_PROGRAM], { type: 'text/javascript' }));
      this.worker = new Worker(url);
      URL.revokeObjectURL(url);
      this.worker.onmessage = (event: MessageEvent<Reply>) => this.take(event.data);
      this.worker.onerror = (event) => {
        event.preventDefault();
        this.giveUpWorker();
      };
    } catch {
      this.worker = undefined;
    }
  }

  load(source: Source): Promise<ReadResult> {
    const { worker } = this;
    if (!worker) return readHere(source);
    const id = this.nextId++;
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { resolve, reject, source });
      worker.postMessage({ id, source } satisfies Request);
    });
  }

  private take(reply: Reply): void {
    const waiting = this.waiting.get(reply.id);
    this.waiting.delete(reply.id);
    if ('error' in reply) waiting?.reject(new Error(reply.error));
    else waiting?.resolve(reply.result);
  }

  /** A worker that does not start leaves its work to the page. */
  private giveUpWorker(): void {
    this.worker?.terminate();
    this.worker = undefined;
    for (const { source, resolve, reject } of this.waiting.values()) {
      readHere(source).then(resolve, reject);
    }
    this.waiting.clear();
  }
}

async function readHere(source: Source): Promise<ReadResult> {
  const reader = new Reader();
  let turn = performance.now();
  await forEachPiece(await open(source), async (piece) => {
    reader.feed(piece);
    if (performance.now() - turn < LONGEST_TURN) return;
    await new Promise((resolve) => setTimeout(resolve));
    turn = performance.now();
  });
  return reader.finish();
}
