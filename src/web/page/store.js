// The lives that the browser keeps: their journals, and what goes with them; an entry each, so that pages beside each
// other don't take theirs from each other. Where it keeps nothing, they last as long as the page.

const kPrefix = "korvane.life.";
const unkept = new Map();  // by their ids

function entries() {
  try {
    return Object.keys(localStorage).filter((key) => key.startsWith(kPrefix)).map((key) => localStorage.getItem(key));
  } catch {
    return [];
  }
}

function parsed(text) {
  try {
    const life = JSON.parse(text);
    return typeof life.journal === "string" && typeof life.id === "string" ? [life] : [];
  } catch {
    return [];
  }
}

// The newest first.
export function all() {
  const lives = new Map([...entries().flatMap(parsed), ...unkept.values()].map((life) => [life.id, life]));
  return [...lives.values()].sort((a, b) => b.kept - a.kept);
}

// Whether the browser took it.
export function keep(life) {
  const entry = { ...life, kept: Date.now() };
  try {
    localStorage.setItem(kPrefix + life.id, JSON.stringify(entry));
    unkept.delete(life.id);
    return true;
  } catch {
    unkept.set(life.id, entry);
    return false;
  }
}

export function drop(id) {
  unkept.delete(id);
  try {
    localStorage.removeItem(kPrefix + id);
  } catch {
    // it kept nothing
  }
}

export function newId() {
  return `${Date.now().toString(36)}-${Math.random().toString(36).slice(2, 8)}`;
}
