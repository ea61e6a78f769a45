// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSelectContentEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "select_content";

}  // namespace

JXSelectContentEvent::JXSelectContentEvent() { setName(kName); }

std::shared_ptr<JXSelectContentEvent> JXSelectContentEvent::init() {
  return std::shared_ptr<JXSelectContentEvent>(new JXSelectContentEvent());
}

const JXEventClass& JXSelectContentEvent::eventClass() {
  static const auto& fields = *new JXFields<JXSelectContentEvent>{
      {JXE_CONTENTTYPE, "contentType", &JXSelectContentEvent::contentType_},
      {JXE_ITEMID, "itemID", &JXSelectContentEvent::itemID_},
  };
  static const auto& type = *new JXEventClass{
      "JXSelectContentEvent",
      &JXEvent::eventClass(),
      {kName},
      &fields,
      {},
      createByInit<JXSelectContentEvent>,
  };
  return type;
}

}  // namespace jx
