import assert from 'node:assert/strict';
import { test } from 'node:test';
import { cssFont } from '../../src/scene/atlas';

const familyOf = (family: string): string =>
  cssFont({ family, size: 12, bold: false, italic: false, color: [0, 0, 0] }, 1)
    .replace(/^12px /, '')
    .split(',')[0]!;

test('families that every machine has are known by their names in style sheets and in Java', () => {
  assert.equal(familyOf('sans-serif'), 'sans-serif');
  assert.equal(familyOf('SansSerif'), 'sans-serif');
  assert.equal(familyOf('Serif'), 'serif');
  assert.equal(familyOf('Monospaced'), 'monospace');
  assert.equal(familyOf('Dialog'), 'sans-serif');
});

test('other families are quoted, whatever they are called', () => {
  assert.equal(familyOf('Some Font'), '"Some Font"');
  assert.equal(familyOf('a"; b\\'), '"a; b"');
  assert.equal(familyOf(''), 'system-ui');
});
