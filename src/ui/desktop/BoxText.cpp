#include "ui/desktop/BoxText.h"

#include "ui/QtText.h"

namespace zefta {

namespace {

constexpr QChar BreakHere(0x200B);

/// Behind these a person would break a path or name.
bool EndsPart(QChar character) {
    return QStringView(u"/\\_-.,;").contains(character);
}

void AppendWord(QString& text, QStringView word) {
    // Shorter words fit into every box.
    constexpr qsizetype LongWord = 32;
    constexpr int LongestPart = 16;
    if (word.size() <= LongWord) {
        text += word;
        return;
    }
    int part = 0;
    for (const QChar character : word) {
        text += character;
        ++part;
        // The two halves of a character stay together.
        if (character.isHighSurrogate() || (part < LongestPart && !EndsPart(character))) continue;
        text += BreakHere;
        part = 0;
    }
}

/// No higher than a screen: of a longer text both ends.
QString WithoutMiddle(const QString& text) {
    constexpr qsizetype LongestText = 2000;
    if (text.size() <= LongestText) return text;
    return text.left(LongestText / 2) + "\n...\n" + text.right(LongestText / 2);
}

}  // namespace

QString BoxText(const std::string& text) {
    const QString lines = WithoutMiddle(ToQt(text).replace("\r\n", "\n"));
    QString shown;
    qsizetype start = 0;
    for (qsizetype at = 0; at <= lines.size(); ++at) {
        if (at < lines.size() && !lines[at].isSpace()) continue;
        AppendWord(shown, QStringView(lines).mid(start, at - start));
        if (at < lines.size()) shown += lines[at];
        start = at + 1;
    }
    return shown;
}

QMessageBox::Icon BoxIcon(BoxKind kind) {
    switch (kind) {
        case BoxKind::Warning:
            return QMessageBox::Warning;
        case BoxKind::Critical:
            return QMessageBox::Critical;
        default:
            return QMessageBox::NoIcon;
    }
}

}  // namespace zefta
