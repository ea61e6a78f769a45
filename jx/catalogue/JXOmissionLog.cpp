// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXOmissionLog.h"

#include <algorithm>

#include "jx/core/JXLogger.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

// Writers of single fields do not know the event, so they find its log through the thread.
thread_local JXOmissionLog* innermostLog = nullptr;

}  // namespace

JXOmissionLog::JXOmissionLog(const JXString& name, std::string_view className) noexcept
    : name_(name), className_(className), outer_(innermostLog) {
  innermostLog = this;
}

JXOmissionLog::~JXOmissionLog() { innermostLog = outer_; }

bool JXOmissionLog::isNew(Cause cause, std::string_view key) {
  if (innermostLog == nullptr) return false;
  const std::pair<Cause, std::string> report(cause, key);
  auto& reported = innermostLog->reported_;
  if (std::find(reported.begin(), reported.end(), report) != reported.end()) return false;
  reported.push_back(report);
  return true;
}

std::string JXOmissionLog::eventName() const {
  return name_.testString() ? name_.toStdString() : std::string(className_);
}

void JXOmissionLog::reportOnce(Cause cause, std::string_view key, std::string_view what) {
  if (!isNew(cause, key)) return;
  JXLogger::sharedInstance().logMessage_withLevel(
      concat({innermostLog->eventName(), ": ", key, what}), 3);
}

void JXOmissionLog::reportNaN(std::string_view key) {
  reportOnce(Cause::NaN, key, " is NaN; omitted");
}

void JXOmissionLog::reportOutsideEnumeration(std::string_view key) {
  reportOnce(Cause::OutsideEnumeration, key, " is outside its enumeration; omitted");
}

void JXOmissionLog::reportNullElement(std::string_view key) {
  reportOnce(Cause::NullElement, key, " contains a null element; skipped");
}

void JXOmissionLog::reportNullString(std::string_view key) {
  reportOnce(Cause::NullString, key, " is null; skipped");
}

}  // namespace jx
