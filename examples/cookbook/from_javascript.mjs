import {writeFileSync} from 'node:fs';
import {load} from 'glyphwright';

const glyphwright = await load();
const {width, height, data} = glyphwright.render('Icons.heart', {
  size: 48,
  scale: 2,
  fill: '#E6356B',
  background: '#FFFFFF',
  dropShadow: {color: '#0006', y: 1, blur: 3},
});

// In a page: canvas.getContext('2d').putImageData(glyphwright.imageData('Icons.heart', …), 0, 0)
const rgb = Buffer.from(data.filter((_, i) => i % 4 !== 3));
const header = Buffer.from(`P6 ${width} ${height} 255\n`);
writeFileSync('from_javascript.ppm', Buffer.concat([header, rgb]));
