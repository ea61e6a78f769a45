// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_catalogue.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "jx/c/internal/JXCall.h"
#include "jx/events/JXEventClass.h"
#include "jx/events/JXItem.h"
#include "jx/events/JXProduct.h"

namespace {

using jx::JXEventClass;
using jx::JXFieldKind;

static_assert(static_cast<int>(JXFieldKind::String) == JX_KIND_STRING);
static_assert(static_cast<int>(JXFieldKind::Number) == JX_KIND_NUMBER);
static_assert(static_cast<int>(JXFieldKind::Boolean) == JX_KIND_BOOLEAN);
static_assert(static_cast<int>(JXFieldKind::Strings) == JX_KIND_STRINGS);
static_assert(static_cast<int>(JXFieldKind::NumberedStrings) == JX_KIND_NUMBERED_STRINGS);
static_assert(static_cast<int>(JXFieldKind::Values) == JX_KIND_VALUES);
static_assert(static_cast<int>(JXFieldKind::Enumeration) == JX_KIND_ENUM);
static_assert(static_cast<int>(JXFieldKind::Items) == JX_KIND_ITEMS);
static_assert(static_cast<int>(JXFieldKind::Product) == JX_KIND_PRODUCT);

// Returns a C array of strings. The strings are NUL-terminated constants.
std::vector<const char*> pointers(const std::vector<std::string_view>& strings) {
  std::vector<const char*> list;
  list.reserve(strings.size());
  for (const std::string_view string : strings)
    list.push_back(string.data());
  return list;
}

// A class and the memory that its pointers refer to.
struct Entry {
  jx_class type = {};
  std::vector<jx_field> fields;
  std::vector<std::vector<const char*>> members;
  std::vector<const char*> eventNames;
  std::vector<const char*> modes;

  void addFields(const jx::JXFieldTable& table, bool isWritten) {
    for (const jx::JXFieldInfo& field : table.fields()) {
      members.push_back(pointers(field.enumStrings.allEnumerators()));
      // Moving a vector does not move its elements, so the pointers stay valid.
      fields.push_back({field.property.data(), field.key.data(), static_cast<jx_kind>(field.kind),
                        isWritten, members.back().data(), members.back().size()});
    }
    type.fields = fields.data();
    type.field_count = fields.size();
  }
};

class Catalogue {
 public:
  Catalogue() {
    for (const JXEventClass* type : jx::allEventClasses())
      addEvent(*type);
    addBlock("JXItem", jx::JXItem::fields());
    addBlock("JXProduct", jx::JXProduct::fields());
  }

  const jx_class* at(size_t index) const {
    return index < entries_.size() ? &entries_[index]->type : nullptr;
  }
  const jx_class* named(std::string_view name) const {
    for (const auto& entry : entries_) {
      if (name == entry->type.name) return &entry->type;
    }
    return nullptr;
  }

 private:
  Entry& add(std::string_view name) {
    entries_.push_back(std::make_unique<Entry>());
    entries_.back()->type.name = name.data();
    return *entries_.back();
  }
  void addEvent(const JXEventClass& type) {
    Entry& entry = add(type.className);
    entry.type.is_event = true;
    if (type.base != nullptr) entry.type.base = named(type.base->className);
    entry.addFields(*type.written, true);
    if (type.unwritten != nullptr) entry.addFields(*type.unwritten, false);
    entry.eventNames = pointers(type.eventNames);
    entry.type.event_names = entry.eventNames.data();
    entry.type.event_name_count = entry.eventNames.size();
    entry.modes = pointers(type.modes);
    entry.type.modes = entry.modes.data();
    entry.type.mode_count = entry.modes.size();
  }
  void addBlock(std::string_view name, const jx::JXFieldTable& table) {
    add(name).addFields(table, true);
  }

  std::vector<std::unique_ptr<Entry>> entries_;
};

// Created on first use, never destroyed.
const Catalogue& catalogue() {
  static const auto& instance = *new Catalogue();
  return instance;
}

}  // namespace

const jx_class* jx_class_at(size_t index) {
  const jx_class* found = nullptr;
  jx::c::call(__func__, [&] {
    found = catalogue().at(index);
    return jx::c::Result(JX_OK);
  });
  return found;
}

const jx_class* jx_class_named(const char* name) {
  const jx_class* found = nullptr;
  jx::c::call(__func__, [&] {
    if (name != nullptr) found = catalogue().named(name);
    return jx::c::Result(JX_OK);
  });
  return found;
}
