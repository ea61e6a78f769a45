// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXLoginEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "login";

}  // namespace

JXLoginEvent::JXLoginEvent(InitKey) { setName(kName); }

std::shared_ptr<JXLoginEvent> JXLoginEvent::init() { return make<JXLoginEvent>(); }

const JXEventClass& JXLoginEvent::eventClass() {
  static const auto& type =
      JXEventClass::of<JXLoginEvent>(JXEvent::eventClass(), "JXLoginEvent", {kName},
                                     {
                                         {JXE_METHOD, "method", &JXLoginEvent::method_},
                                     });
  return type;
}

}  // namespace jx
