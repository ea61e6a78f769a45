// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// For the headers of scripts/checks/tvos: using a function that musl has and tvOS does not is an
// error.
#pragma once

#define JX_UNAVAILABLE(function, reason) \
  extern "C" __typeof__(function) function __attribute__((unavailable(reason)))
