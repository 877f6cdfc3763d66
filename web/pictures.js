// Pictures as the program makes them: each icon stands on its own.

import { cards, methodOf } from './cards.js';
import { $ } from './dom.js';
import { library } from './library.js';

// Drawings of bare strokes have nothing to fill and a pen of their own.
const bare = new Set(cards.filter((card) => $('.picture path[fill=none]', card)).map(methodOf));
export const isBare = (name) => bare.has(name);

// The pen of bare strokes in a square of that side: its width counts in the outline's own units.
export function ownPenWidth({ bounds, lineWidth }, side) {
  const scale = Math.min(...[bounds.width, bounds.height].filter((each) => each > 0)
    .map((each) => side / (each + lineWidth)));
  return Number.isFinite(scale) ? Math.max(0, lineWidth * scale) : 0;
}

// Icons alike, with attributes as `attributesOf` gives them; those to be painted at once are borrowed.
export function picturesOf(names, attributes) {
  return library.itself.renderAll(names, { ...attributes, standalone: true });
}
