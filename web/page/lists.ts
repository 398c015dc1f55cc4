// Lists beside the picture: its layers, what is lost, hints, and where the drawing's layers go.
import type { AssignedLayer, Hint, Loss, Message, SceneLayer } from "../engine";
import { byId, make } from "./dom";
import { text } from "./texts";

export function showLayers(
  layers: SceneLayer[],
  isDark: boolean,
  hidden: number[],
  changed: (number: number, isShown: boolean) => void,
): void {
  const rows = layers.map((layer) => {
    const box = make("input", { type: "checkbox", checked: !hidden.includes(layer.number) });
    box.addEventListener("change", () => changed(layer.number, box.checked));
    const swatch = make("span", { className: "swatch" });
    swatch.style.backgroundColor = isDark ? layer.dark : layer.light;
    const name = make("span", { className: "grow" }, layer.name);
    const count = make("span", { className: "count" }, String(layer.count));
    count.title = text("ColumnObjects");
    return make("li", {}, make("label", {}, box, swatch, name, count));
  });
  replaceKeeping(byId("layers"), rows);
}

/** Puts other rows in a list; the control that has the focus keeps it by its place. */
function replaceKeeping(list: HTMLElement, rows: HTMLElement[]): void {
  const controls = () => [...list.querySelectorAll<HTMLElement>("input, select, button")];
  const at = controls().indexOf(document.activeElement as HTMLElement);
  list.replaceChildren(...rows);
  if (at >= 0) controls()[at]?.focus();
}

export function showLosses(losses: Loss[], chosen: (index: number) => void): void {
  byId("no-losses").hidden = losses.length > 0;
  const rows = losses.map((loss, index) => {
    const what = make("span", { className: "what" }, loss.text);
    const place = `${loss.kind} · ${loss.layer} · ${text("ColumnLine")} ${loss.line}`;
    const about = make("span", { className: "quiet" }, place);
    const count = make("span", { className: "count" }, String(loss.count));
    const button = make("button", { type: "button", className: "row" }, make("span", { className: "grow" }, what, about), count);
    button.disabled = Number.isNaN(loss.x);
    button.addEventListener("click", () => chosen(index));
    return make("li", { className: loss.isCleaned ? "cleaned" : "" }, button);
  });
  replaceKeeping(byId("losses"), rows);
}

export function markLoss(current: number): void {
  [...byId("losses").querySelectorAll("button")].forEach((button, index) => {
    if (index === current) button.setAttribute("aria-current", "true");
    else button.removeAttribute("aria-current");
  });
}

export function showHints(hints: Hint[], taken: (hint: Hint) => void): void {
  const rows = hints.map((hint) => {
    const button = make("button", { type: "button" }, hint.button);
    button.setAttribute("aria-label", `${hint.text} ${hint.button}`);
    button.addEventListener("click", () => taken(hint));
    return make("li", {}, make("span", {}, hint.text), button);
  });
  replaceKeeping(byId("hints"), rows);
}

export function messageRows(messages: Message[]): HTMLElement[] {
  return messages.map(({ kind, text: words, detail }) =>
    make("li", { className: kind }, detail || words.replaceAll("\r", " ")),
  );
}

/** A list of many layers would have many more entries, so that each gets its own when it is used. */
export function showAssignments(
  assigned: AssignedLayer[],
  entries: string[],
  changed: (name: string, entry: string) => void,
  fill: (name: string, areas: boolean) => void,
): void {
  const standard = text("StandardLayerUsed");
  const rows = assigned.map(({ name, layer, areas }, index) => {
    const id = `assignment-${index}`;
    const list = make("select", { id });
    list.append(make("option", { value: layer }, layer || standard));
    const complete = () => {
      if (list.options.length > 1) return;
      const others = ["", ...entries].map((value) => make("option", { value }, value || standard));
      list.replaceChildren(...others);
      if (layer && !entries.includes(layer)) list.append(make("option", { value: layer }, layer));
      list.value = layer;
    };
    list.addEventListener("focus", complete);
    list.addEventListener("pointerdown", complete);
    list.addEventListener("change", () => changed(name, list.value));
    const row = make("li", {}, make("label", { htmlFor: id }, name), list);
    if (layer) {
      const box = make("input", { type: "checkbox", id: `areas-${index}`, checked: areas });
      box.addEventListener("change", () => fill(name, box.checked));
      const title = text("ColumnAreasTip");
      row.append(make("label", { className: "areas", title }, box, text("ColumnAreas")));
    }
    return row;
  });
  replaceKeeping(byId("assignments"), rows);
}
