// The engine in a worker: what is asked of it comes back as a promise, in order.

// A part of this file that was packed when it was built.
async function unpacked(id) {
  const text = document.getElementById(id).textContent.trim();
  const bytes = Uint8Array.from(atob(text), (letter) => letter.charCodeAt(0));
  const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"));
  return new Response(stream).arrayBuffer();
}

let parts = null;
async function packedParts() {
  parts ??= (async () => {
    const texts = JSON.parse(new TextDecoder().decode(await unpacked("texts")));
    return { wasm: await unpacked("wasm"), rules: texts.rules,
             script: URL.createObjectURL(new Blob([texts.worker], { type: "text/javascript" })) };
  })();
  return parts;
}

export class Engine {
  #worker = null;
  #waiting = [];
  #ready;

  constructor() {
    this.#ready = this.#start();
  }

  async #start() {
    const { wasm, rules, script } = await packedParts();
    this.#worker = new Worker(script);
    this.#worker.onmessage = ({ data }) => this.#waiting.shift()?.resolve(data);
    this.#worker.onerror = (event) => this.#fail(event.message ?? "the engine can't be started");
    await this.#send({ wasm, rules });
  }

  #fail(message) {
    for (const one of this.#waiting.splice(0)) one.reject(new Error(message));
  }

  #send(message) {
    return new Promise((resolve, reject) => {
      this.#waiting.push({ resolve, reject });
      this.#worker.postMessage(message);
    });
  }

  // The answer to a request; an error is thrown.
  async call(request) {
    await this.#ready;
    return Engine.#checked(await this.#send({ request: JSON.stringify(request) }));
  }

  // Makes a folder of these files, by name, in place of what was in it.
  async put(folder, files) {
    await this.#ready;
    Engine.#checked(await this.#send({ folder, files }));
  }

  static #checked(text) {
    const answer = text === "" ? {} : JSON.parse(text);
    if ("error" in answer) throw new Error(answer.error);
    return answer;
  }
}
