import assert from 'node:assert/strict';
import { test } from 'node:test';
import { DifferenceDecoder } from '../../src/data/differences';
import { toDifferences } from '../support/differences';
import { example, exampleNames } from '../support/examples';

/** The text of differences that come in pieces of this size. */
function decoded(text: string, size = text.length): string {
  const bytes = Buffer.from(text, 'latin1');
  const decoder = new DifferenceDecoder();
  const pieces: Uint8Array[] = [];
  for (let i = 0; i < bytes.length; i += size) {
    pieces.push(decoder.decode(bytes.subarray(i, i + size)).slice());
  }
  return Buffer.concat([...pieces, decoder.finish()]).toString('latin1');
}

/** Texts and their differences. */
const PAIRS = [
  [
    '<f>501 502 702 701</f>\n<f>502 503 703 702</f>\n<p>0.5 7 -3</p>',
    '<f>501 502 702 701</f>\n<f>1 1 1 1</f>\n<p>0.5 -496 -706</p>',
  ],
  ['5 1.5 7\n6 7 8\n2 x 9', '5 1.5 7\n1 7 1\n-4 x 1'],
  [
    '1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 19 18 3',
    '1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 18 16 0',
  ],
  [
    '999999999 -999999999 0 1\n-999999999 999999999 0 -999999999\n',
    '999999999 -999999999 0 1\n1 -1 0 999999999\n',
  ],
  [
    '007 -0 - 1e3 1234567890 4\n007 -0 - 1e3 1234567890 4',
    '007 -0 - 1e3 1234567890 4\n007 -0 - 1e3 1234567890 0',
  ],
  ['', ''],
] as const;

test('differences become integers again, in pieces of any size', () => {
  for (const [text, differences] of PAIRS) {
    for (let size = 1; size <= differences.length + 1; size++) {
      assert.equal(decoded(differences, size), text);
    }
  }
});

test('texts come back byte by byte', () => {
  for (const name of [...exampleNames('.jvx'), ...exampleNames('.jvd')]) {
    const text = Buffer.from(example(name)).toString('latin1');
    assert.equal(decoded(toDifferences(text), 1000), text, name);
  }
});

test('any bytes come back', () => {
  let state = 1;
  const random = (below: number): number => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * below);
  };
  const letters = '0011223456789--. <>\n\r\xff';
  const text = Array.from({ length: 200_000 }, () => letters[random(letters.length)]).join('');
  assert.equal(decoded(toDifferences(text), 4093), text);
});
