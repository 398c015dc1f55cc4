// The string table, as the engine gives it.
import type { Texts } from "../engine";

let table: Texts = {};

export function useTexts(texts: Texts): void {
  table = texts;
}

/** A text by its name in the string table, with "%1", "%2", … filled in. */
export function text(name: string, ...fill: string[]): string {
  const found = table[name];
  if (found === undefined) throw new Error(`no text ${name}`);
  // Windows underline the letter that follows "&".
  const plain = found.replace(/&(.)/g, "$1");
  return plain.replace(/%(\d)/g, (whole, number: string) => fill[Number(number) - 1] ?? whole);
}

/** Of a control, without the colon. */
export function caption(name: string): string {
  return text(name).replace(/:\s*$/, "");
}

/** A tool tip: "name of a control|text", lines separated by "~". */
export function tip(name: string): string {
  return text(name).replace(/^[^|]*\|/, "").replaceAll("~", "\n");
}

/** The tip of a view. Its key works without Ctrl here, which is the browser's. */
export function viewTip(name: string): string {
  return text(name).replace(/\((?:Strg|Ctrl)\+(.)\)/, "($1)");
}
