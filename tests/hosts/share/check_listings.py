#!/usr/bin/env python3
"""Validates what each command writes in JSON for each board of a folder: check_listings.py PROGRAM SHARE FOLDER

Boards are .cvg and .xml files, as they are or packed with zstd. Rows are counted against what an XML parser finds, and lines
of JSON compared with the rows.
"""

import copy
import io
import json
import subprocess
import sys
import xml.etree.ElementTree
from pathlib import Path

try:
    import jsonschema
except ImportError:
    jsonschema = None

COMMANDS = [
    ["info", "--all"], ["bom"], ["components"], ["nets"], ["nets", "--physical"], ["layers"], ["stackup"],
    ["packages"], ["pins"], ["pads"], ["holes"], ["tracks"], ["check"],
]
# For the first board alone.
VARIANTS = [
    ["info"], ["info", "--units", "mil"], ["bom", "--sort"], ["components", "--sort", "--units", "mm"],
    ["components", "--columns", "placement"], ["components", "--columns", "position", "--fitted"],
    ["components", "--columns", "designator,value"], ["bom", "--group", "value"], ["bom", "--group", "part"],
    ["bom", "--group", "package", "--sort"],
    ["nets", "--physical", "--units", "inch"], ["pins", "--sort"], ["holes", "--sort"], ["tracks", "--units", "um"],
]
# The elements that a row stands for: the list, the element, and the one around it. Of a board with pad stacks, holes
# may stand twice and pads in two places.
ROWS = {
    "components": ("Component", "Step"), "nets": ("LogicalNet", "Step"), "points": ("PhyNetPoint", "PhyNet"),
    "layers": ("Layer", "CadData"), "stackup": ("StackupLayer", "StackupGroup"), "packages": ("Package", "Step"),
    "pads": ("Pad", "Set"), "holes": ("Hole", "Set"), "items": ("BomItem", "Bom"),
}
# Longer lists are validated by one row of each kind.
FEW = 1000
# In bytes; the lines of a larger listing are not compared with it, as they would only take long.
LARGE = 4000000
# The status of a test that is skipped.
SKIPPED = 77
ENDINGS = (".cvg", ".xml", ".cvg.zst", ".xml.zst")


def kind_of(value):
    if isinstance(value, dict):
        return tuple((key, kind_of(inner)) for key, inner in value.items())
    return (type(value).__name__, tuple({kind_of(inner) for inner in value}) if isinstance(value, list) else None)


def thinned(listing):
    """With each list of rows that is too long to be validated whole cut down to the rows that differ in their types."""
    thin = dict(listing)
    for key, value in listing.items():
        if isinstance(value, list) and len(value) > FEW:
            thin[key] = list({kind_of(row): row for row in value}.values())
    return thin


def objects_in(value):
    """All objects of a listing, but only the first of the rows of a list."""
    if isinstance(value, dict):
        yield value
        for inner in list(value.values()):
            yield from objects_in(inner)
    elif isinstance(value, list) and value:
        yield from objects_in(value[0])


def unknown_keys_that_pass(validator, listing):
    """How many objects of the listing may have one more key without anybody noticing."""
    count = 0
    for place in range(len(list(objects_in(listing)))):
        changed = copy.deepcopy(listing)
        list(objects_in(changed))[place]["one_more"] = 1
        count += validator.is_valid(changed)
    return count


def elements_of(board):
    """How often each element stands in each other one; None for a board of which only a part is read."""
    packed = board.name.endswith(".zst")
    content = subprocess.run(["zstd", "-dcq", board], capture_output=True, check=True).stdout if packed else None
    counts, around = {}, []
    for event, element in xml.etree.ElementTree.iterparse(io.BytesIO(content) if packed else board, ("start", "end")):
        if event == "end":
            around.pop()
            element.clear()
            continue
        name = element.tag.rpartition("}")[2]
        place = (name, around[-1] if around else "")
        counts[place] = counts.get(place, 0) + 1
        around.append(name)
    is_whole = counts.get(("Step", "CadData"), 0) == 1 and counts.get(("Bom", "IPC-2581"), 0) <= 1
    return counts if is_whole and ("PadStack", "Step") not in counts else None


def miscounted(listing, elements):
    for key, place in ROWS.items():
        counted = elements.get(place, 0)
        # The nets of a file without any are made of its sets.
        if isinstance(listing.get(key), list) and len(listing[key]) != counted and (counted or key != "nets"):
            yield f"{len(listing[key])} {key}, but {counted} times {place[0]} in the file"


def lines_of(listing):
    """The lines of JSON that are to say the same."""
    head = {key: listing[key] for key in ("file", "step", "units")}
    if "other" in listing:
        head["other"] = {key: listing["other"][key] for key in head}
    sections = {key: value for key, value in listing.items() if key not in (*head, "warnings")}
    for key, section in sections.items():
        own = head if len(sections) == 1 else head | {"section": key}
        for row in section if isinstance(section, list) else [section]:
            yield own | {f"{key}_{name}" if name in own else name: value for name, value in row.items()}


def findings_of_lines(validator, program, arguments, listing):
    run = subprocess.run([program, *arguments, "--format", "jsonl"], capture_output=True, check=False)
    lines = [json.loads(line) for line in run.stdout.splitlines()]
    if lines != list(lines_of(listing)):
        return ["the lines of JSON are not the rows"]
    for line in {kind_of(line): line for line in lines}.values():
        error = jsonschema.exceptions.best_match(validator.iter_errors(line))
        if error is not None:
            return [f"line of JSON: {list(error.absolute_path)}: {error.message}"]
        if validator.is_valid(line | {"one_more": 1}):
            return ["the schema of the lines lets keys pass that it does not know"]
    return []


def findings_of(validators, program, arguments, is_first_board, elements):
    validator, validator_of_lines = validators
    run = subprocess.run([program, *arguments, "--format", "json"], capture_output=True, check=False)
    if run.returncode not in ((0, 1) if arguments[0] in ("check", "diff") else (0,)):
        # What the board does not tell nobody can convert.
        if b"does not tell its units" in run.stderr and "--units" in arguments:
            return []
        return [f"status {run.returncode}: {run.stderr.decode()}"]
    whole = json.loads(run.stdout)
    listing = thinned(whole)
    error = jsonschema.exceptions.best_match(validator.iter_errors(listing))
    findings = [] if error is None else [f"{list(error.absolute_path)}: {error.message}"]
    if not findings and is_first_board and unknown_keys_that_pass(validator, listing) != 0:
        findings.append("the schema lets keys pass that it does not know")
    if elements is not None and arguments[0] not in ("info", "check", "diff") and "--fitted" not in arguments:
        findings += miscounted(whole, elements)
    is_large = len(run.stdout) > LARGE
    return findings + ([] if is_large else findings_of_lines(validator_of_lines, program, arguments, whole))


def validator_of(schema):
    schema = json.loads(schema.read_text(encoding="utf-8"))
    jsonschema.Draft202012Validator.check_schema(schema)
    return jsonschema.Draft202012Validator(schema)


def main():
    program, share, folder = sys.argv[1:]
    if jsonschema is None:
        print("jsonschema is not there (Debian package python3-jsonschema)")
        return SKIPPED
    if not Path(folder).is_dir():
        print(f"{folder} is not there, so its boards are skipped")
        return SKIPPED
    validators = [validator_of(Path(share) / name) for name in ("listings.schema.json", "lines.schema.json")]
    boards = sorted(path for path in Path(folder).iterdir() if path.name.endswith(ENDINGS))
    failures = counted = 0
    for board in boards:
        elements = elements_of(board)
        counted += elements is not None
        commands = COMMANDS + (VARIANTS if board == boards[0] else [])
        for arguments in [[*command, str(board)] for command in commands] + [["diff", str(board), str(boards[0])]]:
            for finding in findings_of(validators, program, arguments, board == boards[0], elements):
                print(f"ipc2581 {' '.join(arguments)}: {finding}")
                failures += 1
    print(f"{len(boards)} boards, {counted} of them counted, {failures} findings")
    return 1 if failures or not boards else 0


if __name__ == "__main__":
    sys.exit(main())
