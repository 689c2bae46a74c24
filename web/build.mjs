// Puts the page together: scripts, style, the engine, and what the repository holds of samples, exercises and examples.
//
//   node build.mjs     build-web/wasm/web/engine/engine.* -> build-web/tolvane.html

import { build } from 'esbuild';
import { marked } from 'marked';
import { createHash } from 'node:crypto';
import { readFileSync, readdirSync, existsSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { dirname, join } from 'node:path';
import { fileURLToPath } from 'node:url';
import { gzipSync } from 'node:zlib';

const here = dirname(fileURLToPath(import.meta.url));
const root = join(here, '..');
const engine = join(root, 'build-web/wasm/web/engine/engine');
const read = (...path) => readFileSync(join(root, ...path), 'utf8');
const languages = ['ja', 'en'];
// A line's end between two Japanese characters is no blank.
const joined = (text) => text.replace(/([^\x00-\x7f])\n(?=[^\x00-\x7f])/g, '$1');

// --- What the repository holds

// A task without its title, and without what concerns the shell alone.
const taskOf = (text) => text.split(/\n\n+/).filter((part) => !part.includes('../grade') && !part.startsWith('# ')).join('\n\n');
const titleOf = (text) => /^# (.*)$/m.exec(text)[1];

function exercise(id) {
  const tasks = languages.map((language) => read('examples/exercises', id, `task.${language}.md`));
  const files = readdirSync(join(root, 'examples/exercises', id)).filter((name) => /^(input|output)-\d+\.txt$|^rules\.txt$/.test(name));
  return {
    id,
    titles: tasks.map(titleOf),
    tasks: tasks.map((text) => marked.parse(joined(taskOf(text)))),
    start: read('examples/exercises', id, 'start.txt'),
    cases: files.map((name) => ({ name, text: read('examples/exercises', id, name) })),
  };
}

// The whole sources of a guide, named by the heading above each; a "," behind a heading that has several.
function examplesOf(language) {
  const found = [];
  let heading = '';
  for (const token of marked.lexer(read(`docs/guide.${language}.md`))) {
    if (token.type === 'heading') heading = token.text;
    if (token.type !== 'code' || token.lang !== 'casl') continue;
    const same = found.filter((each) => each.heading === heading).length;
    found.push({ heading, title: same > 0 ? `${heading} (${same + 1})` : heading, text: token.text + '\n' });
  }
  return found;
}

function examples() {
  const [japanese, english] = languages.map(examplesOf);
  if (japanese.length !== english.length) throw new Error('The guides differ in their examples.');
  return japanese.map((each, i) => ({ id: String(i + 1), titles: [each.title, english[i].title], texts: [each.text, english[i].text] }));
}

async function opcodes() {
  const create = createRequire(import.meta.url)(engine + '.js');
  const module = await create({ wasmBinary: readFileSync(engine + '.wasm') });
  return module.opcodes();
}

// --- The scripts

async function script(name) {
  const result = await build({
    entryPoints: [join(here, 'page', name)],
    bundle: true,
    minify: true,
    write: false,
    metafile: true,
    format: 'iife',
    target: 'es2022',
    charset: 'utf8',
    legalComments: 'none',
    external: ['fs', 'path', 'crypto', 'perf_hooks', 'ws', 'child_process', 'url', 'worker_threads'],
  });
  return { text: result.outputFiles[0].text, inputs: Object.keys(result.metafile.inputs) };
}

// The notices of what is bundled.
function licences(inputs) {
  const names = new Set(inputs.map((path) => /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(path)?.[1]).filter(Boolean));
  return [...names].sort().map((name) => {
    const folder = join(here, 'node_modules', name);
    const { version, license } = JSON.parse(readFileSync(join(folder, 'package.json'), 'utf8'));
    const file = readdirSync(folder).find((each) => /^licen[cs]e/i.test(each));
    return `${name} ${version} (${license})\n\n${file ? readFileSync(join(folder, file), 'utf8').trim() : ''}\n`;
  }).join('\n\n');
}

// Nothing may end the element that a text stands in.
const inElement = (text) => text.replace(/<\/(script|style)/gi, '<\\/$1').replace(/<!--/g, '<\\!--');
const escaped = (text) => text.replace(/</g, '(').replace(/>/g, ')');

const page = await script('main.ts');
const worker = await script('worker.ts');
const pageText = inElement(page.text);
const parts = {
  HASH: 'sha256-' + createHash('sha256').update(pageText).digest('base64'),
  STYLE: readFileSync(join(here, 'page/style.css'), 'utf8'),
  LIBRARY: JSON.stringify({
    opcodes: await opcodes(),
    samples: readdirSync(join(root, 'examples/src')).sort((a, b) => a.length - b.length || a.localeCompare(b)).map((name) => ({ id: name.replace(/\.txt$/, ''), text: read('examples/src', name) })),
    exercises: readdirSync(join(root, 'examples/exercises')).filter((name) => /^\d/.test(name)).sort().map(exercise),
    examples: examples(),
  }).replace(/</g, '\\u003c'),
  LICENCES: escaped(licences([...page.inputs, ...worker.inputs])),
  WORKER: inElement(worker.text),
  WASM: gzipSync(readFileSync(engine + '.wasm'), { level: 9 }).toString('base64'),
  PAGE: pageText,
};
const html = readFileSync(join(here, 'page/index.html'), 'utf8').replace(/@([A-Z]+)@/g, (whole, name) => parts[name] ?? whole);
const target = join(root, 'build-web/tolvane.html');
writeFileSync(target, html);
console.log(`${target}: ${(html.length / 1e6).toFixed(2)} MB`);
