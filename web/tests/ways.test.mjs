// A person's ways through the page, from the file itself.

import assert from 'node:assert/strict';
import { readFileSync } from 'node:fs';
import { after, before, test } from 'node:test';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { openPage, root, startBrowser } from './browser.mjs';

let browser, close;
before(async () => ({ browser, close } = await startBrowser()));
after(() => close());

const way = (name, options, act) =>
  test(name, async () => {
    const tab = await openPage(browser, options);
    await act(tab);
    assert.deepEqual(tab.faults, []);
    await tab.close();
  });

const loop = 'MAIN START\n LAD GR1,0\nLOOP LAD GR1,1,GR1\n CPA GR1,=5\n JMI LOOP\n ST GR1,SUM\n RET\nSUM DS 1\n END\n';
const endless = 'MAIN START\nLOOP LAD GR1,1,GR1\n JUMP LOOP\n END\n';
const echo = 'MAIN START\n IN BUF,LEN\n OUT BUF,LEN\n RET\nBUF DS 256\nLEN DS 1\n END\n';

way('a fault is told while it is written, with its rule, and goes when it is mended', {}, async ({ write, waits, text, page, press }) => {
  await write('MAIN START\n LD GR9,A\n RET\nA DC 1\n END\n');
  await waits('Problems', 'Line 2');
  assert.match(await text('Problems'), /Errors: [1-9]/);
  await page.click('#problems summary');
  await page.waitForFunction(() => /GR[0-7][\s\S]*LD/.test(document.querySelector('#problems details pre').textContent));
  await press('Run');
  await page.waitForSelector('.notice.bad');
  await write('MAIN START\n LD GR1,A\n RET\nA DC 1\n END\n');
  await waits('Problems', 'No problems');
});

way('a program runs, asks for its input, and goes on', {}, async ({ write, waits, press, page, text }) => {
  await write(echo);
  await press('Run');
  await waits('Time', 'IN waits');
  await page.type('input[aria-label="Input for IN"]', '<b>hello</b>\n');
  await waits('Time', 'has ended');
  assert.match(await text('Output'), /<b>hello<\/b>\n<b>hello<\/b>/);
  assert.equal(await page.$('#output b'), null, 'what is printed is no markup');
});

way('what is written while another program is on its way into the machine runs', { delay: 500 }, async ({ write, waits, press }) => {
  await new Promise((done) => setTimeout(done, 200)); // the sample's load has been posted
  await write(echo);
  await waits('Time', 'Moment 0 of 0');
  await press('Run');
  await waits('Time', 'IN waits');
});

way('what is sound but hardly meant draws a note', {}, async ({ write, waits, page }) => {
  await write('MAIN START\n LD GR1,5\n ST GR1,A\n RET\nA DS 1\n END\n');
  await waits('Problems', 'not the number 5');
  await page.click('#problems summary');
  await page.waitForFunction(() => document.querySelector('#problems details pre').textContent.includes('LAD GR1,5'));
});

way('steps go on and back, over a loop, however fast they are asked for', { delay: 200 }, async ({ write, waits, press, register, moment, page }) => {
  await write(loop);
  for (let n = 1; n <= 3; ++n) await press('Step');
  await waits('Time', 'Moment 3 of 3');
  assert.equal(await register('GR1'), '0001');
  await press('Step back');
  await press('Step back');
  await waits('Time', 'Moment 1 of 3');
  assert.equal(await register('GR1'), '0000');
  await page.type('input[aria-label="Address or label"]', 'loop\n');
  await waits('Time', 'Moment 2 of');
  await press('Run');
  await waits('Time', 'has ended');
  assert.equal(await register('GR1'), '0005');
  await press('Restart');
  await waits('Time', 'Moment 0 of 0');
  assert.equal(await moment(), 'Moment 0 of 0');
});

way('a breakpoint stops the run, and the way back', {}, async ({ write, waits, press, page, register }) => {
  await write(loop);
  await waits('Problems', 'No problems');
  const numbers = await page.$$('.cm-lineNumbers .cm-gutterElement');
  await numbers[5].click(); // the spacer stands first
  await page.waitForSelector('.breakpoint');
  await press('Run');
  await waits('Time', 'At a breakpoint');
  assert.equal(await register('GR1'), '0001');
  await press('Run');
  await waits('Time', 'Moment 7 of');
  assert.equal(await register('GR1'), '0002');
  await press('Continue back');
  await waits('Time', 'Moment 4 of');
  assert.equal(await register('GR1'), '0001');
});

way('the slider shows any moment of the run', {}, async ({ write, waits, press, page, register }) => {
  await write(loop);
  await press('Run');
  await waits('Time', 'has ended');
  await page.$eval('#time input', (slider) => {
    slider.value = '4';
    slider.dispatchEvent(new Event('input'));
  });
  await waits('Time', 'Moment 4 of 19');
  assert.equal(await register('GR1'), '0001');
});

way('the page tells who changed a register, goes there, and stops when it changes', {}, async ({ write, waits, press, page, register }) => {
  await write(loop);
  await press('Run');
  await waits('Time', 'has ended');
  await press('GR1');
  await press('Who changed this last?');
  await page.waitForFunction(() => document.querySelector('.answer')?.textContent.includes('LOOP'));
  await press('Go there');
  await waits('Time', 'Moment 14 of 19');
  assert.equal(await register('GR1'), '0004');
  await press('GR1');
  await press('Stop when it changes');
  await page.keyboard.press('Escape');
  await press('Run');
  await waits('Time', 'What is watched has changed');
  assert.equal(await register('GR1'), '0005');
});

way('an exercise is graded wrong and right', {}, async ({ choose, waits, press, write }) => {
  await choose('Program', 'exercise:01-add-two-numbers');
  await waits('Problems', 'No');
  await press('Grade');
  await waits('Task', 'Not yet right');
  await write(readFileSync(join(root, 'examples/exercises/01-add-two-numbers/solution.txt'), 'utf8'));
  await press('Grade');
  await waits('Task', 'All right');
});

way('a shared source arrives, is not run, and leaves the own one alone', {}, async ({ write, press, page, choose }) => {
  await choose('Program', 'own');
  await write(echo);
  await press('Share');
  const link = await page.$eval('.link', (field) => field.value);
  assert.match(link, /^file:.*#source=/);
  const other = await openPage(browser, { link });
  assert.match(await other.page.$eval('.cm-content', (text) => text.innerText), /IN BUF,LEN/);
  await other.waits('Time', 'Moment 0 of 0');
  await other.choose('Program', 'own');
  assert.doesNotMatch(await other.page.$eval('.cm-content', (text) => text.innerText), /IN BUF,LEN/);
  await other.close();
  const broken = await openPage(browser, { link: link.slice(0, -20) + '!' });
  assert.match(await broken.page.$eval('#notices', (each) => each.innerText), /damaged/);
  await broken.close();
});

way('an endless program leaves the page at work and is paused, and steps back', {}, async ({ write, waits, press, text, page }) => {
  await write(endless);
  await press('Run');
  await waits('Time', 'Running');
  await write(endless.replace('GR1', 'GR9'));
  await waits('Problems', 'Line 2');
  await page.keyboard.down('Control');
  await page.keyboard.press('z');
  await page.keyboard.up('Control');
  await press('Pause');
  await page.waitForFunction(() => !document.querySelector('#time .control.primary').disabled);
  assert.match(await text('Time'), /Moment [\d,]{6,}/);
});

way('everything goes by keyboard alone', {}, async ({ page, waits, register, text }) => {
  await page.keyboard.press('Tab');
  await page.focus('.cm-content');
  const keys = async (modifier, key) => {
    await page.keyboard.down(modifier);
    await page.keyboard.press(key);
    await page.keyboard.up(modifier);
  };
  await keys('Control', 'a');
  await page.keyboard.sendCharacter(loop);
  await waits('Problems', 'No problems');
  await keys('Control', 'Home');
  for (let n = 0; n < 4; ++n) await page.keyboard.press('ArrowDown');
  await page.keyboard.press('F9');
  await keys('Control', 'Enter');
  await waits('Time', 'At a breakpoint');
  await page.keyboard.press('F8');
  await waits('Time', 'Moment 5 of');
  await keys('Shift', 'F8');
  await waits('Time', 'Moment 4 of');
  assert.equal(await register('GR1'), '0001');
  await page.focus('.memory button');
  await page.keyboard.press('ArrowRight');
  await page.keyboard.press('Enter');
  await page.waitForSelector('dialog[open]');
  assert.match(await page.$eval('dialog[open]', (each) => each.innerText), /Word at #0001/);
  await page.keyboard.press('Escape');
  assert.match(await text('Memory'), /LOOP/);
});

way('a file is read by the rule of the programs, or its fault is told', {}, async ({ page }) => {
  const chooser = await page.$('input[type=file]');
  const open = (name, bytes) =>
    page.evaluate((file, data) => {
      const transfer = new DataTransfer();
      transfer.items.add(new File([new Uint8Array(data)], file));
      document.dispatchEvent(new DragEvent('drop', { dataTransfer: transfer, cancelable: true }));
    }, name, bytes);
  assert.ok(chooser);
  await open('sjis.txt', [...Buffer.from('MAIN START ;'), 0x93, 0xfa, 0x96, 0x7b, ...Buffer.from('\n RET\n END\n')]);
  await page.waitForFunction(() => document.querySelector('.cm-content').innerText.includes('日本'));
  await open('bad.txt', [0x4d, 0xff, 0xff, 0x00, 0x80]);
  await page.waitForSelector('.notice.bad');
  assert.match(await page.$eval('.cm-content', (each) => each.innerText), /日本/);
});

way('the page speaks Japanese to who reads it', { language: 'ja' }, async ({ press, waits, page, write }) => {
  assert.equal(await page.$eval('html', (each) => each.lang), 'ja');
  await write(loop);
  await press('1ステップ');
  await waits('時間', '1 / 1 命令');
  await press('1ステップ戻る');
  await press('実行');
  await waits('時間', 'プログラムは終わった');
});

way('what the browser does not keep is told', {}, async ({ page, write }) => {
  await page.evaluate(() => (Storage.prototype.setItem = () => { throw new DOMException('full', 'QuotaExceededError'); }));
  await write(loop);
  await page.waitForSelector('.notice.bad');
});

const axe = readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
for (const dark of [false, true])
  for (const width of [1280, 390])
    way(`nobody is shut out, and nothing overflows: ${dark ? 'dark' : 'light'}, ${width}`, { dark, width }, async ({ page, press, choose }) => {
      await choose('Program', 'exercise:03-echo-lines');
      await press('Step');
      await page.evaluate((code) => (0, eval)(code), axe).catch(() => page.addScriptTag({ content: axe }));
      for (const tab of ['source', 'machine', 'output']) {
        if (width < 800) await page.click('#tab-' + tab);
        const { violations } = await page.evaluate(() => globalThis.axe.run());
        assert.deepEqual(violations.map((each) => `${each.id}: ${each.nodes[0].html}`), []);
        assert.ok(await page.evaluate(() => document.documentElement.scrollWidth <= innerWidth));
      }
    });
