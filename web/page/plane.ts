// Places on the paper and pixels on the screen.
import type { Box } from "../engine";
import type { Plane } from "./messages";

export interface Point {
  x: number;
  y: number;
}

export function pixelOf(plane: Plane, place: Point): Point {
  return {
    x: (place.x - plane.x) * plane.scale + plane.width / 2,
    y: (plane.y - place.y) * plane.scale + plane.height / 2,
  };
}

export function placeOf(plane: Plane, pixel: Point): Point {
  return {
    x: (pixel.x - plane.width / 2) / plane.scale + plane.x,
    y: plane.y - (pixel.y - plane.height / 2) / plane.scale,
  };
}

/** Shows all of a box with a margin around it. */
export function fitted(plane: Plane, box: Box): Plane {
  const margin = 0.92;
  const width = Math.max(box.x1 - box.x0, 1e-6);
  const height = Math.max(box.y1 - box.y0, 1e-6);
  const scale = margin * Math.min(plane.width / width, plane.height / height);
  return { ...plane, scale, x: (box.x0 + box.x1) / 2, y: (box.y0 + box.y1) / 2 };
}

const least = 1e-6;
const most = 1e7;

/** What is under the pixel stays there. */
export function zoomed(plane: Plane, factor: number, pixel: Point): Plane {
  const scale = Math.min(Math.max(plane.scale * factor, least), most);
  const place = placeOf(plane, pixel);
  const dx = (pixel.x - plane.width / 2) / scale;
  const dy = (pixel.y - plane.height / 2) / scale;
  return { ...plane, scale, x: place.x - dx, y: place.y + dy };
}

export function moved(plane: Plane, dx: number, dy: number): Plane {
  return { ...plane, x: plane.x - dx / plane.scale, y: plane.y + dy / plane.scale };
}

/** 1, 2 or 5 times a power of ten: the largest that is not above a length. */
export function roundLength(length: number): number {
  const power = 10 ** Math.floor(Math.log10(length));
  return power * (length >= 5 * power ? 5 : length >= 2 * power ? 2 : 1);
}

/** "10 mm" */
export function lengthText(millimetres: number): string {
  const units: [string, number, number][] = [
    ["km", 1e6, 1e7],
    ["m", 1e3, 1e4],
    ["mm", 1, 0.01],
    ["µm", 1e-3, 1e-5],
  ];
  const [name, size] = units.find(([, , from]) => millimetres * (1 + 1e-9) >= from) ?? ["nm", 1e-6];
  return `${Number((millimetres / size).toPrecision(3))} ${name}`;
}
