#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <filesystem>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "platform/CommandText.h"
#include "support/FakeDisc.h"
#include "support/Mp3Builder.h"
#include "support/TestApp.h"
#include "toolkit/DialogAtHand.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "ui/cd/CDBaseDialog.h"
#include "wave/WaveFile.h"

namespace zefta::test {

/// frmCDBase worked by clicks and keys, on a disc and a database in memory.
class CDBaseStage : public ::testing::Test {
  protected:
    using Texts = std::vector<std::string>;

    CDBaseStage() {
        app.defaultWaveFile = &wave;
        app.state.TrimSilence = false;
        disc.AddTrack(true, 75 * 225);
        disc.AddTrack(true, 75 * 60);
        database.matches = {{"rock", "11111111", "Band", "Debut"}};
        database.albums["11111111"] = {"Band", "Debut", {"One / Live", "Two"}};
        app.desktop.asksToCancel = [this] { return dialog && dialog->IsCancelled(); };
    }

    void Open() {
        dialog = std::make_unique<CDBaseDialog>(app, CDBaseServices{disc, database, [this] { ++powerOffs; }});
        ShowInFront(*dialog);
    }

    template <typename Control>
    Control* Find(const char* name) const {
        return &FindControl<Control>(*dialog, name);
    }

    void Click(const char* name) const { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(dialog->focusWidget(), key, modifiers);
    }
    QCheckBox* Check(const char* name) const { return Find<QCheckBox>(name); }
    void Toggle(const char* name) const {
        Check(name)->setFocus();
        QTest::keyClick(Check(name), Qt::Key_Space);
    }
    std::string TextOf(const char* name) const { return FromQt(Find<QLineEdit>(name)->text()); }
    void Type(const char* name, const std::string& text) const {
        auto* line = Find<QLineEdit>(name);
        line->selectAll();
        QTest::keyClick(line, Qt::Key_Delete);
        QTest::keyClicks(line, ToQt(text));
    }
    std::string Status() const { return FromQt(Find<QLabel>("lblStatus")->text()); }
    bool IsEnabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
    void ChooseMode(const std::string& label) const {
        auto* box = Find<QComboBox>("cmbBitRate");
        box->setCurrentIndex(box->findText(ToQt(label)));
    }

    /// The lines of lstTracks, with a "*" in front of a ticked one.
    Texts Lines() const {
        Texts lines;
        const auto* list = Find<QListWidget>("lstTracks");
        for (int row = 0; row < list->count(); ++row)
            lines.push_back((list->item(row)->checkState() == Qt::Checked ? "*" : "") +
                            FromQt(list->item(row)->text()));
        return lines;
    }

    void DoubleClickTrack(int row) const {
        auto* list = Find<QListWidget>("lstTracks");
        const QRect place = list->visualItemRect(list->item(row));
        const QPoint middle = place.center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, middle);
    }

    std::string Message(std::int32_t id, const std::string& p1 = {}) {
        return app.messages.GetMessage(id, p1);
    }
    std::string LastBox() const { return app.desktop.boxes.empty() ? "" : app.desktop.boxes.back().text; }
    std::string Setting(const std::string& key) const {
        const auto value = app.userSettings.values.find({"Settings", key});
        return value == app.userSettings.values.end() ? "none" : value->second;
    }

    TestApp app;
    WaveFile wave{app};
    FakeDisc disc;
    FakeDatabase database;
    int powerOffs = 0;
    std::unique_ptr<CDBaseDialog> dialog;
};

/// With folders and an encoder that makes a file.
class CDWorkStage : public CDBaseStage {
  protected:
    CDWorkStage() {
        std::filesystem::create_directories(app.folder / "in");
        app.state.CompressCD_SourceFolder = app.folder / "in";
        app.state.CompressCD_TargetFolder = app.folder / "out";
        app.processes.tool = [this](const RecordingProcesses::Run& run) {
            if (run.commandLine.find("/wavetrim") != std::string::npos) return;
            if (whileTool) whileTool();
            WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Size(3000).Bytes());
        };
    }

    /// The disc is read, and its tracks are in the source folder.
    void OpenWithTracks() {
        for (const char* name : {"in/Track01.WAV", "in/Track02.WAV"}) app.folder.Write(name, "wave");
        Open();
        Click("cmdImportData");
    }

    std::function<void()> whileTool;
};

}  // namespace zefta::test
