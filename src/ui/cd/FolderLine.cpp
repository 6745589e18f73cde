#include "ui/cd/FolderLine.h"

#include "core/Strings.h"
#include "ui/QtText.h"

namespace zefta {

FolderLine::FolderLine(const App& app, QWidget* parent) : QLineEdit(parent), app_(app) {}

void FolderLine::SetPath(const std::string& path) {
    path_ = path;
    setText(ToQt(app_.ansi.ToText(path)));
}

std::string FolderLine::Path() const {
    const std::string typed = FromQt(text());
    return typed == app_.ansi.ToText(path_) ? path_ : Trim(typed);
}

}  // namespace zefta
