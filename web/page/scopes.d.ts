// What the workers use of their scopes; the library has either these or those of a page.
interface DedicatedWorkerGlobalScope {
  postMessage(message: unknown, transfer?: Transferable[]): void;
  onmessage: ((event: MessageEvent) => void) | null;
}

interface ExtendableEvent extends Event {
  waitUntil(work: Promise<unknown>): void;
}

interface FetchEvent extends ExtendableEvent {
  readonly request: Request;
  respondWith(answer: Promise<Response>): void;
}

interface ServiceWorkerGlobalScope {
  readonly location: Location;
  readonly clients: { claim(): Promise<void> };
  skipWaiting(): Promise<void>;
  addEventListener(name: "install" | "activate", listener: (event: ExtendableEvent) => void): void;
  addEventListener(name: "fetch", listener: (event: FetchEvent) => void): void;
}
