// The page is complete without this script; here it comes to life, part by part.

import { $, $$, copy, make, memory, say } from './dom.js';
import { finder, isPaintings, startCards } from './cards.js';
import { startDetails } from './detail.js';
import { library, wakeLibrary } from './library.js';
import { repaint, startPainting } from './paint.js';
import { startPanel } from './panel.js';
import { change, page, startWithAddress } from './state.js';
import { startChoosing } from './takeaway.js';

const THEMES = { '': 'as the system', light: 'light', dark: 'dark' };
const themeNow = () => document.documentElement.dataset.theme ?? '';

function setTheme(theme) {
  if (theme) document.documentElement.dataset.theme = theme;
  else delete document.documentElement.dataset.theme;
  const label = `Colours: ${THEMES[theme]}`;
  $('#theme').setAttribute('aria-label', label);
  $('#theme').title = label;
  memory.set('theme', theme);
  repaint();
}

function startTheme() {
  const names = Object.keys(THEMES);
  $('#theme').hidden = false;
  $('#theme').addEventListener('click', () => {
    setTheme(names[(names.indexOf(themeNow()) + 1) % names.length]);
    say(`Colours: ${THEMES[themeNow()]}`);
  });
  const remembered = memory.get('theme');
  setTheme(Object.hasOwn(THEMES, remembered ?? 'none') ? remembered : '');
}

const KEYS = [['/', 'Search'], ['Enter', 'In the search: open the first hit; on an icon: look closer'],
  ['← → ↑ ↓', 'From icon to icon; in the details: the next one'], ['c', 'Copy the name of the icon'],
  ['x', 'Select the icon, to take several away'], ['s', 'Show or hide the style'],
  ['Esc', 'Clear the search, close what is open'], ['?', 'This help']];

function startHelp() {
  const help = $('#help');
  help.append(make('header', { class: 'bar' }, make('h2', { id: 'help-title' }, 'Keys'),
    make('button', { type: 'button', 'aria-label': 'Close', onclick: () => help.close() }, '×')),
  make('dl', {}, ...KEYS.flatMap(([key, text]) => [make('dt', {}, ...key.split(' ').map((one) => make('kbd', {}, one))),
    make('dd', {}, text)])));
  help.addEventListener('click', (event) => { if (event.target === help) help.close(); });
}

function onKey(event) {
  if (event.ctrlKey || event.metaKey || event.altKey || $('dialog[open]')) return;
  if (event.target.matches('input:not([type=range], [type=checkbox], [type=radio]), textarea, select')) return;
  if (event.key === '/') {
    event.preventDefault();
    $('#search').focus();
    $('#search').select();
  } else if (event.key === '?') {
    $('#help').showModal();
  } else if (event.key === 's' && !$('#restyle').hidden) {
    $('#restyle').click();
  } else if (event.key === 'Escape' && page.state.q) {
    change({ q: '' });
  }
}

// The area whose icons are in sight.
function startAreas() {
  const watch = new IntersectionObserver((entries) => {
    for (const { target, isIntersecting } of entries) {
      if (!isIntersecting) continue;
      for (const link of $$('.tabs a')) {
        if (link.hash === `#${target.id}`) {
          link.setAttribute('aria-current', 'true');
          const { offsetLeft, offsetWidth, parentElement: bar } = link;
          bar.scrollTo({ left: offsetLeft - (bar.clientWidth - offsetWidth) / 2 });
        } else {
          link.removeAttribute('aria-current');
        }
      }
    }
  }, { rootMargin: '-30% 0px -65% 0px' });
  for (const area of $$('.tab[id]')) watch.observe(area);
  // The address belongs to the state; an area is only scrolled to.
  $('.tabs').addEventListener('click', (event) => {
    const link = event.target.closest('a');
    if (!link?.hash) return;
    event.preventDefault();
    change({ q: '' });
    $(link.hash)?.scrollIntoView();
  });
}

document.addEventListener('click', (event) => {
  const button = event.target.closest('[data-copy]');
  if (button) copy(button.dataset.copy);
});
document.addEventListener('keydown', onKey);
startCards();
startTheme();
startHelp();
startAreas();
const wakers = isPaintings ? [] : [startPanel(), startDetails()];
if (!isPaintings) startChoosing();
startWithAddress();

wakeLibrary().then((awake) => {
  document.documentElement.dataset.library = awake ? library.build : 'none';
  if (!awake) return;
  finder.search = (words, limit) => library.itself.search(words, limit);
  startPainting();
  for (const { wake } of wakers) wake();
});
