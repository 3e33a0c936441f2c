/** The entry of the page. */
import { Page, modeOf } from './controls/page';
import { readPageText, takeBlocks } from './data/blocks';
import { Loader } from './data/load';

declare global {
  interface Window {
    /** For hosts and tests; nothing on the page depends on it. */
    plotPage?: Page;
  }
}

/** Waits for the data of the plot, which come behind the program. */
function parsed(): Promise<void> {
  return new Promise((resolve) => {
    if (document.readyState !== 'loading') resolve();
    else document.addEventListener('DOMContentLoaded', () => resolve(), { once: true });
  });
}

async function start(): Promise<void> {
  const worker = document.getElementById('worker')!;
  const loader = new Loader(worker.textContent ?? '', window.firstWorker);
  await parsed();
  const text = readPageText(document);
  const root = document.getElementById('page')!;
  if (text.title !== '') document.title = text.title;
  const page = new Page(root, text, takeBlocks(document), loader, modeOf(location.hash));
  window.plotPage = page;
  await page.show();
  if (!text.animation) loader.rest();
  document.documentElement.dataset.state = 'ready';
}

void start();
