// Korvane in a browser: which screen is shown, and what the player's wishes do.

import { button, dialog, el, replace } from "./dom.js";
import { Engine } from "./engine.js";
import { lifeScreen } from "./life.js";
import { setupScreen } from "./setup.js";
import * as store from "./store.js";

const engine = new Engine();
const searcher = new Engine();  // odds, careers and wishes, which take their time
const page = document.getElementById("page");
const status = document.getElementById("status");
let rules = null;
let life = null;   // what is kept of it: id, journal, backs, undone
let state = null;  // what the engine told of it
let busy = false;

function tell(text) {
  status.textContent = "";
  // The same text twice is told twice.
  requestAnimationFrame(() => { status.textContent = text; });
}

const tools = {
  engine, searcher, tell,
  get rules() { return rules; },
  start: (setting) => open({ id: store.newId(), journal: "", backs: 0, undone: [] }, setting),
  openText: (journal, why) => open({ id: store.newId(), journal, backs: 0, undone: [], seed: "" }, {}, why),
  openJournal: async (file) => tools.openText(await file.text(), file.name),
  useRules,
  answer: (answer) => step({ answer }, []),
  back: () => { if (tools.mayGoBack()) step({ back: state.answered - 1 }, null); },
  backTo,
  forward,
  mayGoBack: () => state !== null && state.answered > 0,
  mayGoForward: () => life !== null && life.undone.length > 0,
  isCurrent: (other) => other === state,
  newLife: () => { life = null; state = null; show(); },
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
  }
  busy = false;
}

function keep() {
  const kept = { ...life, title: titleOf(state), program: rules.program, end: state.end ?? "" };
  if (!store.keep(kept) && !keep.told) {
    keep.told = true;
    tell("This browser keeps nothing: save the journal before you close the page.");
  }
}

function titleOf(told) {
  return `${told.race}, ${told.career}, ${told.age}${told.end ? `, ${told.end}` : ""}`;
}

async function ask(request) {
  return engine.call({ do: "step", journal: life.journal, backs: life.backs, ...request });
}

function open(opened, setting, why = "") {
  return guarded(async () => {
    const before = life;
    life = opened;
    try {
      state = await ask(opened.journal === "" ? { ...setting, journal: undefined } : {});
    } catch (error) {
      life = before;
      throw error;
    }
    life.journal = state.journal;
    const told = opened.program && opened.program !== rules.program ? ` It was begun by ${opened.program}; this is ${rules.program}.` : "";
    if (why || told) tell(`${why}${told}`);
    keep();
    show();
  });
}

// `undone`: what going forward finds afterwards; null to keep what there is.
function step(request, undone) {
  return guarded(async () => {
    const before = { ...life };
    if ("back" in request) ++life.backs;
    try {
      state = await ask(request);
    } catch (error) {
      life = before;
      throw error;
    }
    life.journal = state.journal;
    life.undone = undone ?? (state.cut ? [state.cut, ...life.undone] : life.undone);
    keep();
    show();
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
    state = await engine.call({ do: "step", journal: withoutEnd(life.journal) + first, backs: life.backs });
    life = { ...life, journal: state.journal, undone: rest };
    keep();
    show();
  });
}

function withoutEnd(journal) {
  return journal.replace(/\{"end":.*\n?$/, "");
}

// Rule data of the user's own: read by the checker first, which tells what is wrong.
function useRules(files) {
  return guarded(async () => {
    const contents = Object.fromEntries(await Promise.all(
        files.map(async (file) => [file.name, new Uint8Array(await file.arrayBuffer())])));
    await engine.put(contents);
    await searcher.put(contents);
    const { findings } = await engine.call({ do: "check", folder: "/own" });
    const faults = findings.filter((finding) => finding.error);
    if (findings.length > 0)
      dialog(faults.length > 0 ? "These rules have mistakes" : "These rules play, but look at this",
          el("ul", {}, findings.slice(0, 200).map((finding) => el("li", { class: finding.error ? "fault" : "" },
              `${finding.file}:${finding.line}:${finding.column}: ${finding.message}`))));
    if (faults.length > 0) return;
    rules = await engine.call({ do: "use", folder: "/own" });
    await searcher.call({ do: "use", folder: "/own" });
    tools.newLife();
    tell(`${files.length} files of your own rules are used.`);
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
        button(kept.title, () => { box.close(); open({ ...kept }, {}); }, { "aria-current": kept.id === life?.id ? "true" : null }),
        button("Remove", async () => { store.drop(kept.id); fill(); }, { "aria-label": `Remove ${kept.title}` }))));
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

document.addEventListener("keydown", (event) => {
  if (document.querySelector("dialog[open]") !== null) return;
  if ((event.ctrlKey || event.metaKey) && !event.altKey) {
    const key = event.key.toLowerCase();
    const action = key === "z" && !event.shiftKey ? tools.back : key === "y" || (key === "z" && event.shiftKey) ? tools.forward : null;
    if (action !== null && state !== null && event.target.tagName !== "INPUT") {
      event.preventDefault();
      action();
    }
    return;
  }
  if (event.altKey || !/^[1-9]$/.test(event.key) || /^(INPUT|SELECT|TEXTAREA)$/.test(event.target.tagName) || event.repeat) return;
  const pressed = page.querySelector(`.question [data-key="${event.key}"]:not(:disabled)`);
  if (pressed !== null) {
    event.preventDefault();
    pressed.click();
  }
});

// Rules and journals may be dropped anywhere.
document.addEventListener("dragover", (event) => event.preventDefault());
document.addEventListener("drop", (event) => {
  event.preventDefault();
  const files = [...event.dataTransfer.files];
  if (files.length === 1 && /\.jsonl?$/.test(files[0].name)) tools.openJournal(files[0]);
  else if (files.length > 0) useRules(files);
});

async function begin() {
  try {
    rules = await engine.call({ do: "rules" });
    const [last] = store.all();
    // A link with a seed begins a new character.
    if (last && !last.end && location.hash === "") await open({ ...last }, {});
    if (state === null) show();
  } catch (error) {
    replace(page, el("p", { class: "fault", role: "alert" }, error.message));
  }
}
begin();
