#!/usr/bin/env python3
# Copyright 2026 The JXServerSide authors
# SPDX-License-Identifier: Apache-2.0
"""Tests that Package.swift and the podspecs contain the files that CMake builds for tvOS, and that
scripts/xcframework packages what is installed. CMake configures the build with clang and an empty
SDK; the programs of a Mac are replaced by scripts.

    apple_packages_test.py SOURCE_FOLDER"""

import fnmatch
import json
import os
import pathlib
import plistlib
import re
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
sys.path.insert(0, str(ROOT / "scripts/checks"))
import sourcetree  # noqa: E402

SOURCES = (".cpp", ".m", ".mm", ".c")
MANIFEST = "packaging/apple/PrivacyInfo.xcprivacy"


def read(path):
    return (ROOT / path).read_text(encoding="utf-8")


def tracked():
    return sourcetree.files(str(ROOT), "*")


def is_below(path, folder):
    return path == folder or path.startswith(folder + "/")


def built_by_cmake(folder):
    """Returns the sources that CMake compiles for tvOS."""
    sdk = folder / "AppleTVOS.sdk"
    (sdk / "usr/include/curl").mkdir(parents=True)
    (sdk / "libcurl.a").touch()
    options = {"CMAKE_SYSTEM_NAME": "tvOS", "CMAKE_OSX_ARCHITECTURES": "arm64",
               "CMAKE_OSX_DEPLOYMENT_TARGET": "12.0", "CMAKE_OSX_SYSROOT": sdk,
               "CMAKE_INSTALL_NAME_TOOL": "/bin/true", "CMAKE_EXPORT_COMPILE_COMMANDS": "ON",
               "CURL_LIBRARY": sdk / "libcurl.a", "CURL_INCLUDE_DIR": sdk / "usr/include",
               "CMAKE_HAVE_LIBC_PTHREAD": "1", "JX_BUILD_TOOLS": "OFF", "JX_BUILD_TESTS": "OFF",
               "JX_BUILD_EXAMPLES": "OFF"}
    for language, compiler in (("C", "clang"), ("CXX", "clang++"), ("OBJC", "clang"),
                               ("OBJCXX", "clang++")):
        options[f"CMAKE_{language}_COMPILER"] = f"/usr/bin/{compiler}"
        options[f"CMAKE_{language}_COMPILER_WORKS"] = "1"
    subprocess.run(["cmake", "-S", ROOT, "-B", folder / "build", "-G", "Ninja",
                    *(f"-D{name}={value}" for name, value in options.items())],
                   check=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    commands = json.loads((folder / "build/compile_commands.json").read_text(encoding="utf-8"))
    return sorted({os.path.relpath(entry["file"], ROOT) for entry in commands})


class Package:
    """The target of Package.swift that contains the library."""

    def __init__(self):
        text = re.sub(r"^\s*//.*", "", read("Package.swift"), flags=re.MULTILINE)
        self.text = text[text.index('name: "JXServerSideObjC",\n      dep'):]
        self.excluded = self._strings("exclude")
        self.sources = self._strings("sources")

    def _strings(self, label):
        return re.findall(r'"([^"]*)"', re.search(label + r": \[(.*?)\]", self.text, re.DOTALL)[1])

    def contains(self, path):
        return not any(is_below(path, entry) for entry in self.excluded)

    def compiled(self):
        return [path for path in tracked() if path.endswith(SOURCES) and self.contains(path)
                and any(is_below(path, folder) for folder in self.sources)]


class Pod:
    def __init__(self, path):
        self.text = read(path)

    def value(self, name):
        return re.search(rf"pod\.{name} = '([^']*)'", self.text)[1]

    def matched(self, name):
        pattern = self.value(name)
        braces = re.search(r"\{(.*)\}", pattern)
        patterns = [pattern.replace(braces[0], part) for part in braces[1].split(",")] if braces \
            else [pattern]
        return sorted(path for path in tracked()
                      if any(fnmatch.fnmatchcase(path, entry.replace("**/*", "*"))
                             for entry in patterns))


class ApplePackages(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with tempfile.TemporaryDirectory() as folder:
            cls.built = built_by_cmake(pathlib.Path(folder))
        cls.package = Package()
        cls.pod = Pod("JXServerSideObjC.podspec")

    def test_cmake_builds_the_layers_for_tvos(self):
        for path in ("jx/objc/ServerSide.mm", "jx/objc/JXNames.m", "jx/objc/internal/JXFields.mm",
                     "jx/platform/apple/JXHardware.mm", "jx/facade/ServerSide.cpp"):
            self.assertIn(path, self.built)
        self.assertEqual([path for path in self.built if "/linux/" in path], [])

    def test_swift_package_compiles_what_cmake_builds(self):
        self.assertEqual(self.package.compiled(), self.built)

    def test_swift_package_excludes_every_other_file(self):
        used = SOURCES + (".h",)
        others = [path for path in tracked()
                  if self.package.contains(path) and not path.endswith(used)
                  and not path.split("/")[0].startswith(".")]
        self.assertEqual(others, ["Package.swift", "jx/objc/module.modulemap", MANIFEST])

    def test_swift_package_excludes_only_existing_files(self):
        self.assertEqual([entry for entry in self.package.excluded
                          if not (ROOT / entry).exists()], [])

    def test_pod_compiles_what_cmake_builds(self):
        excluded = self.pod.matched("exclude_files")
        self.assertEqual([path for path in self.pod.matched("source_files")
                          if path.endswith(SOURCES) and path not in excluded], self.built)

    def test_module_contains_the_public_headers(self):
        listed = [path for path in tracked() if sourcetree.is_objective_c(path)]
        self.assertIn("jx/objc/ServerSide.h", listed)
        included = sourcetree.with_own_includes(ROOT, "jx/objc/JXServerSide.h")
        self.assertEqual(included, listed)
        self.assertEqual([path for path in self.pod.matched("public_header_files")
                          if sourcetree.is_objective_c(path)], listed)
        self.assertIn('publicHeadersPath: "jx/objc"', self.package.text)

    def import_module(self, statements):
        declarations = ROOT / "scripts/checks/darwin"
        resources = subprocess.run(["clang", "-print-resource-dir"], capture_output=True,
                                   text=True, check=True).stdout.strip()
        with tempfile.TemporaryDirectory() as cache:
            return subprocess.run(
                ["clang", "-target", "arm64-apple-tvos12.0", "-x", "objective-c", "-fobjc-arc",
                 "-fblocks", "-ffreestanding", "-nostdinc", "-isystem", declarations, "-isystem",
                 f"{resources}/include", "-fmodules", f"-fmodules-cache-path={cache}",
                 f"-fmodule-map-file={ROOT}/jx/objc/module.modulemap", "-fsyntax-only", "-"],
                input=f"@import JXServerSideObjC;\nvoid f(void) {{ {statements} }}\n",
                capture_output=True, text=True, check=False)

    def test_module_declares_the_classes(self):
        event = "[[JXPurchaseEvent alloc] init]"
        result = self.import_module(f"({event}).coupon = nil;")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertNotEqual(self.import_module(f"({event}).nothing = nil;").returncode, 0)

    def test_packages_contain_the_privacy_manifest(self):
        self.assertTrue((ROOT / MANIFEST).is_file())
        self.assertIn(f'resources: [.process("{MANIFEST}")]', self.package.text)
        self.assertIn(f"{{ 'JXServerSidePrivacy' => ['{MANIFEST}'] }}", self.pod.text)

    def test_packages_state_the_version_of_the_library(self):
        version = re.search(r'VERSION_STRING "(.*)"', read("jx/JXVersion.h"))[1]
        swift = Pod("JXServerSide.podspec")
        self.assertEqual(self.pod.value("version"), version)
        self.assertEqual(swift.value("version"), version)
        self.assertIn(f"'JXServerSideObjC', '{version}'", swift.text)

    def test_packages_use_the_default_collection_host(self):
        host = re.search(r'set\(JX_COLLECTION_HOST "(.*?)"', read("CMakeLists.txt"))[1]
        self.assertIn(f'"\\"{host}\\""', self.package.text)
        self.assertIn(f'JX_COLLECTION_HOST=\\"{host}\\"', self.pod.text)


# Replaces cmake: its --install creates the files that the build installs.
FAKE_CMAKE = """#!/usr/bin/env bash
set -eu
echo "cmake $*" >>"$LOG"
[[ $1 == --install ]] || exit 0
mkdir -p "$4"/{lib,include/jx,share/jxserverside}
echo archive >"$4/lib/libjxserverside.a"
cp -R "$SOURCE/jx/objc" "$4/include/jx/objc"
cp "$SOURCE/packaging/apple/PrivacyInfo.xcprivacy" "$4/share/jxserverside"
"""
FAKE_XCODEBUILD = '#!/usr/bin/env bash\necho "xcodebuild $*" >>"$LOG"\n'


class XCFramework(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        for name, text in (("cmake", FAKE_CMAKE), ("xcodebuild", FAKE_XCODEBUILD)):
            (self.folder / name).write_text(text, encoding="utf-8")
            (self.folder / name).chmod(0o755)

    def run_script(self, *arguments):
        environment = dict(os.environ, PATH=f"{self.folder}:{os.environ['PATH']}",
                           LOG=str(self.folder / "log"), SOURCE=str(ROOT))
        return subprocess.run([ROOT / "scripts/xcframework", *arguments], env=environment,
                              capture_output=True, text=True, check=False)

    def test_packages_library_headers_module_and_manifest(self):
        output = self.folder / "out"
        result = self.run_script("/libraries", output, "--", "-DJX_COLLECTION_HOST=host.example")
        self.assertEqual(result.returncode, 0, result.stderr)
        for system, platform in (("appletvos", "AppleTVOS"),
                                 ("appletvsimulator", "AppleTVSimulator")):
            framework = output / system / "JXServerSideObjC.framework"
            self.assertEqual((framework / "JXServerSideObjC").read_text(), "archive\n")
            self.assertEqual(sorted(path.name for path in (framework / "Headers").iterdir()),
                             sorted(path.name for path in (ROOT / "jx/objc").glob("*.h")))
            self.assertIn("\nframework module JXServerSideObjC {",
                          (framework / "Modules/module.modulemap").read_text())
            self.assertEqual((framework / "PrivacyInfo.xcprivacy").read_text(), read(MANIFEST))
            information = plistlib.loads((framework / "Info.plist").read_bytes())
            self.assertEqual(information["CFBundleSupportedPlatforms"], [platform])
            self.assertEqual(information["CFBundleExecutable"], "JXServerSideObjC")
        log = (self.folder / "log").read_text()
        self.assertIn("-DCMAKE_OSX_SYSROOT=appletvos -DCMAKE_OSX_ARCHITECTURES=arm64 ", log)
        self.assertIn("-DCMAKE_FIND_ROOT_PATH=/libraries/appletvsimulator", log)
        self.assertEqual(log.count("-DJX_COLLECTION_HOST=host.example"), 2)
        self.assertIn(f"xcodebuild -create-xcframework -output {output}/JXServerSideObjC.xcframework"
                      f" -framework {output}/appletvos/JXServerSideObjC.framework"
                      f" -framework {output}/appletvsimulator/JXServerSideObjC.framework\n", log)

    def test_requires_the_folder_of_libcurl(self):
        result = self.run_script()
        self.assertEqual(result.returncode, 2)
        self.assertIn("usage: scripts/xcframework", result.stderr)
        self.assertFalse((self.folder / "log").exists())


if __name__ == "__main__":
    unittest.main()
