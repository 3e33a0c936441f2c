/** What a JVX text has to show, counted with the browser's own reader of XML. */

import type { Counts } from '../../src/scene/batches';

export type { Counts };

/** What all that is drawn with; transparent faces may be cut into more triangles. */
export interface Counted {
  counts: Counts;
  triangles: number;
  /** Of lines, of edges of faces and of vectors. */
  strokes: number;
}

/**
 * Runs in a page. What a text does not hide is shown. Points and labels have no size and no text
 * where there is nothing to see of them; what is wholly transparent is not drawn. No attribute `num`
 * is looked at.
 */
export function countText(text: string): Counted {
  const counts: Counts = { points: 0, lines: 0, faces: 0, labels: 0, vectors: 0 };
  let [triangles, strokes] = [0, 0];
  const all = (from: Element | undefined, path: string): Element[] =>
    from ? [...from.querySelectorAll(`:scope > ${path}`)] : [];
  const isShown = (element: Element | undefined, attribute: string): boolean =>
    element !== undefined && element.getAttribute(attribute) !== 'hide';
  const numbers = (element: Element): number[] =>
    (element.textContent.match(/\S+/g) ?? []).map(Number);
  const number = (element: Element | undefined): number | undefined =>
    element && numbers(element)[0];

  const root = new DOMParser().parseFromString(text, 'text/xml').documentElement;
  for (const geometry of all(root, 'geometries > geometry')) {
    if (!isShown(geometry, 'visible')) continue;
    const [pointSet] = all(geometry, 'pointSet');
    const points = all(pointSet, 'points > p');
    const radius = number(all(pointSet, 'points > thickness')[0]) ?? 1;
    if (isShown(pointSet, 'point') && radius > 0) counts.points += points.length;
    if (isShown(all(pointSet, 'points > labelAtt')[0], 'visible')) {
      const isName = (name: string | null): boolean => name !== null && name.trim() !== '';
      counts.labels += points.filter((point) => isName(point.getAttribute('name'))).length;
    }

    // What is no number of a point is left out.
    const isThere = (point: number): boolean => point in points;
    const [transparency] = all(geometry, 'material > transparency');
    const isSeen = !isShown(transparency, 'visible') || number(transparency) !== 1;
    const [lineSet] = all(geometry, 'lineSet');
    if (isSeen && isShown(lineSet, 'line')) {
      const lines = all(lineSet, 'lines > l').map(numbers);
      counts.lines += lines.length;
      const isStroke = (point: number, i: number, line: number[]): boolean =>
        i > 0 && isThere(point) && isThere(line[i - 1]!);
      for (const line of lines) strokes += line.filter(isStroke).length;
    }

    const [faceSet] = all(geometry, 'faceSet');
    const faces = all(faceSet, 'faces > f').map(numbers);
    const areas = faces
      .map((corners) => corners.filter(isThere))
      .filter((corners) => new Set(corners).size > 2);
    if (isShown(faceSet, 'face')) {
      counts.faces += faces.length;
      for (const corners of areas) triangles += corners.length - 2;
    }
    if (isShown(faceSet, 'edge')) {
      const edges = areas.flatMap((corners) =>
        corners.map((a, i) => [a, corners[(i + 1) % corners.length]!].sort().join(' ')),
      );
      strokes += new Set(edges).size;
    }

    for (const field of all(geometry, 'vectorField')) {
      if (!isSeen || !isShown(field, 'vector')) continue;
      const vectors = all(field, 'vectors > v').slice(0, points.length).map(numbers);
      const hasLength = all(field, 'vectors > length').length > 0;
      counts.vectors += vectors.length;
      // Nothing tells where a vector of no length of its own points to.
      strokes += vectors.filter((vector) => !hasLength || vector.some((part) => part !== 0)).length;
    }
  }
  return { counts, triangles, strokes };
}

/** Runs in a page: what its panels show. */
export function countPanels(): { counts: Counts; strokes: number }[] {
  return window.plotPage!.all.map(({ plot: { scene } }) => ({
    counts: scene.counts,
    strokes: scene.lines.count,
  }));
}
