#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace qublet {

// How texts stand in order in this user's language, whatever their case.
class Collation {
 public:
  virtual ~Collation() = default;
  // Texts stand in the order of their keys' bytes. Texts that differ only in case have the same key. Never throws but
  // for want of memory; safe to call from several threads.
  virtual std::string Key(std::string_view text) const = 0;
};

// The one of this user's settings. Where they name a language that this system doesn't know, letters stand in the
// order of their code points.
std::unique_ptr<Collation> OpenCollation();

}  // namespace qublet
