// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXEvent.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/core/json/JXJsonTreeSink.h"

namespace jx {
namespace {

constexpr std::string_view kOwnKeys[] = {JXE_EVENT, JXE_PAGENAME, JXE_PAGETYPE, JXE_CONTEXT,
                                         JXE_USER};

}  // namespace

namespace detail {

void logNullElement() {
  JXLogger::sharedInstance().logMessage_withLevel("List element is null; skipped", 3);
}

}  // namespace detail

std::shared_ptr<JXEvent> JXEvent::init() { return std::shared_ptr<JXEvent>(new JXEvent()); }

JXJsonObject JXEvent::getJsonObject() const {
  const JXCoreCaller caller("JXEvent::getJsonObject()");
  JXJsonObject dict = extraProperties().mutableCopy();
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
    return std::find(std::begin(kOwnKeys), std::end(kOwnKeys), key) != std::end(kOwnKeys) ||
           type.mayWrite(key);
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

void JXEvent::writeFields(JXJsonSink& sink) const { ownEventClass().writeFields(*this, sink); }

bool JXEvent::verifyEvent() const { return ownEventClass().firstFailed(*this) == nullptr; }

JXString JXEvent::firstFailedCondition() const {
  const JXEventClass& type = ownEventClass();
  const JXCondition* const failed = type.firstFailed(*this);
  return failed != nullptr ? JXString(type.describe(*failed)) : JXString();
}

const JXEventClass& JXEvent::eventClass() {
  static const auto& fields = *new JXFields<JXEvent>{
      {JXE_EVENT, "name", &JXEvent::name_},
      {JXE_PAGENAME, "pageName", &JXEvent::pageName_},
      {JXE_PAGETYPE, "pageType", &JXEvent::pageType_},
  };
  static const auto& type =
      *new JXEventClass{"JXEvent", nullptr, {}, &fields, {neverValid()}, createByInit<JXEvent>};
  return type;
}

}  // namespace jx
