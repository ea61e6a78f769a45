// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "jx/core/storage/JXFile.h"
#include "tests/simulation/VirtualDisk.h"

namespace jx::simulation {
namespace {

VirtualDisk* disk = nullptr;

JXFileCalls virtualCalls() {
  JXFileCalls calls{};
  calls.open = [](int folder, const char* name, int flags, mode_t) {
    return disk->open(folder, name, flags);
  };
  calls.close = [](int file) { return disk->close(file); };
  calls.read = [](int file, void* into, std::size_t size, off_t offset) {
    return disk->read(file, into, size, offset);
  };
  calls.write = [](int file, const iovec* parts, int count) {
    return disk->write(file, parts, count);
  };
  calls.truncate = [](int file, off_t size) { return disk->truncate(file, size); };
  calls.synchronize = [](int file) { return disk->synchronize(file); };
  calls.synchronizeFolder = [](int file) { return disk->synchronizeFolder(file); };
  calls.rename = [](int fromFolder, const char* from, int toFolder, const char* to) {
    return disk->rename(fromFolder, from, toFolder, to);
  };
  calls.unlink = [](int folder, const char* name) { return disk->unlink(folder, name); };
  calls.makeFolder = [](int folder, const char* name, mode_t) {
    return disk->makeFolder(folder, name);
  };
  calls.status = [](int folder, const char* name, struct stat* status) {
    return disk->status(folder, name, status);
  };
  calls.statusOf = [](int file, struct stat* status) { return disk->statusOf(file, status); };
  calls.lock = [](int file, int operation) { return disk->lock(file, operation); };
  calls.lockByte = [](int file, off_t offset, short type) {
    return disk->lockByte(file, offset, type);
  };
  calls.list = [](int folder, std::vector<std::string>& names) {
    return disk->list(folder, names);
  };
  calls.map = [](int file, std::size_t size) { return disk->map(file, size); };
  calls.unmap = [](void* address, std::size_t) { std::free(address); };
  return calls;
}

}  // namespace

VirtualDisk::VirtualDisk(Random& random, VirtualClock& clock) : random_(random), clock_(clock) {
  root_ = newInode(true);
  disk = this;
  JXFileCalls::current() = virtualCalls();
}

VirtualDisk::~VirtualDisk() {
  JXFileCalls::current() = JXFileCalls::system();
  disk = nullptr;
}

int VirtualDisk::open(int folder, const char* name, int flags) {
  Place place;
  if (!admits(Call::Open, name) || !find(folder, name, place)) return -1;
  InodePtr inode = place.folder;
  if (!place.name.empty()) {
    const auto found = place.folder->entries.find(place.name);
    inode = found == place.folder->entries.end() ? nullptr : found->second;
  }
  const bool writes = (flags & O_ACCMODE) != O_RDONLY;
  if (inode && (flags & O_EXCL) != 0) return fail(EEXIST);
  if (inode && inode->isFolder && writes) return fail(EISDIR);
  if (inode && !inode->isFolder && (flags & O_DIRECTORY) != 0) return fail(ENOTDIR);
  if (!inode && (flags & O_CREAT) == 0) return fail(ENOENT);
  const bool truncates = inode && (flags & O_TRUNC) != 0;
  if (fault_ == Fault::ReadOnly && writes) return ++failures_, fail(EROFS);
  if (!inode) {
    if (fault_ == Fault::Full) return ++failures_, fail(ENOSPC);
    if (place.folder != root_ && place.folder->links == 0) return fail(ENOENT);
    inode = newInode(false);
    inode->name = place.name;
    change(place.folder, {{place.name, inode}});
  }
  if (truncates) {
    inode->content.clear();
    inode->changes.push_back({"", 0, true});
    inode->changedNs = stamp();
  }
  const int descriptor = nextDescriptor_++;
  descriptors_[descriptor] = inode;
  Process& process = processes_.at(current_);
  process.descriptors.insert(descriptor);
  process.most = std::max(process.most, process.descriptors.size());
  if (isTracing_ && process.descriptors.size() > 7) {
    std::printf("               process %d: %zu descriptors:", current_,
                process.descriptors.size());
    for (const int each : process.descriptors)
      std::printf(" %s", nameOf(each).c_str());
    std::printf("\n");
  }
  return descriptor;
}

// Not counted as a call: nothing that others can observe depends on when it happens.
int VirtualDisk::close(int descriptor) {
  if (!isAlive(current_)) return fail(EIO);
  if (!inodeOf(descriptor)) return -1;
  processes_.at(current_).descriptors.erase(descriptor);
  release(descriptor);
  return 0;
}

ssize_t VirtualDisk::read(int descriptor, void* into, std::size_t size, off_t offset) {
  if (!admits(Call::Read, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  if (inode->isFolder) return fail(EISDIR);
  const std::size_t at = std::min(static_cast<std::size_t>(offset), inode->content.size());
  const std::size_t got = std::min(size, inode->content.size() - at);
  std::memcpy(into, inode->content.data() + at, got);
  return static_cast<ssize_t>(got);
}

ssize_t VirtualDisk::write(int descriptor, const iovec* parts, int count) {
  if (!admits(Call::Write, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  std::string bytes;
  for (int i = 0; i < count; ++i)
    bytes.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
  if (fault_ == Fault::Full) {
    ++failures_;
    bytes.resize(random_.chance(50) ? 0 : random_.below(bytes.size() + 1));
    if (bytes.empty()) return fail(ENOSPC);
  }
  const std::size_t size = bytes.size();
  append(*inode, std::move(bytes));
  return static_cast<ssize_t>(size);
}

int VirtualDisk::truncate(int descriptor, off_t size) {
  if (!admits(Call::Truncate, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  inode->content.resize(static_cast<std::size_t>(size));
  inode->changes.push_back({"", static_cast<std::size_t>(size), true});
  inode->changedNs = stamp();
  return 0;
}

int VirtualDisk::synchronize(int descriptor) {
  if (!admits(Call::Sync, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  inode->durable = inode->content;
  inode->changes.clear();
  return 0;
}

int VirtualDisk::synchronizeFolder(int descriptor) {
  if (!admits(Call::SyncFolder, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  inode->durableEntries = inode->entries;
  inode->entryChanges.clear();
  return 0;
}

int VirtualDisk::rename(int fromFolder, const char* from, int toFolder, const char* to) {
  Place source;
  Place target;
  if (!admits(Call::Rename, std::string(from) + " " + to) || !find(fromFolder, from, source) ||
      !find(toFolder, to, target)) {
    return -1;
  }
  const auto found = source.folder->entries.find(source.name);
  if (found == source.folder->entries.end()) return fail(ENOENT);
  if (target.folder != root_ && target.folder->links == 0) return fail(ENOENT);
  const InodePtr moved = found->second;
  if (source.folder == target.folder) {
    change(source.folder, {{source.name, nullptr}, {target.name, moved}});
  } else {
    change(source.folder, {{source.name, nullptr}});
    change(target.folder, {{target.name, moved}});
  }
  return 0;
}

int VirtualDisk::unlink(int folder, const char* name) {
  Place place;
  if (!admits(Call::Unlink, name) || !find(folder, name, place)) return -1;
  const auto found = place.folder->entries.find(place.name);
  if (found == place.folder->entries.end()) return fail(ENOENT);
  if (found->second->isFolder) return fail(EISDIR);
  change(place.folder, {{place.name, nullptr}});
  return 0;
}

void VirtualDisk::fill(const Inode& inode, struct stat* status) const {
  *status = {};
  status->st_dev = 1;
  status->st_ino = inode.number;
  status->st_mode = inode.isFolder ? S_IFDIR | 0700 : S_IFREG | 0600;
  status->st_nlink = static_cast<nlink_t>(inode.links * (inode.isFolder ? 2 : 1));
  if (&inode == root_.get()) status->st_nlink = 2;
  static const uid_t kUser = ::geteuid();
  static const gid_t kGroup = ::getegid();
  status->st_uid = kUser;
  status->st_gid = kGroup;
  status->st_size = static_cast<off_t>(inode.content.size());
  status->st_mtim.tv_sec = inode.changedNs / 1'000'000'000;
  status->st_mtim.tv_nsec = inode.changedNs % 1'000'000'000;
}

int VirtualDisk::status(int folder, const char* name, struct stat* status) {
  Place place;
  if (!admits(Call::Status, name) || !find(folder, name, place)) return -1;
  const auto found = place.folder->entries.find(place.name);
  const bool isFolderItself = place.name.empty();
  if (!isFolderItself && found == place.folder->entries.end()) return fail(ENOENT);
  fill(isFolderItself ? *place.folder : *found->second, status);
  return 0;
}

int VirtualDisk::statusOf(int descriptor, struct stat* status) {
  if (!admits(Call::Status, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  fill(*inode, status);
  return 0;
}

int VirtualDisk::lock(int descriptor, int operation) {
  if (!admits(Call::Lock, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  if (inode->exclusive == descriptor) inode->exclusive = -1;
  inode->shared.erase(descriptor);
  if ((operation & LOCK_UN) != 0) return 0;
  const bool isExclusive = (operation & LOCK_EX) != 0;
  if (inode->exclusive >= 0 || (isExclusive && !inode->shared.empty())) return fail(EWOULDBLOCK);
  if (isExclusive) {
    inode->exclusive = descriptor;
  } else {
    inode->shared.insert(descriptor);
  }
  return 0;
}

int VirtualDisk::lockByte(int descriptor, off_t offset, short type) {
  if (!admits(Call::Lock, nameOf(descriptor))) return -1;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return -1;
  const auto owner = inode->bytes.find(offset);
  if (owner != inode->bytes.end() && owner->second != descriptor) {
    return type == F_UNLCK ? 0 : fail(EAGAIN);
  }
  if (type == F_UNLCK) {
    inode->bytes.erase(offset);
  } else {
    inode->bytes[offset] = descriptor;
  }
  return 0;
}

int VirtualDisk::list(int folder, std::vector<std::string>& names) {
  if (!admits(Call::List, nameOf(folder))) return -1;
  const InodePtr inode = inodeOf(folder);
  if (!inode) return -1;
  if (!inode->isFolder) return fail(ENOTDIR);
  for (const auto& entry : inode->entries)
    names.push_back(entry.first);
  return 0;
}

void* VirtualDisk::map(int descriptor, std::size_t size) {
  if (!admits(Call::Map, nameOf(descriptor))) return nullptr;
  const InodePtr inode = inodeOf(descriptor);
  if (!inode) return nullptr;
  void* const copy = std::calloc(1, std::max<std::size_t>(size, 1));
  if (copy != nullptr) {
    std::memcpy(copy, inode->content.data(), std::min(size, inode->content.size()));
  }
  return copy;
}

}  // namespace jx::simulation
