// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// State of a process-wide object, so that `init` runs once and `reinit` can request another run:
/// 0 never initialised, 1 `init` is running, 2 initialised, 3 `reinit` requested a new
/// initialisation. A plain integer, because the guarded objects are created on one thread.
enum JXInitState : int {
  kJXInitNever = 0,
  kJXInitRunning = 1,
  kJXInitDone = 2,
  kJXInitAgain = 3,
};

/// Returns true and sets `state` to 1 when `init` must run; returns false when the object is
/// initialised. Never returns when an `init` is running: a nested or concurrent `init` is a misuse
/// that must never yield a partly initialised object.
bool tryBeginInit(int& state);

/// Blocks the calling thread forever.
[[noreturn]] void neverReturn();

}  // namespace jx
