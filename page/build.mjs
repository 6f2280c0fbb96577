// Builds page/dist/ of page/src/: node build.mjs [FOLDER]
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import esbuild from 'esbuild';
import { given, hashOf, licences } from './parts.mjs';

const here = fileURLToPath(new URL('.', import.meta.url));
const folder = process.argv[2] ?? join(here, 'dist');

mkdirSync(folder, { recursive: true });
const licenceText = licences();
const options = {
  bundle: true, minify: true, charset: 'utf8', write: false, legalComments: 'none', target: 'es2022',
  absWorkingDir: here, logLevel: 'warning',
};
const text = (result) => result.outputFiles[0].text.trim();
const script = text(await esbuild.build({
  ...options, entryPoints: ['src/main.ts'], format: 'iife', plugins: [given(/LICENSES\.txt$/, licenceText, 'text')],
}));
const style = text(await esbuild.build({ ...options, entryPoints: ['src/page.css'] }));
if (/<\/script|<!--|\{\{/i.test(script)) {
  throw new Error('the script has what would end it');
}
const frame = readFileSync(join(here, 'src/index.html'), 'utf8')
  .replace('{{script hash}}', hashOf(script)).replace('{{style hash}}', hashOf(style));
writeFileSync(join(folder, 'page.js'), script);
writeFileSync(join(folder, 'page.css'), style);
writeFileSync(join(folder, 'index.html'), frame);
writeFileSync(join(folder, 'LICENSES.txt'), licenceText);
