// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer became a lead. `value` and `currency` must be set together or not at all.
class JX_API JXGenerateLeadEvent final : public JXEvent {
 public:
  /// Creates an event named "generate_lead"; all other fields are null or empty.
  static std::shared_ptr<JXGenerateLeadEvent> init();
  /// Creates an event with this value and currency, without validating them.
  static std::shared_ptr<JXGenerateLeadEvent> initWithValue_withCurrency(
      const std::optional<JXDecimal>& value, const JXString& currency);

  /// The monetary value of the event, in units of `currency`.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The currency of the amounts, preferably an ISO 4217 code such as "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The identifier of the lead.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXGenerateLeadEvent(InitKey);

 private:
  std::optional<JXDecimal> value_;
  JXString currency_;
  JXString ID_;
};

}  // namespace jx
