// Builds the viewer of page/src/viewer/ and of what the compiler has made of viewer/: node viewer.mjs FOLDER
// The folder has viewer.mjs, viewer.wasm and LICENSES.txt, and gets viewer.html, and reader.mjs for tests without a
// browser.
import { readFileSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { deflateSync } from 'node:zlib';
import esbuild from 'esbuild';
import { hashOf, licences, given } from './parts.mjs';

const here = fileURLToPath(new URL('.', import.meta.url));
const folder = resolve(process.argv[2]);
const options = {
  bundle: true, minify: true, charset: 'utf8', write: false, legalComments: 'none', target: 'es2022',
  absWorkingDir: here, logLevel: 'warning',
  define: { 'import.meta.url': '"file:///"' },
};
const text = (result) => result.outputFiles[0].text.trim();
const module = given('viewer-module', readFileSync(join(folder, 'viewer.mjs'), 'utf8'), 'js');
const worker = text(await esbuild.build({
  ...options, entryPoints: ['src/viewer/worker.ts'], format: 'iife', plugins: [module],
}));
const licenceText = `${licences()}\n${readFileSync(join(folder, 'LICENSES.txt'), 'utf8')}`;
const script = text(await esbuild.build({
  ...options, entryPoints: ['src/viewer/main.ts'], format: 'iife',
  plugins: [given(/LICENSES\.txt$/, licenceText, 'text'), given('viewer-worker', worker, 'text')],
}));
const style = text(await esbuild.build({ ...options, entryPoints: ['src/viewer/viewer.css'] }));
if (/<\/script|<!--|\{\{/i.test(script)) {
  throw new Error('the script has what would end it');
}
const packed = deflateSync(readFileSync(join(folder, 'viewer.wasm')), { level: 9 }).toString('base64');
const parts = {
  'script hash': hashOf(script), 'style hash': hashOf(style), style, module: packed, script,
};
const page = readFileSync(join(here, 'src/viewer/index.html'), 'utf8')
  .replace(/\{\{([a-z ]+)\}\}/g, (_, name) => parts[name]);
writeFileSync(join(folder, 'viewer.html'), page);
await esbuild.build({
  ...options, entryPoints: ['src/viewer/reader.ts'], format: 'esm', platform: 'node', write: true, plugins: [module],
  outfile: join(folder, 'reader.mjs'),
});
