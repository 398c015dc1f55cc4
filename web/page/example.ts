// A drawing for those who have none at hand.
import layers from "../../examples/lid.lay";
import drawing from "../../examples/lid.dxf";

export function exampleDrawing(): { drawing: File; layerFile: File } {
  return {
    drawing: new File([drawing], "lid.dxf"),
    layerFile: new File([layers], "lid.lay"),
  };
}
