/** How a worker starts, which the page does before it has a program. */

declare global {
  interface Window {
    /** The worker that the page has started before all else, if it can start any. */
    firstWorker?: Worker | undefined;
  }
}

/** Throws, or lets the worker fail later, where the browser allows none. */
export function startWorker(program: string): Worker {
  const url = URL.createObjectURL(new Blob([program], { type: 'text/javascript' }));
  const worker = new Worker(url);
  URL.revokeObjectURL(url);
  return worker;
}
