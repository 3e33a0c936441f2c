import js from '@eslint/js';
import tseslint from 'typescript-eslint';

const readonly = (...names) => Object.fromEntries(names.map((name) => [name, 'readonly']));
const node = readonly('console', 'process', 'URL', 'Buffer');
/** What functions use that are handed over to a browser. */
const browser = readonly(
  'window',
  'performance',
  'requestAnimationFrame',
  'WebGLRenderingContext',
  'WebGL2RenderingContext',
);

export default tseslint.config(
  { ignores: ['dist/', 'build/', 'node_modules/'] },
  js.configs.recommended,
  {
    files: ['**/*.ts'],
    extends: [...tseslint.configs.strict],
    rules: {
      '@typescript-eslint/no-non-null-assertion': 'off',
      '@typescript-eslint/no-unused-vars': ['error', { argsIgnorePattern: '^_' }],
    },
  },
  { files: ['tools/*.mjs'], languageOptions: { globals: node } },
  { files: ['tools/bench.mjs'], languageOptions: { globals: browser } },
);
