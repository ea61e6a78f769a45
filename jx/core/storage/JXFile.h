// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>
#include <sys/uio.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace jx {

/// The system calls that a full, read-only or worn disk makes fail. All storage goes through this
/// one table, so that a fault at each of them can be played.
struct JXFileCalls {
  int (*open)(const char* path, int flags, mode_t mode);
  ssize_t (*write)(int descriptor, const iovec* parts, int count);
  int (*truncate)(int descriptor, off_t size);
  int (*synchronize)(int descriptor);
  int (*rename)(const char* from, const char* to);

  /// The table in force. To be changed only while no other thread uses storage.
  static JXFileCalls& current();
  static JXFileCalls system();
};

/// Owns the descriptor of one regular file. Operations that can fail return an errno value, 0 for
/// success. Files are made with mode 0600 and closed on exec. One thread at a time, except that
/// `read` and `synchronize` may run beside the others.
class JXFile {
 public:
  enum class Access {
    Read,
    Append,           ///< read, and write at the end; made when missing
    AppendExisting,   ///< the same; fails when missing
    AppendCreateNew,  ///< the same; fails when it exists
    AppendEmptied,    ///< the same; made when missing, emptied when not
  };
  enum class Lock { Shared, Exclusive };

  JXFile() = default;
  ~JXFile() { close(); }
  JXFile(JXFile&& other) noexcept;
  JXFile& operator=(JXFile&& other) noexcept;

  /// Opens `path`. What is not a regular file is refused with EINVAL.
  static JXFile open(const std::string& path, Access access, int& error);
  void close() noexcept;
  bool isOpen() const noexcept { return descriptor_ >= 0; }

  /// Appends `parts` with one system call. `written` tells how many bytes went into the file, also
  /// when it fails: a full disk may take a part of them.
  int append(const iovec* parts, int count, std::size_t& written);
  /// Reads up to `size` bytes at `offset`; `got` is less only at the end of the file.
  int read(std::uint64_t offset, void* into, std::size_t size, std::size_t& got) const;
  int truncate(std::uint64_t size);
  /// Waits until the content is on the disk.
  int synchronize() const;
  int size(std::uint64_t& size) const;

  /// Takes the file's advisory lock, or changes the kind held, without waiting. False when another
  /// holder forbids it; then the lock that was held before may be gone.
  bool tryLock(Lock lock);
  void unlock();

  /// False when the file was removed from its folder.
  bool isLinked() const;
  /// True when `path` names this file now.
  bool isAt(const std::string& path) const;

 private:
  explicit JXFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_ = -1;
};

}  // namespace jx
