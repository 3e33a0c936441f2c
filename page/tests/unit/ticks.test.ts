import assert from 'node:assert/strict';
import { test } from 'node:test';
import {
  formatTick,
  makeDecades,
  makeTicks,
  roundStep,
  rulerTicks,
  type TickLook,
} from '../../src/rulers/ticks';

test('steps are 1, 2 or 5 times a power of ten', () => {
  assert.equal(roundStep(10, 10), 1);
  assert.equal(roundStep(10, 9), 2);
  assert.equal(roundStep(10, 3), 5);
  assert.equal(roundStep(10, 1), 10);
  assert.equal(roundStep(0.003, 3), 0.001);
});

test('ticks lie at round values in the range, minor ones in between', () => {
  const { major, minor, step } = makeTicks(-0.25, 1.05, 7);
  assert.equal(step, 0.2);
  assert.deepEqual(major, [-0.2, 0, 0.2, 0.4, 0.6, 0.8, 1]);
  assert.ok(minor.includes(0.05) && minor.includes(-0.25));
  assert.ok(!minor.some((value) => major.includes(value)));
});

test('a single number says nothing of a range: there are two where they find room', () => {
  assert.deepEqual(makeTicks(-2, 4, 2.4).major, [-2, 0, 2, 4]);
  assert.deepEqual(makeTicks(0.3, 1.9, 1).major, [1]);
  assert.deepEqual(makeTicks(0.3, 2.1, 1).major, [1, 2]);
  assert.deepEqual(makeTicks(-1, 6, 1).major, [0, 5]);
  assert.deepEqual(makeTicks(1, 9, 2).major, [2, 4, 6, 8]);
});

test('no error of sums: thirty times a tenth is three', () => {
  assert.ok(makeTicks(0, 3, 30).major.includes(0.3));
  assert.ok(makeTicks(0, 3, 30).major.includes(3));
});

test('the unit of a display is followed as long as it leaves room', () => {
  assert.deepEqual(makeTicks(0, 1, 4, 0.25, 0.125), {
    major: [0, 0.25, 0.5, 0.75, 1],
    minor: [0.125, 0.375, 0.625, 0.875],
    step: 0.25,
  });
  assert.equal(makeTicks(0, 1000, 5, 0.001).step, 200);
});

test('nothing can be divided in an empty or endless range', () => {
  for (const [min, max] of [
    [1, 1],
    [2, 1],
    [NaN, 1],
    [-Infinity, Infinity],
  ] as const) {
    assert.deepEqual(makeTicks(min, max, 5).major, []);
  }
});

test('numbers have the digits that the step calls for', () => {
  assert.equal(formatTick(0.5, 0.5), '0.5');
  assert.equal(formatTick(2, 0.5), '2');
  assert.equal(formatTick(-3, 1), '\u22123');
  assert.equal(formatTick(0.30000000000000004, 0.1), '0.3');
  assert.equal(formatTick(1e-20, 0.1), '0');
  assert.equal(formatTick(3.14159, 1.570795), '3.14');
  assert.equal(formatTick(0.001, 0.0005), '0.001');
  assert.equal(formatTick(2e-7, 1e-7), '2\u00b710\u207b\u2077');
  assert.equal(formatTick(2500000, 500000), '2.5\u00b710\u2076');
  assert.equal(formatTick(-1e12, 1e12), '\u221210\u00b9\u00b2');
});

const PLAIN: TickLook = {
  logarithmic: false,
  amount: 'normal',
  majorUnit: undefined,
  minorUnit: undefined,
  anchor: 0,
  ticks: [],
};

test('ticks lie whole steps beside the anchor', () => {
  assert.deepEqual(makeTicks(0, 10, 3, 4, undefined, 1).major, [1, 5, 9]);
});

test('a logarithm has ticks at powers of ten, and between them if there is room', () => {
  assert.deepEqual(makeDecades(0.01, 100, 5).major, [0.01, 0.1, 1, 10, 100]);
  assert.deepEqual(makeDecades(1, 100, 8).major, [1, 2, 5, 10, 20, 50, 100]);
  assert.deepEqual(makeDecades(1, 100, 8).minor.slice(0, 4), [3, 4, 6, 7]);
  assert.deepEqual(makeDecades(1, 1e12, 4).major, [1, 1000, 1e6, 1e9, 1e12]);
  assert.deepEqual(makeDecades(2, 6, 4).major, [2, 3, 4, 5, 6]);
});

test('a logarithm of a range that is not above 0 has no ticks', () => {
  assert.deepEqual(makeDecades(0, 10, 4).major, []);
  assert.deepEqual(makeDecades(-5, 10, 4).major, []);
});

test('numbers of a logarithm have their own digits', () => {
  const ticks = rulerTicks({ ...PLAIN, logarithmic: true }, 0.001, 1000, 7);
  assert.deepEqual(ticks.major.map(ticks.text), ['0.001', '0.01', '0.1', '1', '10', '100', '1000']);
});

test('numbers of a logarithm are all powers of ten if one of them is long', () => {
  const ticks = rulerTicks({ ...PLAIN, logarithmic: true }, 0.1, 1e6, 4);
  assert.deepEqual(ticks.major.map(ticks.text), ['10\u2070', '10\u00b2', '10\u2074', '10\u2076']);
  const small = rulerTicks({ ...PLAIN, logarithmic: true }, 1e-5, 1e-4, 9);
  assert.deepEqual(small.major.map(small.text), [
    '10\u207b\u2075',
    '2\u00b710\u207b\u2075',
    '5\u00b710\u207b\u2075',
    '10\u207b\u2074',
  ]);
});

test('named ticks come beside the regular ones or alone', () => {
  const ticks = [
    { at: 1, text: 'one' },
    { at: 2.5, text: 'more' },
    { at: 99, text: 'outside' },
  ];
  const beside = rulerTicks({ ...PLAIN, ticks }, 0, 3, 3);
  assert.deepEqual(beside.major, [0, 2, 3, 1, 2.5]);
  assert.equal(beside.text(1), 'one');
  assert.equal(beside.text(2), '2');
  assert.deepEqual(rulerTicks({ ...PLAIN, amount: 'none', ticks }, 0, 3, 3).major, [1, 2.5]);
});
