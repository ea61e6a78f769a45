# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Generates the Swift overlay that follows from the catalogue: fields and initialisers of the
Objective-C classes with types of Swift.

`files(catalogue)` returns the text of each file by its path."""

import pathlib

from cpp import comment, licence
from model import FOLDER
from objc import argument_label, swift_labels, text_of

OUTPUT = "swift/JXServerSide"
_LISTS = {"strings": "String", "numbered_strings": "String", "values": "Any", "items": "JXItem"}
_OBJECTS = {"string": "String?", "number": "Decimal?", "product": "JXProduct?"}


def number_property(field):
    return (comment(text_of(field.comment)) +
            f"  public var {field.property}: Decimal? {{\n"
            f"    get {{ __{field.property}?.decimalValue }}\n"
            f"    set {{ __{field.property} = decimalNumber(newValue) }}\n  }}\n")


def list_property(field):
    capital = field.property[0].upper() + field.property[1:]
    element = _LISTS[field.type]
    omission = "" if field.type == "values" else " Omits null elements."
    list = f"(__{field.property} ?? [])"
    read = (f"Array{list}" if field.type == "values" else
            f"{list}.compactMap {{ $0 as? {element} }}")
    return (comment(text_of(field.comment) + omission) +
            f"  public var {field.property}: [{element}] {{\n"
            f"    get {{ {read} }}\n"
            f"    set {{ __set{capital}(newValue) }}\n  }}\n")


def parameter(block, item):
    if item.type in _LISTS:
        return f"[{_LISTS[item.type]}]?"
    if item.type in _OBJECTS:
        return _OBJECTS[item.type]
    if item.type == "mode":
        return block.modes.name
    return {"int32": "Int32", "boolean": "Bool"}.get(item.type) or item.field.enumeration.name


def initialiser(block, item):
    names = [argument_label(keyword) for keyword in item.keywords]
    declared = ",\n    ".join(f"{name}: {parameter(block, argument)}"
                             for name, argument in zip(names, item.arguments))
    passed = ",\n      ".join(
        f"{label}: " + (f"decimalNumber({name})" if argument.type == "number" else name)
        for label, name, argument in zip(swift_labels(item), names, item.arguments))
    return (comment(text_of(item.comment)) +
            f"  public convenience init(\n    {declared}\n  ) {{\n"
            f"    self.init(\n      {passed})\n  }}\n")


def extension(block):
    """Returns the extension of a class; "" if its Objective-C interface is sufficient."""
    parts = [number_property(field) if field.type == "number" else list_property(field)
             for field in block.fields.values() if field.type in {"number", *_LISTS}]
    parts += [initialiser(block, item) for item in block.initialisers
              if swift_labels(item)[0].startswith("__")]
    return f"extension {block.name} {{\n" + "\n".join(parts) + "}\n" if parts else ""


def files(catalogue):
    """Returns the text of each generated file by its path."""
    texts = {}
    for block in catalogue.events + catalogue.objects:
        text = "" if block.is_by_hand else extension(block)
        if text:
            stem = pathlib.PurePath(block.file).stem
            start = f"{licence(f'{FOLDER}/{block.file}')}import Foundation\nimport JXServerSideObjC\n"
            path = f"{OUTPUT}/{stem.capitalize()}.swift"
            texts[path] = texts.get(path, start) + "\n" + text
    return texts
