// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXObjectiveCFirebase.h"

#include <string>

#include "jx/core/JXLogger.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXOwnership.h"

namespace jx::objc {
namespace {

SEL selectorOf(std::string_view operation) {
  return NSSelectorFromString(toFoundation(JXString(operation)));
}

class ObjectiveCFirebase final : public IJXFirebaseInstance {
 public:
  explicit ObjectiveCFirebase(id object) : object_(JX_RETAIN(object)) {}
  ~ObjectiveCFirebase() override { JX_RELEASE(object_); }
  ObjectiveCFirebase(const ObjectiveCFirebase&) = delete;
  ObjectiveCFirebase& operator=(const ObjectiveCFirebase&) = delete;

  id object() const { return object_; }

  bool respondsToOperation(std::string_view operation) override {
    @autoreleasepool {
      return [object_ respondsToSelector:selectorOf(operation)] != NO;
    }
  }

  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override {
    @autoreleasepool {
      const SEL selector = selectorOf(operation);
      using Method = void (*)(id, SEL, id, id);
      // A method called by name: the compiler does not know whether it returns an object.
      const auto method = reinterpret_cast<Method>([object_ methodForSelector:selector]);
      @try {
        method(object_, selector, toFoundation(first), toFoundation(second));
      } @catch (NSException* exception) {
        JXLogger::sharedInstance().logMessage_withLevel(
            std::string(operation) + " of the Firebase instance failed: " +
                toString([exception reason], "NSException").toStdString(),
            3);
      }
    }
  }

 private:
  const id object_;
};

}  // namespace

std::shared_ptr<IJXFirebaseInstance> firebaseOf(id object) {
  return object == nil ? nullptr : std::make_shared<ObjectiveCFirebase>(object);
}

id instanceOf(const std::shared_ptr<IJXFirebaseInstance>& firebase) {
  const auto* const ours = dynamic_cast<const ObjectiveCFirebase*>(firebase.get());
  return ours != nullptr ? ours->object() : nil;
}

}  // namespace jx::objc
