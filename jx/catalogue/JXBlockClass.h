// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "jx/catalogue/JXCondition.h"
#include "jx/catalogue/JXFieldTable.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The descriptor of a class whose objects are written as a JSON object: an event, an item or a
/// product. It contains the name of the class, the fields that it writes, and its validation
/// conditions. Objects passed to it must be of this class or of a class derived from it. Each class
/// has one descriptor, which is created once and never destroyed.
struct JX_API JXBlockClass {
  std::string_view className;          ///< "JXPurchaseEvent"
  const JXBlockClass* base = nullptr;  ///< null for a class without a base class
  /// The fields that this class writes after those of its base, in order.
  const JXFieldTable* written = nullptr;
  /// The conditions that make an object of this class valid, in the order of testing. The
  /// conditions of the base class do not apply in addition.
  std::vector<JXCondition> conditions = {};
  /// Properties that can be set although this class does not write them; null if there are none.
  const JXFieldTable* unwritten = nullptr;

  /// Returns true if this class or one of its bases has this name.
  bool isOrDerivesFrom(std::string_view name) const;
  /// Returns the field with this JSON key, in this class or its bases; null if there is none.
  const JXFieldInfo* fieldOfKey(std::string_view key) const;
  /// Returns the field with this property name, in this class or its bases, written or not; null if
  /// there is none.
  const JXFieldInfo* fieldOfProperty(std::string_view property) const;
  /// Returns the field of this class or its bases that may write this key; null if there is none.
  const JXFieldInfo* fieldWriting(std::string_view key) const;
  /// Sets a property of this class or its bases. Returns an empty string on success. On error,
  /// returns a message such as "must be a string", to follow the property's name, and leaves the
  /// object unchanged.
  std::string setProperty(JXAdditionalProperties& object, std::string_view property,
                          const JXJsonValue& value) const;
  /// Returns a copy of a property of this class or its bases, as `JXFieldTable::get` does; absent
  /// if there is no such property.
  JXJsonValue getProperty(const JXAdditionalProperties& object, std::string_view property) const;
  /// Writes the fields of the base classes, then its own, in order. Does not write the fields of
  /// `excluded` and of its bases.
  void writeFields(const JXAdditionalProperties& object, JXJsonSink& sink,
                   const JXBlockClass* excluded = nullptr) const;
  /// Returns the first condition that the object fails; null if it is valid. Conditions that are
  /// restricted to event names apply only if they include `eventName`.
  const JXCondition* firstFailed(const JXAdditionalProperties& object,
                                 std::string_view eventName = {}) const;
  /// Describes the condition: "items must contain at least one element". `quote` is inserted before
  /// and after each property.
  std::string describe(const JXCondition& condition, std::string_view quote = {}) const;

 private:
  /// A field and the table that lists it; null if there is none.
  struct Place {
    const JXFieldTable* table = nullptr;
    std::size_t field = 0;

    const JXFieldInfo* info() const { return table ? &table->fields()[field] : nullptr; }
  };
  /// Returns the first field for which `matches` returns true: of this class, then of its bases.
  template <typename Matches>
  Place find(const Matches& matches, bool withUnwritten = false) const;
  Place placeOfKey(std::string_view key) const;
  Place placeOfProperty(std::string_view property) const;
  JXFieldState stateOfKey(const JXAdditionalProperties& object, std::string_view key) const;
};

}  // namespace jx
