# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Generates the classes with the fields of the context blocks: accessors, reading from the
predefined variables, and writing. Each is the base of a class written by hand, such as JXDevice."""

from cpp import KEYS_HEADER, comment, header, included, licence
from model import FOLDER

_MEMBERS = {"string": "JXString", "number": "std::optional<JXDecimal>", "number_string": "JXString",
            "boolean": "bool", "boolean_string": "JXString"}
_PROPERTIES = "std::shared_ptr<JXAdditionalProperties>"


def is_generated(block):
    return bool(block.class_name) and not block.class_header


def fields_class(block):
    return block.class_name + "Fields"


def own_fields(catalogue, block):
    """Returns the fields of the block and of its nested blocks without a class, in writing order."""
    fields = []
    for field in block.fields.values():
        nested = catalogue.blocks.get(field.block)
        if nested is None:
            fields.append(field)
        elif not nested.class_name:
            fields += own_fields(catalogue, nested)
    return fields


def accessors(field):
    kind = _MEMBERS[field.type]
    passed = kind if kind == "bool" else f"const {kind}&"
    text = field.comment + " A decimal string." * (field.type == "number_string")
    return (comment(text) +
            f"  {kind} {field.property}() const {{ return JXSessionLock::read({field.member}); }}\n"
            f"  void {field.setter}({passed} value) "
            f"{{ JXSessionLock::write({field.member}, value); }}\n")


def members(catalogue, block, fields):
    text = "".join(f"  {_MEMBERS[field.type]} {field.member}"
                   f"{' = false' if field.type == 'boolean' else ''};\n" for field in fields)
    for field in block.fields.values():
        if field.properties:
            text += f"  {_PROPERTIES} {field.properties}_;  ///< null until the block is initialised\n"
    return text


def read_fields(fields):
    return [field for field in fields if field.variable]


def class_header(catalogue, block):
    fields = own_fields(catalogue, block)
    name, count = fields_class(block), len(read_fields(fields))
    includes = ["jx/core/JXAdditionalProperties.h", "jx/core/JXDynamicStore.h",
                "jx/platform/JXApi.h", "jx/platform/JXString.h",
                "jx/session/JXSessionLock.h"]
    if any(field.type == "number" for field in fields):
        includes += ["<optional>", "jx/core/json/JXDecimal.h"]
    if any(field.properties for field in block.fields.values()):
        includes.append("<memory>")
    places = f"\n  JXDynamicStore::Place places_[{count}];  ///< of the variables in the store\n"
    body = (comment(f"The fields of {block.class_name}. Thread-safe: the session's mutex guards "
                    "them.", "") +
            f"class JX_API {name} : public JXAdditionalProperties {{\n public:\n" +
            "".join(accessors(field) for field in fields) +
            f"\n protected:\n  {name}() : JXAdditionalProperties(Sharing::AnyThread) {{}}\n\n" +
            comment("Copies the predefined variables to the fields. A string that is not a number "
                    "leaves a number unchanged.") +
            "  void readVariables();\n"
            "  void writeOwnEntries(JXJsonSink& sink) const override;\n\n" +
            members(catalogue, block, fields) + "\n private:" + places + "};\n\n")
    return header(block_source(block), includes, body)


def block_source(block):
    return f"{FOLDER}/{block.file}"


def reading(field, i):
    place = f"kJXPredefinedVariable_{field.variable}, places_[{i}]"
    if field.type == "boolean":
        return f'  {field.member} = strings.view({place}) == "{field.true}";\n'
    if field.type == "number":
        return (f"  if (const JXDecimal number = JXDecimal::fromString(strings.view({place})); "
                f"!number.isNaN()) {field.member} = number;\n")
    return f"  strings.read({place}, {field.member});\n"


def read_definition(name, fields):
    return (f"void {name}::readVariables() {{\n"
            "  const JXSessionLock lock;\n"
            "  const JXDynamicStore::Strings strings = "
            "JXPredefinedVariables::sharedInstance().strings();\n" +
            "".join(reading(field, i) for i, field in enumerate(read_fields(fields))) + "}\n\n")


def writing(catalogue, field, sink="sink"):
    key = field.key.cpp
    if field.type == "block":
        nested = catalogue.blocks[field.block]
        if nested.class_name:
            return f"  {sink}.block({key}, {nested.class_name}::sharedInstance());\n"
        entries = "".join(writing(catalogue, each, field.block) for each in nested.fields.values())
        extras = "nullptr"
        if field.properties:
            member = field.properties + "_"
            extras = f"{member} ? extrasOf(*{member}) : nullptr"
        return (f"  {sink}.beginObject({key});\n"
                f"  writeOver({extras}, {sink}, [this](JXJsonSink& {field.block}) {{\n{entries}}});\n"
                f"  {sink}.endObject();\n")
    if field.type == "boolean_string":
        return (f'  if ({field.member}.testString()) '
                f'{sink}.flag({key}, {field.member}.view() == "{field.true}");\n')
    call = {"string": "text", "number": "number", "number_string": "numberFromString",
            "boolean": "flag"}[field.type]
    return f"  {sink}.{call}({key}, {field.member});\n"


def class_source(catalogue, block):
    fields = own_fields(catalogue, block)
    name = fields_class(block)
    needed = [KEYS_HEADER,
              "jx/core/json/JXJsonTreeSink.h", "jx/core/JXCoreConstants.h",
              "jx/session/JXPredefinedVariableNames.h", "jx/session/JXPredefinedVariables.h"]
    for field in block.fields.values():
        nested = catalogue.blocks.get(field.block)
        if nested is not None and nested.class_name:
            needed.append(nested.class_header or f"jx/session/{nested.class_name}.h")
    body = (read_definition(name, fields) +
            f"void {name}::writeOwnEntries(JXJsonSink& sink) const {{\n"
            "  const JXSessionLock lock;\n" +
            "".join(writing(catalogue, field) for field in block.fields.values()) + "}\n\n")
    return (f"{licence(block_source(block))}#include \"jx/session/{name}.h\"\n\n"
            f"{included(needed)}namespace jx {{\n\n{body}}}  // namespace jx\n")


def files(catalogue):
    """Returns the text of each generated file by its path."""
    texts = {}
    for block in filter(is_generated, catalogue.contexts):
        path = f"jx/session/{fields_class(block)}"
        texts[path + ".h"] = class_header(catalogue, block)
        texts[path + ".cpp"] = class_source(catalogue, block)
    return texts
