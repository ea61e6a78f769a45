// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXExceptionLog.h"

#include <exception>

#include "jx/core/JXLogger.h"
#include "jx/platform/JXConcat.h"

namespace jx {

void logException(std::string_view failure, std::string_view consequence) noexcept {
  JXLogger& logger = JXLogger::sharedInstance();
  try {
    try {
      throw;
    } catch (const std::exception& error) {
      const std::string_view separator = consequence.empty() ? "" : "; ";
      logger.logMessage_withLevel(concat({failure, ": ", error.what(), separator, consequence}), 3);
    }
  } catch (...) {
    logger.logMessage_withLevel(failure, 3);
  }
}

}  // namespace jx
