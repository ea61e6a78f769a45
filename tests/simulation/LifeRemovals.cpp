// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "jx/core/storage/JXFrame.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "tests/simulation/Life.h"

namespace jx::simulation {

void Life::erase() {
  VirtualProcess* const process = anyProcess();
  if (process == nullptr) return;
  world_.eraseIsPending = !process->erase();
  workAll();
  bury();
  if (!world_.eraseIsPending && world_.disk.fault() == VirtualDisk::Fault::None) {
    checkErased("after the erase");
  }
}

void Life::purge() {
  if (VirtualProcess* const process = anyProcess()) process->purge();
}

// As a developer does it, with a program of its own.
void Life::purgeOutside() {
  world_.say("the queue is purged from outside");
  const int before = world_.disk.current();
  const int number = world_.disk.addProcess();
  const long failures = world_.disk.failures();
  world_.ledger.nextOperation();
  world_.ledger.removing();
  std::string error;
  purgeOutbox(world_.folder + "/outbox", error);
  const bool isCertain = world_.disk.isAlive(number) && failures == world_.disk.failures();
  if (world_.disk.isAlive(number)) world_.disk.kill(number);
  world_.disk.enter(before);
  if (isCertain && !error.empty()) world_.say("purge failed: %s", error.c_str());
  if (isCertain && error.empty()) {
    world_.ledger.removed(false);
  } else {
    world_.ledger.removedMeanwhile();
  }
}

// Flips a bit of a file with requests or values, and notes which events that may affect.
void Life::damage() {
  std::vector<std::pair<std::string, std::string*>> files;
  world_.disk.visitFiles(world_.folder, [&](const std::string& path, std::string& content) {
    const std::string name = path.substr(path.rfind('/') + 1);
    const bool holdsData =
        name.compare(0, 8, "segment-") == 0 || name == "dead" || name == "defaults";
    if (holdsData && !content.empty() && name.find(".purge") == std::string::npos) {
      files.emplace_back(path, &content);
    }
  });
  if (files.empty()) return;
  auto& [path, content] = files[world_.random.below(files.size())];
  const std::size_t place = world_.random.below(content->size());
  world_.say("bit %zu of %s flips", place, path.c_str());
  world_.ledger.hadDamage = true;
  world_.ledger.purgesAreUncertain();
  for (Event& event : world_.ledger.events()) {
    if (event.body.empty()) continue;
    event.mayRepeat = true;
    const std::size_t before = kJXFrameHeaderSize + kJXDeadLetterHeadSize + event.url.size();
    for (std::size_t at = content->find(event.body); at != std::string::npos;
         at = content->find(event.body, at + 1)) {
      const std::size_t begin = at - std::min(at, before);
      if (place >= begin && place < at + event.body.size()) event.mayBeLost = true;
    }
  }
  (*content)[place] = static_cast<char>((*content)[place] ^ (1 << world_.random.below(8)));
}

// tvOS, for example, empties the folder of caches. A user may move it.
void Life::deleteFolder() {
  const std::string folder = world_.random.chance(50) ? world_.folder + "/outbox" : world_.folder;
  const bool isMoved = world_.random.chance(40);
  world_.say("%s is %s", folder.c_str(), isMoved ? "moved" : "deleted");
  if (isMoved) {
    world_.disk.moveFolder(folder, "/tv/moved-" + std::to_string(++moved_));
  } else {
    world_.disk.deleteFolder(folder);
  }
  world_.ledger.mayLoseFiles = true;
  world_.ledger.folderLost(world_.clock->steadyMs());
}

}  // namespace jx::simulation
