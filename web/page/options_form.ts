// The form with all options.
import type { Options } from "../engine";
import { byId, make, settled } from "./dom";
import { fields, valueOf, withValue } from "./fields";
import type { Field } from "./fields";
import { caption, text, tip } from "./texts";

type Control = HTMLInputElement | HTMLSelectElement;

const typing = 250;

export class OptionsForm {
  private readonly controls = new Map<string, Control>();
  private options!: Options;
  /** What the user is changing; it must not be overwritten. */
  private readonly pending = new Set<Field>();

  constructor(private readonly changed: (options: Options, fields: Field[]) => void) {
    for (const field of fields) this.add(field);
    byId("options").addEventListener("submit", (event) => event.preventDefault());
  }

  private add(field: Field): void {
    const control = field.kind === "choice" ? make("select") : make("input");
    control.id = `option-${field.key}`;
    const label = make("label", { htmlFor: control.id });
    const shape = field.isWide ? "field wide" : "field";
    const row = make("div", { className: field.kind === "switch" ? "switch" : shape });
    if (field.kind === "switch") {
      (control as HTMLInputElement).type = "checkbox";
      row.append(control, label);
    } else {
      row.append(label, control);
    }
    if (field.kind === "number") (control as HTMLInputElement).inputMode = "decimal";
    if (field.proposals) this.propose(control as HTMLInputElement, field.proposals, row);
    this.controls.set(field.key, control);
    byId(`options-${field.group}`).append(row);
    this.listen(field, control);
  }

  private propose(control: HTMLInputElement, proposals: string[], row: HTMLElement): void {
    const list = make("datalist", { id: `${control.id}-list` });
    list.append(...proposals.map((value) => make("option", { value })));
    control.setAttribute("list", list.id);
    row.append(list);
  }

  private listen(field: Field, control: Control): void {
    const flush = () => this.flush();
    const later = settled(flush, typing);
    control.addEventListener("input", () => {
      this.pending.add(field);
      later();
    });
    control.addEventListener("change", flush);
  }

  /** Takes what was typed since. */
  flush(): void {
    if (this.pending.size === 0) return;
    const fields = [...this.pending];
    this.pending.clear();
    for (const field of fields) this.options = withValue(this.options, field, this.shown(field));
    this.changed(this.options, fields);
  }

  private shown(field: Field): string {
    const control = this.controls.get(field.key)!;
    if (field.kind === "switch") return (control as HTMLInputElement).checked ? "1" : "0";
    return control.value;
  }

  /** Puts what the rules do not use out of sight, and what they hardly use with the rest. */
  private place(field: Field, isExact: boolean): void {
    const row = this.controls.get(field.key)!.parentElement!;
    row.hidden = field.isExact && !isExact;
    if (!field.groupIfExact) return;
    const group = byId(`options-${isExact ? field.groupIfExact : field.group}`);
    // Below the rules, or above all others.
    if (row.parentElement !== group) group.insertBefore(row, group.children[isExact ? 0 : 1]!);
  }

  /** Texts in the page's language. */
  name(): void {
    for (const field of fields) {
      const control = this.controls.get(field.key)!;
      const label = control.labels?.[0];
      if (label) label.textContent = caption(field.caption);
      control.title = field.tip ? tip(field.tip) : "";
      this.fill(field);
    }
  }

  /** Choices that the engine tells: layers of the target, units of a drawing. */
  choose(key: string, words: [string, string][]): void {
    const field = fields.find((one) => one.key === key)!;
    field.choices = words;
    this.fill(field);
  }

  private fill(field: Field): void {
    if (!field.choices) return;
    const control = this.controls.get(field.key)!;
    const options = field.choices.map(([value, shown]) =>
      make("option", { value }, shown.startsWith("=") ? shown.slice(1) : text(shown)),
    );
    control.replaceChildren(...options);
    if (this.options) this.showField(field);
  }

  private showField(field: Field): void {
    if (this.pending.has(field)) return;
    const control = this.controls.get(field.key)!;
    const value = valueOf(this.options, field);
    if (field.kind === "switch") (control as HTMLInputElement).checked = value === "1";
    else if (this.shown(field) !== value) control.value = value;
  }

  show(options: Options): void {
    this.options = options;
    const isExact = options.rules === "exact";
    for (const field of fields) {
      this.showField(field);
      this.place(field, isExact);
    }
    byId("exact-group").hidden = !isExact;
    byId("classic-group").hidden = isExact;
  }
}
