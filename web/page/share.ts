// A source in a link, compressed, behind "#". A link comes from anybody: both of its sizes are bounded.

const head = '#source=';
const mostOfLink = 60_000;
const mostOfSource = 400_000;

async function through(bytes: Uint8Array<ArrayBuffer>, stream: CompressionStream | DecompressionStream, most: number): Promise<Uint8Array<ArrayBuffer> | undefined> {
  const reader = new Blob([bytes]).stream().pipeThrough(stream).getReader();
  const parts: Uint8Array<ArrayBuffer>[] = [];
  let size = 0;
  for (;;) {
    const { done, value } = await reader.read();
    if (done) return new Uint8Array(await new Blob(parts).arrayBuffer());
    size += value.length;
    if (size > most) {
      await reader.cancel();
      return undefined;
    }
    parts.push(value);
  }
}

// Nothing if the source is too large for a link.
export async function linkOf(source: string): Promise<string | undefined> {
  const bytes = await through(new TextEncoder().encode(source), new CompressionStream('deflate-raw'), mostOfLink);
  if (!bytes || bytes.length > (mostOfLink * 3) / 4 - head.length) return undefined;
  const text = btoa(Array.from(bytes, (byte) => String.fromCharCode(byte)).join(''));
  const address = location.href.replace(/#.*$/s, '');
  return address + head + text.replace(/\+/g, '-').replace(/\//g, '_').replace(/=+$/, '');
}

export type Shared = { source: string; id: string } | { why: 'linkTooLong' | 'linkDamaged' } | undefined;

// What stands in the address of the page.
export async function sharedSource(): Promise<Shared> {
  if (!location.hash.startsWith(head)) return undefined;
  const text = location.hash.slice(head.length);
  if (text.length > mostOfLink) return { why: 'linkTooLong' };
  try {
    const bytes = Uint8Array.from(atob(text.replace(/-/g, '+').replace(/_/g, '/')), (c) => c.charCodeAt(0));
    const source = await through(bytes, new DecompressionStream('deflate-raw'), mostOfSource);
    if (!source) return { why: 'linkTooLong' };
    return { source: new TextDecoder('utf-8', { fatal: true }).decode(source).replace(/\r\n?/g, '\n'), id: text.slice(-8) };
  } catch {
    return { why: 'linkDamaged' };
  }
}
