// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/core/JXList.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A list of items was shown.
class JX_API JXViewItemListEvent final : public JXEvent {
 public:
  /// Creates an event named "view_item_list"; all other fields are null or empty.
  static std::shared_ptr<JXViewItemListEvent> init();
  /// Creates an event and appends the items to its own list; the caller's list is not stored.
  static std::shared_ptr<JXViewItemListEvent> initWithItems(
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The name of the list.
  const JXString& itemListName() const { return itemListName_; }
  void setItemListName(const JXString& value) { itemListName_ = value; }
  /// The event's list of items, initially empty; callers may append to it.
  const JXList<std::shared_ptr<JXItem>>& items() const { return items_; }
  void setItems(const JXList<std::shared_ptr<JXItem>>& value) { items_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXViewItemListEvent(InitKey);

 private:
  JXString itemListName_;
  JXList<std::shared_ptr<JXItem>> items_;
};

}  // namespace jx
