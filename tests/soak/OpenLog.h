// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace jx::soak {

/// A call that opened a descriptor or created a folder.
struct OpenCall {
  std::string program;
  std::string caller;  ///< program or shared library that called the function
  std::string function;
  std::string path;
  std::string flags;
  std::size_t files = 0;  ///< open descriptors of the program after the call, without sockets

  bool isOurs() const { return caller == program; }
  bool has(const std::string& flag) const;
};

/// What the preloaded recorder writes about the programs that are started with `environment`.
class OpenLog {
 public:
  explicit OpenLog(std::string file) : file_(std::move(file)) {}

  std::map<std::string, std::string> environment() const;
  std::vector<OpenCall> calls() const;

 private:
  std::string file_;
};

/// Describes the calls that violate a rule: all files below the folder `root` are opened with
/// O_NOFOLLOW and O_CLOEXEC; all other descriptors of the program, not those of libraries that it
/// uses, are opened with O_CLOEXEC.
std::set<std::string> violationsIn(const std::vector<OpenCall>& calls, const std::string& root);

/// Returns the lines of a table of the calls: path, function, flags, caller and number. `names`
/// replaces the beginnings of paths; numbers in paths are replaced by N.
std::vector<std::string> tableOf(const std::vector<OpenCall>& calls,
                                 const std::map<std::string, std::string>& names);

}  // namespace jx::soak
