// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSearchEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "search";

}  // namespace

JXSearchEvent::JXSearchEvent() { setName(kName); }

std::shared_ptr<JXSearchEvent> JXSearchEvent::init() {
  return std::shared_ptr<JXSearchEvent>(new JXSearchEvent());
}

std::shared_ptr<JXSearchEvent> JXSearchEvent::initWithSearchTerm(const JXString& searchTerm) {
  std::shared_ptr<JXSearchEvent> event = init();
  event->setSearchTerm(searchTerm);
  return event;
}

const JXEventClass& JXSearchEvent::eventClass() {
  static const auto& fields = *new JXFields<JXSearchEvent>{
      {JXE_SEARCHTERM, "searchTerm", &JXSearchEvent::searchTerm_},
  };
  static const auto& type = *new JXEventClass{
      "JXSearchEvent",
      &JXEvent::eventClass(),
      {kName},
      &fields,
      {
          nonEmptyString(JXE_SEARCHTERM),
      },
      createByInit<JXSearchEvent>,
  };
  return type;
}

}  // namespace jx
