# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Generates the C headers that follow from the catalogue: one for each class, with functions for
all its fields, and one for the constants; and the table of classes for language bindings.

`files(catalogue)` returns the text of each file by its path. The text still has to be formatted
with clang-format."""

import dataclasses

from cpp import comment, licence
from model import FOLDER

NAMES_HEADER = "jx/c/events/jx_names.h"
CLASSES_HEADER = "jx/c/internal/JXCClasses.h"
_BUFFER = ("char* buffer", "size_t capacity", "size_t* length")
_LISTS = ("strings", "numbered_strings", "values", "items")


@dataclasses.dataclass(frozen=True)
class Function:
    """An inline function that passes the object, its field and `parameters` to another function.
    `fixed` are arguments before the parameters."""
    name: str
    comment: str
    calls: str
    parameters: tuple
    fixed: tuple = ()

    @property
    def reads(self):
        return self.calls.startswith(("jx_object_get_", "jx_object_list_get_",
                                      "jx_object_list_count"))


def handle(block):
    """Returns the name of a parameter of this class."""
    return "event" if block.kind == "event" else block.name[2:].lower()


def fields(block):
    """Returns all fields: first those that the class writes, in their order."""
    found = {field.property: field for field in block.written}
    return list({**found, **block.all_fields}.values())


def is_written(block, field):
    return any(field in part.written for part in [block, *block.bases])


def takes_name(block):
    return block.kind == "event" and bool(block.deleted_init) and block.modes is None


def functions(block, field):
    """Returns the functions of a field of this class."""
    capital = field.property[0].upper() + field.property[1:]
    set_name, get_name = f"{block.name}_set{capital}", f"{block.name}_get{capital}"
    list_name = f"{block.name}_{field.property}_"
    sets, gets = f"Sets `{field.property}`", f"Writes `{field.property}`"
    or_null = "; null removes the value."

    def reader(kind, form):
        return Function(get_name, f"{gets}{form} to `buffer`; see `jx_object_json`.",
                        f"jx_object_get_{kind}", _BUFFER)

    def append(kind, parameter, name=""):
        what = {"item": "a copy of an item", "boolean": "a Boolean"}.get(kind, f"a {kind}")
        return Function(f"{list_name}append{name}", f"Appends {what} to `{field.property}`.",
                        f"jx_object_list_insert_{kind}", (parameter,), ("JX_LIST_END",))

    strings = (
        Function(set_name, f"{sets} to a list of strings{or_null}", "jx_object_set_strings",
                 ("const char* const* strings", "size_t count")),
        append("string", "const char* value"),
        Function(get_name, f"{gets} at `index` to `buffer`.", "jx_object_list_get_string",
                 ("size_t index", *_BUFFER)))
    own = {
        "string": (
            Function(set_name, sets + or_null, "jx_object_set_string", ("const char* value",)),
            reader("string", "")),
        "number": (
            Function(set_name, f"{sets} from a decimal string{or_null}", "jx_object_set_number",
                     ("const char* number",)),
            Function(set_name + "_integer", f"{sets} from an integer.", "jx_object_set_integer",
                     ("int64_t value",)),
            reader("number", " as a decimal string")),
        "boolean": (
            Function(set_name, f"{sets}.", "jx_object_set_boolean", ("bool value",)),
            Function(get_name, f"{gets} to `*value`.", "jx_object_get_boolean", ("bool* value",))),
        "strings": strings,
        "numbered_strings": strings,
        "values": (
            Function(set_name, f"{sets} from a JSON array{or_null}", "jx_object_set_json",
                     ("const char* json",)),
            append("string", "const char* value", "_string"),
            append("number", "const char* number", "_number"),
            append("boolean", "bool value", "_boolean"),
            reader("json", " as a JSON array")),
        "enumeration": () if field.enumeration is None else (
            Function(set_name, f"{sets}.", "jx_object_set_enum",
                     (f"{field.enumeration.name} value",)),
            Function(get_name, f"{gets}, an {field.enumeration.name}, to `*value`.",
                     "jx_object_get_enum", ("uint32_t* value",))),
        "items": (append("item", "const jx_object* item"),
                  reader("json", " as a JSON array of properties")),
        "product": (
            Function(set_name, f"{sets} to a copy of a product{or_null}", "jx_object_set_product",
                     ("const jx_object* product",)),
            reader("json", " as a JSON object of properties")),
    }[field.type]
    if field.type not in _LISTS:
        return own
    return own + (
        Function(list_name + "count", f"Writes the number of elements of `{field.property}`.",
                 "jx_object_list_count", ("size_t* count",)),
        Function(list_name + "clear", f"{sets} to an empty list.", "jx_object_list_clear", ()))


def _definition(name, parameters, calls, arguments):
    return (f"static inline jx_status {name}({', '.join(parameters)}) {{\n"
            f"  return {calls}({', '.join(arguments)});\n}}\n")


def _names(parameters):
    return [parameter.split()[-1] for parameter in parameters]


def _creation(block):
    name = handle(block)
    article = "an" if name[0] in "aeiou" else "a"
    text = f"Creates {article} {name} in `*{name}`; free it with `jx_object_free`."
    calls, arguments, parameters = f"jx_{name}_create", [], []
    if block.modes is not None:
        text += " `mode` determines its name; `session_id` may be null."
        calls, arguments = "jx_event_create_with_mode", [f'"{block.name}"']
        parameters = [f"{block.modes.name} mode", "const char* session_id"]
    elif takes_name(block):
        text += " `name` may be null."
        calls, parameters = "jx_custom_event_create", ["const char* name"]
    elif block.kind == "event":
        arguments = [f'"{block.name}"']
    parameters.append(f"jx_object** {name}")
    return comment(text, "") + _definition(f"{block.name}_create", parameters, calls,
                                           arguments + _names(parameters))


def _field(block, field):
    constant = f"{block.name}_{field.property}"
    key = field.key.string
    keys = f'"{key}1", "{key}2" and so on' if field.type == "numbered_strings" else f'"{key}"'
    unwritten = "" if is_written(block, field) else " This class does not write it."
    text = comment(f"{field.comment} JSON key {keys}.{unwritten}", "")
    text += f'#define {constant} "{block.name}.{field.property}"\n'
    for function in functions(block, field):
        first = ("const " if function.reads else "") + f"jx_object* {handle(block)}"
        text += comment(function.comment, "") + _definition(
            function.name, [first, *function.parameters], function.calls,
            [handle(block), constant, *function.fixed, *_names(function.parameters)])
    return text + "\n"


def _guarded(source, path, includes, body, is_c=True):
    guard = path.replace("/", "_").replace(".", "_").upper()
    included = "".join(f'#include "{name}"\n' for name in includes) + ("\n" if includes else "")
    begin, end = "", ""
    if is_c:
        begin = '#ifdef __cplusplus\nextern "C" {\n#endif\n\n'
        end = "#ifdef __cplusplus\n}\n#endif\n\n"
    return (f"{licence(source)}#ifndef {guard}\n#define {guard}\n\n{included}{begin}{body}{end}"
            "#endif\n")


def class_header(block):
    text = block.comment
    if block.bases:
        text += f" Includes the fields of {' and '.join(base.name for base in block.bases)}."
    body = comment(text, "") + f'#define {block.name}_class "{block.name}"\n\n'
    body += _creation(block) + "\n" + "".join(_field(block, field) for field in fields(block))
    has_enumeration = block.modes or any(field.enumeration for field in fields(block))
    includes = [NAMES_HEADER] if has_enumeration else []
    return _guarded(f"{FOLDER}/{block.file}", header_path(block),
                    [*includes, "jx/c/jx_object.h"], body)


def header_path(block):
    return f"jx/c/events/{block.name}.h"


def _enumeration(enumeration):
    body = "".join(f"  {enumeration.name}_{name} = {number},  ///< \"{string}\"\n"
                   for number, (name, string) in enumerate(enumeration.values.items()))
    # C90 compilers reject a comma after the last enumerator.
    last = body.rindex(",  ///<")
    return (comment(enumeration.comment, "") + f"typedef enum {enumeration.name} {{\n"
            f"{body[:last]}{body[last + 1:]}}} {enumeration.name};\n\n")


def name_groups(catalogue, only_in_c):
    """Returns the description of each group of constants, and their strings by name: those of the C
    interface, or all."""
    groups = [(f"{group.title}. {group.comment}", {key.constant: key.string for key in group.keys})
              for group in catalogue.key_groups + catalogue.name_groups
              if group.is_in_c or not only_in_c]
    return groups + [(strings.title + "; other strings are allowed.",
                      {f"{strings.name}_{name}": string for name, string in strings.values.items()})
                     for strings in catalogue.strings.values()]


def names_header(catalogue):
    enumerations = "".join(map(_enumeration, catalogue.enumerations.values()))
    macros, arrays = "", ""
    for description, strings in name_groups(catalogue, only_in_c=True):
        heading = comment(description, "").replace("///", "//") + "\n"
        macros += heading + "".join(f'#define {name} "{text}"\n' for name, text in strings.items())
        arrays += heading + "".join(f'static const char {name}[] = "{text}";\n'
                                    for name, text in strings.items())
        macros, arrays = macros + "\n", arrays + "\n"
    body = enumerations + "#ifndef __cplusplus\n\n" + macros + comment(
        "In C++ the constants are arrays, because macros would replace the constants of the same "
        "names in namespace jx.", "").replace("///", "//") + "#else\n\n" + arrays + "#endif\n\n"
    return _guarded(FOLDER, NAMES_HEADER, [], body)


def umbrella_header(paths):
    text = comment("Includes the headers of all classes, fields and constants of the catalogue.", "")
    return _guarded(FOLDER, "jx/c/jx_events.h", sorted(paths), text + "\n", is_c=False)


def _strings(name, values):
    """Returns the declaration of an array of strings, and the initialisers that refer to it."""
    if not values:
        return "", "nullptr, 0"
    listed = ", ".join(f'"{value}"' for value in values)
    return f"inline constexpr const char* {name}[] = {{{listed}}};\n", f"{name}, {len(values)}"


def classes_header(catalogue):
    body = ""
    for enumeration in catalogue.enumerations.values():
        body += _strings(f"k{enumeration.name}", list(enumeration.values))[0]
    blocks = catalogue.events + catalogue.objects
    for block in blocks:
        rows = ""
        for field in block.written + block.unwritten:
            kind = "ENUM" if field.type == "enumeration" else field.type.upper()
            members = "nullptr, 0"
            if field.enumeration is not None:
                members = f"k{field.enumeration.name}, {len(field.enumeration.values)}"
            written = "true" if field in block.written else "false"
            rows += (f'{{"{field.property}", "{field.key.string}", JX_KIND_{kind}, {written}, '
                     f"{members}}},\n")
        table = "nullptr, 0"
        if rows:
            body += f"inline constexpr jx_field k{block.name}Fields[] = {{\n{rows}}};\n"
            table = f"k{block.name}Fields, {len(block.written + block.unwritten)}"
        names, event_names = _strings(f"k{block.name}Names", block.event_names)
        modes = f"k{block.modes.name}, {len(block.modes.values)}" if block.modes else "nullptr, 0"
        base = f"&k{block.base.name}" if block.base else "nullptr"
        is_event = "true" if block.kind == "event" else "false"
        body += (f'{names}inline constexpr jx_class k{block.name} = {{"{block.name}", {base}, '
                 f"{is_event}, {table}, {event_names}, {modes}}};\n\n")
    listed = ", ".join(f"&k{block.name}" for block in blocks)
    body += f"inline constexpr const jx_class* kClasses[] = {{{listed}}};\n\n"
    return (f'{licence(FOLDER)}#pragma once\n\n#include "jx/c/jx_catalogue.h"\n\n'
            f"namespace jx::c {{\n\n{body}}}  // namespace jx::c\n")


def files(catalogue):
    """Returns the text of each generated file by its path."""
    texts = {header_path(block): class_header(block)
             for block in catalogue.events + catalogue.objects}
    texts[NAMES_HEADER] = names_header(catalogue)
    texts["jx/c/jx_events.h"] = umbrella_header(texts)
    texts[CLASSES_HEADER] = classes_header(catalogue)
    return texts
