import { Glyphwright, fromModule, hasSimd } from './glyphwright.js';

export { Glyphwright, GlyphwrightError, hasSimd } from './glyphwright.js';

/** The library, from the build that stands beside this file or from the one given. */
export async function load(source) {
  if (source !== undefined) return fromModule(source);
  const file = new URL(hasSimd() ? 'glyphwright-simd.wasm' : 'glyphwright.wasm', import.meta.url);
  if (file.protocol !== 'file:') return fromModule(await fetch(file));
  const { readFile } = await import('node:fs/promises');
  return fromModule(await readFile(file));
}
