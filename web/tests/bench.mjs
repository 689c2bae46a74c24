// How large and how fast the page is, beside what it must reach.

import { spawnSync } from 'node:child_process';
import { mkdtempSync, statSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { address, openPage, root, startBrowser } from './browser.mjs';

const say = (what, value, unit, bound) => console.log(`${what.padEnd(44)} ${value.toFixed(2).padStart(8)} ${unit}   (${bound})`);
say('file', statSync(join(root, 'build-web/tolvane.html')).size / 1e6, 'MB', 'at most 1.6');

const endless = 'MAIN START\n LAD GR2,1\nLOOP ADDA GR1,GR2\n ST GR1,SUM\n LD GR3,SUM\n ADDL GR4,GR3\n XOR GR5,GR4\n JUMP LOOP\n RET\nSUM DS 1\n END\n';
const source = join(mkdtempSync(join(tmpdir(), 'tolvane-bench-')), 'loop.txt');
writeFileSync(source, endless);
const native = (limit) => {
  const begun = performance.now();
  spawnSync(process.env.TOLVANE_RUN ?? join(root, 'build/tolvane-run'), ['-n', String(limit), source]);
  return performance.now() - begun;
};
const nativeSpeed = 5e8 / 1e3 / (native(5e8) - native(1));

const { browser, close } = await startBrowser();
const opened = performance.now();
const tab = await openPage(browser, { link: address });
const { page } = tab;
say('ready after opening (by its own clock)', await page.evaluate(() => Number(document.documentElement.dataset.checked)), 'ms', 'at most 1000');
say('the same with the opening of a tab', performance.now() - opened, 'ms', 'no bound');

const lines = ['MAIN START', ...Array.from({ length: 296 }, (_, i) => `L${i} LD GR1,L${i}`), ' RET', ' END', ''].join('\n');
await tab.write(lines);
await tab.waits('Problems', 'No problems');
// What the page does of itself behind a change is over, as it is when a person goes on.
const rest = () => new Promise((done) => setTimeout(done, 150));
const edits = [];
for (let n = 0; n < 10; ++n) {
  await rest();
  const begun = await page.evaluate(() => performance.now());
  await page.keyboard.type('X');
  await page.waitForFunction((since) => Number(document.documentElement.dataset.checked) > since, { polling: 5 }, begun);
  edits.push((await page.evaluate(() => Number(document.documentElement.dataset.checked))) - begun);
}
say('faults after an edit of 300 lines, slowest', Math.max(...edits), 'ms', 'at most 50');

await tab.write(endless);
await tab.waits('Problems', 'No problems');
const now = async () => Number((await tab.moment()).replace(/,/g, '').match(/\d+/)[0]);
await tab.press('Run');
await page.waitForFunction(() => /Moment [\d,]{9,}/.test(document.querySelector('.moment').textContent), { timeout: 120_000 });
const [first, begun] = [await now(), performance.now()];
await new Promise((done) => setTimeout(done, 2000));
const speed = ((await now()) - first) / 1e3 / (performance.now() - begun);
await tab.press('Pause');
say('run loop', speed, 'M/s', `native ${nativeSpeed.toFixed(0)}, at least ${(nativeSpeed / 2).toFixed(0)}`);

// By the slider to a moment, and the time until its picture is there.
const goTo = (moment) =>
  page.evaluate(async (wanted) => {
    const slider = document.querySelector('#time input');
    const begun = performance.now();
    slider.value = String(wanted);
    slider.dispatchEvent(new Event('input'));
    while (!document.querySelector('.moment').textContent.startsWith('Moment ' + wanted.toLocaleString('en') + ' of')) await new Promise((done) => setTimeout(done));
    return performance.now() - begun;
  }, moment);
await tab.waits('Time', 'Moment');
await tab.press('Restart');
await tab.press('Run');
await page.waitForFunction(() => Number(document.querySelector('.moment').textContent.replace(/,/g, '').match(/\d+/)[0]) >= 1e8, { timeout: 120_000 });
await tab.press('Pause');
await rest();
const latest = Math.min(await now(), 1e8);
const backs = [];
const jumps = [];
for (let n = 0; n < 20; ++n) {
  const moment = 2 + Math.floor(((n * 7919) % 1000) / 1000 * (latest - 3));
  jumps.push(await goTo(moment));
  await rest();
  backs.push(await goTo(moment - 1));
}
say('step back in a run of 10^8, slowest', Math.max(...backs), 'ms', 'at most 20');
say('slider to any moment, slowest', Math.max(...jumps), 'ms', 'at most 100');
await close();
