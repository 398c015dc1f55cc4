// The layers of the picture, and EAGLE's layer for each of the drawing's.
import { byId } from "./dom";
import type { Engine } from "./engine";
import { download } from "./files";
import { showAssignments, showLayers } from "./lists";
import type { Picture } from "./picture";
import type { Reader } from "./reader";
import type { Session } from "./session";
import { text } from "./texts";

export class LayersPanel {
  /** The layer file is another one now. */
  onChanged: () => void = () => {};
  onFault: (fault: unknown) => void = () => {};
  private entries: string[] = [];

  constructor(
    private readonly session: Session,
    private readonly picture: Picture,
    private readonly reader: Reader,
  ) {
    byId("show-layers").addEventListener("click", () => this.hide([]));
    byId("hide-layers").addEventListener("click", () => this.hide(this.numbers()));
    byId("open-layer-file").addEventListener("click", () => byId("layer-files").click());
    byId("save-layer-file").addEventListener("click", () => this.save());
    byId("close-layer-file").addEventListener("click", () => void this.open(null));
  }

  private numbers(): number[] {
    return (this.reader.content.result?.layers ?? []).map(({ number }) => number);
  }

  private hide(hidden: number[]): void {
    this.picture.hidden = hidden;
    this.picture.repaint();
    this.show();
  }

  show(): void {
    const { picture, reader } = this;
    const layers = reader.content.result?.layers ?? [];
    showLayers(layers, picture.isDark, picture.hidden, (number, isShown) => {
      picture.hidden = picture.hidden.filter((other) => other !== number);
      if (!isShown) picture.hidden.push(number);
      picture.repaint();
    });
  }

  /** In the page's language. */
  async name(): Promise<void> {
    this.entries = await this.session.use((engine) => engine.call("editorLayers"));
  }

  async showAssignments(): Promise<void> {
    const file = this.session.state.layerFile;
    byId<HTMLButtonElement>("save-layer-file").disabled = file === null;
    byId("close-layer-file").hidden = file === null;
    byId("layer-file").textContent = file ? text("AssignmentsSavedIn", file.name) : "";
    if (!this.session.state.drawing) return;
    const assigned = await this.session.use((engine) => engine.call("assignedLayers"));
    showAssignments(
      assigned,
      this.entries,
      (name, entry) => void this.change((engine) => engine.call("assignLayer", name, entry)),
      (name, areas) => void this.change((engine) => engine.call("setAreas", name, areas)),
    );
  }

  async open(file: File | null): Promise<void> {
    const bytes = file && new Uint8Array(await file.arrayBuffer());
    this.session.state.layerFile = file && bytes ? { name: file.name, bytes } : null;
    this.tell("");
    this.onChanged();
  }

  /** `make` changes the layer file, or says why it does not. */
  private async change(make: (engine: Engine) => Promise<string>): Promise<void> {
    try {
      this.tell(await this.session.use(async (engine) => {
        const refusal = await make(engine);
        await this.session.takeLayerFile();
        return refusal;
      }));
      this.onChanged();
    } catch (fault) {
      this.onFault(fault);
    }
  }

  private tell(words: string): void {
    byId("assignment-message").textContent = words;
    byId("assignment-message").hidden = words === "";
  }

  private save(): void {
    const file = this.session.state.layerFile;
    if (file) download(file.name, new Blob([file.bytes as BlobPart], { type: "text/plain" }));
  }
}
