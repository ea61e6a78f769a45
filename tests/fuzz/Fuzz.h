// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Defined by each target: tests one input, and aborts the process if a property is violated.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace jx::fuzz {

/// Prints the property and aborts the process if it does not hold.
void require(bool holds, const char* property);
/// Does the same and prints the actual and the expected string.
void require(bool holds, const char* property, std::string_view actual, std::string_view expected);

/// Reads decisions of a test case from an input: numbers from its front, 0 at its end.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool isEmpty() const { return rest_.empty(); }
  std::uint8_t byte();
  /// Returns a number of the given number of bytes, little-endian.
  std::uint64_t number(std::size_t bytes);
  /// Returns at most the given number of bytes.
  std::string_view bytes(std::size_t count);
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// Disables the library's log, which would otherwise contain a message for each invalid input.
void silenceLog();
/// Returns the path of a temporary folder, which is created by the first call and removed at the
/// end of the process.
const std::string& scratchFolder();
/// Creates or replaces a file.
void writeFile(const std::string& path, std::string_view content);
/// Returns the content of a file, empty if it does not exist.
std::string contentOf(const std::string& path);

}  // namespace jx::fuzz
