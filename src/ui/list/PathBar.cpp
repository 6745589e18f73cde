#include "ui/list/PathBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include "ui/Resources.h"
#include "ui/WindowTexts.h"
#include "ui/list/DriveBox.h"
#include "ui/list/PathBox.h"

namespace zefta {

namespace {

QToolButton* NewBrowseButton(const App& app) {
    auto* button = new QToolButton;
    button->setObjectName("cmbBrowseFolder");
    button->setIcon(OwnIcon("choose-folder"));
    button->setToolTip(OwnText(app, WindowText::BrowseFolder));
    button->setAccessibleName(OwnText(app, WindowText::BrowseFolder));
    button->setAutoRaise(true);
    // Reached by the Tab key like the boxes beside it.
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

}  // namespace

PathBar::PathBar(App& app, QWidget* parent)
    : QWidget(parent), drives_(new DriveBox(app)), path_(new PathBox(app)), browse_(NewBrowseButton(app)) {
    auto* label = new QLabel(OwnText(app, WindowText::FolderLabel));
    label->setBuddy(path_);
    auto* line = new QHBoxLayout(this);
    const int gap = fontMetrics().horizontalAdvance('i');
    line->setContentsMargins(gap, gap, gap, 0);
    line->addWidget(drives_);
    line->addWidget(label);
    line->addWidget(path_, 1);
    line->addWidget(browse_);
    connect(browse_, &QToolButton::clicked, this, &PathBar::BrowseRequested);
}

}  // namespace zefta
