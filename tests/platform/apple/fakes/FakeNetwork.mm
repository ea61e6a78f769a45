// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <Block.h>
#import <Network/Network.h>

#include <algorithm>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "tests/platform/apple/fakes/Fakes.h"

struct jx_fake_queue {};

struct jx_fake_path {
  jx::test::FakePath path;
};

struct jx_fake_monitor {
  nw_path_monitor_update_handler_t handler = nullptr;
};

namespace {

std::mutex mutex;
std::optional<jx::test::FakePath> current;
std::vector<jx_fake_monitor*> running;

// The system calls handlers on a queue, not on the thread of the caller.
void notify(const std::vector<jx_fake_monitor*>& monitors, const jx::test::FakePath& path) {
  std::thread([&] {
    jx_fake_path fakePath{path};
    for (const jx_fake_monitor* monitor : monitors)
      monitor->handler(&fakePath);
  }).join();
}

}  // namespace

dispatch_queue_t dispatch_queue_create(const char*, const void*) { return new jx_fake_queue; }

void dispatch_release(dispatch_queue_t queue) { delete queue; }

nw_path_monitor_t nw_path_monitor_create() { return new jx_fake_monitor; }

void nw_path_monitor_set_queue(nw_path_monitor_t, dispatch_queue_t) {}

void nw_path_monitor_set_update_handler(nw_path_monitor_t monitor,
                                        nw_path_monitor_update_handler_t handler) {
  monitor->handler = Block_copy(handler);
}

void nw_path_monitor_start(nw_path_monitor_t monitor) {
  std::optional<jx::test::FakePath> path;
  {
    const std::lock_guard<std::mutex> lock(mutex);
    running.push_back(monitor);
    path = current;
  }
  if (path) notify({monitor}, *path);
}

void nw_path_monitor_cancel(nw_path_monitor_t monitor) {
  const std::lock_guard<std::mutex> lock(mutex);
  running.erase(std::remove(running.begin(), running.end(), monitor), running.end());
}

void nw_release(void* object) {
  const auto* const monitor = static_cast<jx_fake_monitor*>(object);
  Block_release(monitor->handler);
  delete monitor;
}

nw_path_status_t nw_path_get_status(nw_path_t path) {
  return path->path.isSatisfied ? nw_path_status_satisfied : nw_path_status_unsatisfied;
}

bool nw_path_uses_interface_type(nw_path_t path, nw_interface_type_t type) {
  return path->path.interfaceType == type;
}

namespace jx::test {

void setFakePath(const FakePath& path) {
  std::vector<jx_fake_monitor*> monitors;
  {
    const std::lock_guard<std::mutex> lock(mutex);
    current = path;
    monitors = running;
  }
  notify(monitors, path);
}

void resetFakePath() {
  const std::lock_guard<std::mutex> lock(mutex);
  current.reset();
}

int runningFakeMonitors() {
  const std::lock_guard<std::mutex> lock(mutex);
  return static_cast<int>(running.size());
}

}  // namespace jx::test
