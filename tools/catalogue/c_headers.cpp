// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/catalogue/CHeaders.h"

namespace {

void write(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text;
  if (!file.flush()) throw std::runtime_error(path.string() + ": write failed");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: jx_c_headers SOURCE_FOLDER OUTPUT_FOLDER\n";
    return 2;
  }
  try {
    const std::filesystem::path into(argv[2]);
    const auto headers = jx::catalogue::cHeaders(argv[1]);
    // Removes the headers of deleted classes, which would still compile.
    std::filesystem::remove_all(into / "jx/c/events");
    for (const auto& [path, text] : headers)
      write(into / path, text);
  } catch (const std::exception& error) {
    std::cerr << "jx_c_headers: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
