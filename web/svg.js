// An icon as an SVG document with all its paint, the same text as the program writes.

const attribute = (name, value) => ` ${name}="${value}"`;

// Twelve digits of a frame's size: what is left of sums that ought to be even is no longer seen.
function tidied(value, frame) {
  return Number(value.toFixed(Math.min(30, Math.max(0, 12 - Math.floor(Math.log10(frame)))))) || 0;
}

const bytes = (hex) => hex.slice(1).padEnd(8, 'f').match(/../g);
const hexOf = (color) => `#${bytes(color).slice(0, 3).join('')}`.toLowerCase();
const alphaOf = (color) => parseInt(bytes(color)[3], 16) / 255;
const opacity = (name, color) => (alphaOf(color) === 1 ? '' : attribute(name, alphaOf(color)));
function colored(property, color) {
  const name = property.endsWith('-color') ? property.replace('color', 'opacity') : `${property}-opacity`;
  return attribute(property, hexOf(color)) + opacity(name, color);
}

const ENDS = { topToBottom: [[0, 0], [0, 1]], leftToRight: [[0, 0], [1, 0]],
  topLeftToBottomRight: [[0, 0], [1, 1]], bottomLeftToTopRight: [[1, 1], [0, 0]] };

const roomOf = (shadow) => (shadow ? shadow.blur + 2 * Math.max(Math.abs(shadow.x), Math.abs(shadow.y)) : 0);

// `icon` has bounds, evenOdd, lineWidth, cap, join, miterLimit, data and whether it is bare strokes.
function placeIn({ bounds }, size, inset) {
  const scale = Math.min(...[bounds.width, bounds.height].map((each) => (each > 0 ? (size - inset) / each : 1)));
  return { scale, move: [(size - bounds.width * scale) / 2 - bounds.x * scale,
    (size - bounds.height * scale) / 2 - bounds.y * scale] };
}

function idOf(text) {
  let hash = 2166136261;
  for (const byte of new TextEncoder().encode(text)) hash = Math.imul(hash ^ byte, 16777619);
  return `g${hash >>> 0}`;
}

const penOf = ({ cap, join, miterLimit }) => attribute('stroke-linecap', cap) +
  attribute('stroke-linejoin', join) + attribute('stroke-miterlimit', miterLimit);

// Flat fill and outline: in the outline's own units.
function plainDocument(icon, { fill, stroke, size }) {
  const { bounds, isBare } = icon;
  const width = stroke ? stroke.width / placeIn(icon, size, stroke.width).scale : icon.lineWidth;
  const color = stroke?.color ?? (isBare ? fill : undefined);
  const margin = color ? width / 2 : 0;
  const box = [bounds.x - margin, bounds.y - margin, bounds.width + 2 * margin, bounds.height + 2 * margin];
  const frame = Math.max(box[2], box[3]);
  return `<svg xmlns="http://www.w3.org/2000/svg"${attribute('viewBox', box.map((each) => tidied(each, frame)).join(' '))}` +
    attribute('width', size) + attribute('height', size) + opacity('fill-opacity', fill) +
    (color ? opacity('stroke-opacity', color) : '') + `><path${attribute('fill', isBare ? 'none' : hexOf(fill))}` +
    (icon.evenOdd ? attribute('fill-rule', 'evenodd') : '') +
    (color ? attribute('stroke', hexOf(color)) + attribute('stroke-width', tidied(width, frame)) + penOf(icon) : '') +
    `${attribute('d', icon.data)}/></svg>\n`;
}

function paintedDocument(icon, attributes, ownPenWidth) {
  const { size, background, border } = attributes;
  const tidy = (value) => tidied(value, size);
  const sides = (side) => attribute('width', tidy(side)) + attribute('height', tidy(side));
  const id = idOf(icon.data + sides(size));
  let defs = '';

  const shape = ({ scale, move }, paint) => `<path${paint}${icon.evenOdd ? attribute('fill-rule', 'evenodd') : ''}` +
    attribute('transform', `translate(${move.map(tidy).join(' ')}) scale(${scale})`) + `${attribute('d', icon.data)}/>`;
  const line = (place, width) => attribute('stroke-width', tidied(width / place.scale, 1)) + penOf(icon);

  const fillOf = (property, { fill, gradient, size: side }, { scale, move }, inset) => {
    if (!gradient) return colored(property, fill);
    const unit = (value) => tidied(value, 1);
    const [from, to] = ENDS[gradient.direction].map((end) =>
      end.map((each, k) => unit((inset / 2 + each * (side - inset) - move[k]) / scale)));
    defs += `<linearGradient${attribute('id', `${id}-fill`)} gradientUnits="userSpaceOnUse"` +
      attribute('x1', from[0]) + attribute('y1', from[1]) + attribute('x2', to[0]) + attribute('y2', to[1]) + '>' +
      gradient.colors.map((color, i) => `<stop${attribute('offset', unit(i / (gradient.colors.length - 1)))}` +
        `${colored('stop-color', color)}/>`).join('') + '</linearGradient>';
    return attribute(property, `url(#${id}-fill)`);
  };

  const filter = (name, { x, y, blur }, side, steps) => {
    const reach = 1.5 * blur + Math.max(Math.abs(x), Math.abs(y));
    defs += `<filter${attribute('id', `${id}-${name}`)} filterUnits="userSpaceOnUse"` + attribute('x', tidy(-reach)) +
      attribute('y', tidy(-reach)) + sides(side + 2 * reach) + ` color-interpolation-filters="sRGB">${steps}</filter>`;
  };
  const deviation = ({ blur }) => attribute('stdDeviation', tidy(blur / 2));
  const offset = ({ x, y }) => attribute('dx', tidy(x)) + attribute('dy', tidy(y));
  const filtered = (name, body) => `<g${attribute('filter', `url(#${id}-${name})`)}>${body}</g>`;
  const dropped = (body, { dropShadow: shadow, size: side }) => {
    if (!shadow) return body;
    filter('drop', shadow, side, `<feDropShadow${offset(shadow)}${deviation(shadow)}` +
      `${colored('flood-color', shadow.color)}/>`);
    return filtered('drop', body);
  };

  const drawing = (look) => {
    const { stroke, insetShadow: inset, size: side } = look;
    const room = roomOf(look.dropShadow);
    const ownPen = icon.isBare && !stroke;
    const width = ownPen ? ownPenWidth(icon, side - room) : stroke?.width ?? 0;
    const place = placeIn(icon, side, room + width);
    if (ownPen) {
      return dropped(shape(place, ` fill="none"${fillOf('stroke', look, place, room)}${line(place, width)}`), look);
    }
    let body = shape(place, fillOf('fill', look, place, room + width));
    if (inset) {
      body += filtered('inset', shape(place, ' fill="#000000"'));
      filter('inset', inset, side, `<feFlood${colored('flood-color', inset.color)}/>` +
        `<feComposite in2="SourceAlpha" operator="out"/><feGaussianBlur${deviation(inset)}/>` +
        `<feOffset${offset(inset)}/><feComposite in2="SourceAlpha" operator="in"/>`);
    }
    if (stroke) body += shape(place, ` fill="none"${colored('stroke', stroke.color)}${line(place, width)}`);
    return dropped(body, look);
  };

  let body = background ? `<rect${sides(size)}${colored('fill', background)}/>` : '';
  if (!border) {
    body += drawing(attributes);
  } else {
    const ring = border.width;
    const inner = size - 2 * ring;
    const width = icon.isBare && !attributes.stroke ? ownPenWidth(icon, inner) + 2 * ring : ring;
    const place = placeIn(icon, size, width);
    body += shape(place, (icon.isBare ? ' fill="none"' : colored('fill', border.color)) +
      colored('stroke', border.color) + line(place, width));
    if (inner > 0) {
      body += `<svg${attribute('x', ring)}${attribute('y', ring)}${sides(inner)}>` +
        `${drawing({ ...attributes, size: inner })}</svg>`;
    }
  }
  return `<svg xmlns="http://www.w3.org/2000/svg"${attribute('viewBox', `0 0 ${tidy(size)} ${tidy(size)}`)}` +
    `${sides(size)}>${defs ? `<defs>${defs}</defs>` : ''}${body}</svg>\n`;
}

export function svgDocument(icon, attributes, ownPenWidth) {
  const { background, border, gradient, dropShadow, insetShadow } = attributes;
  return background || border || gradient || dropShadow || insetShadow
    ? paintedDocument(icon, attributes, ownPenWidth) : plainDocument(icon, attributes);
}
