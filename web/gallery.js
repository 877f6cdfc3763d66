'use strict';

// The page is complete without this script; here are search, copying, sizes, colours and details.

const $ = (selector, root = document) => root.querySelector(selector);
const $$ = (selector, root = document) => [...root.querySelectorAll(selector)];

const cards = $$('.card');
const search = $('#search');
const dialog = $('#details');

// What was chosen is remembered, where the browser allows a page from a file to remember anything.
const memory = {
  get(key) {
    try { return localStorage.getItem('glyphwright.' + key); } catch { return null; }
  },
  set(key, value) {
    try { localStorage.setItem('glyphwright.' + key, value); } catch { /* not remembered */ }
  },
};

// Copying

let toastTimer;
function say(text) {
  const toast = $('#toast');
  toast.textContent = text;
  (dialog.open ? dialog : document.body).append(toast);
  toast.classList.add('shown');
  clearTimeout(toastTimer);
  toastTimer = setTimeout(() => toast.classList.remove('shown'), 1600);
}

function copyBySelection(text) {
  const area = document.createElement('textarea');
  area.value = text;
  (dialog.open ? dialog : document.body).append(area);
  area.select();
  const done = document.execCommand('copy');
  area.remove();
  return done;
}

async function copy(text, what) {
  let done = true;
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    done = copyBySelection(text);
  }
  say(done ? `Copied ${what}` : 'This browser does not allow copying');
}

document.addEventListener('click', (event) => {
  const button = event.target.closest('[data-copy]');
  if (button) copy(button.dataset.copy, button.dataset.copy);
});

// Search: a card stays when every word is somewhere in its names, its section or its area

const haystacks = cards.map((card) => {
  const section = card.closest('.section');
  const { name, method, icons, type } = card.dataset;
  const names = [name, method, icons, section.dataset.title, section.closest('.tab').dataset.title];
  const spaced = names.join(' ').replace(/([a-z0-9])([A-Z])/g, '$1 $2');
  return `${names.join(' ')} ${spaced} #${type || ''}`.toLowerCase();
});

function filter() {
  const words = search.value.toLowerCase().split(/\s+/).filter(Boolean);
  let count = 0;
  cards.forEach((card, i) => {
    card.hidden = !words.every((word) => haystacks[i].includes(word));
    if (!card.hidden) ++count;
  });
  for (const group of $$('.section, .tab')) {
    const matches = $$('.card:not([hidden])', group).length;
    group.hidden = matches === 0;
    if (group.matches('.section')) $('h3 small', group).textContent = matches;
  }
  for (const link of $$('.tabs a')) {
    const tab = $(link.hash);
    link.hidden = tab.hidden;
    $('small', link).textContent = $$('.card:not([hidden])', tab).length;
  }
  $('.nothing').hidden = count > 0;
  $('#found').textContent = words.length === 0 ? '' : count === 1 ? '1 icon' : `${count} icons`;
}

search.addEventListener('input', filter);
if (search.value) filter();

document.addEventListener('keydown', (event) => {
  if (event.ctrlKey || event.metaKey || event.altKey) return;
  if (event.key === '/' && event.target !== search && !dialog.open) {
    event.preventDefault();
    search.focus();
    search.select();
  } else if (event.key === 'Escape' && event.target === search) {
    search.value = '';
    filter();
  }
});

// Sizes and colours

function setSize(size) {
  document.documentElement.style.setProperty('--icon', `${size}px`);
  memory.set('size', size);
}
for (const radio of $$('.sizes input')) {
  radio.addEventListener('change', () => setSize(radio.value));
  if (radio.value === memory.get('size')) {
    radio.checked = true;
    setSize(radio.value);
  }
}

const themes = ['', 'light', 'dark'];
const themeNames = { '': 'as the system', light: 'light', dark: 'dark' };
function setTheme(theme) {
  if (theme) document.documentElement.dataset.theme = theme;
  else delete document.documentElement.dataset.theme;
  $('#theme').setAttribute('aria-label', `Colours: ${themeNames[theme]}`);
  $('#theme').title = `Colours: ${themeNames[theme]}`;
  memory.set('theme', theme);
}
const currentTheme = () => document.documentElement.dataset.theme || '';
$('#theme').addEventListener('click', () => {
  setTheme(themes[(themes.indexOf(currentTheme()) + 1) % themes.length]);
  say(`Colours: ${themeNames[currentTheme()]}`);
});
setTheme(themes.includes(memory.get('theme')) ? memory.get('theme') : '');

// The tab whose icons are in sight

const inSight = new IntersectionObserver((entries) => {
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
for (const tab of $$('.tab')) inSight.observe(tab);

// Details

let shown = null;

function fact(list, term, text, copies = true) {
  if (!text) return;
  const dt = document.createElement('dt');
  dt.textContent = term;
  const dd = document.createElement('dd');
  if (copies) {
    const button = document.createElement('button');
    button.type = 'button';
    button.dataset.copy = button.textContent = text;
    button.title = 'Copy';
    dd.append(button);
  } else {
    dd.textContent = text;
  }
  list.append(dt, dd);
}

function show(card) {
  shown = card;
  const { name, method, icons, type, frame, rule, elements } = card.dataset;
  const svg = $('svg', card);
  $('#details-name').textContent = $('.name', card).textContent;
  $('.stage', dialog).replaceChildren(svg.cloneNode(true));
  for (const ground of $$('.grounds div', dialog)) {
    ground.replaceChildren(...[16, 24, 32, 48].map((size) => {
      const copyOfSvg = svg.cloneNode(true);
      copyOfSvg.setAttribute('width', size);
      copyOfSvg.setAttribute('height', size);
      return copyOfSvg;
    }));
  }
  const list = $('dl', dialog);
  list.replaceChildren();
  if (name !== method) {
    fact(list, 'Case', name);
    fact(list, 'C++', `${name.replaceAll('.', '::')}.path()`);
  }
  fact(list, 'Method', method);
  fact(list, 'C++', `UIBezierPath::${method}()`);
  fact(list, 'Icons', icons);
  fact(list, 'Integer type', type);
  fact(list, 'Frame', `${frame} points`, false);
  fact(list, 'Outline', `${elements} elements, ${rule}`, false);
  if (!dialog.open) dialog.showModal();
}

function step(by) {
  const visible = cards.filter((card) => !card.hidden && $('svg', card));
  show(visible[(visible.indexOf(shown) + by + visible.length) % visible.length]);
}

for (const card of cards) {
  const picture = $('button.picture', card);
  if (picture) picture.addEventListener('click', () => show(card));
}
$('#previous').addEventListener('click', () => step(-1));
$('#next').addEventListener('click', () => step(1));
dialog.addEventListener('keydown', (event) => {
  if (event.key === 'ArrowLeft') step(-1);
  if (event.key === 'ArrowRight') step(1);
});
dialog.addEventListener('click', (event) => {
  if (event.target === dialog) dialog.close();
});
dialog.addEventListener('close', () => {
  const picture = shown && $('.picture', shown);
  if (picture) picture.focus();
});

const svgText = () => {
  const svg = $('svg', shown).cloneNode(true);
  svg.removeAttribute('aria-hidden');
  return new XMLSerializer().serializeToString(svg);
};
$('#copy-svg').addEventListener('click', () => copy(svgText(), 'the SVG'));
$('#save-svg').addEventListener('click', () => {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([svgText()], { type: 'image/svg+xml' }));
  link.download = `${shown.dataset.method}.svg`;
  link.click();
  URL.revokeObjectURL(link.href);
});
