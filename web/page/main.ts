// Starts the page.
import { App } from "./app";
import { byId } from "./dom";
import type { Program } from "./engine";
import { exampleDrawing } from "./example";
import { dropped, sorted, sortedFolder } from "./files";
import { languageOf } from "./language";
import { Picture } from "./picture";
import { Session } from "./session";
import { kept } from "./storage";

/** Only these addresses become code. */
function trusted(address: string): string {
  type Policy = { createScriptURL(address: string): string };
  type Factory = { createPolicy(name: string, rules: { createScriptURL(address: string): string }): Policy };
  const factory = (window as { trustedTypes?: Factory }).trustedTypes;
  const policy = (makePolicy.made ??= factory?.createPolicy("quillon", { createScriptURL: (own) => own }));
  return policy ? policy.createScriptURL(address) : address;
}
const makePolicy: { made?: { createScriptURL(address: string): string } } = {};

async function loaded(name: string): Promise<Response> {
  const response = await fetch(name);
  if (!response.ok) throw new Error(`${name}: ${response.status}`);
  return response;
}

/**
 * The worker's program as an address in memory: other workers then need no request, and each has
 * the page's Content-Security-Policy.
 */
async function workerAddress(name: string): Promise<string> {
  const source = await (await loaded(name)).blob();
  return trusted(URL.createObjectURL(new Blob([source], { type: "text/javascript" })));
}

async function loadedProgram(): Promise<Program> {
  const compiled = loaded("quillon.wasm").then(async (response) => WebAssembly.compile(await response.arrayBuffer()));
  const [worker, module] = await Promise.all([workerAddress("worker.js"), compiled]);
  return { worker, module };
}

function listenToFiles(app: App): void {
  const files = byId<HTMLInputElement>("files");
  const folder = byId<HTMLInputElement>("folder");
  const layerFiles = byId<HTMLInputElement>("layer-files");
  byId("choose").addEventListener("click", () => files.click());
  byId("open").addEventListener("click", () => files.click());
  byId("choose-folder").addEventListener("click", () => folder.click());
  byId("example").addEventListener("click", () => {
    const { drawing, layerFile } = exampleDrawing();
    void app.take({ drawings: [drawing], layerFile });
  });
  const listen = (input: HTMLInputElement, take: (chosen: File[]) => void) =>
    input.addEventListener("change", () => {
      const chosen = [...(input.files ?? [])];
      input.value = ""; // so that the same file can be chosen again
      if (chosen.length > 0) take(chosen);
    });
  listen(files, (chosen) => void app.take(sorted(chosen, [])));
  listen(folder, (chosen) => void app.take(sortedFolder(chosen)));
  listen(layerFiles, (chosen) => void app.take({ drawings: [], layerFile: chosen[0]! }));
}

function listenToDrops(app: App): void {
  const mark = byId("drop-mark");
  let depth = 0;
  const show = (change: number) => {
    depth = change === 0 ? 0 : depth + change;
    mark.hidden = depth <= 0;
  };
  addEventListener("dragenter", () => show(1));
  addEventListener("dragleave", () => show(-1));
  addEventListener("dragover", (event) => event.preventDefault());
  addEventListener("drop", (event) => {
    event.preventDefault();
    show(0);
    if (event.dataTransfer) void dropped(event.dataTransfer).then((taken) => app.take(taken));
  });
}

/** Files that the system opens with the installed page. */
function listenToLaunches(app: App): void {
  type Queue = { setConsumer(take: (launch: { files: FileSystemFileHandle[] }) => void): void };
  const queue = (window as { launchQueue?: Queue }).launchQueue;
  queue?.setConsumer(({ files }) => {
    void Promise.all(files.map((handle) => handle.getFile())).then((opened) => {
      if (opened.length > 0) void app.take(sorted(opened, []));
    });
  });
}

async function start(): Promise<void> {
  const painter = workerAddress("painter.js");
  const session = new Session(await loadedProgram());
  const picture = new Picture(byId("picture") as unknown as HTMLCanvasElement, await painter);
  const app = new App(session, picture);
  await app.speak(kept().language ?? languageOf(navigator.languages));
  picture.use({
    light: await session.engine.call("colours", "light"),
    dark: await session.engine.call("colours", "dark"),
  });
  for (const language of ["de", "en"] as const) {
    byId(`language-${language}`).addEventListener("click", () => app.chooseLanguage(language));
  }
  listenToFiles(app);
  listenToDrops(app);
  listenToLaunches(app);
  byId("page").hidden = false;
  document.documentElement.dataset.ready = "1";
}

function fail(reason: unknown): void {
  byId("failed").hidden = false;
  byId("failed-reason").textContent = String(reason);
}

/** Keeps the page for times without a network. */
async function install(): Promise<void> {
  if (!("serviceWorker" in navigator)) return;
  await navigator.serviceWorker.register(trusted("service_worker.js"));
  await navigator.serviceWorker.ready;
  byId("offline").hidden = false;
}

start().catch(fail);
install().catch(() => {}); // without it, everything works but that
