#include "platform/linux/bus_answers.h"

#include "fuzz/fuzz_input.h"
#include "platform/code_page.h"

using namespace qublet;

namespace {

constexpr int kDeepest = 4;

std::string TextFor(Pieces& pieces) {
  const std::string text = DecodeText(pieces.Text());
  return text.substr(0, text.find('\0'));
}

void AppendContainer(DBusMessageIter& place, Pieces& pieces, int depth);

void AppendText(DBusMessageIter& place, Pieces& pieces) {
  const std::string text = pieces.Byte() % 4 == 0 ? "mpris:trackid" : TextFor(pieces);
  const char* bytes = text.c_str();
  dbus_message_iter_append_basic(&place, DBUS_TYPE_STRING, &bytes);
}

// Something of a type that the input chooses.
void Append(DBusMessageIter& place, Pieces& pieces, int type, int depth) {
  const dbus_uint64_t number = pieces.UpTo(SIZE_MAX);
  const char* path = "/a/b_1";
  const dbus_bool_t flag = number % 2;
  switch (type) {
    case DBUS_TYPE_STRING:
      return AppendText(place, pieces);
    case DBUS_TYPE_OBJECT_PATH:
      dbus_message_iter_append_basic(&place, type, &path);
      return;
    case DBUS_TYPE_BOOLEAN:
      dbus_message_iter_append_basic(&place, type, &flag);
      return;
    case DBUS_TYPE_ARRAY:
      if (depth < kDeepest) AppendContainer(place, pieces, depth + 1);
      return;
    default:
      dbus_message_iter_append_basic(&place, type, &number);
  }
}

constexpr int kTypes[] = {DBUS_TYPE_STRING, DBUS_TYPE_OBJECT_PATH, DBUS_TYPE_BOOLEAN,
                          DBUS_TYPE_BYTE,   DBUS_TYPE_INT32,       DBUS_TYPE_UINT32,
                          DBUS_TYPE_INT64,  DBUS_TYPE_UINT64,      DBUS_TYPE_DOUBLE};

void AppendVariant(DBusMessageIter& place, Pieces& pieces, int depth) {
  DBusMessageIter content;
  const std::size_t chosen = pieces.UpTo(std::size(kTypes));
  const int type = chosen == std::size(kTypes) ? DBUS_TYPE_ARRAY : kTypes[chosen];
  const char basic[] = {static_cast<char>(type), 0};
  dbus_message_iter_open_container(&place, DBUS_TYPE_VARIANT, type == DBUS_TYPE_ARRAY ? "a{sv}" : basic, &content);
  if (type == DBUS_TYPE_ARRAY) {
    AppendContainer(content, pieces, depth);
  } else {
    Append(content, pieces, type, depth);
  }
  dbus_message_iter_close_container(&place, &content);
}

// Names with values of any kind.
void AppendContainer(DBusMessageIter& place, Pieces& pieces, int depth) {
  DBusMessageIter list;
  dbus_message_iter_open_container(&place, DBUS_TYPE_ARRAY, "{sv}", &list);
  for (std::size_t count = depth < kDeepest ? pieces.UpTo(3) : 0; count > 0; --count) {
    DBusMessageIter entry;
    dbus_message_iter_open_container(&list, DBUS_TYPE_DICT_ENTRY, nullptr, &entry);
    AppendText(entry, pieces);
    AppendVariant(entry, pieces, depth + 1);
    dbus_message_iter_close_container(&list, &entry);
  }
  dbus_message_iter_close_container(&place, &list);
}

void AppendTexts(DBusMessageIter& place, Pieces& pieces) {
  DBusMessageIter list;
  dbus_message_iter_open_container(&place, DBUS_TYPE_ARRAY, "s", &list);
  for (std::size_t count = pieces.UpTo(5); count > 0; --count) AppendText(list, pieces);
  dbus_message_iter_close_container(&place, &list);
}

// An answer that is well-formed for the bus, whatever it says.
BusMessage Built(Pieces& pieces) {
  BusMessage answer(dbus_message_new(DBUS_MESSAGE_TYPE_METHOD_RETURN));
  dbus_message_set_reply_serial(answer.get(), 1);
  dbus_message_set_serial(answer.get(), 1);
  DBusMessageIter place;
  dbus_message_iter_init_append(answer.get(), &place);
  for (std::size_t count = pieces.UpTo(2); count > 0; --count) {
    const std::size_t kind = pieces.UpTo(std::size(kTypes) + 1);
    if (kind < std::size(kTypes)) Append(place, pieces, kTypes[kind], 0);
    if (kind == std::size(kTypes)) AppendVariant(place, pieces, 0);
    if (kind > std::size(kTypes)) AppendTexts(place, pieces);
  }
  return answer;
}

BusMessage Demarshalled(std::string_view bytes) {
  return BusMessage(dbus_message_demarshal(bytes.data(), static_cast<int>(bytes.size()), nullptr));
}

// As it comes over the bus.
BusMessage Sent(const BusMessage& answer) {
  char* bytes = nullptr;
  int length = 0;
  Require(dbus_message_marshal(answer.get(), &bytes, &length));
  BusMessage sent = Demarshalled({bytes, static_cast<std::size_t>(length)});
  dbus_free(bytes);
  return sent;
}

bool IsText(const std::string& text) {
  return IsValidUtf8(text) && text.find('\0') == text.npos;
}

void CheckAnswer(const BusMessage& answer) {
  Require(IsText(TextFrom(answer)));
  NumberFrom(answer);
  const std::string track = TrackFrom(answer);
  Require(track.empty() || dbus_validate_path(track.c_str(), nullptr));
  for (const std::string& name : NamesFrom(answer)) Require(IsText(name));
  const auto owner = OwnerFrom(answer);
  Require(!owner || IsText(*owner));
  ProcessFrom(answer);
}

bool SayTheSame(const BusMessage& a, const BusMessage& b) {
  return TextFrom(a) == TextFrom(b) && NumberFrom(a) == NumberFrom(b) && TrackFrom(a) == TrackFrom(b) &&
         NamesFrom(a) == NamesFrom(b) && OwnerFrom(a) == OwnerFrom(b) && ProcessFrom(a) == ProcessFrom(b);
}

}  // namespace

// An answer may come from anybody. The first byte says whether the others are the message or what it is built of.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Pieces pieces(data, size);
  const bool built = pieces.Byte() % 2 == 0;
  const BusMessage answer = built ? Built(pieces) : Demarshalled(pieces.Rest());
  CheckAnswer(answer);
  if (!built) return 0;
  const BusMessage sent = Sent(answer);
  Require(sent && SayTheSame(answer, sent));
  return 0;
}
