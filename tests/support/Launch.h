// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace jx::test {

/// How a process ends.
enum class Ending {
  Kill,  ///< at once, as a kill would end it
  Exit,  ///< by `exit`, as an application does
};

/// Runs `work` in a forked process, which then ends, and returns the text that `work` returned. A
/// failed fork, a crash or an exception of `work` gives a text that begins
/// with "(". To be used before the process under test has started the library, so that each call is
/// a launch of its own.
std::string inLaunch(const std::function<std::string()>& work, Ending ending = Ending::Kill);

/// Runs `prepare` and then `call` in a forked process, and tells whether `call` stays away: true
/// when it puts its thread to sleep or keeps it busy instead of returning. The process is ended.
/// Throws when the process ends before `call` was begun.
bool neverReturns(const std::function<void()>& prepare, const std::function<void()>& call);

}  // namespace jx::test
