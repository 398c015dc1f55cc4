// Elements of the page.

/** An element that index.html has. */
export function byId<T extends HTMLElement = HTMLElement>(id: string): T {
  const found = document.getElementById(id);
  if (!found) throw new Error(`no element ${id}`);
  return found as T;
}

type Properties<K extends keyof HTMLElementTagNameMap> = Partial<
  Omit<HTMLElementTagNameMap[K], "style" | "dataset">
>;

export function make<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  properties: Properties<K> = {},
  ...children: (Node | string)[]
): HTMLElementTagNameMap[K] {
  const element = document.createElement(tag);
  Object.assign(element, properties);
  element.append(...children);
  return element;
}

/** Waits for a pause, so that work is done once for many changes. */
export function settled(work: () => void, milliseconds: number): () => void {
  let timer = 0;
  return () => {
    clearTimeout(timer);
    timer = window.setTimeout(work, milliseconds);
  };
}
