// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/events/JXEventClass.h"

namespace jx::catalogue {

/// A class as its header for C tells it.
struct CClass {
  std::string name;
  std::string handle;                   ///< what a parameter of this class is called
  const JXEventClass* event = nullptr;  ///< null for an item and a product
};

/// Every event class, in the order of the catalogue.
std::vector<CClass> cEventClasses();
/// True for a class whose events are named by the host, when they are made.
bool takesName(const CClass& type);

/// An operation that sets a field: how it is called, what it takes behind the object, and what it
/// calls with what behind object and field.
struct CSetter {
  std::string about;  ///< what it does, in a sentence
  std::string name;
  std::vector<std::string> parameters;
  std::string calls;
  std::vector<std::string> arguments;
};

std::vector<CSetter> settersOf(const CClass& type, const JXFieldInfo& field);
/// The type of a field's enumeration.
std::string choiceName(const CClass& type, const JXFieldInfo& field);

}  // namespace jx::catalogue
