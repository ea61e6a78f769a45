// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jx/core/storage/JXOutboxIndex.h"
#include "jx/core/storage/JXStopMarks.h"

namespace jx {

/// Decides which queued requests may be sent: an immutable copy of the decisions that were made
/// about consent. By default every request may be sent.
class JXSendFilter {
 public:
  /// Which requests of a source may be sent that await a decision.
  enum class Earlier { All, WaitingOnly, None };
  /// The decision about one source, made by the ServerSides of this process.
  struct Rule {
    std::uint32_t source = 0;
    Earlier earlier = Earlier::All;
  };

  JXSendFilter() = default;
  /// `isStopped`: the process was told to stop. `marks`: the recorded stops. `sendsUnknown`:
  /// whether requests are sent that await a decision and whose source has no rule, unless a stop
  /// was recorded for it, or `marksAreComplete` is false.
  JXSendFilter(bool isStopped, std::vector<Rule> rules, std::vector<JXStopMark> marks,
               bool sendsUnknown, bool marksAreComplete = true);

  bool allows(const JXOutboxEntry& entry) const;

  /// Returns the number that identifies the source of a request across processes: a hash of the
  /// site ID and source key in its URL.
  static std::uint32_t sourceOf(std::string_view url);
  /// Returns whether a request was executed while waiting for consent: its body ends with the
  /// marker, because the user block is written last.
  static bool hasWaitingMarker(std::string_view body);

 private:
  bool isMarked(const JXOutboxEntry& entry) const;

  bool isStopped_ = false;
  bool sendsUnknown_ = true;
  bool marksAreComplete_ = true;
  std::vector<Rule> rules_;
  std::vector<JXStopMark> marks_;
};

}  // namespace jx
