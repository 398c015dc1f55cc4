// Draws the parts of a scene in pixels, leaving out what cannot be seen.
import type { Plane } from "./messages";

type Context = OffscreenCanvasRenderingContext2D;

/** How much is drawn between two looks at whether something else is wanted. */
const batch = 1024;
/** Radius in pixels above which arcs are drawn as lines, as the canvas reckons too coarsely. */
const largest = 20000;

export class Strokes {
  private width = 0;
  private count = 0;
  private dots: Uint8Array;
  /** Of a millimetre's place: pixel = place * scale + offset, and y downwards. */
  private readonly offsetX: number;
  private readonly offsetY: number;

  constructor(
    private readonly context: Context,
    private readonly plane: Plane,
    private readonly hairline: number,
    origin: { x: number; y: number },
  ) {
    this.dots = new Uint8Array(plane.width * plane.height);
    this.offsetX = (origin.x - plane.x) * plane.scale + plane.width / 2;
    this.offsetY = (plane.y - origin.y) * plane.scale + plane.height / 2;
    context.lineJoin = "round";
  }

  start(colour: string): void {
    this.context.strokeStyle = colour;
    this.context.fillStyle = colour;
    this.dots.fill(0);
  }

  /** Lines as x0, y0, x1, y1; boxes are around each 1024 of them. */
  *lines(lines: Float32Array, widths: Float32Array | number, boxes?: Float32Array): Generator {
    for (let first = 0; first < lines.length / 4; first += batch) {
      const end = Math.min(first + batch, lines.length / 4);
      const size = boxes ? this.sizeOf(boxes, (first / batch) * 4) : Infinity;
      if (size < 0) continue;
      for (let i = first; i < end; i += 1) {
        const width = typeof widths === "number" ? widths : widths[i]! * this.plane.scale;
        this.line(lines, i * 4, width);
        if (size < 1) break;
      }
      yield;
    }
    this.flush();
  }

  /** Pixels of a box's longer side; less than 0 for one that is not seen. */
  private sizeOf(boxes: Float32Array, at: number): number {
    const x0 = this.x(boxes[at]!);
    const x1 = this.x(boxes[at + 2]!);
    const y0 = this.y(boxes[at + 3]!);
    const y1 = this.y(boxes[at + 1]!);
    return this.isSeen(x0, y0, x1, y1, this.hairline) ? Math.max(x1 - x0, y1 - y0) : -1;
  }

  private x(place: number): number {
    return place * this.plane.scale + this.offsetX;
  }

  private y(place: number): number {
    return this.offsetY - place * this.plane.scale;
  }

  private isSeen(x0: number, y0: number, x1: number, y1: number, margin: number): boolean {
    return (
      x1 > -margin && y1 > -margin && x0 < this.plane.width + margin && y0 < this.plane.height + margin
    );
  }

  private line(lines: Float32Array, at: number, width: number): void {
    const x0 = this.x(lines[at]!);
    const y0 = this.y(lines[at + 1]!);
    const x1 = this.x(lines[at + 2]!);
    const y1 = this.y(lines[at + 3]!);
    const margin = width + this.hairline;
    if (!this.isSeen(Math.min(x0, x1), Math.min(y0, y1), Math.max(x0, x1), Math.max(y0, y1), margin)) {
      return;
    }
    const drawn = Math.max(width, this.hairline);
    if (drawn < 2 && Math.abs(x1 - x0) < 1 && Math.abs(y1 - y0) < 1) {
      this.dot(x0, y0);
      return;
    }
    this.pen(drawn);
    this.context.moveTo(x0, y0);
    // Without any length there would be no round ends.
    this.context.lineTo(x0 === x1 && y0 === y1 ? x1 + 0.01 : x1, y1);
  }

  /** Each pixel once: thousands of lines may be in it. */
  private dot(x: number, y: number): void {
    const column = Math.floor(x);
    const row = Math.floor(y);
    if (column < 0 || row < 0 || column >= this.plane.width || row >= this.plane.height) return;
    const at = row * this.plane.width + column;
    if (this.dots[at]) return;
    this.dots[at] = 1;
    this.context.fillRect(column, row, Math.ceil(this.hairline), Math.ceil(this.hairline));
  }

  private pen(width: number): void {
    if (width !== this.width || this.count >= batch) {
      this.flush();
      this.width = width;
    }
    if (this.count === 0) this.context.beginPath();
    this.count += 1;
  }

  flush(): void {
    if (this.count === 0) return;
    this.context.lineWidth = this.width;
    this.context.lineCap = this.width > 3 ? "round" : "butt";
    this.context.stroke();
    this.count = 0;
  }

  /** Ten numbers each, as of a scene's layer. */
  *arcs(arcs: Float64Array): Generator {
    for (let at = 0; at + 9 < arcs.length; at += 10) {
      const radius = arcs[at + 6]!;
      this.arc(arcs[at + 4]!, arcs[at + 5]!, radius, arcs[at + 7]!, arcs[at + 8]!, arcs[at + 9]!);
      if (at % batch === 0) yield;
    }
    this.flush();
  }

  private arc(x: number, y: number, radius: number, start: number, sweep: number, wide: number): void {
    const pixels = radius * this.plane.scale;
    const width = wide * this.plane.scale;
    const cx = this.x(x);
    const cy = this.y(y);
    const reach = pixels + width + this.hairline;
    if (!this.isSeen(cx, cy, cx, cy, reach)) return;
    const drawn = Math.max(width, this.hairline);
    if (drawn < 2 && pixels < 0.5) {
      this.dot(cx + pixels * Math.cos(start), cy - pixels * Math.sin(start));
      return;
    }
    this.pen(drawn);
    this.context.moveTo(cx + pixels * Math.cos(start), cy - pixels * Math.sin(start));
    if (pixels < largest) {
      this.context.arc(cx, cy, pixels, -start, -start - sweep, sweep > 0);
    } else {
      this.longArc(cx, cy, pixels, start, sweep);
    }
  }

  private longArc(cx: number, cy: number, radius: number, start: number, sweep: number): void {
    const tolerance = 0.15;
    const step = 2 * Math.acos(1 - tolerance / radius);
    const pieces = Math.min(Math.ceil(Math.abs(sweep) / step), 1 << 16);
    for (let i = 1; i <= pieces; i += 1) {
      const angle = start + (sweep * i) / pieces;
      this.context.lineTo(cx + radius * Math.cos(angle), cy - radius * Math.sin(angle));
    }
  }

  /** Five numbers each, as of a scene's layer. */
  *circles(circles: Float64Array): Generator {
    for (let at = 0; at + 4 < circles.length; at += 5) {
      const radius = circles[at + 2]!;
      if (circles[at + 4] === 1) this.disc(circles[at]!, circles[at + 1]!, radius);
      else this.arc(circles[at]!, circles[at + 1]!, radius, 0, 2 * Math.PI, circles[at + 3]!);
      if (at % batch === 0) yield;
    }
    this.flush();
  }

  private disc(x: number, y: number, radius: number): void {
    const cx = this.x(x);
    const cy = this.y(y);
    const pixels = radius * this.plane.scale;
    if (!this.isSeen(cx, cy, cx, cy, pixels)) return;
    if (pixels < 0.5) {
      this.dot(cx, cy);
      return;
    }
    this.flush();
    this.context.beginPath();
    this.context.arc(cx, cy, pixels, 0, 2 * Math.PI);
    this.context.fill();
  }

  *areas(points: Float32Array, ends: Uint32Array, widths: Float32Array): Generator {
    let first = 0;
    for (let i = 0; i < ends.length; i += 1) {
      this.area(points, first, ends[i]!, widths[i]! * this.plane.scale);
      first = ends[i]!;
      if (i % 64 === 0) yield;
    }
  }

  private area(points: Float32Array, first: number, end: number, width: number): void {
    let x0 = Infinity;
    let y0 = Infinity;
    let x1 = -Infinity;
    let y1 = -Infinity;
    for (let i = first; i < end; i += 1) {
      x0 = Math.min(x0, this.x(points[2 * i]!));
      x1 = Math.max(x1, this.x(points[2 * i]!));
      y0 = Math.min(y0, this.y(points[2 * i + 1]!));
      y1 = Math.max(y1, this.y(points[2 * i + 1]!));
    }
    if (!this.isSeen(x0, y0, x1, y1, width + this.hairline)) return;
    if (Math.max(x1 - x0, y1 - y0) + width < 1) {
      this.dot(x0, y0);
      return;
    }
    this.flush();
    this.fill(points, first, end);
    const isThin = Math.min(x1 - x0, y1 - y0) < this.hairline;
    if (width <= 0 && !isThin) return;
    this.context.lineWidth = Math.max(width, isThin ? this.hairline : 0);
    this.context.stroke();
  }

  private fill(points: Float32Array, first: number, end: number): void {
    this.context.beginPath();
    for (let i = first; i < end; i += 1) {
      this.context.lineTo(this.x(points[2 * i]!), this.y(points[2 * i + 1]!));
    }
    this.context.closePath();
    this.context.fill();
  }
}
