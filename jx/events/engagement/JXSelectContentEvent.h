// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer selected a piece of content. Always valid.
class JX_API JXSelectContentEvent final : public JXEvent {
 public:
  /// Creates an event named "select_content"; all other fields are null or empty.
  static std::shared_ptr<JXSelectContentEvent> init();

  /// The type of the content, a free-form string.
  const JXString& contentType() const { return contentType_; }
  void setContentType(const JXString& value) { contentType_ = value; }
  /// The identifier of the selected content.
  const JXString& itemID() const { return itemID_; }
  void setItemID(const JXString& value) { itemID_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXSelectContentEvent(InitKey);

 private:
  JXString contentType_;
  JXString itemID_;
};

}  // namespace jx
