// Plays lives in korvane.html as people do and says what is wrong: check-web.mjs MODULES PAGE PICTURES. By mouse, by keyboard
// alone, by touch on a phone; back, away and again; with rules that are broken; and one life in Firefox. axe must find
// nothing on any screen, light and dark; nothing is remarked on the console, nothing is fetched.

import { mkdirSync, mkdtempSync, readdirSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { basename, join, resolve } from "node:path";

const [modules, file, pictures] = process.argv.slice(2).map((path) => resolve(path));
const require = createRequire(join(modules, "x.js"));
const puppeteer = require("puppeteer-core");
const axe = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");
const faults = [];
mkdirSync(pictures, { recursive: true });

function check(holds, what) {
  if (!holds) faults.push(what);
}

// A page that tells of what it mustn't do.
async function watched(browser, { width = 1440, touch = false, hash = "" } = {}) {
  const page = await browser.newPage();
  page.on("console", (message) => faults.push(`console: ${message.text()}`));
  page.on("pageerror", (error) => faults.push(`error: ${error}`));
  page.on("request", (request) => {
    if (!/^(blob:|data:)/.test(request.url()) && !request.url().startsWith(`file://${file}`)) faults.push(`fetches ${request.url()}`);
  });
  // How long it takes from a press to the next question.
  if (browser.kind !== "firefox") await page.evaluateOnNewDocument(() => {
    window.stepTimes = [];
    let pressed = null;
    document.addEventListener("click", () => { pressed = performance.now(); }, true);
    new MutationObserver(() => {
      if (pressed === null || document.querySelector("[data-focus]:not([data-old])") === null) return;
      window.stepTimes.push(performance.now() - pressed);
      pressed = null;
    }).observe(document, { childList: true, subtree: true });
  });
  if (browser.kind !== "firefox") await page.setViewport({ width, height: 900, hasTouch: touch, isMobile: touch });
  await page.goto(`file://${file}${hash}`);
  await page.waitForSelector("[data-focus]", { timeout: 20000 });
  return page;
}

const seen = new Map();  // the screens that axe has read
async function read(page, screen) {
  if ((seen.get(screen) ?? 0) >= 2) return;
  seen.set(screen, (seen.get(screen) ?? 0) + 1);
  const width = page.viewport().width;
  for (const value of ["light", "dark"]) {
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value }]);
    await page.evaluate(axe);
    const found = await page.evaluate(async () => (await globalThis.axe.run({ iframes: false })).violations.map(
        (each) => `${each.id}: ${each.nodes.map((node) => node.target).join(", ")}`));
    for (const each of found) faults.push(`${screen}, ${value}, ${width}: ${each}`);
    await page.screenshot({ path: join(pictures, `${screen.replaceAll(" ", "-")}-${value}-${width}.png`), fullPage: screen === "end" });
  }
  await page.emulateMediaFeatures([]);
  // Narrow windows, and letters of twice the size.
  for (const [narrow, size] of [[width, "100%"], [360, "100%"], [390, "200%"], [width, "200%"]]) {
    await page.setViewport({ ...page.viewport(), width: narrow });
    await page.evaluate((wanted) => { document.documentElement.style.fontSize = wanted; }, size);
    const wide = await page.evaluate(() => document.documentElement.scrollWidth - document.documentElement.clientWidth);
    check(wide <= 0, `${screen}: ${wide} px too wide at ${narrow}, letters ${size}`);
  }
  await page.evaluate(() => { document.documentElement.style.fontSize = ""; });
  await page.setViewport({ ...page.viewport(), width });
}

// What is asked: the kind of the question by what its card holds; "end" after the life.
function screenOf(page) {
  return page.evaluate(() => {
    const card = document.querySelector(".question");
    if (card === null) return "set-up";
    if (card.querySelector(".tables")) return "tables";
    if (card.querySelector("input[type=checkbox][value='1']")) return "list";
    const text = card.querySelector("h2").textContent;
    if (/^(The life is|The character was|An error)/.test(text)) return "end";
    if (text.startsWith("Muster Out for ")) return "mustering out";
    if (text === "Select Transfer Career and Assignment") return "transfer";
    return text === "End of Term Options" ? "end of term" : "choice";
  });
}

// Marks what is shown, and waits for another.
const mark = (page) => page.evaluate(() => document.querySelector("[data-focus]").setAttribute("data-old", ""));
const changed = (page) => page.waitForSelector("[data-focus]:not([data-old])", { timeout: 10000 });
const told = (page) => page.evaluate(() => document.getElementById("page").textContent);

// The elements that answer, as a player of few words would: the first there is, four terms, then out.
async function answersIn(page, screen, terms, most = 3) {
  if (screen === "list") {
    const [, most] = /(\d+) wanted/.exec(await page.$eval("output", (output) => output.textContent));
    const boxes = await page.$$(".question .boxes input");
    return [...boxes.slice(0, Number(most)), (await page.$$(".question .answers button"))[0]];
  }
  if (screen === "end of term") return [await page.$(`.question [data-key="${terms > most ? 3 : 1}"]`)];
  if (screen === "transfer") return (await page.$$(".question .answers button")).slice(-1);
  if (screen === "tables") return [await page.$(".tables button:not(:disabled)")];
  return [await page.$(".question .answers button:not(:disabled)")];
}

// `act`: how an element is pressed. Lives to the end, after so many terms of service at most.
async function live(page, act, reading = true, most = 3) {
  let terms = 0;
  let steps = 0;
  for (let screen = await screenOf(page); screen !== "end"; screen = await screenOf(page)) {
    if (reading) await read(page, screen);
    if (screen === "end of term") ++terms;
    check(await page.evaluate(() => document.activeElement?.id === "question" || document.activeElement?.closest(".question") !== null),
        `the focus isn't at the question (${screen})`);
    await mark(page);
    for (const element of await answersIn(page, screen, terms, most)) await act(page, element);
    await changed(page);
    if (++steps > 400) throw new Error("the life doesn't end");
  }
  times.push(...await page.evaluate(() => window.stepTimes ?? []));
  if (reading) await read(page, "end");
  return steps;
}

const times = [];

const press = (page, text) => page.evaluate((wanted) => {
  const found = [...document.querySelectorAll("button")].find((each) => each.textContent.includes(wanted) && !each.disabled);
  found?.click();
  return found !== undefined;
}, text);

async function begin(page, act) {
  await mark(page);
  await act(page, await page.evaluateHandle(() => [...document.querySelectorAll("button")].find((each) => each.textContent === "Start the life")));
  await changed(page);
}

const click = (_, element) => element.click();
// Two quick ones in one place are a double click, which answers once.
const tap = async (_, element) => {
  const isButton = await element.evaluate((each) => each.tagName === "BUTTON");
  await element.tap();
  if (isButton) await new Promise((done) => setTimeout(done, 550));
};
// Tab to it, and the key that presses it.
async function byKeys(page, element) {
  for (let i = 0; i < 200; ++i) {
    if (await element.evaluate((wanted) => wanted === document.activeElement)) {
      await page.keyboard.press("Space");
      return;
    }
    await page.keyboard.press("Tab");
  }
  throw new Error("the keyboard doesn't reach an answer");
}

async function byMouse(browser) {
  const page = await watched(browser, { hash: "#seed=mouse" });
  await read(page, "set-up");
  await press(page, "Compare careers");
  await page.waitForSelector("dialog table", { timeout: 20000 });
  await page.evaluate(() => document.querySelector("dialog tbody button").click());
  await page.waitForSelector("dialog tr.inner");
  await read(page, "careers");
  await page.keyboard.press("Escape");
  await begin(page, click);
  // Some answers, and as often back.
  const texts = [];
  for (let i = 0; i < 5; ++i) {
    texts.push(await page.$eval("#question", (title) => title.textContent));
    await mark(page);
    for (const element of await answersIn(page, await screenOf(page), 0)) await element.click();
    await changed(page);
  }
  await page.evaluate(() => document.querySelector("details.odds").setAttribute("open", ""));
  await page.waitForSelector(".odds p, .odds table", { timeout: 20000 });
  await read(page, "odds");
  await page.evaluate(() => document.querySelector("details.odds").removeAttribute("open"));
  const furthest = await told(page);
  for (let i = 5; i-- > 0;) {
    await mark(page);
    await page.keyboard.down("Control");
    await page.keyboard.press("z");
    await page.keyboard.up("Control");
    await changed(page);
    check(await page.$eval("#question", (title) => title.textContent) === texts[i], `back doesn't lead to "${texts[i]}"`);
  }
  for (let i = 0; i < 5; ++i) {
    await mark(page);
    await press(page, "Forward");
    await changed(page);
  }
  const bare = (text) => text.replace(/Odds.*?(?=Imperial|Aslan|Hirrask|Quorrim|Tolloum)/s, "");
  check(bare(await told(page)) === bare(furthest), "forward doesn't lead where back came from");
  // Away, and here again, though a link led here.
  await page.reload();
  await page.waitForSelector("#question");
  check(bare(await told(page)) === bare(furthest), "a reload loses the life");
  const steps = await live(page, click);
  await press(page, "Show the page");
  await page.waitForSelector("iframe:not([hidden])");
  // Its own script makes a row of each term.
  await page.waitForFunction(() => document.querySelector("iframe").contentDocument?.querySelectorAll(".life tr").length > 1, { timeout: 10000 });
  await read(page, "sheet");
  await page.close();
  return steps;
}

async function withBrokenRules(browser) {
  const folder = mkdtempSync(join(tmpdir(), "korvane-"));
  try {
    const rules = resolve("rules");
    for (const name of readdirSync(rules)) writeFileSync(join(folder, name), readFileSync(join(rules, name)));
    const broken = join(folder, "Aslan-Rimguard.ecf");
    writeFileSync(broken, readFileSync(broken, "utf8").replace(/^Qualification.*/m, "Qualifcation?"));
    const page = await watched(browser, { hash: "#seed=broken" });
    const use = async () => {
      const [chooser] = await Promise.all([page.waitForFileChooser(), press(page, "Use own rules")]);
      await chooser.accept(readdirSync(folder).map((name) => join(folder, name)));
    };
    await use();
    await page.waitForSelector("dialog li.fault", { timeout: 20000 });
    const fault = await page.$eval("dialog li.fault", (item) => item.textContent);
    check(fault.startsWith("Aslan-Rimguard.ecf:"), `the mistake is told as "${fault}"`);
    await read(page, "mistakes");
    await page.keyboard.press("Escape");
    writeFileSync(broken, readFileSync(join(rules, "Aslan-Rimguard.ecf")));
    await use();
    await page.waitForFunction(() => document.getElementById("status").textContent.includes("your own rules are used"), { timeout: 20000 });
    await page.close();
  } finally {
    rmSync(folder, { recursive: true });
  }
}

// Files that are dropped: a life that is lived to the end, one that is much too long, a folder of rules.
async function dropped(browser) {
  const page = await watched(browser, { hash: "#seed=drop" });
  await page.evaluate(() => localStorage.clear());
  const drop = (files) => page.evaluate((texts) => {
    const data = new DataTransfer();
    for (const [name, text] of texts) data.items.add(new File([text], name));
    document.dispatchEvent(new DragEvent("drop", { dataTransfer: data, bubbles: true }));
  }, files);
  const status = (text) => page.waitForFunction((wanted) => document.getElementById("status").textContent.includes(wanted), { timeout: 20000 }, text);
  await begin(page, click);
  await live(page, click, false);
  const journal = await page.evaluate(() => JSON.parse(localStorage.getItem(Object.keys(localStorage)[0])).journal);
  await mark(page);
  await drop([["life.txt", journal]]);
  await changed(page);
  const kept = await page.evaluate(() => Object.keys(localStorage).map((key) => JSON.parse(localStorage.getItem(key)).journal));
  check(kept.length === 2 && kept[0] === kept[1], "opening a journal changes it");
  await drop([["huge.jsonl", `{"journal":${"9".repeat(3000000)}`]]);
  await status("the journal:1");
  await drop([["Nobody.eri", "x"]]);
  await page.waitForSelector("dialog li.fault", { timeout: 20000 });
  await page.keyboard.press("Escape");
  // After all that the rules of before are used, and the page answers.
  await press(page, "New character");
  await page.waitForSelector(".figures li");
  // Two quick clicks answer once.
  await begin(page, click);
  for (let screen = await screenOf(page); screen === "list"; screen = await screenOf(page)) {
    await mark(page);
    for (const element of await answersIn(page, screen, 0)) await element.click();
    await changed(page);
  }
  const answered = () => page.evaluate(() => Math.max(...Object.keys(localStorage).map((key) => JSON.parse(localStorage.getItem(key))).filter((life) => life.end === "")
      .map((life) => life.journal.split("\n").filter((line) => /"(picked|answer|marked|press|transfer)":/.test(line)).length)));
  const before = await answered();
  const [first] = await page.$$(".question .answers button:not(:disabled), .tables button:not(:disabled)");
  await first.click({ count: 2 });
  await new Promise((done) => setTimeout(done, 500));
  check(await answered() === before + 1, "a double click answers twice");
  await page.close();
}

async function findOne(browser) {
  const page = await watched(browser, { hash: "#seed=find" });
  await press(page, "Find me one");
  await page.waitForSelector("dialog input");
  await read(page, "wish");
  await page.evaluate(() => { document.querySelector("dialog input").value = "Pilto >= 2"; });
  await page.evaluate(() => [...document.querySelectorAll("dialog button")].find((each) => each.textContent === "Find").click());
  await page.waitForSelector("dialog .fault", { timeout: 20000 });
  check((await page.$eval("dialog .fault", (text) => text.textContent)).includes("Pilot"), "the nearest name isn't told");
  await page.evaluate(() => {
    document.querySelector("dialog input").value = "age < 40 and rank >= 2";
    [...document.querySelectorAll("dialog button")].find((each) => each.textContent === "Find").click();
  });
  await page.waitForFunction(() => document.querySelector(".question h2")?.textContent === "The life is lived", { timeout: 30000 });
  await page.close();
}

const chromium = await puppeteer.launch({ executablePath: "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--disable-background-networking", "--disable-component-update", "--disable-sync"] });
const steps = [];
async function run(name, action) {
  try {
    const result = await action();
    console.log(`${name}: done${typeof result === "number" ? `, ${result} answers` : ""}`);
    if (typeof result === "number") steps.push(result);
  } catch (error) {
    faults.push(`${name}: ${error.stack}`);
  }
}
await run("a life by mouse", () => byMouse(chromium));
await run("a life by keyboard", async () => {
  const page = await watched(chromium, { width: 820, hash: "#seed=keys&race=Aslan" });
  await begin(page, byKeys);
  return live(page, byKeys);
});
await run("a life of ten terms", async () => {
  const page = await watched(chromium, { hash: `#seed=long&option=${encodeURIComponent("Force no Ejection on Mishap")}` });
  await begin(page, click);
  return live(page, click, false, 9);
});
await run("a life by touch at 390 px", async () => {
  const page = await watched(chromium, { width: 390, touch: true, hash: "#seed=touch&race=Hirrask" });
  await read(page, "set-up");
  await begin(page, tap);
  return live(page, tap);
});
await run("rules that are broken", () => withBrokenRules(chromium));
await run("what is dropped", () => dropped(chromium));
await run("find me one", () => findOne(chromium));
await chromium.close();

if (process.env.KORVANE_NO_FIREFOX === undefined)
  await run("a life in Firefox", async () => {
    const firefox = await puppeteer.launch({ browser: "firefox", executablePath: "/usr/bin/firefox-esr", headless: true });
    try {
      firefox.kind = "firefox";
      const page = await watched(firefox, { hash: "#seed=fox" });
      await begin(page, click);
      return await live(page, click, false);
    } finally {
      await firefox.close();
    }
  });

for (const fault of new Set(faults)) console.error(fault);
times.sort((a, b) => a - b);
console.log(`${times.length} presses: ${times[times.length >> 1].toFixed(0)} ms in the middle to the next question, ${times.at(-1).toFixed(0)} ms at most`);
console.log(`${steps.length} lives by hand, ${seen.size} screens read by axe: ${faults.length} faults (pictures: ${basename(pictures)})`);
process.exit(faults.length > 0 ? 1 : 0);
