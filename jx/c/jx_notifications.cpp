// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_notifications.h"

#include <memory>
#include <string>
#include <utility>

#include "jx/c/internal/JXCall.h"
#include "jx/core/notifications/JXEventListener.h"

namespace {

using jx::JXHandleKind;
using jx::c::Result;

class CObserver final : public jx::IJXEventListenerDelegate {
 public:
  CObserver(const char* name, jx_notification_handler handler, void* context)
      : handler_(handler), context_(context), listener_(jx::JXEventListener::init()) {
    listener_->setParent(this);
    listener_->listen(name);
  }
  // Waits for a call in progress on another thread. The application has no reference to the
  // listener.
  ~CObserver() override { listener_.reset(); }
  CObserver(const CObserver&) = delete;
  CObserver& operator=(const CObserver&) = delete;

  void onNotificationReceived(const jx::JXNotification& notification) override {
    const jx::JXString name = notification.name;
    const bool hasInfo = notification.userInfo.isPresent();
    const std::string info = hasInfo ? jx::c::jsonText(notification.userInfo) : std::string();
    // The last use of this object, because the handler may free it.
    handler_(context_, name.c_str(), hasInfo ? info.c_str() : nullptr);
  }
  std::shared_ptr<jx::JXEventListener> listenerDelegate() const override { return listener_; }

 private:
  const jx_notification_handler handler_;
  void* const context_;
  std::shared_ptr<jx::JXEventListener> listener_;
};

}  // namespace

jx_status jx_observer_create(const char* name, jx_notification_handler handler, void* context,
                             jx_observer** observer) {
  return jx::c::call(__func__, [&]() -> Result {
    if (observer == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *observer = nullptr;
    if (name == nullptr || handler == nullptr) return JX_ERROR_NULL_ARGUMENT;
    return jx::c::give(JXHandleKind::Observer, std::make_shared<CObserver>(name, handler, context),
                       observer);
  });
}

jx_status jx_observer_free(jx_observer* observer) {
  return jx::c::call(__func__, [&] { return jx::c::end(observer, JXHandleKind::Observer); });
}

jx_status jx_post_notification(const char* name, const char* user_info_json) {
  return jx::c::call(__func__, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    jx::JXJsonValue info;
    Result result = jx::c::readJson(user_info_json, info);
    if (result.status != JX_OK) return result;
    if (info.isPresent() && info.kind() != jx::JXJsonValue::Kind::Object) {
      return {JX_ERROR_INVALID_JSON, "user_info_json must be a JSON object"};
    }
    jx::JXNotificationCenter::defaultCenter()->postNotification({name, nullptr, info.object()});
    return JX_OK;
  });
}
