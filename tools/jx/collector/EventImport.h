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

/// Takes up what another collector, or another program, exported: lines of JSON, or an HTTP
/// archive, whichever it turns out to be. Lines are stored as they come; an archive is held until
/// its end.
class EventImport {
 public:
  /// The store outlives the import.
  explicit EventImport(EventStore& store) : store_(store) {}

  /// The next part of the text. False when it cannot be gone on with; error() then tells why.
  bool take(std::string_view part);
  /// After the last part.
  void finish();

  /// Empty when nothing failed as a whole.
  const std::string& error() const { return error_; }
  /// {"imported":2,"repeated":1,"refused":[{"line":3,"reason":"has no body"}]}. Of an archive, the
  /// line is the number of the entry.
  std::string toJson() const;

 private:
  enum class Format { Unknown, Lines, Archive };

  void recognise();
  void takeLines(bool isEnd);
  void takeArchive();
  void takeEvent(const Result<StoredEvent>& event);
  void refuse(std::string reason);

  EventStore& store_;
  Format format_ = Format::Unknown;
  std::string held_;
  std::size_t looked_ = 0;  // of what is held, how much has no line end
  std::int64_t number_ = 0;
  std::int64_t imported_ = 0;
  std::int64_t repeated_ = 0;
  std::vector<std::pair<std::int64_t, std::string>> refused_;
  std::string error_;
};

}  // namespace jx
