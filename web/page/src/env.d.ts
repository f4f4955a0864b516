declare module "virtual:kelfunzioni.wasm" {
  const base64: string;
  export default base64;
}
