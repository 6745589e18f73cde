#include "ui/desktop/BoxText.h"

#include "ui/QtText.h"

namespace zefta {

namespace {

constexpr QChar BreakHere(0x200B);

/// Behind these a person would break a path or name.
bool EndsPart(QChar character) {
    return QStringView(u"/\\_-.,;").contains(character);
}

}  // namespace

QString BoxText(const std::string& text) {
    // Shorter words fit into every box.
    constexpr int LongWord = 32;
    constexpr int LongestPart = 48;
    QString shown;
    int word = 0;
    int part = 0;
    for (const QChar character : ToQt(text).replace("\r\n", "\n")) {
        shown += character;
        const bool isSpace = character.isSpace();
        word = isSpace ? 0 : word + 1;
        part = isSpace ? 0 : part + 1;
        if ((word < LongWord || !EndsPart(character)) && part < LongestPart) continue;
        if (character.isHighSurrogate()) continue;
        shown += BreakHere;
        part = 0;
    }
    return shown;
}

}  // namespace zefta
