// The library itself, once it is there: it stands in the page as a compressed module.

import { $ } from './dom.js';
import { fromModule, hasSimd } from '../wasm/glyphwright.js';

export const library = { itself: null, build: '' };

async function unpacked(element) {
  const packed = Uint8Array.from(atob(element.textContent.trim()), (c) => c.charCodeAt(0));
  const stream = new Blob([packed]).stream().pipeThrough(new DecompressionStream('gzip'));
  return new Response(stream).arrayBuffer();
}

// Gives whether the page has the library now. Without it the page stays as it was made.
export async function wakeLibrary() {
  // The module stands at the page's end, so that nothing has to wait for it.
  if (document.readyState === 'loading') {
    await new Promise((ready) => document.addEventListener('DOMContentLoaded', ready, { once: true }));
  }
  const element = (hasSimd() ? $('#module-simd') : null) ?? $('#module-plain');
  if (!element || typeof DecompressionStream === 'undefined') return false;
  try {
    library.itself = await fromModule(await unpacked(element));
  } catch (error) {
    console.warn('The library does not run in this browser:', error);
    return false;
  }
  library.build = element.id.replace('module-', '');
  return true;
}
