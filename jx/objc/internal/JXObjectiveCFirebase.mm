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
      @try {
        return [object_ respondsToSelector:selectorOf(operation)] != NO;
      } @catch (id thrown) {
        logFailure(operation, reasonOf(thrown));
      }
      return false;
    }
  }

  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override {
    @autoreleasepool {
      @try {
        call(operation, toFoundation(first), toFoundation(second));
      } @catch (id thrown) {
        logFailure(operation, reasonOf(thrown));
      }
    }
  }

 private:
  static void logFailure(std::string_view operation, const std::string& reason) {
    JXLogger::sharedInstance().logMessage_withLevel(
        std::string(operation) + " of the Firebase instance failed: " + reason, 3);
  }

  // By an invocation, which an object that forwards its messages handles too.
  void call(std::string_view operation, id first, id second) {
    const SEL selector = selectorOf(operation);
    NSMethodSignature* const signature = [object_ methodSignatureForSelector:selector];
    if (!takesTwoObjects(signature)) {
      logFailure(operation, "its parameters are not two objects");
      return;
    }
    NSInvocation* const invocation = [NSInvocation invocationWithMethodSignature:signature];
    [invocation setSelector:selector];
    [invocation setArgument:&first atIndex:2];
    [invocation setArgument:&second atIndex:3];
    [invocation invokeWithTarget:object_];
  }
  // The first two parameters of a method are the object and the selector.
  static bool takesTwoObjects(NSMethodSignature* signature) {
    return [signature numberOfArguments] == 4 && [signature getArgumentTypeAtIndex:2][0] == '@' &&
           [signature getArgumentTypeAtIndex:3][0] == '@';
  }

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
