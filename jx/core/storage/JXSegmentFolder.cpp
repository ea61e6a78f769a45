// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXSegmentFolder.h"

#include <algorithm>
#include <utility>

#include "jx/core/storage/JXOutboxSegment.h"

namespace jx {

JXSegmentFolder JXSegmentFolder::open(const std::string& path, const std::string& inner,
                                      JXFolder::Missing missing, int& error) {
  JXSegmentFolder opened;
  opened.folder = JXFolder::open(path, inner, missing, error);
  if (!opened.folder) return {};
  JXFile locks = JXFile::open(*opened.folder, kLockName, JXFile::Access::Append, error);
  if (error != 0) return {};
  opened.locks = std::make_shared<JXFile>(std::move(locks));
  return opened;
}

void JXOpenSegments::use(JXOutboxSegment& segment) noexcept {
  if (segments_.back() == &segment) return;
  remove(segment);
  if (segments_.front() != nullptr) segments_.front()->close();
  std::move(segments_.begin() + 1, segments_.end(), segments_.begin());
  segments_.back() = &segment;
}

// Unused places stay in front.
void JXOpenSegments::remove(const JXOutboxSegment& segment) noexcept {
  const auto found = std::find(segments_.begin(), segments_.end(), &segment);
  if (found == segments_.end()) return;
  std::move_backward(segments_.begin(), found, found + 1);
  segments_.front() = nullptr;
}

}  // namespace jx
