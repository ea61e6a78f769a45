// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXErasures.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/StoredBytes.h"

namespace jx {

/// Provides a storage folder with every kind of file that the library writes. Their content
/// contains one of the strings of `secrets`.
class ErasuresTest : public OutboxTest {
 protected:
  using Lines = std::vector<std::string>;

  /// One process that uses the folder.
  struct Process {
    explicit Process(const ErasuresTest& test)
        : erasures(std::make_shared<JXErasures>(test.folder_.path())),
          defaults(test.folder_.file("defaults"), erasures),
          outbox(test.box_, JXOutboxBounds{}, test.clock_, erasures) {}

    std::shared_ptr<JXErasures> erasures;
    JXDefaultsFile defaults;
    JXOutbox outbox;
  };

  const Lines secrets{"body-queued", "body-dead", "body-torn", "body-new",
                      "id-value",    "id-new",    "id-damaged"};

  /// Creates the files as processes do that ended, some of them by a kill. The names are those of
  /// `storedFiles`.
  void store() {
    {
      Process process(*this);
      process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
      add(process.outbox, "body-dead");
      process.outbox.moveToDeadLetters(process.outbox.take()->id, 400);
      add(process.outbox, "body-queued");
    }
    const std::string segment = box_ + "/" + JXOutboxSegment::nameOf(1);
    writeFile(segment + ".damaged-77", "body-torn");
    writeFile(segment + ".purge", "1 2\n");
    writeFile(segment + ".purge.4711", "1 2\n");
    writeFile(box_ + "/dead.new", "body-new");
    writeFile(box_ + "/dead.damaged-8", "body-dead");
    writeFile(box_ + "/stopped-0123abcd", "stop");
    writeFile(box_ + "/stopped-0123abcd.4711", "stop");
    writeFile(folder_.file("defaults.new"), "id-new");
    writeFile(folder_.file("defaults.damaged-8"), "id-damaged");
    writeFile(folder_.file("erased.4711"), "pending 0123");
  }

  static Lines storedFiles() {
    return {"defaults",
            "defaults.damaged-8",
            "defaults.new",
            "erased.4711",
            "outbox/clock",
            "outbox/dead",
            "outbox/dead.damaged-8",
            "outbox/dead.new",
            "outbox/segment-0000000000000001",
            "outbox/segment-0000000000000001.damaged-77",
            "outbox/segment-0000000000000001.purge",
            "outbox/segment-0000000000000001.purge.4711",
            "outbox/stopped-0123abcd",
            "outbox/stopped-0123abcd.4711"};
  }

  Lines files() const { return test::filesBelow(folder_.path()); }
  Lines found() const { return test::bytesFound(folder_.path(), secrets); }
  std::string mark() const { return contentOf(folder_.file("erased")); }
  /// Returns the state of the mark: the first word.
  std::string state() const { return mark().substr(0, mark().find(' ')); }
};

}  // namespace jx
