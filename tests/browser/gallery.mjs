// The gallery in a browser: what its script does, seen from outside.
// Usage: gallery.mjs GALLERY-FOLDER BROWSER
import assert from 'node:assert/strict';
import { pathToFileURL } from 'node:url';
import puppeteer from 'puppeteer-core';

const [folder, executablePath] = process.argv.slice(2);
const url = (page) => pathToFileURL(`${folder}/${page}`).href;

const browser = await puppeteer.launch({ executablePath, args: ['--no-sandbox', '--disable-gpu'] });
try {
  const page = await browser.newPage();
  const errors = [];
  page.on('pageerror', (error) => errors.push(String(error)));
  await page.goto(url('index.html'));

  const setSearch = (text) => page.evaluate((value) => {
    const search = document.querySelector('#search');
    search.value = value;
    search.dispatchEvent(new Event('input'));
    search.focus();
  }, text);
  const pasted = async () => {
    await setSearch('');
    await page.keyboard.down('Control');
    await page.keyboard.press('KeyV');
    await page.keyboard.up('Control');
    return page.$eval('#search', (search) => search.value);
  };
  const copyFrom = async (button) => {
    const name = await button.evaluate((element) => element.dataset.copy);
    await button.scrollIntoView();
    await button.click();
    await page.waitForFunction((text) => document.querySelector('#toast').textContent === text,
      { timeout: 5000 }, `Copied ${name}`);
    return name;
  };

  const buttons = await page.$$('.card [data-copy]');
  assert.ok(buttons.length >= 183);
  const first = await copyFrom(buttons[0]);
  assert.equal(await pasted(), first);

  // A browser that keeps the clipboard from pages of files.
  await setSearch('');
  await page.evaluate(() => Object.defineProperty(navigator, 'clipboard', { value: undefined }));
  const second = await copyFrom(buttons[5]);
  assert.notEqual(second, first);
  assert.equal(await pasted(), second);

  await setSearch('heart');
  const shown = await page.$$('.card:not([hidden])');
  assert.ok(shown.length > 0 && shown.length < 20);
  assert.equal(await page.$eval('#found', (found) => found.textContent), `${shown.length} icons`);
  await (await shown[0].$('.picture')).click();
  await page.waitForSelector('#details[open]', { timeout: 5000 });
  await copyFrom(await page.$('#details [data-copy]'));
  await page.keyboard.press('Escape');
  await setSearch('no such icon');
  assert.equal((await page.$$('.card:not([hidden])')).length, 0);

  for (const other of ['paintings.html', 'animations.html']) {
    await page.goto(url(other), { waitUntil: 'load' });
    const broken = await page.evaluate(() =>
      [...document.images].filter((image) => !image.complete || image.naturalWidth === 0).length);
    assert.equal(broken, 0, other);
  }
  assert.deepEqual(errors, []);
} finally {
  await browser.close();
}
