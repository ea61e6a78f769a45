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

/// A list of items was shown.
class JX_API JXViewItemListEvent final : public JXEvent {
 public:
  /// A new event named "view_item_list"; every other field is absent or empty.
  static std::shared_ptr<JXViewItemListEvent> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXViewItemListEvent> initWithItems(
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
  JXViewItemListEvent();

  JXString itemListName_;
  JXList<std::shared_ptr<JXItem>> items_;
};

}  // namespace jx
