#!/usr/bin/env python3
"""Makes what a fuzzer begins with: fuzz/seeds.py PAGE BOARD FOLDER

BOARD and each example of PAGE, docs/lines.md, become files in FOLDER. The list of them, which libFuzzer takes as
-seed_inputs=@FOLDER/list, stands beside them.
"""

import re
import shutil
import sys
from pathlib import Path

EXAMPLE = re.compile(r"^\*\*Example (\d+)\*\*, (?:inside `([^`]+)`)?.*?^```cvg\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def without_pictures(text):
    """Control pictures stand for characters that could not be seen."""
    return "".join(chr(ord(ch) - 0x2400) if 0x2400 <= ord(ch) <= 0x2420 else ch for ch in text)


def seed(place, lines):
    elements = place.split("/") if place else []
    front = "".join(f"<{element}>\n" for element in elements)
    back = "".join(f"</{element}>\n" for element in reversed(elements))
    return front + without_pictures(lines) + back


def main():
    page, board, folder = map(Path, sys.argv[1:])
    examples = EXAMPLE.findall(page.read_text(encoding="utf-8"))
    if not examples:
        sys.exit(f"{page} has no examples")
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("lines-*.cvg"):
        old.unlink()
    paths = [shutil.copy(board, folder)]
    for number, place, lines in examples:
        path = folder / f"lines-{int(number):03}.cvg"
        path.write_bytes(seed(place, lines).encode("utf-8"))
        paths.append(path)
    (folder / "list").write_text(",".join(map(str, paths)), encoding="utf-8")


if __name__ == "__main__":
    main()
