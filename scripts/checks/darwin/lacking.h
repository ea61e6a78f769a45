// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// For the stand-ins of scripts/checks/tvos: what musl has and tvOS lacks is an error where it is
// used.
#pragma once

#define JX_LACKING(function, reason) \
  extern "C" __typeof__(function) function __attribute__((unavailable(reason)))
