// An outline with its points and handles, and icons as points for what moves.

import { make } from './dom.js';

const SPACE = 'http://www.w3.org/2000/svg';
const shape = (tag, properties) => {
  const element = document.createElementNS(SPACE, tag);
  for (const [name, value] of Object.entries(properties)) element.setAttribute(name, value);
  return element;
};

// The elements of path data as the page's outlines have it: M, L, Q, C and Z with absolute numbers.
export function elementsOf(data) {
  return (data.match(/[MLQCZ][^MLQCZ]*/g) ?? []).map((text) =>
    [text[0], ...(text.slice(1).match(/-?[\d.]+(?:e-?\d+)?/g) ?? []).map(Number)]);
}

export function outlineView(svg) {
  const [x, y, width, height] = svg.getAttribute('viewBox').split(' ').map(Number);
  const unit = Math.max(width, height) / 100;
  const margin = 4 * unit;
  const drawing = shape('svg', { viewBox: [x - margin, y - margin, width + 2 * margin, height + 2 * margin].join(' '),
    role: 'img', 'aria-label': 'Outline with points and handles' });
  const path = svg.querySelector('path').cloneNode();
  path.setAttribute('class', 'shape');
  drawing.append(shape('rect', { x, y, width, height, class: 'frame' }), path);
  let points = 0;
  let last;
  const handles = [];
  const nodes = [];
  for (const [verb, ...numbers] of elementsOf(path.getAttribute('d'))) {
    const pairs = [];
    for (let i = 0; i < numbers.length; i += 2) pairs.push([numbers[i], numbers[i + 1]]);
    const end = pairs.at(-1);
    if (!end) continue;
    const controls = pairs.slice(0, -1);
    controls.forEach((control, i) => {
      const from = controls.length === 2 && i === 1 ? end : last;
      handles.push(shape('line', { x1: from[0], y1: from[1], x2: control[0], y2: control[1], class: 'handle' }),
        shape('circle', { cx: control[0], cy: control[1], r: 0.7 * unit, class: 'control' }));
    });
    nodes.push(shape('rect', { x: end[0] - unit, y: end[1] - unit, width: 2 * unit, height: 2 * unit,
      class: verb === 'M' ? 'node first' : 'node' }));
    points += pairs.length;
    last = end;
  }
  drawing.style.setProperty('--unit', unit);
  drawing.append(...handles, ...nodes);
  return [drawing, make('p', { class: 'under' }, `${nodes.length} points, ${points - nodes.length} handles`)];
}
