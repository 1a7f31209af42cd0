#include "fuzz/fuzz_input.h"
#include "platform/failure.h"
#include "settings/update/http_fetch.h"
#include "settings/update/update_check.h"

using namespace qublet;

namespace {

// A server that says what it says whatever it is asked, in pieces.
class Server : public Socket {
 public:
  Server(std::string_view answer, std::size_t piece, bool breaks) : rest_(answer), piece_(piece), breaks_(breaks) {}

  bool IsAddress(const std::string&) const override { return false; }
  std::string AddressOf(const std::string&) const override { return "1.2.3.4"; }
  void Connect(const std::string& address) override { Require(address == "1.2.3.4"); }
  void Send(std::string_view bytes) override { Require(bytes.ends_with("\r\n\r\n")); }
  std::size_t Receive(std::span<char> buffer) override {
    if (rest_.empty() && breaks_) throw Failure("reset by peer");
    const std::size_t count = std::min({piece_, rest_.size(), buffer.size()});
    std::copy_n(rest_.begin(), count, buffer.begin());
    rest_.remove_prefix(count);
    return count;
  }

 private:
  std::string_view rest_;
  const std::size_t piece_;
  const bool breaks_;
};

std::string Fetched(std::string_view answer, std::size_t piece, bool breaks, bool keep_headers) {
  const auto server = [&] { return std::make_unique<Server>(answer, piece, breaks); };
  return HttpFetch(server, false, "http://a.invalid/b", 0, 0, keep_headers);
}

}  // namespace

// The first byte chooses how an answer comes; the rest is the answer. It is taken whole or not at all, nothing is
// made of it but three words, and the host is what stands in the address.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const std::size_t piece = 1 + pieces.UpTo(127);
  const std::string_view answer = pieces.Rest();
  Require(Fetched(answer, piece, true, true).empty());
  const std::string whole = Fetched(answer, piece, false, true);
  if (answer.find('\0') == answer.npos) Require(whole == answer);
  Require(whole.size() <= answer.size() && whole.find('\0') == whole.npos);
  std::string body = whole;
  StripHttpHeaders(body);
  Require(Fetched(answer, piece, false, false) == body && whole.ends_with(body));
  const bool version = body.size() == VersionText().size();
  Require((AnswerOf(body) == UpdateAnswer::kFailed) == !version);
  Require(!version || (AnswerOf(body) == UpdateAnswer::kNewer) == (body > VersionText()));

  const std::string host = GetHostFromUrl(std::string(answer));
  Require(host.find('/') == host.npos || answer.find("://") == answer.npos);
  Require(answer.find(host) != answer.npos);
  return 0;
}
