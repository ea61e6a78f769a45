// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/simulation/VirtualDisk.h"

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace jx::simulation {

int VirtualDisk::addProcess() {
  const int process = static_cast<int>(processes_.size()) + 1;
  processes_[process] = {};
  current_ = process;
  return process;
}

int VirtualDisk::enter(int process) { return std::exchange(current_, process); }

void VirtualDisk::kill(int process) {
  Process& killed = processes_.at(process);
  killed.dead = true;
  for (const int descriptor : killed.descriptors)
    release(descriptor);
  killed.descriptors.clear();
}

void VirtualDisk::killAt(int process, long call, bool isPowerCut) {
  Process& target = processes_.at(process);
  target.killIn = call;
  target.cutsPower = isPowerCut;
}

// Returns false, with errno set, if the call must have no effect.
bool VirtualDisk::admits(Call call, const std::string& what) {
  if (hook_ && !isInHook_ && isAlive(current_)) {
    isInHook_ = true;
    hook_();
    isInHook_ = false;
  }
  Process& process = processes_.at(current_);
  if (!process.dead && process.killIn > 0 && --process.killIn == 0) {
    if (process.cutsPower) {
      cutPower();
      wasCut_ = true;
    } else {
      kill(current_);
    }
  }
  if (process.dead) return fail(EIO) == 0;
  if (isTracing_) {
    static constexpr const char* kNames[] = {"open", "read",   "write",  "truncate",   "sync",
                                             "sync", "rename", "unlink", "makeFolder", "status",
                                             "lock", "list",   "map"};
    std::printf("               process %d: %s %s\n", current_, kNames[static_cast<int>(call)],
                what.c_str());
  }
  if (!failsNow(call)) return true;
  if (isTracing_) std::printf("               fails: %s\n", std::strerror(errno));
  ++failures_;
  return false;
}

std::string VirtualDisk::nameOf(int descriptor) const {
  const auto found = descriptors_.find(descriptor);
  return found == descriptors_.end() ? "?" : found->second->name;
}

bool VirtualDisk::failsNow(Call call) {
  const bool isSync = call == Call::Sync || call == Call::SyncFolder;
  const bool changes = isSync || call == Call::Write || call == Call::Truncate ||
                       call == Call::Rename || call == Call::Unlink || call == Call::MakeFolder;
  switch (fault_) {
    case Fault::SyncFails:
      return isSync && fail(EIO) != 0;
    case Fault::ReadOnly:
      return changes && !isSync && fail(EROFS) != 0;
    case Fault::Flaky:
      return (changes || call == Call::Open) && random_.chance(30) && fail(EIO) != 0;
    case Fault::Full:
      return call == Call::MakeFolder && fail(ENOSPC) != 0;
    case Fault::None:
      break;
  }
  return false;
}

int VirtualDisk::fail(int error) {
  errno = error;
  return -1;
}

InodePtr VirtualDisk::newInode(bool isFolder) {
  auto inode = std::make_shared<Inode>();
  inode->numbers = numbers_;
  if (numbers_->empty()) numbers_->insert(++highestNumber_);
  inode->number = *numbers_->begin();
  numbers_->erase(numbers_->begin());
  inode->isFolder = isFolder;
  inode->changedNs = stamp();
  return inode;
}

// Two changes never have the same time, so that every one of them can be noticed.
std::int64_t VirtualDisk::stamp() { return clock_.nowMs() * 1'000'000 + ++stamps_ % 1'000'000; }

InodePtr VirtualDisk::inodeOf(int descriptor) {
  const auto found = descriptors_.find(descriptor);
  if (found == descriptors_.end()) {
    errno = EBADF;
    return nullptr;
  }
  return found->second;
}

// Finds the folder of a name. Returns false, with errno set, if there is none.
bool VirtualDisk::find(int folder, const char* name, Place& place) {
  place.folder = folder == AT_FDCWD ? root_ : inodeOf(folder);
  if (!place.folder) return false;
  place.name.clear();
  for (const char* at = name; *at != '\0';) {
    const std::string rest(at);
    const std::size_t slash = rest.find('/');
    const std::string part = rest.substr(0, slash);
    at += slash == std::string::npos ? rest.size() : slash + 1;
    if (part.empty() || part == ".") continue;
    if (!place.name.empty()) {
      const auto next = place.folder->entries.find(place.name);
      if (next == place.folder->entries.end()) return fail(ENOENT) == 0;
      place.folder = next->second;
    }
    if (!place.folder->isFolder) return fail(ENOTDIR) == 0;
    place.name = part;
  }
  return true;
}

InodePtr VirtualDisk::at(const std::string& path) {
  Place place;
  if (!find(AT_FDCWD, path.c_str(), place)) return nullptr;
  if (place.name.empty()) return place.folder;
  const auto found = place.folder->entries.find(place.name);
  return found == place.folder->entries.end() ? nullptr : found->second;
}

void VirtualDisk::apply(const InodePtr& folder, const Inode::EntryChange& change) {
  for (const auto& [name, inode] : change) {
    const auto old = folder->entries.find(name);
    if (old != folder->entries.end()) {
      --old->second->links;
      folder->entries.erase(old);
    }
    if (!inode) continue;
    ++inode->links;
    folder->entries[name] = inode;
  }
  folder->changedNs = stamp();
}

void VirtualDisk::change(const InodePtr& folder, const Inode::EntryChange& change) {
  apply(folder, change);
  folder->entryChanges.push_back(change);
}

void VirtualDisk::append(Inode& file, std::string bytes) {
  file.content += bytes;
  file.changedNs = stamp();
  file.changes.push_back({std::move(bytes), 0, false});
}

void VirtualDisk::release(int descriptor) {
  const auto found = descriptors_.find(descriptor);
  if (found == descriptors_.end()) return;
  if (found->second->exclusive == descriptor) found->second->exclusive = -1;
  found->second->shared.erase(descriptor);
  for (auto byte = found->second->bytes.begin(); byte != found->second->bytes.end();)
    byte = byte->second == descriptor ? found->second->bytes.erase(byte) : std::next(byte);
  descriptors_.erase(found);
}

void VirtualDisk::visitFiles(const std::string& folder, const Visit& visit) {
  if (const InodePtr inode = at(folder)) visitFolder(folder, *inode, visit);
}

void VirtualDisk::visitFolder(const std::string& path, Inode& folder, const Visit& visit) {
  for (const auto& [name, inode] : folder.entries) {
    if (inode->isFolder) {
      visitFolder(path + "/" + name, *inode, visit);
    } else {
      visit(path + "/" + name, inode->content);
    }
  }
}

}  // namespace jx::simulation
