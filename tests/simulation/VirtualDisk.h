// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/simulation/Random.h"
#include "tests/simulation/VirtualClock.h"
#include "tests/support/CheckInterval.h"

namespace jx::simulation {

struct Inode;
using InodePtr = std::shared_ptr<Inode>;

/// A file or a folder, now and as the disk has it. A power cut leaves the durable state and some of
/// the changes since: of a file a beginning of them, of a folder any.
struct Inode {
  /// A write at the end, or a truncation.
  struct Change {
    std::string appended;
    std::size_t truncatedTo = 0;
    bool truncates = false;
  };
  /// Names that were set or, if null, removed; all of a change or none.
  using EntryChange = std::vector<std::pair<std::string, InodePtr>>;
  using Entries = std::map<std::string, InodePtr>;

  ~Inode() { numbers->insert(number); }

  std::shared_ptr<std::set<std::uint64_t>> numbers;  ///< the free ones, which are reused
  std::uint64_t number = 0;
  bool isFolder = false;
  int links = 0;
  std::int64_t changedNs = 0;
  std::string content;
  std::string durable;
  std::vector<Change> changes;  ///< since the last sync
  Entries entries;
  Entries durableEntries;
  std::vector<EntryChange> entryChanges;
  std::string name;            ///< the one it was created with
  int exclusive = -1;          ///< the descriptor that has the lock
  std::set<int> shared;        ///< the descriptors that share it
  std::map<off_t, int> bytes;  ///< the descriptors that have locked single bytes
};

/// A disk with the processes that use it. It serves the storage's system calls, while one object
/// exists, and makes them fail: after the death of a process all of them, and during a fault some.
class VirtualDisk {
 public:
  enum class Fault { None, Full, ReadOnly, SyncFails, Flaky };
  enum class Call {
    Open,
    Read,
    Write,
    Truncate,
    Sync,
    SyncFolder,
    Rename,
    Unlink,
    MakeFolder,
    Status,
    Lock,
    List,
    Map
  };

  VirtualDisk(Random& random, VirtualClock& clock);
  ~VirtualDisk();
  VirtualDisk(const VirtualDisk&) = delete;
  VirtualDisk& operator=(const VirtualDisk&) = delete;

  /// Adds a process and returns its number, from 1. The calls until the next `enter` are its.
  int addProcess();
  /// Makes the following calls those of the process; returns the one before.
  int enter(int process);
  int current() const { return current_; }
  bool isAlive(int process) const { return !processes_.at(process).dead; }
  /// Ends a process: its locks are released, and its later calls have no effect.
  void kill(int process);
  /// Ends every process and loses what is not durable.
  void cutPower();
  /// Kills the process at its call with this number from now on; or cuts the power then.
  void killAt(int process, long call, bool isPowerCut);
  /// Whether the power was cut by `killAt` since the last call of this function.
  bool takePowerCut() { return std::exchange(wasCut_, false); }

  void setFault(Fault fault) { fault_ = fault; }
  Fault fault() const { return fault_; }
  /// The number of calls that failed because of a fault.
  long failures() const { return failures_; }
  /// Called before each call of a living process, not for calls inside of `hook`.
  void setHook(std::function<void()> hook) { hook_ = std::move(hook); }

  /// Prints each call from now on.
  void setTrace(bool isTracing) { isTracing_ = isTracing; }

  /// The most descriptors that the process had open at once, and those that it has open now.
  std::size_t mostDescriptors(int process) const { return processes_.at(process).most; }
  std::size_t descriptors(int process) const { return processes_.at(process).descriptors.size(); }

  /// Calls `visit` with the path and the content of each file below the folder.
  using Visit = std::function<void(const std::string& path, std::string& content)>;
  void visitFiles(const std::string& folder, const Visit& visit);
  /// Moves or deletes a folder with its content, as an application or a user does it.
  void moveFolder(const std::string& from, const std::string& to);
  void deleteFolder(const std::string& path);

  // The system calls.
  int open(int folder, const char* name, int flags);
  int close(int descriptor);
  ssize_t read(int descriptor, void* into, std::size_t size, off_t offset);
  ssize_t write(int descriptor, const iovec* parts, int count);
  int truncate(int descriptor, off_t size);
  int synchronize(int descriptor);
  int synchronizeFolder(int descriptor);
  int rename(int fromFolder, const char* from, int toFolder, const char* to);
  int unlink(int folder, const char* name);
  int makeFolder(int folder, const char* name);
  int status(int folder, const char* name, struct stat* status);
  int statusOf(int descriptor, struct stat* status);
  int lock(int descriptor, int operation);
  int lockByte(int descriptor, off_t offset, short type);
  int list(int folder, std::vector<std::string>& names);
  void* map(int descriptor, std::size_t size);

 private:
  struct Process {
    bool dead = false;
    long killIn = 0;  ///< 0: never
    bool cutsPower = false;
    std::set<int> descriptors;
    std::size_t most = 0;
  };
  /// A folder and the last name of a path in it.
  struct Place {
    InodePtr folder;
    std::string name;
  };

  bool admits(Call call, const std::string& what);
  std::string nameOf(int descriptor) const;
  bool failsNow(Call call);
  int fail(int error);
  InodePtr newInode(bool isFolder);
  InodePtr inodeOf(int descriptor);
  bool find(int folder, const char* name, Place& place);
  InodePtr at(const std::string& path);
  void change(const InodePtr& folder, const Inode::EntryChange& change);
  void apply(const InodePtr& folder, const Inode::EntryChange& change);
  void append(Inode& file, std::string bytes);
  void fill(const Inode& inode, struct stat* status) const;
  void release(int descriptor);
  void losePart(Inode& inode);
  void visitFolder(const std::string& path, Inode& folder, const Visit& visit);
  std::int64_t stamp();
  void removeAll(const InodePtr& folder);

  Random& random_;
  VirtualClock& clock_;
  // The virtual time passes without real time.
  const test::CheckInterval interval_{test::CheckInterval::kNone};
  std::shared_ptr<std::set<std::uint64_t>> numbers_ = std::make_shared<std::set<std::uint64_t>>();
  std::uint64_t highestNumber_ = 1;
  InodePtr root_;
  std::map<int, InodePtr> descriptors_;
  int nextDescriptor_ = 1'000'000;
  std::map<int, Process> processes_;
  int current_ = 0;
  Fault fault_ = Fault::None;
  long failures_ = 0;
  std::int64_t stamps_ = 0;
  bool wasCut_ = false;
  bool isInHook_ = false;
  bool isTracing_ = false;
  std::function<void()> hook_;
};

}  // namespace jx::simulation
