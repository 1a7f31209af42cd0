#pragma once

#include <sys/stat.h>

#include <cerrno>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "platform/failure.h"

namespace qublet {

// An open file that is closed with its owner; -1 stands for none.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();

  int Get() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }

 private:
  int number_;
};

// Throws Failure with the reason that errno says, the step and the file.
[[noreturn]] void FailWithErrno(const std::string& step, const std::string& native);

// Runs a system call again for as long as a signal interrupts it.
template <typename Call>
auto Uninterrupted(Call&& call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// Opens with O_CLOEXEC. Throws Failure.
Descriptor OpenAt(int folder, const std::string& native, int flags, mode_t mode = 0);
struct stat StatusOf(const Descriptor& file);

// Reads until the buffer is full or the file ends; gives how much was read. Throws Failure.
std::size_t ReadFully(const Descriptor& file, std::int64_t offset, std::span<std::uint8_t> buffer);
// Writes everything, at the position of the descriptor or at `offset`. Throws Failure.
void WriteFully(const Descriptor& file, std::span<const std::uint8_t> bytes);
void WriteFullyAt(const Descriptor& file, std::int64_t offset, std::span<const std::uint8_t> bytes);
// Lets the bytes written so far set out for the disk and doesn't wait for them.
void StartFlush(const Descriptor& file);
// Waits until the bytes are on the disk. Throws Failure.
void FlushToDisk(const Descriptor& file);

// Whether an open file is the regular one that stands at a name in a folder (AT_FDCWD: at a path), no link of it.
bool StandsAt(int folder, const std::string& name, const Descriptor& file);

// A name that no other file has: ".qublet-" and a random number.
std::string TemporaryName();

// Whether a write to this file is refused: no owner write bit (it counts for the superuser too) or no access.
bool RefusesWriting(int folder, const std::string& native, const struct stat& status);

}  // namespace qublet
