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

/// How a value of each field type is written, asked about, and read from JSON. A reader returns
/// what is wrong with the value, empty when nothing is.
namespace fieldvalue {

/// Tells the sink the value under the key; an absent one tells it nothing.
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
/// Tells each text under `prefix` and its place from 1; an absent text leaves its number out.
JX_API void writeNumbered(const JXList<JXString>& value, std::string_view prefix, JXJsonSink& sink);

/// What can be said of the value.
/// @{
JX_API JXFieldState state(const JXString& value);
JX_API JXFieldState state(const std::optional<JXDecimal>& value);
JX_API JXFieldState state(bool value);
JX_API JXFieldState state(const JXList<JXString>& value);
JX_API JXFieldState state(const JXJsonArray& value);
JX_API JXFieldState state(const JXList<std::shared_ptr<JXItem>>& value);
JX_API JXFieldState state(const std::shared_ptr<JXProduct>& value);
/// @}

/// Reads the value from JSON. Returns what is wrong and leaves `value` as it is; empty when nothing
/// is.
/// @{
JX_API std::string read(const JXJsonValue& json, JXString& value);
JX_API std::string read(const JXJsonValue& json, std::optional<JXDecimal>& value);
JX_API std::string read(const JXJsonValue& json, bool& value);
JX_API std::string read(const JXJsonValue& json, JXList<JXString>& value);
JX_API std::string read(const JXJsonValue& json, JXJsonArray& value);
JX_API std::string read(const JXJsonValue& json, JXList<std::shared_ptr<JXItem>>& value);
JX_API std::string read(const JXJsonValue& json, std::shared_ptr<JXProduct>& value);
/// @}

}  // namespace fieldvalue
}  // namespace jx
