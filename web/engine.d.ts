// What the engine offers to a page: quillon.js, an ES module for a worker, and quillon.wasm beside
// it. It holds one drawing, one layer file and what was read of them. Every call returns when its
// work is done; to cancel, end the worker. Texts are in the language that was set, coordinates in
// millimetres with y upwards. What a call gives is the caller's, typed arrays included: their
// buffers are their own, so that they can be transferred.
//
//   import createQuillon from "./quillon.js";
//   const quillon = await createQuillon();
//
// A strict Content-Security-Policy needs script-src 'self' 'wasm-unsafe-eval', and connect-src
// 'self' for quillon.wasm.

/** By the names of src/texts/strings.def. "%1", "%2", … are to be filled in. */
export type Texts = Record<string, string>;

/**
 * What the user chooses. Numbers that he types are texts, as in the window; what follows a number
 * in them is ignored, and `warnings()` tells it.
 */
export interface Options {
  rules: "classic" | "exact";
  target: "board" | "schematic" | "package" | "symbol";
  eagle: "3.5" | "4" | "6";
  /** Of the script; by the classic rules, of the drawing too. */
  unit: "mic" | "mm" | "mil" | "inch";
  scale: string;
  offsetX: string;
  offsetY: string;
  /** Of the board, schematic or library; "" for none. See nameOf(). */
  name: string;
  /** The standard layer, which starts with its number; an entry of layerChoices(). */
  layer: string;
  poly: "wire0" | "wire" | "polyline";
  polyWidth: string;
  blocks: "draw" | "used" | "all";
  dotted: boolean;
  ellipses: boolean;
  arcToLine: boolean;
  /**
   * For the exact rules, as in the settings file. Switches are "0" or "1", lengths are numbers;
   * exactWords() has the words of the others. What is missing or invalid is at its default:
   * drawingunit, linewidth, fillwidth, tolerance, join, space, hatch, linetypes, widelines, place,
   * points ("glyph", "dot", "none", "hole:0.8"), holes ("LAYER,LAYER"), holediameters
   * ("0.2..6.5"), hidden, lineweights, closedasareas, fillalways, plainletters, dropduplicates.
   */
  exact: Record<string, string>;
}

export interface Message {
  kind: "error" | "warning" | "question";
  title: string;
  /** Of a message box; lines are separated by "\r". */
  text: string;
  /** One line: where, what is wrong and what to do. */
  detail: string;
}

/** A line of the list of what a result does not show as it is. */
export interface Loss {
  text: string;
  kind: string;
  layer: string;
  count: number;
  /** Of the first one, in the file. */
  line: number;
  /** Of the first one, in the picture; NaN where it has no place. */
  x: number;
  y: number;
  /** Nothing is missing, e.g. what is drawn twice is drawn once. */
  isCleaned: boolean;
}

export type Offer = "takeUnit" | "drawAsLines" | "useExact" | "showPlaces" | "moveIntoArea" | "joinEnds";

/** One line about a result, with the button that mends it. */
export interface Hint {
  offer: Offer;
  text: string;
  button: string;
  /** For "showPlaces": x, y, x, y, … */
  places: Float64Array;
}

/** What is said beside the picture. */
export interface Facts {
  /** There is a result to be shown. */
  isWhole: boolean;
  /** What went wrong, or what the picture lacks; "" for nothing. */
  message: string;
  /** "100.0 x 80.0 mm (3.937 x 3.150 in)"; "" for an empty picture. */
  size: string;
  /** What the drawing says of its unit; "" while a hint says it. */
  unit: string;
  hints: Hint[];
  losses: Loss[];
  /** Entities that are not shown as they are. */
  lossCount: number;
  /** All of it in a few lines, for those who do not see the picture. */
  description: string;
  /** Told by the conversion. */
  messages: Message[];
}

export interface Box {
  x0: number;
  y0: number;
  x1: number;
  y1: number;
}

/** One of EAGLE's layers. Points are relative to the scene's origin. */
export interface SceneLayer {
  number: number;
  /** "20 Dimension (B)" */
  name: string;
  /** "#rrggbb", on a light and on a dark background. */
  light: string;
  dark: string;
  /** Lines, arcs, circles, areas and texts. */
  count: number;
  bounds: Box;
  /** Areas to fill: all their corners as x, y; curves are resolved. They come first. */
  areaPoints: Float32Array;
  /** For each area: the number of corners up to its end. */
  areaEnds: Uint32Array;
  /** For each area: the width of the pen that draws its outline. */
  areaWidths: Float32Array;
  /** Straight lines with round ends: x0, y0, x1, y1. Neighbours are near each other. */
  lines: Float32Array;
  lineWidths: Float32Array;
  /** For each 1024 lines: the box around them with their widths, as x0, y0, x1, y1. */
  lineBoxes: Float32Array;
  /**
   * Arcs, ten numbers each: x0, y0, x1, y1, centre x, y, radius, angle at the start, angle that it
   * goes on (radians, above 0 counter-clockwise), width.
   */
  arcs: Float64Array;
  /** Circles, five numbers each: centre x, y, radius, width, 1 for a disc or 0 for a ring. */
  circles: Float64Array;
  /** Texts come last, as lines of the pens: x0, y0, x1, y1. */
  textLines: Float32Array;
  textWidths: Float32Array;
}

export interface Scene {
  /** What is added to every point of the layers, but not to `bounds` here. */
  origin: { x: number; y: number };
  /** Around everything; null for an empty scene. */
  bounds: Box | null;
  /** EAGLE's largest coordinate; 0 for none. */
  limit: number;
  /** In the order in which they are drawn. */
  layers: SceneLayer[];
}

/** What only one of two scenes has; lines relative to the origin. */
export interface DifferenceSide {
  /** x0, y0, x1, y1 */
  lines: Float32Array;
  /** For each 1024 lines, as of a layer. */
  lineBoxes: Float32Array;
  /** Of all lines together. */
  length: number;
  /** Areas that the other does not fill; they are hatched. */
  areas: number;
}

export interface Differences {
  origin: { x: number; y: number };
  onlyDrawing: DifferenceSide;
  onlyResult: DifferenceSide;
  /** There are more. */
  isCut: boolean;
}

/** Colours beside those of layers, as "#rrggbb". */
export interface Colours {
  background: string;
  note: string;
  drawing: string;
  paleDrawing: string;
  onlyDrawing: string;
  onlyResult: string;
  warning: string;
  mark: string;
}

export interface Conversion {
  outcome: "converted" | "cancelled" | "ended";
  /** Null where there is none; `messages` then says why. */
  script: Blob | null;
  /** "lid.scr" */
  scriptName: string;
  /** What to type in EAGLE; "" for a name that cannot be typed. */
  command: string;
  /** The lines that the window shows. */
  summary: string[];
  messages: Message[];
  losses: Loss[];
  lossCount: number;
}

export interface AssignedLayer {
  /** Of the drawing. */
  name: string;
  /** An entry of editorLayers(); "" for the standard layer. */
  layer: string;
  /** Closed polylines become areas, by the exact rules. */
  areas: boolean;
}

export type Which = "result" | "drawing";

export interface Quillon {
  version(): string;
  /** English at first. What was read stays; facts() tells it in the new language. */
  setLanguage(language: "de" | "en"): void;
  texts(): Texts;
  colours(theme: "light" | "dark"): Colours;

  /** Exact rules for a board in millimetres. */
  defaultOptions(): Options;
  /** The options with another target: with its standard layer, and with blocks that it can have. */
  withTarget(options: Options, target: string): Options;
  /** The words of each of the exact rules' choices: drawingunit, space, hatch, … */
  exactWords(): Record<string, string[]>;
  layerChoices(target: string): string[];
  editorLayers(): string[];
  /** About numbers that are followed by something else. */
  warnings(options: Options): Message[];
  /** The name of a board for a file: "lid" for "lid.dxf". */
  nameOf(fileName: string): string;

  /**
   * Takes a drawing in place of the former one. It is read later, in slices; only a picture needs
   * all of it in memory, which goes up to 512 MB. The layer file stays.
   */
  openDrawing(file: File): void;
  closeDrawing(): void;
  /** The names of the drawing's layers; none for a drawing that cannot be read. */
  layers(): string[];

  /** Takes a layer file in place of the former one. The results say what is wrong with it. */
  openLayerFile(name: string, bytes: Uint8Array): void;
  closeLayerFile(): void;
  /** To be saved; null for none. */
  layerFile(): { name: string; bytes: Uint8Array } | null;
  /** The layers of the drawing and what the layer file says of them. */
  assignedLayers(): AssignedLayer[];
  /**
   * Assigns a layer in the layer file, which is made where there is none; "" takes the assignment
   * away. "" when it is done, else why it is not, e.g. for a file that is no layer file.
   */
  assignLayer(name: string, entry: string): string;
  /** Says the same way whether closed polylines on an assigned layer become areas. */
  setAreas(name: string, areas: boolean): string;

  /** Reads what the options make of the drawing. Forgets what was read before. */
  readResult(options: Options): Facts;
  /** Then the whole drawing, where the result shows it. */
  readDrawing(): Facts;
  /** Then how both differ. */
  compare(): Facts;
  /** Of what was read so far. */
  facts(): Facts;
  scene(which: Which): Scene | null;
  differences(): Differences | null;
  /** The options with an offer of a hint taken. */
  takeOffer(offer: Offer, options: Options): Options;

  /** The end, corner or centre nearest to a point, at most `reach` away, on layers not hidden. */
  nearestPlace(
    which: Which,
    x: number,
    y: number,
    reach: number,
    hidden: number[],
  ): { x: number; y: number } | null;
  placeText(x: number, y: number): string;
  distanceText(x0: number, y0: number, x1: number, y1: number): string;

  /**
   * Writes the script. `progress` gets percents of reading and, with `isWriting`, of converting, at
   * most 25 times a second. A limit of the work ends it, unless `unlimited`: then only the end of
   * the worker does.
   */
  convert(
    options: Options,
    unlimited: boolean,
    progress: (isWriting: boolean, percent: number) => void,
  ): Conversion;
}

/** `overrides`: of emscripten's module, such as locateFile(name) for the address of quillon.wasm. */
export default function createQuillon(overrides?: object): Promise<Quillon>;
