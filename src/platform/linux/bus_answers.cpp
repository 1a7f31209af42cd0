#include "platform/linux/bus_answers.h"

#include <algorithm>
#include <limits>

namespace qublet {
namespace {

// What stands inside the variant that answers for a property; no type when there is none.
struct Value {
  explicit Value(const BusMessage& answer) {
    DBusMessageIter outer;
    if (answer && dbus_message_iter_init(answer.get(), &outer) &&
        dbus_message_iter_get_arg_type(&outer) == DBUS_TYPE_VARIANT) {
      dbus_message_iter_recurse(&outer, &place);
      type = dbus_message_iter_get_arg_type(&place);
    }
  }

  DBusMessageIter place{};
  int type = DBUS_TYPE_INVALID;
};

std::string TextAt(DBusMessageIter& place) {
  const int type = dbus_message_iter_get_arg_type(&place);
  if (type != DBUS_TYPE_STRING && type != DBUS_TYPE_OBJECT_PATH) return "";
  const char* text = nullptr;
  dbus_message_iter_get_basic(&place, &text);
  return text;
}

}  // namespace

std::string TextFrom(const BusMessage& answer) {
  Value value(answer);
  return value.type == DBUS_TYPE_INVALID ? "" : TextAt(value.place);
}

std::optional<std::int64_t> NumberFrom(const BusMessage& answer) {
  Value value(answer);
  DBusBasicValue number{};
  if (!dbus_type_is_basic(value.type) || value.type == DBUS_TYPE_UNIX_FD) return std::nullopt;
  dbus_message_iter_get_basic(&value.place, &number);
  switch (value.type) {
    case DBUS_TYPE_INT64:
      return number.i64;
    case DBUS_TYPE_UINT64:
      return static_cast<std::int64_t>(std::min<dbus_uint64_t>(number.u64, std::numeric_limits<std::int64_t>::max()));
    case DBUS_TYPE_INT32:
      return number.i32;
    case DBUS_TYPE_UINT32:
      return number.u32;
    default:
      return std::nullopt;
  }
}

std::string TrackFrom(const BusMessage& answer) {
  Value value(answer);
  if (value.type != DBUS_TYPE_ARRAY) return "";
  DBusMessageIter entry;
  dbus_message_iter_recurse(&value.place, &entry);
  for (; dbus_message_iter_get_arg_type(&entry) == DBUS_TYPE_DICT_ENTRY; dbus_message_iter_next(&entry)) {
    DBusMessageIter field, content;
    dbus_message_iter_recurse(&entry, &field);
    if (TextAt(field) != "mpris:trackid") continue;
    dbus_message_iter_next(&field);
    if (dbus_message_iter_get_arg_type(&field) != DBUS_TYPE_VARIANT) return "";
    dbus_message_iter_recurse(&field, &content);
    const std::string track = TextAt(content);
    return dbus_validate_path(track.c_str(), nullptr) ? track : "";
  }
  return "";
}

std::vector<std::string> NamesFrom(const BusMessage& answer) {
  std::vector<std::string> names;
  DBusMessageIter list, place;
  if (!answer || !dbus_message_has_signature(answer.get(), "as")) return names;
  dbus_message_iter_init(answer.get(), &list);
  dbus_message_iter_recurse(&list, &place);
  for (; dbus_message_iter_get_arg_type(&place) == DBUS_TYPE_STRING; dbus_message_iter_next(&place))
    names.push_back(TextAt(place));
  return names;
}

std::optional<std::string> OwnerFrom(const BusMessage& answer) {
  DBusMessageIter place;
  if (!answer || !dbus_message_iter_init(answer.get(), &place)) return std::nullopt;
  return TextAt(place);
}

std::optional<std::uint32_t> ProcessFrom(const BusMessage& answer) {
  dbus_uint32_t process = 0;
  if (!answer || !dbus_message_get_args(answer.get(), nullptr, DBUS_TYPE_UINT32, &process, DBUS_TYPE_INVALID))
    return std::nullopt;
  return process;
}

}  // namespace qublet
