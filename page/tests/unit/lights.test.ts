import assert from 'node:assert/strict';
import { test } from 'node:test';
import { readDocument } from '../../src/javaview/reader';
import { applyLights } from '../../src/rulers/lights';
import { makeUniforms, type SceneUniforms } from '../../src/scene/materials';
import { LINEAR, Space } from '../../src/scene/space';

const space = (flat: boolean): Space =>
  new Space({
    box: { min: [-1, -1, -1], max: [1, 1, 1] },
    ratio: undefined,
    flat,
    logarithmic: LINEAR,
  });

/** What the lights of a display come to. */
function light(lights: string, flat = false): SceneUniforms {
  const text = `<jv-disp><displays><display>${lights}</display></displays></jv-disp>`;
  const uniforms = makeUniforms(1);
  const [display] = readDocument(new TextEncoder().encode(text)).displays;
  assert.ok(display);
  applyLights(uniforms, display, space(flat));
  return uniforms;
}

const ambient = (intensity: number): string =>
  `<light type="ambient"><color>255 255 255</color><intensity>${intensity}</intensity></light>`;

const from = (position: string, intensity: number, color = '255 255 255'): string =>
  `<light type="direction"><position>${position}</position><interest>0 0 0</interest>` +
  `<color>${color}</color><intensity>${intensity}</intensity></light>`;

const lights = (...all: string[]): string => `<lights>${all.join('')}</lights>`;

/** Ambient light first, red, green and blue each, to three digits. */
const strengths = ({ ambient, lightColors, lightCount }: SceneUniforms): number[][] =>
  [ambient.value, ...lightColors.value.slice(0, lightCount.value)].map((color) =>
    color.toArray().map((part) => Math.round(part * 1000) / 1000),
  );

const gray = (part: number): number[] => [part, part, part];

test('without lights of its own a drawing in space is lit, one in the plane is not', () => {
  for (const none of ['', lights()]) {
    const inSpace = light(none);
    assert.ok(inSpace.lit.value && inSpace.lightCount.value > 0);
    assert.equal(light(none, true).lit.value, false);
  }
});

test('faint lights are made a little stronger', () => {
  const given = light(lights(ambient(0.1), from('0 0 1', 0.2)));
  assert.deepEqual(strengths(given), [gray(0.135), gray(0.27)]);
});

// A material throws back a fifth of white light on its own, so lights may come to four fifths.
test('strong lights leave a surface its colour, and keep their proportions and colours', () => {
  const given = light(lights(ambient(0.25), from('0 0 1', 0.75, '255 102 0')));
  assert.deepEqual(strengths(given), [gray(0.2), [0.6, 0.24, 0]]);
});

test('only lights that fall on the same side add up', () => {
  const opposite = light(lights(from('1 0 0', 1), from('-1 0 0', 1)));
  assert.deepEqual(strengths(opposite), [gray(0), gray(0.8), gray(0.8)]);
  const aside = light(lights(from('3 0 0', 2), from('0 4 0', 2)));
  assert.deepEqual(strengths(aside), [gray(0), gray(0.566), gray(0.566)]);
  // A third of a turn apart they add up to the strength of one.
  const apart = light(lights(from('1 0 0', 1), from('-1 1.7320508 0', 1)));
  assert.deepEqual(strengths(apart), [gray(0), gray(0.8), gray(0.8)]);
});

test('a light in the middle counts as well', () => {
  const inside = light(
    '<lights><light type="point"><position>0 0 0</position><intensity>1</intensity></light></lights>',
  );
  assert.deepEqual(strengths(inside), [gray(0), gray(0.8)]);
});
