// Texts of index.html in the language of the page.
import { byId } from "./dom";
import { text, viewTip } from "./texts";

export type Language = "de" | "en";

/** Of the browser's languages, the first that the page has. */
export function languageOf(languages: readonly string[]): Language {
  for (const language of languages) {
    if (/^de\b/i.test(language)) return "de";
    if (/^en\b/i.test(language)) return "en";
  }
  return "en";
}

function each(attribute: string, use: (element: HTMLElement, name: string) => void): void {
  for (const element of document.querySelectorAll<HTMLElement>(`[${attribute}]`)) {
    use(element, element.getAttribute(attribute)!);
  }
}

export function nameAll(language: Language): void {
  document.documentElement.lang = language;
  document.title = text("PageTitle");
  each("data-text", (element, name) => (element.textContent = text(name)));
  each("data-label", (element, name) => {
    element.setAttribute("aria-label", text(name));
    if (element.tagName === "BUTTON") element.title = text(name);
  });
  each("data-view-tip", (element, name) => (element.title = viewTip(name)));
  byId<HTMLAnchorElement>("help").href = `help/${language}/index.html`;
  for (const other of ["de", "en"]) {
    byId(`language-${other}`).setAttribute("aria-pressed", String(other === language));
  }
}
