// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/tools/jx/NatsServerProcess.h"
#include "tools/jx/gateway/NatsClient.h"

namespace jx {

/// A real nats-server, and a publisher.
class NatsBroker {
 public:
  std::string url() const { return server_.url(); }

  void start() {
    server_.start();
    natsConnection* connection = nullptr;
    ASSERT_EQ(natsConnection_ConnectTo(&connection, url().c_str()), NATS_OK);
    connection_.reset(connection);
    jsCtx* context = nullptr;
    ASSERT_EQ(natsConnection_JetStream(&context, connection, nullptr), NATS_OK);
    context_.reset(context);
  }
  void kill() {
    context_.reset();
    connection_.reset();
    server_.kill();
  }

  void saveStore() const { server_.saveStore(); }
  void restoreStore() const { server_.restoreStore(); }

  /// Adds the streams of the gateway. The broker itself drops no repeats, because the messages of
  /// tests have no message ID.
  void addStreams() const { server_.setUp(); }
  void deleteStream() const {
    ASSERT_EQ(js_DeleteStream(context_.get(), kEventsStream, nullptr, nullptr), NATS_OK);
  }
  /// Returns when the stream has stored the message.
  void publish(const std::string& subject, const std::string& body,
               const std::string& diagnostics = "") const {
    natsMsg* message = nullptr;
    ASSERT_EQ(natsMsg_Create(&message, subject.c_str(), nullptr, body.data(),
                             static_cast<int>(body.size())),
              NATS_OK);
    const NatsHandle<natsMsg> owned(message);
    if (!diagnostics.empty()) {
      ASSERT_EQ(natsMsgHeader_Set(message, kDiagnosticsHeader, diagnostics.c_str()), NATS_OK);
    }
    ASSERT_EQ(js_PublishMsg(nullptr, context_.get(), message, nullptr, nullptr), NATS_OK);
  }
  /// Publishes events "e<first>" to "e<last>".
  void publishEvents(int first, int last, const std::string& padding = "") const {
    for (int i = first; i <= last; ++i) {
      publish("events.1.play", R"({"event_name":"play","context":{"event_id":"e)" +
                                   std::to_string(i) + R"("},"padding":")" + padding + "\"}");
    }
  }

  jsCtx* context() const { return context_.get(); }

 private:
  NatsServerProcess server_;
  NatsHandle<natsConnection> connection_;
  NatsHandle<jsCtx> context_;
};

}  // namespace jx
