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

import jsonschema
import yaml

PROGRAM = sys.argv[1]
LIVES = 1000
HOSTILE = 'A & B <script>alert("x")</script>, "Jo": \'1;2\' *bold* | # - [y](z) é\ttab'
MARKS = "\\`*_[]<>&|~#!-+=:.)"


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


def unmark(text: str) -> str:
    """What Markdown shows of a line: escaped marks as themselves."""
    shown, place = "", 0
    while place < len(text):
        place += text[place] == "\\" and place + 1 < len(text) and text[place + 1] in MARKS
        shown += text[place]
        place += 1
    return shown


def check_schemas(characters: list[dict]) -> None:
    schema = jsonschema.Draft202012Validator(json.loads(pathlib.Path("docs/character.schema.json").read_text()))
    for character in characters:
        schema.validate(character)
    schema.validate(json.loads(pathlib.Path("docs/samples/character.json").read_text()))
    lines = jsonschema.Draft202012Validator(json.loads(pathlib.Path("docs/journal.schema.json").read_text()))
    with tempfile.TemporaryDirectory() as folder:
        run("generate", "--seed", "5", "--count", "60", "--player", "random", "--journal", folder, "--format", "none")
        for journal in pathlib.Path(folder).iterdir():
            for line in journal.read_text().splitlines():
                lines.validate(json.loads(line))


def check_csv(characters: list[dict]) -> None:
    rows = list(csv.DictReader(io.StringIO(generate("csv"), newline="")))
    assert len(rows) == len(characters)
    for row, character in zip(rows, characters):
        for key in ("name", "race", "career", "assignment", "homeWorld", "rankTitle"):
            assert row[key] == character[key], (key, row[key])
        for key in ("age", "rank", "cash", "pension", "allies", "enemies", "number"):
            assert int(row[key]) == character[key], key
        assert row["history"].split("\n") == character["history"]
        assert row["skills"] == "; ".join(f"{s['name']}-{s['level']}" for s in character["skills"])
        assert row["benefits"] == "; ".join(character["benefits"])


def check_markdown(characters: list[dict]) -> None:
    with tempfile.TemporaryDirectory() as folder:
        generate("md", "--out", folder)
        files = sorted(pathlib.Path(folder).iterdir())
        assert len(files) == len(characters)
        for file, character in zip(files, characters):
            _, front, body = file.read_text().split("---\n", 2)
            held = yaml.safe_load(front)
            for key in ("name", "race", "career", "age", "rank", "cash", "benefits", "homeWorld", "open", "number"):
                assert held[key] == character[key], (key, held[key])
            assert held["skills"] == {s["name"]: s["level"] for s in character["skills"]}
            assert held["characteristics"] == {c["name"]: c["value"] for c in character["characteristics"]}
            lines = [unmark(line[2:]) for line in body.split("## History")[1].splitlines() if line.startswith("- ")]
            assert lines == [line for line in character["history"]], file
            title = next(line for line in body.splitlines() if line.startswith("# "))
            assert unmark(title[2:]) == character["name"]


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
