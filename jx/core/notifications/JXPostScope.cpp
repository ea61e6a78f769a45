// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXPostScope.h"

namespace jx {
namespace {

// The innermost scope: an observer may post another notification.
thread_local JXPostScope* innermostScope = nullptr;

}  // namespace

JXPostScope::JXPostScope(const JXNotification& notification)
    : notification_(notification), outer_(innermostScope) {
  innermostScope = this;
}

JXPostScope::~JXPostScope() { innermostScope = outer_; }

void JXPostScope::setDecision(const JXNotification& notification, std::uint64_t decision) {
  if (innermostScope != nullptr && &innermostScope->notification_ == &notification) {
    innermostScope->decision_ = decision;
  }
}

std::uint64_t JXPostScope::decisionOf(const JXNotification& notification) {
  const bool isPosting =
      innermostScope != nullptr && &innermostScope->notification_ == &notification;
  return isPosting ? innermostScope->decision_ : 0;
}

}  // namespace jx
