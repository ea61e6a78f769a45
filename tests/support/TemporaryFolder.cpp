// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/TemporaryFolder.h"

#include <stdlib.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace jx::test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  path_ = (fs::temp_directory_path() / "jx-test-XXXXXX").string();
  if (::mkdtemp(path_.data()) == nullptr) {
    throw std::system_error(errno, std::generic_category(), path_);
  }
}

TemporaryFolder::~TemporaryFolder() {
  // A test may have removed its own permission to read a folder.
  std::error_code ignored;
  const auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator entry(path_, options, ignored), end; entry != end;
       entry.increment(ignored)) {
    if (entry->is_directory(ignored) && !entry->is_symlink(ignored)) {
      fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
  }
  fs::remove_all(path_, ignored);
}

std::string TemporaryFolder::path(std::string_view relative) const {
  while (!relative.empty() && relative.front() == '/')
    relative.remove_prefix(1);
  return path_ + "/" + std::string(relative);
}

std::string TemporaryFolder::write(std::string_view relative, std::string_view content) const {
  const std::string file = path(relative);
  fs::create_directories(fs::path(file).parent_path());
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::runtime_error("cannot write " + file);
  return file;
}

std::string TemporaryFolder::makeFolder(std::string_view relative) const {
  const std::string folder = path(relative);
  fs::create_directories(folder);
  return folder;
}

std::string TemporaryFolder::link(std::string_view relative, const std::string& target) const {
  const std::string file = path(relative);
  fs::create_directories(fs::path(file).parent_path());
  fs::create_symlink(target, file);
  return file;
}

}  // namespace jx::test
