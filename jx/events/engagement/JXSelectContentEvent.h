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
  static std::shared_ptr<JXSelectContentEvent> init();

  const JXString& contentType() const { return contentType_; }
  void setContentType(const JXString& value) { contentType_ = value; }
  const JXString& itemID() const { return itemID_; }
  void setItemID(const JXString& value) { itemID_ = value; }

  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSelectContentEvent();

  JXString contentType_;
  JXString itemID_;
};

}  // namespace jx
