// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXExecutableEvent.h"

#include <string>

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {
namespace {

// An event of a class of the application. It exists only while it is executed.
class OverridingEvent final : public jx::JXEvent {
 public:
  explicit OverridingEvent(::JXEvent* event) : event_(event) {
    @try {
      setName(toString([event name], "JXEvent.name"));
    } @catch (id thrown) {
      logFailure("name", reasonOf(thrown));
    }
  }

  JXJsonObject getJsonObject() const override {
    @autoreleasepool {
      // What was added for this execution, such as the permanent data.
      coreOf<jx::JXEvent>(event_).addAdditionalProperty(extraProperties());
      @try {
        JXJsonObject object = toJsonObject([event_ getJsonObject], "getJsonObject");
        if (object.isPresent()) return object;
        logFailure("getJsonObject", "it returned no dictionary");
      } @catch (id thrown) {
        logFailure("getJsonObject", reasonOf(thrown));
      }
      return coreOf<jx::JXEvent>(event_).getJsonObject();
    }
  }

 private:
  void logFailure(const char* operation, const std::string& reason) const {
    JXLogger::sharedInstance().logMessage_withLevel(
        std::string(operation) + " of " + [NSStringFromClass([event_ class]) UTF8String] +
            " failed: " + reason,
        3);
  }

  ::JXEvent* const event_;
};

}  // namespace

std::shared_ptr<jx::JXEvent> executableEvent(::JXEvent* event) {
  if (event == nil) return nullptr;
  const IMP own = [event methodForSelector:@selector(getJsonObject)];
  if (own == [::JXEvent instanceMethodForSelector:@selector(getJsonObject)]) {
    return sharedCore<jx::JXEvent>(event);
  }
  return std::make_shared<OverridingEvent>(event);
}

}  // namespace jx::objc
