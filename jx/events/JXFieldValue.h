// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXFieldTable.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXItem;
class JXProduct;

/// Writes, inspects and reads values of each field type.
namespace fieldvalue {

/// Writes the value under the key. Writes nothing for null and for a NaN amount, except that a null
/// list of strings or items is written as an empty array. Null elements are skipped. While an event
/// is executed, a NaN amount and a null string in a list are logged once per event and key.
/// @{
JX_API void write(const JXString& value, std::string_view key, JXJsonSink& sink);
JX_API void write(const std::optional<JXDecimal>& value, std::string_view key, JXJsonSink& sink);
JX_API void write(bool value, std::string_view key, JXJsonSink& sink);
JX_API void write(const JXList<JXString>& value, std::string_view key, JXJsonSink& sink);
JX_API void write(const JXJsonArray& value, std::string_view key, JXJsonSink& sink);
JX_API void write(const JXList<std::shared_ptr<JXItem>>& value, std::string_view key,
                  JXJsonSink& sink);
JX_API void write(const std::shared_ptr<JXProduct>& value, std::string_view key, JXJsonSink& sink);
/// @}
/// Writes each string under `prefix` followed by its position, from 1. A null string is not written
/// and its number is not used; logged as by `write`.
JX_API void writeNumbered(const JXList<JXString>& value, std::string_view prefix, JXJsonSink& sink);
/// Writes the string of the enumeration's value. A value outside the enumeration is not written;
/// logged as by `write`.
JX_API void writeEnumValue(int value, const JXEnumStrings& strings, std::string_view key,
                           JXJsonSink& sink);

/// Returns the state of the value. A NaN amount counts as null, because it is not written.
/// @{
JX_API JXFieldState state(const JXString& value);
JX_API JXFieldState state(const std::optional<JXDecimal>& value);
JX_API JXFieldState state(bool value);
JX_API JXFieldState state(const JXList<JXString>& value);
JX_API JXFieldState state(const JXJsonArray& value);
JX_API JXFieldState state(const JXList<std::shared_ptr<JXItem>>& value);
JX_API JXFieldState state(const std::shared_ptr<JXProduct>& value);
/// @}

/// Reads the value from JSON. Returns an empty string on success. On error, returns a message such
/// as "must be a string", to follow the field's name, and leaves `value` unchanged.
/// @{
JX_API std::string read(const JXJsonValue& json, JXString& value);
JX_API std::string read(const JXJsonValue& json, std::optional<JXDecimal>& value);
JX_API std::string read(const JXJsonValue& json, bool& value);
JX_API std::string read(const JXJsonValue& json, JXList<JXString>& value);
JX_API std::string read(const JXJsonValue& json, JXJsonArray& value);
JX_API std::string read(const JXJsonValue& json, JXList<std::shared_ptr<JXItem>>& value);
JX_API std::string read(const JXJsonValue& json, std::shared_ptr<JXProduct>& value);
/// @}

/// Returns a copy of the value as JSON that `read` accepts; absent for null and for a NaN amount.
/// An item or a product is an object of its properties. It contains JSON null for a property that
/// is null but has another initial value.
/// @{
JX_API JXJsonValue toJson(const JXString& value);
JX_API JXJsonValue toJson(const std::optional<JXDecimal>& value);
JX_API JXJsonValue toJson(bool value);
JX_API JXJsonValue toJson(const JXList<JXString>& value);
JX_API JXJsonValue toJson(const JXJsonArray& value);
JX_API JXJsonValue toJson(const JXList<std::shared_ptr<JXItem>>& value);
JX_API JXJsonValue toJson(const std::shared_ptr<JXProduct>& value);
JX_API JXJsonValue toJson(const JXItem& value);
JX_API JXJsonValue toJson(const JXProduct& value);
/// @}

}  // namespace fieldvalue
}  // namespace jx
