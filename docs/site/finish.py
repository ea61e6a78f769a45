#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Turns the output of Doxygen into the site: finish.py FOLDER TAGFILE OBJC_TAGFILE, run at the root
of the tree. The second tag file is that of the Objective-C pages, in FOLDER/objc.

Adds the sidebar, the table of contents and the links to the previous and next page to each page,
writes the search index, and removes files that no page uses.
"""

import html
import json
import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

import headers
import objc
import objc_pages
import site_map

# Files that Doxygen always writes and the site does not use.
UNUSED = ["*.png", "*.js", "doxygen.svg", "dir_*.html", "*-members.html"]
TITLES = {
    "Class Methods": "Class methods",
    "Instance Methods": "Instance methods",
    "Static Public Member Functions": "Static member functions",
    "Public Member Functions": "Member functions",
    "Public Types": "Types",
    "Public Attributes": "Data members",
    "Static Public Attributes": "Constants",
    "Member Enumeration Documentation": "Enumerations",
    "Enumeration Type Documentation": "Enumerations",
    "Member Typedef Documentation": "Type definitions",
    "Typedef Documentation": "Type definitions",
    "Detailed Description": "",
}
ANCHOR = r'<a (?:id="[^"]*" name|class="anchor" id)="([^"]*)"[^>]*></a>'
MEMBER = re.compile(r'<tr class="memitem:(\w+)"[^>]*>(?:(?!</tr>).)*?(?:<b>|<a class="el" '
                    r'href="[^"]*#\1">)([\w~]+)</', re.DOTALL)
HEADING = re.compile(r"<h([12])[^>]*>\s*" + ANCHOR + r"\s*(.*?)</h\1>", re.DOTALL)


def plain(markup):
    return " ".join(html.unescape(re.sub(r"<[^>]*>", " ", markup)).split())


def href(page):
    return site_map.label(page.path) + ".html"


def file_of_class(name):
    """Returns the possible names of the page that Doxygen wrote for a class."""
    return [f"{kind}jx_1_1{name}.html" for kind in ("class", "struct")]


def link(target, text, current):
    mark = ' aria-current="page"' if target == current else ""
    return f'<li><a href="{target}"{mark}>{html.escape(text)}</a></li>'


def c_headers(tagfile):
    """Returns [(page, name)] of the headers of the C API."""
    found = []
    for compound in ElementTree.parse(tagfile).getroot():
        path = compound.findtext("path") or ""
        if compound.get("kind") == "file" and "jx/c/" in path:
            found.append((path, compound.findtext("filename"),
                          compound.findtext("name")))
    return [one[1:] for one in sorted(found)]


def part_of_sidebar(title, links, current):
    is_open = " open" if current in [one for one, _ in links] else ""
    lines = [f"<details{is_open}><summary>{html.escape(title)}</summary><ul>"]
    lines += [link(one, name, current) for one, name in links]
    return "\n".join(lines) + "</ul></details>"


def sidebar(folder, current, of_c):
    lines = []
    for name, pages in site_map.parts():
        lines.append(f"<h2>{html.escape(name)}</h2><ul>")
        lines += [link(href(page), page.name, current) for page in pages]
        lines.append("</ul>")
    lines.append("<h2>C++ and C API reference</h2><ul>")
    lines.append(link("namespacejx.html", "Constants and functions", current))
    lines.append("</ul>")
    for title, named in headers.areas():
        links = [(one, name) for name, _ in named for one in file_of_class(name)
                 if (folder / one).exists()]
        lines.append(part_of_sidebar(title, links, current))
    if of_c:
        lines.append(part_of_sidebar("C headers", of_c, current))
    lines.append("<h2>Objective-C API reference</h2>")
    for title, named in objc.areas():
        lines.append(part_of_sidebar(title, [(objc.page(name), name) for name, _ in named],
                                     current))
    lines.append(part_of_sidebar("Enumerations and constants", objc_pages.headers(folder), current))
    return "\n".join(lines)


def marks_of(text):
    """Returns [(level, anchor, title)] of the headings and members of a page, in order."""
    found = [(m.start(), int(m.group(1)), m.group(2), plain(m.group(3)))
             for m in HEADING.finditer(text)]
    names = set()
    for m in list(MEMBER.finditer(text)) + list(objc_pages.MEMBER.finditer(text)):
        anchor, name = m.groups()
        accessor = name[3:4].lower() + name[4:] if name.startswith("set") else None
        if name not in names and accessor not in names:
            found.append((m.start(), 3, anchor, name))
        names.add(name)
    return [one[1:] for one in sorted(found) if one[3]]


def on_this_page(text):
    marks = marks_of(text)
    # A long list omits its deepest level.
    while len(marks) > 60:
        deepest = max(level for level, _, _ in marks)
        marks = [mark for mark in marks if mark[0] < deepest]
    if len(marks) < 2:
        return ""
    least = min(level for level, _, _ in marks)
    lines = "".join(f'<li class="level{level - least}"><a href="#{anchor}">'
                    f"{html.escape(title).replace(':', ':<wbr>')}</a></li>"
                    for level, anchor, title in marks)
    return f"<h2>On this page</h2><ul>{lines}</ul>"


def neighbours(name):
    pages = [page for _, part in site_map.parts() for page in part]
    at = next((i for i, page in enumerate(pages) if href(page) == name), None)
    if at is None:
        return ""
    lines = ""
    if at > 0:
        before = pages[at - 1]
        lines += f'<a class="previous" href="{href(before)}">{html.escape(before.name)}</a>'
    if at + 1 < len(pages):
        after = pages[at + 1]
        lines += f'<a class="next" href="{href(after)}">{html.escape(after.name)}</a>'
    return f'<nav class="neighbours" aria-label="Previous and next page">{lines}</nav>'


def tidied(text):
    """Returns the page with our headings, and without markup for Doxygen's own style sheet."""
    # The name of a protocol is in angle brackets.
    text = re.sub(r"&lt;(\w+)&gt; Protocol Reference", r"\1", text)
    text = re.sub(r"<title>(.*?)</title>",
                  lambda m: f"<title>{page_title(m.group(1))} - JXServerSide</title>", text, count=1)
    text = re.sub(r'(<div class="title">)(.*?)(</div>)',
                  lambda m: f'<h1 class="title">{page_title(m.group(2))}</h1>', text, count=1,
                  flags=re.DOTALL)
    text = re.sub(r'<div class="summary">.*?</div>', "", text, count=1, flags=re.DOTALL)
    text = re.sub(r'<div id="nav-path".*?</ul>\s*</div>', "", text, count=1, flags=re.DOTALL)
    text = re.sub(r'<h2 class="groupheader"> </h2>', "", text)
    text = re.sub(r'<a href="(?:https?://|file:[^"]*)">(.*?)</a>', r"\1", text)
    text = re.sub(r'<tr class="separator:[^"]*">.*?</tr>\n?', "", text)
    text = re.sub(r'<div class="ttc".*?</div></div>\n?', "", text)
    text = text.replace('<div class="line"> </div>', '<div class="line">&#8203;</div>')
    text = re.sub(r'<img src="closed.png"[^>]*/>', "", text)
    text = re.sub(r"&lt;tt&gt;(.*?)&lt;/tt&gt;", r"<code>\1</code>", text)
    # Not a keyword in C++: Doxygen means C++/CLI.
    text = text.replace('<span class="keyword">event</span>', "event")
    for old, new in TITLES.items():
        text = re.sub(rf"(</a>\s*|groupheader\">){old}(</h2>)", rf"\g<1>{new}\2", text)
    # In the dark scheme an embedded document has a white background; an image has none.
    text = re.sub(r'<object type="image/svg\+xml" data="([^"]*)"[^>]*>(.*?)</object>',
                  r'<img src="\1" alt="\2"/>', text, flags=re.DOTALL)
    text = re.sub(r'alt="" class="inline" title="([^"]*)"', r'alt="\1"', text)
    text = re.sub(r"<td[^>]*>.*?</td>", lambda cell: re.sub(
        r"<code>([^<]{25,})</code>", lambda code: f"<code>{breakable(code.group(1))}</code>",
        cell.group(0)), text, flags=re.DOTALL)
    text = re.sub(r'<table class="markdownTable">.*?</table>', lambda m: stackable(m.group(0)),
                  text, flags=re.DOTALL)
    # A wide table scrolls instead of the page.
    text = re.sub(r'(<table class="(?:markdownTable(?: stacked)?|fieldtable)">.*?</table>)',
                  r'<div class="wide">\1</div>', text, flags=re.DOTALL)
    text = re.sub(r'<td class="mem(?:Templ)?(?:Item(?:Left|Right)|Params)"[^>]*>.*?</td>',
                  lambda m: declaration(m.group(0)), text, flags=re.DOTALL)
    return text


def stackable(table):
    """Labels the cells of a table with long text, so that a phone can show each row as a block."""
    labels = [plain(head) for head in re.findall(r"<th[^>]*>(.*?)</th>", table, re.DOTALL)]
    rows = re.findall(r"<tr.*?</tr>", table, re.DOTALL)
    if len(labels) not in (3, 4) or max(len(plain(row)) for row in rows) < 120:
        return table

    def labelled(row):
        cells = iter(labels)
        return re.sub("<td ", lambda _: f'<td data-label="{html.escape(next(cells))}" ',
                      re.sub(r"\s+</td>", "</td>", row.group(0)))

    return re.sub(r"<tr.*?</tr>", labelled, table, flags=re.DOTALL).replace(
        'class="markdownTable"', 'class="markdownTable stacked"', 1)


def breakable(code):
    """Returns a long name with line break opportunities, for a table cell."""
    return re.sub(r"(/|::|\.(?=[A-Z])|[a-z](?=[A-Z]))", r"\1<wbr>", code)


def declaration(cell):
    """Returns a declaration in our format; a parameter does not link to a function of its name."""
    cell = cell.replace("&lt; ", "&lt;").replace(" &gt;", "&gt;").replace("&#160;</td>", " </td>")
    name, bracket, parameters = cell.partition("(")
    parameters = re.sub(r'<a class="el" href="[^"#]*#[^"]*"[^>]*>(.*?)</a>', r"\1", parameters)
    return re.sub(r"(</b>|</a>) $", r"\1" if bracket else r"\1 ", name) + bracket + parameters


def page_title(title):
    title = re.sub(r'<span class="mlabel.*', "", title, flags=re.DOTALL)
    title = " ".join(re.sub(r"<[^>]*>", "", title).split()).replace("JXServerSide: ", "")
    if title.startswith("jx Namespace"):
        return "Constants and functions"
    title = re.sub(r" (Class|Struct|Namespace|File)( Template)? Reference$", "", title)
    return re.sub(r"^jx::|&lt;.*&gt;", "", title)


def sections(name, text):
    """Yields the search entries of a page: [title, location, address, text]."""
    title = plain(re.search(r'<h1 class="title">(.*?)</h1>', text, re.DOTALL).group(1))
    body = text[text.index('<div class="contents">'):text.index("<!-- next pages -->")]
    marks = list(HEADING.finditer(body))
    ends = [mark.start() for mark in marks] + [len(body)]
    yield [title, "", name, plain(body[:ends[0]])]
    for mark, end in zip(marks, ends[1:]):
        yield [plain(mark.group(3)), title, f"{name}#{mark.group(2)}", plain(body[mark.end():end])]


def members(tagfile):
    """Yields the search entries of the API. A setter is found by its accessor."""
    listed = set()
    for compound in ElementTree.parse(tagfile).getroot():
        is_c = compound.get("kind") == "file" and "jx/c/" in (compound.findtext("path") or "")
        if compound.get("kind") not in ("class", "struct", "namespace") and not is_c:
            continue
        owner = compound.findtext("name").removeprefix("jx").removeprefix("::")
        if owner and compound.get("kind") in ("class", "struct"):
            yield [owner, "class", compound.findtext("filename"), ""]
        names = {member.findtext("name") for member in compound.findall("member")}
        for member in compound.findall("member"):
            name = member.findtext("name")
            address = f"{member.findtext('anchorfile')}#{member.findtext('anchor')}"
            is_setter = name.startswith("set") and name[3:4].lower() + name[4:] in names
            if member.findtext("anchor") and address not in listed and not is_setter:
                listed.add(address)
                yield [name, owner or "jx", address, ""]


def main():
    folder, tagfile = pathlib.Path(sys.argv[1]), sys.argv[2]
    for pattern in UNUSED:
        for path in folder.glob(pattern):
            if path.name != "site.js" and not (path.suffix == ".png" and is_own_image(path)):
                path.unlink()
    of_c = c_headers(tagfile)
    index = list(members(tagfile)) + list(objc_pages.members(sys.argv[3]))
    guides = {href(page) for _, part in site_map.parts() for page in part}
    objc_pages.remove_unused(folder)
    links = objc_pages.links(sys.argv[3])
    for path in sorted(folder.glob("*.html")) + sorted(folder.glob("objc/*.html")):
        name = path.relative_to(folder).as_posix()
        text = path.read_text(encoding="utf-8")
        is_objc = path.parent != folder
        text = objc_pages.finished(name, tidied(text), links) if is_objc else tidied(text)
        if name in guides:
            index += sections(name, text)
        navigation = sidebar(folder, name, of_c)
        if is_objc:
            navigation = navigation.replace('href="', 'href="../')
        text = text.replace("<!-- sidebar -->", navigation)
        text = text.replace("<!-- next pages -->", neighbours(name))
        text = text.replace("<!-- on this page -->", on_this_page(
            text[text.index('<div class="contents">'):]))
        path.write_text(text, encoding="utf-8")
    (folder / "search-index.js").write_text(
        "window.jxIndex = " + json.dumps(index, ensure_ascii=False, separators=(",", ":")) + ";\n",
        encoding="utf-8")


def is_own_image(path):
    return (pathlib.Path("docs/images") / path.name).exists()


if __name__ == "__main__":
    main()
