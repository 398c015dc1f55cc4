// Reads what the options make of the drawing, as often as they change, and the drawing itself.
import type { Facts, Options } from "../engine";
import { Cancelled } from "./engine";
import type { Engine } from "./engine";
import type { Content, Mode } from "./messages";
import type { Session } from "./session";

export interface Read {
  facts: Facts;
  content: Content;
}

/** Bytes of a drawing above which only what is looked at is read. */
const large = 30e6;

export class Reader {
  content: Content = { result: null, drawing: null, differences: null };
  facts: Facts | null = null;
  /** Which pictures are wanted besides the result. */
  mode: Mode = "result";
  onRead: () => void = () => {};
  onWorking: (isWorking: boolean) => void = () => {};
  onFault: (fault: unknown) => void = () => {};
  /** When the user sees the picture; the rest comes then. */
  afterPicture: () => Promise<void> = () => Promise.resolve();
  private wanted: Options | null = null;
  private isReading = false;
  private isCancelled = false;

  constructor(private readonly session: Session) {}

  /** Reads with these options, soon. */
  read(options: Options): void {
    this.wanted = options;
    if (!this.isReading) void this.readAll();
  }

  clear(): void {
    this.content = { result: null, drawing: null, differences: null };
    this.facts = null;
  }

  /** For a view that was not looked at before. */
  look(mode: Mode): void {
    this.mode = mode;
    if (this.isReading || !this.facts || !this.isWanting()) return;
    void this.working(() => this.session.use((engine) => this.readMore(engine)));
  }

  cancel(): void {
    this.isCancelled = true;
    this.wanted = null;
    this.session.engine.cancel();
  }

  private isWanting(): boolean {
    const { drawing, differences, result } = this.content;
    if (!result) return false;
    const isSmall = (this.session.state.drawing?.size ?? 0) < large;
    return (!drawing && (isSmall || this.mode !== "result")) || (!differences && this.mode === "differences");
  }

  private async readAll(): Promise<void> {
    await this.working(async () => {
      while (this.wanted) {
        const options = this.wanted;
        this.wanted = null;
        await this.session.use(async (engine) => {
          await this.readResult(engine, options);
          await this.afterPicture();
          if (!this.wanted) await this.readMore(engine);
        });
      }
    });
  }

  private async working(work: () => Promise<void>): Promise<void> {
    this.isReading = true;
    this.isCancelled = false;
    this.onWorking(true);
    try {
      await work();
    } catch (fault) {
      if (!(fault instanceof Cancelled)) this.onFault(fault);
      else if (this.isCancelled) this.onFault(fault);
      else this.wanted = null;
    }
    this.isReading = false;
    this.onWorking(false);
    if (this.wanted) void this.readAll();
  }

  private async readResult(engine: Engine, options: Options): Promise<void> {
    const { drawing } = this.session.state;
    const facts = await engine.call("readResult", options);
    const result = await engine.call("scene", "result");
    if (drawing !== this.session.state.drawing) return;
    this.facts = facts;
    this.content = { result, drawing: null, differences: null };
    this.onRead();
  }

  private async readMore(engine: Engine): Promise<void> {
    if (!this.content.drawing && this.isWanting()) {
      this.facts = await engine.call("readDrawing");
      this.content = { ...this.content, drawing: await engine.call("scene", "drawing") };
      this.onRead();
    }
    if (!this.content.differences && this.isWanting() && !this.wanted) {
      this.facts = await engine.call("compare");
      this.content = { ...this.content, differences: await engine.call("differences") };
      this.onRead();
    }
  }
}
