// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace jx::test {

/// The way in which a process ends.
enum class Ending {
  Kill,  ///< immediately, as with SIGKILL
  Exit,  ///< by `exit`, as an application ends
};

/// Runs `work` in a forked process, which then ends, and returns the string that `work` returned. A
/// failed fork, a crash or an exception of `work` returns a string that begins with "(". Call it
/// before the test process has started the library, so that each call is a separate launch.
std::string inLaunch(const std::function<std::string()>& work, Ending ending = Ending::Kill);

/// Runs `prepare` and then `call` in a forked process and returns true when `call` does not return
/// but sleeps or keeps its thread busy. Ends the process. Throws when it ends before `call` starts.
bool neverReturns(const std::function<void()>& prepare, const std::function<void()>& call);

}  // namespace jx::test
