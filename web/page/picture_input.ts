// What the user does with the picture: by pointer, wheel, fingers and keys.
import type { Picture } from "./picture";
import type { Point } from "./plane";

export interface PictureActions {
  /** A click; `reach` is in pixels. */
  click(pixel: Point, reach: number): void;
  /** The pointer, or the middle when keys are used. */
  point(pixel: Point | null): void;
  /** To the next mark or the one before. */
  goToMark(step: number): void;
  key(key: string): boolean;
}

const dragStart = 4;
const step = 1.25;

export class PictureInput {
  private readonly pointers = new Map<number, Point>();
  private start: Point | null = null;
  private isDragging = false;

  constructor(
    private readonly picture: Picture,
    private readonly actions: PictureActions,
  ) {
    const { canvas } = picture;
    canvas.addEventListener("wheel", (event) => this.wheel(event), { passive: false });
    canvas.addEventListener("pointerdown", (event) => this.down(event));
    canvas.addEventListener("pointermove", (event) => this.move(event));
    canvas.addEventListener("pointerup", (event) => this.up(event));
    canvas.addEventListener("pointercancel", (event) => this.pointers.delete(event.pointerId));
    canvas.addEventListener("pointerleave", () => this.actions.point(null));
    canvas.addEventListener("dblclick", () => this.picture.fit());
    canvas.addEventListener("keydown", (event) => this.keyDown(event));
    canvas.addEventListener("blur", () => this.showCross(false));
  }

  private pixelOf(event: MouseEvent): Point {
    const box = this.picture.canvas.getBoundingClientRect();
    return { x: event.clientX - box.left, y: event.clientY - box.top };
  }

  private wheel(event: WheelEvent): void {
    event.preventDefault();
    const lines = event.deltaMode === WheelEvent.DOM_DELTA_LINE ? 33 : 1;
    const turned = Math.max(-300, Math.min(300, event.deltaY * lines));
    // Pads tell two fingers that part as a wheel with Ctrl, in smaller steps.
    this.picture.zoom(2 ** (-turned / (event.ctrlKey ? 60 : 240)), this.pixelOf(event));
  }

  private down(event: PointerEvent): void {
    if (event.button > 1) return;
    this.picture.canvas.setPointerCapture(event.pointerId);
    this.pointers.set(event.pointerId, this.pixelOf(event));
    this.start = this.pixelOf(event);
    this.isDragging = this.pointers.size > 1;
    this.showCross(false);
  }

  private move(event: PointerEvent): void {
    const at = this.pixelOf(event);
    const before = this.pointers.get(event.pointerId);
    if (!before || !this.start) {
      this.actions.point(at);
      return;
    }
    const way = Math.hypot(at.x - this.start.x, at.y - this.start.y);
    this.isDragging ||= way > dragStart;
    if (!this.isDragging) return;
    const other = [...this.pointers].find(([id]) => id !== event.pointerId)?.[1];
    if (other) {
      this.pinch(before, at, other);
      this.pointers.set(event.pointerId, at);
      return;
    }
    // Whole pixels; the rest comes with the next move.
    const dx = Math.round(at.x - before.x);
    const dy = Math.round(at.y - before.y);
    this.picture.move(dx, dy);
    this.pointers.set(event.pointerId, { x: before.x + dx, y: before.y + dy });
  }

  private pinch(before: Point, at: Point, other: Point): void {
    const was = Math.hypot(before.x - other.x, before.y - other.y);
    const is = Math.hypot(at.x - other.x, at.y - other.y);
    this.picture.move((at.x - before.x) / 2, (at.y - before.y) / 2);
    if (was > 1) this.picture.zoom(is / was, { x: (at.x + other.x) / 2, y: (at.y + other.y) / 2 });
  }

  private up(event: PointerEvent): void {
    const wasDragging = this.isDragging;
    this.pointers.delete(event.pointerId);
    if (this.pointers.size === 0) this.isDragging = false;
    if (!wasDragging && this.start && event.button === 0) {
      this.actions.click(this.pixelOf(event), event.pointerType === "touch" ? 20 : 10);
    }
    if (this.pointers.size === 0) this.start = null;
  }

  private keyDown(event: KeyboardEvent): void {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const done = this.navigate(event.key) || this.actions.key(event.key);
    if (done) event.preventDefault();
  }

  private showCross(shown: boolean): void {
    if (this.picture.notes.hasCross === shown) return;
    this.picture.notes.hasCross = shown;
    this.picture.draw();
  }

  /** True for keys that move the view or are a click in its middle. */
  private navigate(key: string): boolean {
    const { picture, actions } = this;
    const across = Math.floor(picture.plane.width / 8);
    const up = Math.floor(picture.plane.height / 8);
    const moves: Record<string, () => void> = {
      ArrowLeft: () => picture.move(across, 0),
      ArrowRight: () => picture.move(-across, 0),
      ArrowUp: () => picture.move(0, up),
      ArrowDown: () => picture.move(0, -up),
      "+": () => picture.zoom(step),
      "=": () => picture.zoom(step),
      "-": () => picture.zoom(1 / step),
      _: () => picture.zoom(1 / step),
      "0": () => picture.fit(),
      Home: () => picture.fit(),
      Enter: () => actions.click(picture.middle, 10),
      " ": () => actions.click(picture.middle, 10),
      PageUp: () => actions.goToMark(-1),
      PageDown: () => actions.goToMark(1),
    };
    const move = moves[key];
    if (!move) return false;
    this.showCross(true);
    move();
    actions.point(picture.middle);
    return true;
  }
}
