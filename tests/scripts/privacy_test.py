# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
import plistlib
import unittest

import faketree

MANIFEST = "packaging/apple/PrivacyInfo.xcprivacy"
DATA_TYPES = "packaging/apple/data-types.toml"


def api(category, *reasons):
    return {"NSPrivacyAccessedAPIType": "NSPrivacyAccessedAPICategory" + category,
            "NSPrivacyAccessedAPITypeReasons": list(reasons)}


def data_type(name, **others):
    return {"NSPrivacyCollectedDataType": "NSPrivacyCollectedDataType" + name,
            "NSPrivacyCollectedDataTypeLinked": True,
            "NSPrivacyCollectedDataTypeTracking": False,
            "NSPrivacyCollectedDataTypePurposes": [
                "NSPrivacyCollectedDataTypePurposeAnalytics"], **others}


def manifest(**others):
    return plistlib.dumps({
        "NSPrivacyTracking": False, "NSPrivacyTrackingDomains": [],
        "NSPrivacyAccessedAPITypes": [api("UserDefaults", "CA92.1")],
        "NSPrivacyCollectedDataTypes": [data_type("DeviceID")], **others}).decode()


# A tree without findings.
TREE = {
    "jx/platform/apple/D.mm": "id d = [NSUserDefaults standardUserDefaults];\n",
    "jx/catalogue/context.toml": """
[device.fields]
sdkID = { type = "string" }
os = { type = "block", block = "os" }
[app.fields]
version = { type = "string" }
""",
    DATA_TYPES: '[DeviceID]\ndevice = ["sdkID"]\n[none]\napp = ["version"]\n',
    MANIFEST: manifest(),
}


class Privacy(faketree.FakeTreeTest):
    check = "privacy"

    def assert_found_in(self, changes, *expected):
        self.assert_found({**TREE, **changes}, *expected)

    def test_accepts_a_manifest_that_matches_the_sources(self):
        self.assert_clean(TREE)

    def test_finds_an_api_that_is_not_declared(self):
        for category, line in (
                ("FileTimestamp", "if (::stat(path, &status) != 0) {}"),
                ("FileTimestamp", "fstat(descriptor, &status);"),
                ("FileTimestamp", "getattrlistbulk(a, b);"),
                ("FileTimestamp", "id d = NSURLContentModificationDateKey;"),
                ("SystemBootTime", "auto t = std::chrono::steady_clock::now();"),
                ("SystemBootTime", "mach_absolute_time();"),
                ("DiskSpace", "statfs(path, &s);"), ("DiskSpace", "fstatvfs(file, &s);"),
                ("DiskSpace", "NSURLVolumeAvailableCapacityForImportantUsageKey"),
                ("ActiveKeyboards", "[UITextInputMode activeInputModes];")):
            with self.subTest(line):
                self.assert_found_in({"jx/core/A.cpp": "\n" + line + "\n"},
                                     f"jx/core/A.cpp:2: uses an API of the category {category},")

    def test_ignores_comments_names_and_sources_of_other_systems(self):
        self.assert_clean({
            **TREE, "jx/core/A.cpp": "// stat(path)\nstruct stat status {};\nhttp_stat(a);\n",
            "jx/platform/linux/A.cpp": "stat(a, b);", "tools/jx/A.cpp": "stat(a, b);"})

    def test_finds_a_declared_api_that_no_source_uses(self):
        self.assert_found_in({"jx/platform/apple/D.mm": ""}, f"{MANIFEST}: declares UserDefaults,")

    def test_finds_a_reason_of_another_category(self):
        for reasons in ([], ["C617.1"], ["CA92.1", "35F9.1"]):
            with self.subTest(reasons):
                self.assert_found_in(
                    {MANIFEST: manifest(NSPrivacyAccessedAPITypes=[api("UserDefaults", *reasons)])},
                    f"{MANIFEST}: UserDefaults has no valid reason: ")

    def test_finds_a_field_without_data_type(self):
        self.assert_found_in(
            {"jx/catalogue/video.toml": '[JXVideo.fields]\ntitle = { type = "string" }\n'},
            f"{DATA_TYPES}: JXVideo.title has no data type")

    def test_finds_a_field_that_the_catalogue_does_not_contain(self):
        self.assert_found_in(
            {DATA_TYPES: TREE[DATA_TYPES] + 'gone = ["field"]\n'},
            f"{DATA_TYPES}: gone.field is not a field of the catalogue")

    def test_finds_a_field_with_two_data_types(self):
        self.assert_found_in(
            {DATA_TYPES: TREE[DATA_TYPES] + 'device = ["sdkID"]\n'},
            f"{DATA_TYPES}: device.sdkID has two data types")

    def test_finds_a_data_type_that_is_not_declared(self):
        self.assert_found_in({MANIFEST: manifest(NSPrivacyCollectedDataTypes=[])},
                             f"{MANIFEST}: the data type DeviceID of {DATA_TYPES} is not declared")

    def test_finds_a_declared_data_type_that_no_field_has(self):
        types = [data_type("DeviceID"), data_type("Health")]
        self.assert_found_in({MANIFEST: manifest(NSPrivacyCollectedDataTypes=types)},
                             f"{MANIFEST}: declares Health,")

    def test_finds_an_incomplete_data_type(self):
        entry = data_type("DeviceID")
        del entry["NSPrivacyCollectedDataTypeLinked"]
        self.assert_found_in({MANIFEST: manifest(NSPrivacyCollectedDataTypes=[entry])},
                             f"{MANIFEST}: DeviceID has no Linked")

    def test_finds_tracking(self):
        self.assert_found_in({MANIFEST: manifest(NSPrivacyTracking=True)},
                             f"{MANIFEST}: NSPrivacyTracking must be false")
        self.assert_found_in({MANIFEST: manifest(NSPrivacyTrackingDomains=["a.example"])},
                             f"{MANIFEST}: NSPrivacyTrackingDomains must be empty")
        tracks = data_type("DeviceID", NSPrivacyCollectedDataTypeTracking=True)
        self.assert_found_in({MANIFEST: manifest(NSPrivacyCollectedDataTypes=[tracks])},
                             f"{MANIFEST}: NSPrivacyCollectedDataTypeDeviceID is used to track")

    def test_finds_a_missing_or_damaged_file(self):
        tree = dict(TREE)
        del tree[MANIFEST]
        self.assert_found(tree, f"{MANIFEST}: missing")
        self.assert_found_in({MANIFEST: "<plist><dict>"}, f"{MANIFEST}: not a property list: ")


if __name__ == "__main__":
    unittest.main()
