// Keeps the page's own files, so that it opens without a network. Drawings never come here.
declare const FILES: string[];
declare const STATE: string;

const scope = self as unknown as ServiceWorkerGlobalScope;
const cacheName = `quillon-${STATE}`;

async function keep(): Promise<void> {
  const cache = await caches.open(cacheName);
  await cache.addAll(["./", ...FILES]);
  await scope.skipWaiting();
}

async function clear(): Promise<void> {
  for (const other of await caches.keys()) {
    if (other.startsWith("quillon-") && other !== cacheName) await caches.delete(other);
  }
  await scope.clients.claim();
}

async function answer(request: Request): Promise<Response> {
  const cache = await caches.open(cacheName);
  return (await cache.match(request, { ignoreSearch: true })) ?? fetch(request);
}

scope.addEventListener("install", (event) => event.waitUntil(keep()));
scope.addEventListener("activate", (event) => event.waitUntil(clear()));
scope.addEventListener("fetch", (event) => {
  const isOwn = new URL(event.request.url).origin === scope.location.origin;
  if (isOwn && event.request.method === "GET") event.respondWith(answer(event.request));
});
