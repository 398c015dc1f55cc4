// Measuring between two places, which snap to ends, corners and centres.
import { byId } from "./dom";
import type { Which } from "../engine";
import type { Picture } from "./picture";
import type { Point } from "./plane";
import type { Session } from "./session";
import { text } from "./texts";

export class Measuring {
  private isAsking = false;
  private next: Point | null = null;

  constructor(
    private readonly picture: Picture,
    private readonly session: Session,
  ) {
    byId("measure").addEventListener("click", () => this.set(!this.isOn));
  }

  get isOn(): boolean {
    return this.picture.notes.measure !== null;
  }

  set(isOn: boolean): void {
    this.picture.notes.measure = isOn ? { from: null, to: null, at: null, text: "" } : null;
    byId("measure").setAttribute("aria-pressed", String(isOn));
    this.tell(isOn ? text("PageMeasureHow") : "");
    byId("measure-how").hidden = !isOn;
    this.picture.canvas.classList.toggle("measuring", isOn);
    if (isOn) this.picture.canvas.focus({ preventScroll: true });
    this.picture.draw();
  }

  /** A place was chosen. */
  async click(pixel: Point, reach: number): Promise<void> {
    const { measure } = this.picture.notes;
    if (!measure) return;
    const at = await this.snapped(pixel, reach);
    if (!measure.from || measure.to) {
      Object.assign(measure, { from: at, to: null, at, text: "" });
    } else {
      measure.to = at;
      await this.say(measure.from, at, true);
      byId("measure-how").hidden = true;
    }
    this.picture.draw();
  }

  /** Shows where a click would be; the last move counts. */
  async point(pixel: Point): Promise<void> {
    this.next = pixel;
    if (this.isAsking) return;
    this.isAsking = true;
    while (this.next) {
      const asked: Point = this.next;
      this.next = null;
      const { measure } = this.picture.notes;
      if (!measure || measure.to) break;
      measure.at = await this.snapped(asked, 10);
      if (measure.from) await this.say(measure.from, measure.at, false);
      this.picture.draw();
    }
    this.isAsking = false;
  }

  private async snapped(pixel: Point, reach: number): Promise<Point> {
    const { picture } = this;
    const place = picture.placeAt(pixel);
    const which: Which = picture.mode === "drawing" ? "drawing" : "result";
    const near = picture.hidden;
    const far = reach / picture.plane.scale;
    const found = await this.session
      .use((engine) => engine.call("nearestPlace", which, place.x, place.y, far, near))
      .catch(() => null);
    return found ?? place;
  }

  private async say(from: Point, to: Point, isDone: boolean): Promise<void> {
    const words = await this.session
      .use((engine) => engine.call("distanceText", from.x, from.y, to.x, to.y))
      .catch(() => "");
    const { measure } = this.picture.notes;
    if (measure) measure.text = words;
    if (isDone) this.tell(words);
  }

  private tell(words: string): void {
    byId("description").textContent = words;
  }
}
