// What is common to the pages that are built here.
import { createHash } from 'node:crypto';
import { readdirSync, readFileSync } from 'node:fs';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';

const here = fileURLToPath(new URL('.', import.meta.url));

// What the bundle has in it, with its licence as its makers give it.
export function licences() {
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

export function hashOf(text) {
  return `sha256-${createHash('sha256').update(text).digest('base64')}`;
}

// Gives this text where a script imports this name, or one that looks so.
export function given(name, contents, loader) {
  const filter = typeof name === 'string' ? new RegExp(`^${name}$`) : name;
  const namespace = `given-${filter.source.replace(/\W/g, '')}`;
  return {
    name: namespace,
    setup(build) {
      build.onResolve({ filter }, () => ({ path: namespace, namespace }));
      build.onLoad({ filter: /.*/, namespace }, () => ({ contents, loader }));
    },
  };
}
