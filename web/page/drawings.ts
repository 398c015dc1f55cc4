// The drawings that were chosen, and what became of each.
import { byId, make } from "./dom";
import { text } from "./texts";

export type DrawingState = "QueueWaiting" | "QueueRunning" | "QueueDone" | "QueueFailed";

export interface Drawing {
  file: File;
  state: DrawingState | null;
  /** What went wrong, or how much is lost. */
  note: string;
}

export class Drawings {
  all: Drawing[] = [];
  current: Drawing | null = null;
  onChosen: (drawing: Drawing) => void = () => {};

  take(files: File[]): void {
    this.all = files.map((file) => ({ file, state: null, note: "" }));
    this.current = this.all[0] ?? null;
    this.show();
  }

  get hasSeveral(): boolean {
    return this.all.length > 1;
  }

  show(): void {
    const rows = this.all.map((drawing) => {
      const state = drawing.state ? text(drawing.state) : sizeText(drawing.file.size);
      const name = make("span", { className: "what" }, drawing.file.name);
      const note = make("span", { className: "quiet" }, drawing.note || state);
      const button = make("button", { type: "button", className: "row" }, make("span", { className: "grow" }, name, note));
      if (drawing === this.current) button.setAttribute("aria-current", "true");
      button.addEventListener("click", () => this.onChosen(drawing));
      return make("li", { className: drawing.state ?? "" }, button);
    });
    byId("drawings").replaceChildren(...rows);
  }
}

function sizeText(bytes: number): string {
  if (bytes < 1e6) return `${Math.ceil(bytes / 1e3)} KB`;
  return `${(bytes / 1e6).toFixed(1)} MB`;
}
