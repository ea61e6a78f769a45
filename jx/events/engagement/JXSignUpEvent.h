// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer made an account. Always complete.
class JX_API JXSignUpEvent final : public JXEvent {
 public:
  /// A new event named "sign_up"; every other field is absent or empty.
  static std::shared_ptr<JXSignUpEvent> init();

  /// How: a free text such as "remote" or "phone".
  const JXString& method() const { return method_; }
  void setMethod(const JXString& value) { method_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSignUpEvent();

  JXString method_;
};

}  // namespace jx
