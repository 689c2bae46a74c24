declare module '*/engine.js' {
  import type { Engine } from './engine.js';
  export default function createEngine(settings: {
    instantiateWasm?(imports: WebAssembly.Imports, done: (instance: WebAssembly.Instance, module: WebAssembly.Module) => void): object;
    print?(line: string): void;
    printErr?(line: string): void;
  }): Promise<Engine>;
}
