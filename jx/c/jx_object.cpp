// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_object.h"

#include <string_view>

#include "jx/c/internal/JXCObject.h"
#include "jx/core/json/JXJsonWriter.h"
#include "jx/events/JXEventClass.h"

namespace {

using jx::JXHandleKind;
using jx::JXJsonArray;
using jx::JXJsonValue;
using jx::c::JXCField;
using jx::c::JXCObject;
using jx::c::onField;
using jx::c::onObject;
using jx::c::Result;
using Kind = jx::JXFieldKind;

// `create` returns the value. It runs inside the call because a long string allocates memory.
template <typename Create>
jx_status setValue(const char* operation, jx_object* object, const char* name, Kind kind,
                   const Create& create) {
  return onField(operation, object, name, {kind},
                 [&](const JXCField& found) { return found.set(create()); });
}

template <typename Create>
jx_status setDecimal(const char* operation, jx_object* object, const char* name,
                     const Create& create) {
  return onField(operation, object, name, {Kind::Number}, [&](const JXCField& found) -> Result {
    const jx::JXDecimal number = create();
    if (number.isNaN()) return jx::c::notANumber(name);
    return found.set(number);
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
    return jx::c::give(JXHandleKind::Object, std::make_shared<JXCObject>(*type, std::move(created)),
                       event);
  });
}

template <typename Block>
jx_status createBlock(const char* operation, jx_object** block) {
  return jx::c::call(operation, [&]() -> Result {
    if (block == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *block = nullptr;
    return jx::c::give(JXHandleKind::Object,
                       std::make_shared<JXCObject>(Block::blockClass(), Block::init()), block);
  });
}

jx_status addParameter(const char* operation, jx_object* object, const char* key, const char* value,
                       jx::c::Form form) {
  return onObject(operation, object, [&](JXCObject& found) {
    return jx::c::readEntry(key, value, form, [&](const JXJsonValue& read) {
      if (read.isPresent()) found.addParameter(key, read);
    });
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
  return setValue(__func__, object, field, Kind::String, [&] { return JXJsonValue(value); });
}

jx_status jx_object_set_number(jx_object* object, const char* field, const char* value) {
  if (value == nullptr) {
    return setValue(__func__, object, field, Kind::Number, [] { return JXJsonValue(); });
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
  return setValue(__func__, object, field, Kind::Boolean, [&] { return JXJsonValue(value); });
}

jx_status jx_object_set_enum(jx_object* object, const char* field, uint32_t value) {
  return onField(__func__, object, field, {Kind::Enumeration},
                 [&](const JXCField& found) -> Result {
                   const jx::JXEnumStrings& strings = found.info.enumStrings;
                   if (value >= strings.count) {
                     return {JX_ERROR_UNKNOWN_ENUMERATOR,
                             std::to_string(value) + " is not a value of " + field};
                   }
                   return found.set(strings.enumerators[value]);
                 });
}

jx_status jx_object_set_strings(jx_object* object, const char* field, const char* const* strings,
                                size_t count) {
  return onField(__func__, object, field, {Kind::Strings, Kind::NumberedStrings},
                 [&](const JXCField& found) {
                   JXJsonArray list = strings != nullptr ? JXJsonArray() : nullptr;
                   for (size_t i = 0; list.isPresent() && i < count; ++i) {
                     list.append(strings[i] != nullptr ? strings[i] : JXJsonValue::null());
                   }
                   return found.set(list);
                 });
}

jx_status jx_object_set_product(jx_object* object, const char* field, const jx_object* product) {
  return onField(__func__, object, field, {Kind::Product}, [&](const JXCField& found) {
    JXJsonValue copy;
    Result result =
        product == nullptr ? JX_OK : jx::c::copyOf(product, "JXProduct", "product", copy);
    return result.status == JX_OK ? found.set(copy) : result;
  });
}

jx_status jx_object_set_json(jx_object* object, const char* field, const char* json) {
  return onField(__func__, object, field, {}, [&](const JXCField& found) {
    JXJsonValue value;
    Result result = jx::c::readJson(json, value);
    return result.status == JX_OK ? found.set(value) : result;
  });
}

jx_status jx_object_set_null(jx_object* object, const char* field) {
  return onField(__func__, object, field, {},
                 [&](const JXCField& found) { return found.set(JXJsonValue()); });
}

jx_status jx_object_add_parameter(jx_object* object, const char* key, const char* value) {
  return addParameter(__func__, object, key, value, jx::c::Form::String);
}

jx_status jx_object_add_parameter_json(jx_object* object, const char* key, const char* json) {
  return addParameter(__func__, object, key, json, jx::c::Form::Json);
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
