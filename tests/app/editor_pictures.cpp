#include "editor_pictures.h"

#include <QBuffer>
#include <QPainter>
#include <QTabWidget>
#include <QTimer>
#include <set>

#include "media/tag_object.h"
#include "support/tag_bytes.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

Bytes Cover() {
  QImage cover(300, 300, QImage::Format_RGB32);
  cover.fill(QColor(0x2b, 0x4c, 0x6f));
  QPainter painter(&cover);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(0xea, 0xaa, 0x2a));
  painter.drawEllipse(90, 60, 120, 120);
  painter.fillRect(0, 200, 300, 100, QColor(0x1c, 0x33, 0x4d));
  painter.end();
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  cover.save(&buffer, "PNG");
  return {bytes.begin(), bytes.end()};
}

void WriteSong(const MainWindow& window, const std::string& name, const std::string& title) {
  window.drives.Write(name, AudioBytes(400));
  TagObject tag(*window.files);
  tag.ReadTags("c:\\" + name, false);
  tag.SetV1Title(title);
  tag.SetV1Artist("Harbour Lights");
  tag.SetV1Album("Night Ferry");
  tag.SetV1Year("2019");
  tag.SetV1Comment("Ripped from the record");
  tag.SetV1Track(2);
  tag.SetV1Genre(17);
  const std::pair<const char*, const char*> frames[] = {
      {"TPE1", "Harbour Lights"},
      {"TALB", "Night Ferry"},
      {"TYER", "2019"},
      {"TRCK", "2/5"},
      {"TCON", "Folk-Rock"},
      {"TCOM", "M. Ferryman"},
      {"TENC", "an encoder"},
      {"WXXX", "http://example.org/ferry"},
      {"TXXX", "Side A"},
      {"WOAR", "example.org"},
      {"TCOP", "2019 Harbour Lights"},
      {"USLT", "Lanterns along the quay,\nlanterns along the quay,\nand nobody to meet the boat\nbut me."}};
  tag.SetFrame("TIT2", title);
  for (const auto& [id, text] : frames) tag.SetFrame(id, text);
  tag.SetMood("Calm");
  tag.Comments().Add("Ripped from the record", "");
  tag.Comments().Add("000083000000120000", "QUBLET_tpsidata");
  tag.Images().Append({"Front", "image/png", Cover()});
  tag.Write("c:\\" + name, TagStep::kWrite, TagStep::kWrite);
}

class EditorPictures {
 public:
  EditorPictures(MainWindow& window, TakePicture take) : window_(window), take_(std::move(take)) {
    WriteSong(window, "song.mp3", "Lantern Street");
    WriteSong(window, "other.mp3", "Tidewrack");
    std::string wav = "RIFF____WAVEfmt ____";
    wav += std::string{1, 0, 2, 0, '\x44', '\xAC', 0, 0, 0, 0, 0, 0, 4, 0, 16, 0};
    window.drives.Write("take.wav", wav + std::string(400'000, '\0'));
    window.drives.Write("tune.ogg", VorbisFile({"TITLE=Slack Water", "ARTIST=Harbour Lights", "TRACKNUMBER=1"}));
    window.drives.Write("editor.m3u", "song.mp3\r\nother.mp3\r\ntake.wav\r\ntune.ogg\r\ngone.mp3\r\n");
    window.dialogs.open_names = {"c:\\editor.m3u"};
    window.Run("MFileOpen");
  }

  void TakeAll() {
    Open({1}, [&](QWidget& editor) { TakePages(editor); });
    Open({1, 2}, [&](QWidget& editor) { take_("tag-editor-several", &editor); });
    Open({3}, [&](QWidget& editor) { take_("tag-editor-wav", &editor); });
    Open({4}, [&](QWidget& editor) { take_("tag-editor-ogg", &editor); });
    Open({1, 3}, [&](QWidget& editor) { take_("tag-editor-unusable", &editor); });
  }

 private:
  void Open(const std::set<int>& rows, const std::function<void(QWidget&)>& look) {
    window_.Rows().SelectWhere([&](int index, const Row&) { return rows.contains(index); });
    emit window_.List().rowsSelected();
    QTimer::singleShot(0, window_.main, [&] {
      QWidget* editor = QApplication::activeModalWidget();
      look(*editor);
      editor->close();
    });
    window_.Run("MEditId3");
  }

  void TakePages(QWidget& editor) {
    auto& pages = *editor.findChild<QTabWidget*>(QStringLiteral("Id3MainTab"));
    auto& inner = *editor.findChild<QTabWidget*>(QStringLiteral("Id3v2SubTab"));
    take_("tag-editor-general", &editor);
    pages.setCurrentIndex(1);
    take_("tag-editor-id3v1", &editor);
    pages.setCurrentIndex(2);
    for (int page = 0; page < inner.count(); ++page) {
      inner.setCurrentIndex(page);
      take_("tag-editor-id3v2-" + inner.tabText(page).toLower().toStdString(), &editor);
    }
  }

  MainWindow& window_;
  TakePicture take_;
};

}  // namespace

void TakeEditorPictures(MainWindow& window, const TakePicture& take) {
  EditorPictures(window, take).TakeAll();
}

}  // namespace qublet
