// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/StateFolder.h"
#include "tools/jx/gateway/DrainDatabase.h"
#include "tools/jx/gateway/EventLine.h"
#include "tools/jx/gateway/NdjsonFile.h"

namespace jx {

struct DrainLimits {
  std::int64_t fileBytes = std::int64_t{128} << 20;  ///< a file of this size is finished
  std::chrono::seconds fileAge{300};                 ///< so is a file of this age
  std::chrono::hours repeats{168};                   ///< repeats within this time are dropped
};

/// A folder to which the messages of one stream are written exactly once, also when the process is
/// killed. It contains finished files "events-TIME-SEQUENCE.ndjson", which never change, at most
/// one current file "....ndjson.part", and the database "drain.db", which records the committed
/// length of the current file: bytes after it are from an interrupted batch and are removed. Locked
/// while this object exists. Not thread-safe.
class DrainFolder {
 public:
  /// Returns milliseconds since the Unix epoch.
  using Clock = std::function<std::int64_t()>;
  struct Tally {
    std::int64_t written = 0;
    std::int64_t repeats = 0;  ///< dropped, because an event with the same ID is written
  };

  /// Opens or creates the folder. A folder contains the messages of one stream only.
  static Result<std::unique_ptr<DrainFolder>> open(const std::filesystem::path& path,
                                                   const std::string& stream,
                                                   const DrainLimits& limits, Clock clock);

  /// Starts at the first message if the stream was created again. Call it before `append`.
  void useStream(std::int64_t created);
  const DrainPosition& position() const { return position_; }

  /// Writes messages, in order of the stream. They are durable when it returns. On failure, nothing
  /// is written; call it again with the same messages.
  Result<Tally> append(const std::vector<StreamMessage>& messages);
  /// Finishes the current file when it is large or old enough.
  Done rotateWhenDue();
  /// Finishes the current file, if any.
  Done finishFile();

 private:
  DrainFolder(StateFolder folder, DrainDatabase database, const DrainLimits& limits, Clock clock);
  Done recover(const std::string& stream);
  Done removeUnrecordedFiles() const;
  Result<Tally> write(const std::vector<StreamMessage>& messages, DrainPosition& next);
  Done writeLines(const std::string& lines, std::int64_t firstSequence, DrainPosition& next);
  void discardUncommitted();
  Done record(const DrainPosition& next);
  std::string newFileName(std::int64_t firstSequence) const;

  StateFolder folder_;
  DrainDatabase database_;
  const DrainLimits limits_;
  const Clock clock_;
  DrainPosition position_;
  std::optional<NdjsonFile> file_;
  bool isUncertain_ = false;  // whether the last batch is committed
  bool hasUnrecordedFile_ = false;
};

}  // namespace jx
