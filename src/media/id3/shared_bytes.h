#pragma once

#include <algorithm>
#include <compare>
#include <initializer_list>
#include <memory>
#include <utility>

#include "media/id3/bytes.h"

namespace qublet {

// Bytes that never change and that all copies share: a frame can have 256 MiB, and a tag is copied to be changed.
class SharedBytes {
 public:
  SharedBytes() = default;
  SharedBytes(Bytes bytes) {  // NOLINT(google-explicit-constructor)
    if (bytes.empty()) return;
    whole_ = std::make_shared<const Bytes>(std::move(bytes));
    view_ = *whole_;
  }
  SharedBytes(std::initializer_list<std::uint8_t> bytes) : SharedBytes(Bytes(bytes)) {}
  // A move copies too, so that none is left with bytes that are gone.
  SharedBytes(const SharedBytes&) = default;
  SharedBytes& operator=(const SharedBytes&) = default;

  // `part` lies in these bytes.
  SharedBytes Part(BytesView part) const {
    SharedBytes result(*this);
    result.view_ = part;
    return result;
  }

  auto begin() const { return view_.begin(); }
  auto end() const { return view_.end(); }
  std::size_t size() const { return view_.size(); }
  bool empty() const { return view_.empty(); }

  friend bool operator==(const SharedBytes& a, const SharedBytes& b) {
    const bool shared = a.view_.data() == b.view_.data() && a.size() == b.size();
    return shared || std::ranges::equal(a.view_, b.view_);
  }
  friend auto operator<=>(const SharedBytes& a, const SharedBytes& b) { return AsText(a.view_) <=> AsText(b.view_); }

 private:
  std::shared_ptr<const Bytes> whole_;
  BytesView view_;
};

}  // namespace qublet
