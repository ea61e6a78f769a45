// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXCurlTransport.h"

#include <curl/curl.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <new>
#include <utility>

#include "jx/core/JXCollectionEndpoint.h"
#include "jx/core/transfer/JXCurlLibrary.h"
#include "jx/core/transfer/JXCurlMulti.h"
#include "jx/core/transfer/JXCurlTrust.h"
#include "jx/core/transfer/JXHttpResponseParser.h"
#include "jx/core/transfer/JXHttpTarget.h"
#include "jx/core/transfer/JXSocketGate.h"
#include "jx/platform/JXConcat.h"

namespace jx {
// A request in flight with its easy handle, which is reused for the next request.
struct Exchange {
  CURL* easy = nullptr;
  JXHttpTarget target;
  JXHttpRequest request;
  JXHttpResponseParser response;
  char error[CURL_ERROR_SIZE] = {};
  bool isSecure = true;  ///< libcurl accepted every setting that server authentication requires
  JXSocketGate& sockets;
  bool lacksDescriptor = false;  ///< too few were left for a further connection
  bool waited = false;           ///< for the connection of another request, because of that

  explicit Exchange(JXSocketGate& gate) : easy(curl_easy_init()), sockets(gate) {
    if (easy == nullptr) throw std::bad_alloc();
  }
  ~Exchange() { curl_easy_cleanup(easy); }
  Exchange(const Exchange&) = delete;
  Exchange& operator=(const Exchange&) = delete;
};

namespace {

using std::chrono::milliseconds;

constexpr long kReceiveBuffer = 4 * 1024;
constexpr long kSendBuffer = 16 * 1024;  // libcurl's minimum

long inMilliseconds(milliseconds time) {
  // Zero would select libcurl's default.
  return static_cast<long>(std::clamp<milliseconds::rep>(time.count(), 1, INT_MAX));
}

std::size_t onHeader(char* data, std::size_t, std::size_t bytes, void* exchange) {
  try {
    return static_cast<Exchange*>(exchange)->response.readHeader({data, bytes}) ? bytes : 0;
  } catch (...) {
    return 0;  // out of memory: the request ends without a response
  }
}

std::size_t onBody(char*, std::size_t, std::size_t bytes, void* exchange) {
  return static_cast<Exchange*>(exchange)->response.readBody(bytes) ? bytes : 0;
}

curl_socket_t openSocket(void* exchange, curlsocktype, curl_sockaddr* address) {
  auto& all = *static_cast<Exchange*>(exchange);
  const int socket = all.sockets.open(address->family, address->socktype, address->protocol);
  all.lacksDescriptor = socket < 0 && (errno == EMFILE || errno == ENFILE);
  return socket;
}

int closeSocket(void* gate, curl_socket_t socket) {
  static_cast<JXSocketGate*>(gate)->close(socket);
  return 0;
}

std::string describe(CURLcode code, const Exchange& exchange, const JXHttpOptions& options) {
  if (code == CURLE_SSL_CACERT_BADFILE && options.caFile.isPresent()) {
    return concat({"CA file ", options.caFile.view(), " is missing or contains no certificates"});
  }
  if (code == CURLE_OK) return "incomplete response header section";
  std::string message = curl_easy_strerror(code);
  // libcurl quotes a proxy URL that it cannot parse.
  if (exchange.error[0] != '\0') {
    message.append(" (").append(withoutCredentials(exchange.error)).append(")");
  }
  return message;
}

}  // namespace

class JXCurlTransport::Implementation {
 public:
  explicit Implementation(JXHttpOptions options) : options_(std::move(options)) {
    JXCurlLibrary::prepare();
  }

  ~Implementation() {
    abortAll();
    free_.clear();
    curl_slist_free_all(headers_);
  }

  void start(JXHttpRequest request) {
    prepareHandles();
    std::unique_ptr<Exchange> exchange = freeExchange();
    exchange->request = std::move(request);
    const std::string error = exchange->target.set(exchange->request.url);
    if (!error.empty()) return reject(std::move(exchange), true, error);
    if (!exchange->isSecure) {
      return reject(std::move(exchange), false, "libcurl does not support a required TLS setting");
    }
    prepareRequest(*exchange);
    // A result must not be lost because memory is exhausted.
    ready_.reserve(ready_.size() + active_.size() + 1);
    free_.reserve(free_.size() + active_.size() + 1);
    active_.push_back(std::move(exchange));
    if (sockets_.isShut()) return;  // until abortAll
    Exchange& started = *active_.back();
    hasStarted_ = true;
    const CURLMcode code = curl_multi_add_handle(multi_.handle(), started.easy);
    if (code != CURLM_OK) finish(started, CURLE_FAILED_INIT);
  }

  std::vector<JXHttpResult> poll(std::optional<milliseconds> timeout) {
    std::vector<JXHttpResult> results;
    results.reserve(active_.size());
    // Requests in flight advance after the wait.
    if (hasStarted_ || timeout == milliseconds::zero()) perform();
    sockets_.sendHeldBack();
    if (ready_.empty() && timeout != milliseconds::zero()) {
      multi_.wait(timeout);
      perform();
    }
    results.swap(ready_);
    if (sockets_.isShut()) removeUnanswered(results);
    return results;
  }

  void wakeUp() noexcept { multi_.wakeUp(); }

  void abortAll() noexcept {
    for (const std::unique_ptr<Exchange>& exchange : active_) {
      curl_multi_remove_handle(multi_.handle(), exchange->easy);
    }
    active_.clear();
    ready_.clear();
    if (sockets_.isShut()) multi_.closeConnections();
    sockets_.forgetUnconnected();
  }

  void suspend() noexcept { sockets_.shut(); }
  void resume() noexcept { sockets_.reopen(); }

 private:
  // They ended because of the suspension, which is not a failure of the network or the server.
  static void removeUnanswered(std::vector<JXHttpResult>& results) {
    const auto isUnanswered = [](const JXHttpResult& each) { return each.outcome.status == 0; };
    results.erase(std::remove_if(results.begin(), results.end(), isUnanswered), results.end());
  }

  // Creates what all requests share, with the first request.
  void prepareHandles() {
    multi_.open();
    if (headers_ != nullptr) return;
    curl_slist* const type =
        curl_slist_append(nullptr, "Content-Type: application/json; charset=utf-8");
    // Disables "100-continue": the bodies are small.
    headers_ = curl_slist_append(type, "Expect:");
    if (headers_ != nullptr) return;
    curl_slist_free_all(type);
    throw std::bad_alloc();
  }

  std::unique_ptr<Exchange> freeExchange() {
    if (free_.empty()) {
      auto exchange = std::make_unique<Exchange>(sockets_);
      prepare(*exchange);
      return exchange;
    }
    std::unique_ptr<Exchange> exchange = std::move(free_.back());
    free_.pop_back();
    return exchange;
  }

  void reject(std::unique_ptr<Exchange> exchange, bool permanently, const std::string& reason) {
    JXAttemptResult outcome;
    outcome.neverSendable = permanently;
    ready_.push_back({std::move(exchange->request), outcome, nullptr, reason, nullptr});
    free_.push_back(std::move(exchange));
  }

  // Sets the options that are the same for all requests of an exchange.
  void prepare(Exchange& exchange) {
    CURL* const easy = exchange.easy;
    curl_easy_setopt(easy, CURLOPT_PRIVATE, &exchange);
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, exchange.error);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, onHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, &exchange);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, onBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &exchange);
    curl_easy_setopt(easy, CURLOPT_POST, 1L);
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, headers_);
    if (options_.userAgent.isPresent()) {
      curl_easy_setopt(easy, CURLOPT_USERAGENT, options_.userAgent.c_str());
    }
    curl_easy_setopt(easy, CURLOPT_FOLLOWLOCATION, 0L);
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_2TLS));
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, inMilliseconds(options_.connectTimeout));
    curl_easy_setopt(easy, CURLOPT_TIMEOUT_MS, inMilliseconds(options_.requestTimeout));
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    // The responses are tiny, and most bodies have a few kilobytes.
    curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, kReceiveBuffer);
    curl_easy_setopt(easy, CURLOPT_UPLOAD_BUFFERSIZE, kSendBuffer);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETFUNCTION, openSocket);
    curl_easy_setopt(easy, CURLOPT_OPENSOCKETDATA, &exchange);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, closeSocket);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, &sockets_);
#if LIBCURL_VERSION_NUM >= 0x075700
    // An abort does not wait for a pending name resolution.
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L);
#endif
    exchange.isSecure = requireTrust(easy, options_);
    // Responses of the proxy to CONNECT are not responses of the server.
    curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    if (options_.proxy.isPresent()) {
      curl_easy_setopt(easy, CURLOPT_PROXY, options_.proxy.c_str());
    }
  }

  // Sets the options that differ between requests.
  void prepareRequest(Exchange& exchange) const {
    exchange.response = JXHttpResponseParser();
    exchange.error[0] = '\0';
    exchange.lacksDescriptor = exchange.waited = false;
    CURL* const easy = exchange.easy;
    curl_easy_setopt(easy, CURLOPT_POSTFIELDSIZE_LARGE,
                     static_cast<curl_off_t>(exchange.request.body.size()));
    curl_easy_setopt(easy, CURLOPT_POSTFIELDS, exchange.request.body.data());
    if (!exchange.target.hasChanged()) return;
    curl_easy_setopt(easy, CURLOPT_CURLU, exchange.target.handle());
    const bool isLoopback = exchange.target.isLoopback();
    // Requests to this device must not leave it.
    curl_easy_setopt(easy, CURLOPT_NOPROXY, isLoopback ? "*" : nullptr);
#if LIBCURL_VERSION_NUM >= 0x075500
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, isLoopback ? "https,http" : "https");
#else
    const long protocols = isLoopback ? CURLPROTO_HTTPS | CURLPROTO_HTTP : CURLPROTO_HTTPS;
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS, protocols);
#endif
  }

  // Repeated while requests end: data of another request may have been received with them. libcurl
  // resets each HTTP/2 stream whose response was received with that of another one. The resets are
  // held back until the next `poll` has performed the requests that follow.
  void perform() {
    const bool startsSome = std::exchange(hasStarted_, false);
    if (multi_.handle() == nullptr) return;
    if (startsSome || active_.size() > 1) sockets_.holdBack();
    while (!sockets_.isShut() && performOnce() && !active_.empty()) {
    }
  }

  // Returns whether a request ended.
  bool performOnce() {
    int running = 0;
    bool hasEnded = false;
    curl_multi_perform(multi_.handle(), &running);
    int left = 0;
    while (const CURLMsg* const message = curl_multi_info_read(multi_.handle(), &left)) {
      if (message->msg != CURLMSG_DONE) continue;
      const CURLcode code = message->data.result;
      void* exchange = nullptr;
      curl_easy_getinfo(message->easy_handle, CURLINFO_PRIVATE, &exchange);
      auto& ended = *static_cast<Exchange*>(exchange);
      if (waitsForConnection(ended, code)) continue;
      finish(ended, code);
      hasEnded = true;
    }
    return hasEnded;
  }

  // If too few descriptors are left for a further connection, starts the request again with no more
  // connections than there are: it waits for one of them, or replaces an idle one.
  bool waitsForConnection(Exchange& exchange, CURLcode code) {
    const auto connections = static_cast<long>(sockets_.count());
    if (code != CURLE_COULDNT_CONNECT || connections == 0) return false;
    if (!exchange.lacksDescriptor || std::exchange(exchange.waited, true)) return false;
    hasFewConnections_ = true;
    curl_multi_setopt(multi_.handle(), CURLMOPT_MAX_TOTAL_CONNECTIONS, connections);
    curl_multi_remove_handle(multi_.handle(), exchange.easy);
    return curl_multi_add_handle(multi_.handle(), exchange.easy) == CURLM_OK;
  }

  void finish(Exchange& exchange, CURLcode code) noexcept {
    curl_multi_remove_handle(multi_.handle(), exchange.easy);
    JXHttpResult result;
    result.outcome.status = exchange.response.status();
    result.outcome.neverSendable = code == CURLE_URL_MALFORMAT;
    result.outcome.isMultiplexed = exchange.response.isMultiplexed();
    if (exchange.response.status() != 0) {
      result.retryAfter = exchange.response.retryAfter();
      result.date = exchange.response.date();
    } else {
      result.reason = describedIfPossible(code, exchange);
    }
    result.request = std::move(exchange.request);
    ready_.push_back(std::move(result));
    const auto at = std::find_if(active_.begin(), active_.end(),
                                 [&](const auto& each) { return each.get() == &exchange; });
    free_.push_back(std::move(*at));
    active_.erase(at);
    if (!active_.empty()) return;
    if (code != CURLE_OK) sockets_.forgetUnconnected();
    if (std::exchange(hasFewConnections_, false)) {
      curl_multi_setopt(multi_.handle(), CURLMOPT_MAX_TOTAL_CONNECTIONS,
                        JXCurlMulti::kMaxConnections);
    }
  }

  std::string describedIfPossible(CURLcode code, const Exchange& exchange) const noexcept {
    try {
      return describe(code, exchange, options_);
    } catch (...) {
      return {};  // out of memory
    }
  }

  const JXHttpOptions options_;
  JXSocketGate sockets_;
  JXCurlMulti multi_;
  curl_slist* headers_ = nullptr;
  bool hasStarted_ = false;         ///< requests since the last `perform`
  bool hasFewConnections_ = false;  ///< fewer than JXCurlMulti::kMaxConnections are allowed
  std::vector<std::unique_ptr<Exchange>> active_;
  std::vector<std::unique_ptr<Exchange>> free_;
  std::vector<JXHttpResult> ready_;
};

JXCurlTransport::JXCurlTransport(const JXHttpOptions& options)
    : implementation_(std::make_unique<Implementation>(options)) {}

JXCurlTransport::~JXCurlTransport() = default;

void JXCurlTransport::start(JXHttpRequest request) { implementation_->start(std::move(request)); }

std::vector<JXHttpResult> JXCurlTransport::poll(std::optional<milliseconds> timeout) {
  return implementation_->poll(timeout);
}

void JXCurlTransport::wakeUp() noexcept { implementation_->wakeUp(); }

void JXCurlTransport::abortAll() noexcept { implementation_->abortAll(); }

void JXCurlTransport::suspend() noexcept { implementation_->suspend(); }

void JXCurlTransport::resume() noexcept { implementation_->resume(); }

}  // namespace jx
