// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "jx/events/JXEventClass.h"

namespace jx::catalogue {

/// A class of the C interface.
struct CClass {
  std::string name;
  std::string handle;                   ///< name of a parameter of this class
  const JXEventClass* event = nullptr;  ///< null for an item or a product
};

/// Returns all event classes, in the order of the catalogue.
std::vector<CClass> cEventClasses();
/// Returns true for a class whose events are named by the application when they are created.
bool takesName(const CClass& type);

/// A function that sets a field.
struct CSetter {
  std::string description;  ///< one sentence, for its comment
  std::string name;
  std::vector<std::string> parameters;  ///< that follow the object
  std::string calls;                    ///< name of the function that it calls
  std::vector<std::string> arguments;   ///< that follow the object and the field
};

/// Returns the functions that set a field.
std::vector<CSetter> settersOf(const CClass& type, const JXFieldInfo& field);
/// Returns the name of the enumeration type of a field.
std::string enumName(const CClass& type, const JXFieldInfo& field);

}  // namespace jx::catalogue
