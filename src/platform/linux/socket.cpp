#include "platform/socket.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <array>

#include "platform/linux/descriptor.h"

namespace qublet {
namespace {

class InternetSocket : public Socket {
 public:
  explicit InternetSocket(std::uint16_t port)
      : port_(port), socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, IPPROTO_TCP)) {
    if (!socket_.IsOpen()) FailWithErrno("socket", "");
  }

  bool IsAddress(const std::string& host) const override {
    return !host.empty() && inet_addr(host.c_str()) != INADDR_NONE;
  }

  std::string AddressOf(const std::string& host) const override {
    addrinfo wanted{};
    wanted.ai_family = AF_INET;
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &wanted, &found) != 0) return "";
    std::array<char, INET_ADDRSTRLEN> text{};
    const auto* first = reinterpret_cast<const sockaddr_in*>(found->ai_addr);
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
    if (connect(socket_.Get(), reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0)
      FailWithErrno("connect", address);
  }

  void Send(std::string_view bytes) override {
    // Without the flag a server that has gone away would end the program by a signal.
    Uninterrupted([&] { return send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL); });
  }

  std::size_t Receive(std::span<char> buffer) override {
    const ssize_t count = Uninterrupted([&] { return recv(socket_.Get(), buffer.data(), buffer.size(), 0); });
    if (count < 0) FailWithErrno("recv", "");
    return static_cast<std::size_t>(count);
  }

 private:
  std::uint16_t port_;
  Descriptor socket_;
};

}  // namespace

Sockets SocketsTo(std::uint16_t port) {
  return [port] { return std::make_unique<InternetSocket>(port); };
}

}  // namespace qublet
