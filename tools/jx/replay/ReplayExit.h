// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// Beside those of every command: something was left undelivered.
inline constexpr int kExitUndelivered = 3;

}  // namespace jx
