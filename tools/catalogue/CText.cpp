// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/CText.h"

#include <cstddef>
#include <sstream>

namespace jx::catalogue {
namespace {

constexpr std::size_t kColumns = 100;

std::string joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts)
    text += (text.empty() ? "" : ", ") + part;
  return text;
}

}  // namespace

std::string comment(const std::string& text) {
  std::istringstream words(text);
  std::string lines;
  std::string line = "///";
  for (std::string word; words >> word;) {
    if (line.size() + 1 + word.size() > kColumns) {
      lines += line + "\n";
      line = "///";
    }
    line += " " + word;
  }
  return lines + line + "\n";
}

std::string function(const std::string& name, const std::vector<std::string>& parameters,
                     const std::string& calls, const std::vector<std::string>& arguments) {
  const std::string before = "static inline jx_status " + name + "(";
  std::string head = before + joined(parameters) + ") {";
  if (head.size() > kColumns) {
    head = before;
    for (const std::string& parameter : parameters)
      head += "\n    " + parameter + (&parameter == &parameters.back() ? ") {" : ",");
  }
  return head + "\n  return " + calls + "(" + joined(arguments) + ");\n}\n";
}

std::string opening(const std::string& guard, const std::vector<std::string>& includes, bool isC) {
  std::string text =
      "// Copyright 2026 The JXServerSide authors\n"
      "// SPDX-License-Identifier: Apache-2.0\n"
      "//\n"
      "// Written by jx_c_headers from the tables in jx/events. Do not change it by hand.\n"
      "// clang-format off\n"
      "#ifndef " +
      guard + "\n#define " + guard + "\n\n";
  for (const std::string& include : includes)
    text += "#include \"" + include + "\"\n";
  if (!includes.empty()) text += "\n";
  return text + (isC ? "#ifdef __cplusplus\nextern \"C\" {\n#endif\n\n" : "");
}

std::string closing() { return "#ifdef __cplusplus\n}\n#endif\n\n#endif\n"; }

}  // namespace jx::catalogue
