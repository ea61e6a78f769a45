#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The Objective-C headers for the site: objc.py FOLDER writes a copy of each for Doxygen to FOLDER.

A copy contains the Swift name in the comment of a declaration, and omits what Doxygen does not
understand. It has the lines of the header, so that warnings show the right line number.
"""

import functools
import glob
import os
import re
import sys

import headers

FOLDER = "jx/objc"
# A class, a category of a class of the system, or a protocol, with its comment.
CONTAINER = re.compile(
    r"(?P<comment>(?:^///[^\n]*\n)*)(?:^JX_OBJC_(?:SENDABLE_)?CLASS\n)?"
    r"(?P<head>^@(?:interface|protocol) (?P<name>\w+)[^;{\n]*)(?P<body>\{?\n.*?^@end)",
    re.DOTALL | re.MULTILINE)
# A method or a property, with its comment.
MEMBER = re.compile(r"(?P<comment>(?:^ *///.*\n)*)^(?P<code>(?:[-+] \(|@property\b)[^;]*;)",
                    re.MULTILINE)
ENUMERATOR = re.compile(r'^( *///.*\n)?^( *)(\w+) JX_SWIFT_NAME\("(\w+)"\)', re.MULTILINE)
ENUMERATION = re.compile(r"((?:^///.*\n)+)^typedef NS_ENUM\(\w+, (\w+)\)", re.MULTILINE)
SWIFT_NAME = re.compile(r'\s*JX_SWIFT_NAME\("([^"]*)"\)')
MACRO = re.compile(r'\s*(?:JX_SWIFT_NAME\("[^"]*"\)|JX_REFINED_FOR_SWIFT)')


def public_headers():
    return sorted(glob.glob(FOLDER + "/*.h"))


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def member_name(code):
    """Returns the selector of a method after its sign, or the name of a property."""
    if code.startswith("@"):
        return re.search(r"(\w+)(?: JX_\w+)?;$", code).group(1)
    sign, rest = code[0], re.sub(r"^. \([^)]*\)\s*", "", code)
    return sign + ("".join(re.findall(r"(\w+:)\s*\(", rest)) or re.match(r"\w+", rest).group(0))


@functools.lru_cache(maxsize=None)
def declarations():
    """Returns {(class or protocol, name of the member): declaration}. A class has the name ""."""
    found = {}
    for header in public_headers():
        for container in CONTAINER.finditer(read(header)):
            found[container.group("name"), ""] = container.group("head").strip()
            before, optional = 0, ""
            for member in MEMBER.finditer(container.group("body")):
                if "\n@optional\n" in container.group("body")[before:member.start() + 1]:
                    optional = "@optional\n"
                before = member.start()
                code = member.group("code")
                if "JX_OBJC_UNAVAILABLE" in code:
                    continue
                # The formatter breaks a long line after the type or the colon.
                found[container.group("name"), member_name(code)] = optional + re.sub(
                    r"(?<=:)\n\s+|(?<=\))\n\s+(?=\w+;)", "", MACRO.sub("", code))
    return found


@functools.lru_cache(maxsize=None)
def swift_extensions():
    """Returns {class: text of its extension in the Swift module}."""
    found = {}
    for path in sorted(glob.glob("swift/JXServerSide/*.swift")):
        for name, body in re.findall(r"^extension (\w+) \{\n(.*?)^\}", read(path),
                                     re.DOTALL | re.MULTILINE):
            found[name] = found.get(name, "") + body
    return found


def swift_form(container, code):
    """Returns the Swift form of a member whose name or type differs there, or an empty string."""
    name = SWIFT_NAME.search(code)
    if name:
        # The Swift module replaces a name that begins with two underscores.
        return name.group(1).replace("(__", "(")
    if "JX_REFINED_FOR_SWIFT" in code:
        item = re.escape(member_name(code).lstrip("-+").removesuffix(":"))
        item = item[3:4].lower() + item[4:] if item.startswith("set") else item
        found = re.search(rf"public (var {item}: [^{{]*?|func {item}\([^{{]*?) \{{",
                          swift_extensions()[container])
        return found.group(1)
    return ""


def enumerator(match):
    comment, indent, name, swift = match.groups()
    # Doxygen does not report it.
    if not comment:
        raise ValueError(f"{name} is not documented")
    return f"{comment[:-1]}<br/>Swift: `{swift}`\n{indent}{name}"


def for_doxygen(text):
    """Returns the text of a header for Doxygen. Raises ValueError for an enumerator without
    comment."""
    def member(container, match):
        comment, code = match.group("comment"), match.group("code")
        lines = match.group(0).count("\n")
        if "JX_OBJC_UNAVAILABLE" in code:
            return "\n" * lines
        swift = swift_form(container, code)
        if swift and comment:
            comment = f"{comment[:-1]}<br/>Swift: `{swift}`\n"
        shortened = comment + MACRO.sub("", code)
        return shortened + "\n" * (lines - shortened.count("\n"))

    def container(match):
        return MEMBER.sub(functools.partial(member, match.group("name")), match.group(0))

    text = CONTAINER.sub(container, text)
    text = re.sub(r"^(?:NS_ASSUME_NONNULL_(?:BEGIN|END)|JX_OBJC_(?:SENDABLE_)?CLASS)$", "", text,
                  flags=re.MULTILINE)
    text = ENUMERATOR.sub(enumerator, text)
    text = re.sub(r"^typedef NS_ENUM\((\w+), (\w+)\) \{", r"enum \2 : \1 {", text,
                  flags=re.MULTILINE)
    text = text.replace("JX_OBJC_EXTERN ", "extern ").replace(" const _Nonnull ", " const ")
    # Doxygen would join a trailing comment with the comment of the next member.
    text = re.sub(r'///< "(.*)"$', r"/**< @brief The string `\1`. */", text, flags=re.MULTILINE)
    # Enumerations and constants are documented on the page of their file.
    if re.search(r"^(?:enum|extern) ", text, re.MULTILINE):
        text = re.sub(r"^$", "/** @file */", text, count=1, flags=re.MULTILINE)
    return text


def areas():
    """Returns [(title, [(name, first sentence)])] of the classes and protocols, with the titles and
    the order of the C++ classes of the same names."""
    sentences = {}
    for header in public_headers():
        for match in CONTAINER.finditer(read(header)):
            sentences[match.group("name")] = headers.first_sentence(match.group("comment"))
    found = [(title, [name for name, _ in named if name in sentences])
             for title, named in headers.areas()]
    listed = {name for _, names in found for name in names}
    for title, names in found:
        if title == "Core":
            names += [name for name in sentences if name not in listed]
    return [(title, [(name, sentences[name]) for name in names]) for title, names in found if names]


def page(name):
    """Returns the address of the page of a class, category or protocol."""
    head = declarations()[name, ""]
    category = re.search(r" \((\w+)\)$", head)
    if category:
        return f"objc/category{name}_07{category.group(1)}_08.html"
    is_protocol = head.startswith("@protocol")
    return f"objc/protocol{name}-p.html" if is_protocol else f"objc/interface{name}.html"


def enumerations():
    """Yields (name, page of the header, first sentence) of each enumeration."""
    for header in public_headers():
        address = f"objc/{os.path.basename(header)[:-2]}_8h.html"
        for comment, name in ENUMERATION.findall(read(header)):
            yield name, address, headers.first_sentence(comment)


def table(title, head, rows):
    """Yields a section with a table of (name, address, description), as lines of Markdown."""
    yield f"## {title} {{#objc-{title.lower().replace(' ', '-')}}}"
    yield ""
    yield f"| {head} | description |"
    yield "|---|---|"
    for name, address, description in rows:
        yield f"| [{name}]({address}) | {description} |"
    yield ""


def tables():
    for title, named in areas():
        yield from table(title, "class or protocol",
                         [(name, page(name), sentence) for name, sentence in named])
    yield from table("Enumerations and constants", "name", [
        *enumerations(), ("Constants", "objc/JXNames_8h.html",
                          "The JSON keys, and the names of notifications and variables.")])


def main():
    os.makedirs(sys.argv[1], exist_ok=True)
    for header in public_headers():
        try:
            text = for_doxygen(read(header))
        except ValueError as error:
            sys.exit(f"docs: {header}: {error}")
        with open(os.path.join(sys.argv[1], os.path.basename(header)), "w",
                  encoding="utf-8") as file:
            file.write(text)


if __name__ == "__main__":
    main()
