// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/JXList.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer chose an item of a list.
class JX_API JXSelectItemEvent final : public JXEvent {
 public:
  /// A new event named "select_item"; every other field is absent or empty.
  static std::shared_ptr<JXSelectItemEvent> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXSelectItemEvent> initWithItems(
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The name of the list.
  const JXString& itemListName() const { return itemListName_; }
  void setItemListName(const JXString& value) { itemListName_ = value; }
  /// The event's own list, empty at first: append to it.
  const JXList<std::shared_ptr<JXItem>>& items() const { return items_; }
  void setItems(const JXList<std::shared_ptr<JXItem>>& value) { items_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSelectItemEvent();

  JXString itemListName_;
  JXList<std::shared_ptr<JXItem>> items_;
};

}  // namespace jx
