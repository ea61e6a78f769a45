// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/gateway/Clients.h"

#include <unistd.h>

#include <algorithm>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/read_until.hpp>
#include <boost/asio/ssl.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/asio/write.hpp>
#include <cstdio>
#include <exception>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <vector>

namespace jx::bench {
namespace {

namespace asio = boost::asio;
using asio::use_awaitable;
using asio::ip::tcp;
using Clock = std::chrono::steady_clock;
using Stream = asio::ssl::stream<tcp::socket>;

struct Results {
  std::vector<double> milliseconds;  // of accepted events
  long refused = 0;
};

// The JSON around the padding is about 70 bytes.
std::string bodyOf(const std::string& id, std::size_t bytes) {
  const std::string start = R"({"context":{"event_id":")" + id + R"("},"event_name":"bench","p":")";
  const std::size_t padding = bytes > start.size() + 2 ? bytes - start.size() - 2 : 0;
  return start + std::string(padding, 'x') + "\"}";
}

std::string requestOf(const std::string& id, std::size_t bytes) {
  const std::string body = bodyOf(id, bytes);
  return "POST /events?jx_s=7&token=bench HTTP/1.1\r\nHost: localhost\r\n"
         "Content-Type: application/json\r\nContent-Length: " +
         std::to_string(body.size()) + "\r\n\r\n" + body;
}

class Fleet {
 public:
  explicit Fleet(const Clients& clients) : clients_(clients) {
    tls_.load_verify_file(clients.authorityFile);
    tls_.set_verify_mode(asio::ssl::verify_peer);
  }

  // Opens the connections with one event each.
  void open() {
    for (int i = 0; i < clients_.connections; ++i) {
      streams_.push_back(std::make_unique<Stream>(context_, tls_));
      asio::co_spawn(context_, openOne(*streams_.back(), i), rethrow);
      // The system accepts a limited number of connections in advance.
      if (i % 200 == 199) runAll();
    }
    runAll();
  }
  Results post() {
    results_ = {};
    end_ = Clock::now() + clients_.time;
    for (int i = 0; i < clients_.connections; ++i)
      asio::co_spawn(context_, postMany(*streams_[static_cast<std::size_t>(i)], i), rethrow);
    runAll();
    return std::move(results_);
  }

 private:
  static void rethrow(const std::exception_ptr& error) {
    if (error) std::rethrow_exception(error);
  }
  void runAll() {
    context_.restart();
    context_.run();
  }
  asio::awaitable<void> openOne(Stream& stream, int number) {
    const tcp::endpoint server(asio::ip::address_v4::loopback(),
                               static_cast<unsigned short>(clients_.port));
    co_await stream.lowest_layer().async_connect(server, use_awaitable);
    stream.lowest_layer().set_option(tcp::no_delay(true));
    co_await stream.async_handshake(Stream::client, use_awaitable);
    co_await postOne(stream, idOf(number, 0));
  }
  asio::awaitable<void> postMany(Stream& stream, int number) {
    for (long count = 1; Clock::now() < end_; ++count)
      co_await postOne(stream, idOf(number, count));
  }
  asio::awaitable<void> postOne(Stream& stream, const std::string& id) {
    const std::string request = requestOf(id, clients_.bytes);
    const Clock::time_point start = Clock::now();
    co_await asio::async_write(stream, asio::buffer(request), use_awaitable);
    std::string response;
    co_await asio::async_read_until(stream, asio::dynamic_buffer(response), "\r\n\r\n",
                                    use_awaitable);
    const std::chrono::duration<double, std::milli> time = Clock::now() - start;
    if (response.compare(0, 12, "HTTP/1.1 204") == 0) {
      results_.milliseconds.push_back(time.count());
    } else {
      ++results_.refused;
    }
  }
  static std::string idOf(int number, long count) {
    return std::to_string(::getpid()) + "-" + std::to_string(number) + "-" + std::to_string(count);
  }

  const Clients clients_;
  asio::io_context context_{1};
  asio::ssl::context tls_{asio::ssl::context::tls_client};
  std::vector<std::unique_ptr<Stream>> streams_;
  Clock::time_point end_;
  Results results_;
};

double percentile(std::vector<double>& values, double share) {
  if (values.empty()) return 0;
  const auto index = static_cast<std::ptrdiff_t>(share * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), values.begin() + index, values.end());
  return values[static_cast<std::size_t>(index)];
}

}  // namespace

void runClients(const Clients& clients) {
  Fleet fleet(clients);
  fleet.open();
  const Clock::time_point start = Clock::now();
  Results results = fleet.post();
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::printf(
      "{\"accepted\":%zu,\"per_second\":%.1f,\"refused\":%ld,\"p50_ms\":%.3f,"
      "\"p99_ms\":%.3f}\n",
      results.milliseconds.size(), static_cast<double>(results.milliseconds.size()) / seconds,
      results.refused, percentile(results.milliseconds, 0.5),
      percentile(results.milliseconds, 0.99));
}

void holdClients(const Clients& clients) {
  Fleet fleet(clients);
  fleet.open();
  std::puts("open");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
}

}  // namespace jx::bench
