import assert from 'node:assert/strict';
import { test } from 'node:test';
import { formatTick, makeTicks, roundStep } from '../../src/rulers/ticks';

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
  assert.equal(formatTick(2e-7, 1e-7), '2e\u22127');
  assert.equal(formatTick(2500000, 500000), '2.5e6');
});
