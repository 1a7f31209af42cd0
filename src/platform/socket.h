#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace qublet {

// A stream socket for one exchange over IPv4, used by one thread. Nothing here has a time-out. Its end closes it and
// gives back what the system has lent.
class Socket {
 public:
  virtual ~Socket() = default;
  // Whether a host is an address already, in any form that the system knows ("1.2.3.4", "127.1"). Never throws.
  virtual bool IsAddress(const std::string& host) const = 0;
  // The first address that the system knows a host by, as four decimal numbers with dots; "" when it knows none.
  // Never throws.
  virtual std::string AddressOf(const std::string& host) const = 0;
  // Throws Failure, also for what is no address.
  virtual void Connect(const std::string& address) = 0;
  // Hands the bytes to the system in one piece. Nobody is told when they don't arrive.
  virtual void Send(std::string_view bytes) = 0;
  // Waits for bytes and gives how many came; 0 when the other side has ended. Throws Failure.
  virtual std::size_t Receive(std::span<char> buffer) = 0;
};

// Makes a socket. Throws Failure. A copy may be used by another thread, and outlives all else.
using Sockets = std::function<std::unique_ptr<Socket>()>;

inline constexpr std::uint16_t kWebPort = 80;

// Sockets of this machine that connect to this port.
Sockets SocketsTo(std::uint16_t port);

}  // namespace qublet
