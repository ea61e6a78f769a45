// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace jx {

/// Returns the session script of the demo: one evening, from the start of the application to the
/// end of a film. It ends in the foreground and with consent, so that every event can be delivered.
std::string_view demoScript();

}  // namespace jx
