# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Generates the Objective-C headers and sources that follow from the catalogue: a class for each
event and object, the enumerations, and the constants.

`files(catalogue)` returns the text of each file by its path. The text still has to be formatted
with clang-format."""

import re

from c_headers import fields, is_written, name_groups
from cpp import comment, licence
from model import FOLDER

OUTPUT = "jx/objc"
_LISTS = {"strings": "NSString *", "numbered_strings": "NSString *", "values": "id",
          "items": "JXItem *"}
_OBJECTS = {"string": "NSString *", "number": "NSDecimalNumber *", "product": "JXProduct *"}
_KINDS = {"string": "toString", "number": "toDecimal"}


def swift_case(name):
    """Returns an enumerator in the case of Swift: "PRE_ROLL" is "preRoll"."""
    first, *rest = name.lower().split("_")
    return first + "".join(word.capitalize() for word in rest)


def argument_label(keyword):
    """Returns the Swift label of a part of an initialiser's name: "withValue" is "value"."""
    label = re.sub(r"^(initWith|with|and)(?=[A-Z])", "", keyword)
    return label.lower() if label.isupper() else label[0].lower() + label[1:]


def text_of(text):
    """Returns a comment of the catalogue with the names of Objective-C."""
    return (text.replace("`ServerSide::execute`", "`-[ServerSide execute:]`")
            .replace("`jx_get_core_variable`", "`-[JXCoreVariables getData:]`")
            .replace("`jx_get_variable`", "`-[JXPredefinedVariables getData:]`")
            .replace("`JXDecimal`", "`NSDecimalNumber`").replace("null", "nil"))


def declared(field):
    """Returns the type in which a field is returned, without its nullability."""
    if field.type in _LISTS:
        return f"NSMutableArray<{_LISTS[field.type]}> *"
    if field.type == "enumeration":
        return field.enumeration.name + " "
    return _OBJECTS.get(field.type, "BOOL ")


def parameter(block, item):
    """Returns the type of an argument of an initialiser."""
    if item.type == "mode":
        return block.modes.name
    if item.type == "int32":
        return "int32_t"
    if item.type in _LISTS:
        return f"nullable NSArray<{_LISTS[item.type]}> *"
    if item.type in _OBJECTS:
        return f"nullable {_OBJECTS[item.type]}"
    return item.field.enumeration.name if item.field.enumeration else "BOOL"


def selector(block, initialiser, annotated):
    parts = []
    for keyword, item in zip(initialiser.keywords, initialiser.arguments):
        kind = parameter(block, item)
        parts.append(f"{keyword}:({kind if annotated else kind.replace('nullable ', '')})"
                     f"{item.name}")
    return f"- (instancetype){' '.join(parts)}"


def swift_labels(initialiser):
    """Returns the Swift labels of an initialiser. Two underscores mark one whose numbers have
    another type in the overlay."""
    first, *others = [argument_label(keyword) for keyword in initialiser.keywords]
    has_numbers = any(item.type == "number" for item in initialiser.arguments)
    return ["__" + first if has_numbers else first, *others]


def swift_initialiser(initialiser):
    labels = "".join(label + ":" for label in swift_labels(initialiser))
    return f'JX_SWIFT_NAME("init({labels})")'


def property_declaration(block, field):
    unwritten = "" if is_written(block, field) or block.kind != "event" else (
        " Events of this class do not contain it.")
    text = comment(f"{text_of(field.comment)}{unwritten}", "")
    kind = declared(field)
    if field.type in _LISTS:
        capital = field.property[0].upper() + field.property[1:]
        return (text + comment("Changes of the array change the list.", "") +
                f"@property(nonatomic, readonly, nullable) {kind}{field.property} "
                "JX_REFINED_FOR_SWIFT;\n" +
                comment("Replaces the list by a copy; nil removes it.", "") +
                f"- (void)set{capital}:(nullable NSArray<{_LISTS[field.type]}> *)"
                f"{field.property} JX_REFINED_FOR_SWIFT;\n")
    if field.type == "product":
        return text + f"@property(nonatomic, strong, nullable) {kind}{field.property};\n"
    if field.type in _OBJECTS:
        refined = " JX_REFINED_FOR_SWIFT" if field.type == "number" else ""
        return text + f"@property(nonatomic, copy, nullable) {kind}{field.property}{refined};\n"
    return text + f"@property(nonatomic) {kind}{field.property};\n"


def class_header(block):
    base = block.base.name if block.base else "JXAdditionalProperties"
    imports = {base + ".h"}
    if block.modes or any(field.enumeration for field in block.fields.values()):
        imports.add("JXNames.h")
    others = {"items": "JXItem", "product": "JXProduct"}
    types = [field.type for field in block.fields.values()]
    types += [item.type for initialiser in block.initialisers for item in initialiser.arguments]
    needed = sorted({others[kind] for kind in types if kind in others} - {block.name})
    body = "".join(f'#import "{name}"\n' for name in sorted(imports)) + "\n"
    body += f"@class {', '.join(needed)};\n\n" if needed else ""
    body += "NS_ASSUME_NONNULL_BEGIN\n\n" + comment(text_of(block.comment), "")
    body += f"JX_OBJC_CLASS\n@interface {block.name} : {base}\n\n"
    for item in block.initialisers:
        body += comment(text_of(item.comment), "")
        body += f"{selector(block, item, True)} {swift_initialiser(item)};\n"
    if block.deleted_init:
        body += comment(f"Unavailable, because {text_of(block.deleted_init)}.", "")
        body += ("- (instancetype)init JX_OBJC_UNAVAILABLE;\n"
                 "+ (instancetype)new JX_OBJC_UNAVAILABLE;\n")
    else:
        created = block.init_comment or (f'Creates an event named "{block.event_name}"; all other '
                                         "fields are null or empty.")
        body += comment(text_of(created), "") + "- (instancetype)init;\n"
    body += "\n"
    if block.kind == "object":
        body += comment(text_of(block.verify_comment), "") + f"- (BOOL)verify{block.name[2:]};\n"
        body += (comment(text_of(block.json_comment), "") +
                 "- (NSMutableDictionary<NSString *, id> *)getJsonObject "
                 'JX_SWIFT_NAME("jsonObject()");\n\n')
    body += "".join(property_declaration(block, field) for field in block.fields.values())
    return licence(f"{FOLDER}/{block.file}") + body + "\n@end\n\nNS_ASSUME_NONNULL_END\n"


def read(block, field):
    place = f'"{block.name}.{field.property}"'
    value = f"coreOf<Core>(self).{field.property}()"
    if field.type in _LISTS:
        return f"return fieldArray(self, {value}, {place});"
    if field.type == "product":
        return f"return fieldProduct(self, {value}, @{place});"
    if field.type in _OBJECTS:
        return f"return toFoundation({value});"
    return f"return {'static_cast<' + field.enumeration.name + '>(' + value + ')' if field.enumeration else value + ' ? YES : NO'};"


def write(block, field):
    place = f'"{block.name}.{field.property}"'
    call = f"coreOf<Core>(self).{field.setter}"
    if field.type in _LISTS:
        return f"setFieldArray<Core>(self, &Core::{field.setter}, value, {place});"
    if field.type == "product":
        return (f"if (!isNilOr([JXProduct class], value, {place})) return;\n"
                f"{call}(sharedCore<jx::JXProduct>(value));\n"
                f"[self jx_setPart:value forField:@{place}];")
    if field.type in _OBJECTS:
        expected = "NSString" if field.type == "string" else "NSNumber"
        return (f"if (!isNilOr([{expected} class], value, {place})) return;\n"
                f"{call}({_KINDS[field.type]}(value, {place}));")
    value = f"static_cast<jx::{field.enumeration.name}>(value)" if field.enumeration else "value != NO"
    return f"{call}({value});"


def passed(block, item):
    """Returns an argument of an initialiser in C++."""
    if item.type in _LISTS:
        return "{}"  # the elements are appended afterwards
    if item.type == "product":
        return "nullptr"  # set afterwards, if it is one
    if item.type == "mode":
        return "static_cast<Core::Mode>(mode)".replace("Core::Mode", f"jx::{block.modes.name}")
    if item.type == "int32":
        return item.name
    return f'{_KINDS[item.type]}({item.name}, "{block.name}.{item.field.property}")'


def initialiser_definition(block, item):
    arguments = ", ".join(passed(block, argument) for argument in item.arguments)
    kept = ""
    for argument in item.arguments:
        name = argument.name
        setting = f"[self set{name[0].upper() + name[1:]}:{name}];\n"
        if argument.type in _LISTS:
            kept += f"if ({name} != nil) {setting}"
        elif argument.type == "product":
            kept += setting
    created = f"[self jx_initWithCore:Core::{item.name}({arguments})]"
    if not kept:
        return f"{selector(block, item, False)} {{\nreturn {created};\n}}\n\n"
    return (f"{selector(block, item, False)} {{\nself = {created};\nif (self == nil) return nil;\n"
            f"{kept}return self;\n}}\n\n")


def new_core(block):
    if not block.deleted_init:
        return "Core::init()"
    if block.modes is not None:
        # Without a mode, the event has no name; see `firstFailedCondition`.
        return f"Core::{block.initialisers[0].name}(static_cast<jx::{block.modes.name}>(-1), nullptr)"
    return f"Core::{block.initialisers[0].name}(nullptr)"


def class_source(block):
    body = f"@implementation {block.name}\n\n"
    body += f"+ (std::shared_ptr<jx::JXAdditionalProperties>)jx_newCore {{\nreturn {new_core(block)};\n}}\n\n"
    for item in block.initialisers:
        body += initialiser_definition(block, item)
    body += "- (instancetype)init {\nreturn [super init];\n}\n\n"
    if block.kind == "object":
        body += (f"- (BOOL)verify{block.name[2:]} {{\n"
                 f"return coreOf<Core>(self).verify{block.name[2:]}() ? YES : NO;\n}}\n\n"
                 "- (NSMutableDictionary *)getJsonObject {\n"
                 "return toFoundation(coreOf<Core>(self).getJsonObject());\n}\n\n")
    for field in block.fields.values():
        capital = field.property[0].upper() + field.property[1:]
        kind = declared(field) if field.type not in _LISTS else "NSMutableArray *"
        value = "NSArray *" if field.type in _LISTS else kind.strip()
        body += (f"- ({kind.strip()}){field.property} {{\n{read(block, field)}\n}}\n\n"
                 f"- (void)set{capital}:({value})value {{\n{write(block, field)}\n}}\n\n")
    return (f'{licence(f"{FOLDER}/{block.file}")}#import "{OUTPUT}/{block.name}.h"\n\n'
            f'#include "{block.header}"\n'
            f'#import "{OUTPUT}/internal/JXFields.h"\n\n'
            f"using Core = jx::{block.name};\nusing namespace jx::objc;\n\n{body}@end\n")


def enumeration(entry):
    values = "".join(
        f'{comment(chr(34) + string + chr(34), "")}{entry.name}_{name} '
        f'JX_SWIFT_NAME("{swift_case(name)}") = {number},\n'
        for number, (name, string) in enumerate(entry.values.items()))
    return (comment(text_of(entry.comment), "") + f"typedef NS_ENUM(int32_t, {entry.name}) {{\n"
            f"{values}}};\n" + comment("The JSON string of each value.", "") +
            f"JX_OBJC_EXTERN NSString *const _Nonnull {entry.name}_toString[{len(entry.values)}];\n\n")


def names_header(catalogue):
    body = '#import "JXObjectiveC.h"\n\nNS_ASSUME_NONNULL_BEGIN\n\n'
    body += ("// Values of the enumerations are numbered from 0. A value outside the enumeration "
             "has no string.\n\n")
    body += "".join(map(enumeration, catalogue.enumerations.values()))
    body += ("/// The class that the key constants belong to. It has no members.\n"
             "JX_OBJC_CLASS\n@interface JXEventPropertiesNames : NSObject\n@end\n\n")
    for description, strings in name_groups(catalogue, only_in_c=False):
        title, _, text = text_of(description).removesuffix(".").partition(". ")
        body += f"/// @name {title}\n" + (comment(f"{text}.", "") if text else "") + "/// @{\n"
        body += "".join(f"JX_OBJC_EXTERN NSString *const {name};  ///< \"{string}\"\n"
                        for name, string in strings.items()) + "/// @}\n\n"
    return licence(FOLDER) + body + "NS_ASSUME_NONNULL_END\n"


def names_source(catalogue):
    body = f'#import "{OUTPUT}/JXNames.h"\n\n@implementation JXEventPropertiesNames\n@end\n\n'
    for entry in catalogue.enumerations.values():
        listed = ", ".join(f'@"{string}"' for string in entry.values.values())
        body += (f"NSString *const {entry.name}_toString[{len(entry.values)}] = "
                 f"{{{listed}}};\n")
    for _, strings in name_groups(catalogue, only_in_c=False):
        body += "\n" + "".join(f'NSString *const {name} = @"{string}";\n'
                               for name, string in strings.items())
    return licence(FOLDER) + body


def events_header(catalogue):
    names = sorted(["JXNames"] + [block.name for block in catalogue.events + catalogue.objects])
    return (licence(FOLDER) + "\n// The classes, enumerations and constants of the catalogue.\n" +
            "".join(f'#import "{name}.h"\n' for name in names))


def files(catalogue):
    """Returns the text of each generated file by its path."""
    texts = {f"{OUTPUT}/JXNames.h": names_header(catalogue),
             f"{OUTPUT}/JXNames.m": names_source(catalogue),
             f"{OUTPUT}/JXEvents.h": events_header(catalogue)}
    for block in catalogue.events + catalogue.objects:
        if block.is_by_hand:
            continue
        texts[f"{OUTPUT}/{block.name}.h"] = class_header(block)
        texts[f"{OUTPUT}/{block.name}.mm"] = class_source(block)
    return texts
