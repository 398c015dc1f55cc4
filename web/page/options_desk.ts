// The options: chosen, taken back, kept, and told by a link.
import type { Message, Options } from "../engine";
import { byId } from "./dom";
import { valueOf, withValue } from "./fields";
import type { Field } from "./fields";
import { optionsFrom, optionsText } from "./link";
import { OptionsForm } from "./options_form";
import { copy } from "./output";
import type { Session } from "./session";
import { keep, kept } from "./storage";

const mostSteps = 100;

export class OptionsDesk {
  current!: Options;
  /** About numbers that are followed by something else. */
  warnings: Message[] = [];
  onChanged: () => void = () => {};
  private defaults!: Options;
  private before: Options[] = [];
  /** The name is that of the drawing until the user gives another. */
  private isNamed = false;
  private changing: Promise<void> = Promise.resolve();
  private waiting = 0;
  private readonly form = new OptionsForm((options, fields) => {
    void this.inTurn(() => this.change(options, fields));
  });

  constructor(private readonly session: Session) {
    byId("undo").addEventListener("click", () => this.undo());
    byId("reset").addEventListener("click", () => this.reset());
    byId("copy-link").addEventListener("click", () => void this.copyLink());
    addEventListener("hashchange", () => this.take(this.withName(optionsFrom(location.hash.slice(1), this.defaults))));
  }

  /** Choices in the page's language; at first also the options themselves. */
  async name(): Promise<void> {
    await this.session.use(async (engine) => {
      this.defaults = await engine.call("defaultOptions");
      const words = await engine.call("exactWords");
      const units = words["drawingunit"] ?? [];
      this.form.choose("drawingunit", units.map((word, i) => [word, i === 0 ? "UnitAuto" : `=${word}`]));
    });
    const isFirst = !this.current;
    if (isFirst) this.current = optionsFrom(location.hash.slice(1) || (kept().options ?? ""), this.defaults);
    await this.chooseLayers();
    this.form.name();
    this.form.show(this.current);
  }

  /** The standard layers are those of the target. */
  private async chooseLayers(): Promise<void> {
    const { target, layer } = this.current;
    await this.session.use(async (engine) => {
      const entries = await engine.call("layerChoices", target);
      const same = entries.find((entry) => parseInt(entry) === parseInt(layer));
      if (same) this.current = { ...this.current, layer: same };
      else this.current = await engine.call("withTarget", this.current, target);
      this.form.choose("layer", entries.map((entry) => [entry, `=${entry}`]));
    });
  }

  private withName(options: Options): Options {
    return { ...options, name: this.current.name };
  }

  /** Changes wait for those before them, as the engine may take its time to answer. */
  private inTurn(step: () => Promise<void>): Promise<void> {
    this.waiting += 1;
    const done = this.changing.then(() => {
      this.waiting -= 1;
      return step();
    });
    this.changing = done.catch(() => {});
    return done;
  }

  private async change(chosen: Options, fields: Field[]): Promise<void> {
    const has = (key: string) => fields.some((field) => field.key === key);
    if (has("name")) this.isNamed = true;
    const options = fields.reduce((all, field) => withValue(all, field, valueOf(chosen, field)), this.current);
    if (has("target")) await this.use(await this.session.use((engine) => engine.call("withTarget", options, options.target)));
    else await this.use(options);
  }

  /** Uses other options, which can be taken back. */
  take(options: Options): void {
    void this.inTurn(() => this.use(options));
  }

  private use(options: Options): Promise<void> {
    this.before.push(this.current);
    if (this.before.length > mostSteps) this.before.shift();
    return this.show(options);
  }

  private async show(options: Options): Promise<void> {
    const isOtherTarget = options.target !== this.current.target;
    this.current = options;
    byId<HTMLButtonElement>("undo").disabled = this.before.length === 0;
    if (isOtherTarget) await this.chooseLayers();
    // What was chosen since is shown when its turn comes.
    if (this.waiting === 0) this.form.show(this.current);
    keep({ options: optionsText(this.current, this.defaults) });
    this.warnings = await this.session.use((engine) => engine.call("warnings", this.current)).catch(() => []);
    this.onChanged();
  }

  private undo(): void {
    void this.inTurn(async () => {
      const options = this.before.pop();
      if (options) await this.show(this.withName(options));
    });
  }

  private reset(): void {
    this.take(this.withName(this.defaults));
  }

  /** A board is named like its drawing. */
  async nameAfter(file: File): Promise<void> {
    this.current = await this.forFile(file);
    this.form.show(this.current);
  }

  /** With the name for a drawing, unless the user gave one. */
  async forFile(file: File): Promise<Options> {
    this.form.flush();
    await this.changing;
    if (this.isNamed) return this.current;
    const name = await this.session.use((engine) => engine.call("nameOf", file.name));
    return { ...this.current, name };
  }

  private async copyLink(): Promise<void> {
    this.form.flush();
    await this.changing;
    const address = new URL(location.href);
    address.search = "";
    address.hash = optionsText(this.current, this.defaults);
    byId("link-copied").textContent = await copy(address.href);
  }
}
