#!/usr/bin/env python3
"""Writes a Debian changelog of the project's own: a version each, the newest as of now, the others as of the day that the
metadata tell.

usage: debian-changelog.py CHANGELOG.md METAINFO VERSION SECONDS >debian/changelog

SECONDS is the time of VERSION, which must be the newest in both files.
"""

import re
import sys
import textwrap
import xml.etree.ElementTree as ElementTree
from datetime import datetime, timezone
from email.utils import format_datetime
from pathlib import Path

changelog, metainfo, version, seconds = sys.argv[1:]

parts = re.split(r"^## (.*)\n", Path(changelog).read_text(encoding="utf-8"), flags=re.MULTILINE)[1:]
versions = {name.strip(): text for name, text in zip(parts[::2], parts[1::2]) if name[0].isdigit()}
days = {release.get("version"): release.get("date") for release in ElementTree.parse(metainfo).iter("release")}
if list(versions)[:1] != [version] or list(days) != list(versions):
    sys.exit(f"The versions don't agree: {version} is built, {changelog} has {' '.join(versions)}, "
             f"{metainfo} has {' '.join(days)}.")

for name, text in versions.items():
    if name == version:
        moment = datetime.fromtimestamp(int(seconds), timezone.utc)
    else:
        print()
        moment = datetime.fromisoformat(days[name]).replace(tzinfo=timezone.utc)
    print(f"korvane ({name}) unstable; urgency=medium\n")
    for item in re.split(r"^- ", text, flags=re.MULTILINE)[1:]:
        words = re.sub(r"\[([^]]*)\]\([^)]*\)", r"\1", " ".join(item.split()))
        print(textwrap.fill(words, 78, initial_indent="  * ", subsequent_indent="    ", break_long_words=False,
                            break_on_hyphens=False))
    print(f"\n -- The Korvane developers <developers@korvane.example>  {format_datetime(moment)}")
