// Words of 16 bits as text.

import type { TextKey } from './texts.js';

export const formats = ['hexadecimal', 'signed', 'unsigned', 'binary', 'character'] as const satisfies readonly TextKey[];
export type Format = (typeof formats)[number];

export const hex = (word: number) => word.toString(16).toUpperCase().padStart(4, '0');
const signed = (word: number) => String(word > 0x7fff ? word - 0x10000 : word);
const binary = (word: number) => word.toString(2).padStart(16, '0').replace(/(.{4})(?=.)/g, '$1 ');

// Characters as a word holds them: a letter, else nothing that could be mistaken for one.
function character(word: number): string {
  const isSeen = word > 0x20 && word !== 0x7f && !(word >= 0x80 && word <= 0xa0) && !(word >= 0xd800 && word <= 0xf8ff) && word < 0xfff0;
  return isSeen && /[\p{L}\p{N}\p{P}\p{S}]/u.test(String.fromCharCode(word)) ? String.fromCharCode(word) : word === 0x20 ? '␣' : '·';
}

export function formatted(word: number, format: Format): string {
  if (format === 'hexadecimal') return hex(word);
  if (format === 'signed') return signed(word);
  if (format === 'unsigned') return String(word);
  return format === 'binary' ? binary(word) : character(word);
}
