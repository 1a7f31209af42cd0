#include "settings/update/http_fetch.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <thread>
#include <utility>

#include "platform/code_page.h"
#include "platform/failure.h"

namespace qublet {
namespace {

constexpr std::size_t kBlock = 1024;
constexpr std::size_t kMostBytes = std::size_t{1} << 20;
constexpr std::string_view kLineEnd = "\r\n";

std::string SingleByteText(const std::string& text) {
  return ToCodePage(text).value_or(text);
}

// A block loses what stands behind a zero in it.
std::string ReadToTheEnd(Socket& socket) {
  std::string response;
  std::array<char, kBlock> buffer{};
  std::size_t all = 0;
  while (const std::size_t count = socket.Receive(buffer)) {
    const std::string_view block(buffer.data(), count);
    response += block.substr(0, block.find('\0'));
    all += count;
    if (all > kMostBytes) throw Failure("too large");
  }
  return response;
}

}  // namespace

std::string GetHostFromUrl(const std::string& url) {
  constexpr std::string_view kMark = "://";
  const std::size_t mark = url.find(kMark);
  const std::size_t start = mark == url.npos ? 0 : mark + kMark.size();
  return url.substr(start, url.find('/', start) - start);
}

std::string BuildHttpRequest(bool headOnly, const std::string& url, const std::string& host, std::int32_t rangeStart,
                             std::int32_t rangeEnd) {
  std::string request;
  const auto add = [&request](const std::string& line) { request.append(line).append(kLineEnd); };
  add((headOnly ? "HEAD " : "GET ") + url + " HTTP/1.1");
  add("Range: bytes=" + std::to_string(rangeStart) + "-" + (rangeEnd == 0 ? "" : std::to_string(rangeEnd)));
  add("Host: " + host);
  add("Accept: */*");
  add("User-Agent: WinsockVB HTTP Test example");
  add("Connection: close");
  add("");
  return request;
}

std::string ResolveHost(const Socket& socket, const std::string& host) {
  return socket.IsAddress(host) ? host : socket.AddressOf(host);
}

void StripHttpHeaders(std::string& response) {
  constexpr std::string_view kEmptyLine = "\r\n\r\n";
  const std::size_t end = response.find(kEmptyLine);
  if (end != response.npos) response.erase(0, end + kEmptyLine.size());
}

std::string HttpFetch(const Sockets& sockets, bool headOnly, const std::string& url, std::int32_t rangeStart,
                      std::int32_t rangeEnd, bool keepHeaders) {
  std::string response;
  const bool whole = Guarded([&] {
    const std::string host = GetHostFromUrl(url);
    const std::string request = BuildHttpRequest(headOnly, url, host, rangeStart, rangeEnd);
    const std::unique_ptr<Socket> socket = sockets();
    socket->Connect(ResolveHost(*socket, host));
    socket->Send(SingleByteText(request));
    response = ReadToTheEnd(*socket);
    if (!keepHeaders) StripHttpHeaders(response);
  });
  return whole ? response : "";
}

std::future<std::string> BeginFetch(const Sockets& sockets, const std::string& url) {
  // It owns all that it works with, and so may outlive the program's windows.
  std::packaged_task<std::string()> fetch([sockets, url] { return HttpFetch(sockets, false, url, 0, 0, false); });
  std::future<std::string> response = fetch.get_future();
  if (!Guarded([&] { std::thread(std::move(fetch)).detach(); })) {
    std::promise<std::string> nothing;
    response = nothing.get_future();
    nothing.set_value("");
  }
  return response;
}

}  // namespace qublet
