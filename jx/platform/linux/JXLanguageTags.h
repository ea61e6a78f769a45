// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>
#include <vector>

#include "jx/platform/JXString.h"
#include "jx/platform/linux/JXEnvironment.h"

namespace jx {

/// The language tag of a POSIX locale name: "fr_CA.UTF-8@euro" gives "fr-CA", "zh_Hans_CN" gives
/// "zh-Hans-CN", "sr_RS@latin" gives "sr-Latn-RS". Absent for the C locale, for a malformed name
/// and for a tag of more than 35 characters, the length that language tags are limited to.
JXString languageTag(std::string_view localeName);

/// The viewer's languages, most preferred first: the list in LANGUAGE, then the locale of messages
/// (LC_ALL, LC_MESSAGES, LANG), each once, at most 16. As in gettext, LANGUAGE counts only when a
/// locale is set and that is neither "C" nor "POSIX"; "C.UTF-8" lets it count.
std::vector<JXString> preferredLanguageTags(const JXEnvironment& environment);

}  // namespace jx
