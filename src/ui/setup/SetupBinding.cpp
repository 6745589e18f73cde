#include "ui/setup/SetupBinding.h"

#include "ui/QtText.h"

namespace zefta {

QCheckBox* MakeCheck(const char* name, const QString& text, bool checked) {
    auto* box = new QCheckBox(text);
    box->setObjectName(name);
    box->setChecked(checked);
    return box;
}

QCheckBox* SetupBinding::Check(const char* name, const QString& text, bool& field) {
    QCheckBox* box = MakeCheck(name, text, field);
    OnTake([box, &field] { field = box->isChecked(); });
    return box;
}

void SetupBinding::Take() const {
    for (const auto& take : takers_) take();
}

QString SetupBinding::Text(std::int32_t message, const std::string& parameter) const {
    return ToQt(app.messages.GetMessage(message, parameter));
}

}  // namespace zefta
