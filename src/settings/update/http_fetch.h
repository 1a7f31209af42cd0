#pragma once

#include <cstdint>
#include <future>
#include <string>

#include "platform/socket.h"

namespace qublet {

// One exchange with a web server: HTTP/1.1 by hand, without redirects, chunks or a time-out. Nothing here throws.

// What stands between "://" and the next "/". A port belongs to it.
std::string GetHostFromUrl(const std::string& url);

// The lines of a request, with the range from `rangeStart` to `rangeEnd`, or to the end where that is 0.
std::string BuildHttpRequest(bool headOnly, const std::string& url, const std::string& host, std::int32_t rangeStart,
                             std::int32_t rangeEnd);

// A dotted address; "" for a host that nobody knows.
std::string ResolveHost(const Socket& socket, const std::string& host);

// Keeps what stands behind the first empty line, or all where there is none.
void StripHttpHeaders(std::string& response);

// The response, a byte a character, whatever its status; "" on any failure. It has come to its end when the server
// closes: this waits for it. What is longer than 1 MiB counts as a failure.
std::string HttpFetch(const Sockets& sockets, bool headOnly, const std::string& url, std::int32_t rangeStart,
                      std::int32_t rangeEnd, bool keepHeaders);

// Begins to fetch the whole of a file on a thread of its own, without headers. Nobody has to wait for it: who gives
// up leaves the exchange to itself.
std::future<std::string> BeginFetch(const Sockets& sockets, const std::string& url);

}  // namespace qublet
