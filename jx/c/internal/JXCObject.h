// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "jx/c/internal/JXCall.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::c {

/// The object that a `jx_object` handle refers to: an event, an item or a product. Fields are
/// defined by the field tables of the classes, so a new class or field needs no change here.
/// Belongs to one thread at a time.
class JXCObject {
 public:
  /// A field of the object: its table and its position there.
  struct Field {
    const JXFieldTable* table;  ///< null: the class has no such field
    std::size_t index;

    const JXFieldInfo& info() const { return table->fields()[index]; }
  };

  JXCObject(const JXEventClass& type, std::shared_ptr<JXEvent> event);
  explicit JXCObject(std::shared_ptr<JXItem> item);
  explicit JXCObject(std::shared_ptr<JXProduct> product);

  /// Returns the name of the class, NUL-terminated.
  const char* className() const { return classes_.front().data(); }
  /// Returns true if the object is of this class or of a class derived from it.
  bool isOf(std::string_view className) const;
  /// Returns the field of this property, including those of the bases.
  Field fieldOf(std::string_view property) const;

  /// Sets a field. Returns an error message, which is empty on success.
  std::string set(const Field& field, const JXJsonValue& value);
  JXJsonValue get(const Field& field);
  /// Returns the elements of a list field, which the caller may change until the next call of
  /// `set`; a null handle if the field is null.
  JXJsonArray list(const Field& field);

  void addParameter(std::string_view key, const JXJsonValue& value);
  Result verify();
  JXJsonObject json();
  /// Returns the event; null for an item or a product.
  std::shared_ptr<JXEvent> event();
  /// Returns a copy of an item or a product, by properties; absent for an event.
  JXJsonValue values();

 private:
  JXAdditionalProperties& base();
  void applyLists();

  std::variant<std::shared_ptr<JXEvent>, std::shared_ptr<JXItem>, std::shared_ptr<JXProduct>>
      object_;
  std::vector<std::string_view> classes_;    // the class, then its bases
  std::vector<const JXFieldTable*> tables_;  // of these classes
  // The lists that the caller may have changed, by property. The tables set a list as a whole, and
  // adding a hundred items should not set a hundred lists, so they are set when the object is read.
  JXJsonObject lists_;
};

}  // namespace jx::c
