#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "library/FileInformation.h"
#include "support/TestApp.h"
#include "toolkit/DialogAtHand.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// A dialog on a file in a folder of its own, worked by clicks and keys.
template <typename Dialog>
class FileInfoStage : public ::testing::Test {
  protected:
    FileInfoStage() : wave(app) { app.defaultWaveFile = &wave; }

    /// Makes the file and shows its dialog.
    void Open(const std::string& name, const std::string& bytes) {
        app.folder.Write(name, bytes);
        Show(name);
    }

    void Show(const std::string& name) {
        dialog = std::make_unique<Dialog>(app, app.folder / name, nullptr);
        ShowInFront(*dialog);
    }

    template <typename Control>
    Control* Find(const char* name) const {
        return &FindControl<Control>(*dialog, name);
    }

    QLineEdit* Line(const char* name) const { return Find<QLineEdit>(name); }
    std::string TextOf(const char* name) const { return FromQt(Line(name)->text()); }
    std::string LabelOf(const char* name) const { return FromQt(Find<QLabel>(name)->text()); }
    QComboBox* Box(const char* name) const { return Find<QComboBox>(name); }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }

    /// What the person does: everything in the field goes, the text is typed.
    void Type(const char* name, const std::string& text) const {
        Line(name)->setFocus();
        Line(name)->selectAll();
        QTest::keyClick(Line(name), Qt::Key_Delete);
        QTest::keyClicks(Line(name), ToQt(text));
    }

    void Click(const char* name) const { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }

    /// On the box itself: the middle of a wide control is none of it.
    void Toggle(const char* name) const {
        QCheckBox* box = Check(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }

    void Press(Qt::Key key) const {
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(focus != nullptr ? focus : dialog.get(), key);
    }

    bool IsOpen() const { return dialog->isVisible(); }
    /// Where the focus is, behind all that waits in the queue.
    std::string Focus() const {
        QCoreApplication::processEvents();
        return QApplication::focusWidget() == nullptr ? ""
                                                      : FromQt(QApplication::focusWidget()->objectName());
    }

    FileInformation Now(const std::string& name) { return LoadFileInformation(app, app.folder / name); }

    TestApp app;
    WaveFile wave;
    std::unique_ptr<Dialog> dialog;
};

/// Each control that takes input can be told by a screen reader and reached by the tab key.
inline void ExpectUsable(const QWidget& dialog) {
    for (const QWidget* control : dialog.findChildren<QWidget*>()) {
        const bool takesInput = qobject_cast<const QLineEdit*>(control) != nullptr ||
                                qobject_cast<const QComboBox*>(control) != nullptr ||
                                control->inherits("QListWidget");
        const bool isPart = qobject_cast<const QComboBox*>(control->parentWidget()) != nullptr;
        if (!takesInput || isPart) continue;
        EXPECT_FALSE(control->accessibleName().isEmpty()) << FromQt(control->objectName());
        EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0) << FromQt(control->objectName());
    }
}

}  // namespace zefta::test
