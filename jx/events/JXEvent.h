// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <type_traits>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXList.h"
#include "jx/events/JXEventClass.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Base of all events that an application passes to `ServerSide::execute`. The application owns its
/// events and fills them on one thread. An event must not be changed while it is being executed. An
/// amount that is NaN is not written and counts as not set in `verifyEvent`.
class JX_API JXEvent : public JXAdditionalProperties {
 public:
  /// Creates an event without a name.
  static std::shared_ptr<JXEvent> init();

  /// Returns a new object with a new "event_id" on each call. It contains the additional
  /// properties, then the event's name, page and context, then the fields of its class in the order
  /// of the field table. A null name removes "event_name" even if an additional property had set
  /// it. Any other null field leaves an additional property with its key in place.
  virtual JXJsonObject getJsonObject() const;
  /// Returns true if the event meets all conditions of its class. `execute` does not call it: the
  /// application decides whether to send an invalid event.
  virtual bool verifyEvent() const;
  /// Returns the first condition that the event fails, such as "items must contain at least one
  /// element"; null if `verifyEvent` returns true.
  JXString firstFailedCondition() const;

  /// Returns the JSON of each element, in order. Null elements are skipped with a log message. A
  /// null list yields an empty array.
  template <typename Block>
  static JXJsonArray getItemListAsJson(const JXList<std::shared_ptr<Block>>& blocks);

  /// Adds a parameter, replacing any value with the same key. A null key or value is ignored.
  void addAdditionalParameter_withValue(const JXString& key, const JXString& value) {
    addAdditionalProperty_withStringValue(key, value);
  }
  /// Adds a number exactly, replacing any value with the same key. A null key and NaN are ignored.
  void addAdditionalParameter_withValue(const JXString& key, const JXDecimal& value) {
    addAdditionalProperty_withNumberValue(key, value);
  }
  /// Adds an integer or a Boolean, replacing any value with the same key. A null key is ignored.
  /// Characters do not compile.
  template <typename Value, typename = std::enable_if_t<detail::isNumberInteger<Value> ||
                                                        std::is_same_v<Value, bool>>>
  void addAdditionalParameter_withValue(const JXString& key, Value value) {
    if constexpr (std::is_same_v<Value, bool>) {
      addAdditionalProperty_withBoolValue(key, value);
    } else {
      addAdditionalProperty_withNumberValue(key, value);
    }
  }
  /// Deleted, because binary floating point is not exact: pass a `JXDecimal`.
  template <typename Floating, typename = std::enable_if_t<std::is_floating_point_v<Floating>>,
            typename = void>
  void addAdditionalParameter_withValue(const JXString& key, Floating value) = delete;
  /// Adds an object, replacing any value with the same key. Stores the object itself, not a copy,
  /// so that entries added to it later are sent too. A null key or object is ignored.
  void addAdditionalParameter_forJsonDict(const JXString& key, const JXJsonObject& value) {
    addAdditionalProperty_withDictValue(key, value);
  }
  /// Adds all entries of the object. A null object is ignored.
  void addAdditionalParameter(const JXJsonObject& entries) { addAdditionalProperty(entries); }

  /// The event name, written as "event_name".
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The type of the page that the viewer is on.
  const JXString& pageType() const { return pageType_; }
  void setPageType(const JXString& value) { pageType_ = value; }
  /// The name of the page that the viewer is on.
  const JXString& pageName() const { return pageName_; }
  void setPageName(const JXString& value) { pageName_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  /// Returns the descriptor of the event's most derived class.
  virtual const JXEventClass& ownEventClass() const { return eventClass(); }

  /// For `init`.
  explicit JXEvent(InitKey) : JXEvent() {}

 protected:
  JXEvent() = default;

  // The parts of the event's JSON, in writing order, for JXPostData, which inserts values between
  // them. If `canSerialiseFromFieldTable` returns true, the parts are the whole of `getJsonObject`.

  /// Returns false if the class overrides `getJsonObject`, or if an additional property has the key
  /// of a field, which changes the writing order. Then only `getJsonObject` returns the event's
  /// JSON.
  bool canSerialiseFromFieldTable() const;
  /// Writes the name and the page.
  void writeHead(JXJsonSink& sink) const;
  /// Writes the event's context entries: a new "event_id".
  void writeContext(JXJsonSink& sink) const;
  /// Writes the fields of the event's class and its base classes.
  void writeFields(JXJsonSink& sink) const;

  JXString name_;
  JXString pageType_;
  JXString pageName_;

 private:
  friend class JXPostData;
};

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
