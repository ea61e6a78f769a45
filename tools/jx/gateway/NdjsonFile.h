// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "tools/jx/Result.h"

namespace jx {

/// A file that is written with the extra ending ".part" and gets its final name when it is
/// complete. Not thread-safe.
class NdjsonFile {
 public:
  /// Creates "NAME.part", which must not exist.
  static Result<NdjsonFile> create(const std::filesystem::path& folder, const std::string& name);
  /// Opens "NAME.part".
  static Result<NdjsonFile> open(const std::filesystem::path& folder, const std::string& name);

  NdjsonFile(NdjsonFile&& other) noexcept;
  NdjsonFile& operator=(NdjsonFile&& other) noexcept;
  ~NdjsonFile();

  Result<std::int64_t> length() const;
  /// Writes the bytes at an offset. They are durable when it returns.
  Done write(std::int64_t offset, std::string_view bytes) const;
  /// Removes the bytes after `length`; durable when it returns.
  Done truncate(std::int64_t length) const;

  /// Gives "NAME.part" its final name; succeeds if it has it already. Durable when it returns.
  static Done finish(const std::filesystem::path& folder, const std::string& name);
  static std::filesystem::path partPath(const std::filesystem::path& folder,
                                        const std::string& name);

 private:
  NdjsonFile(std::filesystem::path path, int fd) : path_(std::move(path)), fd_(fd) {}

  std::filesystem::path path_;
  int fd_;
};

}  // namespace jx
