#!/usr/bin/env python3
"""Validates the head of the data in a page against its schema: check_page_data.py PROGRAM SCHEMA BOARD...

The first two boards are compared with each other too. Ends with 77 where there is no python3-jsonschema.
"""

import base64
import json
import re
import subprocess
import sys
import zlib

try:
    import jsonschema
except ImportError:
    print("Skipped: no python3-jsonschema")
    sys.exit(77)


def head_of(page):
    packed = re.search(rb'id="board-data">([A-Za-z0-9+/=]*)</script>', page).group(1)
    data = zlib.decompress(base64.b64decode(packed, validate=True))
    assert data[:8] == b"IPCPAGE1"
    length = int.from_bytes(data[8:12], "little")
    head = json.loads(data[12:12 + length])
    assert 12 + length + sum(column["bytes"] for column in head["columns"]) == len(data)
    return head


def main():
    program, schema, *boards = sys.argv[1:]
    with open(schema, encoding="utf-8") as file:
        validator = jsonschema.validators.validator_for({})(json.load(file))
    comparison = [boards[0], "--against", boards[1]]
    for arguments in [*([board] for board in boards), comparison]:
        page = subprocess.run([program, "html", *arguments, "-o", "-"], check=True, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL).stdout
        head = head_of(page)
        validator.validate(head)
        assert ("comparison" in head) == (arguments is comparison)
        head["unknown"] = 1
        assert not validator.is_valid(head), "the schema takes anything"
    print(f"{len(boards)} boards")


if __name__ == "__main__":
    main()
