#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <limits>

#include "ui/QtText.h"
#include "ui/setup/SetupPages.h"

namespace zefta {

namespace {

constexpr std::int32_t PresetCaption = 33723;
constexpr std::int32_t NameCaption = 33724;
constexpr std::int32_t CodeCaption = 33725;

void AddLine(SetupBinding& binding, QFormLayout* form, std::string& field, const QString& name) {
    const bool isCode = name.startsWith("txtPresetCode");
    auto* line = new QLineEdit;
    line->setObjectName(name);
    line->setMaxLength(std::numeric_limits<int>::max());
    line->setText(ToQt(field));
    line->setCursorPosition(0);
    auto* label = new QLabel(binding.Text(isCode ? CodeCaption : NameCaption));
    label->setBuddy(line);
    form->addRow(label, line);
    auto* group = qobject_cast<QGroupBox*>(form->parentWidget());
    line->setAccessibleName(group->title() + ": " + label->text());
    // What is not touched keeps what a line of entry can't hold.
    binding.OnTake([line, &field] {
        if (line->isModified()) field = FromQt(line->text());
    });
}

}  // namespace

QWidget* MakePresetPage(SetupBinding& binding, const PresetGroup& group) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto& presets = binding.options.*group.presets;
    for (std::size_t i = 0; i < presets.size(); ++i) {
        const int number = group.firstNumber + static_cast<int>(i);
        auto* box = new QGroupBox(binding.Text(PresetCaption, std::to_string(i + 1)));
        auto* form = new QFormLayout(box);
        form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
        AddLine(binding, form, presets[i].Name, QString("txtPresetName%1").arg(number));
        AddLine(binding, form, presets[i].Code, QString("txtPresetCode%1").arg(number));
        layout->addWidget(box);
    }
    layout->addStretch();
    return page;
}

}  // namespace zefta
