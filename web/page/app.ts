// The page: what the user does, and what is shown for it.
import type { Box, Hint, Loss, Options } from "../engine";
import { byId, make } from "./dom";
import { Drawings } from "./drawings";
import type { Drawing } from "./drawings";
import { Cancelled } from "./engine";
import type { Taken } from "./files";
import { nameAll } from "./language";
import type { Language } from "./language";
import { LayersPanel } from "./layers_panel";
import { markLoss, messageRows, showHints, showLosses } from "./lists";
import { Measuring } from "./measuring";
import type { Mode } from "./messages";
import { OptionsDesk } from "./options_desk";
import { Output, faultText } from "./output";
import type { Picture } from "./picture";
import { PictureInput } from "./picture_input";
import type { Point } from "./plane";
import { Reader } from "./reader";
import type { Session } from "./session";
import { keep } from "./storage";
import { Tabs } from "./tabs";
import { text, useTexts, viewTip } from "./texts";

const modes: [Mode, string, string][] = [
  ["result", "ViewResult", "ViewResultTip"],
  ["drawing", "ViewDrawing", "ViewDrawingTip"],
  ["differences", "ViewBoth", "ViewBothTip"],
];

/** Milliseconds that a reading may take before it is told and can be cancelled. */
const patience = 400;

export class App {
  private readonly drawings = new Drawings();
  private readonly reader: Reader;
  private readonly layers: LayersPanel;
  private readonly output: Output;
  private readonly measuring: Measuring;
  private readonly options: OptionsDesk;
  private readonly tabs = new Tabs(byId("tabs"), ["settings", "layers", "losses", "drawings"]);
  private hintMarks: Point[] = [];
  private workingTimer = 0;

  constructor(
    private readonly session: Session,
    private readonly picture: Picture,
  ) {
    this.reader = new Reader(session);
    this.layers = new LayersPanel(session, picture, this.reader);
    this.options = new OptionsDesk(session);
    this.output = new Output(session, this.drawings, (file) => this.options.forFile(file));
    this.measuring = new Measuring(picture, session);
    this.listen();
    this.addViews();
    new PictureInput(picture, {
      click: (pixel, reach) => this.click(pixel, reach),
      point: (pixel) => this.point(pixel),
      goToMark: (step) => this.goToMark(step),
      key: (key) => this.key(key),
    });
  }

  private listen(): void {
    const { reader, options, layers, drawings, tabs } = this;
    reader.afterPicture = () => this.picture.finished();
    reader.onRead = () => this.showRead();
    reader.onWorking = (isWorking) => this.showWorking(isWorking);
    reader.onFault = (fault) => this.showFault(fault);
    options.onChanged = () => this.read();
    layers.onChanged = () => {
      void layers.showAssignments().catch(() => {});
      this.read();
    };
    layers.onFault = (fault) => this.showFault(fault);
    drawings.onChosen = (drawing) => void this.open(drawing);
    tabs.onChange = () => this.showMarks();
    const { picture } = this;
    byId("zoom-in").addEventListener("click", () => picture.zoom(1.5));
    byId("zoom-out").addEventListener("click", () => picture.zoom(1 / 1.5));
    byId("fit").addEventListener("click", () => picture.fit());
    byId("save-picture").addEventListener("click", () => this.savePicture());
    byId("cancel-reading").addEventListener("click", () => reader.cancel());
    byId("again").addEventListener("click", () => this.read());
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => layers.show());
  }

  private addViews(): void {
    for (const [mode] of modes) {
      const button = make("button", { type: "button", id: `view-${mode}` });
      button.addEventListener("click", () => this.view(mode));
      byId("views").append(button);
    }
    this.view("result");
  }

  view(mode: Mode): void {
    this.picture.mode = mode;
    this.reader.look(mode);
    for (const [other] of modes) {
      byId(`view-${other}`).setAttribute("aria-pressed", String(other === mode));
    }
    this.showMarks();
    this.picture.repaint();
  }

  /** Everything in another language. */
  async speak(language: Language): Promise<void> {
    this.session.state.language = language;
    useTexts(await this.session.use((engine) => engine.call("texts")));
    nameAll(language);
    for (const [mode, name, tipName] of modes) {
      byId(`view-${mode}`).textContent = text(name);
      byId(`view-${mode}`).title = viewTip(tipName);
    }
    await this.options.name();
    await this.layers.name();
    this.tabs.name("settings", text("PageSettings"));
    this.tabs.name("layers", text("TabLayers"));
    this.output.name();
    this.output.clear();
    this.drawings.show();
    this.nameTabs();
    if (!this.drawings.current) return;
    await this.layers.showAssignments();
    if (this.reader.facts) this.read();
  }

  private nameTabs(): void {
    this.tabs.name("losses", text("TabLosses", String(this.reader.facts?.lossCount ?? 0)));
    this.tabs.name("drawings", text("QueueTable"));
    this.tabs.offer("drawings", this.drawings.hasSeveral);
  }

  chooseLanguage(language: Language): void {
    keep({ language });
    void this.speak(language).catch((fault: unknown) => this.showFault(fault));
  }

  /** Takes files in place of those before. */
  async take({ drawings, layerFile }: Taken): Promise<void> {
    byId("start-message").hidden = true;
    if (layerFile) await this.layers.open(layerFile);
    if (drawings.length === 0) {
      if (layerFile) return;
      byId("start-message").textContent = text("PageNoDrawings");
      byId("start-message").hidden = false;
      return;
    }
    this.drawings.take(drawings);
    this.nameTabs();
    if (this.drawings.hasSeveral) this.tabs.select("drawings");
    await this.open(this.drawings.current!);
  }

  private async open(drawing: Drawing): Promise<void> {
    if (this.session.engine.isBusy) this.session.engine.cancel();
    this.drawings.current = drawing;
    this.drawings.show();
    this.session.state.drawing = drawing.file;
    byId("start").hidden = true;
    byId("seen").hidden = false;
    for (const id of ["open", "private", "side"]) byId(id).hidden = false;
    byId("main").classList.remove("empty");
    byId("file-name").textContent = drawing.file.name;
    document.title = `${drawing.file.name} – Quillon`;
    this.measuring.set(false);
    this.picture.hidden = [];
    this.hintMarks = [];
    this.picture.clear();
    this.reader.clear();
    this.showRead();
    this.output.clear();
    this.output.name();
    this.picture.canvas.focus({ preventScroll: true });
    await this.options.nameAfter(drawing.file);
    this.read();
    await this.layers.showAssignments().catch(() => {});
  }

  private read(): void {
    const isExact = this.options.current.rules === "exact";
    byId("assignments").classList.toggle("exact", isExact);
    this.output.clear();
    if (!this.drawings.current) return;
    byId("problem").hidden = true;
    this.reader.read(this.options.current);
  }

  private showWorking(isWorking: boolean): void {
    clearTimeout(this.workingTimer);
    byId("picture").setAttribute("aria-busy", String(isWorking));
    if (!isWorking) byId("working").hidden = true;
    else this.workingTimer = window.setTimeout(() => (byId("working").hidden = false), patience);
  }

  private showFault(fault: unknown): void {
    const isCancelled = fault instanceof Cancelled;
    this.showProblem(isCancelled ? text("PageCancelled") : faultText(fault));
    byId("again").hidden = false;
  }

  private showProblem(words: string): void {
    byId("problem").hidden = words === "";
    byId("problem-text").textContent = words;
    byId("again").hidden = true;
  }

  private showRead(): void {
    const { facts, content } = this.reader;
    const scenes = [content.result, content.drawing].filter((scene) => scene !== null);
    const bounds = around(scenes.map((scene) => scene.bounds));
    if (content.result) this.picture.show(content, bounds, content.result.limit);
    else if (facts) this.picture.clear();
    byId("size").textContent = facts?.size ?? "";
    byId("unit").textContent = facts?.unit ?? "";
    const isSeen = byId("description").textContent === facts?.description;
    if (!isSeen) byId("description").textContent = facts?.description ?? "";
    this.showProblem(facts?.isWhole ? "" : (facts?.message ?? ""));
    showHints(facts?.hints ?? [], (hint) => void this.takeHint(hint));
    this.showNotices();
    showLosses(facts?.losses ?? [], (index) => this.showLoss(index));
    this.nameTabs();
    this.layers.show();
    this.showMarks();
  }

  private showNotices(): void {
    const { facts } = this.reader;
    const notices = messageRows([...this.options.warnings, ...(facts?.isWhole ? facts.messages : [])]);
    if (facts?.isWhole && facts.message) notices.push(make("li", {}, facts.message));
    byId("notices").replaceChildren(...notices);
  }

  private async takeHint(hint: Hint): Promise<void> {
    if (hint.offer === "showPlaces") {
      this.hintMarks = [];
      for (let i = 0; i + 1 < hint.places.length; i += 2) {
        this.hintMarks.push({ x: hint.places[i]!, y: hint.places[i + 1]! });
      }
      this.showMarks();
      this.goToMark(1);
      return;
    }
    const options = await this.options.forFile(this.drawings.current!.file);
    const taken: Options = await this.session.use((engine) => engine.call("takeOffer", hint.offer, options));
    this.options.take(taken);
  }

  /** Places of losses, while their list is open or differences are looked at. */
  private showMarks(): void {
    const { notes, mode } = this.picture;
    const losses = this.tabs.current === "losses" || mode === "differences" ? (this.reader.facts?.losses ?? []) : [];
    notes.marks = [...this.hintMarks, ...losses.map(({ x, y }) => ({ x, y }))];
    notes.current = -1;
    markLoss(-1);
    this.picture.draw();
  }

  private goToMark(step: number): void {
    const { notes } = this.picture;
    const count = notes.marks.length;
    if (count === 0) return;
    const first = step > 0 ? 0 : count - 1;
    this.showMark(notes.current < 0 ? first : (notes.current + step + count) % count);
  }

  private showMark(index: number): void {
    const { picture } = this;
    const mark = picture.notes.marks[index];
    if (!mark) return;
    picture.notes.current = index;
    if (!Number.isNaN(mark.x)) picture.showPlace(mark);
    const loss = this.reader.facts?.losses[index - this.hintMarks.length];
    markLoss(index - this.hintMarks.length);
    if (loss) byId("description").textContent = lossWords(loss);
  }

  private showLoss(index: number): void {
    this.showMark(index + this.hintMarks.length);
  }

  private click(pixel: Point, reach: number): void {
    if (this.measuring.isOn) {
      void this.measuring.click(pixel, reach);
      return;
    }
    const place = this.picture.placeAt(pixel);
    const far = reach / this.picture.plane.scale;
    const index = this.picture.notes.marks.findIndex(({ x, y }) => Math.hypot(x - place.x, y - place.y) < far);
    if (index < 0) return;
    this.tabs.select("losses");
    this.showMark(index);
  }

  private point(pixel: Point | null): void {
    const place = pixel && this.picture.placeAt(pixel);
    byId("place").textContent = place ? `${place.x.toFixed(3)}  ${place.y.toFixed(3)} mm` : "";
    if (pixel && this.measuring.isOn) void this.measuring.point(pixel);
  }

  private key(key: string): boolean {
    const mode = modes[Number(key) - 1]?.[0];
    if (mode) this.view(mode);
    else if (key === "m" || key === "M") this.measuring.set(!this.measuring.isOn);
    else if (key === "Escape" && this.measuring.isOn) this.measuring.set(false);
    else return false;
    return true;
  }

  private savePicture(): void {
    this.picture.save(byId("file-name").textContent!.replace(/\.dxf$/i, ""));
  }
}

function lossWords({ text: words, count, kind, layer, line }: Loss): string {
  return text("LossPlace", words, String(count), kind, layer, String(line));
}

function around(boxes: (Box | null)[]): Box | null {
  const all = boxes.filter((box) => box !== null);
  if (all.length === 0) return null;
  return {
    x0: Math.min(...all.map(({ x0 }) => x0)),
    y0: Math.min(...all.map(({ y0 }) => y0)),
    x1: Math.max(...all.map(({ x1 }) => x1)),
    y1: Math.max(...all.map(({ y1 }) => y1)),
  };
}
