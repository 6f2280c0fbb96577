"""What docs/format.md tells of classes and their members."""

import re


def anchor_of(page, title):
    """The name of a heading within all pages."""
    return f"{page}_{re.sub(r'[^a-z0-9_-]', '', title.lower().replace(' ', '-'))}"


class Section:
    """What the page has under one heading: a class, where it is read from, and what fills its members."""

    def __init__(self):
        self.title = ""
        self.places = []
        self.sources = {}

    def add_row(self, cells, element):
        name, attribute, _, value, member, back = cells
        if not member:
            return
        if attribute:
            source = f"the attribute {attribute} of {element}"
        elif name.startswith("`"):
            source = f"the element {name}"
        else:
            source = f"the {name}"
        is_object = value.startswith(("[", "list of ["))
        if back and not is_object:
            source += f" (written back: {back})"
        self.sources.setdefault(member.strip("`").split(".")[0], []).append(source)

    def source_of(self, member):
        """A sentence about where a member comes from; empty where no row tells."""
        sources = list(dict.fromkeys(self.sources.get(member, [])))
        if not sources:
            return ""
        return "From " + ", ".join(sources[:6]) + (" and others." if len(sources) > 6 else ".")

    def place(self):
        """Where objects of the class are read from; empty for a class that no file fills."""
        if not self.title:
            return ""
        places = ", ".join(f"`{place}`" for place in self.places[:8]) or "the whole file"
        more = ", and others" if len(self.places) > 8 else ""
        return f"Read from {places}{more}; \\ref {anchor_of('format', self.title)} \"its rows in the format\"."


def format_sections(text):
    """The sections by the names of their classes."""
    sections, section, element, title = {}, None, "", ""
    for line in text.split("\n"):
        if line.startswith(("## ", "### ")):
            title = line.lstrip("# ")
            # The classes that no file fills are headings themselves.
            section = sections.setdefault(title, Section()) if title.startswith("CIPC") else None
        elif line.startswith("Class `"):
            section = sections.setdefault(line.split("`")[1], Section())
            section.title = title
            section.places += re.findall(r"`([^`]+)`", line)[1:]
        elif section is None:
            continue
        elif line.startswith("`") and "(" not in line:
            section.places += re.findall(r"`([^`]+)`", line)
        elif line.startswith("|") and not line.startswith(("| element", "|---")):
            cells = [cell.strip() for cell in line.strip("|").split("|")]
            element = cells[0] or element
            section.add_row(cells, element)
    return sections
