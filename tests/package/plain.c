// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <stdio.h>

#include "jx/JXVersion.h"
#include "jx/c/jx.h"

int main(void) {
  printf("%s %s\n", JX_VERSION_STRING, jx_version());
  return 0;
}
