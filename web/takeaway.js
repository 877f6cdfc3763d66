// What one takes away: pictures of the library's own pixels, outlines, and many at once.

import { $, make, save, say } from './dom.js';
import { choose, chosen, methodOf, onChoice, shownCards } from './cards.js';
import { encodePng, encodeZip, sheetOf } from './files.js';
import { library } from './library.js';
import { page } from './state.js';
import { attributesOf } from './style.js';

export const pixelsOf = (card, scale) =>
  library.itself.render(methodOf(card), { ...attributesOf(page.state), scale });

export async function pngOf(card, scale) {
  return encodePng(pixelsOf(card, scale));
}

// The outline as a document of its own, as the program's `path --svg` writes it; with a chosen fill,
// filled with that at the chosen size. Shadows and rings are pixels and stay out.
export function svgOf(card) {
  const svg = $('svg', card).cloneNode(true);
  svg.removeAttribute('aria-hidden');
  const { fill, gradient, size } = page.state;
  const path = $('path', svg);
  const painted = path.getAttribute('fill') === 'none' ? 'stroke' : 'fill';
  const [, , width, height] = svg.getAttribute('viewBox').split(' ');
  svg.setAttribute('width', fill || gradient ? size : width);
  svg.setAttribute('height', fill || gradient ? size : height);
  if (gradient) {
    const { colors, direction } = attributesOf(page.state).gradient;
    const ends = { topToBottom: [0, 0, 0, 1], leftToRight: [0, 0, 1, 0],
      topLeftToBottomRight: [0, 0, 1, 1], bottomLeftToTopRight: [1, 1, 0, 0] }[direction];
    const stops = colors.map((color, i) =>
      `<stop offset="${i / (colors.length - 1)}" stop-color="${color}"/>`).join('');
    svg.insertAdjacentHTML('afterbegin', `<linearGradient id="g" x1="${ends[0]}" y1="${ends[1]}" ` +
      `x2="${ends[2]}" y2="${ends[3]}">${stops}</linearGradient>`);
    path.setAttribute(painted, 'url(#g)');
  } else if (fill) {
    path.setAttribute(painted, `#${fill}`);
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
