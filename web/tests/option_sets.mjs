// Options to convert with, as changes to the page's own, and the command line for each.

/** Each set differs from the page's options in what it names. */
export const optionSets = [
  { rules: 'classic' },
  { rules: 'classic', unit: 'mil', eagle: '3.5', poly: 'wire0', dotted: true },
  { rules: 'classic', unit: 'inch', scale: '0.5', offsetX: '1.25', ellipses: true },
  { rules: 'classic', unit: 'mic', eagle: '6', scale: '1000', offsetY: '-3.5' },
  { rules: 'classic', poly: 'wire', polyWidth: '0.254', arcToLine: true, dotted: true },
  { rules: 'classic', target: 'schematic', blocks: 'used', layer: '94 Symbols (S)' },
  { rules: 'classic', target: 'package', eagle: '6', layer: '21', poly: 'wire' },
  { rules: 'classic', target: 'symbol', unit: 'mil', layer: '94', scale: '-1' },
  { rules: 'classic', blocks: 'used', ellipses: true, dotted: true },
  { rules: 'classic', blocks: 'all', unit: 'inch', eagle: '3.5' },
  { rules: 'classic', layers: true, polyWidth: '1' },
  { rules: 'classic', scale: '25.4', offsetX: '100', offsetY: '100', arcToLine: true },
  { rules: 'classic', layers: true, target: 'schematic', blocks: 'all', eagle: '6' },
  {},
  { eagle: '6', exact: { hatch: 'border', linetypes: 'style', points: 'dot' } },
  { unit: 'mil', exact: { hatch: 'solid', linetypes: 'dashes', points: 'none' } },
  { unit: 'inch', eagle: '6', exact: { hatch: 'none', space: 'paper', points: 'hole:0.8' } },
  { unit: 'mic', exact: { space: 'both', widelines: 'wires', hidden: '1' } },
  { exact: { widelines: 'areas', lineweights: '1', closedasareas: '1', fillalways: '1' } },
  { eagle: '6', exact: { join: '0', dropduplicates: '0', plainletters: '1' } },
  { exact: { join: '0.5', tolerance: '0.05', place: 'lower-left', linewidth: '0.2' } },
  { scale: '-2', offsetX: '5', exact: { place: 'centre', fillwidth: '0.1' } },
  { blocks: 'used', exact: { drawingunit: 'inch' } },
  { target: 'schematic', blocks: 'all', eagle: '6', layer: '94', layers: true },
  { target: 'package', layer: '21', exact: { holes: 'HOLES,0', holediameters: '0.5..4' } },
  { target: 'symbol', poly: 'wire0', unit: 'mil', exact: { drawingunit: 'mm', hidden: '1' } },
];

/** A layer file for the sets that want one: on, off and elsewhere. */
export const layerFile = ['0', 'OUTLINE', 'HOLES', 'PRINT', 'NOTES', 'A', 'B']
  .map((name, i) => `[${i + 1}]\r\nlayername=${name}\r\nlayernr=${[20, 46, 45, 21, 999, 1, 16][i]}\r\n`)
  .join('');

/** The page's options with the changes of a set. */
export function optionsOf(set, defaults) {
  const { layers: _, exact, ...others } = set;
  return { ...defaults, ...others, exact: { ...defaults.exact, ...exact } };
}

const switches = { dotted: '--dotted', ellipses: '--ellipses', arcToLine: '--arc-to-line' };
const values = {
  rules: '--rules', target: '--target', eagle: '--eagle', unit: '--unit', scale: '--scale',
  offsetX: '--offset-x', offsetY: '--offset-y', layer: '--layer', poly: '--poly',
  polyWidth: '--poly-width', blocks: '--blocks',
};
const exactSwitches = {
  hidden: '--hidden', lineweights: '--lineweights', closedasareas: '--closed-as-areas',
  fillalways: '--fill-always', plainletters: '--plain-letters',
};
const exactValues = {
  drawingunit: '--drawing-unit', linewidth: '--line-width', fillwidth: '--fill-width',
  tolerance: '--tolerance', join: '--join', space: '--space', hatch: '--hatch',
  linetypes: '--line-types', widelines: '--wide-lines', place: '--place', points: '--points',
  holes: '--holes', holediameters: '--hole-diameters',
};

/** The same options on the command line; `layerPath` for sets that want a layer file. */
export function argumentsOf(set, options, layerPath) {
  const list = [];
  const addValues = (names, from) => {
    for (const [key, name] of Object.entries(names)) if (from[key] !== '') list.push(name, from[key]);
  };
  const addSwitches = (names, from) => {
    for (const [key, name] of Object.entries(names)) if (from[key] === true || from[key] === '1') list.push(name);
  };
  addValues(values, options);
  addSwitches(switches, options);
  if (options.rules === 'exact') {
    addValues(exactValues, options.exact);
    addSwitches(exactSwitches, options.exact);
    if (options.exact.dropduplicates === '0') list.push('--keep-duplicates');
  }
  if (set.layers) list.push('--layers', layerPath);
  return list;
}

/** What no set tries: options that are at their defaults in all of them, and words never used. */
export function untried(defaults, words) {
  const all = optionSets.map((set) => optionsOf(set, defaults));
  const missing = [];
  for (const key of Object.keys(defaults)) {
    const isTried = all.some((options) => options[key] !== defaults[key]);
    if (key !== 'name' && key !== 'exact' && !isTried) missing.push(key);
  }
  for (const key of Object.keys(defaults.exact)) {
    if (all.every((options) => options.exact[key] === defaults.exact[key])) missing.push(key);
  }
  for (const [key, list] of Object.entries(words)) {
    if (key === 'drawingunit') continue;
    for (const word of list) {
      if (all.every((options) => options.exact[key] !== word)) missing.push(`${key}=${word}`);
    }
  }
  return missing;
}
