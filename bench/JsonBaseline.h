// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace jx::bench {

/// The baseline of building a body: parses a JSON document into writer calls, then repeats them,
/// like a program that already has every value.
class JsonBaseline {
 public:
  explicit JsonBaseline(std::string_view json);
  ~JsonBaseline();
  /// Writes the document with RapidJSON's pretty writer into a reused buffer. The returned view is
  /// valid until the next call.
  std::string_view write();

 private:
  struct Step {
    enum class Kind {
      Key,
      String,
      Number,
      Bool,
      Null,
      StartObject,
      EndObject,
      StartArray,
      EndArray
    };
    Kind kind;
    bool flag;
    std::string text;
  };
  struct Recorder;
  struct Buffer;
  template <typename Writer>
  void replay(Writer& writer) const;

  std::vector<Step> steps_;
  std::unique_ptr<Buffer> buffer_;
};

}  // namespace jx::bench
