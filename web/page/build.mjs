// Makes the page: node build.mjs FOLDER-OF-THE-ENGINE FOLDER-FOR-THE-PAGE
import { createHash } from "node:crypto";
import fs from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import { build } from "esbuild";

const [engine, out] = process.argv.slice(2).map((folder) => path.resolve(folder));
if (!out) throw new Error("usage: node build.mjs FOLDER-OF-THE-ENGINE FOLDER-FOR-THE-PAGE");
const page = path.dirname(fileURLToPath(import.meta.url));
const root = path.resolve(page, "../..");

const common = {
  bundle: true,
  minify: true,
  format: "esm",
  target: "es2022",
  loader: { ".dxf": "text", ".lay": "text" },
  legalComments: "none",
  // The engine's types are beside the sources, the engine itself is where it was built. It asks for
  // these modules only where there is no browser.
  plugins: [
    {
      name: "engine",
      setup(bundler) {
        bundler.onResolve({ filter: /^\.\.\/engine$/ }, () => ({ path: path.join(engine, "quillon.js") }));
      },
    },
  ],
  external: ["fs", "path", "module", "ws"],
};

fs.rmSync(out, { recursive: true, force: true });
fs.mkdirSync(out, { recursive: true });
await build({
  ...common,
  entryPoints: ["main.ts", "worker.ts", "painter.ts", "style.css"].map((name) => path.join(page, name)),
  outdir: out,
});
for (const name of ["index.html", "manifest.webmanifest"]) {
  fs.copyFileSync(path.join(page, name), path.join(out, name));
}
fs.copyFileSync(path.join(root, "packaging/quillon.svg"), path.join(out, "quillon.svg"));
fs.copyFileSync(path.join(engine, "quillon.wasm"), path.join(out, "quillon.wasm"));

// The service worker keeps what belongs together, so it has to change with any of them.
const files = fs.readdirSync(out).sort();
const hash = createHash("sha256");
for (const name of files) hash.update(name).update(fs.readFileSync(path.join(out, name)));
await build({
  ...common,
  entryPoints: [path.join(page, "service_worker.ts")],
  outdir: out,
  format: "iife",
  define: { FILES: JSON.stringify(files), STATE: JSON.stringify(hash.digest("hex").slice(0, 16)) },
});

// The help is only sent to those who open it, so it is not among the files that are kept.
const help = path.join(root, "help");
const isOfHelp = (file) => fs.statSync(file).isDirectory() || /\.(html|css|png)$/.test(file);
fs.cpSync(help, path.join(out, "help"), { recursive: true, filter: isOfHelp });
