// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <map>
#include <string>
#include <string_view>

#include "jx/core/storage/JXDefaultsFile.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceFrames.h"

namespace jx::fuzz {
namespace {

using Values = std::map<std::string, std::string>;

const std::string& path() {
  static const std::string path = scratchFolder() + "/defaults";
  return path;
}

// Creates one part of a file: any bytes, or a frame with any payload, a value or a removal.
std::string piece(Input& input) {
  const std::uint8_t kind = input.byte();
  const std::string text(input.bytes(input.byte()));
  // Few keys, so that they collide.
  const std::string key = text.substr(0, kind / 4u % 3);
  const std::string head = littleEndian(key.size(), 4);
  switch (kind % 4) {
    case 0:
      return text;
    case 1:
      return frameOf(text);
    case 2:
      return frameOf("X" + head + key);
    default:
      return frameOf("V" + head + text);
  }
}

// Returns the values in a file. The last frame of a key contains its value.
Values valuesIn(std::string_view file) {
  constexpr std::size_t kHead = 5;
  Values values;
  for (const FoundFrame& frame : framesIn(file)) {
    const std::string& payload = frame.payload;
    if (payload.size() < kHead) continue;
    const std::size_t keyLength = number32At(payload, 1);
    if (keyLength > payload.size() - kHead) continue;
    const std::string key = payload.substr(kHead, keyLength);
    if (payload.front() == 'V') values[key] = payload.substr(kHead + keyLength);
    if (payload.front() == 'X') values.erase(key);
  }
  return values;
}

void requireValues(JXDefaultsFile& defaults, const Values& values, const char* property) {
  for (const auto& [key, value] : values) {
    const JXString found = defaults.objectForKey(JXString(key));
    require(found == JXString(value), property, found.view(), value);
  }
}

void check(Input input) {
  std::string file;
  Values changes;
  while (!input.isEmpty() && file.size() < kMaxFile) {
    if (input.byte() % 8u == 7) {
      const std::string key(input.bytes(input.byte() % 3u));
      changes[key] = std::string(input.bytes(input.byte()));
    } else {
      file += piece(input);
    }
  }
  writeFile(path(), file);
  Values values = valuesIn(file);
  {
    JXDefaultsFile defaults(path());
    require(defaults.isAvailable(), "a file with any content is writable");
    requireValues(defaults, values, "each value in a valid frame is returned");
    for (const auto& [key, value] : changes) {
      require(values.count(key) != 0 || !defaults.objectForKey(JXString(key)).isPresent(),
              "removed and unknown keys return null", key, {});
      defaults.setObject_forKey(JXString(value), JXString(key));
      values[key] = value;
    }
    defaults.maintain();
    requireValues(defaults, values, "maintenance changes no value");
    require(defaults.storageErrors() == 0, "no content causes a storage error");
  }
  require(valuesIn(contentOf(path())) == values, "the file contains exactly these values");
  JXDefaultsFile again(path());
  requireValues(again, values, "each value is returned after a restart");
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({data, size});
  return 0;
}
