// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The user block of the payload: "anonymous_id" (a random UUID, made once and persisted),
/// "consent_id" when a consent module or the host has set one, and what the host adds.
/// The identifiers are thread-safe; the additional properties are not. Never destroyed.
class JX_API JXUser final : public JXAdditionalProperties {
 public:
  /// The one block of this process.
  static JXUser& sharedInstance();

  /// A new object: the additional properties, then the identifiers over them.
  JXJsonObject getJsonObject() const;

  /// The random UUID of this installation, or what replaced it.
  JXString anonymous_id() const;
  /// Replaces the identifier for this and all later launches; an absent or empty one is ignored.
  void setAnonymous_id(const JXString& id);
  /// What was set last in this process; absent at first.
  JXString consentID() const;
  /// Set by the consent module at each start; not persisted here. Absent leaves the key out.
  void setConsentID(const JXString& id);

 private:
  JXUser();
  void writeOwnEntries(JXJsonSink& sink) const override;

  mutable std::mutex mutex_;
  JXString anonymousId_;
  JXString consentId_;
};

}  // namespace jx
