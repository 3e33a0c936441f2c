/** Unpacks the program of the page and runs it; the content policy knows its hash. */
import { startWorker } from './data/startWorker';

/** The worker starts first, since it takes about as long as the program does. */
function startFirstWorker(): void {
  try {
    const worker = startWorker(document.getElementById('worker')!.textContent ?? '');
    worker.onerror = (event) => {
      event.preventDefault();
      window.firstWorker = undefined;
    };
    window.firstWorker = worker;
  } catch {
    // The program has a way of its own where there is no worker.
  }
}

async function unpack(packed: string): Promise<string> {
  const bytes = Uint8Array.from(atob(packed), (letter) => letter.charCodeAt(0));
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'));
  return new Response(stream).text();
}

async function run(packed: HTMLElement): Promise<void> {
  const program = document.createElement('script');
  program.textContent = await unpack(packed.textContent ?? '');
  packed.replaceWith(program);
}

startFirstWorker();
run(document.getElementById('program')!).catch(() => {
  const message = document.createElement('p');
  message.className = 'message';
  message.textContent = 'This browser is too old for this page, which draws a plot.';
  document.getElementById('page')!.replaceChildren(message);
  document.documentElement.dataset.state = 'ready';
});
