// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXSearchEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "search";

}  // namespace

JXSearchEvent::JXSearchEvent(InitKey) { setName(kName); }

std::shared_ptr<JXSearchEvent> JXSearchEvent::init() { return make<JXSearchEvent>(); }

std::shared_ptr<JXSearchEvent> JXSearchEvent::initWithSearchTerm(const JXString& searchTerm) {
  std::shared_ptr<JXSearchEvent> event = make<JXSearchEvent>();
  event->setSearchTerm(searchTerm);
  return event;
}

const JXEventClass& JXSearchEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXSearchEvent>(
      JXEvent::eventClass(), "JXSearchEvent", {kName},
      {
          {JXE_SEARCHTERM, "searchTerm", &JXSearchEvent::searchTerm_},
      },
      {
          nonEmptyString(JXE_SEARCHTERM),
      });
  return type;
}

}  // namespace jx
