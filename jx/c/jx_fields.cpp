// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// The functions of jx_object.h that read fields and change lists.
#include <algorithm>

#include "jx/c/internal/JXCObject.h"

namespace {

using jx::JXJsonArray;
using jx::JXJsonValue;
using jx::c::JXCField;
using jx::c::onField;
using jx::c::Result;
using Kind = jx::JXFieldKind;
using Kinds = std::initializer_list<Kind>;

constexpr Kinds kLists = {Kind::Strings, Kind::NumberedStrings, Kind::Values, Kind::Items};
constexpr Kinds kStringLists = {Kind::Strings, Kind::NumberedStrings, Kind::Values};

// Passes the value of a field to `use`, unless it is null.
template <typename Use>
jx_status getValue(const char* operation, const jx_object* object, const char* name, Kinds kinds,
                   const Use& use) {
  return onField(operation, object, name, kinds, [&](const JXCField& found) -> Result {
    const JXJsonValue value = found.get();
    return value.isPresent() ? use(value) : JX_ERROR_NOT_SET;
  });
}

// Passes the elements of a list field to `use`, unless it is null.
template <typename Use>
jx_status onList(const char* operation, const jx_object* object, const char* name, Kinds kinds,
                 const Use& use) {
  return onField(operation, object, name, kinds, [&](const JXCField& found) -> Result {
    JXJsonArray list = found.object.list(found.info);
    return list.isPresent() ? use(list, found.info.kind) : JX_ERROR_NOT_SET;
  });
}

Result outOfRange(const char* field, size_t index) {
  return {JX_ERROR_OUT_OF_RANGE,
          std::string(field) + " has no element at index " + std::to_string(index)};
}

// Passes an element of a list field to `use`.
template <typename Use>
jx_status onElement(const char* operation, const jx_object* object, const char* name, Kinds kinds,
                    size_t index, const Use& use) {
  return onList(operation, object, name, kinds, [&](JXJsonArray& list, Kind) -> Result {
    const JXJsonValue element = list.at(index);
    return element.isPresent() ? use(element) : outOfRange(name, index);
  });
}

// `create` reads the element. An absent one is inserted as null into a list of strings, and not
// into any other list.
template <typename Create>
jx_status insert(const char* operation, jx_object* object, const char* name, Kinds kinds,
                 size_t index, const Create& create) {
  return onList(operation, object, name, kinds, [&](JXJsonArray& list, Kind kind) {
    JXJsonValue element;
    Result result = create(element);
    if (result.status != JX_OK) return result;
    const bool hasStrings = kind == Kind::Strings || kind == Kind::NumberedStrings;
    list.insert(index, element.isPresent() || !hasStrings ? element : JXJsonValue::null());
    return result;
  });
}

jx_status insertItem(const char* operation, jx_object* object, const char* name, size_t index,
                     const jx_object* item) {
  return insert(operation, object, name, {Kind::Items}, index, [&](JXJsonValue& element) {
    return jx::c::copyOf(item, "JXItem", "item", element);
  });
}

}  // namespace

jx_status jx_object_get_string(const jx_object* object, const char* field, char* buffer,
                               size_t capacity, size_t* length) {
  return getValue(__func__, object, field, {Kind::String}, [&](const JXJsonValue& value) {
    return jx::c::copyOut(value.string().toStdString(), buffer, capacity, length);
  });
}

jx_status jx_object_get_number(const jx_object* object, const char* field, char* buffer,
                               size_t capacity, size_t* length) {
  return getValue(__func__, object, field, {Kind::Number}, [&](const JXJsonValue& value) {
    return jx::c::copyOut(value.numberString().toStdString(), buffer, capacity, length);
  });
}

jx_status jx_object_get_boolean(const jx_object* object, const char* field, bool* value) {
  return getValue(__func__, object, field, {Kind::Boolean}, [&](const JXJsonValue& read) -> Result {
    if (value == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *value = read.boolValue();
    return JX_OK;
  });
}

jx_status jx_object_get_enum(const jx_object* object, const char* field, uint32_t* value) {
  return onField(__func__, object, field, {Kind::Enumeration},
                 [&](const JXCField& found) -> Result {
                   if (value == nullptr) return JX_ERROR_NULL_ARGUMENT;
                   const auto names = found.info.enumStrings.allEnumerators();
                   const jx::JXString name = found.get().string();
                   const auto place = std::find(names.begin(), names.end(), name.view());
                   if (place == names.end()) return JX_ERROR_NOT_SET;
                   *value = static_cast<uint32_t>(place - names.begin());
                   return JX_OK;
                 });
}

jx_status jx_object_get_json(const jx_object* object, const char* field, char* buffer,
                             size_t capacity, size_t* length) {
  return getValue(__func__, object, field, {}, [&](const JXJsonValue& value) {
    return jx::c::copyOut(jx::c::jsonText(value), buffer, capacity, length);
  });
}

jx_status jx_object_list_count(const jx_object* object, const char* field, size_t* count) {
  if (count != nullptr) *count = 0;
  return onList(__func__, object, field, kLists, [&](JXJsonArray& list, Kind) -> Result {
    if (count == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *count = list.size();
    return JX_OK;
  });
}

jx_status jx_object_list_get_string(const jx_object* object, const char* field, size_t index,
                                    char* buffer, size_t capacity, size_t* length) {
  return onElement(
      __func__, object, field, kStringLists, index, [&](const JXJsonValue& element) -> Result {
        if (element.kind() == JXJsonValue::Kind::Null) return JX_ERROR_NOT_SET;
        const jx::JXString string = element.string();
        if (!string.isPresent()) {
          return {JX_ERROR_WRONG_TYPE,
                  "element " + std::to_string(index) + " of " + field + " is not a string"};
        }
        return jx::c::copyOut(string.toStdString(), buffer, capacity, length);
      });
}

jx_status jx_object_list_get_json(const jx_object* object, const char* field, size_t index,
                                  char* buffer, size_t capacity, size_t* length) {
  return onElement(__func__, object, field, kLists, index, [&](const JXJsonValue& element) {
    return jx::c::copyOut(jx::c::jsonText(element), buffer, capacity, length);
  });
}

jx_status jx_object_list_insert_string(jx_object* object, const char* field, size_t index,
                                       const char* value) {
  return insert(__func__, object, field, kStringLists, index, [&](JXJsonValue& element) {
    element = value;
    return Result(JX_OK);
  });
}

jx_status jx_object_list_insert_number(jx_object* object, const char* field, size_t index,
                                       const char* value) {
  return insert(__func__, object, field, {Kind::Values}, index,
                [&](JXJsonValue& element) -> Result {
                  if (value == nullptr) return JX_OK;
                  element = JXJsonValue::numberFromString(value);
                  return element.isPresent() ? JX_OK : jx::c::notANumber(field);
                });
}

jx_status jx_object_list_insert_boolean(jx_object* object, const char* field, size_t index,
                                        bool value) {
  return insert(__func__, object, field, {Kind::Values}, index, [&](JXJsonValue& element) {
    element = value;
    return Result(JX_OK);
  });
}

jx_status jx_object_list_insert_null(jx_object* object, const char* field, size_t index) {
  return insert(__func__, object, field, kLists, index, [](JXJsonValue& element) {
    element = JXJsonValue::null();
    return Result(JX_OK);
  });
}

jx_status jx_object_list_insert_json(jx_object* object, const char* field, size_t index,
                                     const char* json) {
  return insert(__func__, object, field, {Kind::Values}, index,
                [&](JXJsonValue& element) { return jx::c::readJson(json, element); });
}

jx_status jx_object_list_insert_item(jx_object* object, const char* field, size_t index,
                                     const jx_object* item) {
  return insertItem(__func__, object, field, index, item);
}

jx_status jx_object_add_item(jx_object* object, const char* field, const jx_object* item) {
  return insertItem(__func__, object, field, JX_LIST_END, item);
}

jx_status jx_object_list_remove(jx_object* object, const char* field, size_t index) {
  return onList(__func__, object, field, kLists, [&](JXJsonArray& list, Kind) -> Result {
    return list.removeAt(index).isPresent() ? JX_OK : outOfRange(field, index);
  });
}

jx_status jx_object_list_clear(jx_object* object, const char* field) {
  return onField(__func__, object, field, kLists,
                 [&](const JXCField& found) { return found.set(JXJsonArray()); });
}
