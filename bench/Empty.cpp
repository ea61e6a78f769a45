// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The floor under a start and under memory: links what an application with the library links, and
// touches none of it.

#include "bench/Ready.h"

int main() {
  jx::bench::ReadyReport::now().print();
  return 0;
}
