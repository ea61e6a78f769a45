// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/ExecuteBaseline.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace jx::bench {

ExecuteBaseline::ExecuteBaseline(const std::string& body, std::vector<std::vector<Write>> calls,
                                 const std::string& folder)
    : json_(body), calls_(std::move(calls)) {
  if (json_.write() != body) throw std::runtime_error("RapidJSON writes a different body");
  std::size_t longest = 0;
  for (std::vector<Write>& writes : calls_) {
    for (Write& write : writes) {
      write.descriptor = fileFor(write.descriptor, folder);
      longest = std::max(longest, write.bytes);
    }
  }
  bytes_.assign(longest, 'x');
}

ExecuteBaseline::~ExecuteBaseline() {
  for (const auto& [descriptor, file] : fileFor_)
    ::close(file);
}

int ExecuteBaseline::fileFor(int descriptor, const std::string& folder) {
  const auto known = fileFor_.find(descriptor);
  if (known != fileFor_.end()) return known->second;
  const std::string path = folder + "/baseline-" + std::to_string(fileFor_.size());
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0600);
  if (file < 0) throw std::runtime_error("cannot create " + path);
  fileFor_[descriptor] = file;
  return file;
}

ExecuteBaseline::Cost ExecuteBaseline::run() {
  const Clock::time_point begin = Clock::now();
  const std::string_view body = json_.write();
  const Clock::time_point serialised = Clock::now();
  for (const Write& write : calls_[next_++ % calls_.size()]) {
    // The frame also contains a header and the URL, which the baseline ignores.
    const std::string_view data =
        write.bytes >= body.size() ? body : std::string_view(bytes_).substr(0, write.bytes);
    if (::write(write.descriptor, data.data(), data.size()) != std::ssize(data)) {
      throw std::runtime_error("incomplete write");
    }
  }
  return {serialised - begin, Clock::now() - begin};
}

void ExecuteBaseline::truncateFiles() {
  for (const auto& [descriptor, file] : fileFor_) {
    if (::ftruncate(file, 0) != 0) throw std::runtime_error("cannot truncate a file");
  }
}

}  // namespace jx::bench
