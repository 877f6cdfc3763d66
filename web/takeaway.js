// What one takes away: pictures of the library's own pixels, outlines, and many at once.

import { $, make, save, say } from './dom.js';
import { choose, chosen, methodOf, onChoice, shownCards } from './cards.js';
import { encodePng, encodeZip, sheetOf } from './files.js';
import { library } from './library.js';
import { isBare, ownPenWidth, picturesOf } from './pictures.js';
import { page, STYLE_FIELDS, usual } from './state.js';
import { attributesOf } from './style.js';
import { svgDocument } from './svg.js';

export const pixelsOf = (card, scale) =>
  picturesOf([methodOf(card)], { ...attributesOf(page.state), scale })[0];

export async function pngOf(card, scale) {
  return encodePng(pixelsOf(card, scale));
}

// An icon's outline as a document needs it.
function outlineOf(card) {
  return { ...library.itself.path(methodOf(card)), isBare: isBare(methodOf(card)),
    data: $('svg path', card).getAttribute('d') };
}

// With nothing chosen the outline as the program's `path --svg` writes it; otherwise with the chosen
// style, as `render` does.
export function svgOf(card) {
  if (library.itself && STYLE_FIELDS.some((field) => field !== 'scale' && page.state[field] !== usual[field])) {
    return svgDocument(outlineOf(card), attributesOf(page.state), ownPenWidth);
  }
  const svg = $('svg', card).cloneNode(true);
  svg.removeAttribute('aria-hidden');
  const [, , width, height] = svg.getAttribute('viewBox').split(' ');
  svg.setAttribute('width', width);
  svg.setAttribute('height', height);
  if (page.state.fill) {
    const path = $('path', svg);
    path.setAttribute(path.getAttribute('fill') === 'none' ? 'stroke' : 'fill', `#${page.state.fill}`);
  }
  return `${new XMLSerializer().serializeToString(svg)}\n`;
}

const PNG = 'image/png', SVG = 'image/svg+xml', ZIP = 'application/zip';

export async function savePng(card, scale) {
  save(await pngOf(card, scale), PNG, `${methodOf(card)}${scale === 1 ? '' : `@${scale}x`}.png`);
}
export const saveSvg = (card) => save(svgOf(card), SVG, `${methodOf(card)}.svg`);

// Cases that share a drawing are one file.
const drawingsOf = (some) => [...new Map(some.map((card) => [methodOf(card), card])).values()];

async function saveZip() {
  const files = [];
  for (const card of drawingsOf([...chosen])) {
    files.push([`${methodOf(card)}.svg`, new TextEncoder().encode(svgOf(card))]);
    if (!library.itself) continue;
    for (const scale of [1, 2, 3]) {
      files.push([`${methodOf(card)}${scale === 1 ? '' : `@${scale}x`}.png`, await pngOf(card, scale)]);
    }
  }
  save(encodeZip(files), ZIP, 'glyphwright-icons.zip');
  say(`${files.length} files in one zip`);
}

async function saveSheet() {
  const { scale } = page.state;
  const images = drawingsOf([...chosen]).map((card) => pixelsOf(card, scale));
  save(await encodePng(sheetOf(images, 8 * scale)), PNG, 'glyphwright-sheet.png');
}

// The bar that appears with the first selected icon.
export function startChoosing() {
  const bar = $('#chosen');
  const count = make('strong', { 'aria-live': 'polite' });
  const action = (text, onclick, kind = '') =>
    make('button', { type: 'button', class: `pill ${kind}`, onclick }, text);
  bar.append(count, action('Zip', saveZip, 'main'), action('Sheet', saveSheet, 'alive-only'),
    action('Select all shown', () => choose(shownCards(), true)),
    action('Clear', () => choose([...chosen], false)));
  onChoice(() => {
    bar.hidden = chosen.size === 0;
    document.body.classList.toggle('choosing', chosen.size > 0);
    count.textContent = `${chosen.size} selected`;
  });
}
