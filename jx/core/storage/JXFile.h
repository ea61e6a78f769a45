// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace jx {

/// The system calls of the storage. All storage code calls through this table, so that tests can
/// inject a fault at each call or replace the disk. Each function returns and sets errno as the
/// call that it is named after. Names are relative to the descriptor of a folder; with AT_FDCWD,
/// they are paths. No call follows a symbolic link at the end of a name.
struct JXFileCalls {
  int (*open)(int folder, const char* name, int flags, mode_t mode);  ///< openat
  int (*close)(int descriptor);
  ssize_t (*read)(int descriptor, void* into, std::size_t size, off_t offset);  ///< pread
  ssize_t (*write)(int descriptor, const iovec* parts, int count);              ///< writev
  int (*truncate)(int descriptor, off_t size);
  int (*synchronize)(int descriptor);        ///< makes the content of a file durable
  int (*synchronizeFolder)(int descriptor);  ///< makes the entries of a folder durable
  int (*rename)(int fromFolder, const char* from, int toFolder, const char* to);
  int (*unlink)(int folder, const char* name);
  int (*makeFolder)(int folder, const char* name, mode_t mode);
  int (*status)(int folder, const char* name, struct stat* status);  ///< fstatat
  int (*statusOf)(int descriptor, struct stat* status);              ///< fstat
  int (*lock)(int descriptor, int operation);                        ///< flock
  /// Locks (F_WRLCK) or unlocks (F_UNLCK) one byte for this open file, without waiting.
  int (*lockByte)(int descriptor, off_t offset, short type);
  /// Adds the names in an open folder, without "." and "..", in no particular order.
  int (*list)(int folder, std::vector<std::string>& names);
  /// Maps the file for reading; null on failure. Its content stays as long as it is mapped.
  void* (*map)(int descriptor, std::size_t size);
  void (*unmap)(void* address, std::size_t size);
  /// Returns a non-blocking descriptor of changes of folders; fails where the system has none.
  int (*openWatch)();

  /// Returns the table in use. Change it only while no other thread uses storage.
  static JXFileCalls& current();
  /// Returns a table of the operating system's calls.
  static JXFileCalls system();
};

// Reasons to refuse a file or folder, outside the range of errno values.
constexpr int kJXErrorForeign = 10'001;   ///< it belongs to another user
constexpr int kJXErrorWritable = 10'002;  ///< other users can write to it
constexpr int kJXErrorLinked = 10'003;    ///< the file has a second name

/// Returns the message for an errno value or one of the reasons above.
std::string describeStorageError(int error);

/// Returns the reason to refuse a file or folder, 0 if it may be used: it belongs to this user or
/// to the superuser, and only its owner and this user's group can write to it.
int checkAccess(const struct stat& status);

class JXFolder;

/// Opens a file or folder and records its descriptor, so that a forked child closes it. Returns -1
/// and sets `errno` on failure, and in a forked child.
int openDescriptor(int folder, const char* name, int flags);
/// Closes a descriptor of `openDescriptor`. Does nothing in a forked child, where the number may
/// belong to another file.
void closeDescriptor(int descriptor) noexcept;

/// Replaces the file `to` with the file `from`; deletes `from` on failure, or if `error` is not 0.
/// Returns an errno value, 0 for success.
int replaceFile(const std::string& from, const std::string& to, int error);

/// Deletes the file. Returns an errno value, 0 for success and for a missing file.
int removeFile(const std::string& path);
int removeFile(const JXFolder& folder, const std::string& name);
/// Renames a file, replacing an existing one. Returns an errno value, 0 for success.
int renameFile(const JXFolder& fromFolder, const std::string& from, const JXFolder& toFolder,
               const std::string& to);

/// Device and number of a file, which stay when it is renamed. A default one is invalid: it differs
/// from that of every file.
struct JXFileIdentity {
  dev_t device = 0;
  ino_t number = 0;
  bool operator==(const JXFileIdentity& other) const {
    return number != 0 && number == other.number && device == other.device;
  }
  bool isValid() const { return number != 0; }
  bool operator!=(const JXFileIdentity& other) const { return !(*this == other); }
};

/// Owns the descriptor of one regular file. Operations that can fail return an errno value, 0 for
/// success. Files are created with mode 0600 and closed on exec and in a forked child, where all
/// operations fail without effect. One thread at a time, except that `read` and `synchronize` may
/// run concurrently with the other operations.
///
/// Only regular files are opened that no other user can write (see checkAccess), and neither
/// symbolic nor hard links: another user must not be able to redirect a write to a file of this
/// user.
class JXFile {
 public:
  /// The values are flags of `open`.
  enum class Access : int {
    Read = O_RDONLY,
    AppendExisting = O_RDWR | O_APPEND,  ///< read, and write at the end; fails if missing
    Append = AppendExisting | O_CREAT,   ///< created if missing
    AppendCreateNew = AppendExisting | O_CREAT | O_EXCL,  ///< fails if it exists
    AppendEmptied = AppendExisting | O_CREAT | O_TRUNC,   ///< replaces an existing file
  };
  enum class Lock { Shared, Exclusive };

  JXFile() = default;
  ~JXFile() { close(); }
  JXFile(JXFile&& other) noexcept;
  JXFile& operator=(JXFile&& other) noexcept;

  /// Opens a file of the folder. On failure returns a closed file and sets `error`, to 0 on
  /// success. EINVAL if it is not a regular file.
  static JXFile open(const JXFolder& folder, const std::string& name, Access access, int& error);
  /// Same, in the folder at the path.
  static JXFile open(const std::string& path, Access access, int& error);
  void close() noexcept;
  bool isOpen() const noexcept { return descriptor_ >= 0; }

  /// Appends `parts` with one system call. `written` receives the number of bytes written, on
  /// failure too: a full disk may accept only some of them. Returns EFBIG, and raises no signal,
  /// when the file would exceed the limit of the process.
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
  /// Acquires the lock of one byte, which need not exist, for this open file. Returns an errno
  /// value: 0 for success, EWOULDBLOCK when another open file, of any process, has it.
  int lockByte(std::uint64_t offset);
  void unlockByte(std::uint64_t offset);

  /// Returns false when the file was removed from its folder.
  bool isLinked() const;
  /// Returns true when `path` currently refers to this file.
  bool isAt(const std::string& path) const;
  JXFileIdentity identity() const;
  /// Returns the identity of the file at `path`, invalid if there is none.
  static JXFileIdentity identityAt(const std::string& path);
  static JXFileIdentity identityIn(const JXFolder& folder, const std::string& name);
  /// Reads the state of a file of the folder without opening it. Returns an errno value.
  static int statusIn(const JXFolder& folder, const std::string& name, struct stat& status);
  /// See JXFileCalls::map.
  void* map(std::size_t size) const { return JXFileCalls::current().map(descriptor_, size); }

 private:
  int status(struct stat& status) const;
  explicit JXFile(int descriptor) : descriptor_(descriptor) {}

  /// Returns -1 in a forked child, where the number may belong to another file.
  int descriptor() const noexcept;

  int descriptor_ = -1;
};

}  // namespace jx
