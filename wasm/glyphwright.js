// The library as a WebAssembly module: icons as paths and as pixels, the same to the last bit as
// everywhere else.

// The C interface's numbers and the places of its fields, for 32-bit addresses.
const RGBA_PREMULTIPLIED = 0, RGBA_STRAIGHT = 2;
const STROKE = 1, BORDER = 2, DROP_SHADOW = 4, INSET_SHADOW = 8, GRADIENT = 16, STANDALONE = 32;
const SELECTED = 1, WITH_BACKGROUND = 2;
const ATTRIBUTES_SIZE = 336, BUFFER_SIZE = 24, ELEMENTS_SIZE = 20, PEN_SIZE = 32, RECT_SIZE = 32;
const PAINTING_SIZE = 40, PAINTING_OPTIONS_SIZE = 64, ICON_SIZE = 24;
const MESSAGE_CAPACITY = 512, MOST_STOPS = 64, LONGEST_TEXT = 1024;
const OUT_OF_MEMORY = 6, INVALID_ARGUMENT = 1;

const DIRECTIONS = {
  topToBottom: [0, 0, 0, 1],
  leftToRight: [0, 0, 1, 0],
  topLeftToBottomRight: [0, 0, 1, 1],
  // From the lower right to the upper left; the name has outlived that.
  bottomLeftToTopRight: [1, 1, 0, 0],
};

/** What the library refused: `code` is the status of the C interface. */
export class GlyphwrightError extends Error {
  constructor(code, message, options) {
    super(message, options);
    this.name = 'GlyphwrightError';
    this.code = code;
  }
}

function refuse(message) {
  throw new GlyphwrightError(INVALID_ARGUMENT, message);
}

function number(value, what, otherwise) {
  if (value === undefined || value === null) return otherwise;
  return typeof value === 'number' ? value : refuse(`${what} is not a number: ${String(value)}`);
}

/** `#RGB`, `#RGBA`, `#RRGGBB`, `#RRGGBBAA` or four numbers from 0 to 1. */
function channels(color) {
  if (Array.isArray(color) && color.length === 4 && color.every((c) => typeof c === 'number')) {
    return color;
  }
  const hex = /^#([0-9a-f]{3,4}|[0-9a-f]{6}|[0-9a-f]{8})$/i.exec(color)?.[1];
  if (!hex) refuse(`not a colour: ${String(color)}; #RGB, #RGBA, #RRGGBB, #RRGGBBAA or [r, g, b, a]`);
  const long = hex.length < 6 ? hex.replace(/./g, '$&$&') : hex;
  return (long + 'ff').slice(0, 8).match(/../g).map((byte) => parseInt(byte, 16) / 255);
}

const sides = (size) => (Array.isArray(size) ? size : [size, size]);

/** Whether this host has the vector instructions that the faster build is made of. */
export function hasSimd() {
  return WebAssembly.validate(new Uint8Array([
    0, 97, 115, 109, 1, 0, 0, 0, 1, 5, 1, 96, 0, 1, 123, 3, 2, 1, 0, 10, 10, 1, 8, 0, 65, 0, 253, 15,
    253, 98, 11]));
}

/** The library with a module's memory. Made by `load`. */
export class Glyphwright {
  #module;
  #c;
  #paths;
  #written = '';
  // Memory of the module that serves every call: structs, texts, results.
  #at;
  #pixels = { address: 0, bytes: 0 };

  constructor(module) {
    this.#module = module;
    this.#start();
  }

  #start() {
    const decoder = new TextDecoder();
    // What the library says before it ends a call for good; there is no other output.
    const fd_write = (file, vectors, count, written) => {
      const view = this.#view();
      let sum = 0;
      for (let i = 0; i < count; ++i) {
        const length = view.getUint32(vectors + 8 * i + 4, true);
        const bytes = new Uint8Array(view.buffer, view.getUint32(vectors + 8 * i, true), length);
        this.#written += decoder.decode(bytes);
        sum += length;
      }
      view.setUint32(written, sum, true);
      return 0;
    };
    const host = { fd_write, fd_close: () => 0, fd_seek: () => 0, proc_exit: () => refuse('exit') };
    this.#c = new WebAssembly.Instance(this.#module, { wasi_snapshot_preview1: host }).exports;
    this.#paths = new Map();
    this.#pixels = { address: 0, bytes: 0 };
    const places = { attributes: ATTRIBUTES_SIZE, options: PAINTING_OPTIONS_SIZE, buffer: BUFFER_SIZE,
      result: 64, message: 8, text: MESSAGE_CAPACITY, colors: 32 * MOST_STOPS, stops: 8 * MOST_STOPS,
      words: LONGEST_TEXT };
    const total = Object.values(places).reduce((sum, bytes) => sum + bytes, 0);
    let address = this.#c.glyphwright_memory_new(total);
    this.#at = {};
    for (const [name, bytes] of Object.entries(places)) {
      this.#at[name] = address;
      address += bytes;
    }
    const view = this.#view();
    view.setUint32(this.#at.message, this.#at.text, true);
    view.setUint32(this.#at.message + 4, MESSAGE_CAPACITY, true);
  }

  #view() {
    return new DataView(this.#c.memory.buffer);
  }

  /** Calls the C interface. A trap leaves a module that nothing can be said of: a new one follows. */
  #call(name, ...values) {
    try {
      return this.#c[name](...values);
    } catch (error) {
      const text = this.#written.trim() || `out of memory in ${name}`;
      this.#written = '';
      this.#start();
      throw new GlyphwrightError(OUT_OF_MEMORY, text, { cause: error });
    }
  }

  #check(status, hasMessage = false) {
    if (status === 0) return;
    const text = (hasMessage && this.#text(this.#at.text)) ||
      this.#text(this.#c.glyphwright_status_text(status));
    throw new GlyphwrightError(status, text);
  }

  #text(address) {
    if (address === 0) return '';
    const bytes = new Uint8Array(this.#c.memory.buffer, address);
    return new TextDecoder().decode(bytes.subarray(0, bytes.indexOf(0)));
  }

  #words(text) {
    const bytes = new TextEncoder().encode(`${text}`.slice(0, LONGEST_TEXT / 4));
    const end = bytes.indexOf(0) < 0 ? bytes.length : bytes.indexOf(0);
    const memory = new Uint8Array(this.#c.memory.buffer, this.#at.words, end + 1);
    memory.set(bytes.subarray(0, end));
    memory[end] = 0;
    return this.#at.words;
  }

  #pathNamed(name) {
    let path = this.#paths.get(`${name}`);
    if (path === undefined) {
      const { result, message } = this.#at;
      this.#check(this.#call('glyphwright_path_named', this.#words(name), result, message), true);
      path = this.#view().getUint32(result, true);
      this.#paths.set(`${name}`, path);
    }
    return path;
  }

  #setColor(view, address, color) {
    channels(color).forEach((value, i) => view.setFloat64(address + 8 * i, value, true));
  }

  #setShadow(view, address, { color = '#000', x = 0, y = 0, blur = 0 }) {
    this.#setColor(view, address, color);
    [x, y, blur].forEach((value, i) =>
      view.setFloat64(address + 32 + 8 * i, number(value, 'shadow', 0), true));
  }

  #setGradient(view, { colors, stops, direction = 'topToBottom', start, end }) {
    if (!Array.isArray(colors) || colors.length < 1 || colors.length > MOST_STOPS) {
      refuse(`a gradient has 1 to ${MOST_STOPS} colours`);
    }
    if (stops && stops.length !== colors.length) refuse('a gradient has one stop for each colour');
    const line = start && end ? [...start, ...end] : DIRECTIONS[direction];
    if (!line) refuse(`no direction: ${String(direction)}; ${Object.keys(DIRECTIONS).join(', ')}`);
    const { attributes, colors: colorsAt, stops: stopsAt } = this.#at;
    colors.forEach((color, i) => this.#setColor(view, colorsAt + 32 * i, color));
    stops?.forEach((stop, i) => view.setFloat64(stopsAt + 8 * i, stop, true));
    view.setUint32(attributes + 288, colorsAt, true);
    view.setUint32(attributes + 292, stops ? stopsAt : 0, true);
    view.setUint32(attributes + 296, colors.length, true);
    line.forEach((value, i) => view.setFloat64(attributes + 304 + 8 * i, value, true));
  }

  #setAttributes({ fill = '#000', background, stroke, border, dropShadow, insetShadow, gradient,
    size = 24, scale = 1, standalone = false }) {
    const at = this.#at.attributes;
    new Uint8Array(this.#c.memory.buffer, at, ATTRIBUTES_SIZE).fill(0);
    const view = this.#view();
    let parts = (stroke ? STROKE : 0) | (standalone ? STANDALONE : 0);
    view.setUint32(at, ATTRIBUTES_SIZE, true);
    const [width, height] = sides(size);
    [width, height, scale].forEach((value, i) =>
      view.setFloat64(at + 8 + 8 * i, number(value, 'size or scale', 0), true));
    this.#setColor(view, at + 32, fill);
    if (background) this.#setColor(view, at + 64, background);
    if (stroke) {
      this.#setColor(view, at + 96, stroke.color ?? '#000');
      view.setFloat64(at + 128, number(stroke.width, 'stroke.width', 1), true);
    }
    if (border) {
      parts |= BORDER;
      this.#setColor(view, at + 136, border.color ?? '#000');
      view.setFloat64(at + 168, number(border.width, 'border.width', 1), true);
    }
    if (dropShadow) {
      parts |= DROP_SHADOW;
      this.#setShadow(view, at + 176, dropShadow);
    }
    if (insetShadow) {
      parts |= INSET_SHADOW;
      this.#setShadow(view, at + 232, insetShadow);
    }
    if (gradient) {
      parts |= GRADIENT;
      this.#setGradient(view, gradient);
    }
    view.setUint32(at + 4, parts, true);
  }

  /** Room for the pixels of `count` images of one size; gives their sides in pixels. */
  #setBuffer(width, height, scale, format, count = 1) {
    const { result, buffer } = this.#at;
    this.#check(this.#call('glyphwright_pixel_size', width, height, scale, result, result + 4));
    const pixelWidth = this.#view().getUint32(result, true);
    const pixelHeight = this.#view().getUint32(result + 4, true);
    const bytes = 4 * pixelWidth * pixelHeight * count;
    if (this.#pixels.bytes < bytes) {
      this.#c.glyphwright_memory_free(this.#pixels.address);
      this.#pixels = { address: 0, bytes: 0 };
      const address = bytes < 2 ** 32 ? this.#call('glyphwright_memory_new', bytes) : 0;
      if (address === 0) this.#check(OUT_OF_MEMORY);
      this.#pixels = { address, bytes };
    }
    const view = this.#view();
    [BUFFER_SIZE, format, this.#pixels.address, pixelWidth, pixelHeight, 0].forEach((value, i) =>
      view.setUint32(buffer + 4 * i, value, true));
    return { width: pixelWidth, height: pixelHeight };
  }

  /** The pixels of the image with this number, copied unless they are only borrowed. */
  #image({ width, height }, index = 0, borrow = false) {
    const bytes = 4 * width * height;
    const memory = this.#c.memory.buffer;
    const at = this.#pixels.address + index * bytes;
    const data = borrow ? new Uint8ClampedArray(memory, at, bytes)
      : new Uint8ClampedArray(memory.slice(at, at + bytes));
    return { width, height, data };
  }

  /** 10000 × major + 100 × minor + patch. */
  get version() {
    return this.#c.glyphwright_version();
  }

  /** An icon's outline by any form of its name. */
  path(name) {
    const path = this.#pathNamed(name);
    const { result } = this.#at;
    const get = (what, size) => {
      if (size !== RECT_SIZE || what !== 'bounds') this.#view().setUint32(result, size, true);
      this.#check(this.#call(`glyphwright_path_${what}`, path, result));
      return this.#view();
    };
    let view = get('bounds', RECT_SIZE);
    const [x, y, width, height] = [0, 8, 16, 24].map((i) => view.getFloat64(result + i, true));
    view = get('pen', PEN_SIZE);
    const evenOdd = view.getInt32(result + 4, true) === 1;
    const cap = ['butt', 'round', 'square'][view.getInt32(result + 8, true)];
    const join = ['miter', 'round', 'bevel'][view.getInt32(result + 12, true)];
    const [lineWidth, miterLimit] = [16, 24].map((i) => view.getFloat64(result + i, true));
    view = get('elements', ELEMENTS_SIZE);
    const [verbs, count, points] = [4, 8, 12].map((i) => view.getUint32(result + i, true));
    const elements = [];
    let next = points;
    for (let i = 0; i < count; ++i) {
      const verb = view.getUint8(verbs + i);
      const numbers = [];
      for (let k = 0; k < 2 * [1, 1, 2, 3, 0][verb]; ++k, next += 8) {
        numbers.push(view.getFloat64(next, true));
      }
      elements.push(['MLQCZ'[verb], ...numbers]);
    }
    return { name: `${name}`, bounds: { x, y, width, height }, evenOdd, lineWidth, cap, join, miterLimit, elements };
  }

  /** An icon painted: its width and height in pixels and their RGBA bytes. */
  render(name, attributes = {}) {
    return this.renderAll([name], attributes)[0];
  }

  /** Icons painted alike, in the order of their names. */
  renderAll(names, attributes = {}) {
    const paths = Array.from(names, (name) => this.#pathNamed(name));
    if (paths.length === 0) return [];
    this.#setAttributes(attributes);
    const [width, height] = sides(attributes.size ?? 24);
    const format = attributes.premultiplied ? RGBA_PREMULTIPLIED : RGBA_STRAIGHT;
    const size = this.#setBuffer(width, height, attributes.scale ?? 1, format, paths.length);
    const { attributes: at, buffer, message } = this.#at;
    paths.forEach((path, i) => {
      const place = this.#pixels.address + 4 * size.width * size.height * i;
      this.#view().setUint32(buffer + 8, place, true);
      this.#check(this.#call('glyphwright_render', path, at, buffer, message), true);
    });
    return paths.map((_, i) => this.#image(size, i, attributes.borrow));
  }

  /** The same as the browser's ImageData, for a canvas. */
  imageData(name, attributes = {}) {
    const { data, width, height } = this.render(name, { ...attributes, premultiplied: false });
    return new ImageData(data, width, height);
  }

  /** One of the ready-made images, painted. */
  painting(name, { size, scale = 1, selected, withBackground, background, premultiplied } = {}) {
    const { options: at, buffer, message } = this.#at;
    const info = this.paintings().find((each) => each.name === name);
    const [width, height] = size && info?.takesSize ? sides(size) : [info?.width ?? 1, info?.height ?? 1];
    const image = this.#setBuffer(width, height, scale,
      premultiplied ? RGBA_PREMULTIPLIED : RGBA_STRAIGHT);
    new Uint8Array(this.#c.memory.buffer, at, PAINTING_OPTIONS_SIZE).fill(0);
    const view = this.#view();
    view.setUint32(at, PAINTING_OPTIONS_SIZE, true);
    view.setUint32(at + 4, (selected ? SELECTED : 0) | (withBackground ? WITH_BACKGROUND : 0), true);
    [width, height, scale].forEach((value, i) => view.setFloat64(at + 8 + 8 * i, value, true));
    if (background) this.#setColor(view, at + 32, background);
    const words = this.#words(name);
    this.#check(this.#call('glyphwright_painting_render', words, at, buffer, message), true);
    return this.#image(image);
  }

  /** Icons and ready-made images for words as people type them, best first. */
  search(words, limit = 10) {
    const capacity = Math.max(0, Math.min(Math.trunc(limit), 1000));
    const names = this.#call('glyphwright_memory_new', 5 * capacity + 8);
    const guesses = names + 4 * capacity;
    try {
      const { result } = this.#at;
      this.#check(this.#call('glyphwright_search', this.#words(words), capacity, names, guesses, result));
      const view = this.#view();
      const count = Math.min(capacity, view.getUint32(result, true));
      return Array.from({ length: count }, (_, i) => ({
        name: this.#text(view.getUint32(names + 4 * i, true)),
        guess: view.getUint8(guesses + i) === 1,
      }));
    } finally {
      this.#c.glyphwright_memory_free(names);
    }
  }

  #icon(address) {
    const view = this.#view();
    const text = (i) => this.#text(view.getUint32(address + i, true));
    return { name: text(8), enumeration: text(12), method: text(16),
      keywords: text(20).split(' ').filter(Boolean), hasDrawing: view.getInt32(address + 4, true) === 1 };
  }

  #iconFrom(name, ...values) {
    const { result } = this.#at;
    this.#view().setUint32(result, ICON_SIZE, true);
    this.#check(this.#call(name, ...values, result));
    return this.#icon(result);
  }

  /** All icons by method. */
  icons() {
    const count = this.#c.glyphwright_icon_count();
    return Array.from({ length: count }, (_, i) => {
      const { method, keywords } = this.#iconFrom('glyphwright_icon_info', i);
      return { method, keywords };
    });
  }

  /** The catalogue: tabs with sections with cases. */
  tabs() {
    const c = this.#c;
    return Array.from({ length: c.glyphwright_tab_count() }, (_, tab) => ({
      title: this.#text(c.glyphwright_tab_title(tab)),
      sections: Array.from({ length: c.glyphwright_section_count(tab) }, (_, section) => ({
        title: this.#text(c.glyphwright_section_title(tab, section)),
        cases: Array.from({ length: c.glyphwright_case_count(tab, section) }, (_, i) =>
          this.#iconFrom('glyphwright_case_info', tab, section, i)),
      })),
    }));
  }

  /** The ready-made images and what each takes. */
  paintings() {
    const { result } = this.#at;
    return Array.from({ length: this.#c.glyphwright_painting_count() }, (_, i) => {
      this.#view().setUint32(result, PAINTING_SIZE, true);
      this.#check(this.#call('glyphwright_painting_info', i, result));
      const view = this.#view();
      const [takesSize, takesFlags, takesBackground] =
        [4, 8, 12].map((k) => view.getInt32(result + k, true) === 1);
      return { name: this.#text(view.getUint32(result + 16, true)),
        keywords: this.#text(view.getUint32(result + 20, true)).split(' ').filter(Boolean),
        width: view.getFloat64(result + 24, true), height: view.getFloat64(result + 32, true),
        takesSize, takesFlags, takesBackground };
    });
  }
}

async function moduleFrom(source) {
  if (source instanceof WebAssembly.Module) return source;
  if (typeof Response !== 'undefined' && source instanceof Response) source = await source.arrayBuffer();
  return WebAssembly.compile(source);
}

/** The library from a module: compiled, as bytes or as a Response. */
export async function fromModule(source) {
  return new Glyphwright(await moduleFrom(source));
}
