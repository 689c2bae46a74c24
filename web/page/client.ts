// The page's side of a worker.

import type { FromWorker, Picture, Question, Questions, ToWorker } from './engine.js';

export interface Client {
  ask<Q extends Question>(question: Q, ...words: Parameters<Questions[Q]>): Promise<ReturnType<Questions[Q]>>;
}

// The scripts and the machine code that stand in the file.
export async function compiledEngine(): Promise<WebAssembly.Module> {
  const text = document.getElementById('wasm')!.textContent;
  const bytes = Uint8Array.from(atob(text), (c) => c.charCodeAt(0));
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream('gzip'));
  return WebAssembly.compile(await new Response(stream).arrayBuffer());
}

export function startWorker(module: WebAssembly.Module, onPicture: (picture: Picture) => void = () => {}): Promise<Client> {
  const script = document.getElementById('worker')!.textContent;
  const address = URL.createObjectURL(new Blob([script], { type: 'text/javascript' }));
  const worker = new Worker(address);
  const open = new Map<number, { done(answer: unknown): void; failed(why: Error): void }>();
  let last = 0;
  const post = (message: ToWorker) => worker.postMessage(message);
  const client: Client = {
    ask(question, ...words) {
      const id = ++last;
      post({ id, question, words });
      return new Promise((done, failed) => open.set(id, { done: done as (answer: unknown) => void, failed }));
    },
  };
  return new Promise((ready, failed) => {
    worker.onerror = (event) => failed(new Error(event.message));
    worker.onmessage = (event: MessageEvent<FromWorker>) => {
      const message = event.data;
      if (message.kind === 'ready') {
        URL.revokeObjectURL(address);
        ready(client);
      } else if (message.kind === 'picture') onPicture(message.picture);
      else {
        const waiting = open.get(message.id);
        open.delete(message.id);
        if (message.kind === 'answer') waiting?.done(message.answer);
        else waiting?.failed(new Error(message.why));
      }
    };
    post({ module });
  });
}
