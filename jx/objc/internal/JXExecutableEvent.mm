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
    setName(toString([event name], "JXEvent.name"));
  }

  JXJsonObject getJsonObject() const override {
    @autoreleasepool {
      // What was added for this execution, such as the permanent data.
      coreOf<jx::JXEvent>(event_).addAdditionalProperty(extraProperties());
      @try {
        return toJsonObject([event_ getJsonObject], "getJsonObject");
      } @catch (NSException* exception) {
        JXLogger::sharedInstance().logMessage_withLevel(
            std::string("getJsonObject of ") + [NSStringFromClass([event_ class]) UTF8String] +
                " failed: " + toString([exception reason], "NSException").toStdString(),
            3);
      }
      return coreOf<jx::JXEvent>(event_).getJsonObject();
    }
  }

 private:
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
