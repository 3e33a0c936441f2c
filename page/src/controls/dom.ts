/** Small helpers for elements of the page. Text from files only ever becomes text nodes. */

type Child = Node | string | undefined;

interface Properties {
  class?: string;
  text?: string;
  attributes?: Record<string, string>;
  on?: Record<string, (event: Event) => void>;
}

export function element<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  properties: Properties = {},
  ...children: Child[]
): HTMLElementTagNameMap[K] {
  const made = document.createElement(tag);
  if (properties.class) made.className = properties.class;
  if (properties.text !== undefined) made.textContent = properties.text;
  for (const [name, value] of Object.entries(properties.attributes ?? {}))
    made.setAttribute(name, value);
  for (const [name, listener] of Object.entries(properties.on ?? {}))
    made.addEventListener(name, listener);
  made.append(...children.filter((child) => child !== undefined));
  return made;
}

const SVG = 'http://www.w3.org/2000/svg';

/** An element of a drawing; attributes that are undefined are left out. */
export function shape<K extends keyof SVGElementTagNameMap>(
  tag: K,
  attributes: Record<string, string | number | undefined>,
  ...children: (SVGElement | undefined)[]
): SVGElementTagNameMap[K] {
  const made = document.createElementNS(SVG, tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (value !== undefined) made.setAttribute(name, String(value));
  }
  made.append(...children.filter((child) => child !== undefined));
  return made;
}

/** A drawing that says nothing that a text beside it does not say. */
export const drawing = (viewBox: string, ...children: (SVGElement | undefined)[]): SVGSVGElement =>
  shape('svg', { viewBox, 'aria-hidden': 'true', focusable: 'false' }, ...children);

/** A drawing of strokes in a square of 24 units. */
export const icon = (path: string): SVGSVGElement =>
  drawing('0 0 24 24', shape('path', { d: path }));

export const ICONS = {
  reset: 'M4 11 12 4l8 7M6 10v10h12V10',
  view: 'M12 3l8 4.5v9L12 21l-8-4.5v-9zM12 12l8-4.5M12 12v9M12 12 4 7.5',
  show: 'M2 12s4-7 10-7 10 7 10 7-4 7-10 7S2 12 2 12zM12 9a3 3 0 1 0 0 6 3 3 0 0 0 0-6z',
  objects: 'M8 6h13M8 12h13M8 18h13M3 6h1M3 12h1M3 18h1',
  save: 'M12 3v12M7 11l5 5 5-5M4 20h16',
  full: 'M4 9V4h5M20 9V4h-5M4 15v5h5M20 15v5h-5',
  play: 'M7 4l13 8-13 8z',
  pause: 'M8 4v16M16 4v16',
  back: 'M18 5 8 12l10 7zM6 5v14',
  forward: 'M6 5l10 7-10 7zM18 5v14',
} as const;

/** A button that is known by its name, with an icon or a text. */
export function button(
  name: string,
  path: string | undefined,
  action: () => void,
): HTMLButtonElement {
  const made = element('button', {
    attributes: { type: 'button' },
    on: { click: () => action() },
  });
  if (path === undefined) made.textContent = name;
  else {
    made.setAttribute('aria-label', name);
    made.title = name;
    made.append(icon(path));
  }
  return made;
}

/** A switch with a name beside it. */
export function checkbox(
  name: string,
  checked: boolean,
  change: (checked: boolean) => void,
): HTMLLabelElement {
  const input = element('input', { attributes: { type: 'checkbox' } });
  input.checked = checked;
  input.addEventListener('change', () => change(input.checked));
  return element('label', { class: 'check' }, input, element('span', { text: name }));
}

let nextId = 0;

/** An id that no other element has. */
export const newId = (kind: string): string => `${kind}-${nextId++}`;

/** A button that opens and closes a box of further controls. */
export function menu(name: string, path: string, ...contents: Child[]): HTMLElement {
  const id = newId('menu');
  const box = element(
    'div',
    { class: 'menu', attributes: { id, role: 'group', 'aria-label': name } },
    ...contents,
  );
  box.hidden = true;
  const opener = button(name, path, () => setOpen(box.hidden === true));
  opener.setAttribute('aria-expanded', 'false');
  opener.setAttribute('aria-controls', id);
  const whole = element('div', { class: 'opener' }, opener, box);
  const setOpen = (open: boolean): void => {
    box.hidden = !open;
    opener.setAttribute('aria-expanded', String(open));
    // Only while it is open: the document outlives the menu, and would keep it alive.
    if (open) document.addEventListener('pointerdown', closeOutside);
    else document.removeEventListener('pointerdown', closeOutside);
  };
  const closeOutside = ({ target }: Event): void => {
    if (!whole.contains(target as Node)) setOpen(false);
  };
  whole.addEventListener('keydown', (event) => {
    if (event.key !== 'Escape' || box.hidden) return;
    setOpen(false);
    opener.focus();
    event.stopPropagation();
  });
  whole.addEventListener('focusout', (event) => {
    if (event.relatedTarget && !whole.contains(event.relatedTarget as Node)) setOpen(false);
  });
  return whole;
}
