/** The list of objects: each can be hidden or shown alone. */
import type { Plot } from '../scene/plot';
import { button, checkbox, element } from './dom';

/** A list that is longer is searched by name. */
const MOST_ROWS = 200;

export function makeObjectList(plot: Plot, changed: () => void): HTMLElement {
  const rows = element('ul', { class: 'objects' });
  const search = element('input', {
    attributes: { type: 'search', 'aria-label': 'Find an object', placeholder: 'Find an object' },
  });
  const fill = (): void => {
    const wanted = search.value.toLowerCase();
    const found = plot.objects
      .map((object, i) => ({ name: object.name, i }))
      .filter(({ name }) => name.toLowerCase().includes(wanted));
    rows.replaceChildren(...found.slice(0, MOST_ROWS).map(({ name, i }) => row(name, i)));
    if (found.length > MOST_ROWS) {
      rows.append(element('li', { text: `and ${found.length - MOST_ROWS} more` }));
    }
  };
  const show = (test: (object: number) => boolean): void => {
    plot.objects.forEach((_, i) => {
      if (test(i)) plot.hidden.delete(i);
      else plot.hidden.add(i);
    });
    plot.setHidden(-1, false);
    fill();
    changed();
  };
  const row = (name: string, i: number): HTMLElement => {
    const alone = button('Only', undefined, () => show((other) => other === i));
    alone.setAttribute('aria-label', `Show only ${name}`);
    const box = checkbox(name, !plot.hidden.has(i), (on) => {
      plot.setHidden(i, !on);
      changed();
    });
    return element('li', {}, box, alone);
  };
  search.addEventListener('input', fill);
  search.hidden = plot.objects.length <= MOST_ROWS / 10;
  fill();
  return element(
    'div',
    {},
    search,
    rows,
    button('Show all', undefined, () => show(() => true)),
  );
}
