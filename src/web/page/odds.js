// What follows from each answer, while the player thinks; and what each career holds, before a life.

import { button, dialog, el, replace } from "./dom.js";

const kSteps = [20, 60, 200, 600, 1200, 2000];

// The panel stays as open as it was left.
let open = false;

function oddsTable(odds) {
  if (odds.columns.length === 0) return [el("p", {}, "Nothing that can be told differs between the answers.")];
  return [
    el("div", { class: "wide", tabindex: "0", role: "region", "aria-label": "Odds" }, el("table", {},
        el("thead", {}, el("tr", {}, el("th", { scope: "col" }, "Answer"),
            odds.columns.map((column, i) => el("th", { scope: "col", title: odds.meanings[i] }, column)))),
        el("tbody", {}, odds.rows.map((row) => el("tr", {}, el("th", { scope: "row" }, row.caption),
            row.cells.map((cell) => el("td", {}, cell))))))),
    el("ul", {}, odds.judgements.map((text) => el("li", {}, text))),
    el("p", { class: "fine" }, odds.note),
  ];
}

// `journal`: of the life that the question waits in. `mayGoOn`: whether it still does.
export function oddsPanel(engine, journal, mayGoOn) {
  const content = el("div", {});
  let running = false;
  async function run() {
    if (running) return;
    running = true;
    try {
      for (const [i, lives] of kSteps.entries()) {
        if (!panel.open || !mayGoOn()) break;
        replace(content, oddsTable(await engine.call({ do: "odds", lives, ...(i === 0 ? { journal } : {}) })));
      }
    } catch (error) {
      if (mayGoOn()) replace(content, el("p", {}, error.message));
    }
    running = false;
  }
  const panel = el("details", { class: "odds", open, ontoggle: () => {
    open = panel.open;
    if (open) run();
  } }, el("summary", {}, "Odds"), content);
  return panel;
}

// A cell with a bar of this share of its width.
function barred(text, share) {
  const cell = el("td", {}, text);
  cell.style.background = `linear-gradient(var(--accent), var(--accent)) left bottom / ${Math.round(100 * share)}% 3px no-repeat`;
  return cell;
}

// Lists careers for the character that waits; `chosen` gets a career and an assignment.
export async function compareCareers(engine, character, chosen) {
  const content = el("div", { class: "wide", tabindex: "0", role: "region", "aria-label": "Careers" });
  const note = el("p", { class: "fine", role: "status" }, "Living ...");
  const box = dialog("Compare careers", note, content);
  const opened = new Set();
  let sorted = null;   // by which column
  let upwards = false;
  let last = null;
  function show(odds) {
    last = odds;
    const careers = odds.places.filter((place) => place.assignment === "");
    if (sorted !== null) careers.sort((a, b) => ((b.means[sorted] ?? -1) - (a.means[sorted] ?? -1)) * (upwards ? -1 : 1));
    const most = odds.columns.map((_, i) => Math.max(...odds.places.map((place) => place.means[i] ?? 0), 1e-9));
    const row = (place) => el("tr", { class: place.assignment ? "inner" : "" },
        el("th", { scope: "row" }, place.assignment
            ? button(place.assignment, () => { box.close(); chosen(place.career, place.assignment); },
                { title: "Choose", "data-place": `${place.career}-${place.assignment}` })
            : button(`${opened.has(place.career) ? "▾" : "▸"} ${place.career}`, () => {
              if (!opened.delete(place.career)) opened.add(place.career);
              show(last);
            }, { "aria-expanded": String(opened.has(place.career)), "data-place": place.career })),
        place.cells.map((cell, i) => barred(cell, (place.means[i] ?? 0) / most[i])));
    const active = document.activeElement?.dataset.place;
    replace(content, el("table", {},
        el("thead", {}, el("tr", {}, el("th", { scope: "col" }, "Career"), odds.columns.map(([caption, meaning], i) =>
          el("th", { scope: "col", "aria-sort": sorted !== i ? null : upwards ? "ascending" : "descending" },
              button(caption, () => {
                upwards = sorted === i && !upwards;
                sorted = i;
                show(last);
              }, { title: meaning, "data-place": `column ${i}` }))))),
        el("tbody", {}, careers.flatMap((career) => [row(career), ...(opened.has(career.career)
          ? odds.places.filter((place) => place.career === career.career && place.assignment !== "").map(row) : [])]))));
    for (const each of content.querySelectorAll("button")) if (active !== undefined && each.dataset.place === active) each.focus();
    note.textContent = `${odds.lives} lives in each assignment, ${odds.terms} terms of service. Open a career and choose an assignment.`;
  }
  try {
    for (const [i, lives] of [20, 50, 100, 200, 300, 400, 600, 800, 1000].entries()) {
      if (!box.open) return;
      show(await engine.call({ do: "careers", lives, ...(i === 0 ? character : {}) }));
    }
  } catch (error) {
    note.textContent = error.message;
  }
}
