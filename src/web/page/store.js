// The lives that the browser keeps: their journals, and what goes with them. Where it keeps nothing, they last as long
// as the page.

const kKey = "korvane.lives";
let lives = read();

function read() {
  try {
    return JSON.parse(localStorage.getItem(kKey) ?? "[]");
  } catch {
    return [];
  }
}

// Whether the browser took it.
function write() {
  try {
    localStorage.setItem(kKey, JSON.stringify(lives));
    return true;
  } catch {
    return false;
  }
}

// The newest first.
export function all() {
  return lives;
}

export function keep(life) {
  lives = [life, ...lives.filter((each) => each.id !== life.id)];
  return write();
}

export function drop(id) {
  lives = lives.filter((each) => each.id !== id);
  write();
}

export function newId() {
  return `${Date.now().toString(36)}-${Math.random().toString(36).slice(2, 8)}`;
}
