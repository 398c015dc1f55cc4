declare module "*.dxf" {
  const text: string;
  export default text;
}
declare module "*.lay" {
  const text: string;
  export default text;
}
