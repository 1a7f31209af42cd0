#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/message_bus.h"

namespace qublet {

// What stands in an answer that came over a bus. It may come from anybody and hold anything; no answer, and one of
// another kind than is asked about, holds nothing.

// Of a property: its text.
std::string TextFrom(const BusMessage& answer);
// Of a property: its whole number, of whatever width; players are not at one about the type of a position.
std::optional<std::int64_t> NumberFrom(const BusMessage& answer);
// Of the property Metadata: the path "mpris:trackid", "" when the player doesn't name its track.
std::string TrackFrom(const BusMessage& answer);
// Of the bus itself: all names; the owner of one; the number of the owner's process.
std::vector<std::string> NamesFrom(const BusMessage& answer);
std::optional<std::string> OwnerFrom(const BusMessage& answer);
std::optional<std::uint32_t> ProcessFrom(const BusMessage& answer);

}  // namespace qublet
