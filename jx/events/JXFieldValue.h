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

namespace jx {

class JXItem;
class JXProduct;

/// How a value of each field type is written, asked about, and read from JSON. A reader returns
/// what is wrong with the value, empty when nothing is.
namespace fieldvalue {

void write(const JXString& value, std::string_view key, JXJsonSink& sink);
void write(const std::optional<JXDecimal>& value, std::string_view key, JXJsonSink& sink);
void write(bool value, std::string_view key, JXJsonSink& sink);
void write(const JXList<JXString>& value, std::string_view key, JXJsonSink& sink);
void write(const JXJsonArray& value, std::string_view key, JXJsonSink& sink);
void write(const JXList<std::shared_ptr<JXItem>>& value, std::string_view key, JXJsonSink& sink);
void write(const std::shared_ptr<JXProduct>& value, std::string_view key, JXJsonSink& sink);
void writeNumbered(const JXList<JXString>& value, std::string_view prefix, JXJsonSink& sink);

JXFieldState state(const JXString& value);
JXFieldState state(const std::optional<JXDecimal>& value);
JXFieldState state(bool value);
JXFieldState state(const JXList<JXString>& value);
JXFieldState state(const JXJsonArray& value);
JXFieldState state(const JXList<std::shared_ptr<JXItem>>& value);
JXFieldState state(const std::shared_ptr<JXProduct>& value);

std::string read(const JXJsonValue& json, JXString& value);
std::string read(const JXJsonValue& json, std::optional<JXDecimal>& value);
std::string read(const JXJsonValue& json, bool& value);
std::string read(const JXJsonValue& json, JXList<JXString>& value);
std::string read(const JXJsonValue& json, JXJsonArray& value);
std::string read(const JXJsonValue& json, JXList<std::shared_ptr<JXItem>>& value);
std::string read(const JXJsonValue& json, std::shared_ptr<JXProduct>& value);

}  // namespace fieldvalue
}  // namespace jx
