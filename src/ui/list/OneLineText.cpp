#include "ui/list/OneLineText.h"

#include "ui/QtText.h"

namespace zefta {

QString OneLineText(std::string_view text) {
    QString shown = ToQt(text);
    for (QChar& character : shown) {
        const bool breaksLines = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
        if (character.category() == QChar::Other_Control || breaksLines) character = ' ';
    }
    return shown;
}

}  // namespace zefta
