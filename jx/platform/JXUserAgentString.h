// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/platform/JXString.h"

namespace jx {

/// The user agent of a system that has no web view to ask: a product made of the system's name and
/// version, such as "Debian-GNU-Linux/12 (x86_64)". Characters that would end a word become '-'.
/// Absent without a name; an absent version, and a machine without text, are left out.
JXString userAgentString(const JXString& systemName, const JXString& systemVersion,
                         const JXString& machine);

}  // namespace jx
