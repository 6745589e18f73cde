#include "ui/setup/LevelBox.h"

#include <QLineEdit>

#include "core/Numbers.h"
#include "core/SetupOptions.h"
#include "ui/QtText.h"

namespace zefta {

LevelBox::LevelBox(const char* name, const char* textName, int percent) {
    setObjectName(name);
    lineEdit()->setObjectName(textName);
    setRange(0, 100);
    // A number that is half typed is no level yet.
    setKeyboardTracking(false);
    setValue(percent);
    constexpr int LongestText = 17;
    setMinimumWidth(fontMetrics().averageCharWidth() * (LongestText + 6));
}

std::uint8_t LevelBox::Percent() {
    interpretText();
    return ToByte(std::int64_t{value()});
}

QString LevelBox::textFromValue(int value) const {
    return ToQt(LevelText(value));
}

int LevelBox::valueFromText(const QString& text) const {
    return LevelOfText(FromQt(text)).value_or(value());
}

QValidator::State LevelBox::validate(QString& text, int&) const {
    return LevelOfText(FromQt(text)) ? QValidator::Acceptable : QValidator::Intermediate;
}

}  // namespace zefta
