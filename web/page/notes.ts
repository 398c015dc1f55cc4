// What is drawn over the picture and under it: a grid, EAGLE's limits, a scale, marks, a distance.
import type { Colours } from "../engine";
import type { Plane } from "./messages";
import { lengthText, pixelOf, placeOf, roundLength } from "./plane";
import type { Point } from "./plane";

export interface Measure {
  from: Point | null;
  to: Point | null;
  /** Where the next click would be. */
  at: Point | null;
  /** The engine's words for the distance. */
  text: string;
}

export interface Notes {
  limit: number;
  marks: Point[];
  current: number;
  measure: Measure | null;
  /** Draws a cross in the middle, which is where keys work. */
  hasCross: boolean;
}

const font = "12px system-ui, sans-serif";

export class NotePen {
  constructor(
    private readonly context: CanvasRenderingContext2D,
    private readonly plane: Plane,
    private readonly colours: Colours,
  ) {
    context.font = font;
    context.lineWidth = 1;
  }

  grid(): void {
    const { context, plane } = this;
    const step = roundLength(120 / plane.scale);
    const low = placeOf(plane, { x: 0, y: plane.height });
    const high = placeOf(plane, { x: plane.width, y: 0 });
    context.globalAlpha = 0.16;
    context.strokeStyle = this.colours.note;
    context.beginPath();
    for (let i = Math.ceil(low.x / step); i * step <= high.x; i += 1) {
      const x = Math.floor(pixelOf(plane, { x: i * step, y: 0 }).x) + 0.5;
      context.moveTo(x, 0);
      context.lineTo(x, plane.height);
    }
    for (let i = Math.ceil(low.y / step); i * step <= high.y; i += 1) {
      const y = Math.floor(pixelOf(plane, { x: 0, y: i * step }).y) + 0.5;
      context.moveTo(0, y);
      context.lineTo(plane.width, y);
    }
    context.stroke();
    context.globalAlpha = 1;
  }

  over(notes: Notes): void {
    this.limits(notes.limit);
    this.cross(pixelOf(this.plane, { x: 0, y: 0 }), 9, this.colours.note);
    notes.marks.forEach((mark, index) => this.ring(mark, index === notes.current ? 13 : 7));
    if (notes.measure) this.measure(notes.measure);
    if (notes.hasCross) {
      this.cross({ x: this.plane.width / 2, y: this.plane.height / 2 }, 14, this.colours.mark);
    }
    this.scale();
  }

  private limits(limit: number): void {
    if (limit <= 0) return;
    const { context } = this;
    const from = pixelOf(this.plane, { x: -limit, y: limit });
    const size = 2 * limit * this.plane.scale;
    context.setLineDash([8, 8]);
    context.strokeStyle = this.colours.note;
    context.strokeRect(from.x, from.y, size, size);
    context.setLineDash([]);
  }

  private cross(at: Point, arm: number, colour: string): void {
    const { context } = this;
    const x = Math.floor(at.x) + 0.5;
    const y = Math.floor(at.y) + 0.5;
    context.strokeStyle = colour;
    context.beginPath();
    context.moveTo(x - arm, y);
    context.lineTo(x + arm, y);
    context.moveTo(x, y - arm);
    context.lineTo(x, y + arm);
    context.stroke();
  }

  private ring(place: Point, radius: number): void {
    const { context } = this;
    const at = pixelOf(this.plane, place);
    context.strokeStyle = this.colours.mark;
    context.lineWidth = radius > 7 ? 3 : 2;
    context.beginPath();
    context.arc(at.x, at.y, radius, 0, 2 * Math.PI);
    context.stroke();
    context.lineWidth = 1;
  }

  private measure({ from, to, at, text }: Measure): void {
    const { context } = this;
    const end = to ?? at;
    context.strokeStyle = this.colours.mark;
    for (const point of [from, end]) {
      if (!point) continue;
      const pixel = pixelOf(this.plane, point);
      context.beginPath();
      context.arc(pixel.x, pixel.y, 4, 0, 2 * Math.PI);
      context.stroke();
    }
    if (!from || !end) return;
    const a = pixelOf(this.plane, from);
    const b = pixelOf(this.plane, end);
    context.lineWidth = 1.5;
    context.beginPath();
    context.moveTo(a.x, a.y);
    context.lineTo(b.x, b.y);
    context.stroke();
    context.lineWidth = 1;
    if (text) this.label({ x: b.x + 12, y: b.y - 12 }, text, this.colours.mark);
  }

  private label(at: Point, words: string, colour: string): void {
    const { context, plane } = this;
    const width = context.measureText(words).width;
    const x = Math.max(6, Math.min(at.x, plane.width - width - 8));
    const y = Math.max(16, Math.min(at.y, plane.height - 8));
    context.fillStyle = this.colours.background;
    context.globalAlpha = 0.85;
    context.fillRect(x - 4, y - 13, width + 8, 18);
    context.globalAlpha = 1;
    context.fillStyle = colour;
    context.fillText(words, x, y);
  }

  private scale(): void {
    const { context, plane, colours } = this;
    const length = roundLength(Math.min(150, plane.width / 4) / plane.scale);
    const left = 12.5;
    const right = left + Math.round(length * plane.scale);
    const y = Math.floor(plane.height) - 12.5;
    this.label({ x: left + 2, y: y - 8 }, lengthText(length), colours.note);
    context.strokeStyle = colours.note;
    context.beginPath();
    context.moveTo(left, y - 4);
    context.lineTo(left, y);
    context.lineTo(right, y);
    context.lineTo(right, y - 4);
    context.stroke();
  }
}
