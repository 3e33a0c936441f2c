/** Firefox, which draws in software only with a screen: one is made if there is none. */
import { spawn, type ChildProcess } from 'node:child_process';
import { mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { launch, type Browser, type Page } from 'puppeteer-core';
import { installed } from './browser';

const PROGRAMS = ['/usr/bin/firefox-esr', '/usr/bin/firefox'];

export interface OpenedInFirefox {
  page: Page;
  /** Errors and warnings of the console, and errors that nobody caught. */
  complaints: string[];
  /** Addresses that the page asked for, but for its own. */
  requests: string[];
  close(): Promise<void>;
}

/** A screen that nobody sees. */
class Screen {
  private constructor(
    readonly name: string,
    private readonly server: ChildProcess | undefined,
  ) {}

  static async open(): Promise<Screen> {
    const { DISPLAY } = process.env;
    if (DISPLAY) return new Screen(DISPLAY, undefined);
    const server = spawn('Xvfb', ['-displayfd', '3', '-screen', '0', '1280x1024x24'], {
      stdio: ['ignore', 'ignore', 'ignore', 'pipe'],
    });
    const number = await new Promise<string>((resolve, reject) => {
      server.on('error', reject);
      server.stdio[3]!.once('data', (data: Buffer) => resolve(String(data).trim()));
    });
    return new Screen(`:${number}`, server);
  }

  close(): void {
    this.server?.kill();
  }
}

export class TestFirefox {
  private readonly folder = mkdtempSync(join(tmpdir(), 'plot-page-'));
  private opened = 0;

  private constructor(
    private readonly screen: Screen,
    private readonly browser: Browser,
  ) {}

  static async launch(): Promise<TestFirefox> {
    const screen = await Screen.open();
    const browser = await launch({
      browser: 'firefox',
      executablePath: installed('FIREFOX', PROGRAMS),
      headless: false,
      timeout: 120_000,
      protocolTimeout: 180_000,
      env: { ...process.env, DISPLAY: screen.name, LIBGL_ALWAYS_SOFTWARE: '1' },
    });
    return new TestFirefox(screen, browser);
  }

  /** Opens a page from a file and waits until it is drawn. */
  async open(html: string): Promise<OpenedInFirefox> {
    const path = join(this.folder, `${this.opened++}.html`);
    writeFileSync(path, html);
    const page = await this.browser.newPage();
    const complaints: string[] = [];
    const requests: string[] = [];
    page.on('console', (message) => {
      if (['error', 'warn'].includes(message.type())) complaints.push(message.text());
    });
    page.on('pageerror', (error) => complaints.push(String(error)));
    page.on('request', (request) => {
      const asked = request.url();
      if (!asked.startsWith(`file://${path}`) && !asked.startsWith('blob:')) requests.push(asked);
    });
    await page.setViewport({ width: 800, height: 600 });
    await page.goto(`file://${path}`);
    await page.waitForSelector('html[data-state=ready]', { timeout: 120_000 });
    return { page, complaints, requests, close: () => page.close() };
  }

  async close(): Promise<void> {
    await this.browser.close();
    this.screen.close();
    rmSync(this.folder, { recursive: true, force: true });
  }
}
