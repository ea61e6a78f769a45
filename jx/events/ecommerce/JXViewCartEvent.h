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

/// The cart was looked at.
class JX_API JXViewCartEvent final : public JXECommerceEvent {
 public:
  /// A new event named "view_cart"; every other field is absent or empty.
  static std::shared_ptr<JXViewCartEvent> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXViewCartEvent> initWithItems(
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The worth of what the event is about, in units of the currency.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXViewCartEvent();

  std::optional<JXDecimal> value_;
};

}  // namespace jx
