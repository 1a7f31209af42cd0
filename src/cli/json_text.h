#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qublet {

// A text as a JSON string with its quotes (RFC 8259). Besides what must be escaped, so is all that a terminal could
// take for an order or that can't be seen: the text is the same whoever reads it.
std::string JsonText(std::string_view text);

// A value with its name; a number or a truth value stands in JSON as it is.
struct NamedValue {
  std::string name;
  std::string value;
  bool is_text = true;
};
using Record = std::vector<NamedValue>;

// {"name": "value", "name": 1}
std::string JsonRecord(const Record& record);

// A text for a line of values, without the marks that part values and lines.
std::string PlainValue(std::string text);

}  // namespace qublet
