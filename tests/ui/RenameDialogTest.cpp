#include <QElapsedTimer>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <filesystem>
#include <memory>

#include "core/History.h"
#include "core/Settings.h"
#include "support/TagBuilders.h"
#include "toolkit/DialogAtHand.h"
#include "toolkit/FindControl.h"
#include "ui/CommandStage.h"
#include "ui/rename/RenameDialog.h"

namespace zefta::test {
namespace {

std::string TaggedSong(const std::string& artist, const std::string& title) {
    Id3v1 tag;
    tag.artist = artist;
    tag.title = title;
    return Mp3().Behind(tag.Bytes()).Bytes();
}

class RenameDialogTest : public ::testing::Test {
  protected:
    RenameDialogTest() {
        app.defaultWaveFile = &wave;
        LoadSettings(app);
        app.defaultWaveFile = &wave;
        std::filesystem::create_directories(app.folder / "music");
    }

    void MakeSong(const std::string& name, const std::string& title) {
        app.folder.Write("music/" + name, TaggedSong("A", title));
    }

    void Open(const std::vector<std::string>& selected = {}) {
        dialog =
            std::make_unique<RenameDialog>(app, RenameDialog::Place{app.folder / "music", selected}, nullptr);
        ShowInFront(*dialog);
    }

    template <typename Control>
    Control& Find(const std::string& name) const {
        return FindControl<Control>(*dialog, name);
    }

    void Choose(const std::string& name) const {
        auto& option = Find<QAbstractButton>(name);
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }

    bool IsEnabled(const std::string& name) const { return Find<QWidget>(name).isEnabled(); }

    std::string Summary() const { return FromQt(Find<QLabel>("lblPreview").text()); }

    /// The rows when the preview has come to its end: "old -> new | note", sorted.
    std::vector<std::string> Rows() const {
        EXPECT_TRUE(QTest::qWaitFor([&] { return Summary().starts_with("Get a new name"); }, 30000))
            << Summary();
        const QAbstractItemModel& model = *Find<QTableView>("lvPreview").model();
        std::vector<std::string> rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto cell = [&](int column) { return FromQt(model.index(row, column).data().toString()); };
            rows.push_back(cell(0) + " -> " + cell(1) + (cell(2).empty() ? "" : " | " + cell(2)));
        }
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    using Texts = std::vector<std::string>;

    TestApp app;
    WaveFile wave{app};
    std::unique_ptr<RenameDialog> dialog;
};

TEST_F(RenameDialogTest, Captions_AreTheMessages) {
    Open();
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - extended rename");
    EXPECT_EQ(FromQt(Find<QRadioButton>("optFormat1").text()), "&1: Artist - Title.MP3");
    EXPECT_EQ(FromQt(Find<QRadioButton>("optFormat6").text()), "Custom user template");
    EXPECT_EQ(FromQt(Find<QRadioButton>("optRenameFilter0").text()), "All files in the current folder");
    EXPECT_EQ(FromQt(Find<QRadioButton>("optRenameFilter1").text()), "All selected files");
    EXPECT_EQ(FromQt(Find<QRadioButton>("optRenameFilter2").text()), "Files by mask");
    EXPECT_EQ(FromQt(Find<QCheckBox>("chkProcessSubfolders").text()), "Process subfolders");
    EXPECT_EQ(FromQt(Find<QCheckBox>("chkUpdatePlaylists").text()), "Update playlists with new filenames");
    EXPECT_TRUE(FromQt(Find<QLabel>("lblWarning").text()).starts_with("Warning! This operation"));
    EXPECT_EQ(FromQt(Find<QPushButton>("OKButton").text()), "Rename");
}

TEST_F(RenameDialogTest, LeastHeight_LeavesLinesOfEntryWhole) {
    MakeSong("a.mp3", "One");
    Open();
    Choose("optFormat6");
    Choose("optRenameFilter2");
    dialog->resize(dialog->minimumSizeHint());
    QCoreApplication::processEvents();
    for (const char* name : {"cmbRenameTemplates", "txtMask"}) {
        const auto& line = Find<QWidget>(name);
        EXPECT_GE(line.height(), line.minimumSizeHint().height()) << name;
    }
}

TEST_F(RenameDialogTest, Load_ShowsTheSavedChoice) {
    app.state.RenameAndTagging_Format = 6;
    app.state.RenameAndTagging_FilterType = 2;
    app.state.RenameAndTagging_Mask = "*.ogg";
    app.state.RenameAndTagging_ProcessSubfolders = true;
    app.state.RenameAndTagging_UpdatePlaylists = false;
    app.state.CustomRenameTemplate = "%T";
    SaveRenameTemplates(app.userSettings, {"%A", "%T"});
    Open();
    EXPECT_TRUE(Find<QRadioButton>("optFormat6").isChecked());
    EXPECT_TRUE(Find<QRadioButton>("optRenameFilter2").isChecked());
    EXPECT_EQ(FromQt(Find<QLineEdit>("txtMask").text()), "*.ogg");
    EXPECT_TRUE(Find<QCheckBox>("chkProcessSubfolders").isChecked());
    EXPECT_FALSE(Find<QCheckBox>("chkUpdatePlaylists").isChecked());
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbRenameTemplates").currentText()), "%T");
    EXPECT_EQ(Find<QComboBox>("cmbRenameTemplates").count(), 2);
    EXPECT_EQ(FromQt(dialog->focusWidget()->objectName()), "optFormat6");
}

TEST_F(RenameDialogTest, Controls_AreEnabledByTheChoice) {
    Open();
    for (int format = 1; format <= 6; ++format) {
        Choose("optFormat" + std::to_string(format));
        EXPECT_EQ(IsEnabled("cmbRenameTemplates"), format == 6) << format;
        EXPECT_EQ(IsEnabled("chkProcessSubfolders"), format != 4) << format;
    }
    for (int filter = 0; filter <= 2; ++filter) {
        Choose("optRenameFilter" + std::to_string(filter));
        EXPECT_EQ(IsEnabled("txtMask"), filter == 2) << filter;
    }
}

TEST_F(RenameDialogTest, Form_IsWhatTheControlsSay) {
    Open({"a.mp3"});
    Choose("optFormat6");
    Choose("optRenameFilter2");
    Choose("chkProcessSubfolders");
    Choose("chkUpdatePlaylists");
    Find<QComboBox>("cmbRenameTemplates").setEditText("%T");
    Find<QLineEdit>("txtMask").setText("*.mp3");
    const RenameForm form = dialog->Form();
    EXPECT_EQ(form.format, 6);
    EXPECT_EQ(form.customTemplate, "%T");
    EXPECT_EQ(form.choice.filter, ExtendedRename::Filter::FilesByMask);
    EXPECT_EQ(form.choice.mask, "*.mp3");
    EXPECT_EQ(form.choice.selected, Texts{"a.mp3"});
    EXPECT_EQ(form.choice.folder, app.folder / "music");
    EXPECT_TRUE(form.choice.processSubfolders);
    EXPECT_FALSE(form.choice.updatePlaylists);
    Choose("optFormat4");
    EXPECT_FALSE(dialog->Form().choice.processSubfolders);
}

TEST_F(RenameDialogTest, Preview_ShowsWhatWouldHappenAndTouchesNothing) {
    MakeSong("x.mp3", "One");
    MakeSong("y.mp3", "One");
    app.folder.Write("music/z.mp3", TaggedSong("", ""));
    app.folder.Write("music/l.m3u", "x.mp3\n");
    Open();
    Choose("optFormat1");
    const Texts rows = Rows();
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0], "l.m3u ->  | lines that change: 1");
    EXPECT_EQ(rows[3], "z.mp3 ->  | holds neither artist nor title");
    const bool isFirst = rows[1] == "x.mp3 -> A - One.MP3";
    EXPECT_EQ(rows[1], isFirst ? "x.mp3 -> A - One.MP3" : "x.mp3 -> A - One {2}.MP3 | name taken, numbered");
    EXPECT_EQ(rows[2], isFirst ? "y.mp3 -> A - One {2}.MP3 | name taken, numbered" : "y.mp3 -> A - One.MP3");
    EXPECT_EQ(Summary(), "Get a new name: 2. Keep theirs: 1.");
    EXPECT_TRUE(app.folder.Exists("music/x.mp3"));
    EXPECT_EQ(app.folder.Read("music/l.m3u"), "x.mp3\n");
}

TEST_F(RenameDialogTest, Preview_FollowsWhatIsTyped) {
    MakeSong("x.mp3", "One");
    Open();
    Choose("optFormat6");
    auto& line = *Find<QComboBox>("cmbRenameTemplates").lineEdit();
    line.selectAll();
    QTest::keyClicks(&line, "%T (%A)");
    EXPECT_EQ(Rows(), Texts{"x.mp3 -> One (A).MP3"});
    QTest::keyClicks(&line, " x");
    EXPECT_FALSE(Summary().starts_with("Get a new name"));
    EXPECT_EQ(Rows(), Texts{"x.mp3 -> One (A) x.MP3"});
}

TEST_F(RenameDialogTest, Preview_TellsWhereTheWorkWouldEnd) {
    const std::string frames = TextFrame("TPE1", "A") + TextFrame("TIT2", "T") + TextFrame("TRCK", "3/12");
    app.folder.Write("music/x.mp3",
                     Mp3().InFront(Id3v2(frames, 200)).Behind(Id3v1{.title = "T"}.Bytes()).Bytes());
    Open();
    Rows();
    EXPECT_NE(Summary().find("The work would end there:"), std::string::npos) << Summary();
}

TEST_F(RenameDialogTest, Preview_StandsInTheOrderOfTheList) {
    app.folder.Write("music/list.m3u", "b.mp3\nC.mp3\n");
    for (const char* name : {"C", "b", "D", "a {2}", "a", "e"}) MakeSong(name + std::string(".mp3"), name);
    Open();
    Find<QCheckBox>("chkUpdatePlaylists").setChecked(true);
    Rows();
    const QAbstractItemModel& model = *Find<QTableView>("lvPreview").model();
    Texts names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.push_back(FromQt(model.index(row, 0).data().toString()));
    EXPECT_EQ(names, (Texts{"list.m3u", "a.mp3", "a {2}.mp3", "b.mp3", "C.mp3", "D.mp3", "e.mp3"}));
}

TEST_F(RenameDialogTest, Preview_ShowsItsNotesAndLeavesTheNamesTheirRoom) {
    MakeSong("a.mp3", "T");
    app.folder.Write("music/" + std::string(200, 'x') + ".mp3", Mp3().Bytes());
    const std::string frames = TextFrame("TPE1", "A") + TextFrame("TIT2", "T") + TextFrame("TRCK", "3/12");
    app.folder.Write("music/" + std::string(200, 'y') + ".mp3",
                     Mp3().InFront(Id3v2(frames, 200)).Behind(Id3v1{.title = "T"}.Bytes()).Bytes());
    Open();
    Rows();
    const auto& table = Find<QTableView>("lvPreview");
    QCoreApplication::processEvents();
    EXPECT_GT(table.columnWidth(2), table.fontMetrics().horizontalAdvance("holds neither"));
    EXPECT_GT(table.columnWidth(0), table.viewport()->width() / 6);
    EXPECT_FALSE(table.horizontalScrollBar()->isVisible());
}

TEST_F(RenameDialogTest, RuleByTemplate_HasItsNumberForAKeyAsTheOthers) {
    Open();
    for (const int rule : {3, 6, 1}) {
        QTest::keyClick(dialog.get(), static_cast<Qt::Key>(Qt::Key_0 + rule), Qt::AltModifier);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return Find<QRadioButton>("optFormat" + std::to_string(rule)).isChecked(); }, 5000))
            << rule;
    }
}

TEST_F(RenameDialogTest, TenThousandFiles_NeverHoldTheDialogUp) {
    constexpr int Files = 10000;
    for (int i = 0; i < Files; ++i) MakeSong(std::to_string(i) + ".mp3", "T" + std::to_string(i));
    Open();
    Choose("optFormat6");
    auto& line = *Find<QComboBox>("cmbRenameTemplates").lineEdit();
    line.setText("%T");
    qint64 longest = 0;
    int typed = 0;
    while (!Summary().starts_with("Get a new name") || typed < 20) {
        QElapsedTimer timer;
        timer.start();
        if (typed < 20 && ++typed % 5 == 0) QTest::keyClicks(&line, "x");
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        longest = std::max(longest, timer.elapsed());
    }
    EXPECT_LT(longest, 1000);
    EXPECT_EQ(Find<QTableView>("lvPreview").model()->rowCount(), Files);
    line.setText("%T y");
    QTest::qWait(400);
    QElapsedTimer timer;
    timer.start();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_LT(timer.elapsed(), 2000);
}

TEST_F(RenameDialogTest, Legend_NamesEveryPlaceHolder) {
    Open();
    std::string all;
    for (const QLabel* label : Find<QWidget>("fraLegend").findChildren<QLabel*>())
        all += FromQt(label->text()) + "\n";
    for (const char* holder : {"%A", "%T", "%M", "%Y", "%L", "%N", "%N3", "%R", "%W"})
        EXPECT_NE(all.find(std::string(holder) + "\n"), std::string::npos) << holder;
}

TEST_F(RenameDialogTest, EscapeAndCancel_RejectAndReturnAccepts) {
    Open();
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
    Open();
    QTest::mouseClick(&Find<QPushButton>("CancelButton"), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    Open();
    QTest::keyClick(dialog.get(), Qt::Key_Return);
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(app.userSettings.applied, 0) << "the work belongs to the command";
}

TEST_F(RenameDialogTest, EveryControl_HasANameForScreenReaders) {
    Open();
    for (const char* name : {"cmbRenameTemplates", "txtMask", "lvPreview"})
        EXPECT_FALSE(Find<QWidget>(name).accessibleName().isEmpty()) << name;
    EXPECT_TRUE(Find<QPushButton>("OKButton").isDefault());
    EXPECT_LE(dialog->minimumSizeHint().height(), 700);
}

/// The command of the main window.
class ExtendedRenameTest : public CommandStage {
  protected:
    void MakeSong(const std::string& name, const std::string& title) { Make(name, TaggedSong("A", title)); }

    /// What the person does in the dialog that the next step opens.
    void InDialog(const std::function<void(RenameDialog&)>& act) {
        QTimer::singleShot(0, window.get(), [this, act] {
            auto* dialog = qobject_cast<RenameDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            ++shown;
            act(*dialog);
            if (dialog->isVisible()) dialog->reject();
        });
    }

    static void Choose(RenameDialog& dialog, const char* name) {
        dialog.findChild<QAbstractButton*>(name)->click();
    }

    int shown = 0;
};

TEST_F(ExtendedRenameTest, Rename_WorksOnTheFolderAndReadsItAgain) {
    MakeSong("x.mp3", "One");
    MakeSong("y.mp3", "Two");
    Make("list.m3u", "x.mp3\n");
    Open();
    SelectRows({"x.mp3", "list.m3u"});
    InDialog([](RenameDialog& dialog) {
        Choose(dialog, "optFormat1");
        Choose(dialog, "optRenameFilter0");
        Choose(dialog, "OKButton");
    });
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(Exists("A - One.MP3"));
    EXPECT_TRUE(Exists("A - Two.MP3"));
    EXPECT_EQ(ReadWholeFile(PathOf("list.m3u")), "A - One.MP3\n");
    EXPECT_EQ(SelectedNames(), Texts{"list.m3u"}) << "what had the focus is selected again";
    EXPECT_EQ(app.userSettings.GetValue("Settings", "RenameAndTagging_Format"), "1");
}

TEST_F(ExtendedRenameTest, SelectedFiles_AreThoseOfTheList) {
    MakeSong("x.mp3", "One");
    MakeSong("y.mp3", "Two");
    MakeFolder("sub");
    Open();
    SelectRows({"sub", "y.mp3"});
    InDialog([](RenameDialog& dialog) {
        EXPECT_EQ(dialog.Form().choice.selected, std::vector<std::string>{"y.mp3"});
        Choose(dialog, "optFormat1");
        Choose(dialog, "optRenameFilter1");
        Choose(dialog, "OKButton");
    });
    ClickItem("mnuToolsRenameExt");
    EXPECT_TRUE(Exists("x.mp3"));
    EXPECT_TRUE(Exists("A - Two.MP3"));
    EXPECT_TRUE(SelectedNames().empty());
}

TEST_F(ExtendedRenameTest, Cancel_RenamesNothing) {
    MakeSong("x.mp3", "One");
    Open();
    SelectRows({"x.mp3"});
    InDialog([](RenameDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Key(Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(shown, 1);
    EXPECT_TRUE(Exists("x.mp3"));
    EXPECT_EQ(SelectedNames(), Texts{"x.mp3"});
    EXPECT_EQ(app.userSettings.GetValue("Settings", "RenameAndTagging_Format"), std::nullopt);
}

TEST_F(ExtendedRenameTest, Failure_IsShownAndTheListReadAgain) {
    const std::string frames = TextFrame("TPE1", "A") + TextFrame("TIT2", "T") + TextFrame("TRCK", "3/12");
    Make("x.mp3", Mp3().InFront(Id3v2(frames, 200)).Behind(Id3v1{.title = "T"}.Bytes()).Bytes());
    Open();
    InDialog([](RenameDialog& dialog) { Choose(dialog, "OKButton"); });
    Key(Qt::Key_R, Qt::ControlModifier);
    ASSERT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.desktop.boxes[0].text.starts_with("Error #13"));
    EXPECT_TRUE(Exists("x.mp3"));
}

}  // namespace
}  // namespace zefta::test
