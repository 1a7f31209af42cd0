#pragma once

#include <QString>
#include <string_view>

namespace qublet {

// Text that comes from files (names, tags, paths; UTF-8) as the windows show it. It is plain text wherever it stands:
// nothing in it is taken for markup, so that showing a name never opens what the name speaks of.

// Each character that can't be seen, and each that would turn the order of others, is a mark: a control picture for a
// control character, U+FFFD for the rest and for what is no text. The letters that stand in for a name's own ":", "\"
// and control characters are shown as what they stand for.
QString ShownText(std::string_view text);
QString ShownText(QStringView text);

// For tool tips (`setToolTip`, `QToolTip::showText`), which take what looks like markup for it. Long paths wrap.
QString ShownTip(std::string_view text);
inline constexpr qsizetype kLongestMessage = 1600;
// For message boxes, whose text format is plain. Lines may break behind each "\" and within long names, and what is
// written from right to left stands isolated. A line of more than `longest` letters loses some of its middle, never
// its end.
QString ShownMessage(std::string_view text, qsizetype longest = kLongestMessage);
// For entries of menus: no character marks a key or parts off a shortcut.
QString ShownInMenu(std::string_view text);
// For captions of windows: "[*]" stays.
QString ShownCaption(std::string_view text);

// Plain text with places where a line may break: behind each "\", and within names that offer no other place.
QString WithBreaks(const QString& text);
QString WithoutBreaks(QString text);

}  // namespace qublet
