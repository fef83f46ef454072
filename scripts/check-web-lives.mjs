// Lives lives in the engine for browsers, here in node, and holds them against the native program's, byte for byte:
// check-web-lives.mjs BUILD PROGRAM RULES [COUNT]. Also journals, each way, and the time of a step.

import { execFileSync } from "node:child_process";
import { mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join, resolve } from "node:path";

const [build, program, rules] = process.argv.slice(2, 5).map((path) => resolve(path));
const count = Number(process.argv[5] ?? 10000);
const make = createRequire(import.meta.url)(join(build, "src/korvane-web.js"));
const engine = await make({ wasmBinary: readFileSync(join(build, "src/korvane-web.wasm")) });
engine.FS.mkdir("/rules");
for (const name of readdirSync(rules)) engine.FS.writeFile(`/rules/${name}`, readFileSync(join(rules, name)));

function call(request) {
  const bytes = new TextEncoder().encode(`${JSON.stringify(request)}\0`);
  const place = engine._malloc(bytes.length);
  engine.HEAPU8.set(bytes, place);
  const answer = JSON.parse(engine.UTF8ToString(engine._korvane_answer(place)));
  engine._free(place);
  if ("error" in answer) throw new Error(answer.error);
  return answer;
}
function native(...words) {
  return execFileSync(program, words, { maxBuffer: 1 << 30, stdio: ["ignore", "pipe", "ignore"] }).toString();
}
function same(one, other, what) {
  if (one !== other) throw new Error(`${what} differ`);
}

for (const player of ["sensible", "automatic", "random"]) {
  const wanted = execFileSync("sh", ["-c", `"${program}" generate --data "${rules}" --player ${player} --seed 41 --count ${count} --format json 2>/dev/null || true`],
      { maxBuffer: 1 << 30 }).toString();
  const began = performance.now();
  let documents = "";
  for (let first = 1; first <= count; first += 1000)
    documents += call({ do: "lives", player, seed: "41", first, count: Math.min(1000, count - first + 1) }).documents;
  const seconds = (performance.now() - began) / 1000;
  same(documents, wanted, `the ${player} player's lives`);
  console.log(`${count} lives of the ${player} player: the same; ${Math.round(count / seconds)} a second with their documents`);
}

const folder = mkdtempSync(join(tmpdir(), "korvane-"));
try {
  // Out: of lives lived here, by the program.
  const { journals } = call({ do: "lives", player: "sensible", seed: "out", first: 1, count: 200, journals: true });
  const files = journals.map((text, i) => {
    const file = join(folder, `${i}.jsonl`);
    writeFileSync(file, text);
    return file;
  });
  const verdicts = native("verify", "--data", rules, "--format", "json", ...files).trim().split("\n").map((line) => JSON.parse(line).verdict);
  if (verdicts.length !== 200 || verdicts.some((verdict) => verdict !== "proved")) throw new Error(`out: ${verdicts}`);
  // In: of the program's, here.
  const their = join(folder, "their");
  native("generate", "--data", rules, "--seed", "in", "--count", "200", "--format", "none", "--journal", their);
  for (const name of readdirSync(their)) {
    const verdict = call({ do: "verify", journal: readFileSync(join(their, name), "utf8") }).verdict;
    if (verdict !== "proved") throw new Error(`${name}: ${verdict}`);
  }
  console.log("200 journals each way: proved");
} finally {
  rmSync(folder, { recursive: true });
}

// Lives lived step by step, each step from the journal before it; the longest there are.
const times = [];
for (let number = 1; number <= 20; ++number) {
  let state = call({ do: "step", race: "Imperial Human", career: "Scholar", assignment: call({ do: "rules" }).races
    .find((race) => race.name === "Imperial Human").careers.find((career) => career.name === "Scholar").assignments[0].name,
    options: ["Force no Ejection on Mishap"], seed: "steps", number });
  while ("question" in state) {
    const { question } = state;
    const answers = { choose: 1, ask: true, table: 1, select: [], transfer: null, "end of term": { choice: 1, options: ["Force no Ejection on Mishap"] },
      muster: { press: question.enabled?.indexOf(true), gambler: false } };
    if (question.kind === "select") answers.select = question.items.slice(0, question.maximum).map((_, i) => i + 1);
    if (question.kind === "table") answers.table = question.columns.findIndex((column) => column.enabled) + 1;
    const began = performance.now();
    state = call({ do: "step", journal: state.journal, answer: answers[question.kind] });
    times.push(performance.now() - began);
  }
}
times.sort((a, b) => a - b);
console.log(`${times.length} steps: ${times[times.length >> 1].toFixed(1)} ms in the middle, ${times.at(-1).toFixed(1)} ms at most`);
