// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreServices.h"

#include <atomic>
#include <string>
#include <utility>

#include "jx/core/JXApplication.h"
#include "jx/core/JXCollectionEndpoint.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXPathWatch.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/core/transfer/JXPublicKeyPin.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

std::atomic<const char*> startingOperation{nullptr};
thread_local const char* currentOperation = nullptr;

constexpr const char* kOutbox = "outbox";  // folder in the storage folder

JXString storageFolderOf(const JXCoreConfiguration& configuration, JXPlatform& platform) {
  const JXString folder = configuration.storageFolder.testString()
                              ? configuration.storageFolder
                              : platform.defaultStorageFolder();
  // The application may change its current folder later.
  return folder.testString() ? JXString(absolutePath(folder.toStdString())) : folder;
}

std::shared_ptr<JXPlatform> platformOf(const JXCoreConfiguration& configuration) {
  if (configuration.platform) return configuration.platform;
  return makeSystemPlatform(configuration.bundle, configuration.screen, configuration.userAgent);
}

// Stores the user agent before it posts the notification, so that observers can read it.
void announceUserAgent(const JXString& userAgent) {
  if (!userAgent.isPresent()) return;
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_UserAgent, userAgent);
  JXJsonObject userInfo;
  userInfo.set(kJXUserInfo_DataKey, userAgent);
  JXNotificationCenter::defaultCenter()->postNotification(
      {kJXNotification_UserAgentAvailable, nullptr, userInfo});
}

}  // namespace

JXCoreCaller::JXCoreCaller(const char* operation) noexcept
    : isOutermost_(currentOperation == nullptr) {
  if (isOutermost_) currentOperation = operation;
}

JXCoreCaller::~JXCoreCaller() {
  if (isOutermost_) currentOperation = nullptr;
}

JXCoreServices& JXCoreServices::sharedInstance() {
  static JXOnce<JXCoreServices> once;
  return once.get([] {
    JXForkedChild::watch();
    startingOperation = currentOperation != nullptr ? currentOperation : "an operation of the SDK";
    return new JXCoreServices(JXCoreConfiguration::current());
  });
}

const char* JXCoreServices::startedBy() { return startingOperation; }

JXCoreServices::JXCoreServices(const JXCoreConfiguration& configuration)
    : configuration_(configuration) {
  JXLogger& logger = JXLogger::sharedInstance();
  clock_ = configuration.clock ? configuration.clock : std::make_shared<JXSystemClock>();
  platform_ = platformOf(configuration);

  const JXCollectionEndpoint endpoint =
      JXCollectionEndpoint::from(configuration.collectionHost, JX_COLLECTION_HOST);
  collectionEndpoint_ = endpoint.url;
  if (endpoint.message.isPresent()) {
    logger.logMessage_withLevel(endpoint.message.view(), endpoint.messageLevel);
  }

  storageFolder_ = storageFolderOf(configuration, *platform_);
  // Before anything is read: it finishes an interrupted erase.
  erasures_ = std::make_shared<JXErasures>(
      storageFolder_.testString() ? storageFolder_.toStdString() : std::string(),
      platform_->userDefaults());
  if (storageFolder_.testString()) {
    watch_ = std::make_shared<JXPathWatch>(storageFolder_.toStdString(), kOutbox);
  }
  if (!configuration.dryRun) openOutbox();
  if (!configuration.storesOnlyWithConsent) openDefaults();
  if (!storageFolder_.testString() && !configuration.dryRun) {
    logger.logMessage_withLevel("No storage folder available; events are kept in memory only", 3);
  }
}

void JXCoreServices::openOutbox() {
  const std::string currentEndpoint =
      configuration_.sendsQueueToCurrentHost ? collectionEndpoint_.toStdString() : std::string();
  outbox_ = std::make_shared<JXOutbox>(
      storageFolder_.testString() ? storageFolder_.toStdString() : std::string(),
      configuration_.outboxBounds, clock_, erasures_, false, currentEndpoint,
      storageFolder_.testString() ? kOutbox : "", watch_);
}

void JXCoreServices::openDefaults() {
  JXPlatformDefaults* defaults = platform_->userDefaults();
  if (defaults == nullptr && storageFolder_.testString()) {
    defaultsFile_ = new JXDefaultsFile(concat({storageFolder_.view(), "/defaults"}), erasures_);
    defaults = defaultsFile_;
  }
  // Before a value is read: a killed process may have stored some with its last events.
  if (outbox_) outbox_->beginStoring(defaultsFile_);
  userDefaults_ = defaults;
  mayStore_ = true;
}

// Called for each consent; only the first one has an effect.
void JXCoreServices::beginStoring() {
  if (mayStore() || JXForkedChild::isCurrent()) return;
  std::call_once(storing_, [this] {
    openDefaults();
    if (stopMarks_) stopMarks_->beginStoring();
    beganLater_ = true;
  });
  userDefaultsChanged();
}

std::uint64_t JXCoreServices::beginnings() const {
  return erasures_->count() + (beganLater_ ? 1 : 0);
}

std::vector<std::string> JXCoreServices::eraseStoredData() {
  if (hasStarted()) return sharedInstance().erase();
  const JXCoreConfiguration configuration = JXCoreConfiguration::current();
  const std::shared_ptr<JXPlatform> platform = platformOf(configuration);
  const JXString folder = storageFolderOf(configuration, *platform);
  return JXErasures(folder.testString() ? folder.toStdString() : std::string(),
                    platform->userDefaults())
      .erase();
}

std::vector<std::string> JXCoreServices::erase() {
  std::vector<std::string> left = erasures_->begin();
  if (JXDefaultsFile* const file = defaultsFile_) file->applyErasures();
  // Also if the transfer has not started yet.
  if (outbox_) outbox_->applyErasures();
  JXNetworkManager::sharedInstance().applyErasures();
  erasures_->complete(left);
  return left;
}

void JXCoreServices::userDefaultsChanged() {
  // Requested once until it has run, because every event changes some values.
  if (JXForkedChild::isCurrent()) return;
  if (defaultsFile_ != nullptr && !maintenanceIsDue_.exchange(true)) {
    JXNetworkManager::sharedInstance().storageChanged();
  }
}

void JXCoreServices::start() {
  if (JXForkedChild::ignores("JXCoreInitialisation::init()")) return;
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  {
    // Log sinks and observers of the user agent run after the start, because they may create a
    // ServerSide, which starts the core.
    const JXLogDeferral deferral;
    std::call_once(started_, [&] {
      platform_->observeApplication(&JXApplication::applicationDidEnterBackground,
                                    &JXApplication::applicationWillEnterForeground);
      if (configuration_.dryRun) {
        manager.startDryRun(userAgentRequest(), [this] { beginStoring(); });
      } else {
        startTransfer();
      }
    });
  }
  manager.requestAwaitedUserAgent();
}

std::function<void(std::function<void()>)> JXCoreServices::userAgentRequest() {
  return [this](std::function<void()> known) {
    platform_->requestUserAgent([known = std::move(known)](const JXString& userAgent) {
      announceUserAgent(userAgent);
      known();
    });
  };
}

// Runs once, on the transfer thread. The outbox removes the quarantined files of its own folder.
void JXCoreServices::removeExpiredQuarantinedDefaults() {
  if (defaultsFile_ == nullptr || std::exchange(quarantineIsChecked_, true)) return;
  std::size_t deleted = 0;
  removeExpiredQuarantinedFiles(storageFolder_.toStdString(), clock_->nowMs(),
                                configuration_.outboxBounds.maxAge, deleted);
}

void JXCoreServices::startTransfer() {
  for (const std::string& pin : configuration_.pinnedPublicKeys) {
    if (isPublicKeyPin(pin)) continue;
    JXLogger::sharedInstance().logMessage_withLevel(
        concat({"Pinned key \"", pin, "\" is not a SHA-256 hash in Base64; matches no server"}), 3);
  }
  JXTransferSetup setup;
  const std::string folder =
      storageFolder_.testString() ? concat({storageFolder_.view(), "/", kOutbox}) : std::string();
  stopMarks_ = std::make_shared<JXStopMarks>(folder, mayStore());
  setup.outbox = outbox_;
  setup.stopMarks = stopMarks_;
  setup.beginStoring = [this] { beginStoring(); };
  setup.clock = clock_;
  setup.timings = configuration_.retryTimings;
  setup.caFile = configuration_.caFile;
  setup.pinnedPublicKeys = configuration_.pinnedPublicKeys;
  setup.proxy = configuration_.proxy;
  setup.onDelivery = configuration_.onDelivery;
  setup.transport = configuration_.transport;
  setup.maintain = [this] {
    // Cleared before the work, so that a change made during the work requests another run.
    maintenanceIsDue_ = false;
    if (JXDefaultsFile* const file = defaultsFile_) file->maintain();
    removeExpiredQuarantinedDefaults();
  };
  setup.beforeConnecting = [] { JXNetwork::sharedInstance().refresh(); };
  setup.requestUserAgent = userAgentRequest();
  JXNetworkManager::sharedInstance().start(std::move(setup));
  // The identifiers were created before the transfer thread existed.
  maintenanceIsDue_ = false;
  userDefaultsChanged();
}

}  // namespace jx
