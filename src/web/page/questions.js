// A question as the player sees it. Each gives its elements; `answer` takes what the engine understands.

import { button, choices, el, field, numbered } from "./dom.js";

function choose(question, answer) {
  return [el("div", { class: "answers" }, question.options.map(
      (text, i) => numbered(i + 1, text.trim() || "(nothing)", () => answer(i + 1),
          { value: String(i + 1), class: question.focus === i && question.focus > 0 ? "first" : null })))];
}

function select(question, answer) {
  const boxes = question.items.map((_, i) => el("input", { type: "checkbox", value: String(i + 1), onchange: note }));
  const told = el("output", {});
  const ok = button("OK", () => answer(marked()), { class: "first" });
  function marked() {
    return boxes.filter((box) => box.checked).map((box) => Number(box.value));
  }
  function note(event) {
    // A list of one moves its mark.
    if (question.maximum === 1 && event?.target.checked) for (const box of boxes) box.checked = box === event.target;
    const count = marked().length;
    ok.disabled = count < question.minimum || count > question.maximum || count === 0;
    told.textContent = `${count} selected, ${question.minimum === question.maximum ? "" : `${question.minimum} to `}${question.maximum} wanted`;
  }
  note();
  return [
    el("div", { class: "boxes" }, question.items.map((text, i) => el("label", {}, boxes[i], text))),
    told,
    el("div", { class: "answers" }, ok, button("Cancel", () => answer([]))),
  ];
}

function ask(question, answer) {
  return [el("div", { class: "answers" }, 
      numbered(1, "Yes", () => answer(true), { class: question.yes ? "first" : null }),
      numbered(2, "No", () => answer(false), { class: question.yes ? null : "first" }))];
}

function table(question, answer) {
  return [el("div", { class: "tables" }, question.columns.map((column, i) => el("section", {},
      numbered(i + 1, column.caption || "Unused table", () => answer(i + 1), { disabled: !column.enabled, value: String(i + 1) }),
      el("ol", {}, column.rows.map((row) => el("li", {}, row))))))];
}

function optionBoxes(rules, ticked) {
  const boxes = rules.options.map(([caption, explanation]) => {
    const box = el("input", { type: "checkbox", value: caption, checked: ticked.includes(caption) });
    return el("label", { title: explanation }, box, caption);
  });
  return {
    element: el("details", { class: "options" }, el("summary", {}, "Options"), el("div", { class: "boxes" }, boxes)),
    ticked: () => boxes.map((label) => label.firstChild).filter((box) => box.checked).map((box) => box.value),
  };
}

function endOfTerm(question, answer, { rules, confirm }) {
  const options = optionBoxes(rules, question.options);
  const kScrap = 4;
  const choice = (text, i) => numbered(i + 1, text, async () => {
    if (i + 1 !== kScrap || await confirm(question.scrap)) answer({ choice: i + 1, options: options.ticked() });
  });
  return [
    el("div", { class: "answers" }, question.buttons.map(choice)),
    options.element,
  ];
}

function transfer(question, answer) {
  let career = null;
  const assignments = el("div", { class: "answers" });
  const description = el("p", {});
  const pick = choices(["", ...question.careers.map((each) => each.name)], "", (name) => {
    career = question.careers.find((each) => each.name === name);
    description.textContent = career?.description ?? "";
    assignments.replaceChildren(...(career?.assignments ?? []).map((assignment, i) =>
        numbered(i + 1, assignment, () => answer({ career: career.name, assignment }))));
  });
  return [el("p", {}, question.notice), el("p", {}, question.cost), field("Career", pick), description, assignments,
    el("div", { class: "answers" }, button(question.end, () => answer(null)))];
}

function muster(question, answer) {
  const gambler = el("input", { type: "checkbox", disabled: !question.gambler });
  const press = (text, i) => numbered(i + 1, text, () => answer({ press: i, gambler: gambler.checked }),
      { disabled: !question.enabled[i] });
  return [
    el("div", { class: "answers" }, question.buttons.map(press)),
    el("label", { class: "one" }, gambler, question.use),
    el("p", {}, question.modifiers, " ", question.forfeit),
    el("div", { class: "wide", tabindex: "0", role: "region", "aria-label": "The career's table" }, el("table", {}, el("thead", {}, el("tr", {}, ["1D", "Cash", "Benefit"].map((text) => el("th", { scope: "col" }, text)))),
        el("tbody", {}, question.table.map(([cash, benefit], i) => el("tr", {},
            el("th", { scope: "row" }, String(i + 1)), el("td", {}, cash), el("td", {}, benefit)))))),
    el("p", {}, question.cash.length + question.benefits.length > 0
        ? `So far: ${[...question.cash, ...question.benefits].join(", ")}` : ""),
  ];
}

const kKinds = { choose, select, ask, table, "end of term": endOfTerm, transfer, muster };

// The elements below the question's title. `tools`: the rules, and a function that asks whether somebody is sure.
export function answersTo(question, answer, tools) {
  return kKinds[question.kind](question, answer, tools);
}
