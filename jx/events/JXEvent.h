// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXList.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXFields.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Base of everything that a host hands to `ServerSide::execute`. The host owns its events and
/// fills them on one thread; an event must not be changed while it is being executed.
class JX_API JXEvent : public JXAdditionalProperties {
 public:
  /// A new event without a name.
  static std::shared_ptr<JXEvent> init();

  /// A new object each time, with a fresh "event_id": the host's extra properties, then the event's
  /// name, page and context, then the fields of its class in the order of its table. An absent name
  /// removes "event_name" even when an extra property had set it; any other absent field leaves an
  /// extra property of its key in place.
  virtual JXJsonObject getJsonObject() const;
  /// True when the event has all that its class asks for. Offered to the host, which decides
  /// whether to send an event that fails: `execute` does not ask.
  virtual bool verifyEvent() const;
  /// The condition that makes `verifyEvent` false, in words; absent when it is true.
  JXString firstFailedCondition() const;

  /// Each element's JSON, in order; an absent element is left out with a log line. An absent list
  /// gives an empty array.
  template <typename Block>
  static JXJsonArray getItemListAsJson(const JXList<std::shared_ptr<Block>>& blocks);

  // The event's JSON in its parts, in writing order, for who puts something in between. Together
  // they tell what `getJsonObject` holds, when `canSerialiseFromFieldTable` says so.

  /// False when the event's class has a `getJsonObject` of its own, or an extra property has the
  /// key of a field and so changes places with it: then only `getJsonObject` tells the event.
  bool canSerialiseFromFieldTable() const;
  /// The name and the page.
  void writeHead(JXJsonSink& sink) const;
  /// What the event puts into its context: a fresh "event_id".
  void writeContext(JXJsonSink& sink) const;
  /// The fields of the event's class and its bases.
  void writeFields(JXJsonSink& sink) const;

  /// Adds a parameter of the host's own; an absent key or value is ignored. The later value of a
  /// key counts.
  void addAdditionalParameter_withValue(const JXString& key, const JXString& value) {
    addAdditionalProperty_withStringValue(key, value);
  }
  /// The same with an object, which is stored itself: what is added to it later is sent too.
  void addAdditionalParameter_forJsonDict(const JXString& key, const JXJsonObject& value) {
    addAdditionalProperty_withDictValue(key, value);
  }
  /// Adds every entry of the object; an absent object is ignored.
  void addAdditionalParameter(const JXJsonObject& entries) { addAdditionalProperty(entries); }

  /// The text under "event_name".
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The kind of page that the viewer is on.
  const JXString& pageType() const { return pageType_; }
  void setPageType(const JXString& value) { pageType_ = value; }
  /// The name of the page that the viewer is on.
  const JXString& pageName() const { return pageName_; }
  void setPageName(const JXString& value) { pageName_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  /// The class of this very event.
  virtual const JXEventClass& ownEventClass() const { return eventClass(); }

 protected:
  JXEvent() = default;

  JXString name_;
  JXString pageType_;
  JXString pageName_;
};

namespace detail {
JX_API void logNullElement();
}

template <typename Block>
JXJsonArray JXEvent::getItemListAsJson(const JXList<std::shared_ptr<Block>>& blocks) {
  JXJsonArray array;
  for (const std::shared_ptr<Block>& block : blocks) {
    if (block) {
      array.append(block->getJsonObject());
    } else {
      detail::logNullElement();
    }
  }
  return array;
}

}  // namespace jx
