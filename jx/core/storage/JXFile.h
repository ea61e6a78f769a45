// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fcntl.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace jx {

/// The system calls that fail on a full, read-only or failing disk. All storage code calls through
/// this table, so that tests can inject a fault at each call.
struct JXFileCalls {
  int (*open)(const char* path, int flags, mode_t mode);
  ssize_t (*write)(int descriptor, const iovec* parts, int count);
  int (*truncate)(int descriptor, off_t size);
  int (*synchronize)(int descriptor);
  int (*rename)(const char* from, const char* to);
  int (*unlink)(const char* path);

  /// Returns the table in use. Change it only while no other thread uses storage.
  static JXFileCalls& current();
  /// Returns a table of the operating system's calls.
  static JXFileCalls system();
};

/// Replaces the file `to` with the file `from`; deletes `from` on failure, or if `error` is not 0.
/// Returns an errno value, 0 for success.
int replaceFile(const std::string& from, const std::string& to, int error);

/// Deletes the file. Returns an errno value, 0 for success and for a missing file.
int removeFile(const std::string& path);

/// Owns the descriptor of one regular file. Operations that can fail return an errno value, 0 for
/// success. Files are created with mode 0600 and closed on exec. One thread at a time, except that
/// `read` and `synchronize` may run concurrently with the other operations.
class JXFile {
 public:
  /// The values are flags of `open`.
  enum class Access : int {
    Read = O_RDONLY,
    AppendExisting = O_RDWR | O_APPEND,  ///< read, and write at the end; fails if missing
    Append = AppendExisting | O_CREAT,   ///< created if missing
    AppendCreateNew = AppendExisting | O_CREAT | O_EXCL,  ///< fails if it exists
    AppendEmptied = AppendExisting | O_CREAT | O_TRUNC,   ///< truncated to 0 bytes if it exists
  };
  enum class Lock { Shared, Exclusive };

  JXFile() = default;
  ~JXFile() { close(); }
  JXFile(JXFile&& other) noexcept;
  JXFile& operator=(JXFile&& other) noexcept;

  /// Opens `path`. On failure returns a closed file and sets `error`, to 0 on success. EINVAL if
  /// `path` is not a regular file.
  static JXFile open(const std::string& path, Access access, int& error);
  void close() noexcept;
  bool isOpen() const noexcept { return descriptor_ >= 0; }

  /// Appends `parts` with one system call. `written` receives the number of bytes written, on
  /// failure too: a full disk may accept only some of them.
  int append(const iovec* parts, int count, std::size_t& written);
  /// Reads up to `size` bytes at `offset`. `got` receives the number of bytes read, which is less
  /// than `size` only at the end of the file.
  int read(std::uint64_t offset, void* into, std::size_t size, std::size_t& got) const;
  int truncate(std::uint64_t size);
  /// Makes the content durable. Blocks until the disk has written it.
  int synchronize() const;
  int size(std::uint64_t& size) const;

  /// Acquires the file's advisory lock, or converts the current one, without blocking. Returns
  /// false when another owner prevents it; a lock held before may then have been released.
  bool tryLock(Lock lock);
  void unlock();

  /// Returns false when the file was removed from its folder.
  bool isLinked() const;
  /// Returns true when `path` currently refers to this file.
  bool isAt(const std::string& path) const;

 private:
  explicit JXFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_ = -1;
};

}  // namespace jx
