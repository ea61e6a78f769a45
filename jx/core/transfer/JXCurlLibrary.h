// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// The process-wide state of libcurl. It is initialised with the first request where that is safe,
/// because the TLS library behind it reads 2 MiB of files and takes as long as the rest of a start.
/// Never cleaned up: the application may use libcurl too, and the transfer thread may outlive
/// static objects. Thread-safe.
class JXCurlLibrary {
 public:
  /// Initialises libcurl now unless another thread can do it later: its initialisation must be
  /// thread-safe, and the exit handler of OpenSSL must be registered before the one of
  /// `atExit`. Call it before `atExit`.
  static void prepare() noexcept;
  /// Initialises libcurl if it is not. Throws std::runtime_error when that fails; the next call
  /// tries again.
  static void initialise();

  /// Calls `stop` at process exit, before libcurl and its dependencies are cleaned up, whether they
  /// are initialised before or after this call. `stop` may be called several times. Afterwards,
  /// waits while another thread is in `initialise`, which fails from then on.
  static void atExit(void (*stop)()) noexcept;
};

}  // namespace jx
