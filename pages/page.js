// The search of the page: by the same rules as `tolvane-run --explain`. The entries stand in the page as data:
// id, title, keys, and the texts of the rows that say it, with \u0001 for each argument.
'use strict';

const gap = '\u0001';
const shortest = 8; // bytes of a row's own words in a pasted line
const little = new Set('a an the my is are of to i it do be me we does what when with why'.split(' '));
const utf8 = new TextEncoder();
const size = text => utf8.encode(text).length;

const folded = text => text.replace(/[！-～]/g, c => String.fromCharCode(c.charCodeAt(0) - 0xFEE0))
  .replace(/[\s\u3000]/g, ' ').replace(/[A-Z]/g, c => c.toLowerCase());
const tight = text => folded(text).replace(/[ "“”]/g, '');
const isAscii = text => /^[\0-\x7f]*$/.test(text);
const wordsOf = text => folded(text).split(' ')
  .map(word => word.replace(/^["'.,:;!?()<>[\]]+|["'.,:;!?()<>[\]]+$/g, '')).filter(word => word);
const withoutHeads = text => text.split('\n').map(line => line.replace(/^tolvane-run: /, '')
  .replace(/^.*?: (error|warning|note|memo):/, '')).join('\n');

const piecesOf = line => tight(line).split(/[\u0001:]/).filter(piece => piece && piece !== 'constantnr=');
const prepare = ([id, title, keys, texts]) => ({
  id, title, word: folded(id), keys: wordsOf(keys), titles: folded(title),
  texts: texts.map(folded).filter(text => size(text) < 1000),
  lines: texts.map(text => text.split('\n').map(piecesOf)),
});

// How much of a pasted text an entry's rows have said.
function scoreOfLine(pieces, pasted) {
  let from = 0;
  let score = 0;
  for (const piece of pieces) {
    const at = pasted.indexOf(piece, from);
    if (at < 0) return 0;
    from = at + piece.length;
    score += size(piece);
  }
  return score < shortest ? 0 : score;
}
const scoreOfPasted = (entry, pasted) => Math.max(0, ...entry.lines.map(
  lines => lines.reduce((sum, pieces) => sum + scoreOfLine(pieces, pasted), 0)));

// Whether a word begins somewhere in a text; "ret" does not in "interpreter".
function hasWord(text, word) {
  for (let at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1))
    if (at === 0 || !/[a-z0-9]/i.test(text[at - 1]) || !/[a-z0-9]/i.test(word[0])) return true;
  return false;
}
function scoreOfWord(entry, word) {
  if (entry.word === word) return 8;
  if (entry.keys.some(key => key === word || (!isAscii(key) && word.includes(key)))) return 4;
  if (hasWord(entry.titles, word)) return 2;
  return entry.texts.some(text => hasWord(text, word)) ? 1 : 0;
}

const inOrder = found => found.filter(each => each.words > 0)
  .sort((a, b) => b.words - a.words || b.score - a.score || a.place - b.place);

function findPasted(entries, text) {
  const pasted = tight(text);
  return inOrder(entries.map((entry, place) => {
    const score = scoreOfPasted(entry, pasted);
    return {entry, place, words: score > 0 ? 1 : 0, score};
  }));
}
function findWords(entries, words) {
  const found = inOrder(entries.map((entry, place) => {
    const scores = words.map(word => scoreOfWord(entry, word));
    const has = scores.filter(score => score > 0).length;
    return {entry, place, words: 2 * has > words.length ? has : 0, score: scores.reduce((a, b) => a + b, 0)};
  }));
  return found.filter(each => each.words === found[0].words && 2 * each.score >= found[0].score);
}
// A line of the trace, or the place of a stop: its instruction.
function findInstruction(entries, text) {
  const opcode = text.split(/[^A-Z]+/).find(word => word && entries.some(entry => entry.id === word));
  return opcode ? findWords(entries, [folded(opcode)]) : [];
}

const pairsOf = word => [...' ' + word].map((c, i, all) => c + (all[i + 1] || ' '));
function likeness(one, other) {
  const a = pairsOf(one);
  const b = pairsOf(other);
  const rest = [...b];
  const both = a.filter(pair => rest.includes(pair) && rest.splice(rest.indexOf(pair), 1));
  return 2 * both.length / (a.length + b.length);
}
function findNear(entries, words) {
  return inOrder(entries.map((entry, place) => {
    const own = [...wordsOf(entry.word + ' ' + entry.titles), ...entry.keys];
    const score = words.reduce((sum, word) => sum + Math.max(...own.map(each => likeness(word, each))), 0);
    return {entry, place, words: 1, score};
  })).slice(0, 3);
}

// The entries that fit, the best first; where none does, the nearest, and `near` is true.
function find(entries, text) {
  const body = withoutHeads(text);
  const all = wordsOf(body);
  const asked = all.filter(word => !little.has(word));
  const words = asked.length ? asked : all;
  if (!words.length) return {found: [], near: false};
  for (const search of [() => findPasted(entries, body), () => findWords(entries, words),
    () => findWords(entries, [tight(body)]), () => findInstruction(entries, body)]) {
    const found = search();
    if (found.length) return {found: found.map(each => each.entry), near: false};
  }
  return {found: findNear(entries, words).map(each => each.entry), near: true};
}

// --- The page

if (typeof document !== 'undefined') {
  const data = JSON.parse(document.getElementById('data').textContent);
  const entries = data.entries.map(prepare);
  const box = document.getElementById('search');
  const results = document.getElementById('results');
  const count = document.getElementById('count');

  const open = () => {
    const entry = document.getElementById(decodeURIComponent(location.hash.slice(1)));
    if (!entry || entry.tagName !== 'DETAILS') return;
    entry.open = true;
    entry.scrollIntoView();
    entry.querySelector('summary').focus({preventScroll: true});
  };
  const show = () => {
    const {found, near} = find(entries, box.value);
    results.replaceChildren(...found.slice(0, 12).map(entry => {
      const link = document.createElement('a');
      link.href = '#' + encodeURIComponent(entry.id);
      link.innerHTML = document.getElementById(entry.id).querySelector('h3').outerHTML.replace(/h3/g, 'span');
      const item = document.createElement('li');
      item.append(link);
      return item;
    }));
    count.textContent = !found.length ? '' : near ? data.near : data.fit.replace('{0}', found.length);
  };
  const close = () => {
    box.value = '';
    show();
  };
  box.addEventListener('input', show);
  box.form.addEventListener('submit', event => {
    event.preventDefault();
    const first = results.querySelector('a');
    if (first) first.click();
  });
  box.form.addEventListener('keydown', event => {
    if (event.key !== 'Escape') return;
    close();
    box.focus();
  });
  results.addEventListener('click', event => {
    const link = event.target.closest('a');
    if (!link) return;
    event.preventDefault();
    close();
    if (location.hash === link.getAttribute('href')) open();
    else location.hash = link.getAttribute('href');
  });
  addEventListener('hashchange', open);
  open();
} else {
  module.exports = {prepare, find};
}
