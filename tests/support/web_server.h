#pragma once

#ifdef _WIN32
#include <winsock2.h>
#include <ws2tcpip.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/socket.h"

namespace qublet {

// A server of the test's own on this machine that does with each connection what the test says, one after the other.
class WebServer {
 public:
#ifdef _WIN32
  using Handle = SOCKET;
#else
  using Handle = int;
#endif

  // A connection. What isn't closed stays open as long as the server.
  class Visitor {
   public:
    Visitor(WebServer& server, Handle handle) : server_(server), handle_(handle) {}

    // To the first empty line.
    void ReadRequest() const {
      std::string request;
      char c = 0;
      while (!request.ends_with("\r\n\r\n") && server_.CanRead(handle_) && recv(handle_, &c, 1, 0) == 1) request += c;
      const std::lock_guard lock(server_.mutex_);
      server_.requests_.push_back(request);
    }
    // False when nobody takes it any more.
    bool Send(const std::string& text) const {
#ifdef _WIN32
      return !server_.ending_ && send(handle_, text.data(), static_cast<int>(text.size()), 0) > 0;
#else
      return !server_.ending_ && send(handle_, text.data(), text.size(), MSG_NOSIGNAL) > 0;
#endif
    }
    void Close() {
      server_.CloseHandle(handle_);
      handle_ = static_cast<Handle>(-1);
    }
    // Closes in such a way that the other side gets an error.
    void Reset() {
      const linger at_once{1, 0};
      setsockopt(handle_, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&at_once), sizeof at_once);
      Close();
    }
    static void Wait(std::chrono::milliseconds time) {
      std::this_thread::sleep_for(time);
    }

   private:
    friend class WebServer;
    WebServer& server_;
    Handle handle_;
  };
  using Serve = std::function<void(Visitor& visitor)>;

  explicit WebServer(Serve serve) : serve_(std::move(serve)) {
#ifdef _WIN32
    WSADATA told{};
    WSAStartup(MAKEWORD(2, 2), &told);
#endif
    listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    if (bind(listener_, reinterpret_cast<const sockaddr*>(&place), size) != 0 || listen(listener_, 8) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&place), &size) != 0)
      throw std::runtime_error("no server");
    port_ = ntohs(place.sin_port);
    thread_ = std::thread([this] { Run(); });
  }
  ~WebServer() {
    ending_ = true;
    thread_.join();
    for (const Handle handle : left_open_) CloseHandle(handle);
    CloseHandle(listener_);
#ifdef _WIN32
    WSACleanup();
#endif
  }
  WebServer(const WebServer&) = delete;
  WebServer& operator=(const WebServer&) = delete;

  // Says this and closes.
  static Serve Answer(const std::string& response) {
    return [response](Visitor& visitor) {
      visitor.ReadRequest();
      visitor.Send(response);
      visitor.Close();
    };
  }
  // A version file of this content.
  static Serve Answer200(const std::string& body) {
    return Answer("HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n" + body);
  }

  Sockets SocketsToIt() const {
    return SocketsTo(port_);
  }
  std::vector<std::string> Requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  static void CloseHandle(Handle handle) {
#ifdef _WIN32
    closesocket(handle);
#else
    close(handle);
#endif
  }
  // Waits until there is something to take; False at the server's end.
  bool CanRead(Handle handle) const {
    while (!ending_) {
      fd_set one;
      FD_ZERO(&one);
      FD_SET(handle, &one);
      timeval tick{0, 20'000};
      if (select(static_cast<int>(handle) + 1, &one, nullptr, nullptr, &tick) > 0) return true;
    }
    return false;
  }
  void Run() {
    while (CanRead(listener_)) {
      Visitor visitor(*this, accept(listener_, nullptr, nullptr));
      serve_(visitor);
      if (visitor.handle_ != static_cast<Handle>(-1)) left_open_.push_back(visitor.handle_);
    }
  }

  Serve serve_;
  Handle listener_;
  std::uint16_t port_ = 0;
  std::atomic<bool> ending_ = false;
  mutable std::mutex mutex_;
  std::vector<std::string> requests_;
  std::vector<Handle> left_open_;
  std::thread thread_;
};

}  // namespace qublet
