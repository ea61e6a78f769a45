// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/apple/JXNetworkPath.h"

#import <Network/Network.h>

#include <condition_variable>
#include <mutex>
#include <utility>

#import "jx/platform/apple/JXOwnership.h"

namespace jx {

struct JXNetworkPath::State {
  std::mutex mutex;
  std::condition_variable changed;
  std::optional<JXNetworkKind> kind;
  bool wasAwaited = false;

  void update(JXNetworkKind newKind) {
    const std::lock_guard<std::mutex> lock(mutex);
    kind = newKind;
    changed.notify_all();
  }
};

// The system's object, null if it could not create one.
struct JXNetworkPath::Monitor {
  const nw_path_monitor_t object = nw_path_monitor_create();

  ~Monitor() {
    if (object == nullptr) return;
    nw_path_monitor_cancel(object);
    JX_RELEASE_BY(nw_release, object);
  }
};

namespace {

JXNetworkKind kindOfPath(nw_path_t path) {
  if (nw_path_get_status(path) != nw_path_status_satisfied) return JXNetworkKind::None;
  if (nw_path_uses_interface_type(path, nw_interface_type_wired)) return JXNetworkKind::Ethernet;
  if (nw_path_uses_interface_type(path, nw_interface_type_wifi)) return JXNetworkKind::Wifi;
  if (nw_path_uses_interface_type(path, nw_interface_type_cellular)) {
    return JXNetworkKind::Cellular;
  }
  // A tunnel, or the network of the computer that runs the simulator.
  return JXNetworkKind::Ethernet;
}

}  // namespace

JXNetworkPath::JXNetworkPath()
    : state_(std::make_shared<State>()), monitor_(std::make_unique<Monitor>()) {
  const nw_path_monitor_t monitor = monitor_->object;
  if (monitor == nullptr) return;
  const dispatch_queue_t queue = dispatch_queue_create("jx.network-path", DISPATCH_QUEUE_SERIAL);
  nw_path_monitor_set_queue(monitor, queue);
  JX_RELEASE_BY(dispatch_release, queue);
  const std::shared_ptr<State> state = state_;
  nw_path_monitor_set_update_handler(monitor, ^(nw_path_t path) {
    state->update(kindOfPath(path));
  });
  nw_path_monitor_start(monitor);
}

JXNetworkPath::~JXNetworkPath() = default;

std::optional<JXNetworkKind> JXNetworkPath::kind(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(state_->mutex);
  if (!state_->kind && monitor_->object != nullptr && !std::exchange(state_->wasAwaited, true)) {
    state_->changed.wait_for(lock, limit, [this] { return state_->kind.has_value(); });
  }
  return state_->kind;
}

}  // namespace jx
