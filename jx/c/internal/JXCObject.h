// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "jx/c/internal/JXCall.h"
#include "jx/c/jx_object.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace jx::c {

/// The object that a `jx_object` handle refers to: an event, an item or a product. Fields are
/// defined by the descriptor of the class, so a new class or field needs no change here. Belongs to
/// one thread at a time.
class JXCObject {
 public:
  using Object =
      std::variant<std::shared_ptr<JXEvent>, std::shared_ptr<JXItem>, std::shared_ptr<JXProduct>>;

  JXCObject(const JXBlockClass& type, Object object) : type_(type), object_(std::move(object)) {}

  const JXBlockClass& type() const { return type_; }
  /// Returns the name of the class, a NUL-terminated constant.
  const char* className() const { return type_.className.data(); }

  /// Sets a field. Returns an error message, which is empty on success.
  std::string set(const JXFieldInfo& field, const JXJsonValue& value);
  JXJsonValue get(const JXFieldInfo& field);
  /// Returns the elements of a list field, which the caller may change until the next call of
  /// `set`; a null handle if the field is null.
  JXJsonArray list(const JXFieldInfo& field);

  void addParameter(std::string_view key, const JXJsonValue& value);
  Result verify();
  JXJsonObject json();
  /// Returns the event; null for an item or a product.
  std::shared_ptr<JXEvent> event();
  /// Returns a copy of an item or a product, by properties.
  JXJsonValue values();

 private:
  JXAdditionalProperties& base();
  void applyLists();

  const JXBlockClass& type_;
  const Object object_;
  // The lists that the caller may have changed, by property. The tables set a list as a whole, and
  // adding a hundred items should not set a hundred lists, so they are set when the object is read.
  JXJsonObject lists_;
};

/// A field of an object.
struct JXCField {
  JXCObject& object;
  const JXFieldInfo& info;
  const char* name;  ///< as the caller spells it, for error messages

  Result set(const JXJsonValue& value) const;
  JXJsonValue get() const { return object.get(info); }
};

/// Passes the object of a handle to `body`.
template <typename Body>
jx_status onObject(const char* operation, const jx_object* object, const Body& body) {
  return call(operation, [&] { return with<JXCObject>(object, JXHandleKind::Object, body); });
}

/// Finds a field by its property, with or without its class. Its type must be one of `kinds`;
/// empty: any.
Result findField(const JXCObject& object, const char* name,
                 std::initializer_list<JXFieldKind> kinds, const JXFieldInfo*& field);

/// Passes the field of an object, as `findField` finds it, to `body`.
template <typename Body>
jx_status onField(const char* operation, const jx_object* object, const char* name,
                  std::initializer_list<JXFieldKind> kinds, const Body& body) {
  return onObject(operation, object, [&](JXCObject& found) -> Result {
    const JXFieldInfo* info = nullptr;
    Result result = findField(found, name, kinds, info);
    return result.status == JX_OK ? body(JXCField{found, *info, name}) : result;
  });
}

/// Copies the item or product of a handle. `argument` is its name in the error message.
Result copyOf(const jx_object* handle, const char* className, const char* argument,
              JXJsonValue& copy);
Result notANumber(const char* field);

}  // namespace jx::c
