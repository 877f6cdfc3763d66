// The cards of the page: which are shown, in what order, and how one gets about among them.

import { $, $$, copy, make, say } from './dom.js';
import { makeSearch, suggestWords } from './search.js';
import { change, onChange, page } from './state.js';

export const cards = $$('.card');
export const isPaintings = document.body.matches('.paintings-page');
export const nameOf = (card) => card.dataset.name;
export const methodOf = (card) => card.dataset.method;
export const shortNameOf = (card) => $('.name', card).textContent;
let shown = cards;
export const shownCards = () => shown;
export const cardNamed = (name) =>
  cards.find((card) => nameOf(card) === name) ?? cards.find((card) => methodOf(card) === name);
// What of a card has the keyboard: the picture, or the name of what has no drawing.
const stopOf = (card) => $('button.picture', card) ?? $('.name', card);

// Until the library is there, its search as a script.
export const catalogue = JSON.parse($('#catalogue').textContent);
export const finder = { search: makeSearch(catalogue) };

// Which are chosen to be taken away together

export const chosen = new Set();
const choiceListeners = [];
export const onChoice = (listener) => choiceListeners.push(listener);
export function choose(some, wanted) {
  for (const card of some) {
    if (!$('.pick', card)) continue;
    if (wanted) chosen.add(card);
    else chosen.delete(card);
    $('.pick', card).setAttribute('aria-pressed', String(wanted));
    card.classList.toggle('picked', wanted);
  }
  for (const listener of choiceListeners) listener();
}

// Search: what is found stands in one list, best first, each drawing once

const results = make('section', { id: 'results', class: 'tab', hidden: true, 'aria-label': 'Found' },
  make('ul', { class: 'grid' }));
$('#icons').insertBefore(results, $('.tab'));
const homes = $$('.grid, .paintings', $('#icons')).filter((grid) => !results.contains(grid))
  .map((grid) => [grid, $$('.card', grid)]);

function cardsFound(query) {
  const qualified = query.trim().replaceAll('::', '.').replace(/\(\)$/, '').replace(/\.path$/, '');
  const byMethod = new Map();
  for (const card of cards) {
    const known = byMethod.get(methodOf(card));
    // Of an icon the first case stands for all, or the one asked for; of an image all looks.
    if (known && isPaintings) known.push(card);
    else if (!known || nameOf(card) === qualified) byMethod.set(methodOf(card), [card]);
  }
  const hits = finder.search(query, 1000).filter((hit) => byMethod.has(hit.name));
  return { found: hits.flatMap((hit) => byMethod.get(hit.name)), guess: hits.some((hit) => hit.guess) };
}

function tellFound(query, count, guess) {
  const things = `${count} ${isPaintings ? 'image' : 'icon'}${count === 1 ? '' : 's'}`;
  $('#found').textContent = !query ? '' : count === 0 ? `Nothing for “${query}”`
    : guess ? `Nothing is called “${query}”. Spelled nearly alike: ${things}` : things;
  const nothing = $('.nothing');
  nothing.hidden = !query || count > 0;
  if (nothing.hidden) return;
  const words = suggestWords(catalogue, query);
  $('p', nothing).replaceChildren('No hit. Try ', ...words.flatMap((word, i) => [i ? ' ' : '',
    make('button', { type: 'button', class: 'pill', onclick: () => change({ q: word }) }, word)]));
}

function filter() {
  const query = page.state.q.trim();
  for (const [grid, home] of homes) grid.append(...home);
  const { found, guess } = query ? cardsFound(query) : { found: cards, guess: false };
  shown = found;
  const isFound = new Set(found);
  for (const card of cards) card.hidden = !isFound.has(card);
  results.hidden = !query || found.length === 0;
  if (query) $('.grid', results).append(...found);
  for (const [grid] of homes) {
    for (let group = grid.closest('.section'); group; group = group.parentElement.closest('.tab')) {
      group.hidden = query !== '';
    }
  }
  $('.tabs').classList.toggle('searching', query !== '');
  tellFound(query, found.length, guess);
  rove(shown[0]);
}

// One stop for the keyboard; arrows lead from card to card

let current;
function rove(card, focus = false) {
  if (current) stopOf(current).tabIndex = -1;
  current = card;
  if (!card) return;
  stopOf(card).tabIndex = 0;
  if (focus) stopOf(card).focus();
}

function neighbour(card, key) {
  const at = shown.indexOf(card);
  if (key === 'Home') return shown[0];
  if (key === 'End') return shown.at(-1);
  if (key === 'ArrowLeft') return shown[at - 1];
  if (key === 'ArrowRight') return shown[at + 1];
  // The nearest of the next row, which another section may have begun.
  const box = card.getBoundingClientRect();
  const down = key === 'ArrowDown';
  let row;
  let best;
  for (const other of down ? shown.slice(at + 1) : shown.slice(0, at).reverse()) {
    const { top, left } = other.getBoundingClientRect();
    if (Math.abs(top - box.top) < 2) continue;
    row ??= top;
    if (Math.abs(top - row) > 2) break;
    if (!best || Math.abs(left - box.left) < best.away) best = { card: other, away: Math.abs(left - box.left) };
  }
  return best?.card;
}

const KEYS = ['ArrowLeft', 'ArrowRight', 'ArrowUp', 'ArrowDown', 'Home', 'End'];
function onCardKey(event) {
  const card = event.target.closest('.card');
  if (!card || event.ctrlKey || event.metaKey || event.altKey) return;
  if (KEYS.includes(event.key)) {
    const next = neighbour(card, event.key);
    event.preventDefault();
    if (next) rove(next, true);
    else if (event.key === 'ArrowUp') $('#search').focus();
  } else if (event.key === 'c') {
    copy($('.name', card).dataset.copy);
  } else if (event.key === 'x') {
    choose([card], !chosen.has(card));
    say(chosen.has(card) ? `Selected ${shortNameOf(card)}` : `${shortNameOf(card)} is no longer selected`);
  }
}

export const focusCard = (card) => card && rove(card, true);

export function startCards() {
  for (const card of cards) {
    stopOf(card).tabIndex = -1;
    if (!$('.picture:not(.none)', card)) continue;
    card.append(make('button', { type: 'button', class: 'pick', tabindex: -1, 'aria-pressed': 'false',
      'aria-label': `Select ${shortNameOf(card)}`, onclick: () => choose([card], !chosen.has(card)) }));
  }
  $('#icons').addEventListener('keydown', onCardKey);
  $('#icons').addEventListener('focusin', (event) => {
    const card = event.target.closest('.card');
    if (card && card !== current) rove(card);
  });
  $('#icons').addEventListener('click', (event) => {
    const card = event.target.closest('.card');
    if (card && event.target.closest('button.picture')) change({ icon: nameOf(card) });
  });
  const search = $('#search');
  search.addEventListener('input', () => change({ q: search.value }));
  search.addEventListener('keydown', (event) => {
    const first = shown[0];
    if (event.key === 'Escape') change({ q: '' });
    if (event.key === 'Enter' && page.state.q.trim() && first) change({ icon: nameOf(first) });
    if (event.key === 'ArrowDown' && first) {
      event.preventDefault();
      focusCard(first);
    }
  });
  $('#clear-search').addEventListener('click', () => {
    change({ q: '' });
    search.focus();
  });
  onChange((changed) => {
    if (!changed.has('q')) return;
    if (search.value !== page.state.q) search.value = page.state.q;
    filter();
  });
}
