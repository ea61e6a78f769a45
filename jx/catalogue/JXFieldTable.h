// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/catalogue/JXField.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// The fields that a class writes, in writing order. The JSON writer, the replay program, the
/// collector's validation and the catalogue all read this table. Objects passed to it must be of
/// the table's class.
/// ```
/// static const JXFieldTable table{{JXE_SEARCHTERM, "searchTerm", &JXSearchEvent::searchTerm_}};
/// ```
class JX_API JXFieldTable {
 public:
  /// Creates a table without fields.
  JXFieldTable() = default;
  /// Creates a table of these fields. A field that is listed twice is marked as a duplicate.
  JXFieldTable(std::initializer_list<JXField> fields);

  /// Returns the fields in writing order; valid as long as the table.
  const std::vector<JXFieldInfo>& fields() const { return fields_; }
  /// Returns the position of the field with this property name; `npos` if there is none.
  std::size_t findProperty(std::string_view property) const;
  /// Returns the position of the field with this JSON key; `npos` if there is none.
  std::size_t findKey(std::string_view key) const;
  /// Marks a field that does not exist.
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  /// Marks the fields that `earlier` also lists as duplicates.
  void markDuplicatesOf(const JXFieldTable& earlier);

  /// Writes the fields to the sink, in order, as `fieldvalue::write` does.
  void write(const JXAdditionalProperties& object, JXJsonSink& sink) const;
  /// Returns the state of the field at this position, which must be less than the number of fields.
  JXFieldState state(const JXAdditionalProperties& object, std::size_t field) const {
    return access_[field]->state(object);
  }
  /// Sets the field to `value`. JSON null sets it to null; Booleans and enumerations reject null.
  /// Returns an empty string on success. On error, returns a message such as "must be a string", to
  /// follow the field's name, and leaves the object unchanged.
  std::string set(JXAdditionalProperties& object, std::size_t field,
                  const JXJsonValue& value) const {
    return access_[field]->set(object, value);
  }
  /// Returns a copy of the value of the field, in the form that `set` accepts; absent if the field
  /// is null. A NaN amount and a value outside its enumeration count as null.
  JXJsonValue get(const JXAdditionalProperties& object, std::size_t field) const {
    return access_[field]->get(object);
  }

 private:
  // The fields that `write` writes, without what it does not need: an event reads all of them after
  // a pause in which they have left the processor's caches.
  struct Writer {
    std::string_view key;
    const JXFieldAccess* access;
  };
  void listWriters();

  std::vector<JXFieldInfo> fields_;
  std::vector<std::shared_ptr<const JXFieldAccess>> access_;  ///< of each field
  std::vector<Writer> writers_;
};

}  // namespace jx
