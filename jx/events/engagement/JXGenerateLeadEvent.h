// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer became a lead. An amount and its currency come together or not at all.
class JX_API JXGenerateLeadEvent final : public JXEvent {
 public:
  /// A new event named "generate_lead"; every other field is absent or empty.
  static std::shared_ptr<JXGenerateLeadEvent> init();
  /// The same with an amount and its currency, which are kept as they are.
  static std::shared_ptr<JXGenerateLeadEvent> initWithValue_withCurrency(
      const std::optional<JXDecimal>& value, const JXString& currency);

  /// The worth of what the event is about, in units of the currency.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The currency of the amounts, best as its ISO 4217 code: "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The identifier of the lead.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXGenerateLeadEvent();

  std::optional<JXDecimal> value_;
  JXString currency_;
  JXString ID_;
};

}  // namespace jx
