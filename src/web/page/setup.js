// Before a life: race, characteristics, career, method, options, seed.

import { button, choices, dialog, el, field, replace } from "./dom.js";
import { compareCareers } from "./odds.js";

let setting = null;  // what was chosen last
let begun = false;   // whether its character has been lived

// What the address asks for: "#seed=friday&race=Aslan".
function beginning(rules) {
  const asked = new URLSearchParams(location.hash.slice(1));
  const method = (asked.get("method") ?? "").trim();
  return {
    race: rules.races.some((race) => race.name === asked.get("race")) ? asked.get("race") : rules.race,
    seed: asked.get("seed") || String(Math.floor(Math.random() * 1e9)),
    number: Math.max(1, Math.floor(Number(asked.get("number"))) || 1),
    method: rules.methods.find((each) => each.trim() === method) ?? rules.method,
    options: asked.getAll("option").filter((option) => rules.options.some(([caption]) => caption === option)),
    career: asked.get("career"), assignment: asked.get("assignment"),
  };
}

// As the address has it, the next time.
export function forgetSetting() {
  setting = null;
}

// One that was lived isn't offered again.
export function nextCharacter() {
  if (setting !== null && begun) ++setting.number;
  begun = false;
}

// `tools`: the rules, the engines, and what opens a life. Gives the elements.
export function setupScreen(tools) {
  const { rules, engine, searcher } = tools;
  setting ??= beginning(rules);
  if (!rules.races.some((race) => race.name === setting.race)) setting.race = rules.races[0].name;
  const race = () => rules.races.find((each) => each.name === setting.race);
  const career = () => race().careers.find((each) => each.name === setting.career);
  const rolled = el("ul", { class: "figures", "aria-label": "Characteristics" });
  const home = el("p", { class: "fine" });
  const careerPlace = el("div", {});
  const start = button("Start the life", () => {
    begun = true;
    tools.start({ ...setting });
  }, { class: "first" });
  const seed = el("input", { value: setting.seed, size: "14", maxlength: "80", spellcheck: "false", onchange: () => {
    setting.seed = seed.value.trim() || "1";
    setting.number = 1;
    roll();
  } });
  const number = el("input", { type: "number", min: "1", max: "1000000000", value: String(setting.number), onchange: () => {
    setting.number = Math.max(1, Math.floor(Number(number.value)) || 1);
    roll();
  } });

  function chooseCareer(name, assignment = null) {
    setting.career = name;
    const assignments = career()?.assignments ?? [];
    setting.assignment = assignments.some((each) => each.name === assignment) ? assignment : assignments[0]?.name ?? null;
    showCareer();
  }
  function showCareer() {
    const offered = race().careers.filter((each) => each.chosen);
    if (!offered.some((each) => each.name === setting.career)) setting.career = offered[0]?.name ?? null;
    if (!career()?.assignments.some((each) => each.name === setting.assignment))
      setting.assignment = career()?.assignments[0]?.name ?? null;
    const assignment = career()?.assignments.find((each) => each.name === setting.assignment);
    start.disabled = !assignment;
    replace(careerPlace,
        field("Career", choices(offered.map((each) => each.name), setting.career, (name) => chooseCareer(name))),
        el("p", { class: "fine" }, career()?.description ?? ""),
        field("Assignment", choices((career()?.assignments ?? []).map((each) => each.name), setting.assignment,
            (name) => chooseCareer(setting.career, name))),
        el("p", { class: "fine" }, assignment?.description ?? ""));
  }
  async function roll() {
    number.value = String(setting.number);
    try {
      const character = await engine.call({ do: "roll", ...setting });
      replace(rolled, character.characteristics.map(([name, value, modifier]) =>
          el("li", {}, el("span", {}, name), el("b", {}, String(value)), el("span", {}, modifier))));
      home.textContent = character.homeWorld;
    } catch (error) {
      tools.tell(error.message);
    }
  }
  showCareer();
  roll();
  const options = rules.options.map(([caption, explanation]) => {
    const box = el("input", { type: "checkbox", value: caption, checked: setting.options.includes(caption), onchange: () => {
      setting.options = options.map((label) => label.firstChild).filter((each) => each.checked).map((each) => each.value);
    } });
    return el("label", { title: explanation }, box, caption);
  });
  return [
    el("section", { class: "card", "aria-labelledby": "who" },
        el("h2", { id: "who", tabindex: "-1", "data-focus": "" }, "A new character"),
        field("Race", choices(rules.races.map((each) => each.name), setting.race, (name) => {
          setting.race = name;
          setting.career = null;
          showCareer();
          roll();
        })),
        rolled,
        el("div", { class: "answers" }, button("Roll again", () => { ++setting.number; roll(); }),
            button("Compare careers", () => compareCareers(searcher, { ...setting }, chooseCareer))),
        home),
    el("section", { class: "card", "aria-labelledby": "what" },
        el("h2", { id: "what" }, "A career"), careerPlace,
        el("details", { class: "options" }, el("summary", {}, "Options and dice"),
            field("Method", choices(rules.methods, setting.method, (method) => { setting.method = method; roll(); })),
            el("div", { class: "boxes" }, options),
            field("Seed, a number or a word", seed), field("Number of the character", number),
            button("Copy a link", () => copyLink(tools))),
        el("div", { class: "answers" }, start)),
    el("section", { class: "card", "aria-labelledby": "else" },
        el("h2", { id: "else" }, "Or"),
        el("div", { class: "answers" },
            button("Find me one ...", () => findOne(tools, race().name)),
            filePick("Open a journal ...", ".jsonl,.json,.txt", {}, (files) => tools.openJournal(files[0])),
            filePick("Use own rules ...", "", { multiple: true }, tools.useFiles),
            filePick("Use a folder of rules ...", "", { webkitdirectory: true },
                // The files right in it.
                (files) => tools.useFiles(files.filter((file) => file.webkitRelativePath.split("/").length === 2))))),
  ];
}

// Everyone who opens it begins the same.
async function copyLink(tools) {
  const link = `${location.href.split("#")[0]}#${new URLSearchParams([
    ...["seed", "number", "race", "career", "assignment"].map((key) => [key, setting[key]]),
    ["method", setting.method.trim()], ...setting.options.map((option) => ["option", option])])}`;
  try {
    await navigator.clipboard.writeText(link);
    tools.tell("The link was copied.");
  } catch {
    tools.tell(link);
  }
}

function filePick(text, accept, more, picked) {
  const input = el("input", { type: "file", accept, ...more, hidden: true, onchange: () => {
    if (input.files.length > 0) picked([...input.files]);
    input.value = "";
  } });
  return el("span", {}, input, button(text, () => input.click()));
}

// Lives of a player of sense, until one fits.
function findOne(tools, race) {
  const want = el("input", { size: "40", spellcheck: "false", value: "Pilot >= 2 and age < 40" });
  const everybody = el("input", { type: "checkbox" });
  const told = el("p", { role: "status" }, "Numbers, skills, characteristics and texts, as: was = Navy, cash >= 50000, not enemies > 0");
  let searching = null;  // the search that goes on
  const find = button("Find", search, { class: "first" });
  const stop = button("Cancel", () => { searching = null; }, { disabled: true });
  async function search() {
    if (searching !== null) return;
    const mine = searching = {};
    find.disabled = true;
    stop.disabled = false;
    told.className = "";
    const seed = String(Math.floor(Math.random() * 1e9));
    try {
      for (let first = 1; searching === mine && box.open;) {
        const answer = await tools.searcher.call({ do: "find", want: want.value, seed, first, lives: 250,
          terms: 4, method: setting.method, options: setting.options, ...(everybody.checked ? {} : { race }) });
        first = answer.next;
        if (searching !== mine || !box.open) break;
        if ("journal" in answer) {
          box.close();
          tools.openText(answer.journal, `found in ${first - 1} lives`);
          return;
        }
        told.textContent = `${(first - 1).toLocaleString("en")} lives, none fits yet`;
      }
    } catch (error) {
      told.textContent = error.message;
      told.className = "fault";
    }
    searching = null;
    find.disabled = false;
    stop.disabled = true;
  }
  const box = dialog("Find me one", field("Who fits", want), el("label", { class: "one" }, everybody, "Of any race"),
      el("div", { class: "answers" }, find, stop), told);
  box.addEventListener("close", () => { searching = null; });
  want.addEventListener("keydown", (event) => { if (event.key === "Enter") search(); });
  want.focus();
}
