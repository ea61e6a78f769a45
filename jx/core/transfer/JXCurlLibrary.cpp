// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXCurlLibrary.h"

#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
#include <stdexcept>
#include <string>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXOwnedDescriptors.h"

namespace jx {
namespace {

struct LibraryState {
  std::mutex mutex;
  bool isInitialised = false;
  bool isExiting = false;
  void (*stop)() = nullptr;
};

LibraryState& state() {
  // Never destroyed: the transfer thread uses it while the process exits.
  static auto* const state = new LibraryState();
  return *state;
}

// Makes OpenSSL register its exit handler, and nothing else. Returns false if the OpenSSL of
// libcurl is not found: libcurl may use another library, or be linked statically.
bool registerHandlerOfOpenSsl() noexcept {
  // A function of the versions whose initialisation is thread-safe.
  void* const function = ::dlsym(RTLD_DEFAULT, "curl_ws_recv");
  Dl_info libcurl{};
  if (function == nullptr || ::dladdr(function, &libcurl) == 0) return false;
  void* const library = ::dlopen(libcurl.dli_fname, RTLD_LAZY | RTLD_NOLOAD);
  if (library == nullptr) return false;
  // Searches the libraries that libcurl itself uses.
  const auto initialise = reinterpret_cast<int (*)(std::uint64_t, const void*)>(
      ::dlsym(library, "OPENSSL_init_crypto"));
  // OPENSSL_INIT_ATFORK has no effect of its own. Without any option, nothing is registered.
  constexpr std::uint64_t kAtFork = 0x20000;
  const bool isRegistered = initialise != nullptr && initialise(kAtFork, nullptr) == 1;
  ::dlclose(library);
  return isRegistered;
}

void stopAtExit() {
  // The child of a fork exits without waiting for threads that it does not have.
  if (JXForkedChild::isCurrent()) return;
  state().stop();
  // A thread that did not stop in time must not use a library that is being cleaned up.
  const std::lock_guard<std::mutex> lock(state().mutex);
  state().isExiting = true;
}

}  // namespace

void JXCurlLibrary::prepare() noexcept {
  if (registerHandlerOfOpenSsl()) return;
  try {
    initialise();
  } catch (...) {
    // The first request tries again.
  }
}

void JXCurlLibrary::initialise() {
  const std::lock_guard<std::mutex> lock(state().mutex);
  if (state().isInitialised) return;
  if (state().isExiting) throw std::runtime_error("the process exits");
  {
    // A child that is forked now would have a half-initialised TLS library, and wait for it at its
    // exit.
    const JXOwnedDescriptors::Change noFork;
    const CURLcode code = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (code != CURLE_OK) {
      throw std::runtime_error(std::string("libcurl cannot be initialised: ") +
                               curl_easy_strerror(code));
    }
  }
  // Again, because handlers run in the reverse order, and a dependency may have registered one.
  if (state().stop != nullptr && std::atexit(stopAtExit) != 0) throw std::bad_alloc();
  state().isInitialised = true;
}

void JXCurlLibrary::atExit(void (*stop)()) noexcept {
  const std::lock_guard<std::mutex> lock(state().mutex);
  state().stop = stop;
  std::atexit(stopAtExit);
}

}  // namespace jx
