// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/StreamReader.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace jx {
namespace {

constexpr int kMaxBatch = 4096;
// Above the largest message that a NATS server can be configured to accept, 64 MiB.
constexpr std::int64_t kMaxBatchBytes = std::int64_t{72} << 20;
constexpr std::int64_t kFetchLimitMs = 5'000;
constexpr std::int64_t kNsPerMs = 1'000'000;

struct Release {
  void operator()(jsMsgMetaData* data) const { jsMsgMetaData_Destroy(data); }
  void operator()(jsConsumerInfo* info) const { jsConsumerInfo_Destroy(info); }
};

}  // namespace

Result<std::unique_ptr<StreamReader>> StreamReader::connect(const NatsServers& servers,
                                                            const std::string& stream,
                                                            const std::string& consumer) {
  std::unique_ptr<StreamReader> reader(new StreamReader(stream, consumer));
  const Done opened = reader->open(servers);
  if (!opened) return opened.error();
  return reader;
}

StreamReader::~StreamReader() { clear(); }

Done StreamReader::open(const NatsServers& servers) {
  const auto options = natsOptionsFor(servers, "jx gateway drain");
  if (!options) return options.error();
  // A connection that is lost ends the reader.
  natsStatus status = natsOptions_SetAllowReconnect(options->get(), false);
  if (status != NATS_OK) return natsFailure("options", status);
  natsConnection* connection = nullptr;
  status = natsConnection_Connect(&connection, options->get());
  connection_.reset(connection);
  if (status != NATS_OK) return natsFailure("connect", status);
  jsCtx* context = nullptr;
  status = natsConnection_JetStream(&context, connection, nullptr);
  context_.reset(context);
  if (status != NATS_OK) return natsFailure("JetStream", status);
  jsStreamInfo* info = nullptr;
  status = js_GetStreamInfo(&info, context, streamName_.c_str(), nullptr, nullptr);
  const NatsHandle<jsStreamInfo> owned(info);
  if (status == NATS_NOT_FOUND) return Error{"stream " + streamName_ + " does not exist"};
  if (status != NATS_OK) return natsFailure("stream " + streamName_, status);
  info_.created = info->Created;
  info_.lastSequence = static_cast<std::int64_t>(info->State.LastSeq);
  return done();
}

Done StreamReader::startAfter(std::int64_t sequence) {
  natsStatus status =
      js_DeleteConsumer(context_.get(), streamName_.c_str(), consumer_.c_str(), nullptr, nullptr);
  if (status != NATS_OK && status != NATS_NOT_FOUND) {
    return natsFailure("delete consumer " + consumer_, status);
  }
  jsConsumerConfig config;
  jsConsumerConfig_Init(&config);
  config.Durable = consumer_.c_str();
  config.DeliverPolicy = js_DeliverByStartSequence;
  config.OptStartSeq = static_cast<std::uint64_t>(sequence) + 1;
  config.AckPolicy = js_AckAll;
  config.MaxAckPending = kMaxBatch;
  status = js_AddConsumer(nullptr, context_.get(), streamName_.c_str(), &config, nullptr, nullptr);
  if (status != NATS_OK) return natsFailure("create consumer " + consumer_, status);
  jsSubOptions bound;
  jsSubOptions_Init(&bound);
  bound.Stream = streamName_.c_str();
  bound.Consumer = consumer_.c_str();
  bound.ManualAck = true;
  natsSubscription* subscription = nullptr;
  status = js_PullSubscribe(&subscription, context_.get(), "", consumer_.c_str(), nullptr, &bound,
                            nullptr);
  subscription_.reset(subscription);
  if (status == NATS_OK) status = natsSubscription_SetPendingLimits(subscription, -1, -1);
  return status == NATS_OK ? done() : natsFailure("subscribe", status);
}

Result<std::int64_t> StreamReader::pending() {
  jsConsumerInfo* info = nullptr;
  const natsStatus status = js_GetConsumerInfo(&info, context_.get(), streamName_.c_str(),
                                               consumer_.c_str(), nullptr, nullptr);
  const std::unique_ptr<jsConsumerInfo, Release> owned(info);
  // Also the way to notice that the consumer was deleted: requests to it are not answered.
  if (status != NATS_OK) return natsFailure("consumer " + consumer_, status);
  return static_cast<std::int64_t>(info->NumPending + info->Delivered.Consumer - delivered_);
}

Result<std::vector<StreamMessage>> StreamReader::fetch(std::int64_t pending,
                                                       std::chrono::milliseconds wait) {
  clear();
  jsFetchRequest request;
  jsFetchRequest_Init(&request);
  request.Batch = static_cast<int>(std::clamp<std::int64_t>(pending, 1, kMaxBatch));
  request.MaxBytes = kMaxBatchBytes;
  request.Expires = (pending > 0 ? kFetchLimitMs : wait.count()) * kNsPerMs;
  const natsStatus status =
      natsSubscription_FetchRequest(&messages_, subscription_.get(), &request);
  std::vector<StreamMessage> messages;
  if (status == NATS_TIMEOUT && pending <= 0) return messages;
  if (status != NATS_OK) return natsFailure("fetch", status);
  messages.reserve(static_cast<std::size_t>(messages_.Count));
  for (int i = 0; i < messages_.Count; ++i) {
    const Result<StreamMessage> message = messageOf(messages_.Msgs[i]);
    if (!message) return message.error();
    messages.push_back(*message);
  }
  return messages;
}

Result<StreamMessage> StreamReader::messageOf(natsMsg* message) {
  jsMsgMetaData* data = nullptr;
  const natsStatus status = natsMsg_GetMetaData(&data, message);
  const std::unique_ptr<jsMsgMetaData, Release> owned(data);
  if (status != NATS_OK) return natsFailure("message", status);
  // Otherwise a message was lost on its way, or is delivered again.
  if (data->Sequence.Consumer != ++delivered_ || data->NumDelivered != 1) {
    return Error{"NATS: fetch: messages are missing"};
  }
  StreamMessage result;
  result.sequence = static_cast<std::int64_t>(data->Sequence.Stream);
  result.storedAtMs = data->Timestamp / kNsPerMs;
  result.subject = natsMsg_GetSubject(message);
  result.body = {natsMsg_GetData(message),
                 static_cast<std::size_t>(natsMsg_GetDataLength(message))};
  if (streamName_ == kInvalidStream) {
    const char* diagnostics = nullptr;
    const bool isSet = natsMsgHeader_Get(message, kDiagnosticsHeader, &diagnostics) == NATS_OK;
    result.diagnostics = isSet ? diagnostics : "";
  }
  return result;
}

void StreamReader::acknowledge() {
  if (messages_.Count > 0) {
    (void)natsMsg_AckSync(messages_.Msgs[messages_.Count - 1], nullptr, nullptr);
  }
}

void StreamReader::clear() { natsMsgList_Destroy(&messages_); }

}  // namespace jx
