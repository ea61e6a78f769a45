// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXStoredKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace jx::test {
namespace {

// The text of all sources of the library, except those that pass a key on.
std::string sources() {
  const std::set<std::string> passing{
      "JXUserDefaults.cpp", "JXPersistedString.h",    "JXDefaultsFile.cpp",
      "JXErasures.cpp",     "JXUserDefaults.h",       "JXDefaultsFile.h",
      "JXPlatform.h",       "JXFoundationDefaults.h", "JXFoundationDefaults.mm",
      "JXUserDefaults.mm"};
  std::string text;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(JX_SOURCE_DIR "/jx")) {
    if (!entry.is_regular_file() || passing.count(entry.path().filename().string()) != 0) continue;
    std::ifstream in(entry.path());
    text.append(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return text;
}

// Calls `use` with the position after each occurrence of `part`.
template <typename Use>
void forEach(const std::string& text, const std::string& part, const Use& use) {
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    use(at + part.size());
}

// Returns the last argument of a call, or the first, a name.
std::string argument(const std::string& text, std::size_t begin, bool isLast) {
  const std::string arguments = text.substr(begin, text.find_first_of(");", begin) - begin);
  const std::size_t comma = isLast ? arguments.rfind(',') : arguments.find(',');
  std::string name = isLast ? arguments.substr(comma + 1) : arguments.substr(0, comma);
  name.erase(
      std::remove_if(name.begin(), name.end(), [](unsigned char c) { return std::isspace(c); }),
      name.end());
  return name;
}

// Returns the string of a constant.
std::string valueOf(const std::string& text, const std::string& constant) {
  std::string value;
  forEach(text, " " + constant + " =", [&](std::size_t end) {
    const std::size_t quote = text.find('"', end);
    value = text.substr(quote + 1, text.find('"', quote + 1) - quote - 1);
  });
  return value;
}

TEST(StoredKeys, ContainEveryKeyThatTheSourcesStore) {
  const std::string text = sources();
  std::set<std::string> names;
  forEach(text, "persistString(",
          [&](std::size_t begin) { names.insert(argument(text, begin, false)); });
  for (const char* const call : {"saveInfoToUserDefaults_forLabel(", "setObject_forKey("})
    forEach(text, call, [&](std::size_t begin) { names.insert(argument(text, begin, true)); });
  EXPECT_EQ(names.size(), std::size(kJXStoredKeys));
  for (const std::string& name : names) {
    const std::string key = valueOf(text, name);
    EXPECT_NE(std::find(std::begin(kJXStoredKeys), std::end(kJXStoredKeys), key),
              std::end(kJXStoredKeys))
        << name << " is missing in jx/core/JXStoredKeys.h";
  }
}

}  // namespace
}  // namespace jx::test
