// Runs in the worker, behind the engine's own script: the rule data as files, and one answer for each request.
/* global KorvaneEngine */
let engine = null;

function write(folder, files) {
  if (engine.FS.analyzePath(folder).exists)
    for (const name of engine.FS.readdir(folder)) {
      if (name !== "." && name !== "..") engine.FS.unlink(`${folder}/${name}`);
    }
  else engine.FS.mkdir(folder);
  for (const [name, content] of Object.entries(files)) engine.FS.writeFile(`${folder}/${name}`, content);
}

self.onmessage = async ({ data }) => {
  if ("wasm" in data) {
    engine = await KorvaneEngine({ wasmBinary: data.wasm });
    write("/rules", data.rules);
    self.postMessage("");
  } else if ("own" in data) {
    write("/own", data.own);
    self.postMessage("");
  } else {
    self.postMessage(engine.ccall("korvane_answer", "string", ["string"], [data.request]));
  }
};
