"""Shows the host's objects in gdb: nodes with what is below them, strings and arrays.

A handle prints as the tag of its node with the ID, the attributes, the text and the children, which an editor folds
and `print -elements`, `print -max-depth` limit; a dead one says that it is dead. Nothing in the program is called, so
this works on a core file too.
"""
import struct

import gdb
import gdb.printing

KIND_SHORT, KIND_LONG, KIND_INT = range(3)  # of a value
NO_ID = -1


def memory(address, length):
    return gdb.selected_inferior().read_memory(int(address), int(length)).tobytes() if length else b""


def decoded(text):
    """What the terminal has no character for is written as an escape."""
    charset = gdb.host_charset()
    return text.decode("utf-8", "backslashreplace").encode(charset, "backslashreplace").decode(charset)


def name_text(name):
    return decoded(memory(name + 1, name["length"]))


def value_text(value):
    """Of a text, or of an int that was never asked for as one."""
    first, second = int(value["first_"]), int(value["second_"])
    kind, length = first & 3, (first & 0xFFFFFFFF) >> 2
    if kind == KIND_INT:
        number = first >> 32
        return str(number - (1 << 32) if number >> 31 else number)
    return decoded(memory(second if kind == KIND_LONG else int(value.address) + 4, length))


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n") + '"'


class NodePrinter:
    """A node of a tree, rytesavc::Node."""

    def __init__(self, node):
        self.node = node

    def to_string(self):
        return f"<{name_text(self.node['tag'])}>"

    def children(self):
        node = self.node
        if int(node["id"]) != NO_ID:
            yield "id", int(node["id"])
        for place in range(int(node["attribute_count"])):
            attribute = node["attributes"][place]
            yield "@" + name_text(attribute["name"]), quoted(value_text(attribute["value"]))
        text = value_text(node["text"])
        if text:
            yield "text", quoted(text)
        child, place = node["first"], 0
        while int(child) != 0:
            yield f"[{place}]", child.dereference()
            child, place = child["next"], place + 1


def handle_fields(handle):
    """Tree, node and generation. GCC tells of a class like this only in the library's own debug information: without
    that, they are taken from their places after the address of the virtual functions."""
    try:
        return int(handle["tree_"]), handle["node_"], int(handle["generation_"])
    except gdb.error:
        tree, node, generation = struct.unpack("=8xQQI", memory(handle.address, 28))
        return tree, gdb.Value(node).cast(gdb.lookup_type("rytesavc::Node").pointer()), generation


class HandlePrinter:
    """A handle on a node, RYXmlWrapperBase and the classes made from it."""

    def __init__(self, handle):
        tree, node, generation = handle_fields(handle)
        self.node = None
        self.state = "no node"
        if tree != 0 and int(node) != 0:
            if generation == int(node["generation"]):
                self.node = NodePrinter(node.dereference())
            else:
                self.state = "dead: its node was removed"

    def to_string(self):
        return self.node.to_string() if self.node else self.state

    def children(self):
        return self.node.children() if self.node else iter(())


class StringPrinter:
    """CString."""

    def __init__(self, string):
        self.text = string["text_"]

    def to_string(self):
        return decoded(memory(self.text["_M_dataplus"]["_M_p"], self.text["_M_string_length"]))

    def display_hint(self):
        return "string"


class ArrayPrinter:
    """CArray and CStringArray."""

    def __init__(self, array):
        items = array["items_"]["_M_impl"]
        element = element_type(array.type)
        self.first = items["_M_start"].cast(element.pointer())
        self.count = int(items["_M_finish"] - items["_M_start"])

    def to_string(self):
        return "1 element" if self.count == 1 else f"{self.count} elements"

    def children(self):
        return ((f"[{place}]", self.first[place]) for place in range(self.count))

    def display_hint(self):
        return "array"


def element_type(array):
    array = array.strip_typedefs().unqualified()
    return array.template_argument(0) if array.name.startswith("CArray<") else element_type(array.fields()[0].type)


PRINTERS = {"RYXmlWrapperBase": HandlePrinter, "rytesavc::Node": NodePrinter, "CString": StringPrinter,
            "CArray": ArrayPrinter}


def printer_of(type_):
    """Of a class, or of the first of those it is made from that has one."""
    if type_.code != gdb.TYPE_CODE_STRUCT or type_.name is None:
        return None
    printer = PRINTERS.get(type_.name.split("<")[0])
    bases = (field.type.strip_typedefs().unqualified() for field in type_.fields() if field.is_base_class)
    return printer or next(filter(None, map(printer_of, bases)), None)


class Printers(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("rytree")

    def __call__(self, value):
        if value.type.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
            value = value.referenced_value()
        printer = printer_of(value.type.strip_typedefs().unqualified())
        return printer(value) if printer else None


gdb.printing.register_pretty_printer(gdb.current_objfile(), Printers(), replace=True)
