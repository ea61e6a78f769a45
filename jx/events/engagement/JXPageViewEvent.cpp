// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXPageViewEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "page_view";

}  // namespace

JXPageViewEvent::JXPageViewEvent(InitKey) { setName(kName); }

std::shared_ptr<JXPageViewEvent> JXPageViewEvent::init() { return make<JXPageViewEvent>(); }

std::shared_ptr<JXPageViewEvent> JXPageViewEvent::initWithType(const JXString& pageType) {
  std::shared_ptr<JXPageViewEvent> event = make<JXPageViewEvent>();
  event->setPageType(pageType);
  return event;
}

const JXEventClass& JXPageViewEvent::eventClass() {
  static const auto& type =
      JXEventClass::of<JXPageViewEvent>(JXEvent::eventClass(), "JXPageViewEvent", {kName},
                                        {
                                            {JXE_PAGENAME, "pageName", &JXPageViewEvent::pageName_},
                                            {JXE_PAGETYPE, "pageType", &JXPageViewEvent::pageType_},
                                        },
                                        {
                                            nonEmptyString(JXE_PAGETYPE),
                                        });
  return type;
}

}  // namespace jx
