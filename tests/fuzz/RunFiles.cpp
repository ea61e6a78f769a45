// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/fuzz/Fuzz.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesUnder(const fs::path& path) {
  std::vector<fs::path> files;
  if (fs::is_directory(path)) {
    for (const fs::directory_entry& entry : fs::directory_iterator(path))
      if (entry.is_regular_file()) files.push_back(entry.path());
  } else if (fs::exists(path)) {
    files.push_back(path);
  }
  std::sort(files.begin(), files.end());
  return files;
}

void runFile(const fs::path& path) {
  const std::string content = jx::fuzz::contentOf(path.string());
  // Printed first, so that the last line names the file that aborted the process.
  std::printf("%s\n", path.filename().c_str());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
}

}  // namespace

// Replaces the fuzzer for compilers without libFuzzer: runs the given files and the files of the
// given folders. The folder of regressions may be missing.
int main(int argumentCount, char** arguments) {
  std::size_t count = 0;
  for (int i = 1; i < argumentCount; ++i) {
    for (const fs::path& file : filesUnder(arguments[i])) {
      runFile(file);
      ++count;
    }
  }
  std::printf("%zu files run\n", count);
  return count == 0 ? 1 : 0;
}
