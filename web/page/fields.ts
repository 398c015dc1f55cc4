// The options that the page offers, with their words and texts.
import type { Options } from "../engine";

export type Group = "main" | "more" | "classic" | "exact";

export interface Field {
  /** Of the options, or of their exact rules. */
  key: string;
  isExact: boolean;
  group: Group;
  kind: "choice" | "number" | "text" | "switch";
  /** Names of texts. */
  caption: string;
  tip?: string;
  /** For choices: words and, for each, the name of its text or what is shown as it is. */
  choices?: [word: string, shown: string][];
  /** Its words are long, so that the label is above it. */
  isWide?: boolean;
  /** By one set of rules it matters more than by the other. */
  groupIfExact?: Group;
  /** Proposed for a text. */
  proposals?: string[];
}

type Choices = Field["choices"];

function field(group: Group, kind: Field["kind"], key: string, caption: string, rest: Partial<Field> = {}): Field {
  return { key, isExact: false, group, kind, caption, ...rest };
}

function exact(kind: Field["kind"], key: string, caption: string, choices?: Choices, rest: Partial<Field> = {}): Field {
  return { key, isExact: true, group: "exact", kind, caption, choices, ...rest };
}

const units: Choices = ["mic", "mm", "mil", "inch"].map((word) => [word, `=${word}`]);

/** Layers and units of a drawing are added when the engine has told them. */
export const fields: Field[] = [
  field("main", "choice", "rules", "CaptionRules", {
    isWide: true,
    choices: [["exact", "RulesExact"], ["classic", "RulesClassic"]],
  }),
  exact("choice", "drawingunit", "CaptionDrawingUnit", [], { group: "main" }),
  // The exact rules know the drawing's unit, so that this is the script's alone.
  field("main", "choice", "unit", "CaptionUnit", { groupIfExact: "more", tip: "TipUnit", choices: units }),
  field("main", "choice", "target", "CaptionTarget", {
    tip: "TipTarget",
    choices: [
      ["board", "CaptionBoard"],
      ["schematic", "CaptionSchematic"],
      ["package", "CaptionPackage"],
      ["symbol", "CaptionSymbol"],
    ],
  }),
  field("main", "text", "name", "CaptionDrawingName", { tip: "TipDrawingName" }),
  field("main", "choice", "layer", "CaptionStandardLayer", { tip: "TipStandardLayer", choices: [] }),
  field("main", "choice", "eagle", "CaptionVersion", {
    tip: "TipVersion",
    choices: [["3.5", "=3.5"], ["4", "=4.x/5.x"], ["6", "=6 and later, Fusion"]],
  }),
  field("more", "number", "scale", "CaptionScale", { tip: "TipScale" }),
  field("more", "number", "offsetX", "CaptionOffsetX"),
  field("more", "number", "offsetY", "CaptionOffsetY"),
  field("more", "choice", "poly", "CaptionPolylines", {
    isWide: true,
    tip: "TipPolylines",
    choices: [["wire0", "PolylinesWithoutWidth"], ["wire", "PolylinesWithWidth"], ["polyline", "PolylinesAsPolygons"]],
  }),
  field("more", "choice", "blocks", "CaptionBlocks", {
    isWide: true,
    tip: "TipBlocks",
    choices: [["draw", "BlocksDrawn"], ["used", "BlocksUsed"], ["all", "BlocksAll"]],
  }),
  field("classic", "number", "polyWidth", "PagePolyWidth"),
  field("classic", "switch", "dotted", "CaptionDottedLines", { tip: "TipDottedLines" }),
  field("classic", "switch", "ellipses", "CaptionEllipses", { tip: "TipEllipses" }),
  field("classic", "switch", "arcToLine", "CaptionLargeArcs"),
  exact("choice", "space", "CaptionSpace", [["model", "SpaceModel"], ["paper", "SpacePaper"], ["both", "SpaceBoth"]]),
  exact("choice", "place", "CaptionPlace", [["keep", "PlaceKeep"], ["lower-left", "PlaceLowerLeft"], ["centre", "PlaceCentre"]]),
  exact("choice", "hatch", "CaptionHatch", [["lines", "HatchLines"], ["border", "HatchBorder"], ["solid", "HatchSolid"], ["none", "HatchNone"]]),
  exact("choice", "linetypes", "CaptionLineTypes", [["solid", "LineTypesSolid"], ["style", "LineTypesStyle"], ["dashes", "LineTypesDashes"]]),
  exact("choice", "widelines", "CaptionWideLines", [["auto", "WideLinesAuto"], ["wires", "WideLinesWires"], ["areas", "WideLinesAreas"]]),
  exact("number", "linewidth", "CaptionLineWidth"),
  exact("number", "fillwidth", "CaptionFillWidth"),
  exact("number", "tolerance", "CaptionTolerance"),
  exact("number", "join", "CaptionJoin"),
  exact("text", "points", "CaptionPoints", undefined, { proposals: ["glyph", "dot", "none", "hole:0.8"] }),
  exact("text", "holes", "CaptionHoles"),
  exact("text", "holediameters", "CaptionHoleDiameters"),
  exact("switch", "hidden", "CaptionHidden"),
  exact("switch", "lineweights", "CaptionLineWeights"),
  exact("switch", "closedasareas", "CaptionClosedAreas"),
  exact("switch", "fillalways", "CaptionFillAlways"),
  exact("switch", "plainletters", "CaptionPlainLetters"),
  exact("switch", "dropduplicates", "CaptionDropDuplicates"),
];

/** As a text; switches are "1" or "0". */
export function valueOf(options: Options, field: Field): string {
  if (field.isExact) return options.exact[field.key] ?? "";
  const value = options[field.key as keyof Options];
  return typeof value === "boolean" ? (value ? "1" : "0") : String(value);
}

export function withValue(options: Options, field: Field, value: string): Options {
  if (field.isExact) return { ...options, exact: { ...options.exact, [field.key]: value } };
  return { ...options, [field.key]: field.kind === "switch" ? value === "1" : value };
}
