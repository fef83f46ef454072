// Makes elements. Texts are set as text, never as markup.

export function el(tag, properties = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (name.startsWith("on")) element.addEventListener(name.slice(2), value);
    else if (name in element && typeof value !== "string") element[name] = value;
    else if (value !== null && value !== undefined) element.setAttribute(name, value);
  }
  element.append(...children.flat().filter((child) => child !== null && child !== undefined && child !== ""));
  return element;
}

export function replace(element, ...children) {
  element.replaceChildren(...children.flat().filter((child) => child !== null && child !== undefined));
}

export function button(text, action, properties = {}) {
  return el("button", { type: "button", onclick: action, ...properties }, text);
}

// A button that a digit presses, which it shows.
export function numbered(number, text, action, properties = {}) {
  if (number > 9) return button(text, action, properties);
  const made = button("", action, { "data-key": String(number), "aria-keyshortcuts": String(number), ...properties });
  made.append(el("kbd", { "aria-hidden": "true" }, String(number)), text);
  return made;
}

// A field with its label.
export function field(label, control) {
  return el("label", { class: "field" }, el("span", {}, label), control);
}

export function choices(values, chosen, changed, properties = {}) {
  const select = el("select", { onchange: () => changed(select.value), ...properties },
      values.map((value) => el("option", { value, selected: value === chosen }, value)));
  return select;
}

// A picture that the engine drew, as a part of the page, so that it takes the page's colours.
export function picture(svg, sentence) {
  const drawn = document.importNode(new DOMParser().parseFromString(svg, "image/svg+xml").documentElement, true);
  drawn.setAttribute("role", "img");
  drawn.setAttribute("aria-label", sentence);
  return drawn;
}

// Hands a text, or bytes, to the user as a file.
export function download(name, content, type = "text/plain") {
  const address = URL.createObjectURL(new Blob([content], { type }));
  el("a", { href: address, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(address), 60000);
}

// A window over the page, closed by Escape.
export function dialog(title, ...children) {
  const heading = el("h2", { id: `dialog-${Math.random().toString(36).slice(2)}` }, title);
  const close = button("Close", () => box.close());
  const box = el("dialog", { "aria-labelledby": heading.id }, el("div", { class: "head" }, heading, close), ...children);
  box.addEventListener("close", () => box.remove());
  document.body.append(box);
  box.showModal();
  return box;
}
