// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEvent.h"

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUtils.h"
#include "jx/events/JXEventPropertiesNames.h"

namespace jx {
namespace {

// The fields of the class's bases come first. JXEvent's own are written by hand, because the name
// and the context follow rules of their own.
void writeFields(const JXEventClass& type, const JXEvent& event, JXJsonObject& dict) {
  if (type.base == nullptr) return;
  writeFields(*type.base, event, dict);
  type.written->write(event, dict);
}

}  // namespace

namespace detail {

void logAbsentElement() {
  JXLogger::sharedInstance().logMessage_withLevel("An absent element of a list was left out", 3);
}

}  // namespace detail

std::shared_ptr<JXEvent> JXEvent::init() { return std::shared_ptr<JXEvent>(new JXEvent()); }

JXJsonObject JXEvent::getJsonObject() const {
  JXJsonObject dict = getAdditionalProperties().mutableCopy();
  dict.set(JXE_EVENT, name_);
  JXUtils::setString_forKey_onDict(pageName_, JXE_PAGENAME, dict);
  JXUtils::setString_forKey_onDict(pageType_, JXE_PAGETYPE, dict);
  JXJsonObject context;
  context.set(JXE_EVENTID, JXCoreServices::sharedInstance().platform().newUUID());
  JXUtils::setJson_forKey_onDict(context, JXE_CONTEXT, dict);
  writeFields(ownEventClass(), *this, dict);
  return dict;
}

bool JXEvent::verifyEvent() const { return ownEventClass().firstFailed(*this) == nullptr; }

JXString JXEvent::firstFailedCondition() const {
  const JXEventClass& type = ownEventClass();
  const JXCondition* const failed = type.firstFailed(*this);
  return failed != nullptr ? JXString(type.inWords(*failed)) : JXString();
}

const JXEventClass& JXEvent::eventClass() {
  static const auto& fields = *new JXFields<JXEvent>{
      {JXE_EVENT, "name", &JXEvent::name_},
      {JXE_PAGENAME, "pageName", &JXEvent::pageName_},
      {JXE_PAGETYPE, "pageType", &JXEvent::pageType_},
  };
  static const auto& type =
      *new JXEventClass{"JXEvent", nullptr, {}, &fields, {neverComplete()}, makeByInit<JXEvent>};
  return type;
}

}  // namespace jx
