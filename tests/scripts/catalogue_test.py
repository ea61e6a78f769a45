# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCRIPT = ROOT / "scripts/catalogue"
sys.path.insert(0, str(ROOT / "tools/catalogue"))
import c_headers  # noqa: E402
import model  # noqa: E402
import objc  # noqa: E402

CORE = 'inline constexpr std::string_view JXD_MODEL =\n    "model";\n'
VARIABLES = '''
inline constexpr std::string_view kJXPredefinedVariable_Count = "#JX_COUNT#";
inline constexpr std::string_view kJXPredefinedVariable_IsNew =
    "#JX_IS_NEW#";
'''
KEYS = """
declared_in = "jx/core/JXCoreConstants.h"
[[groups]]
title = "Keys"
[groups.keys]
JXE_EVENT = "event_name"
JXE_STARS = "stars"
"""
NAMES = """
[[names]]
title = "Names"
declared_in = "jx/core/JXCoreConstants.h"
pattern = "JXD_MODEL"
"""
BASE = """
[JXEvent]
comment = "Base of all events."
final = false
by_hand = true
[JXEvent.fields]
name = { key = "JXE_EVENT", type = "string", comment = "The name." }
"""
RATE = """
folder = "engagement"
[JXRateEvent]
comment = '''
The viewer rated
the page.'''
base = "JXEvent"
event_name = "rate"
written = ["stars", "name", "note"]
conditions = [{ present = "stars" }, { together = ["stars", "note"] }]
[JXRateEvent.fields]
note = { key = "note", type = "string", comment = "A note." }
stars = { key = "JXE_STARS", type = "number", comment = "The stars." }
[[JXRateEvent.initialisers]]
name = "initWithStars_withText"
comment = "Creates an event."
arguments = ["stars", { name = "text", sets = "note" }]
"""
MODES = """
[enumerations.EJXMode]
header = "jx/events/JXModes.h"
comment = "The modes."
[enumerations.EJXMode.values]
ON = "turned_on"
OFF = "turned_off"
[JXModeEvent]
comment = "Something was turned on or off."
base = "JXEvent"
modes = "EJXMode"
deleted_init = "an event of this class needs a mode"
conditions = [{ present = "name", only_for = ["OFF"] }]
[[JXModeEvent.initialisers]]
name = "initWithMode"
comment = "Creates an event."
arguments = ["mode"]
"""
CONTEXT = """
[outer]
kind = "context"
key = "JXE_EVENT"
comment = "A block."
[outer.fields]
inner = { key = "inner", type = "block", block = "inner", required = true, comment = "Nested." }
[inner]
kind = "context"
key = "inner"
comment = "A nested block."
[inner.fields]
model = { key = "JXD_MODEL", type = "string", comment = "The model." }
"""
VIEW = """
[session]
kind = "context"
class = "JXView"
key = "session"
comment = "A block with accessors."
[session.fields]
isNew = { key = "is_new", type = "boolean", variable = "IsNew", true = "1", comment = "New." }
count = { key = "count", type = "number_string", variable = "Count", comment = "A count." }
screen = { key = "screen", type = "block", block = "screen", properties = "extras", comment = "-" }
[screen]
kind = "context"
key = "screen"
comment = "A nested block without a class."
[screen.fields]
width = { key = "width", type = "number", variable = "Count", comment = "The width." }
"""


class Tree(unittest.TestCase):
    """Runs on a small source tree with a catalogue of its own."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        self.write("jx/core/JXCoreConstants.h", CORE)
        self.write("jx/session/JXPredefinedVariableNames.h", VARIABLES)
        self.write("jx/catalogue/keys.toml", KEYS)
        self.write("jx/catalogue/base.toml", BASE)

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")

    def load(self, text):
        self.write("jx/catalogue/more.toml", text)
        return model.load(self.root)


class Model(Tree):
    def assert_fails(self, text, message):
        with self.assertRaises(model.CatalogueError) as raised:
            self.load(text)
        self.assertEqual(str(raised.exception), message)

    def assert_change_fails(self, text, old, new, message):
        self.assertIn(old, text)
        self.assert_fails(text.replace(old, new, 1), message)

    def test_reads_an_event_class(self):
        block = self.load(RATE).blocks["JXRateEvent"]
        self.assertEqual(block.comment, "The viewer rated the page.")
        self.assertEqual(block.base.name, "JXEvent")
        self.assertEqual(block.header, "jx/events/engagement/JXRateEvent.h")
        self.assertEqual(block.event_names, ["rate"])
        self.assertEqual(list(block.fields), ["note", "stars"])
        self.assertEqual([field.property for field in block.written], ["stars", "name", "note"])
        self.assertEqual([block.is_duplicate(number) for number in range(3)], [False, True, False])
        self.assertEqual(block.fields["stars"].key.cpp, "JXE_STARS")
        self.assertEqual(block.fields["stars"].key.string, "stars")
        self.assertEqual(block.fields["note"].key.cpp, '"note"')
        self.assertEqual(list(block.all_fields), ["note", "stars", "name"])
        self.assertEqual([(item.name, item.field.property, item.type)
                          for item in block.initialisers[0].arguments],
                         [("stars", "stars", "number"), ("text", "note", "string")])
        self.assertEqual([(item.kind, [field.property for field in item.fields])
                          for item in block.conditions],
                         [("present", ["stars"]), ("together", ["stars", "note"])])

    def test_reads_modes_and_their_conditions(self):
        catalogue = self.load(MODES)
        block = catalogue.blocks["JXModeEvent"]
        self.assertEqual(block.event_names, ["turned_on", "turned_off"])
        self.assertEqual(block.conditions[0].only_for, ("OFF",))
        self.assertEqual([event.name for event in catalogue.events], ["JXEvent", "JXModeEvent"])
        self.assertTrue(catalogue.is_base(catalogue.blocks["JXEvent"]))
        self.assertFalse(catalogue.is_base(block))

    def test_reads_nested_context_blocks(self):
        catalogue = self.load(CONTEXT)
        self.assertEqual([block.name for block in catalogue.contexts], ["outer", "inner"])
        outer = catalogue.blocks["outer"]
        self.assertEqual([field.property for field in outer.required], ["inner"])
        self.assertEqual(outer.fields["inner"].block, "inner")
        self.assertEqual(catalogue.blocks["inner"].fields["model"].key.string, "model")

    def test_reads_a_context_block_with_a_class(self):
        block = self.load(VIEW).blocks["session"]
        self.assertEqual(block.class_name, "JXView")
        self.assertEqual([(field.variable, field.true) for field in block.fields.values()],
                         [("IsNew", "1"), ("Count", ""), ("", "")])
        self.assertEqual(block.fields["screen"].properties, "extras")

    def test_rejects_an_unknown_variable(self):
        self.assert_change_fails(
            VIEW, 'variable = "Count"', 'variable = "Cuont"',
            "more.toml: session.fields.count.variable: Cuont is not a predefined variable")

    def test_rejects_a_boolean_without_the_string_that_stands_for_true(self):
        self.assert_change_fails(VIEW, ', true = "1"', "",
                                 "more.toml: session.fields.isNew.true: must be set")

    def test_rejects_a_string_that_stands_for_true_of_a_number(self):
        self.assert_change_fails(VIEW, 'variable = "Count"', 'variable = "Count", true = "1"',
                                 "more.toml: session.fields.count.true: unknown key")

    def test_a_field_that_is_listed_twice_is_a_duplicate(self):
        block = self.load(RATE.replace('"stars", "name", "note"', '"stars", "stars"')
                          ).blocks["JXRateEvent"]
        self.assertEqual([block.is_duplicate(number) for number in range(2)], [False, True])
        self.assertEqual([field.property for field in block.unwritten], ["note"])

    def test_rejects_text_that_is_not_toml(self):
        with self.assertRaisesRegex(model.CatalogueError, "^more.toml: "):
            self.load("[JXRateEvent")

    def test_rejects_an_unknown_entry(self):
        self.assert_change_fails(RATE, 'event_name = "rate"', 'event_nam = "rate"',
                                 "more.toml: JXRateEvent.event_nam: unknown key")
        self.assert_change_fails(RATE, 'comment = "The stars."', 'comment = "X", unit = "ms"',
                                 "more.toml: JXRateEvent.fields.stars.unit: unknown key")

    def test_rejects_a_missing_entry(self):
        self.assert_change_fails(RATE, ', comment = "The stars."', "",
                                 "more.toml: JXRateEvent.fields.stars.comment: must be set")

    def test_rejects_a_value_of_the_wrong_type(self):
        self.assert_change_fails(RATE, 'event_name = "rate"', "event_name = 1",
                                 "more.toml: JXRateEvent.event_name: must be a str")

    def test_rejects_a_class_that_is_described_twice(self):
        self.assert_fails(BASE, "more.toml: JXEvent: already described in base.toml")

    def test_rejects_an_unknown_base(self):
        self.assert_change_fails(
            RATE, 'base = "JXEvent"', 'base = "JXEvnt"',
            "more.toml: JXRateEvent.base: JXEvnt is not a class described before this one")

    def test_rejects_an_inherited_property(self):
        self.assert_change_fails(RATE, "note = {", 'name = {',
                                 "more.toml: JXRateEvent.fields.name: already declared by JXEvent")

    def test_rejects_a_repeated_property(self):
        self.write("jx/catalogue/more.toml", RATE.replace("note = {", "stars = {"))
        with self.assertRaisesRegex(model.CatalogueError, "^more.toml: .*overwrite"):
            model.load(self.root)

    def test_rejects_two_fields_with_the_same_key(self):
        self.assert_change_fails(
            RATE, 'key = "note"', 'key = "stars"',
            "more.toml: JXRateEvent.fields.stars.key: "
            "the block has another field with the key stars")

    def test_rejects_an_unknown_key_constant(self):
        self.assert_change_fails(
            RATE, "JXE_STARS", "JXE_STARZ",
            "more.toml: JXRateEvent.fields.stars.key: "
            "JXE_STARZ is neither a constant of keys.toml nor a lower-case JSON key")

    def test_rejects_a_constant_that_is_declared_twice(self):
        self.write("jx/catalogue/keys.toml", KEYS + 'JXD_MODEL = "model"\n')
        self.assert_fails(RATE, "keys.toml: groups[0].JXD_MODEL: constant declared twice")

    def test_rejects_an_unknown_type(self):
        self.assert_change_fails(
            RATE, '"number"', '"float"',
            "more.toml: JXRateEvent.fields.stars.type: must be one of string, number, boolean, "
            "strings, numbered_strings, values, enumeration, items, product")

    def test_rejects_an_enumeration_default_that_is_not_a_value(self):
        field = '[JXModeEvent.fields]\nkind = { key = "kind", type = "enumeration", ' \
                'enumeration = "EJXMode", default = "MAYBE", comment = "The kind." }\n'
        self.assert_fails(
            MODES + field,
            "more.toml: JXModeEvent.fields.kind.default: MAYBE is not a value of EJXMode")

    def test_rejects_an_unknown_field(self):
        self.assert_change_fails(RATE, '"stars", "name", "note"', '"starz"',
                                 "more.toml: JXRateEvent.written: starz is not a field of "
                                 "JXRateEvent")
        self.assert_change_fails(RATE, 'present = "stars"', 'present = "starz"',
                                 "more.toml: JXRateEvent.conditions[0].present: starz is not a "
                                 "field of JXRateEvent")
        self.assert_change_fails(RATE, 'arguments = ["stars"', 'arguments = ["starz"',
                                 "more.toml: JXRateEvent.initialisers[0].arguments: starz is not "
                                 "a field of JXRateEvent")

    def test_rejects_another_number_of_arguments_than_keywords(self):
        self.assert_change_fails(
            RATE, "initWithStars_withText", "initWithStars",
            "more.toml: JXRateEvent.initialisers[0].arguments: "
            "must be as many as the keywords of the name")

    def test_rejects_a_condition_of_no_kind_or_of_two(self):
        message = ("more.toml: JXRateEvent.conditions[0]: must have exactly one of never, "
                   "non_empty_string, present, non_empty_list, together")
        self.assert_change_fails(RATE, "{ present =", "{ presend =", message)
        self.assert_change_fails(RATE, '{ present = "stars" }',
                                 '{ present = "stars", never = true }', message)

    def test_rejects_a_condition_on_a_field_of_another_type(self):
        self.assert_change_fails(
            RATE, "present", "non_empty_list",
            "more.toml: JXRateEvent.conditions: stars must be of type strings or "
            "numbered_strings or values or items")
        self.assert_change_fails(RATE, '["stars", "note"]', '["note", "stars"]',
                                 "more.toml: JXRateEvent.conditions: stars must be of type string")

    def test_rejects_an_unknown_mode(self):
        self.assert_change_fails(
            MODES, '["OFF"]', '["OF"]',
            "more.toml: JXModeEvent.conditions[0].only_for: OF is not a mode of JXModeEvent")
        self.assert_change_fails(MODES, 'modes = "EJXMode"', 'modes = "EJXModes"',
                                 "more.toml: JXModeEvent.modes: unknown enumeration EJXModes")
        self.assert_change_fails(
            RATE, 'arguments = ["stars"', 'arguments = ["mode"',
            "more.toml: JXRateEvent.initialisers[0].arguments: JXRateEvent has no modes")

    def test_rejects_a_nested_block_that_does_not_exist(self):
        self.assert_change_fails(
            CONTEXT, 'block = "inner"', 'block = "iner"',
            "more.toml: outer.fields.inner.block: "
            "iner is not a context block described after this one")

    def test_rejects_a_block_that_contains_itself(self):
        self.assert_change_fails(
            CONTEXT, 'block = "inner"', 'block = "outer"',
            "more.toml: outer.fields.inner.block: "
            "outer is not a context block described after this one")


class CHeaders(Tree):
    def header(self, text, name):
        return c_headers.files(self.load(text))[f"jx/c/events/{name}.h"]

    def test_declares_functions_of_own_and_inherited_fields(self):
        header = self.header(RATE, "JXRateEvent")
        self.assertEqual([line.partition("(")[0].rpartition(" ")[2] for line in header.splitlines()
                          if line.startswith("static inline")], [
            "JXRateEvent_create", "JXRateEvent_setStars", "JXRateEvent_setStars_integer",
            "JXRateEvent_getStars", "JXRateEvent_setName", "JXRateEvent_getName",
            "JXRateEvent_setNote", "JXRateEvent_getNote"])
        self.assertIn('/// The stars. JSON key "stars".\n'
                      '#define JXRateEvent_stars "JXRateEvent.stars"\n'
                      "/// Sets `stars` from a decimal string; null removes the value.\n"
                      "static inline jx_status JXRateEvent_setStars(jx_object* event, "
                      "const char* number) {\n"
                      "  return jx_object_set_number(event, JXRateEvent_stars, number);\n}\n",
                      header)
        self.assertIn("getStars(const jx_object* event, char* buffer, size_t capacity, "
                      "size_t* length) {\n"
                      "  return jx_object_get_number(event, JXRateEvent_stars, buffer, capacity, "
                      "length);", header)
        self.assertIn("/// The viewer rated the page. Includes the fields of JXEvent.", header)

    def test_marks_fields_that_the_class_does_not_write(self):
        header = self.header(RATE.replace('"stars", "name", "note"', '"stars"'), "JXRateEvent")
        self.assertIn('/// A note. JSON key "note". This class does not write it.', header)
        self.assertIn('/// The stars. JSON key "stars".\n', header)

    def test_declares_functions_of_lists(self):
        field = '[JXModeEvent.fields]\n' \
                'all = { key = "all", type = "TYPE", comment = "All." }\n'
        names = {"strings": ["setAll", "all_append", "getAll", "all_count", "all_clear"],
                 "values": ["setAll", "all_append_string", "all_append_number",
                            "all_append_boolean", "getAll", "all_count", "all_clear"],
                 "items": ["all_append", "getAll", "all_count", "all_clear"]}
        for kind, expected in names.items():
            header = self.header(MODES + field.replace("TYPE", kind), "JXModeEvent")
            for name in expected:
                self.assertIn(f" JXModeEvent_{name}(", header)
            self.assertEqual(header.count("static inline"), 1 + len(expected) + 2)

    def test_declares_modes_under_their_cpp_names(self):
        self.assertIn("JXModeEvent_create(EJXMode mode, const char* session_id, jx_object** event)",
                      self.header(MODES, "JXModeEvent"))
        names = self.header(MODES, "jx_names")
        self.assertIn('typedef enum EJXMode {\n  EJXMode_ON = 0,  ///< "turned_on"\n'
                      '  EJXMode_OFF = 1  ///< "turned_off"\n} EJXMode;', names)

    def test_declares_constants_as_macros_in_c_and_as_arrays_in_cpp(self):
        self.write("jx/catalogue/keys.toml", KEYS + NAMES)
        in_c, in_cpp = self.header(RATE, "jx_names").split("#else\n")
        for name, string in (("JXE_STARS", "stars"), ("JXD_MODEL", "model")):
            self.assertIn(f'#define {name} "{string}"\n', in_c)
            self.assertIn(f'static const char {name}[] = "{string}";\n', in_cpp)

    def test_declares_constants_of_objective_c_only(self):
        self.write("jx/catalogue/keys.toml", KEYS + NAMES + "c = false\n")
        self.assertNotIn("JXD_MODEL", self.header(RATE, "jx_names"))
        names = objc.files(self.load(RATE))
        self.assertIn('JX_OBJC_EXTERN NSString *const JXD_MODEL;  ///< "model"\n',
                      names["jx/objc/JXNames.h"])
        self.assertIn('NSString *const JXD_MODEL = @"model";\n', names["jx/objc/JXNames.m"])

    def test_names_the_functions_of_each_language(self):
        for function, method in (
                ("jx_get_variable", "-[JXPredefinedVariables getData:]"),
                ("jx_get_core_variable", "-[JXCoreVariables getData:]")):
            self.write("jx/catalogue/keys.toml",
                       KEYS + NAMES.replace('"Names"', f'"Names, for `{function}`"'))
            self.assertIn(f"// Names, for `{function}`.\n", self.header(RATE, "jx_names"))
            self.assertIn(f"/// @name Names, for `{method}`\n",
                          objc.files(self.load(RATE))["jx/objc/JXNames.h"])

    def assert_names_fail(self, names, message, core=CORE):
        self.write("jx/core/JXCoreConstants.h", core)
        self.write("jx/catalogue/keys.toml", names)
        with self.assertRaises(model.CatalogueError) as raised:
            self.load(RATE)
        self.assertEqual(str(raised.exception), "keys.toml: " + message)

    def test_rejects_names_that_match_no_constant(self):
        self.assert_names_fail(KEYS + NAMES.replace("MODEL", "MODELS"),
                               "names[0].pattern: matches no constant of jx/core/JXCoreConstants.h")

    def test_reads_constants_on_two_lines(self):
        self.write("jx/core/JXCoreConstants.h",
                   'inline constexpr std::string_view\n    JXD_MODEL = "model";\n')
        self.write("jx/catalogue/keys.toml", KEYS + NAMES)
        self.assertIn('#define JXD_MODEL "model"\n', self.header(RATE, "jx_names"))

    def test_rejects_a_string_in_another_form(self):
        for line in ('constexpr std::string_view JXD_NAME{"name"};\n',
                     'constexpr std::string_view JXD_NAME = "na" "me";\n'):
            with self.subTest(line):
                self.assert_names_fail(
                    KEYS + NAMES, "declared_in: jx/core/JXCoreConstants.h declares a string in a "
                    "form that cannot be read", CORE + line)

    def test_rejects_a_constant_that_is_in_no_group(self):
        core = CORE + 'inline constexpr std::string_view JXD_NAME = "name";\n'
        self.assert_names_fail(KEYS + NAMES,
                               "names: JXD_NAME of jx/core/JXCoreConstants.h is in no group", core)
        self.write("jx/catalogue/keys.toml", 'only_in_cpp = ["JXD_NAME"]\n' + KEYS + NAMES)
        self.assertNotIn("JXD_NAME", self.header(RATE, "jx_names"))

    def test_rejects_a_constant_for_cpp_only_that_is_in_a_group(self):
        self.assert_names_fail('only_in_cpp = ["JXD_MODEL"]\n' + KEYS + NAMES, "only_in_cpp: "
                               "JXD_MODEL is not a constant without a group")


class Command(Tree):
    def run_script(self, *options):
        result = subprocess.run([sys.executable, "-B", str(SCRIPT), "--root", str(self.root),
                                 *options], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                text=True, check=False)
        return result.returncode, result.stdout, result.stderr

    def setUp(self):
        super().setUp()
        self.write("jx/catalogue/more.toml", RATE)
        self.assertEqual(self.run_script()[0], 0)

    def test_check_accepts_the_generated_files(self):
        self.assertEqual(self.run_script("--check"), (0, "", ""))

    def test_check_lists_a_file_that_was_edited(self):
        path = "jx/events/engagement/JXRateEvent.h"
        text = (self.root / path).read_text(encoding="utf-8")
        self.write(path, text + "// edited\n")
        status, output, errors = self.run_script("--check")
        self.assertEqual((status, output), (1, path + "\n"))
        self.assertIn("generate them with: scripts/catalogue", errors)
        self.assertEqual(self.run_script(), (0, path + "\n", ""))
        self.assertEqual((self.root / path).read_text(encoding="utf-8"), text)

    def test_check_lists_the_files_of_a_changed_entry(self):
        self.write("jx/catalogue/more.toml", RATE.replace('"The stars."', '"From one to five."'))
        self.assertEqual(self.run_script("--check")[:2],
                         (1, "jx/events/engagement/JXRateEvent.h\njx/c/events/JXRateEvent.h\n"
                             "jx/objc/JXRateEvent.h\nswift/JXServerSide/More.swift\n"))

    def test_writes_the_fields_of_a_context_block(self):
        self.write("jx/catalogue/more.toml", VIEW)
        self.assertEqual(self.run_script()[0], 0)
        header = (self.root / "jx/session/JXViewFields.h").read_text(encoding="utf-8")
        for line in ("bool isNew() const", "JXString count() const", "  /// A count. A decimal string.",
                     "std::optional<JXDecimal> width() const",
                     "std::shared_ptr<JXAdditionalProperties> extras_;"):
            self.assertIn(line, header)
        source = (self.root / "jx/session/JXViewFields.cpp").read_text(encoding="utf-8")
        for line in ('isNew_ = strings.view(kJXPredefinedVariable_IsNew, places_[0]) == "1";',
                     "strings.read(kJXPredefinedVariable_Count, places_[1], count_);",
                     'sink.numberFromString("count", count_);', 'screen.number("width", width_);'):
            self.assertIn(line, source)

    def test_removes_the_files_of_a_removed_entry(self):
        (self.root / "jx/catalogue/more.toml").unlink()
        removed = ["jx/events/engagement/JXRateEvent.cpp", "jx/events/engagement/JXRateEvent.h",
                   "jx/c/events/JXRateEvent.h"]
        status, output, _ = self.run_script("--check")
        self.assertEqual(status, 1)
        self.assertLessEqual(set(removed), set(output.splitlines()))
        self.run_script()
        self.assertEqual([path for path in removed if (self.root / path).exists()], [])

    def test_reports_a_mistake_of_the_catalogue(self):
        self.write("jx/catalogue/more.toml", RATE.replace('"JXEvent"', '"JXEvnt"'))
        self.assertEqual(self.run_script("--check"), (
            1, "", "catalogue: more.toml: JXRateEvent.base: JXEvnt is not a class described before "
                   "this one\n"))


if __name__ == "__main__":
    unittest.main()
