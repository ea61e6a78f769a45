// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXPostScope.h"

namespace jx {
namespace {

// The innermost scope: an observer may post another notification.
thread_local JXPostScope* innermost = nullptr;

}  // namespace

JXPostScope::JXPostScope(const JXNotification& notification)
    : notification_(notification), outer_(innermost) {
  innermost = this;
}

JXPostScope::~JXPostScope() { innermost = outer_; }

void JXPostScope::setDecision(const JXNotification& notification, std::uint64_t decision) {
  if (innermost != nullptr && &innermost->notification_ == &notification) {
    innermost->decision_ = decision;
  }
}

std::uint64_t JXPostScope::decisionOf(const JXNotification& notification) {
  const bool isPosting = innermost != nullptr && &innermost->notification_ == &notification;
  return isPosting ? innermost->decision_ : 0;
}

}  // namespace jx
