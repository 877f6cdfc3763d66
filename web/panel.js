// The controls that restyle the icons. Each control shows a part of the state and changes it; the
// grid and the details follow the state.

import { $, $$, copy, make, memory, say } from './dom.js';
import { onMeasured, paintInto } from './paint.js';
import { change, DIRECTIONS, onChange, page, STYLE_FIELDS, usual, writeAddress } from './state.js';
import { attributesOf } from './style.js';

const ARROWS = { topToBottom: ['↓', 'Top to bottom'], leftToRight: ['→', 'Left to right'],
  topLeftToBottomRight: ['↘', 'To the lower right'], bottomLeftToTopRight: ['↖', 'To the upper left'] };

const LOOKS = {
  Plain: {},
  Ember: { gradient: 'ff2d6b,ff9e33:topLeftToBottomRight' },
  Sea: { gradient: '2f6bff,35e0c8:leftToRight' },
  Dusk: { gradient: '3a1c71,d76d77,ffaf7b:topToBottom' },
  Sticker: { fill: 'ff4d5e', stroke: 'ffffff:2.5', drop: '00000059:0,2:4' },
  Badge: { fill: 'ffffff', background: '5b3df5' },
  Carved: { fill: 'c9ccd6', inset: '000000b3:0,1.5:3' },
  Line: { fill: '00000000', stroke: 'e0492f:1.5' },
};

const hexOf = (color) => `#${color.slice(0, 6)}`;
const alphaOf = (color) => Math.round((parseInt(color.slice(6, 8) || 'ff', 16) / 255) * 100);
const colorFrom = (hex, percent) => hex.slice(1) +
  (percent >= 100 ? '' : Math.round((percent / 100) * 255).toString(16).padStart(2, '0'));

let serial = 0;
function row(label, ...controls) {
  return make('div', { class: 'row' }, make('span', { class: 'label', 'aria-hidden': 'true' }, label), ...controls);
}

function colorInput(label, oninput) {
  return make('input', { type: 'color', 'aria-label': label, oninput });
}

// A slider with its value beside it.
function slider(label, { min, max, step = 1, unit = '' }, oninput) {
  const output = make('output', {});
  const input = make('input', { type: 'range', min, max, step, 'aria-label': label,
    oninput: () => { output.value = `${input.value}${unit}`; oninput(); } });
  const set = (value) => { input.value = value; output.value = `${input.value}${unit}`; };
  return { row: row(label, input, output), input, set };
}

function choice(legend, options, onchange) {
  const name = `choice-${++serial}`;
  const inputs = options.map(([value, text, title]) => {
    const input = make('input', { type: 'radio', name, value, onchange: () => onchange(value) });
    return make('label', { title: title ?? false }, input,
      make('span', title ? { 'aria-hidden': 'true' } : {}, text),
      ...(title ? [make('span', { class: 'hidden' }, title)] : []));
  });
  const set = (value) => $$('input', field).forEach((input) => { input.checked = input.value === String(value); });
  const field = make('fieldset', { class: 'choice' }, make('legend', { class: 'hidden' }, legend), ...inputs);
  return { field, set };
}

// A part that can be switched on: its controls write one text of the state, and read it back.
function part(title, field, initial, controls, write, read) {
  const body = make('div', { class: 'part-body' }, ...controls);
  const toggle = make('input', { type: 'checkbox', role: 'switch',
    onchange: () => change({ [field]: toggle.checked ? initial : '' }) });
  const show = () => {
    const text = page.state[field];
    toggle.checked = text !== '';
    body.hidden = text === '';
    if (text) read(text);
  };
  const update = () => change({ [field]: write() });
  return { element: make('section', { class: 'part alive-only' },
    make('label', { class: 'switch' }, make('span', {}, title), toggle), body), show, update };
}

function linePart(title, field, initial) {
  let self;
  const color = colorInput(`${title}: colour`, () => self.update());
  const width = slider('Width', { min: 0.5, max: 12, step: 0.5 }, () => self.update());
  if (field === 'border') Object.assign(width.input, { min: 1, step: 1 });
  self = part(title, field, initial, [row('Colour', color), width.row],
    () => `${color.value.slice(1)}:${width.input.value}`,
    (text) => {
      const [hex, points] = text.split(':');
      color.value = hexOf(hex);
      width.set(points);
    });
  return self;
}

function shadowPart(title, field, initial) {
  let self;
  const update = () => self.update();
  const color = colorInput(`${title}: colour`, update);
  const strength = slider('Strength', { min: 0, max: 100, unit: ' %' }, update);
  const x = slider('Right', { min: -12, max: 12, step: 0.5 }, update);
  const y = slider('Down', { min: -12, max: 12, step: 0.5 }, update);
  const blur = slider('Blur', { min: 0, max: 24, step: 0.5 }, update);
  self = part(title, field, initial, [row('Colour', color), strength.row, x.row, y.row, blur.row],
    () => `${colorFrom(color.value, strength.input.value)}:${x.input.value},${y.input.value}:${blur.input.value}`,
    (text) => {
      const [hex, offset, radius] = text.split(':');
      const [dx, dy] = offset.split(',');
      color.value = hexOf(hex);
      strength.set(alphaOf(hex));
      x.set(dx);
      y.set(dy);
      blur.set(radius);
    });
  return self;
}

function backgroundPart() {
  let self;
  const color = colorInput('Background: colour', () => self.update());
  self = part('Background', 'background', 'ffe9d6', [row('Colour', color)],
    () => color.value.slice(1), (hex) => { color.value = hexOf(hex); });
  return self;
}

function fillPart() {
  const color = colorInput('Fill: colour', () => change({ fill: color.value.slice(1) }));
  const colors = [0, 1, 2].map((i) => colorInput(`Gradient: colour ${i + 1}`, () => updateGradient()));
  const third = make('button', { type: 'button', class: 'small', onclick: () => {
    colors[2].hidden = !colors[2].hidden;
    updateGradient();
  } });
  const direction = choice('Direction of the gradient',
    DIRECTIONS.map((name) => [name, ...ARROWS[name]]), (value) => updateGradient(value));
  const currentDirection = () => page.state.gradient.split(':')[1] ?? DIRECTIONS[0];
  const updateGradient = (to = currentDirection()) => change({ gradient:
    `${colors.filter((each) => !each.hidden).map((each) => each.value.slice(1)).join(',')}:${to}` });
  const kind = choice('Fill', [['flat', 'Colour'], ['gradient', 'Gradient']], (value) =>
    change({ gradient: value === 'gradient' ? LOOKS.Ember.gradient : '' }));
  const flat = row('Colour', color);
  const gradient = make('div', { class: 'part-body' }, row('Colours', ...colors, third),
    row('Direction', direction.field));
  kind.field.classList.add('alive-only');
  const element = make('section', { class: 'part' }, make('h3', {}, 'Fill'), kind.field, flat, gradient);
  const show = () => {
    const { fill, gradient: text } = page.state;
    kind.set(text ? 'gradient' : 'flat');
    flat.hidden = text !== '';
    gradient.hidden = text === '';
    color.value = fill ? hexOf(fill) : '#26211d';
    if (!text) return;
    const [list, to] = text.split(':');
    const hexes = list.split(',');
    hexes.forEach((hex, i) => { colors[i].value = hexOf(hex); });
    colors[2].hidden = hexes.length < 3;
    third.textContent = hexes.length < 3 ? '+' : '−';
    third.setAttribute('aria-label', hexes.length < 3 ? 'Add a third colour' : 'Remove the third colour');
    direction.set(to);
  };
  return { element, show };
}

function looks() {
  const style = (look) => Object.fromEntries(STYLE_FIELDS.filter((field) => field !== 'size' && field !== 'scale')
    .map((field) => [field, look[field] ?? '']));
  const canvases = [];
  const buttons = Object.entries(LOOKS).map(([name, look]) => {
    const canvas = make('canvas', { 'aria-hidden': 'true' });
    canvases.push([canvas, look]);
    return make('button', { type: 'button', class: 'look', onclick: () => change(style(look)) }, canvas,
      make('span', {}, name));
  });
  const paint = () => canvases.forEach(([canvas, look]) => paintInto(canvas, 'heartPath',
    { ...attributesOf({ ...usual, ...look, size: 30, scale: 2 }, '#6f665e') }));
  return { element: make('div', { class: 'looks alive-only', role: 'group', 'aria-label': 'Ready-made looks' },
    ...buttons), paint };
}

function sizes() {
  const size = slider('Size', { min: 12, max: 256, unit: ' pt' },
    () => change({ size: Number(size.input.value) }));
  const scale = choice('Pixels per point', [[1, '1×'], [2, '2×'], [3, '3×']],
    (value) => change({ scale: Number(value) }));
  const scaleRow = row('Scale', scale.field);
  scaleRow.classList.add('alive-only');
  const show = () => {
    size.set(page.state.size);
    scale.set(page.state.scale);
    document.documentElement.style.setProperty('--icon', `${page.state.size}px`);
  };
  return { element: make('section', { class: 'part' }, size.row, scaleRow), show };
}

export function startPanel() {
  const panel = $('#style');
  const button = $('#restyle');
  const ready = looks();
  const parts = [sizes(), fillPart(), backgroundPart(), linePart('Outline', 'stroke', 'e0492f:1.5'),
    linePart('Border', 'border', 'e0492f:2'), shadowPart('Drop shadow', 'drop', '00000080:0,2:4'),
    shadowPart('Inset shadow', 'inset', '00000099:0,1.5:3')];
  const figure = make('p', { class: 'figure alive-only', title: 'The time that the library took' });
  const reset = make('button', { type: 'button', class: 'pill', onclick: () =>
    change(Object.fromEntries(STYLE_FIELDS.map((field) => [field, usual[field]]))) }, 'Reset');
  const link = make('button', { type: 'button', class: 'pill', onclick: () =>
    copy(location.href.split('#')[0] + writeAddress(page.state), 'a link to this view') }, 'Copy link');
  const close = make('button', { type: 'button', class: 'close', 'aria-label': 'Close the style panel',
    onclick: () => { open(false); button.focus(); } }, '×');
  panel.append(make('header', {}, make('h2', {}, 'Style'), close), ready.element,
    ...parts.map((each) => each.element), make('p', { class: 'actions' }, reset, link), figure);

  const wide = matchMedia('(min-width: 64rem)');
  const open = (wanted) => {
    panel.hidden = !wanted;
    button.setAttribute('aria-expanded', String(wanted));
    document.body.classList.toggle('styling', wanted);
    if (wide.matches) memory.set('style', wanted ? 'open' : 'closed');
  };
  button.hidden = false;
  button.addEventListener('click', () => open(panel.hidden));
  panel.addEventListener('keydown', (event) => {
    if (event.key !== 'Escape') return;
    open(false);
    button.focus();
  });
  open(wide.matches && memory.get('style') !== 'closed');

  onMeasured((count, milliseconds) => {
    figure.textContent = `${count} icon${count === 1 ? '' : 's'} drawn in ${milliseconds.toFixed(1)} ms`;
  });
  onChange((changed) => {
    if (!STYLE_FIELDS.some((field) => changed.has(field))) return;
    for (const each of parts) each.show();
    document.documentElement.style.setProperty('--fill', page.state.fill ? `#${page.state.fill}` : '');
  });
  return { wake: ready.paint };
}
