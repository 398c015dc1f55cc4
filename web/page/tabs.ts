// Tabs, as the arrow keys and screen readers expect them.
import { byId, make } from "./dom";

export class Tabs {
  private readonly tabs = new Map<string, HTMLButtonElement>();
  current = "";
  onChange: (name: string) => void = () => {};

  constructor(list: HTMLElement, names: string[]) {
    for (const name of names) {
      const tab = make("button", { id: `tab-${name}`, type: "button", role: "tab" });
      tab.setAttribute("aria-controls", `panel-${name}`);
      tab.addEventListener("click", () => this.select(name));
      this.tabs.set(name, tab);
      list.append(tab);
    }
    list.addEventListener("keydown", (event) => this.keyDown(event));
    this.select(names[0]!);
  }

  select(name: string): void {
    this.current = name;
    for (const [other, tab] of this.tabs) {
      const isSelected = other === name;
      tab.setAttribute("aria-selected", String(isSelected));
      tab.tabIndex = isSelected ? 0 : -1;
      if (isSelected) tab.scrollIntoView?.({ block: "nearest", inline: "nearest" });
      byId(`panel-${other}`).hidden = !isSelected;
    }
    this.onChange(name);
  }

  name(name: string, shown: string): void {
    this.tabs.get(name)!.textContent = shown;
  }

  offer(name: string, isOffered: boolean): void {
    this.tabs.get(name)!.hidden = !isOffered;
    if (!isOffered && this.current === name) this.select([...this.tabs.keys()][0]!);
  }

  private keyDown(event: KeyboardEvent): void {
    const shown = [...this.tabs].filter(([, tab]) => !tab.hidden).map(([name]) => name);
    const at = shown.indexOf(this.current);
    const last = shown.length - 1;
    const next: Record<string, number> = {
      ArrowRight: at === last ? 0 : at + 1,
      ArrowLeft: at === 0 ? last : at - 1,
      Home: 0,
      End: last,
    };
    const name = shown[next[event.key] ?? -1];
    if (name === undefined) return;
    event.preventDefault();
    this.select(name);
    this.tabs.get(name)!.focus();
  }
}
