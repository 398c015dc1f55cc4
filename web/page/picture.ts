// The picture: what is seen of the drawing, and the last thing that the painter made of it.
import type { Box, Colours, Quillon } from "../engine";
import { download } from "./files";
import type { Content, FromPainter, Mode, Plane, ToPainter } from "./messages";
import { NotePen } from "./notes";
import type { Notes } from "./notes";
import { fitted, moved, pixelOf, placeOf, zoomed } from "./plane";
import type { Point } from "./plane";

/** Colours of both themes, told by the engine. */
export type Themes = Record<"light" | "dark", ReturnType<Quillon["colours"]>>;

/** How much larger than the view the painter draws, so that there is something to move in. */
const surplus = 1.4;

export class Picture {
  plane: Plane = { x: 0, y: 0, scale: 4, width: 1, height: 1 };
  mode: Mode = "result";
  hidden: number[] = [];
  readonly notes: Notes = { limit: 0, marks: [], current: -1, measure: null, hasCross: false };
  /** Counts pictures that the painter made; tests wait for it. */
  painted = 0;
  private readonly context: CanvasRenderingContext2D;
  private readonly painter: Worker;
  private readonly darkness = matchMedia("(prefers-color-scheme: dark)");
  private bitmap: FromPainter | null = null;
  private bounds: Box | null = null;
  private themes: Themes | null = null;
  private isWaiting = false;
  private isStale = false;
  /** Follows the window's size until the user moves it. */
  private isFitted = true;
  private isDrawAsked = false;

  constructor(readonly canvas: HTMLCanvasElement, painter: string) {
    this.context = canvas.getContext("2d", { alpha: false })!;
    this.painter = new Worker(painter, { type: "module" });
    this.painter.onmessage = ({ data }: MessageEvent<FromPainter>) => this.take(data);
    this.darkness.addEventListener("change", () => this.repaint());
    new ResizeObserver(() => this.resize()).observe(canvas);
  }

  use(themes: Themes): void {
    this.themes = themes;
    this.repaint();
  }

  get colours(): Colours | null {
    return this.themes && (this.darkness.matches ? this.themes.dark : this.themes.light);
  }

  get isDark(): boolean {
    return this.darkness.matches;
  }

  /** Shows something else. `bounds` are around all of it. */
  show(content: Content, bounds: Box | null, limit: number): void {
    const isFirst = this.bounds === null;
    this.bounds = bounds;
    this.notes.limit = limit;
    this.send({ content });
    if (isFirst || this.isFitted) this.fit();
    this.repaint();
  }

  /** Forgets the drawing; the next one is fitted. */
  clear(): void {
    this.bounds = null;
    this.isFitted = true;
    this.bitmap?.bitmap.close();
    this.bitmap = null;
    this.notes.marks = [];
    this.notes.measure = null;
    this.send({ content: { result: null, drawing: null, differences: null } });
    this.draw();
  }

  fit(): void {
    this.isFitted = true;
    if (this.bounds) this.plane = fitted(this.plane, this.bounds);
    this.repaint();
  }

  zoom(factor: number, pixel: Point = this.middle): void {
    this.isFitted = false;
    this.plane = zoomed(this.plane, factor, pixel);
    this.repaint();
  }

  move(dx: number, dy: number): void {
    this.isFitted = false;
    this.plane = moved(this.plane, dx, dy);
    this.repaint();
  }

  /** Brings a place to the middle, near enough to see it. */
  showPlace(place: Point): void {
    this.isFitted = false;
    const whole = this.bounds ? fitted(this.plane, this.bounds).scale : this.plane.scale;
    this.plane = { ...this.plane, ...place, scale: Math.max(this.plane.scale, 4 * whole) };
    this.repaint();
  }

  get middle(): Point {
    return { x: this.plane.width / 2, y: this.plane.height / 2 };
  }

  placeAt(pixel: Point): Point {
    return placeOf(this.plane, pixel);
  }

  /** Asks the painter for what is seen now, one picture at a time. */
  repaint(): void {
    this.isStale = true;
    this.ask();
    this.draw();
  }

  private ask(): void {
    const { colours, plane } = this;
    if (!this.isStale || this.isWaiting || !colours || !this.bounds || plane.width < 2) return;
    this.isStale = false;
    this.isWaiting = true;
    const ratio = this.ratio;
    const wide = {
      ...plane,
      scale: plane.scale * ratio,
      width: Math.round(plane.width * ratio * surplus),
      height: Math.round(plane.height * ratio * surplus),
    };
    const { mode, hidden, isDark } = this;
    this.send({ plane: wide, style: { mode, hidden, isDark, hairline: ratio, colours } });
  }

  /** When the painter has no more to do, or never mind after a second. */
  async finished(): Promise<void> {
    const until = performance.now() + 1000;
    while ((this.isWaiting || this.isStale) && this.bounds && performance.now() < until) {
      await new Promise((done) => setTimeout(done, 10));
    }
  }

  private take(picture: FromPainter): void {
    this.isWaiting = false;
    this.bitmap?.bitmap.close();
    this.bitmap = picture;
    this.painted += 1;
    this.canvas.dataset.painted = String(this.painted);
    this.ask();
    this.draw();
  }

  private send(message: ToPainter): void {
    this.painter.postMessage(message);
  }

  private get ratio(): number {
    return Math.min(window.devicePixelRatio || 1, 2);
  }

  private resize(): void {
    const { clientWidth: width, clientHeight: height } = this.canvas;
    if (width === 0 || height === 0) return;
    this.plane = { ...this.plane, width, height };
    this.canvas.width = Math.round(width * this.ratio);
    this.canvas.height = Math.round(height * this.ratio);
    if (this.isFitted) this.fit();
    else this.repaint();
    this.drawNow();
  }

  /** What is seen, as a picture file. */
  save(name: string): void {
    this.drawNow();
    this.canvas.toBlob((content) => content && download(`${name}.png`, content));
  }

  draw(): void {
    if (this.isDrawAsked) return;
    this.isDrawAsked = true;
    requestAnimationFrame(() => this.drawNow());
  }

  private drawNow(): void {
    this.isDrawAsked = false;
    const { context, colours, plane, ratio } = this;
    if (!colours) return;
    context.setTransform(ratio, 0, 0, ratio, 0, 0);
    context.fillStyle = colours.background;
    context.fillRect(0, 0, plane.width, plane.height);
    const pen = new NotePen(context, plane, colours);
    if (!this.bounds) return;
    pen.grid();
    this.drawBitmap();
    pen.over(this.notes);
  }

  private drawBitmap(): void {
    if (!this.bitmap) return;
    const { plane: drawn, bitmap } = this.bitmap;
    const size = this.plane.scale / drawn.scale;
    const centre = pixelOf(this.plane, drawn);
    const width = drawn.width * size;
    const height = drawn.height * size;
    let x = centre.x - width / 2;
    let y = centre.y - height / 2;
    const isSharp = Math.abs(size * this.ratio - 1) < 1e-9;
    if (isSharp) {
      x = Math.round(x * this.ratio) / this.ratio;
      y = Math.round(y * this.ratio) / this.ratio;
    }
    this.context.imageSmoothingEnabled = !isSharp;
    this.context.drawImage(bitmap, x, y, width, height);
  }
}
