// What the engine has to know to go on in another worker: language, drawing and layer file.
import { Cancelled, Engine } from "./engine";
import type { Program } from "./engine";

interface LayerFile {
  name: string;
  bytes: Uint8Array;
}

interface State {
  language: "de" | "en";
  drawing: File | null;
  layerFile: LayerFile | null;
}

const fresh: State = { language: "en", drawing: null, layerFile: null };

export class Session {
  readonly engine: Engine;
  /** What is wanted. */
  readonly state: State = { ...fresh };
  /** What the present worker was told. */
  private told: State = { ...fresh };
  private generation = 0;
  private last: Promise<unknown> = Promise.resolve();

  constructor(program: Program) {
    this.engine = new Engine(program);
  }

  /** Lets one piece of work after the other have the engine, with everything opened. */
  use<T>(work: (engine: Engine) => Promise<T>, drawing?: File): Promise<T> {
    const next = this.last.catch(() => {}).then(() => this.work(work, drawing));
    this.last = next;
    return next;
  }

  private async work<T>(work: (engine: Engine) => Promise<T>, drawing?: File): Promise<T> {
    const { generation } = this.engine;
    try {
      await this.prepare(drawing ?? this.state.drawing);
      return await work(this.engine);
    } catch (fault) {
      // Nobody knows what state a fault has left.
      if (!(fault instanceof Cancelled) && generation === this.engine.generation) this.engine.cancel();
      throw fault;
    }
  }

  /** Takes the layer file after the engine has changed it. */
  async takeLayerFile(): Promise<void> {
    this.state.layerFile = await this.engine.call("layerFile");
    this.told.layerFile = this.state.layerFile;
  }

  private async prepare(drawing: File | null): Promise<void> {
    const { engine } = this;
    if (this.generation !== engine.generation) this.told = { ...fresh };
    this.generation = engine.generation;
    const { told } = this;
    const { language, layerFile } = this.state;
    if (told.language !== language) await engine.call("setLanguage", language);
    told.language = language;
    if (told.drawing !== drawing) {
      if (drawing) await engine.call("openDrawing", drawing);
      else await engine.call("closeDrawing");
    }
    told.drawing = drawing;
    if (told.layerFile !== layerFile) {
      if (layerFile) await engine.call("openLayerFile", layerFile.name, layerFile.bytes);
      else await engine.call("closeLayerFile");
    }
    told.layerFile = layerFile;
  }
}
