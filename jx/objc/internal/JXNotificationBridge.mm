// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/internal/JXNotificationBridge.h"

#include <list>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXLogger.h"
#import "jx/objc/JXNames.h"
#import "jx/objc/internal/JXConversion.h"
#import "jx/objc/internal/JXOwnership.h"
#import "jx/objc/internal/JXRelayedNotification.h"

static constexpr char kUserInfo[] = "NSNotification.userInfo";

namespace jx::objc {
namespace {

// A notification that this thread is passing on, in both of its forms. It is the innermost one: an
// observer may post another notification.
struct Passage {
  Passage(const JXNotification& coreForm, NSNotification* foundationForm, bool posted)
      : core(&coreForm), foundation(foundationForm), isPosted(posted) {
    current = this;
  }
  ~Passage() { current = outer; }
  Passage(const Passage&) = delete;
  Passage& operator=(const Passage&) = delete;

  static bool isOf(NSNotification* notification) {
    return current != nullptr &&
           (current->foundation == notification || [current->foundation isEqual:notification]);
  }
  static bool isOf(const JXNotification& notification) {
    return current != nullptr && current->core == &notification;
  }

  static thread_local Passage* current;
  const JXNotification* const core;
  __unsafe_unretained NSNotification* const foundation;
  const bool isPosted;  // on the NSNotificationCenter
  Passage* const outer = current;
};

thread_local Passage* Passage::current = nullptr;

// Pairs of an object of the library and of Objective-C.
class KnownObjects {
 public:
  static KnownObjects& sharedInstance() {
    static auto* const instance = new KnownObjects();
    return *instance;
  }
  void add(id object, const void* core) {
    const std::lock_guard<std::mutex> lock(mutex_);
    known_.push_back({object, (__bridge void*)object, core});
  }
  void remove(id object) {
    const std::lock_guard<std::mutex> lock(mutex_);
    known_.remove_if([&](const Known& known) { return known.pointer == (__bridge void*)object; });
  }
  id objectOf(const void* core) {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const Known& known : known_) {
      if (known.core == core) return JX_AUTORELEASE(JX_RETAIN(known.object));
    }
    return nil;
  }
  const void* coreOf(id object) {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const Known& known : known_) {
      if (known.pointer == (__bridge void*)object) return known.core;
    }
    return (__bridge void*)object;
  }

 private:
  struct Known {
    JX_WEAK id object;
    void* pointer;
    const void* core;
  };

  std::mutex mutex_;
  std::list<Known> known_;
};

}  // namespace
}  // namespace jx::objc

/// Observes an NSNotificationCenter for the library.
@interface JXNotificationRelay : NSObject {
 @public
  jx::JXNotificationCenter* _core;  // never destroyed
}
- (void)jx_passOn:(NSNotification*)notification;
@end

@implementation JXNotificationRelay
- (void)jx_passOn:(NSNotification*)notification {
  if (jx::objc::Passage::isOf(notification)) return;
  jx::objc::postInCore(notification, [&](const jx::JXNotification& core) {
    // It is already posted on the center that this object observes.
    const jx::objc::Passage posted(core, notification, true);
    _core->postNotification(core);
  });
}
@end

namespace jx::objc {
namespace {

struct Connection {
  NSNotificationCenter* foundation;
  std::shared_ptr<JXNotificationCenter> core;
  JXNotificationRelay* relay;
};

// The platform passes the system's notifications to the library, which posts them on its own
// center.
bool isOfTheSystem(const JXString& name) {
  return name == UIApplicationDidEnterBackgroundNotification ||
         name == UIApplicationWillEnterForegroundNotification;
}

void postInFoundation(NSNotificationCenter* center, const JXNotification& notification) {
  if (isOfTheSystem(notification.name)) return;
  if (Passage::isOf(notification) && Passage::current->isPosted) return;
  @autoreleasepool {
    NSNotification* const converted = foundationOf(notification);
    const Passage passage(notification, converted, true);
    @try {
      [center postNotification:converted];
    } @catch (id thrown) {
      logObserverException([converted name], thrown);
    }
  }
}

class Connections {
 public:
  static Connections& sharedInstance() {
    static auto* const instance = new Connections();
    return *instance;
  }

  std::shared_ptr<JXNotificationCenter> of(NSNotificationCenter* center) {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (const Connection& connection : connections_) {
      if (connection.foundation == center) return connection.core;
    }
    const bool isDefault = center == [NSNotificationCenter defaultCenter];
    Connection connection{JX_RETAIN(center),
                          isDefault ? JXNotificationCenter::defaultCenter()
                                    : std::make_shared<JXNotificationCenter>(),
                          [[JXNotificationRelay alloc] init]};
    connection.relay->_core = connection.core.get();
    for (NSString* name in names_)
      observe(connection, name);
    connection.core->addObserver(this, JXString(), [center](const JXNotification& notification) {
      postInFoundation(center, notification);
    });
    connections_.push_back(connection);
    return connections_.back().core;
  }

  void add(NSString* name) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if ([names_ containsObject:name]) return;
    [names_ addObject:name];
    for (const Connection& connection : connections_)
      observe(connection, name);
  }

 private:
  Connections()
      : names_([[NSMutableSet alloc]
            initWithObjects: ::kJXNotification_HTTPRequest, ::kJXNotification_EnablingTheServerSide,
                             ::kJXNotification_StoppingTheServerSide,
                             ::kJXNotification_OnBackground, ::kJXNotification_OnForeground,
                             ::kJXNotification_UserAgentAvailable, nil]) {}

  static void observe(const Connection& connection, NSString* name) {
    [connection.foundation addObserver:connection.relay
                              selector:@selector(jx_passOn:)
                                  name:name
                                object:nil];
  }

  std::mutex mutex_;
  std::vector<Connection> connections_;
  NSMutableSet* const names_;
};

}  // namespace

std::shared_ptr<JXNotificationCenter> coreCenter(NSNotificationCenter* center) {
  @autoreleasepool {
    const bool isCenter = isOf([NSNotificationCenter class], center, "notification center");
    return Connections::sharedInstance().of(isCenter ? center
                                                     : [NSNotificationCenter defaultCenter]);
  }
}

void passOn(NSString* name) {
  if (isOfTheSystem(toString(name, "notification name"))) return;
  NSString* const copied = [name copy];
  Connections::sharedInstance().add(copied);
  JX_RELEASE(copied);
}

void postInCore(NSNotification* notification,
                const std::function<void(const JXNotification&)>& post) {
  @autoreleasepool {
    JXNotification core;
    core.name = toString([notification name], "NSNotification.name");
    core.object = KnownObjects::sharedInstance().coreOf([notification object]);
    core.userInfo = toJsonObject([notification userInfo], kUserInfo);
    const Passage passage(core, notification, false);
    post(core);
  }
}

NSNotification* foundationOf(const JXNotification& notification) {
  if (Passage::isOf(notification)) return Passage::current->foundation;
  return [JXRelayedNotification
      jx_notificationOf:notification
                 object:KnownObjects::sharedInstance().objectOf(notification.object)];
}

void addObject(id object, const void* core) { KnownObjects::sharedInstance().add(object, core); }

void removeObject(id object) { KnownObjects::sharedInstance().remove(object); }

void logObserverException(NSString* name, id thrown) {
  JXLogger::sharedInstance().logMessage_withLevel(
      "Observer of \"" + toString(name, "NSNotification.name").toStdString() +
          "\" threw an exception: " + reasonOf(thrown) + "; ignored",
      3);
}

}  // namespace jx::objc
