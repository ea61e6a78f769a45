// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/NatsEventLog.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

namespace jx {
namespace {

using Cause = LogResult::Cause;

constexpr std::size_t kMaxPart = 64;
constexpr std::chrono::seconds kReopenDelay{1};
constexpr std::chrono::milliseconds kStatusInterval{50};

bool isSubjectCharacter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
         c == '_';
}

// The acknowledgement is {"stream":...,"seq":...,"duplicate":true} or {"error":{...}}.
LogResult resultOf(natsMsg* message) {
  if (natsMsg_IsNoResponders(message)) return {false, false, "no stream stores the subject"};
  rapidjson::Document reply;
  reply.Parse(natsMsg_GetData(message), static_cast<std::size_t>(natsMsg_GetDataLength(message)));
  if (reply.HasParseError() || !reply.IsObject()) return {false, false, "unreadable reply"};
  if (reply.HasMember("error")) {
    const rapidjson::Value& error = reply["error"];
    const bool isDescribed =
        error.IsObject() && error.HasMember("description") && error["description"].IsString();
    return {false, false, isDescribed ? error["description"].GetString() : "refused"};
  }
  if (!reply.HasMember("seq")) return {false, false, "unreadable reply"};
  return {true, reply.HasMember("duplicate") && reply["duplicate"].IsTrue(), ""};
}

LogResult failureOf(natsStatus status) {
  // Nothing is buffered while the library reconnects.
  if (status == NATS_INSUFFICIENT_BUFFER) {
    return {false, false, "connection lost", Cause::Unavailable};
  }
  const bool isTooLarge = status == NATS_MAX_PAYLOAD;
  return {false, false, natsStatus_GetText(status),
          isTooLarge ? Cause::TooLarge : Cause::Unavailable};
}

std::string subjectOf(const LogEntry& entry) {
  return std::string(entry.isInvalid ? kInvalidSubject : kEventsSubject) + "." +
         subjectPart(entry.site) + "." + subjectPart(entry.name);
}

}  // namespace

std::string subjectPart(std::string_view text) {
  std::string part(text.substr(0, kMaxPart));
  std::replace_if(
      part.begin(), part.end(), [](char c) { return !isSubjectCharacter(c); }, '_');
  return part.empty() ? "_" : part;
}

NatsEventLog::NatsEventLog(const NatsSettings& settings) : settings_(settings) {}

Result<std::unique_ptr<NatsEventLog>> NatsEventLog::connect(const NatsSettings& settings) {
  std::unique_ptr<NatsEventLog> log(new NatsEventLog(settings));
  natsInbox* inbox = nullptr;
  const natsStatus status = natsInbox_Create(&inbox);
  if (status != NATS_OK) return natsFailure("inbox", status);
  log->inbox_ = std::string(inbox) + ".";
  natsInbox_Destroy(inbox);
  auto opened = log->open();
  if (!opened) return opened.error();
  log->session_ = std::move(*opened);
  log->watching_ = std::thread([&log = *log] { log.watch(); });
  log->publishing_ = std::thread([&log = *log] { log.publishAll(); });
  return log;
}

natsStatus NatsEventLog::setCallbacks(natsOptions* options, Session& session) {
  natsStatus status = natsOptions_SetDisconnectedCB(options, onDisconnected, &session);
  if (status == NATS_OK) status = natsOptions_SetClosedCB(options, onClosed, &session);
  if (status != NATS_OK) return status;
  // Without a function to call, the first connect would wait for a server.
  return natsOptions_SetRetryOnFailedConnect(
      options, true, [](natsConnection*, void*) {}, nullptr);
}

Result<std::shared_ptr<NatsEventLog::Session>> NatsEventLog::open() {
  auto session = std::make_shared<Session>(*this);
  const auto options = natsOptionsFor(settings_.servers, "jx gateway");
  if (!options) return options.error();
  natsStatus status = setCallbacks(options->get(), *session);
  if (status != NATS_OK) return natsFailure("options", status);
  natsConnection* connection = nullptr;
  status = natsConnection_Connect(&connection, options->get());
  session->connection.reset(connection);
  // Not connected yet: it goes on in the background.
  if (status != NATS_OK && status != NATS_NOT_YET_CONNECTED) return natsFailure("connect", status);
  natsSubscription* replies = nullptr;
  status = natsConnection_Subscribe(&replies, connection, (inbox_ + "*").c_str(), onReply,
                                    session.get());
  session->replies.reset(replies);
  if (status == NATS_OK) {
    natsSubscription_SetPendingLimits(replies, -1, -1);
    status = natsSubscription_SetOnCompleteCB(replies, onSubscriptionOver, session.get());
  }
  if (status != NATS_OK) {
    // The servers have rejected the credentials in the meantime: `watch` opens another session.
    setFlag(session->isSubscriptionOver);
    natsConnection_Close(connection);
  }
  return session;
}

NatsEventLog::~NatsEventLog() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  hasOutgoing_.notify_all();
  if (watching_.joinable()) watching_.join();
  if (publishing_.joinable()) publishing_.join();
  // Before the end of the connection, which reports them too.
  failAll("the gateway stops");
  if (session_) close(*session_);
}

// The threads of the library use the session until they report their end.
void NatsEventLog::close(Session& session) {
  natsConnection_Close(session.connection.get());
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait(
      lock, [&] { return session.isClosed && (session.isSubscriptionOver || !session.replies); });
}

void NatsEventLog::setFlag(bool& flag) {
  // Notifies with the lock: this object ends when it is released.
  const std::lock_guard<std::mutex> lock(mutex_);
  flag = true;
  changed_.notify_all();
}

bool NatsEventLog::isReady() const { return isConnected_; }

void NatsEventLog::append(const LogEntry& entry, Stored stored) {
  if (!isConnected_) return stored({false, false, "not connected", Cause::Unavailable});
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (waiting_.size() < settings_.maxPending) {
      const std::uint64_t token = ++lastToken_;
      outgoing_.push_back({token, entry});
      waiting_.emplace(token, Waiting{Clock::now() + settings_.timeout, std::move(stored)});
      if (waiting_.size() == 1) changed_.notify_all();
      if (outgoing_.size() == 1) hasOutgoing_.notify_one();
      return;
    }
  }
  stored({false, false, "too many entries wait for the broker", Cause::Full});
}

// Also observes the connection, because asking for its state may block too.
void NatsEventLog::publishAll() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!isEnding_) {
    hasOutgoing_.wait_for(lock, kStatusInterval, [&] { return isEnding_ || !outgoing_.empty(); });
    std::deque<Outgoing> batch;
    batch.swap(outgoing_);
    const std::shared_ptr<Session> session = session_;
    lock.unlock();
    for (const auto& [token, entry] : batch) {
      const natsStatus status = publish(*session, entry, token);
      if (status != NATS_OK) finish(token, failureOf(status));
    }
    isConnected_ = natsConnection_Status(session->connection.get()) == NATS_CONN_STATUS_CONNECTED;
    lock.lock();
  }
}

natsStatus NatsEventLog::publish(const Session& session, const LogEntry& entry,
                                 std::uint64_t token) {
  const std::string reply = inbox_ + std::to_string(token);
  natsMsg* created = nullptr;
  natsStatus status = natsMsg_Create(&created, subjectOf(entry).c_str(), reply.c_str(),
                                     entry.body.data(), static_cast<int>(entry.body.size()));
  const NatsHandle<natsMsg> message(created);
  if (status == NATS_OK && !entry.eventId.empty()) {
    status = natsMsgHeader_Set(created, kEventIdHeader, entry.eventId.c_str());
  }
  if (status == NATS_OK && !entry.diagnostics.empty()) {
    status = natsMsgHeader_Set(created, kDiagnosticsHeader, entry.diagnostics.c_str());
  }
  return status == NATS_OK ? natsConnection_PublishMsg(session.connection.get(), created) : status;
}

void NatsEventLog::onReply(natsConnection*, natsSubscription*, natsMsg* message, void* session) {
  const NatsHandle<natsMsg> owned(message);
  static_cast<Session*>(session)->log.acknowledge(message);
}

void NatsEventLog::acknowledge(natsMsg* message) {
  const std::string_view subject = natsMsg_GetSubject(message);
  if (subject.size() <= inbox_.size()) return;
  std::uint64_t token = 0;
  const std::string_view digits = subject.substr(inbox_.size());
  std::from_chars(digits.data(), digits.data() + digits.size(), token);
  finish(token, resultOf(message));
}

void NatsEventLog::finish(std::uint64_t token, const LogResult& result) {
  Stored stored;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto found = waiting_.find(token);
    if (found == waiting_.end()) return;
    stored = std::move(found->second.stored);
    waiting_.erase(found);
  }
  stored(result);
}

void NatsEventLog::onDisconnected(natsConnection*, void* session) {
  NatsEventLog& log = static_cast<Session*>(session)->log;
  log.isConnected_ = false;
  log.failAll("connection lost");
}

void NatsEventLog::onClosed(natsConnection*, void* session) {
  auto* const closed = static_cast<Session*>(session);
  closed->log.setFlag(closed->isClosed);
}

void NatsEventLog::onSubscriptionOver(void* session) {
  auto* const over = static_cast<Session*>(session);
  over->log.setFlag(over->isSubscriptionOver);
}

void NatsEventLog::failAll(const std::string& reason) {
  std::map<std::uint64_t, Waiting> failed;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    failed.swap(waiting_);
    outgoing_.clear();
  }
  for (const auto& [token, waiting] : failed)
    waiting.stored({false, false, reason, Cause::Unavailable});
}

void NatsEventLog::watch() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!isEnding_) {
    if (session_->isClosed) {
      reopen(lock);
    } else if (waiting_.empty()) {
      changed_.wait(lock);
    } else {
      expireFirst(lock);
    }
  }
}

void NatsEventLog::expireFirst(std::unique_lock<std::mutex>& lock) {
  const std::uint64_t token = waiting_.begin()->first;
  const Clock::time_point deadline = waiting_.begin()->second.deadline;
  if (Clock::now() < deadline) {
    changed_.wait_until(lock, deadline);
    return;
  }
  lock.unlock();
  finish(token, {false, false, "no acknowledgement", Cause::Timeout});
  lock.lock();
}

void NatsEventLog::reopen(std::unique_lock<std::mutex>& lock) {
  const std::shared_ptr<Session> closed = session_;
  changed_.wait_for(lock, kReopenDelay, [&] { return isEnding_; });
  if (isEnding_) return;
  lock.unlock();
  close(*closed);
  auto opened = open();
  lock.lock();
  if (opened) session_ = std::move(*opened);
}

}  // namespace jx
