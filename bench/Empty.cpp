// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The baseline of start and memory: links the same libraries as an application with the library and
// uses none of them.

#include "bench/Ready.h"

int main() {
  jx::bench::ReadyReport::now().print();
  return 0;
}
