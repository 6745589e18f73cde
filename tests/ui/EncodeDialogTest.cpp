#include <QStatusBar>
#include <QWheelEvent>
#include <filesystem>

#include "platform/CommandText.h"
#include "support/Mp3Builder.h"
#include "support/WavBuilder.h"
#include "toolkit/DialogAtHand.h"
#include "ui/FileInfoStage.h"
#include "ui/TypeKeys.h"
#include "ui/encode/EncodeDialog.h"

namespace zefta::test {
namespace {

using Names = std::vector<std::string>;

class EncodeDialogTest : public FileInfoStage<EncodeDialog> {
  protected:
    EncodeDialogTest() {
        app.state.CompressCD_Bitrate = 128;
        app.state.Saved.TrimSilence = false;
        app.processes.tool = [](const RecordingProcesses::Run& run) {
            WriteWholeFile(SplitCommandLine(run.commandLine).back().text, Mp3().Size(4000).Bytes());
        };
    }

    void OpenOn(const Names& names) {
        for (const std::string& name : names) app.folder.Write(name, Wav().Tone(17640).Bytes());
        SelectionWatch watch = {[this](const std::string& text) { statuses.push_back(text); },
                                [this](const std::string& name) { encoded.push_back(name); }};
        dialog = std::make_unique<EncodeDialog>(app, app.folder.Path(), names, watch, nullptr);
        ShowInFront(*dialog);
    }

    GridView& Grid() const { return *Find<GridView>("flxFiles"); }
    Names RowTexts(int row) const {
        Names texts;
        for (int column = 0; column < Grid().model()->columnCount(); ++column)
            texts.push_back(FromQt(Grid().model()->index(row, column).data().toString()));
        return texts;
    }
    void TypeInto(int row, int column, const std::string& text) const {
        Grid().setFocus();
        Grid().SelectCell(row, column);
        TypeKeys(text);
    }
    void Accept() {
        app.desktop.answers = {true};
        Click("OKButton");
    }
    void ChooseMode(const char* label) const {
        const int entry = Box("cmbBitRate")->findText(label);
        ASSERT_GE(entry, 0) << label;
        Box("cmbBitRate")->setCurrentIndex(entry);
    }

    std::string Command(std::size_t index) const { return app.processes.runs.at(index).commandLine; }
    std::string Stored(const char* key) const {
        return app.userSettings.GetValue("Settings", key).value_or("none");
    }

    static constexpr int TitlePlace = 3;

    Names statuses;
    Names encoded;
};

TEST_F(EncodeDialogTest, Opening_ShowsTheFilesAndTheSettings) {
    app.state.Saved = {
        .TrimSilence = true, .ReduceLevel = true, .Normalize = true, .NormalizeSeparately = true};
    app.state.DeleteAfterCompress = true;
    OpenOn({"b.wav", "a.wav"});
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - advanced encoding");
    Names headings;
    for (int column = 0; column < Grid().model()->columnCount(); ++column)
        headings.push_back(FromQt(Grid().model()->headerData(column, Qt::Horizontal).toString()));
    EXPECT_EQ(headings, (Names{"No.", "File", "Artist", "Title", "Mix", "Album", "Year"}));
    EXPECT_EQ(RowTexts(0), (Names{"1", "b.wav", "", "", "", "", ""}));
    EXPECT_EQ(RowTexts(1), (Names{"2", "a.wav", "", "", "", "", ""}));
    for (const char* box : {"chkTrimSilence", "chkReduceLevel", "chkNormalize", "chkNormalizeSeparately",
                            "chkDeleteAfterCompress"})
        EXPECT_TRUE(Check(box)->isChecked()) << box;
    EXPECT_FALSE(Check("chkShutdown")->isChecked());
    EXPECT_EQ(FromQt(Box("cmbBitRate")->currentText()), "LAME 128 kbps");
    EXPECT_EQ(FromQt(Check("chkShutdown")->text()), app.messages.GetMessage(33303));
    EXPECT_EQ(FromQt(Find<QPushButton>("OKButton")->text()), "Encode");
    EXPECT_EQ(Focus(), "flxFiles");
    ExpectUsable(*dialog);
}

TEST_F(EncodeDialogTest, Boxes_FollowTheModeTrimmingAndNormalising) {
    OpenOn({"a.wav"});
    const auto expect = [&](bool normalize, bool separately, bool reduce) {
        EXPECT_EQ(Check("chkNormalize")->isEnabled(), normalize);
        EXPECT_EQ(Check("chkNormalizeSeparately")->isEnabled(), separately);
        EXPECT_EQ(Check("chkReduceLevel")->isEnabled(), reduce);
    };
    expect(false, false, true);
    Toggle("chkTrimSilence");
    expect(true, false, true);
    Toggle("chkNormalize");
    expect(true, true, false);
    ChooseMode("Ogg Vorbis Q=5");
    expect(true, true, false);
    Toggle("chkNormalize");
    expect(true, false, false);
    ChooseMode("MPEGplus Xtreme");
    expect(true, false, true);
    Toggle("chkTrimSilence");
    expect(false, false, true);
}

TEST_F(EncodeDialogTest, NoAnswerButYes_GoesOn) {
    OpenOn({"a.wav"});
    Click("OKButton");
    ASSERT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_EQ(app.desktop.questions[0].text, "Continue encoding?");
    EXPECT_EQ(app.desktop.questions[0].caption, "Encoding");
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(Stored("CompressCD_Bitrate"), "none");
    EXPECT_EQ(Stored("EncodeWidth"), "none");
}

TEST_F(EncodeDialogTest, Ok_EncodesAndTagsEachRow) {
    OpenOn({"a.wav", "b.wav"});
    Type("txtDefArtist", "Default");
    TypeInto(0, TitlePlace, "First");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    TypeKeys("Second");
    Accept();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(encoded, (Names{"a.wav", "b.wav"}));
    EXPECT_EQ(statuses, (Names{"[1/2] a.wav", "[2/2] b.wav"}));
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(Command(0), "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   \"" +
                              (app.folder / "a.wav") + "\" \"" + (app.folder / "a.MP3") + "\"");
    const ID3Tag first = wave.GetMP3FileInfo(app.folder / "a.mp3");
    EXPECT_EQ(first.Title, "First");
    EXPECT_EQ(first.Artist, "Default");
    EXPECT_EQ(first.TrackNumber, 1);
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "b.mp3").Title, "Second");
    EXPECT_TRUE(app.folder.Exists("a.wav"));
    EXPECT_EQ(Stored("CompressCD_Bitrate"), "128");
    EXPECT_FALSE(dialog->WantsPowerOff());
}

TEST_F(EncodeDialogTest, Boxes_ReachTheTools) {
    OpenOn({"a.wav"});
    Toggle("chkTrimSilence");
    Toggle("chkReduceLevel");
    Toggle("chkNormalize");
    Toggle("chkDeleteAfterCompress");
    ChooseMode("MPEGplus Standard");
    Accept();
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_NE(Command(0).find(" /wavetrim "), std::string::npos);
    EXPECT_NE(Command(0).find(" /norm "), std::string::npos);
    EXPECT_TRUE(Command(1).starts_with("mppenc.exe  -v --overwrite --standard ")) << Command(1);
    EXPECT_NE(Command(1).find(" -scale 0.95 "), std::string::npos);
    EXPECT_FALSE(app.folder.Exists("a.wav"));
    EXPECT_FALSE(app.state.ReduceLevel) << "that of the settings again";
}

TEST_F(EncodeDialogTest, NoModeInTheList_EncodesAt320) {
    static_cast<EnabledModes&>(app.state) = {};
    app.state.EnableLAME320 = false;
    app.state.CompressCD_Bitrate = 5;
    OpenOn({"a.wav"});
    EXPECT_EQ(Box("cmbBitRate")->currentIndex(), -1);
    EXPECT_FALSE(Check("chkReduceLevel")->isEnabled());
    Accept();
    EXPECT_TRUE(Command(0).starts_with("lame.exe -m s -q0 -b 320 ")) << Command(0);
}

TEST_F(EncodeDialogTest, NoFiles_OnlyAsksAndSaves) {
    OpenOn({});
    EXPECT_EQ(Grid().model()->rowCount(), 0);
    Toggle("chkShutdown");
    Accept();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Stored("CompressCD_Bitrate"), "128");
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_FALSE(dialog->WantsPowerOff());
}

TEST_F(EncodeDialogTest, Shutdown_IsWantedBehindTheLastFile) {
    OpenOn({"a.wav"});
    Toggle("chkShutdown");
    EXPECT_FALSE(dialog->WantsPowerOff());
    Accept();
    EXPECT_TRUE(dialog->WantsPowerOff());
}

TEST_F(EncodeDialogTest, Shutdown_IsNotWantedByWhoCancelsDuringTheLastFile) {
    OpenOn({"a.wav"});
    Toggle("chkShutdown");
    const auto encode = app.processes.tool;
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        encode(run);
        QTest::mouseClick(Find<QPushButton>("cmdCancelBatch"), Qt::LeftButton);
    };
    Accept();
    EXPECT_EQ(encoded, Names{"a.wav"});
    EXPECT_FALSE(IsOpen());
    EXPECT_FALSE(dialog->WantsPowerOff());
}

TEST_F(EncodeDialogTest, FolderThatIsGone_KeepsTheDialogAndThePower) {
    OpenOn({"a.wav"});
    Toggle("chkShutdown");
    TypeInto(0, TitlePlace, "Title");
    std::filesystem::rename(app.folder.Path(), app.folder.Path() + ".away");
    Accept();
    std::filesystem::rename(app.folder.Path() + ".away", app.folder.Path());
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(dialog->WantsPowerOff());
    EXPECT_EQ(RowTexts(0).at(TitlePlace), "Title");
}

TEST_F(EncodeDialogTest, FilesWithoutAnOutput_KeepTheDialogAndWhatWasTyped) {
    OpenOn({"a.wav", "b.wav"});
    TypeInto(0, TitlePlace, "First");
    Press(Qt::Key_Return);
    TypeKeys("Second");
    const auto encode = app.processes.tool;
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        if (run.commandLine.find("b.wav") == std::string::npos) encode(run);
    };
    Accept();
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(encoded, Names{"a.wav"});
    ASSERT_EQ(Grid().model()->rowCount(), 1);
    EXPECT_EQ(RowTexts(0).at(TitlePlace), "Second");
    EXPECT_EQ(FromQt(Find<QStatusBar>("stb")->currentMessage()),
              "Files that were not encoded: 1. What was entered for them is still here.");
    app.processes.tool = encode;
    Accept();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "b.mp3").Title, "Second");
}

TEST_F(EncodeDialogTest, FilesWithoutAnOutput_OfWhichNothingWasTyped_LetItClose) {
    OpenOn({"a.wav"});
    app.processes.tool = {};
    Accept();
    EXPECT_FALSE(IsOpen());
}

TEST_F(EncodeDialogTest, FilesWithoutAnOutput_DoNotKeepTheMachineOn) {
    OpenOn({"a.wav"});
    TypeInto(0, TitlePlace, "Title");
    Toggle("chkShutdown");
    app.processes.tool = {};
    Accept();
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(dialog->WantsPowerOff());
}

TEST_F(EncodeDialogTest, FilesOfTheNamesOfOutputs_AreAskedAbout) {
    const std::string tended = "somebody's work";
    app.folder.Write("a.MP3", tended);
    app.folder.Write("b.ogg", tended);
    OpenOn({"a.wav", "b.wav"});
    Accept();
    ASSERT_EQ(app.desktop.questions.size(), 2U);
    EXPECT_NE(app.desktop.questions[1].text.find("\na.MP3\n"), std::string::npos);
    EXPECT_EQ(app.desktop.questions[1].text.find("b.ogg"), std::string::npos);
    EXPECT_TRUE(app.desktop.questions[1].noIsDefault);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.folder.Read("a.MP3"), tended);
    app.desktop.answers = {true, true};
    Click("OKButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(encoded, (Names{"a.wav", "b.wav"}));
    EXPECT_EQ(app.folder.Read("b.ogg"), tended);
}

TEST_F(EncodeDialogTest, ClosingDuringTheWork_EndsItAndThenCloses) {
    OpenOn({"a.wav", "b.wav"});
    const auto encode = app.processes.tool;
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        encode(run);
        dialog->close();
        EXPECT_TRUE(IsOpen());
    };
    Accept();
    EXPECT_EQ(encoded, Names{"a.wav"});
    EXPECT_FALSE(IsOpen());
}

TEST_F(EncodeDialogTest, Wheel_PassesTheBoxesThatHaveNotTheFocus) {
    OpenOn({"a.wav"});
    for (const char* name : {"cmbBitRate", "cmbTemplates"}) {
        const int before = Box(name)->currentIndex();
        QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(Box(name), &wheel);
        EXPECT_EQ(Box(name)->currentIndex(), before) << name;
        EXPECT_EQ(Focus(), "flxFiles") << name;
    }
}

TEST_F(EncodeDialogTest, RetrieveTags_FillsTheCells) {
    OpenOn({"07 - Band - Song (Live).wav"});
    Box("cmbTemplates")->setCurrentIndex(2);
    Click("cmdRetrieveTags");
    EXPECT_EQ(RowTexts(0), (Names{"07", "07 - Band - Song (Live).wav", "Band", "Song", "Live", "", ""}));
}

TEST_F(EncodeDialogTest, CancelOfTheWork_KeepsTheRowsThatAreLeft) {
    const std::function<void()> ways[] = {
        [this] { QTest::mouseClick(Find<QPushButton>("cmdCancelBatch"), Qt::LeftButton); },
        [this] { QTest::keyClick(dialog.get(), Qt::Key_Escape); },
    };
    for (const auto& way : ways) {
        encoded.clear();
        for (const char* output : {"a.MP3", "b.MP3"}) std::filesystem::remove(app.folder / output);
        OpenOn({"a.wav", "b.wav"});
        Toggle("chkShutdown");
        TypeInto(1, TitlePlace, "Second");
        app.desktop.whileServing = [&] {
            EXPECT_FALSE(Grid().isEnabled());
            EXPECT_FALSE(Find<QPushButton>("OKButton")->isEnabled());
            if (encoded.size() == 1) way();
        };
        Accept();
        app.desktop.whileServing = {};
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(encoded, Names{"a.wav"});
        EXPECT_FALSE(dialog->WantsPowerOff());
        ASSERT_EQ(Grid().model()->rowCount(), 1);
        EXPECT_EQ(RowTexts(0), (Names{"2", "b.wav", "", "Second", "", "", ""}));
        Accept();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(encoded, (Names{"a.wav", "b.wav"}));
        EXPECT_TRUE(dialog->WantsPowerOff());
    }
}

TEST_F(EncodeDialogTest, EscapeBehindACancel_AsksBeforeItLosesTheRowsThatAreLeft) {
    OpenOn({"a.wav", "b.wav"});
    TypeInto(0, TitlePlace, "First");
    Press(Qt::Key_Return);
    TypeKeys("Second");
    app.desktop.whileServing = [&] {
        if (encoded.size() == 1) QTest::keyClick(dialog.get(), Qt::Key_Escape);
    };
    Accept();
    app.desktop.whileServing = {};
    app.desktop.questions.clear();
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(IsOpen());
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(RowTexts(0).at(TitlePlace), "");
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_FALSE(IsOpen());
}

TEST_F(EncodeDialogTest, OutputOfAFormerRun_IsNotReplacedBehindACancel) {
    OpenOn({"a.wav", "a.WAV"});
    Toggle("chkDeleteAfterCompress");
    app.desktop.whileServing = [&] {
        if (encoded.size() == 1) QTest::keyClick(dialog.get(), Qt::Key_Escape);
    };
    Accept();
    app.desktop.whileServing = {};
    const std::string first = app.folder.Read("a.MP3");
    Accept();
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.folder.Exists("a.WAV"));
    EXPECT_TRUE(app.folder.Read("a.MP3") == first);
}

TEST_F(EncodeDialogTest, EncoderThatHangs_IsEndedByCancellingTwice) {
    OpenOn({"a.wav", "b.wav"});
    const auto encode = app.processes.tool;
    const auto click = [this] { QTest::mouseClick(Find<QPushButton>("cmdCancelBatch"), Qt::LeftButton); };
    const QString caption = Find<QPushButton>("cmdCancelBatch")->text();
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        encode(run);
        EXPECT_FALSE(dialog->WantsToolEnded());
        click();
        EXPECT_FALSE(dialog->WantsToolEnded());
        EXPECT_NE(Find<QPushButton>("cmdCancelBatch")->text(), caption);
        EXPECT_EQ(Focus(), "cmdCancelBatch");
        app.desktop.questions.clear();
        app.desktop.answers = {false, true};
        click();
        EXPECT_FALSE(dialog->WantsToolEnded());
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
        EXPECT_TRUE(dialog->WantsToolEnded());
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
        ASSERT_EQ(app.desktop.questions.size(), 2U);
        EXPECT_TRUE(app.desktop.questions[0].noIsDefault);
    };
    Accept();
    EXPECT_EQ(app.processes.runs.size(), 1U);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(dialog->WantsToolEnded());
    app.processes.tool = [&](const RecordingProcesses::Run& run) {
        encode(run);
        EXPECT_FALSE(dialog->WantsToolEnded());
        EXPECT_EQ(Find<QPushButton>("cmdCancelBatch")->text(), caption);
    };
    Accept();
    EXPECT_FALSE(IsOpen());
}

TEST_F(EncodeDialogTest, ClickOnACell_EditsIt) {
    OpenOn({"a.wav"});
    const QPoint place = Grid().visualRect(Grid().model()->index(0, TitlePlace)).center();
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(Focus(), "Text1");
}

TEST_F(EncodeDialogTest, Escape_AsksAboutDefaultsToo) {
    OpenOn({"a.wav"});
    Type("txtDefAlbum", "Album");
    Press(Qt::Key_Escape);
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    EXPECT_TRUE(IsOpen());
}

TEST_F(EncodeDialogTest, PlaceAndTemplate_AreStored) {
    app.userSettings.Apply({{"Settings", "EncodeWidth", "11250"}, {"Settings", "EncodeHeight", "10500"}});
    OpenOn({});
    EXPECT_EQ(dialog->size(), QSize(750, 700));
    dialog->resize(770, 720);
    Box("cmbTemplates")->setCurrentIndex(7);
    Click("CancelButton");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Stored("EncodeWidth"), std::to_string(770 * 15));
    EXPECT_EQ(Stored("EncodeHeight"), std::to_string(720 * 15));
    EXPECT_NE(Stored("EncodeLeft"), "none");
    EXPECT_NE(Stored("EncodeTop"), "none");
    EXPECT_EQ(Stored("EncodeWindowState"), "0");
    EXPECT_EQ(Stored("ChangeTags_ReverseFormat"), "7");
}

TEST_F(EncodeDialogTest, Escape_AsksBeforeItLosesWhatWasTyped) {
    OpenOn({"a.wav"});
    TypeInto(0, TitlePlace, "New");
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(app.desktop.questions.size(), 1U);
    app.desktop.answers = {true};
    Press(Qt::Key_Escape);
    EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace zefta::test
