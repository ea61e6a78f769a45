// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <mutex>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The user block of the payload: "anonymous_id" (a random UUID, created once and persisted),
/// "consent_id" when the application or its consent module has set one, and the additional
/// properties. Thread-safe; never destroyed.
class JX_API JXUser final : public JXAdditionalProperties {
 public:
  /// Returns the block of this process.
  static JXUser& sharedInstance();

  /// Returns a new JSON object: the additional properties, overridden by the identifiers.
  JXJsonObject getJsonObject() const;

  /// Returns the random UUID of this installation, or its replacement.
  JXString anonymous_id() const;
  /// Replaces the identifier for this and all later launches; a null or empty ID is ignored.
  void setAnonymous_id(const JXString& id);
  /// Returns the consent ID set last in this process; initially null.
  JXString consentID() const;
  /// Sets the consent ID; null omits the key. It is not persisted: the consent module sets it at
  /// each start.
  void setConsentID(const JXString& id);

 private:
  JXUser();
  void writeOwnEntries(JXJsonSink& sink) const override;

  mutable std::mutex mutex_;
  mutable JXString anonymousId_;              ///< null until it is first needed
  mutable std::uint64_t seenBeginnings_ = 0;  ///< when the ID was read or set
  mutable bool isUnsaved_ = false;            ///< was set before it may be stored
  JXString consentId_;
};

}  // namespace jx
