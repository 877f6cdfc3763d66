/** `#RGB`, `#RGBA`, `#RRGGBB`, `#RRGGBBAA`, or red, green, blue and alpha from 0 to 1, straight. */
export type Color = string | [red: number, green: number, blue: number, alpha: number];
/** In points; one number stands for both sides. */
export type Size = number | [width: number, height: number];
export type Point = [x: number, y: number];
export type Direction =
  'topToBottom' | 'leftToRight' | 'topLeftToBottomRight' | 'bottomLeftToTopRight';

export interface Line {
  /** Black unless given. */
  color?: Color;
  /** In points, 1 unless given; a stroke of 0 is one pixel wide. */
  width?: number;
}

export interface Shadow {
  /** Black unless given. */
  color?: Color;
  /** To the right, in points. */
  x?: number;
  /** Down, in points. */
  y?: number;
  /** Twice the sigma of the Gaussian, in points. */
  blur?: number;
}

export interface Gradient {
  /** First to last, at most 64. */
  colors: Color[];
  /** 0 to 1, one a colour; spread evenly unless given. */
  stops?: number[];
  /** topToBottom unless given. */
  direction?: Direction;
  /** In place of a direction: the line's ends, (0, 0) upper left to (1, 1) lower right. */
  start?: Point;
  end?: Point;
}

/** How an icon is painted. It fills the size but for the room of stroke and drop shadow. */
export interface Attributes {
  /** Of the whole image, 24 unless given. */
  size?: Size;
  /** Pixels a point, 1 unless given. */
  scale?: number;
  /** Black unless given. */
  fill?: Color;
  background?: Color;
  stroke?: Line;
  /** A ring around the icon, in whole points. */
  border?: Line;
  dropShadow?: Shadow;
  insetShadow?: Shadow;
  /** In place of the flat fill. */
  gradient?: Gradient;
  /** As an icon that stands on its own: bare strokes, which have nothing to fill, are drawn with a
   * pen of their own, and the ground lies under a border's ring, where there is a black frame
   * otherwise. */
  standalone?: boolean;
  /** Whether colours are multiplied by alpha, as `glyphwright render -o x.rgba` gives them. */
  premultiplied?: boolean;
  /** Whether pixels stay in the module's memory, where the next call writes over them: for those
   * that copy them at once anyway, as `putImageData` does. */
  borrow?: boolean;
}

/** Pixels, rows from top to bottom, red, green, blue and alpha each a byte. */
export interface Pixels {
  width: number;
  height: number;
  data: Uint8ClampedArray;
}

/** M, L, Q, C or Z with the numbers of its points. */
export type Element = [verb: 'M' | 'L' | 'Q' | 'C' | 'Z', ...numbers: number[]];

export interface Path {
  name: string;
  /** Around all points, control points included. */
  bounds: { x: number; y: number; width: number; height: number };
  evenOdd: boolean;
  /** The pen of its strokes, in the outline's own units. */
  lineWidth: number;
  cap: 'butt' | 'round' | 'square';
  join: 'miter' | 'round' | 'bevel';
  miterLimit: number;
  elements: Element[];
}

export interface PaintingOptions {
  /** For those that take one; otherwise an image has its own. */
  size?: Size;
  scale?: number;
  selected?: boolean;
  withBackground?: boolean;
  background?: Color;
  premultiplied?: boolean;
}

export interface Painting {
  name: string;
  keywords: string[];
  width: number;
  height: number;
  takesSize: boolean;
  takesFlags: boolean;
  takesBackground: boolean;
}

export interface Case {
  name: string;
  enumeration: string;
  method: string;
  keywords: string[];
  hasDrawing: boolean;
}

export interface Tab {
  title: string;
  sections: { title: string; cases: Case[] }[];
}

/** What the library refused; `code` is the status of the C interface. */
export class GlyphwrightError extends Error {
  readonly code: number;
}

/** Names of icons are methods ("heartPath"), cases ("App.Shapes.Checks.checkmark", "Icons.heart") or
 * numbers ("7"). Every method throws GlyphwrightError for what it cannot do and can be called again. */
export class Glyphwright {
  private constructor();
  /** 10000 × major + 100 × minor + patch. */
  readonly version: number;
  path(name: string | number): Path;
  render(name: string | number, attributes?: Attributes): Pixels;
  /** Several painted alike, in the order of their names: quicker than one after the other. */
  renderAll(names: Iterable<string | number>, attributes?: Attributes): Pixels[];
  /** In browsers: for `putImageData`. */
  imageData(name: string | number, attributes?: Attributes): ImageData;
  painting(name: string, options?: PaintingOptions): Pixels;
  /** Best first, at most `limit`, 10 unless given. `guess`: found only by changing a letter or two. */
  search(words: string, limit?: number): { name: string; guess: boolean }[];
  icons(): { method: string; keywords: string[] }[];
  tabs(): Tab[];
  paintings(): Painting[];
}

/** The library: from the build beside this file that fits the host, or from the module given. */
export function load(source?: WebAssembly.Module | BufferSource | Response): Promise<Glyphwright>;
/** Whether this host runs the faster build. */
export function hasSimd(): boolean;
