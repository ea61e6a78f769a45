// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/EventStore.h"

namespace jx {

/// Imports events that a collector or another program exported. Detects the format: NDJSON or an
/// HTTP archive (HAR). NDJSON lines are stored as they arrive; an archive is buffered until its
/// end.
class EventImport {
 public:
  /// `store` must outlive the import.
  explicit EventImport(EventStore& store) : store_(store) {}

  /// Consumes the next part of the input. Returns false when the import failed; error() then
  /// returns the cause.
  bool consume(std::string_view part);
  /// Completes the import. Call once, after the last part.
  void finish();

  /// Returns why the import failed; empty when it did not. Rejected lines are not a failure.
  const std::string& error() const { return error_; }
  /// Returns {"imported":2,"repeated":1,"refused":[{"line":3,"reason":"body must be a string"}]}.
  /// In an archive, "line" is the number of the entry. Numbers start at 1.
  std::string toJson() const;

 private:
  enum class Format { Unknown, Lines, Archive };

  void detectFormat();
  void readLines(bool isEnd);
  void readArchive();
  void storeEvent(const Result<StoredEvent>& event);
  void reject(std::string reason);

  EventStore& store_;
  Format format_ = Format::Unknown;
  std::string buffer_;
  std::size_t scanned_ = 0;  // bytes of the buffer without a line end
  std::int64_t lineNumber_ = 0;
  std::int64_t imported_ = 0;
  std::int64_t repeated_ = 0;
  std::vector<std::pair<std::int64_t, std::string>> refused_;
  std::string error_;
};

}  // namespace jx
