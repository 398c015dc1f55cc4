// What the page and its workers tell each other.
import type { Differences, Quillon, Scene } from "../engine";

export type CallName = keyof Quillon;

/** To the engine's worker: first the compiled engine, then calls. */
export type ToEngine =
  | { module: WebAssembly.Module }
  | { id: number; name: CallName; args: unknown[] };

export type FromEngine =
  | { id: number; value: unknown }
  | { id: number; error: string }
  | { id: number; isWriting: boolean; percent: number };

export type Mode = "result" | "drawing" | "differences";

/** The part of the world that a picture shows; pixels are those of the device. */
export interface Plane {
  /** Of the middle, in millimetres. */
  x: number;
  y: number;
  /** Pixels of a millimetre. */
  scale: number;
  width: number;
  height: number;
}

export interface Content {
  result: Scene | null;
  drawing: Scene | null;
  differences: Differences | null;
}

/** How it is drawn. Colours of layers are those of the theme. */
export interface Style {
  mode: Mode;
  hidden: number[];
  isDark: boolean;
  /** Pixels of the thinnest line. */
  hairline: number;
  colours: {
    drawing: string;
    paleDrawing: string;
    onlyDrawing: string;
    onlyResult: string;
  };
}

/** To the painter's worker. What is sent takes the place of what was sent before. */
export type ToPainter = { content: Content } | { plane: Plane; style: Style };

/** A picture of that plane, transparent where nothing is drawn. */
export interface FromPainter {
  plane: Plane;
  bitmap: ImageBitmap;
}
