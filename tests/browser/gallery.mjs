// The gallery in a browser: what its scripts do, seen from outside, against what the program gives.
// Usage: gallery.mjs GALLERY-FOLDER BROWSER PROGRAM QUERIES PACKAGE MANIFEST
import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { pathToFileURL } from 'node:url';
import puppeteer from 'puppeteer-core';
import { picturesOf } from './manifest.mjs';
import { pixelsOfPng } from './png.mjs';

const [folder, executablePath, program, queries, npmPackage, manifest] = process.argv.slice(2);
const axe = createRequire(import.meta.url).resolve('axe-core');
const run = (...words) => execFileSync(program, words, { maxBuffer: 1 << 26 });
const pictures = picturesOf(readFileSync(manifest, 'utf8'));
const same = (a, b) => Buffer.compare(Buffer.from(a), Buffer.from(b)) === 0;

const browser = await puppeteer.launch({ executablePath, args: ['--no-sandbox', '--disable-gpu'] });
const said = [];
const loaded = new Set();

async function open(name, { width = 1280, height = 900, scheme = 'light', hash = '' } = {}) {
  const page = await browser.newPage();
  page.on('pageerror', (error) => said.push(`${name}: ${error}`));
  page.on('console', (message) => said.push(`${name}: ${message.text()}`));
  page.on('request', (request) => loaded.add(request.url().split('#')[0]));
  await page.setViewport({ width, height, hasTouch: width < 600 });
  await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: scheme },
    { name: 'prefers-reduced-motion', value: 'reduce' }]);
  await page.goto(pathToFileURL(`${folder}/${name}`).href + hash);
  if (name !== 'animations.html') {
    await page.waitForFunction(() => document.documentElement.dataset.library, { timeout: 30_000 });
  }
  return page;
}

const settle = (page) => page.evaluate(() => new Promise((done) => { requestAnimationFrame(() => requestAnimationFrame(done)); }));
const shown = (page) => page.$$eval('.card:not([hidden])', (cards) => cards.map((card) => card.dataset.method));
const hash = (page) => page.evaluate(() => location.hash);
const dialogOpen = (page) => page.$eval('#details', (dialog) => dialog.open);
async function search(page, text) {
  await page.$eval('#search', (input, value) => {
    input.value = value;
    input.dispatchEvent(new Event('input'));
    input.focus();
  }, text);
  await settle(page);
  return shown(page);
}
async function findings(page, where) {
  await page.addScriptTag({ path: axe });
  const { violations } = await page.evaluate(() => window.axe.run(document,
    { runOnly: ['wcag2a', 'wcag2aa', 'wcag21a', 'wcag21aa', 'wcag22aa', 'best-practice'] }));
  assert.deepEqual(violations.map((each) => `${each.id}: ${each.nodes.map((node) => node.html.slice(0, 160)).slice(0, 3)}`),
    [], where);
}
// What the page would save to a file, by name.
async function saved(page, act) {
  await page.evaluate(() => {
    window.kept = [];
    HTMLAnchorElement.prototype.click = function keep() {
      window.kept.push(fetch(this.href).then((it) => it.arrayBuffer())
        .then((bytes) => [this.download, Array.from(new Uint8Array(bytes))]));
    };
  });
  await act();
  await page.waitForFunction(() => window.kept.length > 0);
  return page.evaluate(() => Promise.all(window.kept));
}

const parts = {
  async 'searches like the program'() {
    const page = await open('index.html');
    for (const line of readFileSync(queries, 'utf8').trim().split('\n')) {
      const [query, wanted] = line.split('\t');
      if (wanted.includes('.')) continue;
      assert.ok((await search(page, query)).slice(0, 5).includes(wanted), line);
    }
    assert.deepEqual(await search(page, 'UIBezierPath::heartPath'), ['heartPath']);
    assert.deepEqual(await search(page, 'App::Things::gear'), ['gearPath']);
    assert.deepEqual(await search(page, '#7'), ['checkmarkPath']);
    const program = JSON.parse(run('search', 'hart', '--limit', '300', '--json')).map((hit) => hit.name);
    assert.deepEqual(await search(page, 'hart'), program.filter((name) => !name.includes('.')));
    assert.match(await page.$eval('#found', (found) => found.textContent), /Nothing is called “hart”/);
    assert.deepEqual(await search(page, 'qqxyz'), []);
    await page.click('.nothing .pill');
    assert.ok((await shown(page)).length > 0, 'a suggestion leads somewhere');
    await page.close();
  },

  async 'draws what the program draws'() {
    const page = await open('index.html', { hash: '#q=heart&background=ffffff&gradient=ff2d6b,ff9e33:leftToRight' +
      '&stroke=203040:1.5&drop=00000080:0,2:4&inset=00000099:0,1.5:3&size=40' });
    const style = ['--background', '#ffffff', '--gradient', '#ff2d6b,#ff9e33:leftToRight', '--stroke', '#203040:1.5',
      '--drop-shadow', '#00000080:0,2:4', '--inset-shadow', '#00000099:0,1.5:3'];
    const pixels = () => page.$eval('.card:not([hidden]) canvas', (canvas) => {
      const { width, height } = canvas;
      const copy = new OffscreenCanvas(width, height).getContext('2d', { willReadFrequently: true });
      copy.drawImage(canvas, 0, 0);
      return Array.from(copy.getImageData(0, 0, width, height).data);
    });
    const method = (await shown(page))[0];
    const native = (size, scale) => {
      const file = `${folder}/../native.rgba`;
      run('render', method, '-o', file, '--size', size, '--scale', scale, ...style);
      return readFileSync(file);
    };
    await page.waitForSelector('.card:not([hidden]) canvas');
    assert.ok(same(await pixels(), native('40', '2')), 'from the address');
    await page.$eval('.style input[aria-label="Size"]', (slider) => {
      slider.value = 73;
      slider.dispatchEvent(new Event('input'));
    });
    await page.click('.style input[type=radio][value="3"]');
    await settle(page);
    assert.ok(same(await pixels(), native('73', '3')), 'from the controls');
    await page.waitForFunction(() => location.hash.includes('size=73') && location.hash.includes('scale=3'));
    const look = await page.$$('.look');
    await look[4].click();
    await page.waitForFunction(() => location.hash.includes('stroke=ffffff'));
    assert.match(await page.$eval('.figure', (figure) => figure.textContent), /drawn in [\d.]+ ms/);
    await page.close();
  },

  // The package, in a page that has nothing else.
  async 'draws the same bytes as everywhere'() {
    const page = await browser.newPage();
    const [face, comparison] = [`${npmPackage}/glyphwright.js`, new URL('manifest.mjs', import.meta.url)]
      .map((file) => `data:text/javascript;base64,${readFileSync(file).toString('base64')}`);
    for (const build of ['glyphwright.wasm', 'glyphwright-simd.wasm']) {
      const { drawn, wrong } = await page.evaluate(async (from, by, module, hashes) => {
        const [{ fromModule }, { compare }] = await Promise.all([import(from), import(by)]);
        const bytes = Uint8Array.from(atob(module), (c) => c.charCodeAt(0));
        return compare(await fromModule(bytes), hashes);
      }, face, comparison, readFileSync(`${npmPackage}/${build}`).toString('base64'), readFileSync(manifest, 'utf8'));
      assert.deepEqual([wrong, drawn], [[], pictures], build);
    }
    await page.close();
  },

  async 'gives files to take away'() {
    const page = await open('index.html', { hash: '#icon=App.Things.gear&fill=2f6bff&drop=00000080:0,2:4&size=32' });
    const click = (text) => page.evaluate((wanted) => [...document.querySelectorAll('#details .pill')]
      .find((button) => button.textContent === wanted).click(), text);
    for (const scale of [1, 2, 3]) {
      const [[name, bytes]] = await saved(page, () => click(`PNG ${scale}×`));
      assert.equal(name, scale === 1 ? 'gearPath.png' : `gearPath@${scale}x.png`);
      const native = run('render', 'gearPath', '-o', '-', '--size', '32', '--scale', String(scale), '--fill', '#2f6bff',
        '--drop-shadow', '#00000080:0,2:4');
      assert.deepEqual(pixelsOfPng(Buffer.from(bytes)), pixelsOfPng(native));
    }
    const svg = async () => Buffer.from((await saved(page, () => click('SVG')))[0][1]).toString();
    // Each look in the address and for the program; of the first icon, and of one of bare strokes.
    const looks = [['', ''],
      ['fill=2f6bff80&stroke=203040:1.5', '--fill #2f6bff80 --stroke #203040:1.5'],
      ['fill=2f6bff&border=203040:3&background=ffffff', '--fill #2f6bff --border #203040:3 --background #ffffff'],
      ['fill=112233&gradient=ff2d6b,ff9e33,ffd84d:leftToRight&drop=00000080:0,2:4&inset=00000099:0,1.5:3&background=eeeeff80&border=203040:2',
        '--gradient #ff2d6b,#ff9e33,#ffd84d:leftToRight --drop-shadow #00000080:0,2:4 --inset-shadow #00000099:0,1.5:3 ' +
        '--background #eeeeff80 --border #203040:2'],
      ['fill=112233&border=203040:3&background=ffffff', '--fill #112233 --border #203040:3 --background #ffffff']];
    for (const [i, [address, options]] of looks.entries()) {
      for (const icon of ['gearPath', 'chatActionBarCloseIcon']) {
        await page.goto(`${page.url().split('#')[0]}#icon=${icon}&size=50&${address}`);
        await settle(page);
        const words = ['--size', '50', ...options.split(' ').filter(Boolean)];
        const file = `${folder}/../native.svg`;
        if (i > 0) {
          run('render', icon, '-o', file, ...words);
          assert.equal(await svg(), readFileSync(file, 'utf8'), `${icon} ${address}`);
        }
        if (icon === 'chatActionBarCloseIcon' && address.includes('gradient')) continue;
        const [[, bytes]] = await saved(page, () => click('PNG 2×'));
        const native = run('render', icon, '-o', '-', '--scale', '2', ...words);
        assert.deepEqual(pixelsOfPng(Buffer.from(bytes)), pixelsOfPng(native), `${icon} ${address}`);
      }
    }
    await page.goto(`${page.url().split('#')[0]}#icon=App.Things.gear`);
    await settle(page);
    assert.equal(await svg(), run('path', 'gearPath', '--svg').toString());
    const code = await page.evaluate(() => [...document.querySelectorAll('.code .choice button')].map((button) => {
      button.click();
      return [button.textContent, document.querySelector('.code pre').textContent];
    }));
    assert.deepEqual(code.map(([title]) => title),
      ['C++', 'By name', 'By number', 'Command line', 'C', 'JavaScript']);
    await page.keyboard.press('Escape');
    await search(page, 'heart');
    await page.evaluate(() => [...document.querySelectorAll('.card:not([hidden]) .pick')].slice(0, 3).forEach((pick) => pick.click()));
    const [[zipName, zip]] = await saved(page, () => page.click('#chosen .main'));
    assert.equal(zipName, 'glyphwright-icons.zip');
    const end = Buffer.from(zip).subarray(-22);
    assert.deepEqual([end.readUInt32LE(0), end.readUInt16LE(10)], [0x06054b50, 12], 'three icons, four files each');
    const [[, sheet]] = await saved(page, () => page.evaluate(() => [...document.querySelectorAll('#chosen .pill')]
      .find((button) => button.textContent === 'Sheet').click()));
    assert.equal(pixelsOfPng(Buffer.from(sheet)).width, 2 * (2 * 48 + 16) + 16);
    await page.close();
    return code;
  },

  async 'goes back and forward'() {
    const page = await open('index.html', { hash: '#q=love&size=96&icon=heartPath&view=outline' });
    assert.ok(await dialogOpen(page));
    assert.equal(await page.$eval('#search', (input) => input.value), 'love');
    assert.ok(await page.$('.stage.outline .node'));
    await page.keyboard.press('Escape');
    await page.waitForFunction(() => !location.hash.includes('icon='));
    await page.goBack();
    await page.waitForFunction(() => document.querySelector('#details').open);
    await page.goForward();
    await page.waitForFunction(() => !document.querySelector('#details').open);
    const before = await hash(page);
    await page.goto(`${page.url().split('#')[0]}#size=9999&fill=red&gradient=1&icon=nothing&nonsense=1&scale=0`);
    await settle(page);
    assert.equal((await shown(page)).length > 183, true, 'absurd values are left out');
    assert.match(before, /^#q=love&size=96$/);
    await page.close();
  },

  async 'works by keyboard alone'() {
    const page = await open('index.html');
    const focused = () => page.evaluate(() => document.activeElement.closest('.card')?.dataset.method ?? document.activeElement.id);
    let stops = 0;
    for (; stops < 60; ++stops) {
      await page.keyboard.press('Tab');
      if (await page.evaluate(() => document.activeElement.matches('footer a'))) break;
    }
    assert.ok(stops < 50, `${stops} stops before the end of the page`);
    await page.keyboard.press('/');
    assert.equal(await focused(), 'search');
    await page.keyboard.type('gear');
    await page.keyboard.press('Enter');
    await page.waitForFunction(() => document.querySelector('#details').open);
    assert.equal(await page.$eval('#details-name', (name) => name.textContent), 'gear');
    await page.keyboard.press('Escape');
    await settle(page);
    assert.equal(await focused(), 'gearPath');
    await page.keyboard.press('x');
    assert.equal(await page.$eval('#chosen strong', (count) => count.textContent), '1 selected');
    await page.keyboard.press('Escape');
    await settle(page);
    await page.evaluate(() => document.querySelector('.card .picture').focus());
    const first = await focused();
    await page.keyboard.press('ArrowRight');
    const second = await focused();
    await page.keyboard.press('ArrowDown');
    const below = await focused();
    assert.equal(new Set([first, second, below]).size, 3);
    await page.keyboard.press('ArrowUp');
    assert.equal(await focused(), second);
    await page.keyboard.press('?');
    assert.ok(await page.$eval('#help', (help) => help.open));
    await page.close();
  },

  async 'copies what compiles'() {
    const page = await open('index.html');
    const copied = await page.$$eval('.card [data-copy]', (buttons) => buttons.map((button) => button.dataset.copy));
    const button = await page.$('.card .name');
    await button.click();
    await page.waitForFunction((text) => document.querySelector('#toast').textContent === `Copied ${text}`, {}, copied[0]);
    // A browser that keeps the clipboard from pages of files.
    await page.evaluate(() => Object.defineProperty(navigator, 'clipboard', { value: undefined }));
    await (await page.$$('.card .name'))[3].click();
    await page.waitForFunction((text) => document.querySelector('#toast').textContent === `Copied ${text}`, {}, copied[3]);
    await page.close();
    const paintings = await open('paintings.html');
    copied.push(...await paintings.$$eval('.card .name', (buttons) => buttons.map((each) => each.dataset.copy)));
    assert.ok((await search(paintings, 'gift')).length >= 2);
    assert.equal((await search(paintings, 'safebeam disc')).length > 0, true);
    await paintings.close();
    return copied;
  },

  async 'is open to everybody'() {
    for (const scheme of ['light', 'dark']) {
      for (const width of [1280, 390]) {
        const page = await open('index.html', { scheme, width, height: 844,
          hash: '#gradient=ff2d6b,ff9e33:leftToRight&stroke=203040:1.5&drop=00000080:0,2:4&inset=00000099:0,1.5:3' });
        if (width < 600) await page.click('#restyle');
        await findings(page, `${scheme} ${width}`);
        if (width < 600) await page.click('#restyle');
        for (const view of ['', 'pixels', 'outline', 'motion']) {
          await page.evaluate((wanted) => { location.hash = `#icon=App.Things.gear&view=${wanted}`; }, view);
          await settle(page);
          await findings(page, `details ${view} ${scheme} ${width}`);
        }
        await page.close();
      }
      for (const name of ['paintings.html', 'animations.html']) {
        const page = await open(name, { scheme });
        await findings(page, `${name} ${scheme}`);
        const broken = await page.evaluate(() =>
          [...document.images].filter((image) => !image.complete || image.naturalWidth === 0).length);
        assert.equal(broken, 0, name);
        await page.close();
      }
    }
  },

  async 'fits a phone'() {
    const page = await open('index.html', { width: 390, height: 844 });
    const facts = await page.evaluate(() => ({
      wide: document.documentElement.scrollWidth > innerWidth,
      head: document.querySelector('.top').getBoundingClientRect().height / innerHeight,
      low: [...document.querySelectorAll('.card button')].filter((button) =>
        button.offsetHeight > 0 && button.offsetHeight < 24).length,
    }));
    assert.deepEqual({ ...facts, head: facts.head <= 0.1 }, { wide: false, head: true, low: 0 });
    await page.evaluate(() => { location.hash = '#icon=App.Things.gear'; });
    await settle(page);
    await page.$eval('#details', (dialog) => dialog.scrollTo(0, 5000));
    await settle(page);
    const seen = await page.$$eval('#details .bar button', (buttons) => buttons.every((button) => {
      const { top, left, right } = button.getBoundingClientRect();
      return top >= 0 && top < 80 && left >= 0 && right <= innerWidth;
    }));
    assert.ok(seen, 'the close button and the arrows stay in view');
    assert.equal(await page.$eval('#details', (dialog) => dialog.scrollWidth <= dialog.clientWidth), true);
    await page.close();
  },
};

try {
  const results = {};
  for (const [name, part] of Object.entries(parts)) {
    results[name] = await part();
    console.log(`ok: ${name}`);
  }
  assert.deepEqual(said, [], 'nothing is said on the console');
  assert.deepEqual([...loaded].filter((url) => !/^(file|blob|data):/.test(url)), []);
  // What was copied becomes a program that a compiler looks at.
  const names = new Set(results['copies what compiles']);
  const typed = results['gives files to take away'].filter(([title]) => /C\+\+|By/.test(title));
  writeFileSync(`${folder}/../copied.cpp`, '#include <glyphwright/glyphwright.h>\nusing namespace glyphwright;\n' +
    `void copied() {\n${[...names].map((name) => `  (void)(${name});\n`).join('')}}\n` +
    typed.map(([, code], i) => `void way${i}() {\n${code}\n(void)image;\n}\n`).join(''));
  writeFileSync(`${folder}/../copied.c`, '#include <glyphwright/c/glyphwright.h>\nvoid copied(void) {\n' +
    `${results['gives files to take away'].find(([title]) => title === 'C')[1]}\n}\n`);
} finally {
  await browser.close();
}
