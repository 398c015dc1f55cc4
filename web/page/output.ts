// Conversion: the script of a drawing, and a zip archive of all.
import type { Conversion, Options } from "../engine";
import { byId, make } from "./dom";
import type { Drawings } from "./drawings";
import { Cancelled } from "./engine";
import { download } from "./files";
import { messageRows } from "./lists";
import type { Session } from "./session";
import { text } from "./texts";
import { zipOf } from "./zip";
import type { ZipEntry } from "./zip";

export class Output {
  private isWorking = false;

  constructor(
    private readonly session: Session,
    private readonly drawings: Drawings,
    /** For a drawing, with its name. */
    private readonly optionsFor: (file: File) => Promise<Options>,
  ) {
    byId("download").addEventListener("click", () => void this.one(false));
    byId("download-all").addEventListener("click", () => void this.all());
    byId("cancel").addEventListener("click", () => session.engine.cancel());
    session.engine.onProgress = (isWriting, percent) => this.progress(isWriting ? 50 + percent / 2 : percent / 2);
  }

  /** What was told of another drawing or other options is out of date. */
  clear(): void {
    if (!this.isWorking) byId("outcome").replaceChildren();
  }

  name(): void {
    byId("download-all").textContent = text("PageDownloadAll", String(this.drawings.all.length));
    byId("download-all").hidden = !this.drawings.hasSeveral;
    byId<HTMLButtonElement>("download").disabled = this.drawings.current === null || this.isWorking;
  }

  private progress(percent: number): void {
    byId<HTMLProgressElement>("progress").value = percent;
  }

  /** Shows that something is being done, and tells what goes wrong. */
  private async working(work: () => Promise<void>): Promise<void> {
    if (this.isWorking) return;
    this.isWorking = true;
    byId("outcome").replaceChildren();
    this.progress(0);
    this.showWorking();
    try {
      await work();
    } catch (fault) {
      this.tell(fault instanceof Cancelled ? text("PageCancelled") : faultText(fault), "error");
    }
    this.isWorking = false;
    this.showWorking();
  }

  private showWorking(): void {
    byId("cancel").hidden = !this.isWorking;
    byId("progress").hidden = !this.isWorking;
    byId<HTMLButtonElement>("download-all").disabled = this.isWorking;
    this.name();
    if (this.isWorking) byId("cancel").focus();
    else if (document.activeElement === document.body) byId("download").focus();
  }

  private tell(words: string, kind = ""): void {
    byId("outcome").append(make("p", { className: kind }, words));
  }

  private async one(isUnlimited: boolean): Promise<void> {
    const drawing = this.drawings.current;
    if (!drawing) return;
    await this.working(async () => {
      const options = await this.optionsFor(drawing.file);
      const result = await this.session.use((engine) => engine.call("convert", options, isUnlimited));
      this.show(result, isUnlimited);
    });
  }

  private show(result: Conversion, isUnlimited: boolean): void {
    const outcome = byId("outcome");
    if (result.script) {
      download(result.scriptName, result.script);
      this.tell(text("PageDownloaded", result.scriptName), "done");
      const isCommand = (line: string) => result.command !== "" && line.includes(result.command);
      const lines = (wanted: boolean) => result.summary.filter((line) => isCommand(line) === wanted).map((line) => make("p", {}, line));
      outcome.append(...lines(true));
      if (result.command) outcome.append(copyButton("ResultCopyCommand", result.command));
      outcome.append(...lines(false));
    }
    outcome.append(make("ul", { className: "notices" }, ...messageRows(result.messages)));
    if (result.outcome === "ended" && !isUnlimited && result.messages.every(({ kind }) => kind !== "error")) {
      this.askForMore();
    }
  }

  private askForMore(): void {
    const yes = make("button", { type: "button" }, text("AnswerYes"));
    const no = make("button", { type: "button" }, text("AnswerNo"));
    yes.addEventListener("click", () => void this.one(true));
    no.addEventListener("click", () => this.clear());
    this.tell(text("GoOnWithoutLimits"));
    byId("outcome").append(make("div", { className: "buttons" }, yes, no));
  }

  private async all(): Promise<void> {
    const { drawings } = this;
    await this.working(async () => {
      const entries: ZipEntry[] = [];
      const owners = new Map<string, string>();
      for (const drawing of drawings.all) Object.assign(drawing, { state: "QueueWaiting", note: "" });
      for (const drawing of drawings.all) {
        drawing.state = "QueueRunning";
        drawings.show();
        try {
          await this.addTo(entries, owners, drawing);
        } catch (fault) {
          if (fault instanceof Cancelled) throw fault;
          Object.assign(drawing, { state: "QueueFailed", note: faultText(fault) });
        }
      }
      const done = entries.length;
      if (done > 0) download("scripts.zip", await zipOf(entries));
      this.tell(text("PageAllDone", String(done), String(drawings.all.length - done)), done ? "done" : "error");
    });
    for (const drawing of drawings.all) if (drawing.state !== "QueueDone" && drawing.state !== "QueueFailed") drawing.state = null;
    drawings.show();
  }

  private async addTo(entries: ZipEntry[], owners: Map<string, string>, drawing: Drawings["all"][0]): Promise<void> {
    const options = await this.optionsFor(drawing.file);
    const result = await this.session.use((engine) => engine.call("convert", options, false), drawing.file);
    const owner = owners.get(result.scriptName.toLowerCase());
    const name = drawing.file.name;
    if (result.script && owner === undefined) {
      entries.push({ name: result.scriptName, content: result.script });
      owners.set(result.scriptName.toLowerCase(), name);
      const losses = result.lossCount ? ` · ${text("TabLosses", String(result.lossCount))}` : "";
      Object.assign(drawing, { state: "QueueDone", note: text("QueueDone") + losses });
      return;
    }
    const last = result.messages.at(-1);
    const note = owner ? text("ScriptOfOtherDrawing", name, result.scriptName, owner) : (last?.detail ?? "");
    Object.assign(drawing, { state: "QueueFailed", note });
  }
}

export function faultText(fault: unknown): string {
  return text("PageFault", fault instanceof Error ? fault.message : String(fault));
}

/** Copies words; where the browser does not allow it, they are shown. */
export function copyButton(name: string, words: string): HTMLElement {
  const button = make("button", { type: "button" }, text(name));
  const said = make("span", { className: "quiet" });
  said.setAttribute("role", "status");
  button.addEventListener("click", () => void copy(words).then((told) => (said.textContent = told)));
  return make("div", { className: "buttons" }, button, said);
}

export async function copy(words: string): Promise<string> {
  try {
    await navigator.clipboard.writeText(words);
    return text("PageCopied");
  } catch {
    return text("PageCopyByHand", words);
  }
}
