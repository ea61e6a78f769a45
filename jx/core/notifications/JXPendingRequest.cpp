// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXPendingRequest.h"

#include <utility>

#include "jx/core/JXCoreConstants.h"

namespace jx {
namespace {

thread_local JXPendingRequest* innermostRequest = nullptr;

}  // namespace

JXPendingRequest::JXPendingRequest(JXNotification& notification, const JXString& url,
                                   const JXString& body) noexcept
    : notification_(notification), url_(url), body_(body), outer_(innermostRequest) {
  innermostRequest = this;
}

JXPendingRequest::~JXPendingRequest() { innermostRequest = outer_; }

JXPendingRequest* JXPendingRequest::find(const JXNotification& notification) noexcept {
  if (notification.userInfo.isPresent()) return nullptr;
  JXPendingRequest* request = innermostRequest;
  while (request != nullptr && &request->notification_ != &notification)
    request = request->outer_;
  return request;
}

const JXPendingRequest* JXPendingRequest::of(const JXNotification& notification) noexcept {
  return find(notification);
}

void JXPendingRequest::createUserInfo(const JXNotification& notification) {
  JXPendingRequest* const request = find(notification);
  if (request == nullptr) return;
  JXJsonObject userInfo;
  userInfo.set(kJXUserInfo_URLKey, request->url_);
  userInfo.set(kJXUserInfo_POSTData, request->body_);
  request->notification_.userInfo = std::move(userInfo);
}

}  // namespace jx
