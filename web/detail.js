// One icon looked at closely, in a dialog: its picture, pixels, outline and motion on the left, what
// it is called, its sizes, files and code on the right.

import { $, $$, copy, make } from './dom.js';
import { cardNamed, cards, catalogue, focusCard, methodOf, nameOf, shortNameOf, shownCards } from './cards.js';
import { library } from './library.js';
import { startMotion } from './motion.js';
import { inkNow, paintInto, shownAttributes } from './paint.js';
import { change, onChange, page, STYLE_FIELDS } from './state.js';
import { outlineView } from './outline.js';
import { picturesOf } from './pictures.js';
import { codeFor, cppName } from './style.js';
import { savePng, saveSvg, svgOf } from './takeaway.js';

const VIEWS = [['', 'Picture'], ['pixels', 'Pixels'], ['outline', 'Outline'], ['motion', 'Motion']];
const SIZES = [16, 24, 32, 48, 64, 96];
const LARGE = 256;

let card = null;
let pixelSize = 24;
let codeKind = 'C++';
const stopMotion = { now: () => {} };

const svgCopy = (of, size) => {
  const svg = $('svg', of).cloneNode(true);
  svg.setAttribute('width', size);
  svg.setAttribute('height', size);
  return svg;
};

// An icon at a size: the library's picture of it, plain without attributes, or its outline while there
// is no library.
function picture(of, size, attributes) {
  if (!library.itself) return svgCopy(of, size);
  const canvas = make('canvas', { 'aria-hidden': 'true' });
  const scale = Math.min(3, Math.max(1, Math.ceil(devicePixelRatio)));
  paintInto(canvas, methodOf(of), { ...(attributes ?? { fill: inkNow() }), scale, size });
  return canvas;
}

function pixelView() {
  const canvas = make('canvas', { class: 'enlarged', role: 'img', 'aria-label': 'Its pixels, enlarged' });
  const slider = make('input', { type: 'range', min: 12, max: 64, value: pixelSize, 'aria-label': 'Pixels a side' });
  const output = make('output', {});
  const draw = () => {
    pixelSize = Number(slider.value);
    output.value = `${pixelSize} × ${pixelSize} pixels`;
    paintInto(canvas, methodOf(card), { ...shownAttributes(), size: pixelSize, scale: 1 });
    canvas.style.cssText = `--pixels: ${pixelSize}`;
  };
  slider.addEventListener('input', draw);
  draw();
  return [make('div', { class: 'magnified' }, canvas, make('div', { class: 'raster', style: `--pixels: ${pixelSize}` })),
    make('label', { class: 'under' }, slider, output)];
}

function showStage() {
  stopMotion.now();
  stopMotion.now = () => {};
  const stage = $('.stage', dialog());
  const view = library.itself || page.state.view === 'outline' ? page.state.view : '';
  for (const button of $$('.views button', dialog())) {
    button.setAttribute('aria-pressed', String(button.dataset.view === view));
  }
  stage.className = `stage ${view}`;
  if (view === 'pixels') {
    stage.replaceChildren(...pixelView());
    const slider = $('input', stage);
    slider.addEventListener('input', () => $('.raster', stage).style.setProperty('--pixels', slider.value));
  } else if (view === 'outline') {
    stage.replaceChildren(...outlineView($('svg', card)));
  } else if (view === 'motion') {
    stopMotion.now = startMotion(stage, card, cards);
  } else {
    stage.replaceChildren(picture(card, LARGE, shownAttributes()));
  }
}

function fact(term, ...content) {
  return [make('dt', {}, term), make('dd', {}, ...content)];
}
const copier = (text) => make('button', { type: 'button', 'data-copy': text, title: 'Copy' }, text);

function facts() {
  const { name, method, frame, rule, elements } = card.dataset;
  const uses = [];
  for (const { name: enumeration, cases } of catalogue.enumerations) {
    for (const each of cases) if (each.rawValue === method) uses.push(`${enumeration}.${each.name}`);
  }
  for (const each of catalogue.icons) if (each.rawValue === method) uses.push(`Icons.${each.name}`);
  const numbers = catalogue.types.filter((each) => each.method === method).map((each) => each.value);
  return make('dl', {}, ...fact('C++', copier(cppName(name, method))),
    ...(name === method ? [] : fact('Method', copier(`UIBezierPath::${method}()`))),
    ...(uses.length ? fact(uses.length > 1 ? 'Names' : 'Name', ...uses.map(copier)) : []),
    ...(numbers.length ? fact(numbers.length > 1 ? 'Numbers' : 'Number', numbers.join(', ')) : []),
    ...fact('Frame', `${frame} points`), ...fact('Outline', `${elements} elements, ${rule}`),
    ...fact('Found by', (catalogue.keywords[method] ?? []).join(', ')));
}

function sizes() {
  return make('div', { class: 'grounds', role: 'img', 'aria-label': 'On light and on dark' },
    ...['light', 'dark'].map((ground) => make('div', { class: ground }, ...SIZES.map((size) => {
      const ink = ground === 'light' ? '#26211d' : '#f3eee8';
      return picture(card, size, { ...shownAttributes(), ...(page.state.fill || page.state.background ? {} : { fill: ink }) });
    }))));
}

function code() {
  const ways = codeFor(card.dataset, page.state);
  const pre = make('pre', { tabindex: 0, 'aria-label': 'Code' });
  const buttons = ways.map(([title]) => make('button', { type: 'button', onclick: () => {
    codeKind = title;
    showCode();
  }, 'data-kind': title }, title));
  let current = '';
  const showCode = () => {
    const [title, text] = ways.find(([each]) => each === codeKind) ?? ways[0];
    current = text;
    pre.textContent = text;
    for (const button of buttons) button.setAttribute('aria-pressed', String(button.dataset.kind === title));
  };
  showCode();
  return make('section', { class: 'code' }, make('h3', {}, 'Code'),
    make('div', { class: 'choice buttons' }, ...buttons), pre,
    make('button', { type: 'button', class: 'pill', onclick: () => copy(current, 'the code') }, 'Copy code'));
}

function files() {
  const button = (text, onclick, kind = '') =>
    make('button', { type: 'button', class: `pill ${kind}`, onclick }, text);
  return make('section', {}, make('h3', {}, 'Take away'), make('p', { class: 'actions' },
    ...[1, 2, 3].map((scale) => button(`PNG ${scale}×`, () => savePng(card, scale), 'alive-only')),
    button('SVG', () => saveSvg(card)), button('Copy SVG', () => copy(svgOf(card), 'the SVG'))));
}

// Others that look alike: the sums of differences between their pictures at 24 pixels.
const small = new Map();
function nearTwins() {
  if (small.size === 0) {
    for (const each of new Map(cards.filter((one) => $('svg', one)).map((one) => [methodOf(one), one])).values()) {
      const [{ data }] = picturesOf([methodOf(each)], { fill: '#000', size: 24, scale: 1 });
      small.set(methodOf(each), [each, data.filter((_, i) => i % 4 === 3)]);
    }
  }
  const [, own] = small.get(methodOf(card));
  const away = (other) => own.reduce((sum, value, i) => sum + Math.abs(value - other[i]), 0);
  return [...small.values()].filter(([each]) => methodOf(each) !== methodOf(card))
    .map(([each, alpha]) => [each, away(alpha)]).sort((a, b) => a[1] - b[1]).slice(0, 6).map(([each]) => each);
}

// Others for the same thing: those that share most keywords.
function related() {
  const own = new Set(catalogue.keywords[methodOf(card)] ?? []);
  const shared = (other) => (catalogue.keywords[methodOf(other)] ?? []).filter((word) => own.has(word)).length;
  const others = new Map(cards.filter((one) => $('svg', one) && methodOf(one) !== methodOf(card))
    .map((one) => [methodOf(one), one]));
  return [...others.values()].map((each) => [each, shared(each)]).filter(([, count]) => count > 0)
    .sort((a, b) => b[1] - a[1]).slice(0, 6).map(([each]) => each);
}

function others(title, some) {
  if (some.length === 0) return '';
  return make('section', {}, make('h3', {}, title), make('div', { class: 'others' }, ...some.map((each) =>
    make('button', { type: 'button', 'aria-label': shortNameOf(each), title: shortNameOf(each),
      onclick: () => change({ icon: nameOf(each) }) }, picture(each, 32)))));
}

const dialog = () => $('#details');

function showIcon() {
  $('#details-name').textContent = shortNameOf(card);
  const side = $('.facts', dialog());
  const twins = library.itself ? nearTwins() : [];
  side.replaceChildren(sizes(), files(), facts(), code(), others('Look alike', twins), others('Related', related()));
  side.scrollTop = 0;
  showStage();
}

function step(by) {
  const drawn = shownCards().filter((each) => $('svg', each));
  const at = drawn.indexOf(card);
  change({ icon: nameOf(drawn[(at + by + drawn.length) % drawn.length]) });
}

function showState(changed) {
  const next = page.state.icon ? cardNamed(page.state.icon) : null;
  if (!next || !$('svg', next)) {
    if (dialog().open) dialog().close();
    return;
  }
  if (next !== card || changed.has('icon')) {
    card = next;
    showIcon();
  } else if (STYLE_FIELDS.some((field) => changed.has(field))) {
    showIcon();
  } else if (changed.has('view')) {
    showStage();
  }
  if (!dialog().open) dialog().showModal();
}

export function startDetails() {
  const button = (label, text, onclick) =>
    make('button', { type: 'button', 'aria-label': label, title: label, onclick }, text);
  const close = () => change({ icon: '', view: '' });
  dialog().append(
    make('header', { class: 'bar' }, button('Previous icon', '←', () => step(-1)),
      button('Next icon', '→', () => step(1)), make('h2', { id: 'details-name', tabindex: -1, autofocus: true }), button('Close', '×', close)),
    make('div', { class: 'closer' },
      make('div', { class: 'views choice buttons', role: 'group', 'aria-label': 'View' }, ...VIEWS.map(([view, title]) =>
        make('button', { type: 'button', 'data-view': view, class: view === '' || view === 'outline' ? '' : 'alive-only',
          onclick: () => change({ view }) }, title))),
      make('div', { class: 'stage' })),
    make('div', { class: 'facts' }));
  dialog().addEventListener('keydown', (event) => {
    if (event.target.matches('input, select, pre') || event.ctrlKey || event.metaKey || event.altKey) return;
    if (event.key === 'ArrowLeft') step(-1);
    if (event.key === 'ArrowRight') step(1);
  });
  dialog().addEventListener('click', (event) => {
    if (event.target === dialog()) close();
  });
  dialog().addEventListener('close', () => {
    stopMotion.now();
    if (page.state.icon) close();
    const last = card;
    card = null;
    if (last && !last.hidden) focusCard(last);
  });
  onChange((changed) => {
    if (['icon', 'view', ...STYLE_FIELDS].some((field) => changed.has(field))) showState(changed);
  });
  return { wake: () => { if (card) showIcon(); } };
}
