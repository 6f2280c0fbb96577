// Runs the tests of test/ by node's own runner.
import { spawnSync } from 'node:child_process';
import { mkdtempSync, readdirSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath } from 'node:url';
import esbuild from 'esbuild';

const here = fileURLToPath(new URL('.', import.meta.url));
const folder = mkdtempSync(join(tmpdir(), 'page-tests-'));
try {
  const names = readdirSync(join(here, 'test')).filter((name) => name.endsWith('.test.ts'));
  await esbuild.build({
    absWorkingDir: here, entryPoints: names.map((name) => `test/${name}`), bundle: true, platform: 'node',
    format: 'esm', outdir: folder, outExtension: { '.js': '.mjs' }, logLevel: 'warning', target: 'node18',
  });
  const files = readdirSync(folder).map((name) => join(folder, name));
  process.exitCode = spawnSync(process.execPath, ['--test', ...files], { stdio: 'inherit', cwd: here }).status ?? 1;
} finally {
  rmSync(folder, { recursive: true });
}
