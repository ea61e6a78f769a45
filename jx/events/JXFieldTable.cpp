// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/events/JXFieldTable.h"

namespace jx {

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

}  // namespace jx
