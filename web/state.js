// What the page shows, as one value that the address holds: query, style, size, icon. A link brings
// back the same; back and forward go through what was shown.

const COLOR = '[0-9a-f]{6}(?:[0-9a-f]{2})?';
const NUMBER = '-?\\d{1,3}(?:\\.\\d{1,2})?';
const WIDTH = '\\d{1,2}(?:\\.\\d{1,2})?';
export const DIRECTIONS =
  ['topToBottom', 'leftToRight', 'topLeftToBottomRight', 'bottomLeftToTopRight'];

const pattern = (text) => {
  const whole = new RegExp(`^${text}$`, 'i');
  return (value) => (whole.test(value) ? value : undefined);
};
const within = (least, most) => (value) =>
  /^\d+$/.test(value) && value >= least && value <= most ? Number(value) : undefined;
const text = (longest) => (value) => value.slice(0, longest);

// Each field with its usual value and a reader that gives undefined for what it cannot be. Styles are
// written as the program's options are, colours without their #.
const FIELDS = {
  q: ['', text(128)],
  fill: ['', pattern(COLOR)],
  gradient: ['', pattern(`${COLOR}(?:,${COLOR}){1,2}:(?:${DIRECTIONS.join('|')})`)],
  background: ['', pattern(COLOR)],
  stroke: ['', pattern(`${COLOR}:${WIDTH}`)],
  border: ['', pattern(`${COLOR}:\\d{1,2}`)],
  drop: ['', pattern(`${COLOR}:${NUMBER},${NUMBER}:${WIDTH}`)],
  inset: ['', pattern(`${COLOR}:${NUMBER},${NUMBER}:${WIDTH}`)],
  size: [48, within(12, 256)],
  scale: [2, within(1, 3)],
  icon: ['', text(128)],
  view: ['', pattern('pixels|outline|motion')],
};

export const usual = Object.fromEntries(Object.entries(FIELDS).map(([key, [value]]) => [key, value]));
export const STYLE_FIELDS =
  ['fill', 'gradient', 'background', 'stroke', 'border', 'drop', 'inset', 'size', 'scale'];

export function readAddress(hash) {
  const state = { ...usual };
  if (!hash.includes('=')) return state;
  for (const [key, value] of new URLSearchParams(hash.replace(/^#/, ''))) {
    const read = Object.hasOwn(FIELDS, key) ? FIELDS[key][1](value) : undefined;
    if (read !== undefined) state[key] = read;
  }
  return state;
}

export function writeAddress(state) {
  const changed = Object.keys(FIELDS).filter((key) => state[key] !== usual[key]);
  const parts = new URLSearchParams(changed.map((key) => [key, state[key]]));
  return `#${parts.toString().replaceAll('%2C', ',').replaceAll('%3A', ':')}`;
}

// Everybody who shows a part of the state listens; everybody who changes it calls `change`.
export const page = { state: { ...usual } };
const listeners = [];
export const onChange = (listener) => listeners.push(listener);

let settled;
function remember(now) {
  clearTimeout(settled);
  const address = writeAddress(page.state);
  const write = () => {
    if (address === (location.hash || '#')) return;
    // Without a state to write, the address says where on the page one is.
    if (address === '#' && !location.hash.includes('=')) return;
    history.pushState(null, '', address);
  };
  // Not every letter and every step of a slider is a place to come back to.
  if (now) write();
  else settled = setTimeout(write, 350);
}

function show(state, remembered) {
  const before = page.state;
  page.state = state;
  const changed = new Set(Object.keys(state).filter((key) => state[key] !== before[key]));
  if (changed.size === 0) return;
  for (const listener of listeners) listener(changed);
  if (!remembered) remember(changed.has('icon'));
}

export const change = (values) => show({ ...page.state, ...values }, false);

export function startWithAddress() {
  page.state = readAddress(location.hash);
  for (const listener of listeners) listener(new Set(Object.keys(usual)));
  addEventListener('popstate', () => show(readAddress(location.hash), true));
}
