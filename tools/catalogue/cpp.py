# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Generates the C++ headers and sources that follow from the catalogue.

`files(catalogue)` returns the text of each file by its path. The text still has to be formatted
with clang-format."""

import textwrap

from model import FOLDER

KEYS_HEADER = f"{FOLDER}/JXEventPropertiesNames.h"
CONTEXT_HEADER = f"{FOLDER}/JXContextBlocks.h"
_WIDTH = 100
_ITEMS = "JXList<std::shared_ptr<JXItem>>"

# The type of the member that stores a field.
_MEMBERS = {
    "string": "JXString",
    "number": "std::optional<JXDecimal>",
    "boolean": "bool",
    "strings": "JXList<JXString>",
    "numbered_strings": "JXList<JXString>",
    "values": "JXJsonArray",
    "enumeration": "int",
    "items": _ITEMS,
    "product": "std::shared_ptr<JXProduct>",
}
# The headers that a type needs.
_HEADERS = {
    "string": ["jx/platform/JXString.h"],
    "number": ["<optional>", "jx/core/json/JXDecimal.h"],
    "strings": ["jx/core/JXList.h", "jx/platform/JXString.h"],
    "numbered_strings": ["jx/core/JXList.h", "jx/platform/JXString.h"],
    "values": ["jx/core/json/JXJsonArray.h"],
    "items": ["jx/core/JXList.h", "jx/events/JXItem.h"],
    "product": ["jx/events/JXProduct.h"],
    "int32": ["<cstdint>", "<type_traits>"],
}
_CONDITIONS = {
    "never": "neverValid",
    "non_empty_string": "nonEmptyString",
    "present": "present",
    "non_empty_list": "nonEmptyList",
    "together": "together",
}


def comment(text, indent="  "):
    prefix = indent + "/// "
    return "".join(f"{prefix}{line}\n" for line in textwrap.wrap(
        text, _WIDTH - len(prefix), break_long_words=False, break_on_hyphens=False))


def licence(source):
    return ("// Copyright 2026 The JXServerSide authors\n"
            "// SPDX-License-Identifier: Apache-2.0\n"
            f"// Generated from {source} by scripts/catalogue. Do not edit.\n")


def header(source, includes, body):
    return (f"{licence(source)}#pragma once\n\n{included(includes)}"
            f"namespace jx {{\n\n{body}}}  // namespace jx\n")


def included(headers):
    """Returns the include lines: standard headers, then those of the library."""
    standard = sorted(name for name in set(headers) if name.startswith("<"))
    own = sorted(name for name in set(headers) if not name.startswith("<"))
    groups = ["".join(f"#include {name}\n" for name in standard),
              "".join(f'#include "{name}"\n' for name in own)]
    return "".join(group + "\n" for group in groups if group)


def constants(pairs):
    return "".join(f'inline constexpr std::string_view {name} = "{string}";\n'
                   for name, string in pairs)


def group(title, text, pairs):
    return (f"/// @name {title}\n" + (comment(text, "") if text else "") + "/// @{\n" +
            constants(pairs) + "/// @}\n\n")


def keys_header(catalogue):
    body = ("/// The class that the key constants belong to. It has no members.\n"
            "class JX_API JXEventPropertiesNames {};\n\n")
    for part in catalogue.key_groups:
        body += group(part.title, part.comment,
                      ((key.constant, key.string) for key in part.keys))
    return header(f"{FOLDER}/keys.toml", ["<string_view>", "jx/platform/JXApi.h"], body)


def enumeration(entry):
    name, count = entry.name, len(entry.values)
    array = f"inline constexpr std::array<std::string_view, {count}> {name}"
    return (comment(entry.comment, "") + f"enum {name} : int {{\n" +
            "".join(f"{name}_{value},\n" for value in entry.values) + "};\n" +
            "/// The JSON string of each value.\n" +
            f"{array}_toString{{" + "".join(f'"{text}",' for text in entry.values.values()) +
            "};\n/// The name of each value, without its prefix.\n" +
            f"{array}_members{{" + "".join(f'"{value}",' for value in entry.values) + "};\n\n")


def value_headers(catalogue):
    """Returns the headers of the enumerations and of the predefined strings."""
    bodies = {}
    for entry in catalogue.enumerations.values():
        bodies.setdefault((entry.header, entry.file, True), []).append(enumeration(entry))
    for entry in catalogue.strings.values():
        bodies.setdefault((entry.header, entry.file, False), []).append(group(
            entry.title, entry.comment,
            ((f"{entry.name}_{value}", text) for value, text in entry.values.items())))
    tables = ("// Each enumeration has two tables indexed by its values: the JSON strings, and the "
              "names of the\n// enumerators without their prefix. Values are numbered from 0. "
              "Callers may pass any int; a value\n// outside the enumeration has no string.\n\n")
    return {path: header(f"{FOLDER}/{file}", ["<string_view>"] + ["<array>"] * has_tables,
                         tables * has_tables + "".join(parts))
            for (path, file, has_tables), parts in bodies.items()}


def declared_type(kind, enumeration_name=""):
    """Returns the type in which a value is passed to a function."""
    if kind == "enumeration":
        return enumeration_name
    if kind == "boolean":
        return "bool"
    return f"const {_MEMBERS[kind]}&"


def argument(block, item, number="std::int32_t"):
    if item.type == "mode":
        return f"{block.modes.name} mode"
    if item.type == "int32":
        return f"{number} {item.name}"
    enum = item.field.enumeration
    return f"{declared_type(item.type, enum.name if enum else '')} {item.name}"


def arguments(block, initialiser, number="std::int32_t"):
    return ", ".join(argument(block, item, number) for item in initialiser.arguments)


def accessors(field):
    enum = field.enumeration.name if field.enumeration else ""
    passed = declared_type(field.type, enum)
    returned = "JXJsonArray" if field.type == "values" else passed
    value = f"static_cast<{enum}>({field.member})" if enum else field.member
    return (comment(field.comment) +
            f"  {returned} {field.property}() const {{ return {value}; }}\n" +
            (comment(field.setter_comment) if field.setter_comment else "") +
            f"  void {field.setter}({passed} value) {{ {field.member} = value; }}\n")


def member(field):
    default = {"boolean": " = false",
               "enumeration": f" = {field.enumeration.name}_{field.default}"
                              if field.enumeration else ""}.get(field.type, "")
    return f"  {_MEMBERS[field.type]} {field.member}{default};\n"


def initialiser_declarations(block):
    pointer = f"static std::shared_ptr<{block.name}>"
    text = ""
    if not block.deleted_init:
        created = block.init_comment or (f'Creates an event named "{block.event_name}"; all other '
                                         "fields are null or empty.")
        text += comment(created) + f"  {pointer} init();\n"
    for item in block.initialisers:
        text += comment(item.comment) + f"  {pointer} {item.name}({arguments(block, item)});\n"
        for argument_ in item.arguments:
            if argument_.type == "int32":
                text += comment("Deleted for floating point and for integers that do not fit: pass "
                                f"a `std::int32_t`, or set `{argument_.field.property}` to a "
                                "`JXDecimal`.")
                text += ("  template <typename Number, typename = "
                         "std::enable_if_t<detail::isLossyAs<Number, std::int32_t>>>\n"
                         f"  {pointer} {item.name}({arguments(block, item, 'Number')}) = delete;\n")
    if block.deleted_init:
        text += (comment(f"Deleted, because {block.deleted_init}.") +
                 f"  {pointer} init() = delete;\n")
    return text + "\n"


def descriptor_declarations(block):
    if block.kind == "object":
        return (comment("Returns the descriptor of this class: fields and conditions. Never "
                        "destroyed.") +
                "  static const JXBlockClass& blockClass();\n" +
                comment("Returns the fields in writing order. Never destroyed.") +
                "  static const JXFieldTable& fields() { return *blockClass().written; }\n" +
                comment(block.conditions_comment) +
                "  static const std::vector<JXCondition>& conditions() "
                "{ return blockClass().conditions; }\n\n")
    names = ("fields and conditions; the application chooses the event name"
             if block.deleted_init and not block.event_names else "names, fields, conditions")
    return (comment(f"Returns the descriptor of this class: {names}. Never destroyed.") +
            "  static const JXEventClass& eventClass();\n"
            "  const JXEventClass& ownEventClass() const override { return eventClass(); }\n\n")


def public_constructor(block):
    """Returns the constructor for the initialisers, which std::make_shared calls."""
    text = comment("For the initialisers.") + f"  explicit {block.name}(InitKey)"
    if not block.is_final:
        return text + f" : {block.name}() {{}}\n\n"
    return text + (";\n\n" if block.event_name else " {}\n\n")


def constructor_declarations(block):
    text = ""
    if not block.is_final:
        text += f"  {block.name}(){'' if block.event_name else ' = default'};\n"
    if block.kind == "object":
        text += "  void writeOwnEntries(JXJsonSink& sink) const override;\n"
    if block.names_by_mode:
        text += comment("Sets the name to the string of the mode. Logs a mode outside the "
                        "enumeration, which leaves the event without a name.")
        text += "  void setNameOfMode(const JXEnumStrings& modes, int mode);\n"
    return text


def verify_name(block):
    return "verify" + block.name[2:]


def class_header(block):
    needed = ["<memory>", "jx/platform/JXApi.h"]
    if block.kind == "object":
        needed += ["<vector>", "jx/catalogue/JXBlockClass.h", "jx/core/JXAdditionalProperties.h"]
    else:
        needed.append(block.base.header)
    if block.modes is not None:
        needed.append(block.modes.header)
    for field in block.fields.values():
        needed += _HEADERS.get(field.type, [])
        if field.enumeration is not None:
            needed.append(field.enumeration.header)
    for initialiser in block.initialisers:
        for item in initialiser.arguments:
            needed += _HEADERS.get(item.type, [])
    base = block.base.name if block.base else "JXAdditionalProperties"
    body = (comment(block.comment, "") +
            f"class JX_API {block.name}{' final' if block.is_final else ''} : public {base} {{\n"
            " public:\n" + initialiser_declarations(block))
    if block.kind == "object":
        body += (comment(block.verify_comment) + f"  bool {verify_name(block)}() const;\n" +
                 comment(block.json_comment) + "  JXJsonObject getJsonObject() const;\n\n")
    if block.fields:
        body += "".join(accessors(field) for field in block.fields.values()) + "\n"
    body += descriptor_declarations(block) + public_constructor(block)
    constructors = constructor_declarations(block)
    body += f" {'private' if block.is_final else 'protected'}:\n{constructors}"
    if block.fields:
        body += ("\n" if constructors else "") + "".join(member(field) for field in block.fields.values())
    return header(f"{FOLDER}/{block.file}", needed, body + "};\n\n")


def field_list(block, fields):
    text = ""
    for field in fields:
        place = f"&{block.name}::{field.member}"
        if field.type == "numbered_strings":
            place = f"JXNumberedStrings<{block.name}>{{{place}}}"
        if field.enumeration is not None:
            place = f"JXEnumField<{block.name}>{{{place}, {enum_strings(field.enumeration)}}}"
        text += f'{{{field.key.cpp}, "{field.property}", {place}}},\n'
    return f"{{{text}}}"


def enum_strings(entry):
    return f"JXEnumStrings({entry.name}_toString, {entry.name}_members)"


def condition(block, item):
    text = f"{_CONDITIONS[item.kind]}({', '.join(field.key.cpp for field in item.fields)})"
    for wrapper, modes in (("onlyFor", item.only_for), ("exceptFor", item.except_for)):
        if modes:
            names = ", ".join(f"{block.modes.name}_toString[{block.modes.name}_{mode}]"
                              for mode in modes)
            text = f"{wrapper}({text}, {{{names}}})"
    return text


def conditions(block):
    return "{" + "".join(condition(block, item) + ",\n" for item in block.conditions) + "}"


def assignments(block, variable, items):
    text = ""
    for item in items:
        if item.type == "mode":
            text += f"  {variable}->setNameOfMode(kModes, mode);\n"
        elif item.type == "items":
            text += f"  {variable}->{item.field.member}.appendAll({item.name});\n"
        else:
            text += f"  {variable}->{item.field.setter}({item.name});\n"
    return text


def definitions_of_initialisers(block):
    pointer = f"std::shared_ptr<{block.name}>"
    variable = "event" if block.kind == "event" else block.name[2:].lower()
    made = f"make<{block.name}>()"
    text = ""
    if not block.deleted_init:
        filled = default_products(block, variable, [])
        body = f"return {made};"
        if filled:
            body = f"\n  {pointer} {variable} = {made};\n{filled}  return {variable};\n"
        text += f"{pointer} {block.name}::init() {{ {body} }}\n\n"
    for item in block.initialisers:
        text += (f"{pointer} {block.name}::{item.name}({arguments(block, item)}) {{\n"
                 f"  {pointer} {variable} = {made};\n"
                 f"{default_products(block, variable, item.arguments)}"
                 f"{assignments(block, variable, item.arguments)}"
                 f"  return {variable};\n}}\n\n")
    return text


def default_products(block, variable, items):
    """Returns the statements that create the products which are not among the arguments."""
    passed = [item.field for item in items if item.type != "mode"]
    return "".join(f"  {variable}->{field.setter}(JXProduct::init());\n"
                   for field in block.fields.values()
                   if field.type == "product" and field not in passed)


def factory(block):
    if block.modes is not None:
        return f"createByMode<{block.name}, {block.modes.name}>"
    if not block.deleted_init:
        return f"createByInit<{block.name}>"
    return (f"JXEventFactory::of<{block.name}>([](int, const JXString& argument) -> "
            f"std::shared_ptr<JXEvent> {{ return {block.initialisers[0].name}(argument); }})")


def event_definitions(block):
    text = ""
    if block.event_name:
        key = "InitKey" if block.is_final else ""
        text += f"{block.name}::{block.name}({key}) {{ setName(kName); }}\n\n"
    text += definitions_of_initialisers(block)
    if block.names_by_mode:
        text += _NAME_OF_MODE.format(name=block.name)
    text += f"const JXEventClass& {block.name}::eventClass() {{\n"
    arguments_ = [f"{block.base.name}::eventClass()", f'"{block.name}"',
                  "kModes.allStrings()" if block.modes else "{kName}" if block.event_name else "{}",
                  field_list(block, block.written), conditions(block), factory(block),
                  "kModes.allEnumerators()" if block.modes else "{}",
                  field_list(block, block.unwritten)]
    while arguments_[-1] in ("{}", f"createByInit<{block.name}>"):  # the default values
        arguments_.pop()
    return text + (f"  static const auto& type = JXEventClass::of<{block.name}>("
                   f"{', '.join(arguments_)});\n  return type;\n}}\n\n")


_NAME_OF_MODE = """
void {name}::setNameOfMode(const JXEnumStrings& modes, int mode) {{
  setName(modes.stringOf(mode));
  if (name().isPresent()) return;
  JXLogger::sharedInstance().logMessage_withLevel(
      std::string(ownEventClass().className) + ": mode " + std::to_string(mode) +
          " is outside its enumeration; event has no name",
      3);
}}

"""


def object_definitions(block):
    nested = "".join(f" && {field.member}->verifyProduct()" for field in block.fields.values()
                     if field.type == "product")
    return definitions_of_initialisers(block) + f"""
bool {block.name}::{verify_name(block)}() const {{
  return blockClass().firstFailed(*this) == nullptr{nested};
}}

JXJsonObject {block.name}::getJsonObject() const {{ return newJsonObject(); }}

void {block.name}::writeOwnEntries(JXJsonSink& sink) const {{
  blockClass().writeFields(*this, sink);
}}

const JXBlockClass& {block.name}::blockClass() {{
  static const auto& fields = *new JXFieldTable{field_list(block, block.written)};
  static const auto& type =
      *new JXBlockClass{{"{block.name}", nullptr, &fields, {conditions(block)}}};
  return type;
}}

"""


def class_source(block):
    needed = [KEYS_HEADER]
    if block.names_by_mode:
        needed += ["<string>", "jx/core/JXLogger.h"]
    constant = ""
    if block.event_name:
        constant = f'constexpr std::string_view kName = "{block.event_name}";'
    if block.modes is not None:
        constant = f"constexpr auto kModes = {enum_strings(block.modes)};"
    scope = f"namespace {{\n\n{constant}\n\n}}  // namespace\n\n" if constant else "\n"
    body = event_definitions(block) if block.kind == "event" else object_definitions(block)
    return (f"{licence(f'{FOLDER}/{block.file}')}#include \"{block.header}\"\n\n"
            f"{included(needed)}namespace jx {{\n{scope}{body}}}  // namespace jx\n")


def list_of_classes(catalogue):
    body = comment("All event classes, base classes first, in the order of docs/events.md.", "")
    body += "inline constexpr const JXEventClass& (*kJXEventClasses[])() = {\n"
    file = None
    for block in catalogue.events:
        if file not in (None, block.file):
            body += "\n"
        file = block.file
        body += f"    {block.name}::eventClass,\n"
    return header(FOLDER, [block.header for block in catalogue.events], body + "};\n\n")


_JSON_KINDS = {"string": "String", "number": "Number", "number_string": "Number", "boolean": "Bool",
               "boolean_string": "Bool", "block": "Object"}


def context_block(block):
    entries = ""
    for field in block.fields.values():
        nested = f"&{field.block}Block()" if field.block else "nullptr"
        entries += (f"{{{field.key.cpp}, Kind::{_JSON_KINDS[field.type]}, "
                    f"{'true' if field.is_required else 'false'}, {nested}}},\n")
    replacement = f", {block.replaced_by.cpp}" if block.replaced_by else ""
    return (f"const JXContextBlock& {block.name}Block() {{\n"
            f"  static const auto& block = *new JXContextBlock{{{block.key.cpp}, "
            f"{{{entries}}}{replacement}}};\n  return block;\n}}\n\n")


def context_source(catalogue):
    blocks = catalogue.contexts
    headers = [KEYS_HEADER] + [field.key.header for block in blocks
                               for field in block.fields.values() if field.key.header]
    top = ", ".join(f"&{block.name}Block()" for block in blocks if block.is_top_level)
    # The catalogue describes a block before the blocks that are nested in it.
    definitions = "".join(context_block(block) for block in reversed(blocks))
    return (f"{licence(FOLDER)}#include \"{CONTEXT_HEADER}\"\n\n{included(headers)}"
            "namespace jx {\nnamespace {\n\nusing Kind = JXJsonValue::Kind;\n\n"
            f"{definitions}}}  // namespace\n\n"
            "const std::vector<const JXContextBlock*>& topLevelContextBlocks() {\n"
            f"  static const auto& blocks = *new std::vector<const JXContextBlock*>{{{top}}};\n"
            "  return blocks;\n}\n\n}  // namespace jx\n")


def files(catalogue):
    """Returns the text of each generated file by its path."""
    texts = {KEYS_HEADER: keys_header(catalogue),
             "jx/events/JXEventClasses.h": list_of_classes(catalogue),
             CONTEXT_HEADER[:-1] + "cpp": context_source(catalogue),
             **value_headers(catalogue)}
    for block in catalogue.events + catalogue.objects:
        if not block.is_by_hand:
            texts[block.header] = class_header(block)
            texts[block.source] = class_source(block)
    return texts
