// Options as a text: in the address of a link, and where the browser keeps them. Only what differs
// from the defaults is told, and never the drawing or its name.
import type { Options } from "../engine";
import { fields, valueOf, withValue } from "./fields";
import type { Field } from "./fields";

const longest = 200;

function isPossible(field: Field, value: string): boolean {
  if (value.length > longest) return false;
  if (field.kind === "switch") return value === "0" || value === "1";
  return field.kind !== "choice" || field.choices!.some(([word]) => word === value);
}

const told = () => fields.filter(({ key }) => key !== "name");

export function optionsText(options: Options, defaults: Options): string {
  const list = new URLSearchParams();
  for (const field of told()) {
    const value = valueOf(options, field);
    if (value !== valueOf(defaults, field)) list.set(field.key, value);
  }
  return list.toString();
}

/** What is unknown or impossible stays at its default. */
export function optionsFrom(told: string, defaults: Options): Options {
  let options = defaults;
  const list = new URLSearchParams(told);
  for (const field of fields) {
    const value = list.get(field.key);
    if (value === null || field.key === "name" || !isPossible(field, value)) continue;
    options = withValue(options, field, value);
  }
  return options;
}
