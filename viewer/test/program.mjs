// The module against the program, byte by byte: node program.mjs FOLDER PROGRAM BOARD...
// Each board is read by the module as the page does it and by the program as people do, and all that they make of it
// must be the same. Ends with 1 where it is not.
import { execFileSync, spawnSync } from 'node:child_process';
import { mkdtempSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { basename, dirname, join, resolve } from 'node:path';
import { pathToFileURL } from 'node:url';
import { inflateSync } from 'node:zlib';

const [built, program, ...boards] = process.argv.slice(2);
// The module is for workers.
globalThis.self = globalThis;
self.location = { href: '' };
const { Reader } = await import(pathToFileURL(resolve(built, 'reader.mjs')));
const compiled = await WebAssembly.compile(readFileSync(join(built, 'viewer.wasm')));
const positions = [];
const LISTINGS = ['info', 'bom', 'components', 'nets', 'layers', 'stackup', 'packages', 'pins', 'pads', 'holes',
  'tracks', 'check'];
const folder = mkdtempSync(join(tmpdir(), 'viewer-'));
let findings = 0;

// What a reader of the module makes, or a text that begins with what went wrong.
async function readerOf(...paths) {
  const sources = paths.map((path) => {
    const bytes = readFileSync(path);
    return { name: basename(path), size: bytes.length, bytes: (begin, end) => bytes.subarray(begin, end) };
  });
  const reader = await Reader.of(compiled, sources, (percent) => positions.push(percent));
  return {
    does(task, isExact = false) {
      reader.readExactly(isExact);
      try {
        return Buffer.from(reader.do(task));
      } catch (error) {
        return Buffer.from(`failed: ${error.message}`);
      }
    },
  };
}

function ofProgram(board, command, ...options) {
  const { stdout, stderr, status } = spawnSync(resolve(program), [command, ...options],
    { cwd: dirname(board), maxBuffer: 2 ** 31 });
  const isMade = status === 0 || ((command === 'check' || command === 'diff') && status === 1);
  return isMade ? stdout : Buffer.from(`failed: ${stderr}`);
}

// The data that stand in a page.
function pageOf(board, ...options) {
  const page = join(folder, 'page.html');
  rmSync(page, { force: true });
  execFileSync(resolve(program), ['html', ...options, '-o', page], { cwd: dirname(board), stdio: 'ignore' });
  const [, packed] = /id="board-data">([^<]*)</.exec(readFileSync(page, 'latin1'));
  return inflateSync(Buffer.from(packed, 'base64'));
}

// Where the two go apart, for whoever looks for the cause.
function firstDifference(left, right) {
  const end = Math.min(left.length, right.length);
  let at = 0;
  while (at < end && left[at] === right[at]) {
    ++at;
  }
  const around = (bytes) => JSON.stringify(bytes.subarray(Math.max(0, at - 60), at + 60).toString('latin1'));
  return `${left.length} and ${right.length} bytes, at ${at}:\n  ${around(left)}\n  ${around(right)}`;
}

function compare(what, own, told) {
  const isFailure = (bytes) => bytes.subarray(0, 6).toString() === 'failed';
  if (own.equals(told) || (isFailure(own) && isFailure(told))) {
    return;
  }
  ++findings;
  console.log(`${what}: ${firstDifference(own, told)}`);
}

async function compareBoard(path) {
  const board = resolve(path);
  const name = basename(board);
  const reader = await readerOf(board);
  const isRead = ofProgram(board, 'info', name).subarray(0, 6).toString() !== 'failed';
  if (isRead) {
    compare(`${name} page`, reader.does({ kind: 'page' }), pageOf(board, name));
  }
  for (const listing of LISTINGS) {
    for (const format of ['csv', 'json']) {
      compare(`${name} ${listing} ${format}`, reader.does({ kind: 'listing', name: listing, format }),
        ofProgram(board, listing, name, '--format', format));
    }
  }
  for (const options of [[], ['--exact']]) {
    const target = join(folder, 'written.cvg');
    rmSync(target, { force: true });
    const told = ofProgram(board, 'convert', name, target, ...options);
    compare(`${name} convert ${options}`, reader.does({ kind: 'board' }, options.length > 0),
      told.length === 0 ? readFileSync(target) : told);
  }
}

async function compareTwo(before, after) {
  const reader = await readerOf(resolve(before), resolve(after));
  const other = resolve(before);
  compare(`${basename(before)} against ${basename(after)}`, reader.does({ kind: 'page' }),
    pageOf(resolve(after), other, '--against', basename(after)));
}

try {
  for (const board of boards) {
    await compareBoard(board);
    console.log(`${basename(board)} ${(performance.now() / 1000).toFixed(1)} s`);
  }
  if (boards.length > 1) {
    await compareTwo(boards[0], boards[1]);
  }
} finally {
  rmSync(folder, { recursive: true });
}
process.exitCode = findings === 0 ? 0 : 1;
