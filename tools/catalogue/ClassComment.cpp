// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/ClassComment.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace jx::catalogue {
namespace {

constexpr std::string_view kMark = "/// ";

std::string commentAbove(std::istream& header, const std::string& declaration) {
  std::string comment;
  for (std::string line; std::getline(header, line);) {
    if (line.starts_with(declaration)) return comment;
    if (line.starts_with(kMark)) {
      if (!comment.empty()) comment += ' ';
      comment += line.substr(kMark.size());
    } else {
      comment.clear();
    }
  }
  return {};
}

}  // namespace

ClassComment commentOfClass(const std::string& sourceFolder, std::string_view className) {
  const std::filesystem::path root(sourceFolder);
  const std::string file = std::string(className) + ".h";
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root / "jx/events")) {
    if (entry.path().filename() != file) continue;
    std::ifstream header(entry.path());
    const std::string comment =
        commentAbove(header, "class JX_API " + std::string(className) + " ");
    if (comment.empty()) throw std::runtime_error(file + " has no comment above its class");
    return {std::filesystem::relative(entry.path(), root).generic_string(), comment};
  }
  throw std::runtime_error(file + " not found in jx/events");
}

}  // namespace jx::catalogue
