"""Reads back what korvane-cli prints for other programs: check-documents.py PROGRAM."""

import base64
import csv
import hashlib
import html.parser
import io
import json
import pathlib
import re
import subprocess
import sys
import tempfile

import commonmark
import jsonschema
import yaml

PROGRAM = sys.argv[1]
LIVES = 1000
HOSTILE = 'A & B <script>alert("x")</script>, "Jo": \'1;2\' *bold* | # - [y](z) é\ttab'
# A name for each of some characters more: what one of the targets can't hold as it is.
NAMES = ["del \x7f, C1 \x85 \x9b", "1. a list", "- a list", "> told", "# head", "a: b", "- ", "'single'", '"', "\\", "&amp;", "<!--", "|a|b|",
         "line \u2028 and \u2029", "\ufeffmark", "=1+2", "yes", "null", "~", "1e3", "{a}", "%", "@a", "`a`", "a\\", "Жук 虫 🚀", "~~~", "***", "===", "  "]


def run(*arguments: str) -> str:
    return subprocess.run([PROGRAM, *arguments], stdout=subprocess.PIPE, check=True).stdout.decode()


def generate(form: str, *more: str, count: int = LIVES) -> str:
    return run("generate", "--data", DATA, "--seed", "9", "--count", str(count), "--format", form, "--name", HOSTILE, *more)


class Texts(html.parser.HTMLParser):
    """The texts of list items and paragraphs, in order; any element that we don't write is an error."""

    def __init__(self) -> None:
        super().__init__()
        self.items: list[str] = []
        self.inside = False

    def handle_starttag(self, tag: str, attrs: list) -> None:
        assert tag in ("p", "h2", "h3", "ul", "li"), tag
        if tag in ("li", "p"):
            self.items.append("")
        self.inside = tag in ("li", "p")

    def handle_data(self, data: str) -> None:
        if self.inside:
            self.items[-1] += data


def shown(markdown: str) -> tuple[list[str], list[str]]:
    """What a Markdown reader shows: the headings, and the items of lists."""
    texts: dict[str, list[str]] = {"heading": [], "item": []}
    inside = ""
    for node, entering in commonmark.Parser().parse(markdown).walker():
        if node.t in texts:
            inside = node.t if entering else ""
            if entering:
                texts[node.t].append("")
        elif inside and node.t in ("text", "code"):
            texts[inside][-1] += node.literal
        assert node.t not in ("html_block", "html_inline", "code_block", "link", "image", "emph", "strong"), (node.t, node.literal)
    return texts["heading"], texts["item"]


def check_schemas(characters: list[dict]) -> None:
    schema = jsonschema.Draft202012Validator(json.loads(pathlib.Path("docs/character.schema.json").read_text()))
    for character in characters:
        schema.validate(character)
    schema.validate(json.loads(pathlib.Path("docs/samples/character.json").read_text()))
    lines = jsonschema.Draft202012Validator(json.loads(pathlib.Path("docs/journal.schema.json").read_text()))
    with tempfile.TemporaryDirectory() as folder:
        run("generate", "--seed", "5", "--count", "60", "--player", "random", "--journal", folder, "--format", "none")
        for journal in [*pathlib.Path(folder).iterdir(), pathlib.Path("docs/samples/journal.jsonl")]:
            for line in journal.read_text().splitlines():
                lines.validate(json.loads(line))


def joined(texts: list) -> str:
    return "; ".join(str(text) for text in texts)


def check_row(row: dict, character: dict) -> None:
    for key in ("name", "race", "career", "assignment", "homeWorld", "rankTitle", "education", "seed"):
        assert row[key] == str(character.get(key) or ""), (key, row[key])
    for key in ("age", "rank", "cash", "pension", "allies", "contacts", "rivals", "enemies", "number"):
        assert int(row[key]) == character[key], key
    assert float(row["medicalDebt"]) == character["medicalDebt"]
    assert row["history"].split("\n") == character["history"]
    assert row["skills"] == joined([f"{s['name']}-{s['level']}" for s in character["skills"]])
    for key in ("benefits", "careersServed", "open"):
        assert row[key] == joined(character[key]), key


def check_csv(characters: list[dict]) -> None:
    rows = list(csv.DictReader(io.StringIO(generate("csv"), newline="")))
    assert len(rows) == len(characters)
    for row, character in zip(rows, characters):
        check_row(row, character)


def check_note(note: str, character: dict) -> None:
    _, front, body = note.split("---\n", 2)
    held = yaml.safe_load(front)
    for key in ("name", "race", "career", "assignment", "age", "rank", "rankTitle", "cash", "pension", "medicalDebt", "contacts", "allies",
                "rivals", "enemies", "benefits", "careersServed", "education", "homeWorld", "open", "number", "seed"):
        wanted = character.get(key)
        if key in ("seed", "education"):
            wanted = str(wanted or "")
        assert held.get(key) == wanted, (key, held.get(key))
    assert held["skills"] == {s["name"]: s["level"] for s in character["skills"]}
    assert held["characteristics"] == {c["name"]: c["value"] for c in character["characteristics"]}
    headings, items = shown(body)
    name = character["name"].strip() and character["name"]
    # Readers drop blanks at the ends of a line, and at those of a heading, and show a tab or a line's end as they like.
    assert re.sub(r"\s+", " ", headings[0]).strip() == (re.sub(r"\s+", " ", name).strip() or "Nameless"), headings[0]
    lines = [line.strip() for line in items]
    assert lines[len(lines) - len(character["history"]):] == [line.strip() for line in character["history"]]


def check_markdown(characters: list[dict]) -> None:
    with tempfile.TemporaryDirectory() as folder:
        generate("md", "--out", folder)
        files = sorted(pathlib.Path(folder).iterdir())
        assert len(files) == len(characters)
        for file, character in zip(files, characters):
            check_note(file.read_bytes().decode(), character)


def check_names() -> None:
    """A character of each hostile name through every target."""
    for name in NAMES:
        told = {form: run("generate", "--data", "rules", "--seed", "9", "--name", name, "--format", form)
                for form in ("json", "csv", "md", "foundry-actor", "foundry-journal")}
        character = json.loads(told["json"])
        assert character["name"] == name
        check_row(next(csv.DictReader(io.StringIO(told["csv"], newline=""))), character)
        check_note(told["md"], character)
        entry = json.loads(told["foundry-journal"])
        assert json.loads(told["foundry-actor"])["name"] == entry["name"] == entry["pages"][0]["name"] == (name if name.strip() else "Nameless")


def check_tabletop(characters: list[dict]) -> None:
    entry = json.loads(generate("foundry-journal"))
    assert entry["name"] and len(entry["pages"]) == len(characters)
    for page, character in zip(entry["pages"], characters):
        assert page["name"] == character["name"] and page["type"] == "text" and page["text"]["format"] == 1
        texts = Texts()
        texts.feed(page["text"]["content"])
        told = iter(texts.items)
        assert all(line in told for line in character["history"]), "each line of the history, in order"
    for line, character in zip(generate("foundry-actor").splitlines(), characters):
        actor = json.loads(line)
        for key in ("name", "type", "img", "system", "items", "effects", "prototypeToken", "flags", "_stats"):
            assert key in actor, key
        assert actor["name"] == actor["prototypeToken"]["name"] == character["name"]
        groups = actor["system"]["attributes"]
        assert set(groups) == set(actor["system"]["groups"])
        assert all(" " not in key and "." not in key for group in groups.values() for key in group)
        assert {a["label"]: a["value"] for a in groups["Skills"].values()} == {
            s["name"]: s["level"] for s in character["skills"]}


def hostile_rules(folder: str) -> str:
    """The shipped rules with events that hold marks of every target."""
    subprocess.run(["cp", "-r", "rules/.", folder], check=True)
    for file in pathlib.Path(folder).glob("*.ecf"):
        text, inside = [], False
        for line in file.read_text().splitlines():
            if line.startswith("["):
                inside = line == "[Events]"
            elif inside and "/" in line:
                line = "1. " + HOSTILE.replace("/", "").replace("\t", " ") + " /" + line.split("/", 1)[1]
            text.append(line)
        file.write_text("\n".join(text) + "\n")
    return folder


def check_policies() -> None:
    """The script of a shipped template is the one that its policy lets run."""
    for file in pathlib.Path("rules").glob("template*.htm"):
        page = file.read_bytes().decode()
        assert "Content-Security-Policy" in page, file
        for script in re.findall(r"<script>(.*?)</script>", page, re.S):
            digest = base64.b64encode(hashlib.sha256(script.encode()).digest()).decode()
            assert f"'sha256-{digest}'" in page, f"{file}: the policy must name sha256-{digest}"


check_policies()
check_names()
with tempfile.TemporaryDirectory() as hostile:
    lived = 0
    for DATA in ("rules", hostile_rules(hostile)):
        told = [json.loads(line) for line in generate("json").splitlines()]
        check_schemas(told)
        check_csv(told)
        check_markdown(told)
        check_tabletop(told)
        lived += len(told)
    print(f"{lived} characters: the same in JSON, CSV, Markdown and for the virtual tabletop; all fit the schema")
