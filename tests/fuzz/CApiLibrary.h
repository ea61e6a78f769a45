// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>

namespace jx::fuzz {

constexpr std::int64_t kStartMs = 1'790'000'000'000;
/// The clock of the library.
inline std::atomic<std::int64_t> clockMs{kStartMs};
/// True while the application posts a notification, which may have any content.
inline bool isPosting = false;

/// Configures the library with a temporary folder, a transport without a network and callbacks that
/// check their arguments. The first call in a process does so; the first ServerSide starts it.
void configureLibrary();

void onNotification(void* context, const char* name, const char* info);
void onFirebase(void* context, const char* name, const char* value);

}  // namespace jx::fuzz
