# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Reads the catalogue: the description of every JSON block in jx/catalogue/*.toml.

`load(root)` returns a `Catalogue`. It raises a `CatalogueError` that names the file, the block and
the key of the first mistake. docs/catalogue.md describes the format of the files."""

import dataclasses
import pathlib
import re
import tomllib

FOLDER = "jx/catalogue"
KEYS_FILE = "keys.toml"
VARIABLE_HEADERS = ("jx/core/JXCoreConstants.h", "jx/session/JXPredefinedVariableNames.h")

# The type of a field, and whether it can be null.
FIELD_TYPES = {
    "string": True,
    "number": True,
    "boolean": False,
    "strings": True,
    "numbered_strings": True,
    "values": True,
    "enumeration": False,
    "items": True,
    "product": True,
}
# A number or a Boolean of a context block may be kept as the string that it was read from.
CONTEXT_TYPES = ("string", "number", "number_string", "boolean", "boolean_string", "block")
CONDITIONS = ("never", "non_empty_string", "present", "non_empty_list", "together")
_CONSTANT = re.compile(r"JX[A-Z]?_\w+")
_LITERAL = re.compile(r"[a-z][a-z0-9_]*")
_VARIABLE = re.compile(r"\bkJXPredefinedVariable_(\w+)\s*=")
_STRING = re.compile(r"\bconstexpr\s+std::string_view\b")
_DECLARATION = re.compile(_STRING.pattern + r'\s+(\w+)\s*=\s*"([^"]*)";')


class CatalogueError(Exception):
    """A mistake in the catalogue: "video.toml: JXVideoAdEvent.base: unknown class"."""


@dataclasses.dataclass(frozen=True)
class Place:
    """The position of an entry, for error messages."""
    file: str
    path: str = ""

    def at(self, key):
        return Place(self.file, f"{self.path}.{key}" if self.path else str(key))

    def fail(self, message):
        raise CatalogueError(f"{self.file}: {self.path}: {message}")


@dataclasses.dataclass(frozen=True)
class Key:
    """A JSON key: its string, and the C++ constant that contains it, or an empty string."""
    string: str
    constant: str = ""
    header: str = ""

    @property
    def cpp(self):
        return self.constant or f'"{self.string}"'


@dataclasses.dataclass(frozen=True)
class KeyGroup:
    """Constants that are declared together in the header of the keys."""
    title: str
    comment: str
    keys: tuple
    is_in_c: bool = True


@dataclasses.dataclass(frozen=True)
class Enumeration:
    """An enumeration, or a list of predefined strings. `values` maps the enumerator, without its
    prefix, to its JSON string."""
    name: str
    file: str
    header: str
    comment: str
    values: dict
    title: str = ""


@dataclasses.dataclass(frozen=True)
class Field:
    """A property of a class, or an entry of a context block."""
    property: str
    key: Key
    type: str
    comment: str
    owner: str  # the block that declares it
    setter_comment: str = ""
    enumeration: Enumeration = None
    default: str = ""  # the enumerator
    block: str = ""  # the nested block, for the type "block"
    # Of context blocks only:
    is_required: bool = False  # the key is in every event
    variable: str = ""  # the predefined variable that the field is read from, without its prefix
    true: str = ""  # the string that stands for true
    properties: str = ""  # the member with the additional properties of a nested block

    @property
    def is_nullable(self):
        return FIELD_TYPES.get(self.type, True)

    @property
    def member(self):
        return self.property + "_"

    @property
    def setter(self):
        return "set" + self.property[0].upper() + self.property[1:]


@dataclasses.dataclass(frozen=True)
class Argument:
    """An argument of an initialiser. `field` is the field that it sets; None for the mode."""
    name: str
    field: Field
    type: str  # the type of the field, "mode", or "int32"


@dataclasses.dataclass(frozen=True)
class Initialiser:
    """A function that creates an object from arguments."""
    name: str
    comment: str
    arguments: tuple

    @property
    def keywords(self):
        """The parts of the name, one for each argument: "initWithValue", "withCurrency"."""
        return self.name.split("_")


@dataclasses.dataclass(frozen=True)
class Condition:
    """A condition for valid events. `only_for` and `except_for` are enumerators of the mode."""
    kind: str
    fields: tuple
    only_for: tuple = ()
    except_for: tuple = ()


@dataclasses.dataclass
class Block:
    """An event class, an object that events contain, or a context block."""
    name: str
    kind: str  # "event", "object" or "context"
    comment: str
    file: str
    base: "Block" = None
    folder: str = ""
    event_name: str = ""
    modes: Enumeration = None
    is_final: bool = True
    is_by_hand: bool = False
    names_by_mode: bool = False
    init_comment: str = ""
    deleted_init: str = ""  # the reason; empty if the class has `init`
    verify_comment: str = ""
    json_comment: str = ""
    conditions_comment: str = ""
    key: Key = None
    class_name: str = ""  # of a context block: the class with its accessors
    class_header: str = ""  # the header of a class outside the session
    is_top_level: bool = False
    replaced_by: Key = None
    fields: dict = dataclasses.field(default_factory=dict)  # own, in declaration order
    written: list = dataclasses.field(default_factory=list)  # fields, own or inherited
    initialisers: list = dataclasses.field(default_factory=list)
    conditions: list = dataclasses.field(default_factory=list)

    @property
    def header(self):
        return "/".join(part for part in ("jx/events", self.folder, self.name + ".h") if part)

    @property
    def source(self):
        return self.header[:-1] + "cpp"

    @property
    def bases(self):
        """The base classes, nearest first."""
        return [] if self.base is None else [self.base, *self.base.bases]

    @property
    def all_fields(self):
        """The fields of this block and its bases by property, nearest first."""
        found = dict(self.fields)
        for base in self.bases:
            for name, field in base.fields.items():
                found.setdefault(name, field)
        return found

    @property
    def unwritten(self):
        """Own fields that this class does not write, in declaration order."""
        return [field for field in self.fields.values() if field not in self.written]

    def is_duplicate(self, position):
        """True if `written[position]` is written earlier, by this class or by a base."""
        field = self.written[position]
        return (field in self.written[:position]
                or any(field in base.written for base in self.bases))

    @property
    def event_names(self):
        """The names of the events of this class, in the order of the modes."""
        if self.modes is not None:
            return list(self.modes.values.values())
        return [self.event_name] if self.event_name else []

    @property
    def required(self):
        """The required fields of a context block."""
        return [field for field in self.fields.values() if field.is_required]


@dataclasses.dataclass
class Catalogue:
    """All entries, in the order of the files."""
    keys: dict  # Key by the name of its constant
    key_groups: list
    name_groups: list  # KeyGroup: constants that are not JSON keys
    enumerations: dict
    strings: dict  # predefined strings of fields that accept any string
    blocks: dict

    def _of_kind(self, kind):
        return [block for block in self.blocks.values() if block.kind == kind]

    @property
    def events(self):
        """The event classes, base classes first."""
        return self._of_kind("event")

    @property
    def objects(self):
        return self._of_kind("object")

    @property
    def contexts(self):
        return self._of_kind("context")

    def is_base(self, block):
        return any(other.base is block for other in self.blocks.values())


class _Table:
    """A TOML table whose keys are taken one by one. A key that nothing takes is a mistake."""

    def __init__(self, values, place):
        if not isinstance(values, dict):
            place.fail("must be a table")
        self._values = dict(values)
        self.place = place

    def take(self, key, kind=str, default=None):
        if key not in self._values:
            if default is None:
                self.place.at(key).fail("must be set")
            return default
        value = self._values.pop(key)
        if not isinstance(value, kind):
            self.place.at(key).fail(f"must be a {kind.__name__}")
        return value

    def text(self, key, default=None):
        """Takes a string and joins its lines."""
        return " ".join(self.take(key, str, default).split())

    def names(self):
        return list(self._values)

    def finish(self):
        for key in self._values:
            self.place.at(key).fail("unknown key")


class _Reader:
    def __init__(self, root):
        self.root = pathlib.Path(root)
        self.catalogue = Catalogue({}, [], [], {}, {}, {})
        self.variables = set()

    def read(self):
        folder = self.root / FOLDER
        for header in VARIABLE_HEADERS:
            self.variables.update(_VARIABLE.findall((self.root / header).read_text("utf-8")))
        self._keys(folder / KEYS_FILE)
        entries = []
        for path in sorted(folder.glob("*.toml")):
            if path.name != KEYS_FILE:
                entries += self._file(path)
        for name, values, place, folder in entries:
            if name in self.catalogue.blocks:
                place.fail("already described in " + self.catalogue.blocks[name].file)
            self.catalogue.blocks[name] = self._block(name, _Table(values, place), folder)
        self._check_nested(entries)
        self._check_conditions()
        return self.catalogue

    def _toml(self, path):
        try:
            return tomllib.loads(path.read_text(encoding="utf-8"))
        except tomllib.TOMLDecodeError as error:
            raise CatalogueError(f"{path.name}: {error}") from error

    def _keys(self, path):
        table = _Table(self._toml(path), Place(path.name))
        header = table.take("declared_in")
        for constant, string in self._declarations(header, table.place.at("declared_in")):
            self.catalogue.keys[constant] = Key(string, constant, header)
        for number, values in enumerate(table.take("groups", list)):
            group = _Table(values, table.place.at(f"groups[{number}]"))
            keys = []
            for constant, string in group.take("keys", dict).items():
                if constant in self.catalogue.keys:
                    group.place.at(constant).fail("constant declared twice")
                keys.append(Key(string, constant, f"{FOLDER}/JXEventPropertiesNames.h"))
                self.catalogue.keys[constant] = keys[-1]
            self.catalogue.key_groups.append(
                KeyGroup(group.text("title"), group.text("comment", ""), tuple(keys)))
            group.finish()
        self._names(table)
        table.finish()

    def _declarations(self, header, place):
        """Returns the name and the string of each constant that a C++ header declares."""
        text = (self.root / header).read_text("utf-8")
        declared = _DECLARATION.findall(text)
        if len(declared) != len(_STRING.findall(text)):
            place.fail(f"{header} declares a string in a form that cannot be read")
        return declared

    def _names(self, table):
        """Reads constants that C++ headers declare by hand. A header that is named declares none
        that is in no group, unless it is listed as one for C++ only."""
        left_out = table.take("only_in_cpp", list, [])
        without_group = {}
        for number, values in enumerate(table.take("names", list, [])):
            entry = _Table(values, table.place.at(f"names[{number}]"))
            header, pattern = entry.take("declared_in"), re.compile(entry.take("pattern"))
            declared = self._declarations(header, entry.place.at("declared_in"))
            names = tuple(Key(string, constant, header) for constant, string in declared
                          if pattern.fullmatch(constant))
            if not names:
                entry.place.at("pattern").fail(f"matches no constant of {header}")
            known = without_group.setdefault(header, {constant for constant, _ in declared})
            known.difference_update(key.constant for key in names)
            self.catalogue.name_groups.append(
                KeyGroup(entry.text("title"), entry.text("comment", ""), names,
                         entry.take("c", bool, True)))
            entry.finish()
        for header, constants in without_group.items():
            for constant in sorted(constants.difference(left_out)):
                table.place.at("names").fail(f"{constant} of {header} is in no group")
        for constant in left_out:
            if not any(constant in constants for constants in without_group.values()):
                table.place.at("only_in_cpp").fail(f"{constant} is not a constant without a group")

    def _file(self, path):
        values = self._toml(path)
        place = Place(path.name)
        folder = values.pop("folder", "")
        for kind, known in (("enumerations", self.catalogue.enumerations),
                            ("strings", self.catalogue.strings)):
            for name, entry in values.pop(kind, {}).items():
                table = _Table(entry, place.at(name))
                known[name] = Enumeration(name, path.name, table.take("header"),
                                          table.text("comment"), table.take("values", dict),
                                          table.text("title", ""))
                table.finish()
        return [(name, entry, place.at(name), folder) for name, entry in values.items()]

    def _block(self, name, table, folder):
        kind = table.take("kind", str, "event")
        if kind not in ("event", "object", "context"):
            table.place.at("kind").fail("must be event, object or context")
        block = Block(name, kind, table.text("comment"), table.place.file)
        if kind == "context":
            block.key = self._key(table.take("key"), table.place.at("key"))
            block.is_top_level = table.take("top_level", bool, False)
            block.class_name = table.take("class", str, "")
            block.class_header = table.take("header", str, "")
            replacement = table.take("replaced_by", str, "")
            if replacement:
                block.replaced_by = self._key(replacement, table.place.at("replaced_by"))
        else:
            self._class(block, table, folder)
        self._fields(block, table)
        if kind != "context":
            self._written(block, table)
            self._initialisers(block, table)
            self._conditions(block, table)
        table.finish()
        return block

    def _class(self, block, table, folder):
        base = table.take("base", str, "")
        if base:
            block.base = self.catalogue.blocks.get(base)
            if block.base is None:
                table.place.at("base").fail(f"{base} is not a class described before this one")
        block.folder = table.take("folder", str, folder)
        block.event_name = table.take("event_name", str, "")
        modes = table.take("modes", str, "")
        if modes:
            block.modes = self._enumeration(modes, table.place.at("modes"))
        if modes and block.event_name:
            table.place.at("modes").fail("excludes event_name")
        block.is_final = table.take("final", bool, True)
        block.is_by_hand = table.take("by_hand", bool, False)
        block.names_by_mode = table.take("names_by_mode", bool, False)
        for key in ("init_comment", "deleted_init", "verify_comment", "json_comment",
                    "conditions_comment"):
            setattr(block, key, table.text(key, ""))

    def _key(self, name, place):
        if name in self.catalogue.keys:
            return self.catalogue.keys[name]
        if _CONSTANT.fullmatch(name) or not _LITERAL.fullmatch(name):
            place.fail(f"{name} is neither a constant of {KEYS_FILE} nor a lower-case JSON key")
        return Key(name)

    def _enumeration(self, name, place):
        if name not in self.catalogue.enumerations:
            place.fail(f"unknown enumeration {name}")
        return self.catalogue.enumerations[name]

    def _fields(self, block, table):
        inherited = block.all_fields
        fields = _Table(table.take("fields", dict, {}), table.place.at("fields"))
        for name in fields.names():
            if name in inherited:
                fields.place.at(name).fail(f"already declared by {inherited[name].owner}")
            entry = _Table(fields.take(name, object), fields.place.at(name))
            block.fields[name] = self._field(block, name, entry)
            entry.finish()

    def _field(self, block, name, entry):
        place = entry.place
        types = CONTEXT_TYPES if block.kind == "context" else tuple(FIELD_TYPES)
        kind = entry.take("type")
        if kind not in types:
            place.at("type").fail("must be one of " + ", ".join(types))
        key = self._key(entry.take("key"), place.at("key"))
        if any(field.key.string == key.string for field in block.fields.values()):
            place.at("key").fail(f"the block has another field with the key {key.string}")
        enumeration, default = None, ""
        if kind == "enumeration":
            enumeration = self._enumeration(entry.take("enumeration"), place.at("enumeration"))
            default = entry.take("default")
            if default not in enumeration.values:
                place.at("default").fail(f"{default} is not a value of {enumeration.name}")
        nested = entry.take("block") if kind == "block" else ""
        field = Field(name, key, kind, entry.text("comment"), block.name,
                      entry.text("setter_comment", ""), enumeration, default, nested)
        return self._context_field(field, entry) if block.kind == "context" else field

    def _context_field(self, field, entry):
        variable = entry.take("variable", str, "")
        if variable and variable not in self.variables:
            entry.place.at("variable").fail(f"{variable} is not a predefined variable")
        is_compared = field.type == "boolean_string" or (field.type == "boolean" and variable)
        true = entry.take("true") if is_compared else ""
        properties = entry.take("properties", str, "") if field.type == "block" else ""
        return dataclasses.replace(field, is_required=entry.take("required", bool, False),
                                   variable=variable, true=true, properties=properties)

    def _known(self, block, name, place):
        field = block.all_fields.get(name)
        if field is None:
            place.fail(f"{name} is not a field of {block.name}")
        return field

    def _written(self, block, table):
        names = table.take("written", list, list(block.fields))
        place = table.place.at("written")
        block.written = [self._known(block, name, place) for name in names]

    def _initialisers(self, block, table):
        for number, values in enumerate(table.take("initialisers", list, [])):
            entry = _Table(values, table.place.at(f"initialisers[{number}]"))
            initialiser = Initialiser(entry.take("name"), entry.text("comment"), tuple(
                self._argument(block, argument, entry.place.at("arguments"))
                for argument in entry.take("arguments", list)))
            if len(initialiser.keywords) != len(initialiser.arguments):
                entry.place.at("arguments").fail("must be as many as the keywords of the name")
            entry.finish()
            block.initialisers.append(initialiser)
        if block.deleted_init and not block.initialisers:
            table.place.at("deleted_init").fail("leaves the class without an initialiser")

    def _argument(self, block, value, place):
        if value == "mode":
            if block.modes is None:
                place.fail(f"{block.name} has no modes")
            return Argument("mode", None, "mode")
        entry = _Table(value if isinstance(value, dict) else {"name": value}, place)
        name = entry.take("name")
        field = self._known(block, entry.take("sets", str, name), place)
        kind = entry.take("type", str, field.type)
        if kind not in (field.type, "int32") or (kind == "int32" and field.type != "number"):
            place.at(name).fail(f"a field of type {field.type} cannot be set from {kind}")
        entry.finish()
        return Argument(name, field, kind)

    def _conditions(self, block, table):
        for number, values in enumerate(table.take("conditions", list, [])):
            entry = _Table(values, table.place.at(f"conditions[{number}]"))
            kinds = [kind for kind in CONDITIONS if kind in values]
            if len(kinds) != 1:
                entry.place.fail("must have exactly one of " + ", ".join(CONDITIONS))
            kind = kinds[0]
            if kind == "never":
                if entry.take(kind, bool) is not True:
                    entry.place.at(kind).fail("must be true")
                names = []
            elif kind == "together":
                names = entry.take(kind, list)
                if len(names) != 2:
                    entry.place.at(kind).fail("must be a list of two fields")
            else:
                names = [entry.take(kind)]
            fields = tuple(self._known(block, name, entry.place.at(kind)) for name in names)
            modes = {}
            for key in ("only_for", "except_for"):
                modes[key] = tuple(entry.take(key, list, []))
                for mode in modes[key]:
                    if block.modes is None or mode not in block.modes.values:
                        entry.place.at(key).fail(f"{mode} is not a mode of {block.name}")
            entry.finish()
            block.conditions.append(Condition(kind, fields, **modes))

    def _check_nested(self, entries):
        """A nested block is described after its parent, so no block can contain itself."""
        places = {name: place for name, _, place, _ in entries}
        names = [block.name for block in self.catalogue.contexts]
        for number, block in enumerate(self.catalogue.contexts):
            for field in block.fields.values():
                if field.type == "block" and field.block not in names[number + 1:]:
                    places[block.name].at(f"fields.{field.property}.block").fail(
                        f"{field.block} is not a context block described after this one")

    def _check_conditions(self):
        """A condition on a field of the wrong type would never or always hold."""
        allowed = {"non_empty_string": ("string",),
                   "non_empty_list": ("strings", "numbered_strings", "values", "items")}
        for block in self.catalogue.blocks.values():
            for condition in block.conditions:
                fields = condition.fields[1:] if condition.kind == "together" else condition.fields
                kind = "non_empty_string" if condition.kind == "together" else condition.kind
                for field in fields:
                    if kind in allowed and field.type not in allowed[kind]:
                        Place(block.file, f"{block.name}.conditions").fail(
                            f"{field.property} must be of type {' or '.join(allowed[kind])}")


def load(root):
    """Returns the catalogue of the source folder `root`."""
    return _Reader(root).read()
