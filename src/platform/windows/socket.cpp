#include "platform/socket.h"

// The one for sockets wants to come before the system's own.
#include <winsock2.h>
#include <ws2tcpip.h>

#include "platform/windows/windows_api.h"

#include <algorithm>
#include <array>
#include <climits>

#include "platform/failure.h"

namespace qublet {
namespace {

// The socket library, from the making of this to its end.
class SocketLibrary {
 public:
  SocketLibrary() {
    constexpr WORD kVersion = 514;  // 2.2
    WSADATA told{};
    if (WSAStartup(kVersion, &told) != 0) throw Failure("no sockets");
  }
  ~SocketLibrary() { WSACleanup(); }
  SocketLibrary(const SocketLibrary&) = delete;
  SocketLibrary& operator=(const SocketLibrary&) = delete;
};

class InternetSocket : public Socket {
 public:
  explicit InternetSocket(std::uint16_t port) : port_(port), socket_(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
    if (socket_ == INVALID_SOCKET) throw Failure("no socket");
    // Programs that are started meanwhile have no part in it.
    SetHandleInformation(reinterpret_cast<HANDLE>(socket_), HANDLE_FLAG_INHERIT, 0);
  }
  ~InternetSocket() override { closesocket(socket_); }
  InternetSocket(const InternetSocket&) = delete;
  InternetSocket& operator=(const InternetSocket&) = delete;

  bool IsAddress(const std::string& host) const override {
    return !host.empty() && inet_addr(host.c_str()) != INADDR_NONE;
  }

  std::string AddressOf(const std::string& host) const override {
    // The system takes no name for its own.
    if (host.empty()) return "";
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &wanted, &found) != 0) return "";
    std::array<char, INET_ADDRSTRLEN> text{};
    auto* first = reinterpret_cast<sockaddr_in*>(found->ai_addr);
    inet_ntop(AF_INET, &first->sin_addr, text.data(), text.size());
    freeaddrinfo(found);
    return text.data();
  }

  void Connect(const std::string& address) override {
    if (!IsAddress(address)) throw Failure("no such host", address);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(port_);
    place.sin_addr.s_addr = inet_addr(address.c_str());
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0)
      throw Failure("no connection", address);
  }

  void Send(std::string_view bytes) override { send(socket_, bytes.data(), LengthOf(bytes.size()), 0); }

  std::size_t Receive(std::span<char> buffer) override {
    const int count = recv(socket_, buffer.data(), LengthOf(buffer.size()), 0);
    if (count == SOCKET_ERROR) throw Failure("the connection broke");
    return static_cast<std::size_t>(count);
  }

 private:
  static int LengthOf(std::size_t size) { return static_cast<int>(std::min<std::size_t>(size, INT_MAX)); }

  SocketLibrary library_;
  std::uint16_t port_;
  SOCKET socket_;
};

}  // namespace

Sockets SocketsTo(std::uint16_t port) {
  return [port] { return std::make_unique<InternetSocket>(port); };
}

}  // namespace qublet
