// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSelectContentEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "select_content";

}  // namespace

JXSelectContentEvent::JXSelectContentEvent(InitKey) { setName(kName); }

std::shared_ptr<JXSelectContentEvent> JXSelectContentEvent::init() {
  return make<JXSelectContentEvent>();
}

const JXEventClass& JXSelectContentEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXSelectContentEvent>(
      JXEvent::eventClass(), "JXSelectContentEvent", {kName},
      {
          {JXE_CONTENTTYPE, "contentType", &JXSelectContentEvent::contentType_},
          {JXE_ITEMID, "itemID", &JXSelectContentEvent::itemID_},
      });
  return type;
}

}  // namespace jx
