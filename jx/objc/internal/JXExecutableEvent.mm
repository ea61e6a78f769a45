// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXExecutableEvent.h"

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXCoreObject.h"
#import "jx/objc/internal/JXFieldList.h"
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
      logFailure(event, "name", reasonOf(thrown));
    }
  }

  JXJsonObject getJsonObject() const override {
    @autoreleasepool {
      // What was added for this execution, such as the permanent data.
      coreOf<jx::JXEvent>(event_).addAdditionalProperty(extraProperties());
      @try {
        const id object = [event_ getJsonObject];
        if ([object isKindOfClass:[NSDictionary class]]) {
          return toJsonObject(object, "getJsonObject");
        }
        logFailure(event_, "getJsonObject", "it returned no dictionary");
      } @catch (id thrown) {
        logFailure(event_, "getJsonObject", reasonOf(thrown));
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
  const bool overrides = own != [::JXEvent instanceMethodForSelector:@selector(getJsonObject)];
  if (!overrides && !hasOverridingItem(event)) return sharedCore<jx::JXEvent>(event);
  return std::make_shared<OverridingEvent>(event);
}

bool hasOverridingItem(::JXEvent* event) {
  return [event jx_hasPart:[](id part) {
    return [part isKindOfClass:[JXFieldArray class]] && [part jx_hasOverridingItem];
  }];
}

void logFailure(id object, const char* operation, const std::string& reason) {
  JXLogger::sharedInstance().logMessage_withLevel(
      std::string(operation) + " of " + [NSStringFromClass([object class]) UTF8String] +
          " failed: " + reason,
      3);
}

}  // namespace jx::objc
