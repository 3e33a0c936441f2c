/** Reads a JVX or JVD text that comes in pieces of bytes. */
import { ToUtf8 } from './encoding';
import type { Geometries } from './geometries';
import { JvdHandler } from './jvd';
import { JvxHandler } from './jvx';
import type { Display } from './model';
import { Scanner, type Attributes, type Handler, type ItemList } from './scanner';

/** Both kinds of document at once: their elements have different parents. */
class DocumentHandler implements Handler {
  readonly jvx = new JvxHandler();
  readonly jvd = new JvdHandler();
  root = '';

  get list(): ItemList | undefined {
    return this.jvx.list;
  }

  open(name: string, attributes: Attributes, path: readonly string[]): void {
    if (path.length === 1 && this.root === '') this.root = name;
    this.jvx.open(name, attributes, path);
    this.jvd.open(name, attributes, path);
  }

  close(name: string, text: string, path: readonly string[]): void {
    this.jvx.close(name, text, path);
    this.jvd.close(name, text, path);
  }
}

export interface ReadResult {
  title: string;
  geometries: Geometries;
  displays: Display[];
  /** The name of the root element. */
  root: string;
  /** Whether the text came to its end. */
  whole: boolean;
}

/** Throws if a text with this root element is neither of the two kinds. */
export function checkRoot(root: string): void {
  if (root === '') throw new Error('this is no XML text');
  if (root !== 'jvx-model' && root !== 'jv-disp') {
    throw new Error(`this is no JVX or JVD file, but "${root}"`);
  }
}

export class Reader {
  private readonly utf8 = new ToUtf8();
  private readonly handler = new DocumentHandler();
  private readonly scanner = new Scanner(this.handler);

  /** The name of the root element, empty as long as it is not known. */
  get root(): string {
    return this.handler.root;
  }

  feed(piece: Uint8Array): void {
    this.scanner.feed(this.utf8.feed(piece));
  }

  /** Throws if the text is neither of the two kinds. */
  finish(): ReadResult {
    this.scanner.feed(this.utf8.finish());
    const whole = this.scanner.finish();
    const { jvx, jvd, root } = this.handler;
    checkRoot(root);
    return { title: jvx.title, geometries: jvx.geometries, displays: jvd.displays, root, whole };
  }
}

/** Reads a text that is there as a whole. */
export function readDocument(bytes: Uint8Array): ReadResult {
  const reader = new Reader();
  reader.feed(bytes);
  return reader.finish();
}
