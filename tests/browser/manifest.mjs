// The manifest's pictures drawn through the module, in node or in a page: those whose hash is not the
// native one.

// What is neither an icon with attributes nor a ready-made image has no part in this: contexts, layers,
// canvases of several icons and the older conveniences are interfaces of C++ alone, for programs that
// draw scenes. Their names are lower-case words.
const isScene = (name) => /^[a-z-]+$/.test(name) && !RECORDS[name];

const INK = [0.11, 0.13, 0.19, 1], ROSE = [0.93, 0.26, 0.4, 1], AMBER = [0.98, 0.7, 0.2, 1];
const TEAL = [0.1, 0.6, 0.6, 0.75], WHITE = [1, 1, 1, 1];
const shadow = (x, y, blur) => ({ color: [0, 0, 0.1, 0.6], x, y, blur });
const RECORDS = {
  'record-stroke': ['Icons.heart', 72, { stroke: { color: ROSE, width: 5.5 } }],
  'record-translucent': ['Icons.flame', 72, { fill: TEAL, stroke: { color: [1, 0.8, 0.2, 0.5], width: 4 },
    background: [0.9, 0.9, 1, 0.3] }],
  'record-gradient': ['Icons.surgoBolt', 96, { gradient: { colors: [ROSE, AMBER, TEAL], direction: 'leftToRight' },
    background: WHITE }],
  'record-drop-shadow': ['Icons.heart', 96, { fill: ROSE, dropShadow: shadow(2, 4, 6), background: WHITE }],
  'record-grouped-shadow': ['Icons.roundyStar', 96, { stroke: { color: TEAL, width: 3 }, dropShadow: shadow(-3, 3, 4),
    gradient: { colors: [ROSE, AMBER], direction: 'topLeftToBottomRight' } }],
  'record-wide-blur': ['Icons.circle', 160, { dropShadow: shadow(0, 0, 48) }],
  'record-inset-shadow': ['Icons.placemark', 96, { fill: AMBER, insetShadow: shadow(3, 5, 5) }],
  'record-hairline': ['Icons.star', 64, { stroke: { width: 0 } }],
  'record-slanted-gradient': ['Icons.airplane', 96, { gradient: { colors: [ROSE, INK, AMBER], stops: [0.1, 0.5, 0.5],
    start: [0.9, 0.2], end: [0.1, 0.7] } }],
  'dictionary-everything': ['gearPath', [60, 44], { scale: 2, stroke: { color: INK, width: 1.5 },
    border: { color: AMBER, width: 2 }, gradient: { colors: [ROSE, AMBER, TEAL], stops: [0, 0.3, 1] },
    dropShadow: shadow(1, 1, 3), insetShadow: shadow(0, 1, 2) }],
  'record-everything': ['Icons.chatBubble', 120, { border: { color: TEAL, width: 3 }, stroke: { color: INK, width: 1.5 },
    gradient: { colors: [ROSE, AMBER], direction: 'bottomLeftToTopRight' }, dropShadow: shadow(1, 2, 4),
    insetShadow: shadow(0, -2, 3), background: [0.95, 0.95, 1, 1] }],
};

// FNV-1a in 64 bits as two halves: the prime is 2^40 + 0x1B3.
function hashOf({ width, height, data }) {
  let low = 0x84222325, high = 0xCBF29CE4;
  const add = (byte) => {
    low = (low ^ byte) >>> 0;
    const product = low * 0x1B3;
    high = (Math.imul(high, 0x1B3) + Math.floor(product / 2 ** 32) + (low << 8)) >>> 0;
    low = product >>> 0;
  };
  for (const side of [width, height]) for (let i = 0; i < 8; ++i) add(i < 4 ? (side >>> (8 * i)) & 255 : 0);
  for (const byte of data) add(byte);
  return [high, low].map((half) => half.toString(16).padStart(8, '0')).join('');
}

function pictureOf(glyphwright, name) {
  const plain = { fill: INK, premultiplied: true };
  if (RECORDS[name]) {
    const [icon, size, attributes] = RECORDS[name];
    return glyphwright.render(icon, { ...plain, ...attributes, size });
  }
  const [, image, look, scale] = /^(\w+-\w+(?:-\w+Icon\w*)?)((?:-\w+)*)@(\d)x$/.exec(name) ?? [];
  if (image) {
    const background = look.includes('disc');
    return glyphwright.painting(image.replaceAll('-', '.'), { scale: Number(scale), premultiplied: true,
      selected: look.includes('selected'), withBackground: background });
  }
  const [, sized, side] = /^(\w+-\w+(?:-\w+)?)-(\d+)$/.exec(name) ?? [];
  if (sized) {
    const own = glyphwright.paintings().find((each) => each.name === sized.replaceAll('-', '.'));
    return glyphwright.painting(own.name, { scale: 2, premultiplied: true, background: TEAL,
      size: side === '16' ? [16, 11] : [Number(side), own.height + 7] });
  }
  const [, method, size] = /^(\w+)@(\d+)$/.exec(name) ?? [];
  return glyphwright.render(method, { ...plain, size: Number(size) });
}

const linesOf = (manifest) => manifest.split('\n').filter((line) => line && !line.startsWith('#'))
  .map((line) => line.split(' ')).filter(([name]) => !isScene(name));

/** How many pictures there are to compare. */
export const picturesOf = (manifest) => linesOf(manifest).length;

/** Compares every picture; gives how many and the names of the wrong ones. */
export function compare(glyphwright, manifest) {
  const lines = linesOf(manifest);
  const wrong = lines.filter(([name, hash]) => hashOf(pictureOf(glyphwright, name)) !== hash);
  return { drawn: lines.length, wrong: wrong.map(([name]) => name) };
}
