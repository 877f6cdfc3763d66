// Small helpers that every part of the page uses.

export const $ = (selector, root = document) => root.querySelector(selector);
export const $$ = (selector, root = document) => [...root.querySelectorAll(selector)];

// Makes an element: properties that begin with "on" are listeners, the rest attributes.
export function make(tag, properties = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (name.startsWith('on')) element.addEventListener(name.slice(2), value);
    else if (value === true) element.setAttribute(name, '');
    else if (value !== false && value !== undefined) element.setAttribute(name, value);
  }
  element.append(...children);
  return element;
}

// What was chosen is remembered, where the browser allows a page from a file to remember anything.
export const memory = {
  get(key) {
    try { return localStorage.getItem('glyphwright.' + key); } catch { return null; }
  },
  set(key, value) {
    try { localStorage.setItem('glyphwright.' + key, value); } catch { /* not remembered */ }
  },
};

// Where something has to stand to be seen while a dialog is open.
const onTop = () => $$('dialog[open]').at(-1) ?? document.body;

let toastTimer;
export function say(text) {
  const toast = $('#toast');
  onTop().append(toast);
  toast.textContent = text;
  toast.classList.add('shown');
  clearTimeout(toastTimer);
  toastTimer = setTimeout(() => toast.classList.remove('shown'), 1800);
}

function copyBySelection(text) {
  const area = make('textarea', { 'aria-hidden': 'true', class: 'hidden' });
  area.value = text;
  const focused = document.activeElement;
  onTop().append(area);
  area.select();
  const done = document.execCommand('copy');
  area.remove();
  focused?.focus();
  return done;
}

export async function copy(text, what = text) {
  let done = true;
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    done = copyBySelection(text);
  }
  say(done ? `Copied ${what}` : 'This browser does not allow copying');
}

export function save(content, type, name) {
  const link = make('a', { href: URL.createObjectURL(new Blob([content], { type })), download: name });
  link.click();
  setTimeout(() => URL.revokeObjectURL(link.href), 10_000);
}

export const prefersStill = () => matchMedia('(prefers-reduced-motion: reduce)').matches;
