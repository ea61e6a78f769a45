# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Extracts the log messages of the library from its sources, and those of docs/logging.md.

A message is a pair of its text and its level, an int. Variable parts of the text are GAP.
"""

import itertools
import re

GAP = "\0"

# A message whose text is a parameter is built where its function is called. Each entry names the
# file, the text as it appears in the source without line breaks, and the function that yields the
# messages; None when the callers are found as calls of a logging function.
FORWARDED = {
    ("jx/core/storage/JXStorageReport.cpp", "message.text"): None,
    ("jx/core/transfer/JXTransferLoop.cpp", "message"): None,
    ("jx/core/JXStartGuard.cpp", "message"): lambda tree: tree.last_messages(),
    ("jx/facade/ServerSide.cpp", "message"): None,
    ("jx/core/JXExceptionLog.cpp",
     'concat({failure, ": ", error.what(), separator, consequence})'):
        lambda tree: tree.exceptions(),
    ("jx/catalogue/JXOmissionLog.cpp", 'concat({innermostLog->eventName(), ": ", key, what})'):
        lambda tree: tree.with_arguments("jx/catalogue/JXOmissionLog.cpp", "reportOnce",
                                         {"what": 2}),
    ("jx/core/JXCoreServices.cpp", "endpoint.message.view()"):
        lambda tree: tree.endpoint_messages(),
    ("jx/core/storage/JXStorageReport.cpp",
     'concat({subject_, ": cannot ", action, ": ", reason})'):
        lambda tree: tree.storage_failures(),
    ("jx/core/storage/JXStorageReport.cpp",
     'concat({subject_, ": damaged data in ", path, "; quarantined in a .damaged-* file"})'):
        lambda tree: tree.storage_subjects(),
    ("jx/core/storage/JXStorageReport.cpp",
     'concat({subject_, ": old quarantined files deleted: limit of number, size or age"})'):
        lambda tree: tree.storage_subjects(),
    ("jx/core/storage/JXStorageReport.cpp",
     'concat({subject_, ": cannot queue an event: out of memory; event dropped"})'):
        lambda tree: tree.storage_subjects("jx/core/storage/JXOutbox.cpp"),
    ("jx/c/internal/JXCall.cpp", 'std::string(operation) + ": " + detail'):
        lambda tree: tree.c_details(),
}

# Messages that docs/logging.md does not list one by one, with the reason.
NOT_LISTED = {
    ("jx/core/JXExceptionLog.cpp", "failure"): "logged without cause; the page says so",
    ("jx/c/internal/JXCall.cpp", "operation"): "logged without cause; the page says so",
}

# Passes messages on, and creates none.
LOGGER = "jx/core/JXLogger.cpp"
# The same for the messages of an application.
LOGGER_OF_THE_APPLICATION = "jx/objc/JXLogger.mm"

LITERAL = re.compile(r'"((?:\\.|[^"\\])*)"')
LITERALS = re.compile(r'(?:"(?:\\.|[^"\\])*"\s*)+')
ESCAPES = {"n": "\n", "t": "\t", '"': '"', "\\": "\\", "'": "'"}
OPENING, CLOSING = "([{", ")]}"


def without_comments(text):
    """Blanks the comments, so that positions stay the same."""
    pattern = re.compile(
        r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])\'|//[^\n]*|/\*.*?\*/', re.DOTALL)
    return pattern.sub(
        lambda found: found.group() if found.group()[0] in "\"'"
        else re.sub(r"[^\n]", " ", found.group()), text)


def split_at_top_level(text, separators):
    """Splits at the separators that are outside of brackets and string literals."""
    parts, depth, begin, at = [], 0, 0, 0
    while at < len(text):
        literal = re.compile(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])\'').match(text, at)
        if literal:
            at = literal.end()
            continue
        char = text[at]
        depth += (char in OPENING) - (char in CLOSING)
        # "::" belongs to a name.
        if char == ":" and text[at:at + 2] == "::":
            at += 2
            continue
        if depth == 0 and char in separators:
            parts.append(text[begin:at])
            begin = at + 1
        at += 1
    return parts + [text[begin:]]


def in_brackets(text, opening):
    """Returns the text between the bracket at the position `opening` and its counterpart."""
    depth, at = 0, opening
    while at < len(text):
        literal = LITERAL.match(text, at)
        if literal:
            at = literal.end()
            continue
        depth += (text[at] in OPENING) - (text[at] in CLOSING)
        if depth == 0:
            return text[opening + 1:at]
        at += 1
    raise ValueError("unbalanced brackets")


def one_line(expression):
    return re.sub(r"\s+", " ", expression).strip()


def joined(pieces):
    """Joins the pieces of a text; adjacent gaps become one."""
    return re.sub(GAP + "+", GAP, "".join(pieces))


class Tree:
    """The sources of the library."""

    def __init__(self, root):
        paths = sorted(path for kind in ("cpp", "h", "mm")
                       for path in (root / "jx").rglob(f"*.{kind}"))
        self.sources = {path.relative_to(root).as_posix():
                        without_comments(path.read_text(encoding="utf-8")) for path in paths}
        self.errors = []
        self.used = set()

    def messages(self):
        """Returns all messages of the library; fills `errors`."""
        found = set()
        functions = re.findall(r"void (\w+)\(std::string_view message, int level\) noexcept;",
                               self.sources["jx/core/JXLogger.h"])
        for file, text in self.sources.items():
            if file in (LOGGER, LOGGER_OF_THE_APPLICATION):
                continue
            names = "|".join([*functions, r"\blog(?:Line)?"])
            for position, arguments in self.calls(file, names):
                if len(arguments) == 2:
                    found |= self.messages_of(file, position, *arguments)
                elif one_line(", ".join(arguments)) != "messages":
                    self.errors.append(f"{file}: call of a logging function without a level")
            for match in re.finditer(r"\bmessages_\.push_back\(\s*(\{)", text):
                arguments = split_at_top_level(in_brackets(text, match.start(1)), ",")
                found |= self.messages_of(file, match.start(), *arguments)
        for entry in sorted((set(FORWARDED) | set(NOT_LISTED)) - self.used):
            self.errors.append(f"{entry[0]} does not log {entry[1]}; update {__file__}")
        return found

    def messages_of(self, file, position, expression, level):
        entry = (file, one_line(expression))
        if entry in NOT_LISTED or (entry in FORWARDED and FORWARDED[entry] is None):
            self.used.add(entry)
            return set()
        if entry in FORWARDED:
            self.used.add(entry)
            environments = FORWARDED[entry](self)
        else:
            environments = [{}]
        found = set()
        for environment in environments:
            source = environment.pop("file", file), environment.pop("position", position)
            text = environment.pop("text", expression)
            levels = self.values(*source, environment.pop("level", level), environment)
            for message in self.values(*source, text, environment):
                if len(re.findall("[A-Za-z]", message)) < 4 and file != "jx/c/internal/JXCall.cpp":
                    self.errors.append(f"{file}: the text of a message must be a literal: "
                                       f"{one_line(expression)}")
                found |= {(message, int(number)) for number in levels}
        return found

    def calls(self, file, name):
        """Yields position and arguments of each call of a function, but not of its declaration."""
        text = self.sources[file]
        for match in re.finditer(rf"(?:{name})(\()", text):
            before = text[:match.start()].rsplit("\n", 1)[-1]
            if re.search(r"\b(void|jx_status|Result)\s+(\w+::)*$", before):
                continue
            arguments = in_brackets(text, match.start(1))
            yield match.start(), [part.strip() for part in split_at_top_level(arguments, ",")]

    def values(self, file, position, expression, environment):
        """Returns the values that an expression for a string can have, with GAP for variables."""
        expression = re.sub(r"\s*\.c_str\(\)$", "", expression.strip())
        condition = split_at_top_level(expression, "?")
        if len(condition) > 1:
            alternatives = split_at_top_level(expression[len(condition[0]) + 1:], ":")
            if len(alternatives) != 2:
                raise ValueError(f"{file}: unsupported expression {one_line(expression)}")
            return [value for each in alternatives
                    for value in self.values(file, position, each, environment)]
        terms = split_at_top_level(expression, "+")
        if len(terms) > 1:
            parts = [self.values(file, position, term, environment) for term in terms]
            return [joined(pieces) for pieces in itertools.product(*parts)]
        if LITERALS.fullmatch(expression):
            pieces = LITERAL.findall(expression)
            return [re.sub(r"\\(.)", lambda found: ESCAPES[found.group(1)], "".join(pieces))]
        if re.fullmatch(r"'\"'|\d+", expression):
            return [expression.strip("'")]
        if expression.startswith("(") and expression == f"({in_brackets(expression, 0)})":
            return self.values(file, position, expression[1:-1], environment)
        call = re.fullmatch(r"([\w:]+)\((.*)\)", expression, re.DOTALL)
        if call and call.group(1) == "concat":
            parts = split_at_top_level(in_brackets(call.group(2).strip(), 0), ",")
            terms = " + ".join(f"({part.strip()})" for part in parts if part.strip())
            return self.values(file, position, terms, environment)
        if call and call.group(1) in ("std::string", "std::string_view"):
            return self.values(file, position, call.group(2), environment)
        if call:
            return self.values_of_call(file, call.group(1), call.group(2))
        if expression in environment:
            return self.values(file, position, environment[expression],
                               {key: each for key, each in environment.items()
                                if key != expression})
        if re.fullmatch(r"\w+", expression):
            local = self.local_variable(file, position, expression)
            if local is not None:
                return self.values(file, position, local, environment)
        return [GAP]

    def values_of_call(self, file, name, arguments):
        """Replaces the call of a function of the same file that consists of one return."""
        pattern = rf"\b{name}\(([^;{{}}]*)\)\s*\{{\s*return ([^;]*);\s*\}}"
        found = re.findall(pattern, self.sources[file])
        if len(found) != 1 or len(re.findall(rf"\b{name}\([^;]*\)\s*\{{", self.sources[file])) != 1:
            return [GAP]
        names = [part.split()[-1] for part in split_at_top_level(found[0][0], ",")]
        values = [part.strip() for part in split_at_top_level(arguments, ",")]
        literals = {one: other for one, other in zip(names, values) if LITERALS.fullmatch(other)}
        return self.values(file, 0, found[0][1], literals)

    def local_variable(self, file, position, name):
        """Returns the value that a variable was given last in the function before the position."""
        text = self.sources[file][:position]
        function = text[text.rfind("\n}\n") + 1:]
        found = list(re.finditer(rf"\b{name} =\s", function))
        if not found:
            return None
        return split_at_top_level(self.sources[file][position - len(function) + found[-1].end():],
                                  ";")[0]

    def with_arguments(self, file, function, parameters):
        for position, arguments in self.calls(file, rf"\b{function}"):
            yield {"file": file, "position": position,
                   **{name: arguments[index] for name, index in parameters.items()}}

    def exceptions(self):
        """Yields the messages about exceptions of the operations that an application calls."""
        for each in self.with_arguments("jx/facade/ServerSide.cpp", "guarded", {"failure": 0}):
            yield {**each, "text": 'failure + ": " + error.what()'}
        for each in self.with_arguments("jx/core/transfer/JXNetworkManager.cpp", "guarded",
                                        {"failure": 0, "consequence": 1}):
            yield {**each, "text": 'failure + ": " + error.what() + "; " + consequence'}

    def last_messages(self):
        """Yields the messages of threads that do not continue."""
        for file in self.sources:
            for position, arguments in self.calls(file, r"\bneverReturn"):
                yield {"file": file, "position": position, "text": arguments[0]}

    def endpoint_messages(self):
        file = "jx/core/JXCollectionEndpoint.cpp"
        for match in re.finditer(r"\bendpoint\.message =\s", self.sources[file]):
            text, level = split_at_top_level(self.sources[file][match.end():], ";")[:2]
            yield {"file": file, "position": match.start(), "text": text,
                   "level": re.fullmatch(r"\s*endpoint\.messageLevel = (\d)", level).group(1)}

    def storage_subjects(self, only=None):
        """Yields the file of each storage, or only of one, with the subject of its messages."""
        found = False
        for file, text in self.sources.items():
            if only not in (None, file):
                continue
            for match in re.finditer(r"\breport_\((?=\")", text):
                found = True
                subject = split_at_top_level(in_brackets(text, match.end() - 1), ",")[0]
                yield {"file": file, "subject_": subject}
        if not found:
            self.errors.append("no storage report has a subject")

    def storage_failures(self):
        for subject in self.storage_subjects():
            prefix = subject["file"].removesuffix(".cpp")
            for file in self.sources:
                if not file.startswith(prefix):
                    continue
                for position, arguments in self.calls(file, r"report_\.failed|\breportError"):
                    if LITERALS.fullmatch(arguments[0]):
                        yield {"file": file, "position": position, "action": arguments[0],
                               "subject_": subject["subject_"]}
                    elif arguments[0] != "action":
                        self.errors.append(f"{file}: the action of a failure must be a literal")

    def c_details(self):
        """Yields the details of the C interface that are logged."""
        call = self.sources["jx/c/internal/JXCall.cpp"]
        begin = call.index("{", call.index("isExpectedResult"))
        expected = set(re.findall(r"JX_ERROR_\w+", in_brackets(call, begin)))
        statuses = re.findall(r"\b(JX_(?:OK|ERROR_\w+)) = \d+", self.sources["jx/c/jx_status.h"])
        descriptions = self.sources["jx/c/jx_status.cpp"]
        begin = descriptions.index("{", descriptions.index("kDescriptions"))
        texts = LITERALS.findall(in_brackets(descriptions, begin))
        if len(texts) != len(statuses):
            self.errors.append("jx/c/jx_status.cpp must describe each status")
        for status, text in zip(statuses, texts):
            if status != "JX_OK" and status not in expected:
                yield {"detail": text}
        for file, text in self.sources.items():
            if not file.startswith("jx/c/") or not file.endswith(".cpp"):
                continue
            for match in re.finditer(r"(?:(?<=return )|Result|: )([({])\s*(JX_ERROR_\w+),", text):
                arguments = split_at_top_level(in_brackets(text, match.start(1)), ",")
                if match.group(2) not in expected:
                    yield {"file": file, "position": match.start(), "detail": arguments[1]}


ROW = re.compile(r"^\| (\d(?:, \d)*) \| (`+)(.+?)\2 \| .+? \|(?: .+?)? \|$", re.MULTILINE)
PLACEHOLDER = re.compile(r"<[a-z][a-z ]*>")


def listed(page):
    """Returns the messages of the tables of docs/logging.md."""
    return [(PLACEHOLDER.sub(GAP, text), int(level))
            for levels, _, text in ROW.findall(page) for level in levels.split(", ")]


def as_pattern(text):
    """Returns a pattern for a message with any values in place of the gaps."""
    return re.compile(".+?".join(re.escape(piece) for piece in text.split(GAP)), re.DOTALL)


def readable(text):
    return text.replace(GAP, "<...>")
