// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The library, which creates and releases the event within `execute`.

#include <stdexcept>

#include "bench/Events.h"
#include "bench/StartLibrary.h"
#include "bench/peers/Queue.h"

namespace jx::bench {
namespace {

class LibraryQueue final : public Queue {
 public:
  explicit LibraryQueue(const LibraryOptions& options) : serverSide_(startLibrary(options)) {}

  void execute() override { serverSide_->execute(purchase(4)); }
  void flush() override {
    if (!JXNetworkManager::sharedInstance().flush(std::chrono::minutes(2))) {
      throw std::runtime_error("the events were not delivered within 2 minutes");
    }
  }

 private:
  std::shared_ptr<ServerSide> serverSide_;
};

}  // namespace

std::unique_ptr<Queue> createQueue(const QueueOptions& options) {
  LibraryOptions own;
  own.storageFolder = options.folder;
  own.collectionHost = options.host;
  own.caFile = options.caFile;
  own.keepsAll = true;
  return std::make_unique<LibraryQueue>(own);
}

}  // namespace jx::bench
