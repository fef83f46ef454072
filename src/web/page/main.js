// Korvane in a browser: which screen is shown, and what the player's wishes do.

import { button, dialog, download, el, replace } from "./dom.js";
import { Engine } from "./engine.js";
import { lifeScreen } from "./life.js";
import { forgetSetting, nextCharacter, setupScreen } from "./setup.js";
import * as store from "./store.js";

const engine = new Engine();
const searcher = new Engine();  // odds, careers and wishes, which take their time
const page = document.getElementById("page");
const status = document.getElementById("status");
let rules = null;
let life = null;   // what is kept of it: id, journal, backs, undone, program
let state = null;  // what the engine told of it
let before = "";   // the kind of the question that was answered last
let busy = false;

function tell(text) {
  status.textContent = "";
  // The same text twice is told twice.
  requestAnimationFrame(() => { status.textContent = text; });
}

const tools = {
  engine, searcher, tell,
  get rules() { return rules; },
  start,
  openText: (journal, why) => open({ id: store.newId(), journal, undone: [] }, {}, why),
  openJournal: async (file) => tools.openText(await file.text(), file.name),
  useRules,
  answer: (answer) => step({ answer }, []),
  // Out of a scrapped life to the question at which it was scrapped.
  back: () => {
    if (tools.mayGoBack()) step({ back: state.end === "scrapped" ? state.answered : state.answered - 1 }, null);
  },
  backTo,
  forward,
  mayGoBack: () => state !== null && (state.answered > 0 || state.end === "scrapped"),
  mayGoForward: () => life !== null && life.undone.length > 0,
  isCurrent: (other) => other === state,
  newLife: () => guarded(async () => {
    life = null;
    state = null;
    nextCharacter();
    show();
  }),
  showLives,
  confirm: sure,
};

// One thing at a time; what goes wrong is told and changes nothing.
async function guarded(action) {
  if (busy) return;
  busy = true;
  try {
    await action();
  } catch (error) {
    tell(error.message);
  } finally {
    busy = false;
  }
}

function keep() {
  const kept = store.keep({ ...life, title: titleOf(state), end: state.end ?? "" });
  if (!kept && !keep.told) {
    keep.told = true;
    tell("This browser can't keep more: save the journal before you close the page, or remove lives.");
  }
}

function titleOf(told) {
  return `${told.race}, ${told.career}, ${told.age}${told.end ? `, ${told.end}` : ""}`;
}

// A step of a life; where its rules ask something else by now, only if the player goes on all the same. Nothing where
// not.
async function ask(of, request) {
  const asked = { do: "step", journal: of.journal, ...(of.backs === undefined ? {} : { backs: of.backs }), ...request };
  const answer = await engine.call(asked);
  if (!("diverges" in answer)) return answer;
  if (!await sure(`The rules have changed since this life was lived. ${answer.diverges}. Go on from there?`)) return null;
  return engine.call({ ...asked, goOn: true });
}

// Takes what a step told.
function take(of, told, undone) {
  before = state?.question?.kind ?? "";
  state = told;
  life = { ...of, journal: told.journal, backs: told.backs, undone };
  keep();
  show();
}

// What is to be said of a life that others' rules or another program began.
function differences(of, told) {
  const said = [];
  if (of.program && of.program !== rules.program) said.push(`It was begun by ${of.program}; this is ${rules.program}.`);
  if (told.changed.length > 0) said.push(`Rule files have changed since: ${told.changed.join(", ")}.`);
  return said;
}

function start(setting) {
  return guarded(async () => {
    const begun = { id: store.newId(), journal: "", undone: [], program: rules.program };
    const told = await ask(begun, { ...setting, journal: undefined });
    // A reload leads back into the life, not into the link.
    history.replaceState(null, "", location.pathname + location.search);
    take(begun, told, []);
  });
}

function open(opened, setting, why = "") {
  return guarded(async () => {
    const told = await ask(opened, setting);
    if (told === null) return;
    const said = [why, ...differences(opened, told)].filter((text) => text);
    if (said.length > 0) tell(said.join(" "));
    take({ program: rules.program, ...opened }, told, opened.undone);
  });
}

// `undone`: what going forward finds afterwards; null: what was cut, before what there is.
function step(request, undone) {
  return guarded(async () => {
    const of = "back" in request ? { ...life, backs: (life.backs ?? 0) + 1 } : life;
    const told = await ask(of, request);
    if (told !== null) take(of, told, undone ?? [...told.cut, ...life.undone]);
  });
}

// Back to the first question that was asked at a line of the history or after it.
async function backTo(line) {
  try {
    const { moments } = await engine.call({ do: "moments", journal: life.journal });
    const moment = moments.findIndex((asked) => asked >= line);
    if (moment >= 0) step({ back: moment }, null);
  } catch (error) {
    tell(error.message);
  }
}

function forward() {
  if (!tools.mayGoForward()) return undefined;
  return guarded(async () => {
    const [first, ...rest] = life.undone;
    const of = { ...life, journal: life.journal.replace(/\{"end":.*\n?$/, "") + first };
    const told = await ask(of, {});
    if (told !== null) take(of, told, rest);
  });
}

// Rule data of the user's own: read by the checker first, which tells what is wrong. `files`: names and bytes.
function useRules(files) {
  return guarded(async () => {
    await engine.put("/checked", files);
    const { findings } = await engine.call({ do: "check", folder: "/checked" });
    const faults = findings.filter((finding) => finding.error);
    const kMost = 200;
    if (findings.length > 0)
      dialog(faults.length > 0 ? "These rules have mistakes" : "These rules play, but look at this",
          el("ul", {}, findings.slice(0, kMost).map((finding) => el("li", { class: finding.error ? "fault" : "" },
              `${finding.file}:${finding.line}:${finding.column}: ${finding.message}`))),
          findings.length > kMost ? el("p", {}, `and ${findings.length - kMost} more`) : null);
    if (faults.length > 0) return;
    for (const each of [engine, searcher]) {
      await each.put("/own", files);
      rules = await each.call({ do: "use", folder: "/own" });
    }
    life = null;
    state = null;
    forgetSetting();
    show();
    tell(`${Object.keys(files).length} files of your own rules are used.`);
  });
}

function sure(question) {
  return new Promise((resolve) => {
    let answer = false;
    const box = dialog(question, el("div", { class: "answers" },
        button("Yes", () => { answer = true; box.close(); }), button("No", () => box.close())));
    box.addEventListener("close", () => resolve(answer));
  });
}

function showLives() {
  const list = el("ul", { class: "lives" });
  const box = dialog("Lives", list, el("p", { class: "fine" }, "They are kept in this browser alone. A saved journal can be opened anywhere."));
  function fill() {
    replace(list, store.all().map((kept) => el("li", {},
        button(kept.title, () => { box.close(); open(kept, {}); }, { "aria-current": kept.id === life?.id ? "true" : null }),
        button("Save", () => download("character.jsonl", kept.journal), { "aria-label": `Save ${kept.title}` }),
        button("Remove", async () => {
          if (await sure(`Remove ${kept.title}?`)) store.drop(kept.id);
          fill();
          box.querySelector("button").focus();
        }, { "aria-label": `Remove ${kept.title}` }))));
  }
  fill();
}

function show() {
  const screen = state === null ? setupScreen(tools) : lifeScreen(state, tools);
  const kept = store.all().length;
  replace(page, state === null && kept > 0
    ? el("nav", { class: "steps", "aria-label": "Steps" }, button(`Lives (${kept})`, showLives)) : null, screen);
  page.querySelector("[data-focus]")?.focus();
}

function isTyped(element) {
  return element.matches("input:not([type=checkbox]), textarea");
}

document.addEventListener("keydown", (event) => {
  if (document.querySelector("dialog[open]") !== null) return;
  if ((event.ctrlKey || event.metaKey) && !event.altKey) {
    const key = event.key.toLowerCase();
    const action = key === "z" && !event.shiftKey ? tools.back : key === "y" || (key === "z" && event.shiftKey) ? tools.forward : null;
    if (action !== null && state !== null && !isTyped(event.target)) {
      event.preventDefault();
      action();
    }
    return;
  }
  if (event.altKey || event.repeat || !/^[1-9]$/.test(event.key) || isTyped(event.target) || event.target.matches("select")) return;
  const pressed = page.querySelector(`.question [data-key="${event.key}"]:not(:disabled)`);
  if (pressed !== null) {
    event.preventDefault();
    pressed.click();
  }
});

// The second click of a double click isn't meant for the question that the first one brought. Presses at mustering out are
// all meant: it stays the same.
page.addEventListener("click", (event) => {
  const musters = state?.question?.kind === "muster" && before === "muster";
  if (event.detail > 1 && !musters && event.target.closest(".question button") !== null) {
    event.preventDefault();
    event.stopPropagation();
  }
}, true);

// Rules and journals may be dropped anywhere, rules as a folder too.
document.addEventListener("dragover", (event) => event.preventDefault());
document.addEventListener("drop", async (event) => {
  event.preventDefault();
  const entries = [...event.dataTransfer.items].map((item) => item.webkitGetAsEntry?.()).filter((entry) => entry);
  const dropped = [...event.dataTransfer.files];
  try {
    const folders = entries.filter((entry) => entry.isDirectory);
    const files = folders.length === 0 ? dropped : (await Promise.all(folders.map(filesOf))).flat();
    const first = files.length === 1 ? await files[0].text() : "";
    if (first.trimStart().startsWith('{"journal":')) tools.openText(first, files[0].name);
    else if (files.length > 0) useRules(await contentsOf(files));
  } catch (error) {
    tell(error.message);
  }
});

// The files right in a folder.
async function filesOf(folder) {
  const reader = folder.createReader();
  const found = [];
  for (;;) {
    const some = await new Promise((resolve, reject) => { reader.readEntries(resolve, reject); });
    if (some.length === 0) break;
    found.push(...some.filter((entry) => entry.isFile));
  }
  return Promise.all(found.map((entry) => new Promise((resolve, reject) => { entry.file(resolve, reject); })));
}

// Names and bytes.
async function contentsOf(files) {
  return Object.fromEntries(await Promise.all(files.map(async (file) => [file.name, new Uint8Array(await file.arrayBuffer())])));
}
tools.useFiles = async (files) => useRules(await contentsOf(files));

// A link that is opened while the page is there begins anew, too.
window.addEventListener("hashchange", () => {
  if (!location.hash.includes("seed=")) return;
  forgetSetting();
  guarded(async () => {
    life = null;
    state = null;
    show();
  });
});

async function begin() {
  try {
    rules = await engine.call({ do: "rules" });
    const [last] = store.all();
    // A link with a seed begins a new character.
    if (last && !last.end && !location.hash.includes("seed=")) await open(last, {});
    if (state === null) show();
  } catch (error) {
    replace(page, el("p", { class: "fault", role: "alert" }, error.message));
  }
}
begin();
