// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <initializer_list>
#include <string>

#include "jx/c/internal/JXCObject.h"
#include "jx/c/jx_object.h"

namespace jx::c {

/// Passes the object of a handle to `body`.
template <typename Body>
jx_status onObject(const char* operation, const jx_object* object, const Body& body) {
  return call(operation, [&] { return with<JXCObject>(object, JXHandleKind::Object, body); });
}

/// Finds a field by its property, with or without its class. Its type must be one of `kinds`;
/// empty: any.
Result findField(const JXCObject& object, const char* name,
                 std::initializer_list<JXFieldKind> kinds, const JXFieldInfo*& field);

/// Passes the object and its field, as `findField` finds it, to `body`.
template <typename Body>
jx_status onField(const char* operation, const jx_object* object, const char* name,
                  std::initializer_list<JXFieldKind> kinds, const Body& body) {
  return onObject(operation, object, [&](JXCObject& found) -> Result {
    const JXFieldInfo* field = nullptr;
    Result result = findField(found, name, kinds, field);
    return result.status == JX_OK ? body(found, *field) : result;
  });
}

/// Sets a field. `name` is the caller's name of the field, for the error message.
Result set(JXCObject& object, const char* name, const JXFieldInfo& field, const JXJsonValue& value);
/// Copies the item or product of a handle. `argument` is its name in the error message.
Result copyOf(const jx_object* handle, const char* className, const char* argument,
              JXJsonValue& copy);
Result notANumber(const char* field);

}  // namespace jx::c
