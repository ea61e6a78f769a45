// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayMetrics.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <string_view>

namespace jx {
namespace {

std::string decimal(double number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.10g", number);
  return text.data();
}

// Appends metrics in the text format of Prometheus.
class MetricsText {
 public:
  explicit MetricsText(std::string& text) : text_(text) {}

  void describe(std::string_view name, std::string_view type, std::string_view help) {
    text_.append("# HELP ").append(name).append(" ").append(help).append("\n# TYPE ");
    text_.append(name).append(" ").append(type).append("\n");
  }
  void value(std::string_view name, const std::string& number) {
    text_.append(name).append(" ").append(number).append("\n");
  }
  void counter(std::string_view name, std::string_view help, std::uint64_t number) {
    describe(name, "counter", help);
    value(name, std::to_string(number));
  }
  void gauge(std::string_view name, std::string_view help, std::uint64_t number) {
    describe(name, "gauge", help);
    value(name, std::to_string(number));
  }

 private:
  std::string& text_;
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

double processorSeconds() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

std::uint64_t residentBytes() {
  std::ifstream file("/proc/self/statm");
  std::uint64_t total = 0;
  std::uint64_t resident = 0;
  file >> total >> resident;
  return resident * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE));
}

const auto processStart = std::chrono::system_clock::now();

void appendProcess(MetricsText& text) {
  text.describe("process_cpu_seconds_total", "counter", "Processor time used.");
  text.value("process_cpu_seconds_total", decimal(processorSeconds()));
  text.gauge("process_resident_memory_bytes", "Memory in use.", residentBytes());
  text.describe("process_start_time_seconds", "gauge", "Start of the process, in Unix time.");
  const std::chrono::duration<double> start = processStart.time_since_epoch();
  std::array<char, 32> seconds{};
  std::snprintf(seconds.data(), seconds.size(), "%.3f", start.count());
  text.value("process_start_time_seconds", seconds.data());
}

}  // namespace

void LatencyHistogram::add(std::chrono::nanoseconds time) {
  const double seconds = std::chrono::duration<double>(time).count();
  const auto bucket = std::lower_bound(kSeconds.begin(), kSeconds.end(), seconds);
  ++counts_[static_cast<std::size_t>(bucket - kSeconds.begin())];
  nanoseconds_ += static_cast<std::uint64_t>(time.count());
}

void LatencyHistogram::appendTo(std::string& text, const std::string& name) const {
  MetricsText out(text);
  std::uint64_t total = 0;
  for (std::size_t i = 0; i < kSeconds.size(); ++i) {
    total += counts_[i];
    out.value(name + "_bucket{le=\"" + decimal(kSeconds[i]) + "\"}", std::to_string(total));
  }
  total += counts_[kSeconds.size()];
  out.value(name + "_bucket{le=\"+Inf\"}", std::to_string(total));
  out.value(name + "_sum", decimal(static_cast<double>(nanoseconds_) * 1e-9));
  out.value(name + "_count", std::to_string(total));
}

std::string GatewayMetrics::text(const GatewayUsage& usage, bool isBrokerConnected) const {
  std::string result;
  MetricsText text(result);
  text.counter("jx_gateway_events_accepted_total", "Events that the broker has stored.", accepted);
  text.counter("jx_gateway_events_duplicate_total",
               "Accepted events that the broker had stored before.", duplicates);
  text.counter("jx_gateway_events_invalid_total", "Accepted events that did not pass validation.",
               invalid);
  text.describe("jx_gateway_requests_refused_total", "counter",
                "Requests that were not accepted, by reason.");
  for (std::size_t i = 1; i < kRefusals; ++i) {
    text.value("jx_gateway_requests_refused_total{reason=\"" +
                   std::string(nameOf(static_cast<Refusal>(i))) + "\"}",
               std::to_string(refused[i]));
  }
  text.counter("jx_gateway_connections_refused_total", "Connections closed above the limit.",
               usage.refusedConnections);
  text.describe("jx_gateway_broker_ack_seconds", "histogram",
                "Time until the broker acknowledged or refused an event.");
  acknowledgement.appendTo(result, "jx_gateway_broker_ack_seconds");
  text.gauge("jx_gateway_requests_in_flight", "Requests that wait for the broker.",
             usage.requestsInFlight);
  text.gauge("jx_gateway_bytes_in_flight", "Memory of requests that are read or wait.",
             usage.bytesInFlight);
  text.gauge("jx_gateway_connections", "Open connections.", usage.connections);
  text.gauge("jx_gateway_broker_connected", "1 while the broker is connected.",
             isBrokerConnected ? 1 : 0);
  appendProcess(text);
  text.describe("jx_gateway_build_info", "gauge", "1; the label is the version.");
  text.value("jx_gateway_build_info{version=\"" JX_VERSION "\"}", "1");
  return result;
}

}  // namespace jx
