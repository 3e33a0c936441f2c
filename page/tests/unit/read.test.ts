import assert from 'node:assert/strict';
import { test } from 'node:test';
import { rootOf } from '../../src/data/read';

const rootIn = (text: string): Promise<string> => rootOf({ file: new Blob([text]) });

test('the root of a text is found, however short or long the text is', async () => {
  assert.equal(await rootIn('<jvx-model/>'), 'jvx-model');
  assert.equal(await rootIn(`<!-- ${'x'.repeat(300)} --><jv-disp>`), 'jv-disp');
  assert.equal(await rootIn(`<html>${'x'.repeat(300)}`), 'html');
});

test('a text without a root is refused', async () => {
  for (const text of ['', 'hello', ' '.repeat(1000)]) {
    await assert.rejects(rootIn(text), /no XML/);
  }
});
