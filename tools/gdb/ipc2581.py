"""Views of the library's classes for gdb: texts as texts, lists as lists, objects by what they hold.

    (gdb) source tools/gdb/ipc2581.py
    (gdb) print *component
    $1 = {RefDes = "R1", PackageRef = "R0805", ..., Xform = {XOffset = 0, ...}, Location = {X = 2, Y = 3}}

A pointer that an object owns is shown as what it points to; "print /r" shows everything as it lies in memory.
"""

import gdb
import gdb.printing

# What no object holds anything in.
EMPTY_BASE = "CIPC2581_XmlDataAdd_Function"
# What a reader makes is of classes that add nothing to their base.
HIDDEN = "ipc2581::detail::InBlock<"


def name_of(kind):
    return kind.strip_typedefs().unqualified().name or ""


def base_like(kind, prefix):
    """The class itself or the first base whose name begins so; None if there is none."""
    kind = kind.strip_typedefs().unqualified()
    if kind.code != gdb.TYPE_CODE_STRUCT:
        return None
    if name_of(kind).startswith(prefix):
        return kind
    bases = (base_like(field.type, prefix) for field in kind.fields() if field.is_base_class)
    return next((base for base in bases if base is not None), None)


def is_of_model(kind):
    return name_of(kind) != EMPTY_BASE and name_of(kind).startswith(("CIPC2581_", "CPointD"))


def shown(value):
    """What a pointer of the model points to, as an object of its own class; any other value as it is."""
    if value.type.strip_typedefs().code != gdb.TYPE_CODE_PTR or int(value) == 0:
        return value
    target = value.type.strip_typedefs().target()
    if not is_of_model(target) and base_like(target, "CArray<") is None:
        return value
    own = value.dynamic_type.target()
    if name_of(own).startswith(HIDDEN):
        own = own.fields()[0].type
    return value.cast(own.pointer()).dereference()


class TextView:
    """A CString of a little-endian machine. Its first byte is odd if the text stands in the object, behind it."""

    def __init__(self, value):
        self.value = value

    def display_hint(self):
        return "string"

    def to_string(self):
        char = gdb.lookup_type("char")
        head = int(self.value["m_bytes"][0]) & 0xFF
        start = self.value["m_bytes"].address.cast(char.pointer())
        if head & 1:
            return (start + 1).lazy_string(length=head // 2)
        # An address, whose second bit tells that the text lies in a block. The length stands in front of the text.
        address = int(start.cast(char.pointer().pointer()).dereference()) & ~2
        heap = gdb.Value(address).cast(gdb.lookup_type("int").pointer())
        length = int(heap.dereference())
        if length < 0:
            raise gdb.MemoryError("no text here")
        return (heap + 1).cast(char.pointer()).lazy_string(length=length)


class ListView:
    """A CArray, or a list that is derived from one."""

    def __init__(self, value):
        self.value = value
        self.array = value.cast(base_like(value.type, "CArray<"))

    def display_hint(self):
        return "array"

    def to_string(self):
        return f"{name_of(self.value.type).split('<')[0]} of {int(self.array['m_nSize'])}"

    def children(self):
        data = self.array["m_pData"]
        for index in range(int(self.array["m_nSize"])):
            yield f"[{index}]", shown(data[index])


class ObjectView:
    """An object of the model: its members, those of the bases first."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return None

    def children(self):
        return self.members(self.value)

    def members(self, value):
        for field in value.type.strip_typedefs().fields():
            if field.is_base_class:
                yield from self.members(value.cast(field.type))
            elif hasattr(field, "bitpos") and field.name and not field.name.startswith("_vptr"):
                yield field.name, shown(value[field])


def view_of(value):
    kind = value.type.strip_typedefs().unqualified()
    if kind.code != gdb.TYPE_CODE_STRUCT:
        return None
    if name_of(kind) == "CString":
        return TextView(value)
    if base_like(kind, "CArray<") is not None:
        return ListView(value)
    return ObjectView(value) if is_of_model(kind) else None


class Views(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("ipc2581")

    def __call__(self, value):
        return view_of(value)


gdb.printing.register_pretty_printer(gdb.current_objfile(), Views(), replace=True)
