// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_object.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "jx/c/internal/JXCObject.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXEventClass.h"

namespace {

using jx::JXFieldInfo;
using jx::JXFieldKind;
using jx::JXHandleKind;
using jx::JXJsonArray;
using jx::JXJsonValue;
using jx::c::JXCObject;
using jx::c::Result;

template <typename Body>
jx_status onObject(const char* operation, const jx_object* object, const Body& body) {
  return jx::c::call(operation, [&]() -> Result {
    return jx::c::with<JXCObject>(object, JXHandleKind::Object, body);
  });
}

bool isClass(std::string_view name) {
  return name == "JXItem" || name == "JXProduct" || jx::eventClassNamed(name) != nullptr;
}

// Finds a field by its property, with or without its class.
Result findField(const JXCObject& object, const char* name, const JXFieldInfo*& field) {
  if (name == nullptr) return {JX_ERROR_NULL_ARGUMENT, "field must not be null"};
  std::string_view property = name;
  if (const std::size_t dot = property.find('.'); dot != std::string_view::npos) {
    const std::string_view type = property.substr(0, dot);
    property.remove_prefix(dot + 1);
    if (!isClass(type))
      return {JX_ERROR_UNKNOWN_CLASS, jx::c::quoted(name) + " does not name a known class"};
    if (!object.isOf(type)) {
      return {JX_ERROR_WRONG_CLASS,
              jx::c::quoted(name) + " is not a field of " + object.className()};
    }
  }
  field = object.fieldOf(property);
  if (field != nullptr) return JX_OK;
  return {JX_ERROR_UNKNOWN_FIELD, jx::c::quoted(name) + " is not a field of " + object.className()};
}

Result wrongType(const char* field, const std::string& message) {
  return {JX_ERROR_WRONG_TYPE, std::string(field) + " " + message};
}

const char* ruleOf(JXFieldKind kind) {
  switch (kind) {
    case JXFieldKind::String:
      return "must be a string";
    case JXFieldKind::Number:
      return "must be a number";
    case JXFieldKind::Boolean:
      return "must be a Boolean";
    case JXFieldKind::Strings:
    case JXFieldKind::NumberedStrings:
      return "must be a list of strings";
    case JXFieldKind::Values:
      return "must be a JSON array";
    case JXFieldKind::Enumeration:
      return "must be a value of its enumeration";
    case JXFieldKind::Items:
      return "must be a list of items";
    case JXFieldKind::Product:
      return "must be a product";
  }
  return "has another type";
}

// Finds the field, whose type must be one of `kinds` (empty: any), and passes it to `body`.
template <typename Body>
jx_status onField(const char* operation, jx_object* object, const char* name,
                  std::initializer_list<JXFieldKind> kinds, const Body& body) {
  return onObject(operation, object, [&](JXCObject& found) -> Result {
    const JXFieldInfo* field = nullptr;
    Result result = findField(found, name, field);
    if (result.status != JX_OK) return result;
    if (kinds.size() != 0 && std::find(kinds.begin(), kinds.end(), field->kind) == kinds.end()) {
      return wrongType(name, ruleOf(field->kind));
    }
    return body(found, *field);
  });
}

Result set(JXCObject& object, const char* name, const JXFieldInfo& field,
           const JXJsonValue& value) {
  const std::string error = object.set(field, value);
  return error.empty() ? Result(JX_OK) : wrongType(name, error);
}

// `create` returns the value. It runs inside the call because a long string allocates memory.
template <typename Create>
jx_status setValue(const char* operation, jx_object* object, const char* name, JXFieldKind kind,
                   const Create& create) {
  return onField(operation, object, name, {kind}, [&](JXCObject& found, const JXFieldInfo& field) {
    return set(found, name, field, create());
  });
}

template <typename Create>
jx_status setDecimal(const char* operation, jx_object* object, const char* name,
                     const Create& create) {
  return onField(operation, object, name, {JXFieldKind::Number},
                 [&](JXCObject& found, const JXFieldInfo& field) {
                   const jx::JXDecimal number = create();
                   if (number.isNaN()) {
                     return Result(JX_ERROR_INVALID_NUMBER,
                                   std::string(name) + " must be a finite decimal number");
                   }
                   return set(found, name, field, number);
                 });
}

jx_status createEvent(const char* operation, const char* className, const uint32_t* mode,
                      const char* text, jx_object** event) {
  return jx::c::call(operation, [&]() -> Result {
    if (event == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *event = nullptr;
    if (className == nullptr) return {JX_ERROR_NULL_ARGUMENT, "class_name must not be null"};
    const jx::JXEventClass* const type = jx::eventClassNamed(className);
    if (type == nullptr) {
      return {JX_ERROR_UNKNOWN_CLASS, jx::c::quoted(className) + " is not an event class"};
    }
    const bool isMode = mode != nullptr && *mode < type->modes.size();
    if (mode != nullptr ? !isMode : !type->modes.empty()) {
      return {JX_ERROR_UNKNOWN_ENUMERATOR,
              mode == nullptr ? std::string(className) + " requires a mode"
                              : std::to_string(*mode) + " is not a mode of " + className};
    }
    auto created = type->create(mode != nullptr ? static_cast<int>(*mode) : 0, text);
    // The look-up casts to the base class.
    std::shared_ptr<JXCObject> object =
        std::make_shared<jx::c::JXCEvent>(*type, std::move(created));
    return jx::c::give(JXHandleKind::Object, std::move(object), event);
  });
}

template <typename Block>
jx_status createBlock(const char* operation, jx_object** block) {
  return jx::c::call(operation, [&]() -> Result {
    if (block == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *block = nullptr;
    std::shared_ptr<JXCObject> object = std::make_shared<jx::c::JXCBlock<Block>>();
    return jx::c::give(JXHandleKind::Object, std::move(object), block);
  });
}

// Finds the item or product to copy.
Result findBlock(const jx_object* handle, const char* className, const char* argument,
                 std::shared_ptr<void>& block) {
  const jx_status status =
      jx::JXHandles::sharedInstance().find(handle, JXHandleKind::Object, block);
  if (status != JX_OK) return status;
  const JXCObject& object = *static_cast<const JXCObject*>(block.get());
  if (object.isOf(className)) return JX_OK;
  return {JX_ERROR_WRONG_CLASS,
          std::string(argument) + " must be a " + className + ", not a " + object.className()};
}

// `read` reads the value; null adds nothing.
template <typename Read>
jx_status addParameter(const char* operation, jx_object* object, const char* key,
                       const Read& read) {
  return onObject(operation, object, [&](JXCObject& found) -> Result {
    if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
    JXJsonValue value;
    Result result = read(value);
    if (result.status == JX_OK && value.isPresent()) found.addParameter(key, value);
    return result;
  });
}

}  // namespace

jx_status jx_event_create(const char* class_name, jx_object** event) {
  return createEvent(__func__, class_name, nullptr, nullptr, event);
}

jx_status jx_event_create_with_mode(const char* class_name, uint32_t mode, const char* session_id,
                                    jx_object** event) {
  return createEvent(__func__, class_name, &mode, session_id, event);
}

jx_status jx_custom_event_create(const char* name, jx_object** event) {
  return createEvent(__func__, "JXCustomEvent", nullptr, name, event);
}

jx_status jx_item_create(jx_object** item) { return createBlock<jx::JXItem>(__func__, item); }

jx_status jx_product_create(jx_object** product) {
  return createBlock<jx::JXProduct>(__func__, product);
}

jx_status jx_object_free(jx_object* object) {
  return jx::c::call(__func__, [&] { return jx::c::end(object, JXHandleKind::Object); });
}

jx_status jx_object_set_string(jx_object* object, const char* field, const char* value) {
  return setValue(__func__, object, field, JXFieldKind::String, [&] { return JXJsonValue(value); });
}

jx_status jx_object_set_number(jx_object* object, const char* field, const char* value) {
  if (value == nullptr) {
    return setValue(__func__, object, field, JXFieldKind::Number, [] { return JXJsonValue(); });
  }
  return setDecimal(__func__, object, field, [&] { return jx::JXDecimal::fromString(value); });
}

jx_status jx_object_set_integer(jx_object* object, const char* field, int64_t value) {
  return setDecimal(__func__, object, field, [&] { return jx::JXDecimal(value); });
}

jx_status jx_object_set_double(jx_object* object, const char* field, double value) {
  return setDecimal(__func__, object, field, [&] { return jx::JXDecimal::fromDouble(value); });
}

jx_status jx_object_set_boolean(jx_object* object, const char* field, bool value) {
  return setValue(__func__, object, field, JXFieldKind::Boolean,
                  [&] { return JXJsonValue(value); });
}

jx_status jx_object_set_enum(jx_object* object, const char* field, uint32_t value) {
  return onField(__func__, object, field, {JXFieldKind::Enumeration},
                 [&](JXCObject& found, const JXFieldInfo& info) -> Result {
                   if (value >= info.enumStrings.count) {
                     return {JX_ERROR_UNKNOWN_ENUMERATOR,
                             std::to_string(value) + " is not a value of " + field};
                   }
                   return set(found, field, info, info.enumStrings.enumerators[value]);
                 });
}

jx_status jx_object_set_strings(jx_object* object, const char* field, const char* const* strings,
                                size_t count) {
  return onField(
      __func__, object, field, {JXFieldKind::Strings, JXFieldKind::NumberedStrings},
      [&](JXCObject& found, const JXFieldInfo& info) -> Result {
        if (strings == nullptr) return set(found, field, info, JXJsonValue());
        JXJsonArray list;
        for (size_t i = 0; i < count; ++i) {
          list.append(strings[i] != nullptr ? JXJsonValue(strings[i]) : JXJsonValue::null());
        }
        return set(found, field, info, list);
      });
}

jx_status jx_object_set_product(jx_object* object, const char* field, const jx_object* product) {
  return onField(__func__, object, field, {JXFieldKind::Product},
                 [&](JXCObject& found, const JXFieldInfo& info) -> Result {
                   if (product == nullptr) return set(found, field, info, JXJsonValue());
                   std::shared_ptr<void> block;
                   Result result = findBlock(product, "JXProduct", "product", block);
                   if (result.status != JX_OK) return result;
                   return set(found, field, info, static_cast<JXCObject*>(block.get())->values());
                 });
}

jx_status jx_object_add_item(jx_object* object, const char* field, const jx_object* item) {
  return onField(__func__, object, field, {JXFieldKind::Items},
                 [&](JXCObject& found, const JXFieldInfo& info) -> Result {
                   std::shared_ptr<void> block;
                   Result result = findBlock(item, "JXItem", "item", block);
                   if (result.status != JX_OK) return result;
                   return found.addItem(info, *static_cast<JXCObject*>(block.get()));
                 });
}

jx_status jx_object_set_json(jx_object* object, const char* field, const char* json) {
  return onField(__func__, object, field, {},
                 [&](JXCObject& found, const JXFieldInfo& info) -> Result {
                   JXJsonValue value;
                   Result result = jx::c::readJson(json, value);
                   if (result.status != JX_OK) return result;
                   return set(found, field, info, value);
                 });
}

jx_status jx_object_set_null(jx_object* object, const char* field) {
  return onField(__func__, object, field, {}, [&](JXCObject& found, const JXFieldInfo& info) {
    return set(found, field, info, JXJsonValue());
  });
}

jx_status jx_object_add_parameter(jx_object* object, const char* key, const char* value) {
  return addParameter(__func__, object, key, [&](JXJsonValue& read) {
    read = JXJsonValue(value);
    return Result(JX_OK);
  });
}

jx_status jx_object_add_parameter_json(jx_object* object, const char* key, const char* json) {
  return addParameter(__func__, object, key,
                      [&](JXJsonValue& read) { return jx::c::readJson(json, read); });
}

jx_status jx_object_verify(const jx_object* object) {
  return onObject(__func__, object, [](JXCObject& found) { return found.verify(); });
}

jx_status jx_object_json(const jx_object* object, char* buffer, size_t capacity, size_t* length) {
  return onObject(__func__, object, [&](JXCObject& found) {
    const auto written = jx::JXJsonWriter::write(found.json(), jx::JXJsonStyle::Compact);
    return jx::c::copyOut(written.text, buffer, capacity, length);
  });
}

const char* jx_object_class(const jx_object* object) {
  const char* name = nullptr;
  onObject(__func__, object, [&](JXCObject& found) {
    name = found.className();
    return Result(JX_OK);
  });
  return name;
}
