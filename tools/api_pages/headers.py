"""The public headers as Doxygen wants them."""

import re

from api_pages import words

OPENING = re.compile(r"\s*(?:template <.*>\s+)?(class|struct|enum(?: class)?|namespace)\b\s*(?:IPC2581_API )?(\w*)")
# What needs no description of its own.
SILENT = re.compile(r"\s*(namespace|using|static_assert|\}|friend class|class \w+;|struct \w+;)")


def escaped(line):
    """A comment as Doxygen takes it: what looks like a tag, a command or a link is text."""
    line = re.sub(r'"[^"]*"', lambda match: match.group().replace("<", "&lt;").replace(">", "&gt;"), line)
    line = re.sub(r"<(/?[A-Za-z]\w*>?)", r"&lt;\1", line)
    return line.replace("\\", "\\\\").replace("#", "\\#").replace("::delete", "\\::delete")


def doc(text, indent):
    return [f"{indent}/// {line}".rstrip() for line in text.split("\n")] if text else []


def code_of(text):
    """A declaration on one line, without its comments."""
    return " ".join(re.sub(r"//.*", "", text).split()).replace("( ", "(")


def trailing_of(text):
    return "\n".join(escaped(line) for line in re.findall(r"  // (.*)", text))


def without_inner(text):
    """Without what no host uses: the tables themselves, and of the inner namespace all but the bases of classes."""
    text = re.sub(r"(?://[^\n]*\n)*template <>\nstruct ipc2581::Fields<.*?\n};\n\n?", "", text, flags=re.DOTALL)

    def bases(match):
        classes = re.findall(r"(?://[^\n]*\n)*class IPC2581_API \w+ [^;{]*\{\n.*?\n};\n", match.group(2), re.DOTALL)
        return match.group(1) + "\n" + "\n".join(classes) + match.group(3)

    return re.sub(r"(namespace (?:ipc2581::)?detail \{\n)(.*?\n?)(\}  // namespace (?:ipc2581::)?detail\n)", bases,
                  text, flags=re.DOTALL)


class Shared:
    """The last comment, and which of the next declarations it is about too: overloads, and members of one kind."""

    def __init__(self):
        self.said = ""
        self.keys = set()

    def keep(self, said, keys):
        self.said, self.keys = said, keys

    def of(self, keys):
        return self.said if self.keys & keys else ""


def keys_of_operation(code):
    name = re.search(r"(operator[^(]*|[~\w]+)\(", code)
    if name is None:
        return set()
    result = re.sub(r"^(virtual|constexpr|explicit|static|friend|const) ", "", code).split("(")[0].rpartition(" ")[0]
    parameters = code[code.find("("):].split(")")[0]
    return {("name", name.group(1)), ("form", result, parameters)}


class Translation:
    """One header on its way."""

    def __init__(self, text, room, sections):
        self.room = room
        self.sections = sections
        self.lines = without_inner(text).split("\n")
        # Functions outside of a namespace are shown with the file that declares them.
        self.out = ["/// \\file"]
        self.at = 0

    def run(self):
        self.scope("", None, True)
        return "\n".join(self.out)

    def scope(self, indent, own, is_shown):
        """Takes over the declarations of a header, or of a class."""
        shared = Shared()
        while self.at < len(self.lines):
            line = self.lines[self.at]
            if own and line.startswith(indent[4:] + "}"):
                return
            if line == "" or line.startswith("#"):
                self.keep_line(line)
                shared = Shared()
            elif re.fullmatch(r"\s*(public|private|protected):", line):
                is_shown = line.strip() == "public:"
                self.keep_line(line.replace("protected", "private"))
            elif is_shown:
                self.described(indent, own, shared)
            else:
                self.comment()
                self.out += self.declaration(indent)

    def keep_line(self, line):
        self.out.append(line)
        self.at += 1

    def comment(self):
        """The comment block that begins here, if one does."""
        lines = []
        while self.at < len(self.lines) and self.lines[self.at].strip().startswith("//"):
            lines.append(escaped(self.lines[self.at].strip()[2:].removeprefix(" ")))
            self.at += 1
        return "\n".join(line for line in lines if "NOLINT" not in line)

    def declaration(self, indent):
        """The lines of the declaration that begins here, up to where a class, an enumeration or a namespace opens."""
        lines, is_body = [], False
        while self.at < len(self.lines):
            line = self.lines[self.at]
            lines.append(line)
            self.at += 1
            code = re.sub(r"\s*//.*", "", line)
            is_body = is_body or code == indent + "{"
            if is_body:
                if code.startswith(indent + "}"):
                    break
            elif code.endswith((";", "{")) or code.endswith("}") and code[len(indent):len(indent) + 1] != " ":
                break
        return lines

    def described(self, indent, own, shared):
        """A declaration with its description in front."""
        said = self.comment()
        if self.at == len(self.lines) or not self.lines[self.at].strip():
            return
        lines = self.declaration(indent)
        text = "\n".join(lines)
        self.out += doc(self.description(own, said, text, shared), indent)
        # A comment behind a member stands in front of it by now.
        self.out += [re.sub(r"\s*// .*", "", line) for line in lines]
        opening = OPENING.match(text)
        if opening and text.endswith("{"):
            self.inside(opening.group(1), opening.group(2), indent, text)

    def inside(self, kind, name, indent, text):
        if kind.startswith("enum"):
            self.values(indent + "    ")
        elif kind != "namespace":
            own = words.OwnClass(name, words.is_list(text), bool(words.owned_parts(self.public_of(name))))
            self.scope(indent + "    ", own, kind == "struct")

    def values(self, indent):
        """Those of an enumeration; a name that nobody has described is its own description."""
        while not self.lines[self.at].startswith(indent[4:] + "}"):
            said = self.comment()
            self.out += doc(said, indent)
            code, _, trailing = self.lines[self.at].partition("//")
            for value in re.findall(r"\w+(?: = -?\w+)?", code):
                behind = escaped(trailing.strip()) or ("" if said else f"The code of {value.split()[0]}.")
                self.out.append(f"{indent}{value}," + (f"  ///< {behind}" if behind else ""))
            self.at += 1

    def description(self, own, said, text, shared):
        code = code_of(text)
        opening = OPENING.match(text)
        if opening and opening.group(1) in ("class", "struct") and text.endswith("{"):
            return self.of_class(opening.group(2), said)
        if SILENT.match(text):
            return self.of_silent(said, text)
        if own and "(" not in code.split(" = ")[0]:
            return self.of_member(own.name, said, text, code, shared)
        return self.of_operation(own, said, code, shared)

    @staticmethod
    def of_silent(said, text):
        if text.startswith("namespace"):
            # What stands in front of a whole header's namespace tells of the header.
            is_of_codes = re.match(r"namespace \w+(Types|Kinds|Forms) \{", text)
            return said if is_of_codes or not said else f"\\file\n{said}"
        is_alias = re.match(r"\s*using \w+ =", text)
        return (said or trailing_of(text)) if is_alias else ""

    def of_class(self, name, said):
        if not said:
            return ""
        facts = words.of_class(self.public_of(name), self.sections.get(name), name.startswith("CIPC"))
        return "\n\n".join([said, *facts, f"\\ingroup room_{self.room}"])

    def public_of(self, name):
        """A class of the header, without its private part."""
        body = re.search(rf"^(?:class|struct) (?:IPC2581_API )?{name}\b[^;]*?\{{\n.*?\n}};", "\n".join(self.lines),
                         re.DOTALL | re.MULTILINE)
        return re.sub(r"\nprivate:\n.*", "", body.group(), flags=re.DOTALL) if body else ""

    def of_member(self, own, said, text, code, shared):
        declared = re.fullmatch(r"(.*?)(\w+)(?: = [^;]+|\[\w+\])?;", code)
        kind, name = declared.groups() if declared else (code, "")
        keys = {"pointer" if kind.strip().endswith("*") else kind}
        trailing = trailing_of(text)
        if said or trailing:
            shared.keep(said, keys if said and not trailing else set())
            said = "\n".join(part for part in (said, trailing) if part)
        else:
            said = shared.of(keys)
        fact = self.fact_of(own, name, said)
        return f"{said}{'' if not said or said.endswith(('.', ':')) or not fact else '.'} {fact}".strip()

    def fact_of(self, own, name, said):
        section = self.sections.get(own)
        if section is None:
            return ""
        if section.source_of(name):
            return section.source_of(name)
        if name == "DrawType":
            return "See ipc2581::DrawTypes. No row of the tables gives it a value."
        return "No row of the tables gives it a value." if said else "A reader or a host sets it; no row of the tables does."

    @staticmethod
    def of_operation(own, said, code, shared):
        keys = keys_of_operation(code)
        if said:
            shared.keep(said, keys)
            if own and re.match(rf"{own.name}\((?:const {own.name} ?&|{own.name} const ?&)", code):
                own.is_copy_told = True
            return said
        plain = words.of_form(own, code) if own else ""
        if plain:
            shared.keep("", set())
            return plain
        return shared.of(keys)
