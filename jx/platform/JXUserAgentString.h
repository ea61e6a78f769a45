// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"

namespace jx {

/// Returns the user agent of a system without a web view: a product that consists of the name and
/// version of the system, such as "Debian-GNU-Linux/12 (x86_64)". Replaces characters that are not
/// allowed in a product by '-'. Returns null if the name is null. Omits a null version and a null
/// or empty machine.
JXString userAgentString(const JXString& systemName, const JXString& systemVersion,
                         const JXString& machine);

}  // namespace jx
