import js from '@eslint/js';
import tseslint from 'typescript-eslint';

const node = { console: 'readonly', process: 'readonly', URL: 'readonly', Buffer: 'readonly' };

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
);
