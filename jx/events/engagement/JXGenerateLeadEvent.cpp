// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#include "jx/events/engagement/JXGenerateLeadEvent.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "generate_lead";

}  // namespace

JXGenerateLeadEvent::JXGenerateLeadEvent(InitKey) { setName(kName); }

std::shared_ptr<JXGenerateLeadEvent> JXGenerateLeadEvent::init() {
  return make<JXGenerateLeadEvent>();
}

std::shared_ptr<JXGenerateLeadEvent> JXGenerateLeadEvent::initWithValue_withCurrency(
    const std::optional<JXDecimal>& value, const JXString& currency) {
  std::shared_ptr<JXGenerateLeadEvent> event = make<JXGenerateLeadEvent>();
  event->setValue(value);
  event->setCurrency(currency);
  return event;
}

const JXEventClass& JXGenerateLeadEvent::eventClass() {
  static const auto& type = JXEventClass::of<JXGenerateLeadEvent>(
      JXEvent::eventClass(), "JXGenerateLeadEvent", {kName},
      {
          {JXE_CURRENCY, "currency", &JXGenerateLeadEvent::currency_},
          {JXE_VALUE, "value", &JXGenerateLeadEvent::value_},
          {JX_ID, "ID", &JXGenerateLeadEvent::ID_},
      },
      {
          together(JXE_VALUE, JXE_CURRENCY),
      });
  return type;
}

}  // namespace jx
