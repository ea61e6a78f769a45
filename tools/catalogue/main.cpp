// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <exception>
#include <iostream>

#include "tools/catalogue/CataloguePage.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: jx_event_catalogue SOURCE_FOLDER > docs/events.md\n";
    return 2;
  }
  try {
    std::cout << jx::catalogue::cataloguePage(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << "jx_event_catalogue: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
