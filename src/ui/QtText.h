#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zefta {

// Texts of ours are UTF-8. File names are bytes: they are shown through CodePage::ToText first.

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

}  // namespace zefta
