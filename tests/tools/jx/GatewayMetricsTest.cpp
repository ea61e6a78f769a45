// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayMetrics.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tools/jx/gateway/GatewayAdmin.h"

namespace jx {
namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

bool hasLine(const std::string& text, const std::string& line) {
  return ("\n" + text).find("\n" + line + "\n") != std::string::npos;
}

class SwitchedLog final : public EventLog {
 public:
  void append(const LogEntry&, Stored stored) override { stored({}); }
  bool isReady() const override { return isConnected; }

  bool isConnected = true;
};

TEST(LatencyHistogram, CountsInBuckets) {
  LatencyHistogram histogram;
  histogram.add(microseconds(500));  // the limit belongs to its bucket
  histogram.add(microseconds(501));
  histogram.add(microseconds(20'000));
  histogram.add(seconds(11));
  std::string text;
  histogram.appendTo(text, "t");
  EXPECT_EQ(text,
            "t_bucket{le=\"0.0005\"} 1\n"
            "t_bucket{le=\"0.001\"} 2\n"
            "t_bucket{le=\"0.0025\"} 2\n"
            "t_bucket{le=\"0.005\"} 2\n"
            "t_bucket{le=\"0.01\"} 2\n"
            "t_bucket{le=\"0.025\"} 3\n"
            "t_bucket{le=\"0.05\"} 3\n"
            "t_bucket{le=\"0.1\"} 3\n"
            "t_bucket{le=\"0.25\"} 3\n"
            "t_bucket{le=\"0.5\"} 3\n"
            "t_bucket{le=\"1\"} 3\n"
            "t_bucket{le=\"2.5\"} 3\n"
            "t_bucket{le=\"5\"} 3\n"
            "t_bucket{le=\"10\"} 3\n"
            "t_bucket{le=\"+Inf\"} 4\n"
            "t_sum 11.021001\n"
            "t_count 4\n");
}

TEST(GatewayMetrics, WritesTheCountersAndGauges) {
  GatewayMetrics metrics;
  GatewayUsage usage;
  metrics.accepted = 5;
  metrics.duplicates = 2;
  metrics.invalid = 1;
  metrics.refused[static_cast<std::size_t>(Refusal::BrokerTimeout)] = 3;
  usage.connections = 7;
  usage.bytesInFlight = 4096;
  usage.requestsInFlight = 6;
  usage.refusedConnections = 9;
  const std::string text = metrics.text(usage, true);
  for (const char* const line :
       {"# TYPE jx_gateway_events_accepted_total counter", "jx_gateway_events_accepted_total 5",
        "jx_gateway_events_duplicate_total 2", "jx_gateway_events_invalid_total 1",
        "jx_gateway_requests_refused_total{reason=\"broker_timeout\"} 3",
        "jx_gateway_requests_refused_total{reason=\"memory\"} 0",
        "jx_gateway_connections_refused_total 9", "# TYPE jx_gateway_broker_ack_seconds histogram",
        "jx_gateway_broker_ack_seconds_count 0", "jx_gateway_requests_in_flight 6",
        "jx_gateway_bytes_in_flight 4096", "jx_gateway_connections 7",
        "jx_gateway_broker_connected 1"})
    EXPECT_TRUE(hasLine(text, line)) << line << "\nin\n" << text;
  EXPECT_TRUE(hasLine(metrics.text(usage, false), "jx_gateway_broker_connected 0"));
  EXPECT_EQ(text.find("reason=\"\""), std::string::npos);
}

TEST(GatewayMetrics, DescribesTheProcess) {
  const std::string text = GatewayMetrics().text(GatewayUsage(), true);
  const auto valueOf = [&](const std::string& name) {
    const std::size_t at = text.find("\n" + name + " ");
    return at == std::string::npos ? -1 : std::atof(text.c_str() + at + name.size() + 2);
  };
  EXPECT_GT(valueOf("process_cpu_seconds_total"), 0);
  EXPECT_GT(valueOf("process_resident_memory_bytes"), 1e6);
  EXPECT_GT(valueOf("process_start_time_seconds"), 1.7e9);
}

TEST(GatewayAdmin, ReportsHealthAndReadiness) {
  SwitchedLog log;
  const GatewayMetrics metrics;
  GatewayAdmin admin(log, metrics);
  EXPECT_EQ(admin.health("/healthz")->status, 200);
  EXPECT_EQ(admin.health("/readyz")->status, 200);
  log.isConnected = false;
  EXPECT_EQ(admin.health("/healthz")->status, 200);
  EXPECT_EQ(admin.health("/readyz")->status, 503);
  EXPECT_EQ(admin.health("/readyz")->body, "broker not connected\n");
  log.isConnected = true;
  admin.stopBeingReady();
  EXPECT_EQ(admin.health("/readyz")->body, "stopping\n");
  EXPECT_EQ(admin.health("/healthz")->status, 200);
  EXPECT_FALSE(admin.health("/metrics"));
}

TEST(GatewayAdmin, RespondsToItsPathsOnly) {
  SwitchedLog log;
  const GatewayMetrics metrics;
  const GatewayAdmin admin(log, metrics);
  const auto respond = [&](const char* method, const char* path) {
    HttpRequest request;
    request.method = method;
    request.path = path;
    return admin.respond(request, GatewayUsage());
  };
  const GatewayResponse page = respond("GET", "/metrics");
  EXPECT_EQ(page.status, 200);
  EXPECT_EQ(page.contentType, "text/plain; version=0.0.4; charset=utf-8");
  EXPECT_TRUE(hasLine(page.body, "jx_gateway_broker_connected 1"));
  EXPECT_EQ(respond("GET", "/readyz").status, 200);
  EXPECT_EQ(respond("HEAD", "/healthz").status, 200);
  EXPECT_EQ(respond("GET", "/").status, 404);
  EXPECT_EQ(respond("GET", "/events").status, 404);
  EXPECT_EQ(respond("POST", "/metrics").status, 405);
}

}  // namespace
}  // namespace jx
