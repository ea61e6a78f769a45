// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_catalogue.h"

#include <iterator>
#include <string_view>

#include "jx/c/internal/JXCClasses.h"

const jx_class* jx_class_at(size_t index) {
  return index < std::size(jx::c::kClasses) ? jx::c::kClasses[index] : nullptr;
}

const jx_class* jx_class_named(const char* name) {
  if (name == nullptr) return nullptr;
  for (const jx_class* type : jx::c::kClasses) {
    if (std::string_view(name) == type->name) return type;
  }
  return nullptr;
}
