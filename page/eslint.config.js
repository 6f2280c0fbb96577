import tseslint from 'typescript-eslint';

export default tseslint.config(
  { ignores: ['dist', 'node_modules', 'eslint.config.js', '*.mjs'] },
  ...tseslint.configs.strict,
  ...tseslint.configs.stylistic,
  {
    rules: {
      // The compiler asks for them where an index may lead nowhere.
      '@typescript-eslint/no-non-null-assertion': 'off',
      '@typescript-eslint/no-unused-expressions': ['error', { allowShortCircuit: true, allowTernary: true }],
      eqeqeq: 'error',
      'max-len': ['error', { code: 120 }],
      'no-restricted-properties': ['error',
        { property: 'innerHTML', message: 'Texts of a board are never markup.' },
        { property: 'outerHTML', message: 'Texts of a board are never markup.' },
        { property: 'insertAdjacentHTML', message: 'Texts of a board are never markup.' }],
      'no-restricted-globals': ['error', 'fetch', 'XMLHttpRequest', 'WebSocket'],
      'no-eval': 'error',
      'no-implied-eval': 'error',
    },
  },
);
