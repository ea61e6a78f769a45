// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer chose a piece of content. Always complete.
class JX_API JXSelectContentEvent final : public JXEvent {
 public:
  /// A new event named "select_content"; every other field is absent or empty.
  static std::shared_ptr<JXSelectContentEvent> init();

  /// A free text for the kind of content.
  const JXString& contentType() const { return contentType_; }
  void setContentType(const JXString& value) { contentType_ = value; }
  /// The identifier of what was chosen.
  const JXString& itemID() const { return itemID_; }
  void setItemID(const JXString& value) { itemID_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSelectContentEvent();

  JXString contentType_;
  JXString itemID_;
};

}  // namespace jx
