// The npm package in node: pictures, search and mistakes; and the page's own search against both.
// Usage: module.mjs PACKAGE PROGRAM MANIFEST QUERIES SEARCH-SCRIPT
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';
import { compare, picturesOf } from './manifest.mjs';

const [folder, program, manifest, queries, searchScript] = process.argv.slice(2);
const { load } = await import(pathToFileURL(`${folder}/index.js`));
const { makeSearch } = await import(pathToFileURL(searchScript));
const list = JSON.parse(execFileSync(program, ['list', '--json'], { maxBuffer: 1 << 24 }));
const pageSearch = makeSearch(list);

for (const build of ['glyphwright.wasm', 'glyphwright-simd.wasm']) {
  const bytes = readFileSync(`${folder}/${build}`);
  const foreign = WebAssembly.Module.exports(new WebAssembly.Module(bytes)).map((each) => each.name)
    .filter((name) => name !== 'memory' && !name.startsWith('glyphwright_'));
  assert.deepEqual(foreign, [], 'only the C interface and the memory');
  const glyphwright = await load(bytes);
  const { drawn, wrong } = compare(glyphwright, readFileSync(manifest, 'utf8'));
  assert.deepEqual([wrong, drawn], [[], picturesOf(readFileSync(manifest, 'utf8'))], build);
  assert.deepEqual(glyphwright.icons().map((icon) => [icon.method, icon.keywords]),
    list.methods.map((method) => [method, list.keywords[method]]));
  assert.deepEqual(glyphwright.tabs().map((tab) => tab.sections.map((section) => section.cases.map((each) => each.method))),
    list.tabs.map((tab) => tab.sections.map((section) => section.cases.map((each) => each.rawValue))));
  const path = JSON.parse(execFileSync(program, ['path', 'Icons.heart', '--json']));
  assert.deepEqual(glyphwright.path('Icons.heart').elements, path.elements);

  // Mistakes are codes with a text, and nothing is lost by them.
  const refused = (act, code, text) => assert.throws(act, (error) => error.code === code && text.test(error.message));
  refused(() => glyphwright.path('hartPath'), 2, /heartPath/);
  refused(() => glyphwright.painting('nope'), 2, /nope/);
  refused(() => glyphwright.render('heartPath', { size: 1e9 }), 4, /size/);
  refused(() => glyphwright.render('heartPath', { size: Number.NaN }), 4, /size/);
  refused(() => glyphwright.render('heartPath', { fill: 'blurple' }), 1, /blurple/);
  refused(() => glyphwright.render('heartPath', { gradient: { colors: [] } }), 1, /colours/);
  assert.equal(glyphwright.render('heartPath', { size: 10 }).data.length, 400);

  const asked = readFileSync(queries, 'utf8').trim().split('\n').map((line) => line.split('\t')[0]);
  for (const query of [...asked, 'hart', 'thumbs up', '7', '#7', '#129', 'e', 'IDCard', ' ', 'App::Things::gear', 'ÄÖ♥']) {
    assert.deepEqual(glyphwright.search(query, 300), pageSearch(query, 300), query);
  }
}
const words = ['love', 'letter'];
const fromProgram = JSON.parse(execFileSync(program, ['search', ...words, '--json', '--limit', '300']));
assert.deepEqual(pageSearch(words.join(' '), 300), fromProgram);
console.log('ok: the package');
