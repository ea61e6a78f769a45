// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// A session script: an evening in front of a television, from the start of the application to
/// the last film. Ends in the foreground and with consent, so that every event can be delivered.
std::string_view demoScript();

}  // namespace jx
