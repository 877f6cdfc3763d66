// Icons drawn by the library into canvases, in the style that was chosen.

import { $, make } from './dom.js';
import { cards, isPaintings, methodOf } from './cards.js';
import { library } from './library.js';
import { picturesOf } from './pictures.js';
import { onChange, page, STYLE_FIELDS } from './state.js';
import { attributesOf } from './style.js';

// What an icon is filled with while no colour was chosen: the page's ink, so that it can be seen.
export function inkNow() {
  const [r, g, b] = getComputedStyle(document.body).color.match(/\d+/g).map(Number);
  return [r / 255, g / 255, b / 255, 1];
}
export const shownAttributes = () => attributesOf(page.state, inkNow());

// New sides clear a canvas and take new memory, so they are only set where they differ.
function put(canvas, { width, height, data }) {
  if (canvas.width !== width) canvas.width = width;
  if (canvas.height !== height) canvas.height = height;
  canvas.getContext('2d').putImageData(new ImageData(data, width, height), 0, 0);
}

export function paintInto(canvas, name, attributes) {
  put(canvas, picturesOf([name], { ...attributes, borrow: true })[0]);
  const [width, height] = [attributes.size].flat().length === 2 ? attributes.size
    : [attributes.size, attributes.size];
  canvas.style.width = `${width}px`;
  canvas.style.height = `${height}px`;
}

// Only what can be seen, or soon will be, is drawn.
const inSight = new Set();
const outdated = new Set();
let asked = false;
let measured = () => {};
export const onMeasured = (listener) => { measured = listener; };

function canvasOf(card) {
  let canvas = $('canvas', card);
  if (!canvas) {
    canvas = make('canvas', { 'aria-hidden': 'true' });
    $('.picture', card).append(canvas);
    card.classList.add('drawn');
  }
  return canvas;
}

// So many at once that their pixels stay in the processor's cache, and so few calls that a clock of a
// tenth of a millisecond tells their time.
const TOGETHER = 1 << 20;

function frame() {
  asked = false;
  const attributes = { ...shownAttributes(), borrow: true };
  const due = [...inSight].filter((card) => outdated.has(card) && !card.hidden);
  const together = Math.max(1, Math.floor(TOGETHER / (2 * attributes.size * attributes.scale) ** 2));
  let milliseconds = 0;
  for (let first = 0; first < due.length; first += together) {
    const some = due.slice(first, first + together);
    const begin = performance.now();
    const images = picturesOf(some.map(methodOf), attributes);
    milliseconds += performance.now() - begin;
    some.forEach((card, i) => {
      put(canvasOf(card), images[i]);
      outdated.delete(card);
    });
  }
  if (due.length) measured(due.length, milliseconds);
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
