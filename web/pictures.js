// Pictures as the program makes them. They differ from the library's own in two things: the ground lies
// under a border's ring, where the library leaves a black frame, and icons of bare strokes, which have
// nothing to fill, are drawn with a pen of their own.

import { cards, methodOf } from './cards.js';
import { $ } from './dom.js';
import { library } from './library.js';

const bare = new Set(cards.filter((card) => $('.picture path[fill=none]', card)).map(methodOf));
export const isBare = (name) => bare.has(name);

const roomOfShadow = ({ dropShadow }) =>
  (dropShadow ? dropShadow.blur + 2 * Math.max(Math.abs(dropShadow.x), Math.abs(dropShadow.y)) : 0);

// The pen of bare strokes in a square of that side: its width counts in the outline's own units.
export function ownPenWidth({ bounds, lineWidth }, side) {
  const scale = Math.min(...[bounds.width, bounds.height].filter((each) => each > 0)
    .map((each) => side / (each + lineWidth)));
  return Number.isFinite(scale) ? Math.max(0, lineWidth * scale) : 0;
}

function withOwnPen(name, { gradient, insetShadow, ...attributes }) {
  // The library's strokes have one colour.
  const color = gradient ? gradient.colors[0] : attributes.fill;
  const width = ownPenWidth(library.itself.path(name), attributes.size - roomOfShadow(attributes));
  return { ...attributes, stroke: { color, width } };
}

// In the library's own arithmetic: 15-bit fractions, 64 levels a byte.
const scaled = (a, b) => (a * b + 0x4000) >> 15;
function layOver(below, above, offset) {
  for (let y = 0; y < above.height; ++y) {
    for (let x = 0; x < above.width; ++x) {
      const from = 4 * (y * above.width + x);
      const to = 4 * ((y + offset) * below.width + x + offset);
      const alpha = above.data[from + 3];
      const rest = 32767 - scaled(alpha * 128 + (alpha >> 1), 32767);
      for (let c = 0; c < 4; ++c) {
        const sum = above.data[from + c] * 64 + scaled(below.data[to + c] * 64, rest);
        below.data[to + c] = scaled(sum, 512);
      }
    }
  }
}

function makeStraight({ data }) {
  for (let at = 0; at < data.length; at += 4) {
    const alpha = data[at + 3];
    if (alpha === 0 || alpha === 255) continue;
    for (let c = at; c < at + 3; ++c) {
      data[c] = Math.floor((Math.min(data[c], alpha) * 255 + (alpha >> 1)) / alpha);
    }
  }
}

// Ground, ring and icon in layers.
function withRing(name, { background, ...attributes }) {
  const draw = (look) => library.itself.render(name, { ...look, borrow: false, premultiplied: true });
  const { size, scale, border } = attributes;
  const hasOwnPen = isBare(name) && !attributes.stroke;
  const whole = draw({ size, scale, fill: '#0000', background: background ?? '#0000' });
  if (!hasOwnPen) {
    layOver(whole, draw(attributes), 0);
  } else {
    const inner = { ...attributes, border: undefined, size: size - 2 * border.width };
    const width = ownPenWidth(library.itself.path(name), inner.size) + 2 * border.width;
    layOver(whole, draw({ size, scale, fill: border.color, stroke: { color: border.color, width } }), 0);
    if (inner.size > 0) layOver(whole, draw(withOwnPen(name, inner)), border.width * scale);
  }
  makeStraight(whole);
  return whole;
}

// Icons alike, with attributes as `attributesOf` gives them; those to be painted at once are borrowed.
export function picturesOf(names, attributes) {
  if (attributes.border && (attributes.background || names.some(isBare))) {
    return names.map((name) => withRing(name, attributes));
  }
  if (attributes.stroke || !names.some(isBare)) {
    return library.itself.renderAll(names, attributes);
  }
  return names.map((name) => library.itself.render(name, {
    ...(isBare(name) ? withOwnPen(name, attributes) : attributes), borrow: false }));
}
