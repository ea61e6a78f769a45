// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSignUpEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "sign_up";

}  // namespace

JXSignUpEvent::JXSignUpEvent(InitKey) { setName(kName); }

std::shared_ptr<JXSignUpEvent> JXSignUpEvent::init() { return make<JXSignUpEvent>(); }

const JXEventClass& JXSignUpEvent::eventClass() {
  static const auto& type =
      JXEventClass::of<JXSignUpEvent>(JXEvent::eventClass(), "JXSignUpEvent", {kName},
                                      {
                                          {JXE_METHOD, "method", &JXSignUpEvent::method_},
                                      });
  return type;
}

}  // namespace jx
