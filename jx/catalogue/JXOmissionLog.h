// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "jx/platform/JXString.h"

namespace jx {

/// Logs the values that cannot be written while an event is serialised for `execute`: one message
/// for each cause and key, however many items share the key. Collects the reports of its own thread
/// from construction to destruction. A report without an open log is ignored, so that inspecting an
/// event does not log. The strings must outlive the log.
class JXOmissionLog {
 public:
  /// `name` is the name of the event, which may be null or empty; then the messages contain
  /// `className`.
  JXOmissionLog(const JXString& name, std::string_view className) noexcept;
  ~JXOmissionLog();
  JXOmissionLog(const JXOmissionLog&) = delete;
  JXOmissionLog& operator=(const JXOmissionLog&) = delete;

  /// Reports an amount that is NaN.
  static void reportNaN(std::string_view key);
  /// Reports an enumeration value that has no string.
  static void reportOutsideEnumeration(std::string_view key);
  /// Reports a null string of a list that is written as an array.
  static void reportNullElement(std::string_view key);
  /// Reports a null string of a list that is written under numbered keys. `key` has the number.
  static void reportNullString(std::string_view key);

 private:
  enum class Cause { NaN, OutsideEnumeration, NullElement, NullString };

  static bool isNew(Cause cause, std::string_view key);
  static void reportOnce(Cause cause, std::string_view key, std::string_view what);
  std::string eventName() const;

  const JXString& name_;
  const std::string_view className_;
  JXOmissionLog* const outer_;  ///< of an event that is executed while another one is serialised
  std::vector<std::pair<Cause, std::string>> reported_;
};

}  // namespace jx
