#!/usr/bin/env python3
"""Makes an archive of a folder's files: the same bytes whoever makes it, and when.

usage: zip-rules.py FOLDER ARCHIVE
"""

import sys
import zipfile
from pathlib import Path

folder, archive = Path(sys.argv[1]), Path(sys.argv[2])
with zipfile.ZipFile(archive, "w") as out:
    for file in sorted(folder.iterdir(), key=lambda path: path.name):
        entry = zipfile.ZipInfo(file.name, date_time=(1980, 1, 1, 0, 0, 0))
        entry.external_attr = 0o644 << 16
        entry.create_system = 3
        entry.compress_type = zipfile.ZIP_DEFLATED
        out.writestr(entry, file.read_bytes(), compresslevel=9)
print(archive)
