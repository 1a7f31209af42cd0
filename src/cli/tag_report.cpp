#include "cli/tag_report.h"

#include <ostream>
#include <vector>

#include "cli/json_text.h"
#include "media/editor/file_pages.h"
#include "media/tag_fields.h"
#include "media/tpsi.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// The parts of a report: a single record, or a list of them.
struct Part {
  std::string name;
  std::vector<Record> records;
  bool is_list = false;
};

void PrintLines(const std::string& path, const std::vector<Part>& parts, std::ostream& out) {
  out << "File\t" << PlainValue(path) << "\n";
  for (const Part& part : parts) {
    for (const Record& record : part.records) {
      if (part.is_list) out << part.name;
      for (const NamedValue& fact : record) {
        if (part.is_list) {
          out << "\t" << PlainValue(fact.value);
        } else if (!fact.value.empty()) {
          out << fact.name << "\t" << PlainValue(fact.value) << "\n";
        }
      }
      if (part.is_list) out << "\n";
    }
  }
}

void PrintTexts(const std::string& name, const std::vector<std::string>& texts, std::ostream& out) {
  if (texts.empty()) return;
  out << ", " << JsonText(name) << ": [";
  for (std::size_t i = 0; i < texts.size(); ++i) out << (i > 0 ? ", " : "") << JsonText(texts[i]);
  out << "]";
}

void PrintJson(const std::string& path, const std::vector<Part>& parts, const FilePages& pages, std::ostream& out) {
  out << "{\"File\": " << JsonText(path);
  for (const Part& part : parts) {
    out << ", " << JsonText(part.name) << ": " << (part.is_list ? "[" : "");
    if (part.records.empty() && !part.is_list) out << "null";
    const char* separator = "";
    for (const Record& record : part.records) {
      out << separator << JsonRecord(record);
      separator = ", ";
    }
    out << (part.is_list ? "]" : "");
  }
  PrintTexts("FileInfo", pages.file_info, out);
  PrintTexts(pages.stream_name, pages.stream, out);
  out << "}\n";
}

void Print(const std::string& path, const std::vector<Part>& parts, const FilePages& pages, bool json,
           std::ostream& out) {
  json ? PrintJson(path, parts, pages, out) : PrintLines(path, parts, out);
}

Part SingleValues(const TagObject& tag, bool v1) {
  Part part{v1 ? "ID3v1" : "ID3v2", {}};
  if (!(v1 ? tag.HasID3v1() : tag.HasID3v2())) return part;
  Record record;
  for (const TagField& field : TagFields()) {
    if (field.in_v1 != v1) continue;
    const bool is_number = field.name == "V1Track" || field.name == "V1Genre";
    record.push_back({std::string(field.name), field.get(tag, field.name), !is_number});
  }
  part.records.push_back(std::move(record));
  return part;
}

Part StreamPart(const StreamFacts& stream) {
  Part part{"Stream", {}};
  if (stream.StreamVersion.empty()) return part;
  const auto truth = [](bool value) { return std::string(value ? "true" : "false"); };
  part.records.push_back({{"StreamLength", NumberText(stream.StreamLength), false},
                          {"StreamVersion", stream.StreamVersion},
                          {"StreamLayer", stream.StreamLayer},
                          {"StreamBitrate", stream.StreamBitrate},
                          {"StreamSamplerate", NumberText(stream.StreamSamplerate), false},
                          {"StreamMode", stream.StreamMode},
                          {"StreamEmphasis", stream.StreamEmphasis},
                          {"StreamCrc", truth(stream.StreamCrc), false},
                          {"StreamCopyrighted", truth(stream.StreamCopyrighted), false},
                          {"StreamOriginal", truth(stream.StreamOriginal), false}});
  return part;
}

}  // namespace

// As the window shows them: a kind that it doesn't know has empty labels.
FilePages PagesOf(const CommandContext& context, const std::string& path, const StreamFacts& stream,
                  const VorbisComments& comments) {
  const std::string extension = LowerCase(GetExtension(GetFileName(path)));
  FilePage page{{"", ""}};
  MpegLabels mpeg;
  OggLabels ogg;
  const bool known = extension == ".mp3" || extension == ".wav" || extension == ".ogg" || extension == ".vqf";
  if (known) ShowFileInfo(context.files, path, context.engine.thousands_separator, page);
  if (extension == ".mp3") ShowMpegInfo(context.files, path, stream, mpeg);
  if (extension == ".ogg") ShowOggInfo(path, comments, ogg);
  if (extension == ".wav") {
    WavHeader header;
    ReadWavHeader(context.files, path, header);
    ShowWavInfo(context.files, path, header, mpeg);
  }
  FilePages pages{{page.FileInfo.begin(), page.FileInfo.end()}, "", {}};
  if (extension == ".mp3" || extension == ".wav") pages = {pages.file_info, "MPEGInfo", {mpeg.begin(), mpeg.end()}};
  if (extension == ".ogg") pages = {pages.file_info, "OGGInfo", {ogg.begin(), ogg.end()}};
  return pages;
}

void PrintTags(const std::string& path, const TagObject& tag, const FilePages& pages, bool json, std::ostream& out) {
  Part comments{"Comments", {}, true};
  for (const TagComment& comment : tag.Comments()) {
    comments.records.push_back({{"Description", comment.description}, {"Text", comment.text}});
  }
  Part images{"Images", {}, true};
  for (const TagPicture& picture : tag.Images()) {
    images.records.push_back({{"Description", picture.description},
                              {"Size", std::to_string(picture.data.size()), false},
                              {"MimeType", picture.mime_type}});
  }
  Print(path, {SingleValues(tag, true), SingleValues(tag, false), comments, images, StreamPart(tag.Stream())}, pages,
        json, out);
}

void PrintTimes(const std::string& path, const Collection& records, bool json, std::ostream& out) {
  Part positions{"Positions", {}, true};
  for (const std::string& record : records) {
    positions.records.push_back({{"Number", std::to_string(positions.records.size() + 1), false},
                                 {"Record", record},
                                 {"Time", TpsiTimeText(record)}});
  }
  if (json) return PrintJson(path, {positions}, {}, out);
  for (const Record& record : positions.records)
    out << record[0].value << "\t" << PlainValue(record[1].value) << "\t" << record[2].value << "\n";
}

void PrintComments(const std::string& path, const VorbisComments& comments, const FilePages& pages, bool json,
                   std::ostream& out) {
  Part part{"Vorbis", {}};
  part.records.push_back({{"Title", comments.Title},
                          {"Artist", comments.Artist},
                          {"Album", comments.Album},
                          {"Genre", comments.Genre},
                          {"Date", comments.Date},
                          {"Comment", comments.Comment},
                          {"Track", std::to_string(comments.Track), false},
                          {"EncodedUsing", comments.EncodedUsing},
                          {"ErrorText", comments.ErrorText}});
  Print(path, {part}, pages, json, out);
}

}  // namespace qublet
