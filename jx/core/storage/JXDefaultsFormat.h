// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

// The payloads of the frames in which user defaults are stored. In their own file, a value: kind,
// length of the key (4 bytes), key, value. A removed value: the same, without a value. A
// checkpoint: kind, 4 unused bytes, writer, sequence. In a queue file, stored changes: kind, 3
// unused bytes, writer, sequence, then for each value its kind, length of the key (4), length of
// the value (4), key, value.
//
// A writer is one process, under a random number. It numbers the stored changes that it writes; a
// checkpoint says up to which number they are contained in the file. Only later ones apply, and
// only to values that have no record after the checkpoint: another process set those later. Without
// a checkpoint of their writer, stored changes never apply, so those from before an erase do not.

/// A value, and the position of its record among the records of the file.
struct JXStoredValue {
  JXString value;  ///< null if it was removed
  std::uint64_t position = 0;
};
using JXDefaultsMap = std::unordered_map<JXString, JXStoredValue>;

struct JXDefaultsCheckpoint {
  std::uint64_t writer = 0;
  std::uint64_t sequence = 0;
  std::uint64_t position = 0;
};

/// The content of a user defaults file.
struct JXDefaultsContent {
  JXDefaultsMap values;
  /// The last checkpoints of the writers that wrote one last, in their order.
  std::vector<JXDefaultsCheckpoint> checkpoints;
  std::uint64_t lastPosition = 0;

  /// Applies the payload of the next frame of the file; ignores one of an unknown kind.
  void apply(std::string_view payload);
  /// Returns the checkpoint of a writer, or null.
  const JXDefaultsCheckpoint* checkpointOf(std::uint64_t writer) const;
  /// Returns the frames of a file that contains only this, in the same order.
  std::string encode() const;
  /// Returns the size in bytes of a file that contains only the values.
  std::uint64_t compactSize() const;
};

/// Appends the frame that sets `key` to `value`; a null value removes the entry.
void encodeValue(const JXString& key, const JXString& value, std::string& frames);
/// Appends the frame of a checkpoint.
void encodeCheckpoint(std::uint64_t writer, std::uint64_t sequence, std::string& frames);

constexpr std::size_t kJXStoredChangesHeadSize = 20;

/// Replace `payload` with stored changes without a value, and add a value to them.
void encodeStoredChanges(std::uint64_t writer, std::uint64_t sequence, std::string& payload);
void encodeStoredChange(const JXString& key, const JXString& value, std::string& payload);

/// Reads the payload of stored changes.
class JXStoredChanges {
 public:
  explicit JXStoredChanges(std::string_view payload);
  std::uint64_t writer() const { return writer_; }
  std::uint64_t sequence() const { return sequence_; }
  /// Returns the next value; false at the end.
  bool next(JXString& key, JXString& value);

 private:
  std::uint64_t writer_ = 0;
  std::uint64_t sequence_ = 0;
  std::string_view rest_;
};

}  // namespace jx
