// Opens pages as readers do and says what is wrong: check-pages.mjs MODULES FOLDER PICTURES. FOLDER holds a folder of
// pages for each template; PICTURES gets those of the first and the last page of each.
//
// No page may be wider than the window, from a phone's to a desk's; axe, which knows what people need who hear pages or
// see little of them, must find nothing, light and dark; nothing is remarked on the console, and nothing fetched but the
// portrait. A sheet must print on two pages.

import { execFileSync } from "node:child_process";
import { mkdirSync, readdirSync, readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { basename, join, resolve } from "node:path";

const [modules, folder, pictures] = process.argv.slice(2).map((path) => resolve(path));
const require = createRequire(join(modules, "x.js"));
const puppeteer = require("puppeteer-core");
const axe = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

const kWidths = [390, 820, 1200];
const kMostPrinted = { template: 2 };
const faults = [];

// The history's tag writes rows with a width, and the strip is scrolled by itself on a phone; the rest is ours to mend.
async function findByAxe(page) {
  await page.evaluate(axe);
  return page.evaluate(async () => (await globalThis.axe.run()).violations.map(
      (found) => `${found.id}: ${found.nodes.map((node) => node.target).join(", ")}`));
}

async function look(page, name, taken) {
  for (const scheme of ["light", "dark"]) {
    await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
    for (const width of kWidths) {
      await page.setViewport({ width, height: 900 });
      const wide = await page.evaluate(() => document.documentElement.scrollWidth - document.documentElement.clientWidth);
      if (wide > 0) faults.push(`${name}: ${wide} px too wide at ${width}`);
      if (taken) await page.screenshot({ path: `${taken}-${scheme}-${width}.png`, fullPage: true });
      // One width each way is enough for what is read, not seen.
      if (width === (scheme === "light" ? kWidths.at(-1) : kWidths[0]))
        for (const found of await findByAxe(page)) faults.push(`${name}, ${scheme}, ${width}: ${found}`);
    }
  }
}

async function print(page, name, template, taken) {
  for (const format of ["A4", "Letter"]) {
    const bytes = Buffer.from(await page.pdf({ format, preferCSSPageSize: true }));
    const count = bytes.toString("latin1").match(/\/Type\s*\/Page\b/g).length;
    if (count > (kMostPrinted[template] ?? 100)) faults.push(`${name}: ${count} pages of ${format}`);
    if (!taken) continue;
    writeFileSync(`${taken}-${format}.pdf`, bytes);
    execFileSync("pdftoppm", ["-r", "60", "-png", `${taken}-${format}.pdf`, `${taken}-${format}`]);
  }
}

const kBrowser = {
  executablePath: "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu", "--disable-background-networking", "--disable-component-update", "--disable-sync"],
};
mkdirSync(pictures, { recursive: true });

async function open(browser, template, file, files) {
  const name = `${template}/${file}`;
  const page = await browser.newPage();
  page.on("console", (message) => {
    // A portrait is the player's to supply.
    if (!message.location().url?.endsWith(".jpg")) faults.push(`${name}: ${message.text()}`);
  });
  page.on("pageerror", (error) => faults.push(`${name}: ${error}`));
  page.on("request", (request) => {
    if (!request.url().startsWith(`file://${folder}/`)) faults.push(`${name}: fetches ${request.url()}`);
  });
  await page.goto(`file://${join(folder, template, file)}`);
  const taken = file === files[0] || file === files.at(-1) ? join(pictures, `${template}-${basename(file, ".htm")}`) : "";
  await look(page, name, taken);
  await print(page, name, template, taken);
  await page.close();
}

const waiting = readdirSync(folder).flatMap((template) => {
  const files = readdirSync(join(folder, template)).filter((file) => file.endsWith(".htm") && file !== "index.htm").sort();
  return files.map((file) => [template, file, files]);
});
const seen = waiting.length;
// A browser for each processor: in one they would wait for each other's pictures.
await Promise.all([1, 2].map(async () => {
  const browser = await puppeteer.launch(kBrowser);
  for (let next = waiting.shift(); next !== undefined; next = waiting.shift()) await open(browser, ...next);
  await browser.close();
}));
for (const fault of faults) console.error(fault);
console.log(`${seen} pages, ${faults.length} faults`);
process.exit(faults.length > 0 ? 1 : 0);
