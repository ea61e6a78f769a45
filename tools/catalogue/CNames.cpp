// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/catalogue/CNames.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

#include "tools/catalogue/CText.h"

namespace jx::catalogue {
namespace {

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text((std::istreambuf_iterator<char>(file)), {});
  if (text.empty()) throw std::runtime_error(path + " cannot be read");
  return text;
}

// Returns the constants of a header whose names match `names`. The C name is `prefix` followed by
// the first group.
std::string constantsOf(const std::string& sourceFolder, const std::string& header,
                        const std::string& description, const std::string& names,
                        const std::string& prefix = {}) {
  const std::string text = readFile(sourceFolder + "/" + header);
  const std::regex constant("constexpr\\s+std::string_view\\s+" + names + "\\s*=\\s*(\"[^\"]*\");");
  std::string lines;
  for (std::sregex_iterator match(text.begin(), text.end(), constant), end; match != end; ++match)
    lines += "#define " + prefix + (*match)[1].str() + " " + (*match)[2].str() + "\n";
  if (lines.empty()) throw std::runtime_error(header + " contains no matching constants");
  return "// " + description + "\n\n" + lines + "\n";
}

}  // namespace

std::string namesHeader(const std::string& sourceFolder) {
  return opening("JX_C_EVENTS_JX_NAMES_H", {}, false) +
         constantsOf(sourceFolder, "jx/core/JXCoreConstants.h",
                     "Names of notifications, and keys of their data.",
                     "k(JX(?:Notification|UserInfo)_\\w+)") +
         constantsOf(sourceFolder, "jx/core/JXCoreConstants.h",
                     "Names of the core variables, for `jx_get_core_variable`.",
                     "k(JXPredefinedVariable_\\w+)") +
         constantsOf(sourceFolder, "jx/core/JXCoreConstants.h",
                     "Name of the core variable that a consent module sets.", "JX_(ConsentVersion)",
                     "JXPredefinedVariable_") +
         constantsOf(sourceFolder, "jx/session/JXPredefinedVariableNames.h",
                     "Names of the predefined variables, for `jx_get_variable`.",
                     "k(JXPredefinedVariable_\\w+)") +
         constantsOf(sourceFolder, "jx/events/ecommerce/JXPaymentMethods.h",
                     "Predefined strings for `paymentMethod`; other strings are allowed.",
                     "E(JXPayementMethod_\\w+)") +
         constantsOf(sourceFolder, "jx/events/ecommerce/JXPurchaseStatuses.h",
                     "Predefined strings for `status`; other strings are allowed.",
                     "E(JXPurchaseStatus_\\w+)") +
         "#endif\n";
}

}  // namespace jx::catalogue
