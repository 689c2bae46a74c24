// The samples, exercises and examples that the build has put into the file.

import type { CaseFile } from './engine.js';

export interface Exercise {
  id: string;
  titles: [string, string];
  tasks: [string, string]; // HTML of our own
  start: string;
  cases: CaseFile[];
}
export interface Example {
  id: string;
  titles: [string, string];
  texts: [string, string];
}
export interface Library {
  opcodes: { word: string; explanation: number }[];
  samples: { id: string; text: string }[];
  exercises: Exercise[];
  examples: Example[];
}

export const library = JSON.parse(document.getElementById('library')!.textContent) as Library;
