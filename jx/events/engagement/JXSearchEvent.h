// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer searched.
class JX_API JXSearchEvent final : public JXEvent {
 public:
  static std::shared_ptr<JXSearchEvent> init();
  static std::shared_ptr<JXSearchEvent> initWithSearchTerm(const JXString& searchTerm);

  const JXString& searchTerm() const { return searchTerm_; }
  void setSearchTerm(const JXString& value) { searchTerm_ = value; }

  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSearchEvent();

  JXString searchTerm_;
};

}  // namespace jx
