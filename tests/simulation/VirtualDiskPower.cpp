// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>

#include "tests/simulation/VirtualDisk.h"

namespace jx::simulation {

void VirtualDisk::cutPower() {
  for (auto& [number, process] : processes_) {
    if (!process.dead) kill(number);
  }
  losePart(*root_);
}

// Leaves of a file the durable content and a beginning of the later changes, torn at any byte; of a
// folder the durable names and, in order, a beginning of the changes or any of them.
void VirtualDisk::losePart(Inode& inode) {
  if (!inode.isFolder) {
    const std::size_t kept = random_.below(inode.changes.size() + 1);
    inode.content = inode.durable;
    for (std::size_t i = 0; i < inode.changes.size() && i <= kept; ++i) {
      const Inode::Change& change = inode.changes[i];
      if (change.truncates) {
        if (i < kept) inode.content.resize(change.truncatedTo);
        continue;
      }
      const std::size_t whole = change.appended.size();
      inode.content += change.appended.substr(0, i < kept ? whole : random_.below(whole + 1));
    }
    inode.durable = inode.content;
    inode.changes.clear();
    return;
  }
  const std::vector<Inode::EntryChange> changes = std::exchange(inode.entryChanges, {});
  const bool keepsBeginning = random_.chance(50);
  const std::size_t kept = random_.below(changes.size() + 1);
  Inode::Entries entries = inode.durableEntries;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    if (keepsBeginning ? i >= kept : random_.chance(50)) continue;
    for (const auto& [name, target] : changes[i]) {
      entries.erase(name);
      if (target) entries[name] = target;
    }
  }
  for (const auto& entry : inode.entries)
    entry.second->links = 0;
  inode.entries = inode.durableEntries = entries;
  for (const auto& entry : inode.entries) {
    entry.second->links = 1;
    losePart(*entry.second);
  }
  inode.changedNs = stamp();
}

// The names of folders are durable at once: the library does not create folders repeatedly, and a
// file system that syncs a folder syncs its name.
int VirtualDisk::makeFolder(int folder, const char* name) {
  Place place;
  if (!admits(Call::MakeFolder, name) || !find(folder, name, place)) return -1;
  if (place.name.empty() || place.folder->entries.count(place.name) != 0) return fail(EEXIST);
  if (place.folder != root_ && place.folder->links == 0) return fail(ENOENT);
  const InodePtr made = newInode(true);
  made->name = place.name;
  apply(place.folder, {{place.name, made}});
  place.folder->durableEntries[place.name] = made;
  return 0;
}

void VirtualDisk::moveFolder(const std::string& from, const std::string& to) {
  Place source;
  Place target;
  if (!find(AT_FDCWD, from.c_str(), source) || !find(AT_FDCWD, to.c_str(), target)) return;
  const auto found = source.folder->entries.find(source.name);
  if (found == source.folder->entries.end() || target.folder->entries.count(target.name) != 0) {
    return;
  }
  const InodePtr moved = found->second;
  apply(source.folder, {{source.name, nullptr}});
  source.folder->durableEntries.erase(source.name);
  apply(target.folder, {{target.name, moved}});
  target.folder->durableEntries[target.name] = moved;
}

void VirtualDisk::deleteFolder(const std::string& path) {
  Place place;
  const InodePtr folder = at(path);
  if (!folder || !find(AT_FDCWD, path.c_str(), place)) return;
  removeAll(folder);
  apply(place.folder, {{place.name, nullptr}});
  place.folder->durableEntries.erase(place.name);
}

void VirtualDisk::removeAll(const InodePtr& folder) {
  for (const auto& entry : folder->entries) {
    if (entry.second->isFolder) removeAll(entry.second);
    entry.second->links = 0;
  }
  folder->entries.clear();
  folder->durableEntries.clear();
  folder->entryChanges.clear();
  folder->changedNs = stamp();
}

}  // namespace jx::simulation
