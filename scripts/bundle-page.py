"""Puts the engine, the rule data and the page into one file: bundle-page.py ENGINE PAGE RULES ICON BUILD. ENGINE has
korvane-web.js and korvane-web.wasm, BUILD page.js; BUILD gets korvane.html. The same bytes each time."""

import base64
import hashlib
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import urllib.parse

engine, page, rules, icon, build = map(pathlib.Path, sys.argv[1:])


def packed(data: bytes) -> str:
    """As gzip has it, in letters. zopfli takes its time and saves a twentieth."""
    with tempfile.NamedTemporaryFile() as file:
        file.write(data)
        file.flush()
        return base64.b64encode(subprocess.run(["zopfli", "-c", file.name], stdout=subprocess.PIPE, check=True).stdout).decode()


def digest(script: str) -> str:
    return f"'sha256-{base64.b64encode(hashlib.sha256(script.encode()).digest()).decode()}'"


script = (build / "page.js").read_text()
assert "</script" not in script
# The pages of characters are shown in a frame, under this page's policy: their own script may run, and no other.
sheets = [digest(found) for file in sorted(rules.glob("template*.htm"))
          for found in re.findall(r"<script>(.*?)</script>", file.read_bytes().decode(), re.S)]
texts = {
    "worker": (engine / "korvane-web.js").read_text() + "\n" + (page / "worker.js").read_text(),
    "rules": {file.name: file.read_bytes().decode() for file in sorted(rules.iterdir())},
}
filled = {
    "POLICY": "; ".join(["default-src 'none'", " ".join(["script-src 'wasm-unsafe-eval' blob:", digest(script), *sheets]), "worker-src blob:",
                         "style-src 'unsafe-inline'", "img-src data: blob:", "frame-src blob:", "base-uri 'none'", "form-action 'none'"]),
    "ICON": "data:image/svg+xml," + urllib.parse.quote(icon.read_text()),
    "STYLE": (page / "style.css").read_text(),
    "WASM": packed((engine / "korvane-web.wasm").read_bytes()),
    "TEXTS": packed(json.dumps(texts, ensure_ascii=False, separators=(",", ":")).encode()),
    "SCRIPT": script,
}
html = re.sub(r"@([A-Z]+)@", lambda found: filled[found[1]], (page / "index.html").read_text())
(build / "korvane.html").write_text(html)
print(f"build/web/korvane.html: {len(html):,} bytes")
