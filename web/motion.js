// The icon in motion: a gradient sweeping through it, its outline being drawn, its turning into
// another one. The browser moves the library's outline; a slider holds the time.

import { $, make, prefersStill } from './dom.js';
import { methodOf, shortNameOf } from './cards.js';
import { page } from './state.js';

const KINDS = [['sweep', 'Sweep'], ['draw', 'Draw'], ['morph', 'Morph']];
const SECONDS = 2.5, POINTS = 160;
let kind = 'sweep';
let other = 'checkmarkPath';

const fillOf = () => (page.state.fill ? `#${page.state.fill}` : 'currentColor');
const sweepColors = () => (page.state.gradient ? page.state.gradient.split(':')[0].split(',')
  : ['ff2d6b', 'ff9e33', 'ffd84d']).map((hex) => `#${hex}`);

function sweeping(svg) {
  const [first, middle, last] = [...sweepColors(), sweepColors()[0]];
  svg.insertAdjacentHTML('afterbegin', `<linearGradient id="sweep" gradientUnits="objectBoundingBox" ` +
    `spreadMethod="repeat" x1="0" y1="0" x2="1.5" y2="0"><stop stop-color="${first}"/>` +
    `<stop offset=".33" stop-color="${middle}"/><stop offset=".66" stop-color="${last}"/>` +
    `<stop offset="1" stop-color="${first}"/></linearGradient>`);
  $('path', svg).setAttribute('fill', 'url(#sweep)');
  return (time) => $('linearGradient', svg).setAttribute('gradientTransform', `translate(${1.5 * time} 0)`);
}

function drawing(svg) {
  const path = $('path', svg);
  const width = Number(svg.getAttribute('viewBox').split(' ')[2]) / 48;
  for (const [name, value] of Object.entries({ fill: 'none', stroke: fillOf(), 'stroke-width': 1.5 * width,
    'stroke-linecap': 'round', 'stroke-linejoin': 'round', pathLength: 1, 'stroke-dasharray': 1 })) {
    path.setAttribute(name, value);
  }
  svg.setAttribute('overflow', 'visible');
  return (time) => path.setAttribute('stroke-dashoffset', 1 - Math.min(1, time / 0.8));
}

// Each contour as points at even distances, in a box of 1 × 1; small contours of the one meet a point
// of the other where that has fewer.
function contoursOf(svg) {
  const path = $('path', svg);
  const [x, y, width, height] = svg.getAttribute('viewBox').split(' ').map(Number);
  const side = Math.max(width, height);
  return path.getAttribute('d').split(/(?=M)/).map((data) => {
    const one = document.createElementNS('http://www.w3.org/2000/svg', 'path');
    one.setAttribute('d', data);
    const length = one.getTotalLength();
    return Array.from({ length: POINTS }, (_, i) => {
      const point = one.getPointAtLength((length * i) / POINTS);
      return [(point.x - x - width / 2) / side, (point.y - y - height / 2) / side];
    });
  });
}

const middleOf = (points) => [0, 1].map((k) => points.reduce((sum, point) => sum + point[k], 0) / points.length);

// Turned round so that the way of all points is shortest.
function aligned(from, to) {
  let best = { away: Infinity };
  for (let shift = 0; shift < POINTS; shift += 4) {
    let away = 0;
    for (let i = 0; i < POINTS; i += 4) {
      const [ax, ay] = from[i];
      const [bx, by] = to[(i + shift) % POINTS];
      away += (ax - bx) ** 2 + (ay - by) ** 2;
    }
    if (away < best.away) best = { away, shift };
  }
  return to.map((_, i) => to[(i + best.shift) % POINTS]);
}

function morphing(svg, target) {
  const from = contoursOf(svg);
  const to = contoursOf(target);
  const count = Math.max(from.length, to.length);
  const point = (near) => Array.from({ length: POINTS }, () => middleOf(near));
  const pairs = Array.from({ length: count }, (_, i) => {
    const a = from[i] ?? point(to[i]);
    return [a, aligned(a, to[i] ?? point(from[i]))];
  });
  const path = $('path', svg);
  svg.setAttribute('viewBox', '-0.5 -0.5 1 1');
  path.setAttribute('fill', fillOf());
  return (time) => {
    // There and back, resting at both ends.
    const t = Math.min(1, Math.max(0, 1.4 * (1 - Math.abs(2 * time - 1)) - 0.2));
    const eased = t * t * (3 - 2 * t);
    path.setAttribute('d', pairs.map(([a, b]) => `M${a.map(([ax, ay], i) =>
      `${(ax + (b[i][0] - ax) * eased).toFixed(4)} ${(ay + (b[i][1] - ay) * eased).toFixed(4)}`).join('L')}Z`).join(''));
  };
}

// Gives what stops it.
export function startMotion(stage, card, cards) {
  const screen = make('div', { class: 'screen' });
  const slider = make('input', { type: 'range', min: 0, max: 1, step: 0.001, value: 0, 'aria-label': 'Time' });
  const play = make('button', { type: 'button', class: 'pill' });
  const targets = [...new Map(cards.filter((each) => $('svg', each)).map((each) => [methodOf(each), each])).values()];
  const select = make('select', { 'aria-label': 'Turns into', onchange: () => { other = select.value; show(); } },
    ...targets.map((each) => make('option', { value: methodOf(each), selected: methodOf(each) === other }, shortNameOf(each))));
  const kinds = make('div', { class: 'choice buttons', role: 'group', 'aria-label': 'Kind of motion' },
    ...KINDS.map(([name, title]) => make('button', { type: 'button', 'data-kind': name,
      onclick: () => { kind = name; show(); } }, title)));
  stage.replaceChildren(screen, make('div', { class: 'under' }, kinds, select, play, slider));

  let at = () => {};
  let running = 0;
  let last;
  const stop = () => {
    cancelAnimationFrame(running);
    running = 0;
    play.textContent = 'Play';
  };
  const tick = (now) => {
    const time = (Number(slider.value) + (now - (last ?? now)) / 1000 / SECONDS) % 1;
    last = now;
    slider.value = time;
    at(time);
    running = requestAnimationFrame(tick);
  };
  const start = () => {
    last = undefined;
    play.textContent = 'Pause';
    running = requestAnimationFrame(tick);
  };
  const show = () => {
    const svg = $('svg', card).cloneNode(true);
    screen.replaceChildren(svg);
    select.hidden = kind !== 'morph';
    for (const button of kinds.children) button.setAttribute('aria-pressed', String(button.dataset.kind === kind));
    const target = targets.find((each) => methodOf(each) === other) ?? targets[0];
    at = kind === 'sweep' ? sweeping(svg) : kind === 'draw' ? drawing(svg) : morphing(svg, $('svg', target));
    at(Number(slider.value));
  };
  play.addEventListener('click', () => (running ? stop() : start()));
  slider.addEventListener('input', () => {
    stop();
    at(Number(slider.value));
  });
  stop();
  show();
  if (prefersStill()) {
    slider.value = 0.35;
    at(0.35);
  } else {
    start();
  }
  return stop;
}
