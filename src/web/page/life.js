// A life as it is lived: the question, the character, the history.

import { button, choices, download, el, field, picture, replace } from "./dom.js";
import { oddsPanel } from "./odds.js";
import { answersTo } from "./questions.js";

function character(state) {
  return el("section", { class: "card", "aria-labelledby": "character" },
      el("h2", { id: "character" }, `${state.race}, ${state.age}`),
      el("p", {}, `${state.career} (${state.assignment}). ${state.rank}`),
      el("ul", { class: "figures", "aria-label": "Characteristics" }, state.characteristics.map(([name, value, modifier]) =>
          el("li", {}, el("span", {}, name), el("b", {}, String(value)), el("span", {}, modifier)))),
      el("h3", {}, "Skills"),
      el("ul", { class: "skills" }, state.skills.map((skill) => el("li", {}, skill))),
      el("details", {}, el("summary", {}, "Details"),
          el("ul", {}, [...state.details, ...state.associates].filter((line) => line.trim() !== "").map((line) => el("li", {}, line))),
          el("p", { class: "fine" }, state.homeWorld)));
}

function history(state, tools) {
  const items = state.history.map((line, i) => line.kind === "term"
    ? el("li", { class: "term" }, el("h3", {}, line.text),
        button("Back to here", () => tools.backTo(i), { "aria-label": `Back to here: ${line.text}` }))
    : el("li", { class: line.kind }, line.text));
  return el("section", { class: "card", "aria-labelledby": "history" }, el("h2", { id: "history" }, "History"),
      state.strip ? el("div", { class: "wide", tabindex: "0", role: "region", "aria-label": "The life in one picture" },
        picture(state.strip, state.sentence)) : null,
      el("ol", { class: "story" }, items));
}

// Heard with the question, as they describe it.
function notices(state) {
  return el("div", { id: "notices" }, state.notices.map((text) => el("p", { class: "notice" }, text)));
}

function asked(state, tools) {
  const title = el("h2", { id: "question", tabindex: "-1", "data-focus": "", "aria-describedby": "notices" }, state.question.title);
  return el("section", { class: "card question", "aria-labelledby": "question" },
      notices(state),
      state.history.length > 0 ? el("p", { class: "fine recent" }, state.history.slice(-3).map((line) => line.text).join(" · ")) : null,
      title, answersTo(state.question, tools.answer, tools),
      oddsPanel(tools.searcher, state.journal, () => tools.isCurrent(state)));
}

const kFormats = [["json", "Document (JSON)", "json"], ["md", "Notes (Markdown)", "md"], ["csv", "Table (CSV)", "csv"],
  ["foundry-journal", "Journal entry of a virtual tabletop", "entry.json"], ["foundry-actor", "Actor of a virtual tabletop", "actor.json"]];

function exported(state, tools) {
  const name = el("input", { maxlength: "200", spellcheck: "false" });
  const formats = [...tools.rules.templates.map((file) => [file, file, "htm"]), ...kFormats];
  let chosen = formats.find(([id]) => id === "template.htm") ?? formats[0];
  const file = () => `${name.value.replace(/[^A-Za-z]/g, "") || "Character"}.${chosen[2]}`;
  const made = () => tools.engine.call({ do: "export", journal: state.journal, format: chosen[0], name: name.value });
  const bytesOf = (page) => Uint8Array.from(page.bytes, (letter) => letter.charCodeAt(0));
  const save = async () => {
    const answer = await made();
    if ("bytes" in answer) download(file(), bytesOf(answer), "text/html");
    else download(file(), answer.text);
  };
  const guarded = (action) => () => action().catch((error) => tools.tell(error.message));
  const roll = async (again) => { name.value = (await tools.engine.call({ do: "name", journal: state.journal, roll: again ? 1 : 0 })).name; };
  roll(false).catch((error) => tools.tell(error.message));
  // It has this page's policy: no script runs in it but the sheet's own, and it leads nowhere else.
  const frame = el("iframe", { title: "The page", hidden: true });
  const show = async (print) => {
    if (chosen[2] !== "htm") return;
    // A portrait is the player's to supply, where the page goes.
    const answer = await made();
    const html = new TextDecoder(answer.encoding).decode(bytesOf(answer)).replace(/<img src=[^ >]*\.jpg>/, "");
    frame.hidden = false;
    await new Promise((resolve) => { frame.onload = resolve; frame.srcdoc = html; });
    if (print) frame.contentWindow.print();
  };
  return el("section", { class: "card", "aria-labelledby": "export" }, el("h2", { id: "export" }, "Take it with you"),
      field("Name", name), button("Roll a name", guarded(() => roll(true))),
      field("As", choices(formats.map(([, caption]) => caption), chosen[1], (caption) => {
        chosen = formats.find((format) => format[1] === caption);
        frame.hidden = true;
      })),
      el("div", { class: "answers" },
          button("Download", guarded(save), { class: "first" }),
          button("Show the page", guarded(() => show(false))), button("Print", guarded(() => show(true)))),
      frame);
}

function anotherLife(state, tools) {
  const place = el("div", { class: "answers" });
  tools.engine.call({ do: "from term", journal: state.journal }).then(({ terms }) => {
    let term = terms.at(-1)?.[1];
    if (terms.length === 0) return;
    replace(place, field("Another life from", choices(terms.map(([, heading]) => heading), term, (heading) => { term = heading; })),
        button("Live on with new dice", async () => {
          const [number] = terms.find(([, heading]) => heading === term);
          const { journal } = await tools.engine.call({ do: "from term", journal: state.journal, term: number });
          tools.openText(journal, "");
        }));
  }).catch(() => {});
  return place;
}

function ended(state, tools) {
  const finished = state.end === "mustered out";
  const title = finished ? "The life is lived" : state.end === "scrapped" ? "The character was scrapped" : "An error ended the life";
  return [
    el("section", { class: "card question", "aria-labelledby": "question" },
        notices(state),
        el("h2", { id: "question", tabindex: "-1", "data-focus": "", "aria-describedby": "notices" }, title),
        state.message ? el("p", { class: "fault" }, state.message) : null,
        state.open.length > 0 ? el("p", {}, `Still to decide: ${state.open.join(", ")}`) : null,
        finished ? el("p", {}, state.luck) : null,
        el("div", { class: "answers" }, button("A new character", tools.newLife, { class: "first" })),
        finished ? anotherLife(state, tools) : null),
    finished ? exported(state, tools) : null,
  ];
}

// `tools`: the rules, the engines, and what carries out the player's wishes. Gives the elements.
export function lifeScreen(state, tools) {
  return [
    el("nav", { class: "steps", "aria-label": "Steps" },
        button("Back", tools.back, { disabled: !tools.mayGoBack(), "aria-keyshortcuts": "Control+Z", title: "Ctrl+Z" }),
        button("Forward", tools.forward, { disabled: !tools.mayGoForward(), "aria-keyshortcuts": "Control+Y", title: "Ctrl+Y" }),
        button("Save the journal", () => download("character.jsonl", state.journal)),
        button("Lives", tools.showLives), button("New character", tools.newLife)),
    "question" in state ? asked(state, tools) : ended(state, tools),
    character(state), history(state, tools),
  ].flat();
}
