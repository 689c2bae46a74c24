// Chromium without a screen, and the page in it as a person sees it: by names and regions.

import assert from 'node:assert/strict';
import { mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';
import puppeteer from 'puppeteer-core';

export const root = fileURLToPath(new URL('../../', import.meta.url));
export const address = pathToFileURL(join(root, 'build-web/tolvane.html')).href;

const patience = Number(process.env.PATIENCE ?? 60_000);

export async function startBrowser() {
  const profile = mkdtempSync(join(tmpdir(), 'tolvane-web-'));
  const browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    headless: true,
    userDataDir: profile,
    protocolTimeout: 120_000,
    args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking', '--disable-component-update', '--disable-sync', '--lang=en-US'],
  });
  const close = async () => {
    await browser.close();
    rmSync(profile, { recursive: true, force: true });
  };
  return { browser, close };
}

// In the page: each message to a worker arrives so many milliseconds later.
function slowWorkers(delay) {
  const post = Worker.prototype.postMessage;
  Worker.prototype.postMessage = function (message) {
    setTimeout(() => post.call(this, message), delay);
  };
}

// A page of its own, without what another one has kept. What it finds wrong by itself is in `faults`.
export async function openPage(browser, { link = address, width = 1280, dark = false, language = 'en-US', delay = 0 } = {}) {
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  const faults = [];
  page.on('pageerror', (fault) => faults.push(String(fault)));
  page.on('console', (message) => message.type() === 'error' && faults.push(message.text()));
  await page.setViewport({ width, height: width > 800 ? 800 : 844 });
  await page.emulateMediaFeatures([{ name: 'prefers-color-scheme', value: dark ? 'dark' : 'light' }]);
  await page.evaluateOnNewDocument((chosen) => Object.defineProperty(navigator, 'language', { get: () => chosen }), language);
  if (delay > 0) await page.evaluateOnNewDocument(slowWorkers, delay);
  await page.goto(link);
  await page.waitForFunction(() => document.documentElement.dataset.checked, { timeout: patience });
  const control = (name, role = 'button') => page.locator(`::-p-aria([name="${name}"][role="${role}"])`).setTimeout(patience);
  const text = (region) => page.$eval(`section[aria-label="${region}"]`, (each) => each.innerText);
  const waits = (region, wanted) =>
    page
      .waitForFunction((name, part) => document.querySelector(`section[aria-label="${name}"]`).innerText.includes(part), { timeout: patience }, region, wanted)
      .catch(async () => assert.fail(`"${wanted}" is not in ${region}: ${await text(region)}\n${await page.$eval('body', (each) => each.innerText)}`));
  return {
    page,
    faults,
    text,
    waits,
    press: (name) => control(name).click(),
    control,
    // Writes a source in the place of the one that is there.
    async write(source) {
      await page.click('.cm-content');
      await page.keyboard.down('Control');
      await page.keyboard.press('a');
      await page.keyboard.up('Control');
      await page.keyboard.press('Delete');
      await page.keyboard.sendCharacter(source);
    },
    choose: (name, value) => page.select(`select[aria-label="${name}"]`, value),
    register: (name) => page.$$eval('.registers tbody tr', (rows, wanted) => rows.map((row) => row.innerText.split(/\s+/)).find((words) => words[0] === wanted)?.[1], name),
    moment: () => page.$eval('.moment', (each) => each.textContent),
    close: () => context.close(),
  };
}
