// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEvent.h"

#include <algorithm>
#include <typeinfo>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/json/JXJsonTreeSink.h"

namespace jx {

std::shared_ptr<JXEvent> JXEvent::init() { return make<JXEvent>(); }

JXJsonObject JXEvent::getJsonObject() const {
  const JXCoreCaller caller("JXEvent::getJsonObject()");
  JXJsonObject dict = copyOfProperties();
  JXJsonTreeSink sink(dict);
  if (!name_.isPresent()) dict.remove(JXE_EVENT);
  writeHead(sink);
  sink.beginObject(JXE_CONTEXT);
  writeContext(sink);
  sink.endObject();
  writeFields(sink);
  return dict;
}

bool JXEvent::canSerialiseFromFieldTable() const {
  const JXEventClass& type = ownEventClass();
  if (type.create.serialisedByTables == nullptr || *type.create.serialisedByTables != typeid(*this))
    return false;
  const auto hasFieldKey = [&](const JXJsonEntry& extra) {
    const std::string_view key = extra.key.view();
    return key == JXE_CONTEXT || key == JXE_USER || type.fieldWriting(key) != nullptr;
  };
  const std::vector<JXJsonEntry>& extras = extraProperties().entries();
  return std::none_of(extras.begin(), extras.end(), hasFieldKey);
}

void JXEvent::writeHead(JXJsonSink& sink) const {
  sink.text(JXE_EVENT, name_);
  sink.text(JXE_PAGENAME, pageName_);
  sink.text(JXE_PAGETYPE, pageType_);
}

void JXEvent::writeContext(JXJsonSink& sink) const {
  sink.text(JXE_EVENTID, JXCoreServices::sharedInstance().platform().newUUID());
}

void JXEvent::writeFields(JXJsonSink& sink) const {
  ownEventClass().writeFields(*this, sink, &JXEvent::eventClass());
}

bool JXEvent::verifyEvent() const {
  return ownEventClass().firstFailed(*this, name_.view()) == nullptr;
}

JXString JXEvent::firstFailedCondition() const {
  const JXEventClass& type = ownEventClass();
  const JXCondition* const failed = type.firstFailed(*this, name_.view());
  return failed != nullptr ? JXString(type.describe(*failed)) : JXString();
}

const JXEventClass& JXEvent::eventClass() {
  static const auto& fields = *new JXFieldTable{
      {JXE_EVENT, "name", &JXEvent::name_},
      {JXE_PAGENAME, "pageName", &JXEvent::pageName_},
      {JXE_PAGETYPE, "pageType", &JXEvent::pageType_},
  };
  static const auto& type =
      *new JXEventClass{{"JXEvent", nullptr, &fields, {neverValid()}}, {}, createByInit<JXEvent>};
  return type;
}

}  // namespace jx
