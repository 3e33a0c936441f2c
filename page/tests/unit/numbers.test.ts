import assert from 'node:assert/strict';
import { test } from 'node:test';
import { NumberScanner, toNumber } from '../../src/javaview/numbers';

function scan(text: string): number[] {
  const bytes = new TextEncoder().encode(text);
  const scanner = new NumberScanner();
  scanner.reset(bytes, 0, bytes.length);
  const values: number[] = [];
  while (scanner.next()) values.push(scanner.value);
  return values;
}

test('numbers equal those of the language to the last bit', () => {
  const words =
    '0 -0 1 +1 .5 5. 0.1 1e5 1E-7 -2.5e+3 0.333333 123456789012345678 1e400 1e-400 ' +
    '4.9e-324 1.7976931348623157e308 0.30000000000000004 1e22 1e23 9007199254740993 3.33333e-05';
  assert.deepEqual(scan(words), words.split(' ').map(Number));
});

test('words that are no numbers are NaN, and the next number is found', () => {
  assert.deepEqual(scan('nan 1 -nan 2 x 3 1e 4 1.2.3 5 0x10 6 - 7'), [
    NaN,
    1,
    NaN,
    2,
    NaN,
    3,
    NaN,
    4,
    NaN,
    5,
    NaN,
    6,
    NaN,
    7,
  ]);
});

test('infinity has several spellings', () => {
  assert.deepEqual(['inf', '-inf', '+Infinity', 'INF'].map(toNumber), [
    Infinity,
    -Infinity,
    Infinity,
    Infinity,
  ]);
});

test('blanks of every kind separate, none is an empty list', () => {
  assert.deepEqual(scan(' \t1\n2\r\n3 '), [1, 2, 3]);
  assert.deepEqual(scan('  '), []);
});
