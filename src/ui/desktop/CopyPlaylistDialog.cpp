#include "ui/desktop/CopyPlaylistDialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>

#include "ui/QtText.h"
#include "ui/WindowTexts.h"
#include "ui/desktop/ElidedLabel.h"

namespace zefta {

namespace {

QProgressBar* MakeBar(const char* objectName, const QString& accessibleName) {
    auto* bar = new QProgressBar;
    bar->setObjectName(objectName);
    bar->setAccessibleName(accessibleName);
    return bar;
}

QLabel* MakeNumber(const char* objectName, Qt::Alignment side) {
    auto* label = new QLabel;
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(side | Qt::AlignVCenter);
    return label;
}

/// One scale: whose it is, the bar, and a number at each of its ends.
struct ScaleControls {
    const char* frame;
    const char* name;
    const char* left;
    const char* right;
};

QGroupBox* MakeFrame(const ScaleControls& controls, QProgressBar* bar) {
    auto* frame = new QGroupBox;
    frame->setObjectName(controls.frame);
    auto* grid = new QGridLayout(frame);
    grid->addWidget(new ElidedLabel(controls.name), 0, 0, 1, 2);
    grid->addWidget(bar, 1, 0, 1, 2);
    grid->addWidget(MakeNumber(controls.left, Qt::AlignLeading), 2, 0);
    grid->addWidget(MakeNumber(controls.right, Qt::AlignTrailing), 2, 1);
    return frame;
}

}  // namespace

CopyPlaylistDialog::CopyPlaylistDialog(Language language, QWidget* parent)
    : ProgressDialog(language, parent),
      total_(MakeBar("prgTotal", OwnText(language, WindowText::ProgressOfAll))),
      current_(MakeBar("prgCurent", OwnText(language, WindowText::ProgressOfFile))) {
    constexpr int CharactersWide = 60;
    setObjectName("frmCopyPlaylist");
    setMinimumWidth(fontMetrics().averageCharWidth() * CharactersWide);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(MakeFrame({"fraTotal", "lblPlaylist", "lblWritten", "lblRemaining"}, total_));
    layout->addWidget(MakeFrame({"fraCurrent", "lblFile", "lblCurrentDone", "lblCurrent"}, current_));
    layout->addStretch();
    layout->addWidget(MakeButtons());
}

void CopyPlaylistDialog::Display(const ProgressReport& report) {
    // The mark in titles for unsaved changes is none of a name; doubled it stands for itself.
    setWindowTitle(ToQt(report.status).replace("[*]", "[*][*]"));
    ShowLabels(report.labels);
    ShowScale(*total_, {report.minimum, report.maximum, report.value});
    ShowScale(*current_, report.current);
}

}  // namespace zefta
