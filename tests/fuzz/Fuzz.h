// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// What each target defines: tries one input, and ends the process when a property is broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace jx::fuzz {

/// Ends the process, with the property in words, when it does not hold.
void require(bool holds, const char* property);
/// The same, showing the texts that it is about.
void require(bool holds, const char* property, std::string_view found, std::string_view wanted);

/// Reads an input as the decisions of a made-up case: numbers from its front, 0 when it has ended.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool isEmpty() const { return rest_.empty(); }
  std::uint8_t byte();
  /// Of so many bytes, the least significant first.
  std::uint64_t number(std::size_t bytes);
  /// At most so many bytes.
  std::string_view bytes(std::size_t count);
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// Switches the library's log off: a million odd inputs would be a million lines.
void silenceLog();
/// The path of a folder that lives as long as the process; made with the first call.
const std::string& scratchFolder();
/// Writes a file anew.
void writeFile(const std::string& path, std::string_view content);
/// Empty when there is no such file.
std::string contentOf(const std::string& path);

}  // namespace jx::fuzz
