"""Words for what the headers say by form alone."""

import re

READS = "What reads lines throws CInvalidArgException for a line of blanks and for a value that its line does not " \
        "close, and CFileException if the file cannot be read or a limit is passed."
WRITES = "Export throws CFileException if the file cannot be written."
POSITIONS = "A position out of range is CInvalidArgException, except for GetAt and SetAt."
UNITS = "Lengths are in the unit that the document states, angles in degrees; nothing is converted by the core."
WRITTEN_LIST = "Writes each element at the same level, up to the first that gives 0; 1 for an empty list."
WRITTEN_ELEMENT = "Writes the element and what it holds, indented by level + 1 steps. Gives 1, or 0 if something in it " \
                  "could not be written."


def is_list(text):
    return "CExPtrArray<" in text or "public CArray<" in text


class OwnClass:
    """What the words for an operation take from the class that has it."""

    def __init__(self, name, of_list, owns_parts):
        self.name = name
        self.of_list = of_list
        self.owns_parts = owns_parts
        # The copy constructor has a comment.
        self.is_copy_told = False


def assignment(own):
    if own.is_copy_told:
        return "Copies what the copy constructor copies."
    if own.of_list:
        return "Copies the elements."
    # An assignment that copies such pointers themselves has a comment, or its copy constructor has.
    return "Copies the members, and of what pointers own the values." if own.owns_parts else "Copies the members."


def of_special_operation(own, code):
    """A constructor, the destructor, a comparison or an assignment that has no comment."""
    name = own.name
    copied = rf"\((?:const {name} ?&|{name} const ?&) ?\w*\)"
    if re.search(r"operator==\(.*= default;", code):
        return "True if all members are equal."
    if code.endswith("= delete;"):
        return "There is none."
    if code.startswith(f"{name}()"):
        return "An empty list." if own.of_list else "An object whose members have their first values."
    if code.startswith(f"~{name}()"):
        return "Deletes what the object owns."
    if re.match(name + copied, code):
        return "A copy of what the assignment copies."
    if re.match(rf"{name} ?& ?operator={copied}", code):
        return assignment(own)
    if re.match(rf"{name}(?:\({name} && \w+\)| & operator=\({name} &&)", code):
        return "Takes the contents over."
    return ""


def of_common_operation(own, code):
    """What many classes have under one name."""
    if code.startswith(f"{own.name} * clone()"):
        return "A new copy, the caller's to delete."
    if re.match(r"int Export\w*\(CStdioFile & file, int level\)", code):
        return WRITTEN_LIST if own.of_list else WRITTEN_ELEMENT
    if code.startswith("int Import(CArray<CString, CString> & tokens) override;"):
        return "Takes the attributes from the token list of its one line and gives 1."
    if code == "void Init();":
        return "Gives the members their first values again."
    return ""


def of_accessor(code):
    """What gets or sets a member before the eyes of the reader."""
    got = re.match(r".*\b\w+\(\) const \{ return (\w+)(?:->(\w+))?; \}", code)
    if got:
        return f"Gives {got.group(2)} of {got.group(1)}." if got.group(2) else f"Gives {got.group(1)}."
    put = re.match(r"void \w+\([^()]*\b(\w+)\) \{ (\*?)(\w+) = \*?\1; \}", code)
    if put:
        if put.group(2):
            return f"Copies the value into {put.group(3)}; the argument stays the caller's."
        return f"Sets {put.group(3)}."
    put = re.match(r"void \w+\(double (\w)\) \{ (\w+)->(?:(\w+) = |SetPoint_(\w)\()\1\)?; \}", code)
    if put:
        return f"Sets {put.group(3) or put.group(4)} of {put.group(2)}."
    return ""


def of_form(own, code):
    """What an operation of a plain form does; empty for any other."""
    bare = re.sub(r"^(virtual|constexpr|explicit) ", "", code)
    return of_special_operation(own, bare) or of_common_operation(own, bare) or of_accessor(code)


def owned_parts(body):
    return re.findall(r"^    (?:CIPC2581_\w+|CPointD) \* (\w+)(?: = nullptr)?;", body, re.MULTILINE)


def of_class(body, section, is_model):
    """The paragraphs that follow the comment of a class, out of its public part and of what the format tells of it."""
    head = body.split("{")[0]
    place = section.place() if section else ""
    owned = owned_parts(body)
    held = re.findall(r"^    (?:CIPC2581_\w+|CStringArray) (\w+);", body, re.MULTILINE)
    owns = [", ".join(owned) + " through pointers" if owned else "", ", ".join(held) + " by value" if held else ""]
    owns = "; ".join(text for text in owns if text)
    if not owns and "CExPtrArray<" in head:
        owns = "Its elements, which it deletes with itself"
    throws = [
        READS if re.search(r"(Add|Read\w*|Import|Process)\([^)]*(CStdioFile|CArray<CString)", body) else "",
        WRITES if "Export(" in body else "",
        POSITIONS if "CExPtrArray<" in head else "",
    ]
    has_lengths = is_model and re.search(r"^    (double|CPointD|CIPC2581_Point \*) ", body, re.MULTILINE)
    paragraphs = {
        "Element": place,
        "Owns": owns + "." if owns else "",
        "Throws": " ".join(text for text in throws if text),
        "Units": UNITS if has_lengths else "",
    }
    return [f"\\par {title}\n{text}" for title, text in paragraphs.items() if text]
