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

async function start(): Promise<void> {
  const text = readPageText(document);
  const root = document.getElementById('page')!;
  if (text.title !== '') document.title = text.title;
  const page = new Page(root, text, takeBlocks(document), new Loader(), modeOf(location.hash));
  window.plotPage = page;
  await page.show();
  document.documentElement.dataset.state = 'ready';
}

void start();
