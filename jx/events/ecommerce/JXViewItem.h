// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// An item was looked at. Its one amount is a revenue, where its neighbours have a value.
class JX_API JXViewItem final : public JXECommerceEvent {
 public:
  /// A new event named "view_item"; every other field is absent or empty.
  static std::shared_ptr<JXViewItem> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXViewItem> initWithItems(const JXList<std::shared_ptr<JXItem>>& items);

  /// The revenue, in units of the currency.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXViewItem();

  std::optional<JXDecimal> revenue_;
};

}  // namespace jx
