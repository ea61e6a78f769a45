// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/json/JXJsonWriter.h"

#include "jx/core/json/JXJsonTextSink.h"

namespace jx {

JXJsonText JXJsonWriter::write(const JXJsonObject& object, JXJsonStyle style) {
  constexpr std::size_t kUsualSize = 1024;
  JXJsonTextSink sink(style, kUsualSize);
  sink.root(object);
  return {sink.finish().toStdString(), sink.leftOut()};
}

}  // namespace jx
