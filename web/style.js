// The chosen style in the forms that others want it in: attributes of the library, options of the
// program, code.

const parts = (text) => text.split(':');
const color = (hex) => `#${hex}`;

// As the JavaScript face of the library takes it. `usualFill` is what an icon is filled with while
// nothing was chosen.
export function attributesOf(state, usualFill = '#000000') {
  const attributes = { fill: state.fill ? color(state.fill) : usualFill, size: state.size, scale: state.scale };
  if (state.background) attributes.background = color(state.background);
  if (state.gradient) {
    const [colors, direction] = parts(state.gradient);
    attributes.gradient = { colors: colors.split(',').map(color), direction };
  }
  for (const [field, name] of [['stroke', 'stroke'], ['border', 'border']]) {
    if (!state[field]) continue;
    const [hex, width] = parts(state[field]);
    attributes[name] = { color: color(hex), width: Number(width) };
  }
  for (const [field, name] of [['drop', 'dropShadow'], ['inset', 'insetShadow']]) {
    if (!state[field]) continue;
    const [hex, offset, blur] = parts(state[field]);
    const [x, y] = offset.split(',').map(Number);
    attributes[name] = { color: color(hex), x, y, blur: Number(blur) };
  }
  return attributes;
}

// As the program takes it.
function optionsOf(state) {
  const options = [`--size ${state.size}`];
  if (state.scale !== 1) options.push(`--scale ${state.scale}`);
  if (state.fill) options.push(`--fill '#${state.fill}'`);
  const withColor = (text) => `'#${text}'`;
  if (state.gradient) {
    const [colors, direction] = parts(state.gradient);
    options.push(`--gradient '${colors.split(',').map(color).join(',')}:${direction}'`);
  }
  if (state.background) options.push(`--background ${withColor(state.background)}`);
  if (state.stroke) options.push(`--stroke ${withColor(state.stroke)}`);
  if (state.border) options.push(`--border ${withColor(state.border)}`);
  if (state.drop) options.push(`--drop-shadow ${withColor(state.drop)}`);
  if (state.inset) options.push(`--inset-shadow ${withColor(state.inset)}`);
  return options.join(' ');
}

// C99, straight from the header.
function cCode(name, state) {
  const { fill, background, gradient, stroke, border, dropShadow, insetShadow, size, scale } = attributesOf(state);
  const parts = ['GLYPHWRIGHT_STANDALONE', stroke && 'GLYPHWRIGHT_STROKE', border && 'GLYPHWRIGHT_BORDER',
    dropShadow && 'GLYPHWRIGHT_DROP_SHADOW', insetShadow && 'GLYPHWRIGHT_INSET_SHADOW', gradient && 'GLYPHWRIGHT_GRADIENT'].filter(Boolean);
  const cColor = (hex) => `{${channels(hex).join(', ')}}`;
  const shadow = ({ color: c, x, y, blur }) => `{${cColor(c)}, ${x}, ${y}, ${blur}}`;
  const ends = { topToBottom: ['0, 0', '0, 1'], leftToRight: ['0, 0', '1, 0'],
    topLeftToBottomRight: ['0, 0', '1, 1'], bottomLeftToTopRight: ['1, 1', '0, 0'] };
  const fields = ['.struct_size = sizeof look', `.parts = ${parts.join(' | ')}`,
    `.width = ${size}`, `.height = ${size}`, `.scale = ${scale}`, `.fill = ${cColor(fill)}`];
  if (background) fields.push(`.background = ${cColor(background)}`);
  if (stroke) fields.push(`.stroke_color = ${cColor(stroke.color)}`, `.stroke_width = ${stroke.width}`);
  if (border) fields.push(`.border_color = ${cColor(border.color)}`, `.border_width = ${border.width}`);
  if (dropShadow) fields.push(`.drop_shadow = ${shadow(dropShadow)}`);
  if (insetShadow) fields.push(`.inset_shadow = ${shadow(insetShadow)}`);
  if (gradient) {
    const [start, end] = ends[gradient.direction];
    fields.push('.gradient_colors = colors', `.gradient_count = ${gradient.colors.length}`,
      `.gradient_start = {${start}}`, `.gradient_end = {${end}}`);
  }
  return (gradient ? `const glyphwright_color colors[] = {${gradient.colors.map(cColor).join(', ')}};\n` : '') +
    `const glyphwright_attributes look = {\n    ${fields.join(',\n    ')}};\n` +
    'glyphwright_path *path = NULL;\nglyphwright_image *image = NULL;\n' +
    `if (glyphwright_path_named("${name}", &path, NULL) == GLYPHWRIGHT_OK) {\n` +
    '  glyphwright_image_new(path, &look, GLYPHWRIGHT_RGBA_STRAIGHT, &image, NULL);\n' +
    '  glyphwright_path_free(path);\n}';
}

const channels = (hex) =>
  (hex.replace('#', '') + 'ff').slice(0, 8).match(/../g)
    .map((byte) => Number((parseInt(byte, 16) / 255).toFixed(4)));
const cppColor = (hex) => `UIColor(${channels(hex).join(', ')})`;

function cppAttributes(state) {
  const { fill, background, gradient, stroke, border, dropShadow, insetShadow, size } = attributesOf(state);
  const fields = [
    `.fillColor = ${cppColor(fill)}`,
    `.backgroundColor = ${background ? cppColor(background) : 'UIColor::clearColor()'}`,
    `.stroke = ${stroke ? `IconStroke(${cppColor(stroke.color)}, ${stroke.width})`
      : 'IconStroke(UIColor::clearColor(), 0)'}`,
  ];
  if (border) fields.push(`.border = IconBorder(${cppColor(border.color)}, ${border.width})`);
  const shadow = ({ color: c, x, y, blur }) => `IconShadow(${cppColor(c)}, {${x}, ${y}}, ${blur})`;
  if (dropShadow) fields.push(`.dropShadow = ${shadow(dropShadow)}`);
  if (insetShadow) fields.push(`.insetShadow = ${shadow(insetShadow)}`);
  if (gradient) {
    fields.push(`.gradient = IconGradient({${gradient.colors.map(cppColor).join(', ')}}, {},\n` +
      `                             IconGradient::Direction::${gradient.direction})`);
  }
  fields.push(`.size = {${size}, ${size}}`);
  return `IconAttributes{\n    ${fields.join(',\n    ')}}`;
}

export const cppName = (name, method) =>
  name.includes('.') ? name.replaceAll('.', '::') : `UIBezierPath::${method}()`;

function jsAttributes(state) {
  const { scale, ...attributes } = attributesOf(state);
  return JSON.stringify({ ...attributes, scale, standalone: true }, null, 2).replace(/"(\w+)":/g, '$1:').replaceAll('"', "'");
}

// The ways of asking for an icon, each a title and a text; `icon` has name, method, type.
export function codeFor({ name, method, type }, state) {
  const scale = `VantelKit::Screen::setScale(${state.scale});\n`;
  const look = `const ${cppAttributes(state).replace('IconAttributes', 'IconAttributes look')};\n`;
  const typed = name.includes('.')
    ? `${cppName(name, method)}.path().makeStandaloneImage(look)`
    : `UIBezierPath::${method}().makeStandaloneImage(look)`;
  return [
    ['C++', `${scale}${look}const UIImage image = ${typed};`],
    ['By name', `${scale}${look}const UIImage image = performSelector("${method}").makeStandaloneImage(look);`],
    type && ['By number', `${scale}${look}const UIImage image =\n    UIBezierPath::pathForIcon(` +
      `static_cast<VNTLIconType>(${type}))->makeStandaloneImage(look);`],
    ['Command line', `glyphwright render ${name} -o ${method}.png ${optionsOf(state)}`],
    ['C', cCode(name, state)],
    ['JavaScript', `import { load } from 'glyphwright';\n\nconst glyphwright = await load();\n` +
      `const image = glyphwright.imageData('${name}', ${jsAttributes(state)});`],
  ].filter(Boolean);
}
