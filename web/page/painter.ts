// Draws pictures in a worker, so that the page moves the last one while the next one is made.
import type { DifferenceSide, Scene, SceneLayer } from "../engine";
import type { Content, FromPainter, Plane, Style, ToPainter } from "./messages";
import { Strokes } from "./strokes";

const scope = self as unknown as DedicatedWorkerGlobalScope;

/** Milliseconds after which is looked whether another picture is wanted. */
const slice = 12;
/** Pixels that differences are wide at least. */
const differenceWidth = 3;

let content: Content = { result: null, drawing: null, differences: null };
let wanted: { plane: Plane; style: Style } | null = null;
let isDrawing = false;

function* paintLayer(strokes: Strokes, layer: SceneLayer, colour: string): Generator {
  strokes.start(colour);
  yield* strokes.areas(layer.areaPoints, layer.areaEnds, layer.areaWidths);
  yield* strokes.lines(layer.lines, layer.lineWidths, layer.lineBoxes);
  yield* strokes.arcs(layer.arcs);
  yield* strokes.circles(layer.circles);
  yield* strokes.lines(layer.textLines, layer.textWidths);
}

function* paintScene(strokes: Strokes, scene: Scene, style: Style, colour?: string): Generator {
  for (const layer of scene.layers) {
    if (colour === undefined && style.hidden.includes(layer.number)) continue;
    yield* paintLayer(strokes, layer, colour ?? (style.isDark ? layer.dark : layer.light));
  }
}

function* paintSide(strokes: Strokes, side: DifferenceSide, style: Style, colour: string): Generator {
  strokes.start(colour);
  yield* strokes.lines(side.lines, differenceWidth * style.hairline, side.lineBoxes);
}

type Context = OffscreenCanvasRenderingContext2D;

function* paint(context: Context, plane: Plane, style: Style): Generator {
  const strokesAt = (origin: { x: number; y: number }) =>
    new Strokes(context, plane, style.hairline, origin);
  const { result, drawing, differences } = content;
  const { mode, colours } = style;
  if (drawing && mode !== "result") {
    const colour = mode === "drawing" ? colours.drawing : colours.paleDrawing;
    yield* paintScene(strokesAt(drawing.origin), drawing, style, colour);
  }
  if (result && mode !== "drawing") {
    yield* paintScene(strokesAt(result.origin), result, style);
  }
  if (differences && mode === "differences") {
    const strokes = strokesAt(differences.origin);
    yield* paintSide(strokes, differences.onlyDrawing, style, colours.onlyDrawing);
    yield* paintSide(strokes, differences.onlyResult, style, colours.onlyResult);
  }
}

const pause = () => new Promise((done) => setTimeout(done));

/** Draws what is wanted; what is out of date is finished all the same, as it is better than none. */
async function drawWanted(): Promise<void> {
  while (wanted) {
    const { plane, style } = wanted;
    const drawn = content;
    wanted = null;
    const canvas = new OffscreenCanvas(plane.width, plane.height);
    const context = canvas.getContext("2d", { willReadFrequently: true })!;
    let since = performance.now();
    for (const _ of paint(context, plane, style)) {
      if (performance.now() - since < slice) continue;
      await pause();
      since = performance.now();
      if (content !== drawn) break;
    }
    if (content !== drawn) {
      wanted ??= { plane, style };
      continue;
    }
    const bitmap = canvas.transferToImageBitmap();
    const message: FromPainter = { plane, bitmap };
    scope.postMessage(message, [bitmap]);
  }
}

scope.onmessage = async ({ data }: MessageEvent<ToPainter>) => {
  if ("content" in data) {
    content = data.content;
    return;
  }
  wanted = data;
  if (isDrawing) return;
  isDrawing = true;
  await drawWanted();
  isDrawing = false;
};
