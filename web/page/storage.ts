// What is kept between visits: sources and settings, as one text in the browser's storage.

import { pipelines, type Language, type Pipeline } from './engine.js';
import { formats, type Format } from './numbers.js';

export interface Settings {
  language: Language;
  pipeline: Pipeline;
  format: Format;
  encoding: 'utf8' | 'shiftJis';
}
export interface Kept {
  settings: Settings;
  current: string;
  texts: Record<string, string>; // by the ids of the sources
}

const key = 'tolvane';
const fromBrowser = (): Language => (navigator.language.startsWith('ja') ? 0 : 1);
const oneOf = <T>(values: readonly T[], value: unknown, usual: T): T => (values.includes(value as T) ? (value as T) : usual);

// What lies there may have been written by anybody.
function understood(found: unknown): Kept {
  const all = (typeof found === 'object' && found !== null ? found : {}) as Record<string, unknown>;
  const chosen = (typeof all['settings'] === 'object' && all['settings'] !== null ? all['settings'] : {}) as Record<string, unknown>;
  const texts: Record<string, string> = Object.create(null) as Record<string, string>;
  if (typeof all['texts'] === 'object' && all['texts'] !== null)
    for (const [id, text] of Object.entries(all['texts'])) if (typeof text === 'string') texts[id] = text;
  return {
    settings: {
      language: oneOf<Language>([0, 1], chosen['language'], fromBrowser()),
      pipeline: oneOf(pipelines, chosen['pipeline'], 'WP'),
      format: oneOf<Format>(formats, chosen['format'], 'hexadecimal'),
      encoding: oneOf<Settings['encoding']>(['utf8', 'shiftJis'], chosen['encoding'], 'utf8'),
    },
    current: typeof all['current'] === 'string' ? all['current'] : '',
    texts,
  };
}

export function recall(): Kept {
  try {
    return understood(JSON.parse(localStorage.getItem(key) ?? 'null'));
  } catch {
    return understood(undefined);
  }
}

// False if the browser keeps nothing.
export function keep(kept: Kept): boolean {
  try {
    localStorage.setItem(key, JSON.stringify(kept));
    return true;
  } catch {
    return false;
  }
}
