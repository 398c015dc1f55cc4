// Has the engine. Calls come as messages and are answered in their order.
import createQuillon from "../engine";
import type { Quillon } from "../engine";
import type { FromEngine, ToEngine } from "./messages";

const scope = self as unknown as DedicatedWorkerGlobalScope;

function tell(message: FromEngine, transfer: Transferable[] = []): void {
  scope.postMessage(message, transfer);
}

/** The buffers of the typed arrays in a value. */
function buffersOf(value: unknown, found = new Set<ArrayBuffer>()): Set<ArrayBuffer> {
  if (ArrayBuffer.isView(value)) {
    found.add(value.buffer as ArrayBuffer);
  } else if (Array.isArray(value)) {
    for (const item of value) buffersOf(item, found);
  } else if (value !== null && typeof value === "object" && !(value instanceof Blob)) {
    for (const item of Object.values(value)) buffersOf(item, found);
  }
  return found;
}

function call(quillon: Quillon, id: number, name: keyof Quillon, args: unknown[]): unknown {
  const progress = (isWriting: boolean, percent: number) => tell({ id, isWriting, percent });
  const all = name === "convert" ? [...args, progress] : args;
  return (quillon[name] as (...args: unknown[]) => unknown)(...all);
}

function start(module: WebAssembly.Module): Promise<Quillon> {
  type Done = (instance: WebAssembly.Instance) => void;
  return createQuillon({
    locateFile: (name: string) => name,
    instantiateWasm(imports: WebAssembly.Imports, done: Done) {
      void WebAssembly.instantiate(module, imports).then(done);
      return {};
    },
  });
}

let quillon: Promise<Quillon> | undefined;

scope.onmessage = async ({ data }: MessageEvent<ToEngine>) => {
  if ("module" in data) {
    quillon = start(data.module);
    return;
  }
  try {
    const value = call(await quillon!, data.id, data.name, data.args);
    tell({ id: data.id, value }, [...buffersOf(value)]);
  } catch (fault) {
    tell({ id: data.id, error: fault instanceof Error ? fault.message : String(fault) });
  }
};
