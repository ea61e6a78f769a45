// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/notifications/JXNotification.h"

namespace jx {

/// The URL and the body of a request notification that this thread posts without user info. The
/// network manager reads them here. The user info is created when the first other observer is
/// called, because an event usually has none. Requests may be nested: an observer may post another.
class JXPendingRequest {
 public:
  /// `notification` must have no user info. All arguments must outlive this object.
  JXPendingRequest(JXNotification& notification, const JXString& url,
                   const JXString& body) noexcept;
  ~JXPendingRequest();
  JXPendingRequest(const JXPendingRequest&) = delete;
  JXPendingRequest& operator=(const JXPendingRequest&) = delete;

  /// Returns the request of this notification if its user info has not been created; null
  /// otherwise. Once it exists, an observer may have changed it.
  static const JXPendingRequest* of(const JXNotification& notification) noexcept;
  /// Creates the user info of the notification if it has a pending request.
  static void createUserInfo(const JXNotification& notification);

  const JXString& url() const { return url_; }
  const JXString& body() const { return body_; }

 private:
  static JXPendingRequest* find(const JXNotification& notification) noexcept;

  JXNotification& notification_;
  const JXString& url_;
  const JXString& body_;
  JXPendingRequest* const outer_;
};

}  // namespace jx
