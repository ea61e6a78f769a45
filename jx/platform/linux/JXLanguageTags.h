// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// Converts a POSIX locale name to a language tag: "fr_CA.UTF-8@euro" to "fr-CA", "zh_Hans_CN" to
/// "zh-Hans-CN", "sr_RS@latin" to "sr-Latn-RS". Returns null for the C locale, for a malformed name
/// and for a tag of more than 35 characters, the maximum length of a language tag.
JXString languageTag(std::string_view localeName);

/// Returns the viewer's languages, most preferred first: the list in LANGUAGE, then the message
/// locale (LC_ALL, LC_MESSAGES, LANG), without duplicates, at most 16. As in gettext, LANGUAGE is
/// used only if a locale is set that is neither "C" nor "POSIX"; it is used with "C.UTF-8".
std::vector<JXString> preferredLanguageTags(const JXEnvironment& environment);

}  // namespace jx
