// What the browser keeps from one visit to the next: the options and the language, nothing else.
const name = "quillon";

export interface Kept {
  options?: string;
  language?: "de" | "en";
}

export function kept(): Kept {
  try {
    const value: unknown = JSON.parse(localStorage.getItem(name) ?? "{}");
    return value !== null && typeof value === "object" ? (value as Kept) : {};
  } catch {
    return {}; // not allowed, or not ours
  }
}

export function keep(change: Kept): void {
  try {
    localStorage.setItem(name, JSON.stringify({ ...kept(), ...change }));
  } catch {
    // Without storage everything works but for this.
  }
}
