// Runs in the worker, behind the engine's own script: the rule data as files, and one answer for each request.
/* global KorvaneEngine */
let engine = null;
const folders = {};  // what the engine's files are made of, should it have to begin anew
let used = null;  // the request that took other rules
let wasm = null;

function write(folder, files) {
  folders[folder] = files;
  if (engine.FS.analyzePath(folder).exists)
    for (const name of engine.FS.readdir(folder)) {
      if (name !== "." && name !== "..") engine.FS.unlink(`${folder}/${name}`);
    }
  else engine.FS.mkdir(folder);
  for (const [name, content] of Object.entries(files)) engine.FS.writeFile(`${folder}/${name}`, content);
}

async function begin() {
  engine = await KorvaneEngine({ wasmBinary: wasm.slice(0) });
  for (const [folder, files] of Object.entries(folders)) write(folder, files);
  if (used !== null) answer(used);
}

function answer(request) {
  const bytes = new TextEncoder().encode(`${request}\0`);
  const place = engine._malloc(bytes.length);
  if (place === 0) throw new Error("there isn't so much memory");
  engine.HEAPU8.set(bytes, place);
  const told = engine.UTF8ToString(engine._korvane_answer(place));
  engine._free(place);
  return told;
}

async function carryOut(data) {
  if ("wasm" in data) {
    wasm = data.wasm;
    folders["/rules"] = data.rules;
    return begin();
  }
  if ("folder" in data) return write(data.folder, data.files);
  const told = answer(data.request);
  if (data.request.startsWith('{"do":"use"') && !told.startsWith('{"error"')) used = data.request;
  return told;
}

self.onmessage = async ({ data }) => {
  try {
    self.postMessage((await carryOut(data)) ?? "");
  } catch (error) {
    // It stopped in the midst of something: nothing of it can be trusted.
    await begin();
    self.postMessage(JSON.stringify({ error: `the engine stopped: ${error.message}` }));
  }
};
