#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

#include "platform/Paths.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/setup/LevelBox.h"
#include "ui/setup/SetupPages.h"

namespace zefta {

namespace {

constexpr WindowText PriorityTexts[] = {WindowText::SetupPriorityIdle, WindowText::SetupPriorityNormal,
                                        WindowText::SetupPriorityHigh};

/// A path that can be switched on: its box, its line, its button.
struct PathRow {
    const char* box;
    const char* line;
    const char* button;
    std::int32_t caption;
    WindowText tip;
    bool SetupOptions::*enabled;
    std::string SetupOptions::*path;
    std::string (*choose)(App& app, const std::string& path);
};

std::string ChooseStartupFolder(App& app, const std::string& path) {
    return app.desktop.ChooseFolder(app.messages.GetMessage(33738), {}, path);
}

std::string ChooseLanguageFile(App& app, const std::string&) {
    const std::string languages = JoinPath(FolderPart(app.processes.OwnPath()), "Languages");
    return app.desktop.ChooseFile({.title = app.messages.GetMessage(33742),
                                   .kind = app.messages.GetMessage(33741),
                                   .masks = "*.lng",
                                   .startFolder = languages});
}

const PathRow StartupFolderRow = {"chkStartupFolder",
                                  "txtStartupFolder",
                                  "cmdBrowseForStartupFolder",
                                  33739,
                                  WindowText::SetupBrowseFolder,
                                  &SetupOptions::EnableStartupFolder,
                                  &SetupOptions::StartupFolder,
                                  ChooseStartupFolder};
const PathRow LanguageFileRow = {"chkExternalLanguageFile",           "txtExternalLanguageFile",
                                 "cmdBrowseForExternalLanguageFile",  33740,
                                 WindowText::SetupBrowseFile,         &SetupOptions::EnableExternalLanguage,
                                 &SetupOptions::ExternalLanguageFile, ChooseLanguageFile};

QLineEdit* MakePathLine(SetupBinding& binding, const PathRow& row) {
    std::string& path = binding.options.*row.path;
    auto* line = new QLineEdit;
    line->setObjectName(row.line);
    line->setMaxLength(std::numeric_limits<int>::max());
    line->setText(ToQt(binding.app.ansi.ToText(path)));
    line->setCursorPosition(0);
    line->setAccessibleName(binding.Text(row.caption));
    // A name that is no text stays what it is until the person types another one.
    QObject::connect(line, &QLineEdit::textEdited, line, [&path, &binding](const QString& text) {
        path = binding.app.files.ToNativePath(FromQt(text));
    });
    return line;
}

QPushButton* MakeBrowseButton(SetupBinding& binding, const PathRow& row, QLineEdit* line) {
    auto* button = new QPushButton("...");
    button->setObjectName(row.button);
    button->setToolTip(binding.Own(row.tip));
    button->setAccessibleName(button->toolTip());
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, line, [&binding, row, line] {
        std::string& path = binding.options.*row.path;
        const std::string chosen = row.choose(binding.app, path);
        if (chosen.empty()) return;
        path = chosen;
        line->setText(ToQt(binding.app.ansi.ToText(path)));
    });
    return button;
}

void AddPath(SetupBinding& binding, QGridLayout* grid, const PathRow& row) {
    QCheckBox* box = binding.Check(row.box, binding.Text(row.caption), binding.options.*row.enabled);
    QLineEdit* line = MakePathLine(binding, row);
    QPushButton* button = MakeBrowseButton(binding, row, line);
    for (QWidget* control : {static_cast<QWidget*>(line), static_cast<QWidget*>(button)}) {
        control->setEnabled(box->isChecked());
        QObject::connect(box, &QCheckBox::toggled, control, &QWidget::setEnabled);
    }
    const int place = grid->rowCount();
    grid->addWidget(box, place, 0);
    grid->addWidget(line, place, 1);
    grid->addWidget(button, place, 2);
}

/// `columns`: how many the control takes.
void AddLabelled(QGridLayout* grid, const QString& text, QWidget* control, int columns) {
    auto* label = new QLabel(text);
    label->setBuddy(control);
    control->setAccessibleName(text);
    const int place = grid->rowCount();
    grid->addWidget(label, place, 0);
    grid->addWidget(control, place, 1, 1, columns);
}

QComboBox* MakePriorityBox(SetupBinding& binding) {
    auto* box = new QComboBox;
    box->setObjectName("cmbPriorityClass");
    GuardAgainstScrolling(box);
    for (std::size_t i = 0; i < PriorityClasses.size(); ++i) {
        const QString name = ToQt(PriorityClasses[i]);
        box->addItem(binding.Own(PriorityTexts[i]), name);
    }
    box->setCurrentIndex(box->findData(ToQt(binding.options.PriorityClass)));
    binding.OnTake(
        [box, &binding] { binding.options.PriorityClass = FromQt(box->currentData().toString()); });
    return box;
}

QComboBox* MakeTemplateBox(SetupBinding& binding) {
    constexpr int CharactersInSight = 30;
    auto* box = new QComboBox;
    box->setObjectName("cmbRenameTemplates");
    GuardAgainstScrolling(box);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // A template must not become the longer one of the list that begins so.
    box->setCompleter(nullptr);
    box->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    // The longest one of the list must not widen the window.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(CharactersInSight);
    for (const std::string& each : binding.options.RenameTemplates) box->addItem(ToQt(each));
    box->setEditText(ToQt(binding.options.CustomRenameTemplate));
    binding.OnTake([box, &binding] { binding.options.CustomRenameTemplate = FromQt(box->currentText()); });
    return box;
}

QLayout* MakeProgramPart(SetupBinding& binding) {
    SetupOptions& options = binding.options;
    auto* grid = new QGridLayout;
    QCheckBox* const boxes[] = {
        binding.Check("chkAutoLoad", binding.Text(33704), options.AutoLoad),
        binding.Check("chkPropertiesOnDblClick", binding.Text(33720), options.FilePropertiesOnDblClick),
        binding.Check("chkShowExternalProcessWindows", binding.Text(33733), options.ShowExecuteWindows)};
    for (QCheckBox* box : boxes) grid->addWidget(box, grid->rowCount(), 0, 1, 3);
    AddLabelled(grid, binding.Text(33706), MakePriorityBox(binding), 2);
    AddPath(binding, grid, StartupFolderRow);
    AddPath(binding, grid, LanguageFileRow);
    AddLabelled(grid, binding.Text(33719), MakeTemplateBox(binding), 2);
    grid->setColumnStretch(1, 1);
    return grid;
}

LevelBox* MakeLevel(SetupBinding& binding, const char* name, const char* textName, std::uint8_t& field) {
    auto* level = new LevelBox(name, textName, field);
    GuardAgainstScrolling(level);
    binding.OnTake([level, &field] { field = level->Percent(); });
    return level;
}

QLayout* MakeNormalizing(SetupBinding& binding) {
    SetupOptions& options = binding.options;
    auto* grid = new QGridLayout;
    QCheckBox* normalize = binding.Check("chkNormalize", binding.Text(33727), options.Saved.Normalize);
    LevelBox* level = MakeLevel(binding, "udcNRLevel", "txtNRLevel", options.NormalizeLevel);
    level->setAccessibleName(normalize->text());
    grid->addWidget(normalize, 0, 0);
    grid->addWidget(level, 0, 1);
    AddLabelled(grid, binding.Text(33728),
                MakeLevel(binding, "udcNRBelow", "txtNRBelow", options.NormalizeBelow), 1);
    AddLabelled(grid, binding.Text(33729),
                MakeLevel(binding, "udcNRAbove", "txtNRAbove", options.NormalizeAbove), 1);
    grid->addWidget(
        binding.Check("chkNormalizeSeparately", binding.Text(33731), options.Saved.NormalizeSeparately),
        grid->rowCount(), 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return grid;
}

QGroupBox* MakeWavePart(SetupBinding& binding) {
    SetupOptions& options = binding.options;
    auto* group = new QGroupBox(binding.Text(33730));
    auto* layout = new QVBoxLayout(group);
    QCheckBox* const boxes[] = {
        binding.Check("chkTrimSilence", binding.Text(33705), options.Saved.TrimSilence),
        binding.Check("chkReduceLevel", binding.Text(33721), options.Saved.ReduceLevel),
        binding.Check("chkDeleteAfterCompress", binding.Text(33726), options.DeleteAfterCompress),
        binding.Check("chkDeleteAfterReCompress", binding.Text(33734), options.DeleteAfterReCompress)};
    for (QCheckBox* box : boxes) layout->addWidget(box);
    layout->addLayout(MakeNormalizing(binding));
    return group;
}

}  // namespace

QWidget* MakeGeneralPage(SetupBinding& binding) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addLayout(MakeProgramPart(binding));
    layout->addWidget(MakeWavePart(binding));
    layout->addStretch();
    return page;
}

}  // namespace zefta
