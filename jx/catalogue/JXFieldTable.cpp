// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/catalogue/JXFieldTable.h"

namespace jx {

bool JXFieldInfo::writesKey(std::string_view jsonKey) const {
  if (kind != JXFieldKind::NumberedStrings) return jsonKey == key;
  if (jsonKey.substr(0, key.size()) != key) return false;
  const std::string_view number = jsonKey.substr(key.size());
  return !number.empty() && number.front() != '0' &&
         number.find_first_not_of("0123456789") == std::string_view::npos;
}

JXFieldTable::JXFieldTable(std::initializer_list<JXField> fields) {
  for (const JXField& field : fields) {
    const bool isDuplicate = findKey(field.info.key) != npos;
    fields_.push_back(field.info);
    fields_.back().isDuplicate = isDuplicate;
    access_.push_back(field.access);
  }
  listWriters();
}

std::size_t JXFieldTable::findProperty(std::string_view property) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].property == property) return i;
  }
  return npos;
}

std::size_t JXFieldTable::findKey(std::string_view key) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (fields_[i].key == key) return i;
  }
  return npos;
}

void JXFieldTable::markDuplicatesOf(const JXFieldTable& earlier) {
  for (JXFieldInfo& field : fields_) {
    if (earlier.findKey(field.key) != npos) field.isDuplicate = true;
  }
  listWriters();
}

void JXFieldTable::listWriters() {
  writers_.clear();
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if (!fields_[i].isDuplicate) writers_.push_back({fields_[i].key, access_[i].get()});
  }
}

void JXFieldTable::write(const JXAdditionalProperties& object, JXJsonSink& sink) const {
  for (const Writer& writer : writers_)
    writer.access->write(object, writer.key, sink);
}

}  // namespace jx
