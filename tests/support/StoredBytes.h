// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace jx::test {

/// Returns the relative paths of all files below the folder, sorted, without the file that contains
/// nothing and is only locked.
inline std::vector<std::string> filesBelow(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_directory()) continue;
    if (entry.path().filename() == "lock" && entry.file_size() == 0) continue;
    files.push_back(std::filesystem::relative(entry.path(), folder).string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// Returns those of `needles` whose bytes occur in a file below the folder.
inline std::vector<std::string> bytesFound(const std::string& folder,
                                           const std::vector<std::string>& needles) {
  std::string all;
  for (const std::string& file : filesBelow(folder)) {
    std::ifstream in(folder + "/" + file, std::ios::binary);
    all.append(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  std::vector<std::string> found;
  for (const std::string& needle : needles) {
    if (all.find(needle) != std::string::npos) found.push_back(needle);
  }
  return found;
}

}  // namespace jx::test
