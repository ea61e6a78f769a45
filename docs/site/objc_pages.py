# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""The Objective-C part of the site: the pages that Doxygen wrote to the folder objc."""

import html
import re
import xml.etree.ElementTree as ElementTree

import objc

# A row with a declaration, and the row with its comment.
ROW = re.compile(r'<tr class="memitem:(\w+)([^"]*)">((?:(?!</tr>).)*)</tr>\n'
                 r'(<tr class="memdesc:(?:(?!</tr>).)*</tr>\n)?', re.DOTALL)
NAME = re.compile(r'>([-+]?) ?(?:<b>|<a class="el" href="([^"#]*)#\w+">)([\w:]+)</')
# A row that finished() wrote. Inherited members are not listed.
MEMBER = re.compile(r'<tr class="memitem:(\w+)" data-name="([^"]+)">')


def remove_unused(folder):
    """Removes what Doxygen writes to each folder and the site has in its main folder, or not."""
    for path in (folder / "objc").iterdir():
        if path.suffix != ".html" or re.match(r"index\.|dir_|.*-members\.", path.name):
            path.unlink()


def headers(folder):
    """Returns [(page, name)] of the headers that declare enumerations and constants."""
    return [(f"objc/{path.name}", path.name.replace("_8h.html", ".h"))
            for path in sorted((folder / "objc").glob("*_8h.html"))]


def compounds(tagfile):
    """Yields (kind, name, element) of the classes, categories, protocols and headers. A category has
    the name of its class."""
    for compound in ElementTree.parse(tagfile).getroot():
        name = compound.findtext("name").partition("(")[0].removesuffix("-p")
        if compound.get("kind") in ("class", "category", "protocol", "file"):
            yield compound.get("kind"), name, compound


def members(tagfile):
    """Yields the search entries of the Objective-C API: [title, location, address, text]."""
    for kind, owner, compound in compounds(tagfile):
        if kind != "file":
            yield [owner, f"Objective-C {kind}", objc.page(owner), ""]
        for member in compound.findall("member"):
            address = f"objc/{member.findtext('anchorfile')}#{member.findtext('anchor')}"
            yield [member.findtext("name"), f"{owner} (Objective-C)", address, ""]


def links(tagfile):
    """Returns the address of each class, protocol and enumeration, from a page of the folder."""
    found = {}
    for kind, name, compound in compounds(tagfile):
        # The class of a category is one of the system, whose name is no link.
        if kind not in ("category", "file"):
            found[name] = objc.page(name).removeprefix("objc/")
        for member in compound.findall("member"):
            if member.get("kind") == "enumeration":
                found[member.findtext("name")] = (f"{member.findtext('anchorfile')}#"
                                                  f"{member.findtext('anchor')}")
    return found


def owner_of(page):
    """Returns the class or protocol of a page, or an empty string."""
    match = re.match(r"(?:interface|protocol|category)(\w+?)(?:-p|_07\w+)?\.html$", page)
    return match.group(1) if match else ""


def declaration(code, name, target, addresses):
    """Returns a declaration with links to its types, and to the member if `target` is not empty."""
    item = name.lstrip("-+")
    keywords = re.findall(r"\w+:?", item)
    pattern = "|".join(rf"\b{keyword}(?=\()" if keyword.endswith(":") else rf"\b{keyword}(?=;)"
                       for keyword in keywords)

    def marked(match):
        text = match.group(0)
        address = target if match.group(1) else addresses.get(text)
        linked = f'<a class="el" href="{address}">{text}</a>' if address else text
        return f"<b>{linked}</b>" if match.group(1) else linked

    return re.sub(rf"({pattern})|\b\w+\b", marked, html.escape(code, quote=False).rstrip())


def finished(address, text, addresses):
    """Returns a page with the declarations of the headers. Doxygen lists names only, and repeats
    each comment below the list."""
    page = address.removeprefix("objc/")
    owner = owner_of(page)
    text = re.sub(r'(href|src)="((?:site|search-index|index)\.(?:css|js|html)")', r'\1="../\2', text)
    text = text.replace(" - JXServerSide</title>", " (Objective-C) - JXServerSide</title>", 1)
    if not owner:
        return text.replace("Variables</h2>", "Constants</h2>")
    text = re.sub(r'<h2 class="groupheader">(?:Method|Property) Documentation</h2>.*'
                  r'(?=</div><!-- contents -->)', "", text, flags=re.DOTALL)
    text = re.sub(r'\s*<a href="[^"]*">More\.\.\.</a>', "", text)
    text = re.sub("(Class|Instance) Methods inherited", r"\1 methods inherited", text)
    addresses = {name: target for name, target in addresses.items() if name != owner}
    head = declaration(objc.declarations()[owner, ""], "", "", addresses)
    text = re.sub(r"(<p><code>#import .*?</code></p>)", rf"\1\n<p><code>{head}</code></p>", text)

    own = {one for name, one in objc.declarations() if name == owner}

    def row(match):
        anchor, inherited, cells, comment = match.groups()
        sign, target, item = NAME.search(cells).groups()
        name = sign + item
        if inherited:
            target = inherited.rpartition("_")[2] + ".html"
        other = owner_of(target or page)
        # Doxygen lists a method of a protocol also in a class that declares it itself.
        if other != owner and not inherited and name in own:
            return ""
        is_own = other == owner
        mark = f'<a id="{anchor}"></a>' if is_own else ""
        code = declaration(objc.declarations()[other, name], name,
                           "" if is_own else f"{target}#{anchor}", addresses)
        return (f'<tr class="memitem:{anchor}{inherited}" data-name="{item}">'
                f'<td class="memItemRight objc">{mark}{code}</td></tr>\n{comment or ""}')

    return ROW.sub(row, text)
