// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fuzz/CApiArguments.h"

#include <string_view>

#include "jx/core/json/JXUtf8.h"
#include "tests/fuzz/CApiLibrary.h"

namespace jx::fuzz {

jx_status checked(jx_status status) {
  require(status >= JX_OK && status <= JX_ERROR_NOT_ERASED, "a status is one of the enumeration");
  require(status != JX_ERROR_INTERNAL && status != JX_ERROR_OUT_OF_MEMORY,
          "no call fails internally", jx_error_detail(), {});
  const std::string_view detail = jx_error_detail();
  require(detail.size() <= 255 && isUtf8(detail), "a detail is a short string", detail, {});
  require(status == JX_OK || !detail.empty(), "an error has a detail");
  require(jx_status_string(static_cast<uint32_t>(status))[0] != '\0', "a status has a description");
  return status;
}

const char* CApiArguments::text() {
  constexpr std::array<const char*, 24> kNames{"JXCustomEvent",
                                               "JXPurchaseEvent",
                                               "JXVideoPlaybackEvent",
                                               "JXVideoAdEvent",
                                               "JXItem",
                                               "JXProduct",
                                               "items",
                                               "product",
                                               "colors",
                                               "categories",
                                               "keywords",
                                               "value",
                                               "price",
                                               "quantity",
                                               "ID",
                                               "currency",
                                               "adType",
                                               "JXPurchaseEvent.coupon",
                                               "livestream",
                                               "12.50",
                                               "{\"a\":[1,null,\"b\"]}",
                                               "[\"x\",null,2]",
                                               "JXNotification: HTTP Request",
                                               "JXMobileConsent"};
  const std::uint8_t choice = input_.byte();
  if (choice == 0) return nullptr;
  if (choice < 128) return kNames[choice % kNames.size()];
  const std::string_view bytes = input_.bytes(choice - 128u);
  texts_.emplace_back(bytes.substr(0, bytes.find('\0')));
  return texts_.back().c_str();
}

const char* CApiArguments::field() {
  const std::uint8_t choice = input_.byte();
  const jx_class* const type = jx_class_at(choice % 32u);
  if (choice >= 224 || type == nullptr || type->field_count == 0) return text();
  return type->fields[input_.byte() % type->field_count].property;
}

CApiArguments::Handle CApiArguments::pick() {
  constexpr std::uintptr_t kWild = 0x12345;
  const std::uint8_t choice = input_.byte();
  // NOLINTNEXTLINE(performance-no-int-to-ptr): an invalid handle
  if (choice >= 250) return {reinterpret_cast<void*>(kWild * choice), Kind::Object, false};
  return handles_.empty() ? Handle() : handles_[choice % handles_.size()];
}

CApiArguments::Handle CApiArguments::pick(Kind kind) {
  const Handle any = pick();
  if (any.isLive && any.kind == kind) return any;
  if ((input_.byte() & 3) == 0) return any;
  const auto found = std::find_if(handles_.rbegin(), handles_.rend(), [&](const Handle& each) {
    return each.isLive && each.kind == kind;
  });
  return found != handles_.rend() ? *found : any;
}

jx_status CApiArguments::on(Kind kind, jx_status status) {
  checked(status);
  jx_status expected = JX_OK;
  if (last_.token == nullptr) {
    expected = JX_ERROR_NULL_HANDLE;
  } else if (!last_.isLive) {
    expected = JX_ERROR_DEAD_HANDLE;
  } else if (last_.kind != kind) {
    expected = JX_ERROR_WRONG_HANDLE;
  }
  require(expected == JX_OK || status == expected, "each invalid handle is reported",
          std::to_string(status), std::to_string(expected));
  return status;
}

void CApiArguments::free(const Handle& handle) {
  const auto kind = static_cast<Kind>((static_cast<int>(handle.kind) + input_.byte() % 2) % 3);
  jx_status status = JX_OK;
  if (kind == Kind::Object) status = jx_object_free(static_cast<jx_object*>(handle.token));
  if (kind == Kind::ServerSide)
    status = jx_server_side_free(static_cast<jx_server_side*>(handle.token));
  if (kind == Kind::Observer) status = jx_observer_free(static_cast<jx_observer*>(handle.token));
  checked(status);
  jx_status expected = handle.token == nullptr || handle.isLive ? JX_OK : JX_ERROR_DEAD_HANDLE;
  if (handle.isLive && kind != handle.kind) expected = JX_ERROR_WRONG_HANDLE;
  require(status == expected, "a handle is freed once, by its function", std::to_string(status),
          std::to_string(expected));
  for (Handle& each : handles_) {
    if (each.token == handle.token && status == JX_OK) each.isLive = false;
  }
}

void CApiArguments::requireCount() const {
  const auto live = static_cast<std::size_t>(std::count_if(
      handles_.begin(), handles_.end(), [](const Handle& each) { return each.isLive; }));
  require(jx_handle_count() == handlesBefore_ + live, "each handle is counted once",
          std::to_string(jx_handle_count()), std::to_string(live));
}

void CApiArguments::freeAll() {
  input_ = Input(nullptr, 0);  // by the function of each handle
  for (std::size_t i = handles_.size(); i-- > 0;) {
    if (handles_[i].isLive) free(Handle(handles_[i]));
  }
  requireCount();
  checked(jx_unregister_module("JXMobileConsent"));
  checked(jx_application_will_enter_foreground());
  clockMs = kStartMs;
  jx_set_log_level(6);
}

}  // namespace jx::fuzz
