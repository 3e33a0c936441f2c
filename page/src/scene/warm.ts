/** Gets the programs that most plots need ready before there is a plot. */
import { Vector3 } from 'three';
import { TextAtlas } from './atlas';
import { SceneBatches, withAlpha, type Label, type SceneData } from './batches';
import { Drawing } from './drawing';
import type { Engine } from './engine';
import { makeUniforms } from './materials';
import { View } from './view';

const BLACK = withAlpha([0, 0, 0], 1);
const ORIGIN = [0, 0, 0] as const;

const LABEL: Label = {
  text: '0',
  at: ORIGIN,
  style: { family: 'sans-serif', size: 12, bold: false, italic: false, color: [0, 0, 0] },
  anchor: [0, 0],
  shift: [0, 0],
  object: 0,
};

/** A triangle and a line of no size. */
function smallest(): SceneData {
  const batches = new SceneBatches();
  const kind = { smoothNormals: false, smoothColors: false, transparent: false, hatched: false };
  const faces = batches.faceBatch(kind);
  for (let i = 0; i < 3; i++) faces.addVertex(ORIGIN, 0, [0, 0, 1], 0, BLACK, [0, 0]);
  faces.addTriangle(0, 1, 2);
  const style = { width: 1, object: 0, dash: 0, tip: undefined };
  batches.lines.add(ORIGIN, ORIGIN, BLACK, BLACK, style, 0);
  return batches.finish();
}

/**
 * Draws one of each thing that most plots have, as small as can be. The hardware's driver compiles
 * programs when they are first used; it does so while another thread reads the text of a plot. The
 * programs stay, since what they have drawn does.
 */
export function warmUp(engine: Engine): void {
  const atlas = new TextAtlas();
  const kind = { flat: false, clipped: false, slow: engine.slow };
  const drawing = new Drawing(smallest(), makeUniforms(1), atlas, { value: atlas.texture }, kind);
  drawing.setLabels([LABEL], 1);
  const toEye = new Vector3(0, 0, 1);
  const up = new Vector3(0, 1, 0);
  const view = new View({ target: new Vector3(), toEye, up, span: 2, field: 0 }, false);
  view.update();
  const picture = { contents: [drawing.group], view, width: 1, height: 1, background: undefined };
  engine.draw({ ...picture, rough: engine.slow });
  engine.submit();
}
