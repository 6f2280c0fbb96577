// Builds page/dist/ of page/src/: node build.mjs [FOLDER]
import { createHash } from 'node:crypto';
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import esbuild from 'esbuild';

const here = fileURLToPath(new URL('.', import.meta.url));
const folder = process.argv[2] ?? join(here, 'dist');

// What the bundle has in it, with its licence as its makers give it.
function licences() {
  const { dependencies } = JSON.parse(readFileSync(join(here, 'package.json'), 'utf8'));
  const bundled = Object.keys(dependencies).sort();
  for (const name of Object.keys(dependencies)) {
    const own = JSON.parse(readFileSync(join(here, 'node_modules', name, 'package.json'), 'utf8'));
    bundled.push(...Object.keys(own.dependencies ?? {}));
  }
  const texts = [...new Set(bundled)].sort().map((name) => {
    const modules = join(here, 'node_modules', name);
    const { version, license } = JSON.parse(readFileSync(join(modules, 'package.json'), 'utf8'));
    const file = readdirSync(modules).find((one) => /^licen[cs]e/i.test(one));
    const text = file ? readFileSync(join(modules, file), 'utf8') : '';
    return `${name} ${version} (${license})\n\n${text.replaceAll('\r', '').replace(/[ \t]+$/gm, '').trim()}\n`;
  });
  return texts.join('\n' + '-'.repeat(80) + '\n\n');
}

function hashOf(text) {
  return `sha256-${createHash('sha256').update(text).digest('base64')}`;
}

mkdirSync(folder, { recursive: true });
const licenceText = licences();
const options = {
  bundle: true, minify: true, charset: 'utf8', write: false, legalComments: 'none', target: 'es2022',
  absWorkingDir: here, logLevel: 'warning',
};
const text = (result) => result.outputFiles[0].text.trim();
const given = {
  name: 'licences',
  setup(build) {
    build.onResolve({ filter: /LICENSES\.txt$/ }, () => ({ path: 'LICENSES.txt', namespace: 'licences' }));
    build.onLoad({ filter: /.*/, namespace: 'licences' }, () => ({ contents: licenceText, loader: 'text' }));
  },
};
const script = text(await esbuild.build({
  ...options, entryPoints: ['src/main.ts'], format: 'iife', plugins: [given],
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
