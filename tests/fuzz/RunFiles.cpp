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

void tryFile(const fs::path& path) {
  const std::string content = jx::fuzz::contentOf(path.string());
  // Said before, so that the last line names the file that ended the process.
  std::printf("%s\n", path.filename().c_str());
  std::fflush(stdout);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
}

}  // namespace

// Stands in for the fuzzer where the compiler has none: tries files, and those of folders. A target
// without any past finding has no folder of them.
int main(int count, char** arguments) {
  std::size_t tried = 0;
  for (int i = 1; i < count; ++i) {
    for (const fs::path& file : filesUnder(arguments[i])) {
      tryFile(file);
      ++tried;
    }
  }
  std::printf("%zu files tried\n", tried);
  return tried == 0 ? 1 : 0;
}
