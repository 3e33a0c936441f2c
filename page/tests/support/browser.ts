/** A browser without a window, and pages opened from files. */
import { existsSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import type {} from '../../src/main';
import { chromium, type Browser, type BrowserContextOptions, type Page } from 'playwright-core';

const PROGRAMS = ['/usr/bin/chromium', '/usr/bin/chromium-browser', '/usr/bin/google-chrome'];

/** The program that a variable names, or the first of the usual ones that is there. */
export const installed = (variable: string, programs: readonly string[]): string =>
  process.env[variable] ?? programs.find((path) => existsSync(path)) ?? '';

export interface Opened {
  page: Page;
  /** Errors and warnings of the console, and errors that nobody caught. */
  complaints: string[];
  /** Addresses that the page asked for, but for its own. */
  requests: string[];
  close(): Promise<void>;
}

/** A draw call: how many vertices it takes, and whether edges come out smooth. */
export interface Draw {
  vertices: number;
  smooth: boolean;
}

/** Notes draw calls in `window.drawn`; what is smooth is drawn apart before it goes to the canvas. */
function noteDraws(): void {
  const drawn: Draw[] = [];
  const { drawElements } = WebGL2RenderingContext.prototype;
  WebGL2RenderingContext.prototype.drawElements = function (mode, count, type, offset): void {
    const smooth = this.getParameter(this.FRAMEBUFFER_BINDING) !== null;
    drawn.push({ vertices: count, smooth });
    drawElements.call(this, mode, count, type, offset);
  };
  Object.assign(window, { drawn });
}

/** Bytes in buffers of the graphics hardware. */
export interface GraphicsMemory {
  now: number;
  /** The most at any time so far. */
  most: number;
}

/** Keeps account of buffers in `window.graphics`. */
function noteBuffers(): void {
  const graphics: GraphicsMemory = { now: 0, most: 0 };
  const sizes = new Map<WebGLBuffer, number>();
  const resize = (buffer: WebGLBuffer, size: number): void => {
    graphics.now += size - (sizes.get(buffer) ?? 0);
    graphics.most = Math.max(graphics.most, graphics.now);
    sizes.set(buffer, size);
  };
  const prototype = WebGL2RenderingContext.prototype;
  const { bufferData, deleteBuffer } = prototype;
  /** Of the buffers that drawings are kept in; others only pass pixels on. */
  const bindings = new Map<number, number>([
    [prototype.ARRAY_BUFFER, prototype.ARRAY_BUFFER_BINDING],
    [prototype.ELEMENT_ARRAY_BUFFER, prototype.ELEMENT_ARRAY_BUFFER_BINDING],
  ]);
  prototype.bufferData = function (target: number, ...rest: unknown[]): void {
    const binding = bindings.get(target);
    const [data] = rest as [ArrayBufferView | number];
    if (binding !== undefined) {
      const size = typeof data === 'number' ? data : data.byteLength;
      resize(this.getParameter(binding) as WebGLBuffer, size);
    }
    Reflect.apply(bufferData, this, [target, ...rest]);
  };
  prototype.deleteBuffer = function (buffer: WebGLBuffer | null): void {
    if (buffer) resize(buffer, 0);
    deleteBuffer.call(this, buffer);
  };
  Object.assign(window, { graphics });
}

export class TestBrowser {
  private readonly folder = mkdtempSync(join(tmpdir(), 'plot-page-'));
  private opened = 0;

  private constructor(private readonly browser: Browser) {}

  static async launch(args: string[] = ['--enable-unsafe-swiftshader']): Promise<TestBrowser> {
    const browser = await chromium.launch({
      executablePath: installed('CHROMIUM', PROGRAMS),
      args: [
        '--no-sandbox',
        '--disable-background-networking',
        '--disable-component-update',
        '--disable-sync',
        '--no-first-run',
        ...args,
      ],
    });
    return new TestBrowser(browser);
  }

  /** Opens a page from a file and waits until it is drawn; `begin` runs before its program. */
  async open(
    html: string,
    options: BrowserContextOptions = {},
    hash = '',
    begin?: () => void,
  ): Promise<Opened> {
    const path = join(this.folder, `${this.opened++}.html`);
    writeFileSync(path, html);
    const context = await this.browser.newContext({
      viewport: { width: 800, height: 600 },
      colorScheme: 'light',
      ...options,
    });
    const page = await context.newPage();
    await page.addInitScript(noteDraws);
    await page.addInitScript(noteBuffers);
    if (begin) await page.addInitScript(begin);
    const complaints: string[] = [];
    const requests: string[] = [];
    page.on('console', (message) => {
      const text = message.text();
      const driver =
        text.includes('GPU stall due to ReadPixels') || text.includes('software WebGL');
      if (['error', 'warning'].includes(message.type()) && !driver) complaints.push(text);
    });
    page.on('pageerror', (error) => complaints.push(String(error)));
    const url = `file://${path}${hash}`;
    page.on('request', (request) => {
      const asked = request.url();
      if (!asked.startsWith(`file://${path}`) && !asked.startsWith('blob:')) requests.push(asked);
    });
    await page.goto(url);
    await page.waitForSelector('html[data-state=ready]', { state: 'attached', timeout: 180_000 });
    await this.settle(page);
    return { page, complaints, requests, close: () => context.close() };
  }

  /** Waits until the last picture is drawn, and that finely. */
  async settle(page: Page): Promise<void> {
    await page.waitForFunction(() => !window.plotPage?.all.some(({ isMoving }) => isMoving));
    await page.evaluate(
      () => new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done))),
    );
  }

  async close(): Promise<void> {
    await this.browser.close();
    rmSync(this.folder, { recursive: true, force: true });
  }
}
