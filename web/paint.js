// Icons drawn by the library into canvases, in the style that was chosen.

import { $, make } from './dom.js';
import { cards, isPaintings, methodOf } from './cards.js';
import { library } from './library.js';
import { onChange, page, STYLE_FIELDS } from './state.js';
import { attributesOf } from './style.js';

// What an icon is filled with while no colour was chosen: the page's ink, so that it can be seen.
export function inkNow() {
  const [r, g, b] = getComputedStyle(document.body).color.match(/\d+/g).map(Number);
  return [r / 255, g / 255, b / 255, 1];
}
export const shownAttributes = () => attributesOf(page.state, inkNow());

export function paintInto(canvas, name, attributes) {
  const image = library.itself.imageData(name, attributes);
  canvas.width = image.width;
  canvas.height = image.height;
  const [width, height] = [attributes.size].flat().length === 2 ? attributes.size
    : [attributes.size, attributes.size];
  canvas.style.width = `${width}px`;
  canvas.style.height = `${height}px`;
  canvas.getContext('2d').putImageData(image, 0, 0);
}

// Only what can be seen, or soon will be, is drawn.
const inSight = new Set();
const outdated = new Set();
let asked = false;
let measured = () => {};
export const onMeasured = (listener) => { measured = listener; };

function frame() {
  asked = false;
  const attributes = shownAttributes();
  let milliseconds = 0;
  let count = 0;
  for (const card of inSight) {
    if (!outdated.has(card) || card.hidden) continue;
    let canvas = $('canvas', card);
    if (!canvas) {
      canvas = make('canvas', { 'aria-hidden': 'true' });
      $('.picture', card).append(canvas);
      card.classList.add('drawn');
    }
    const begin = performance.now();
    const image = library.itself.imageData(methodOf(card), attributes);
    milliseconds += performance.now() - begin;
    canvas.width = image.width;
    canvas.height = image.height;
    canvas.getContext('2d').putImageData(image, 0, 0);
    outdated.delete(card);
    ++count;
  }
  if (count) measured(count, milliseconds);
}

function ask() {
  if (asked) return;
  asked = true;
  requestAnimationFrame(frame);
}

export function repaint() {
  if (!library.itself) return;
  for (const card of cards) outdated.add(card);
  ask();
}

export function startPainting() {
  if (isPaintings) return;
  const watch = new IntersectionObserver((entries) => {
    for (const { target, isIntersecting } of entries) {
      if (isIntersecting) inSight.add(target);
      else inSight.delete(target);
    }
    ask();
  }, { rootMargin: '160px' });
  for (const card of cards) if ($('button.picture', card)) watch.observe(card);
  repaint();
  onChange((changed) => {
    if (STYLE_FIELDS.some((field) => changed.has(field))) repaint();
    else if (changed.has('q')) ask();
  });
  matchMedia('(prefers-color-scheme: dark)').addEventListener('change', repaint);
}
