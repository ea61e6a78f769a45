// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The viewer opened an item. The event's amount is `revenue`; the cart and wish list events have
/// `value` instead.
class JX_API JXViewItem final : public JXECommerceEvent {
 public:
  /// Creates an event named "view_item"; all other fields are null or empty.
  static std::shared_ptr<JXViewItem> init();
  /// Creates an event and appends the items to its own list; the caller's list is not stored.
  static std::shared_ptr<JXViewItem> initWithItems(const JXList<std::shared_ptr<JXItem>>& items);

  /// The revenue, in units of `currency`.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXViewItem(InitKey);

 private:
  std::optional<JXDecimal> revenue_;
};

}  // namespace jx
