#include "platform/qt/shown_text.h"

#include <QStringList>
#include <QTextDocument>
#include <algorithm>

#include "platform/shown_character.h"

namespace qublet {
namespace {

constexpr char16_t kBreak = 0x200B;  // a line may end here
constexpr char16_t kIsolate = 0x2068;
constexpr char16_t kEndIsolate = 0x2069;

constexpr qsizetype kLongestWord = 24;  // without a place to break

bool IsRightToLeft(QChar letter) {
  return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
}

// Each stretch that runs from right to left on its own, so that it doesn't draw numbers and signs beside it along.
QString Isolated(const QString& text) {
  if (std::none_of(text.begin(), text.end(), IsRightToLeft)) return text;
  QString isolated;
  qsizetype last = -1;  // the end of the stretch, in `isolated`
  for (const QChar letter : text) {
    const bool strong = letter.direction() == QChar::DirL;
    if (last >= 0 && (strong || letter == u'\\')) {
      isolated.insert(last, QChar(kEndIsolate));
      last = -1;
    }
    if (IsRightToLeft(letter) && last < 0) isolated += QChar(kIsolate);
    isolated += letter;
    if (IsRightToLeft(letter)) last = isolated.size();
  }
  if (last >= 0) isolated.insert(last, QChar(kEndIsolate));
  return isolated;
}

QString WithoutMiddle(const QString& text, qsizetype longest) {
  if (text.size() <= longest) return text;
  const qsizetype beginning = longest / 4;
  return text.left(beginning) + QStringLiteral("...") + text.right(longest - beginning);
}

}  // namespace

QString ShownText(QStringView text) {
  QString shown = text.toString();
  for (qsizetype i = 0; i < text.size(); ++i) {
    // What takes two units is shown as it is, so each of them can be looked at alone.
    const char16_t letter = text[i].unicode();
    if (const auto mark = static_cast<char16_t>(ShownCharacter(letter)); mark != letter) shown[i] = QChar(mark);
  }
  return shown;
}

QString ShownText(std::string_view text) {
  return ShownText(QStringView(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))));
}

QString ShownTip(std::string_view text) {
  // As markup that says nothing else, so that nobody has to guess; a plain tip doesn't wrap.
  return Qt::convertFromPlainText(WithBreaks(ShownText(text)));
}

QString ShownMessage(std::string_view text, qsizetype longest) {
  // Lines of a message end in CR, in LF and CR, or in CR and LF.
  QString whole = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  QStringList lines;
  for (const QString& line : whole.replace(u"\n\r"_qs, u"\r"_qs).replace(u"\r\n"_qs, u"\r"_qs).split(u'\r'))
    lines << WithBreaks(Isolated(WithoutMiddle(ShownText(line), longest)));
  return lines.join(u'\n');
}

QString ShownInMenu(std::string_view text) {
  return ShownText(text).replace(u'&', QStringLiteral("&&"));
}

QString ShownCaption(std::string_view text) {
  // Once alone it would stand for the mark of a changed document.
  return ShownText(text).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

QString WithBreaks(const QString& text) {
  QString broken;
  qsizetype word = 0;
  for (qsizetype i = 0; i < text.size(); ++i) {
    broken += text[i];
    word = text[i].isSpace() ? 0 : word + 1;
    const bool behind = text[i] == u'\\' || (word >= kLongestWord && !text[i].isHighSurrogate());
    if (!behind || i + 1 == text.size() || text[i + 1].isSpace() || text[i + 1].isMark()) continue;
    broken += QChar(kBreak);
    word = 0;
  }
  return broken;
}

QString WithoutBreaks(QString text) {
  return text.remove(QChar(kBreak));
}

}  // namespace qublet
