// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>

namespace jx {

/// True when the bytes are well-formed UTF-8: no overlong forms, no surrogates. NUL is a character.
bool isUtf8(std::string_view bytes);

/// The bytes with each one that is not part of well-formed UTF-8 replaced by U+FFFD.
std::string toUtf8(std::string_view bytes);

}  // namespace jx
