#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>
#include <QWheelEvent>
#include <memory>

#include <gtest/gtest.h>

#include "core/History.h"
#include "core/Settings.h"
#include "core/ShellVerbs.h"
#include "support/FakeDesktopEntries.h"
#include "support/TestApp.h"
#include "toolkit/DialogAtHand.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "ui/setup/LevelBox.h"
#include "ui/setup/SetupDialog.h"

namespace zefta::test {
namespace {

class SetupDialogTest : public ::testing::Test {
  protected:
    SetupDialogTest() { LoadSettings(app); }

    void Open() {
        dialog = std::make_unique<SetupDialog>(app, desktops, nullptr);
        ShowInFront(*dialog);
    }

    template <typename Control>
    Control& Find(const std::string& name) const {
        return FindControl<Control>(*dialog, name);
    }

    /// The page that the control is on comes to the front.
    void ShowPageOf(QWidget& control) const {
        auto& tabs = Find<QTabWidget>("SSTab1");
        for (int page = 0; page < tabs.count(); ++page) {
            if (tabs.widget(page)->isAncestorOf(&control)) tabs.setCurrentIndex(page);
        }
    }

    QCheckBox& Box(const std::string& name) const { return Find<QCheckBox>(name); }

    void Toggle(const std::string& name) const {
        QCheckBox& box = Box(name);
        ShowPageOf(box);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }

    void Type(const std::string& name, const std::string& text) const {
        auto& line = Find<QLineEdit>(name);
        ShowPageOf(line);
        line.setFocus();
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, ToQt(text));
    }

    void Click(const std::string& name) const {
        ShowPageOf(Find<QPushButton>(name));
        QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton);
    }

    std::string TextOf(const std::string& name) const { return FromQt(Find<QLineEdit>(name).text()); }
    std::string Stored(const std::string& key) {
        return app.userSettings.GetValue("Settings", key).value_or("nothing");
    }

    TestApp app;
    FakeDesktopEntries desktops;
    std::unique_ptr<SetupDialog> dialog;
};

/// A box of the dialog and the setting behind it.
struct BoxOfSetting {
    const char* box;
    const char* key;
    bool byDefault;
};

constexpr BoxOfSetting GeneralBoxes[] = {
    {"chkTrimSilence", "TrimSilence", true},
    {"chkPropertiesOnDblClick", "FilePropertiesOnDblClick", false},
    {"chkShowExternalProcessWindows", "ShowExecuteWindows", true},
    {"chkDeleteAfterCompress", "DeleteAfterCompress", false},
    {"chkDeleteAfterReCompress", "DeleteAfterReCompress", false},
    {"chkReduceLevel", "ReduceLevel", false},
    {"chkNormalize", "Normalize", false},
    {"chkNormalizeSeparately", "NormalizeSeparately", false},
    {"chkStartupFolder", "EnableStartupFolder", false},
};

std::vector<std::string> ModeNames() {
    std::vector<std::string> names = {"LAME128", "LAME160",    "LAME192",    "LAME256",    "LAME320",
                                      "LAMEVBR", "LAME128ABR", "LAME160ABR", "LAME192ABR", "LAME256ABR"};
    for (int i = 1; i <= 6; ++i) names.push_back("OGGb" + std::to_string(i));
    for (int i = 0; i <= 10; ++i) names.push_back("OGGq" + std::to_string(i));
    for (int i = 1; i <= 6; ++i) names.push_back("MPCm" + std::to_string(i));
    return names;
}

TEST_F(SetupDialogTest, Titles_AreTheMessages) {
    Open();
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - options");
    std::vector<std::string> tabs;
    for (int i = 0; i < Find<QTabWidget>("SSTab1").count(); ++i)
        tabs.push_back(FromQt(Find<QTabWidget>("SSTab1").tabText(i)));
    EXPECT_EQ(tabs, (std::vector<std::string>{"General", "Shell extension", "Encoding modes", "LAME",
                                              "Ogg Vorbis", "MPEGplus"}));
    EXPECT_EQ(FromQt(Box("chkDecode").text()), "Decode file");
    EXPECT_EQ(FromQt(Box("chkEncode128").text()), "128 kbps");
    EXPECT_EQ(FromQt(Box("chkEncode256ABR").text()), "256 kbps ABR");
    EXPECT_EQ(FromQt(Box("chkEncodeOggPreset3").text()), "User preset 3");
    EXPECT_EQ(FromQt(Box("chkEnableMPCm6").text()), "BrainDead");
}

TEST_F(SetupDialogTest, GeneralBoxes_ShowAndKeepTheirSettings) {
    Open();
    for (const auto& [box, key, byDefault] : GeneralBoxes) {
        EXPECT_EQ(Box(box).isChecked(), byDefault) << box;
        Toggle(box);
    }
    Click("OKButton");
    EXPECT_FALSE(dialog->isVisible());
    for (const auto& [box, key, byDefault] : GeneralBoxes)
        EXPECT_EQ(Stored(key), byDefault ? "False" : "True") << key;
    LoadSettings(app);
    Open();
    for (const auto& [box, key, byDefault] : GeneralBoxes) EXPECT_NE(Box(box).isChecked(), byDefault) << box;
}

TEST_F(SetupDialogTest, ModeBoxes_ShowAndKeepTheirSettings) {
    Open();
    const auto names = ModeNames();
    ASSERT_EQ(names.size(), 33U);
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_TRUE(Box("chkEnable" + names[i]).isChecked()) << names[i];
        if (i % 2 == 0) Toggle("chkEnable" + names[i]);
    }
    Click("OKButton");
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(Stored("Enable" + names[i]), i % 2 == 0 ? "False" : "True") << names[i];
}

TEST_F(SetupDialogTest, MasterBoxes_GovernTheirFrames) {
    for (const auto& [master, frame, box] :
         {std::tuple{"chkLAMEEncodingModesEnable", "fraLAMEEncodingModes", "LAME128"},
          std::tuple{"chkOGGEncodingModesEnable", "fraOGGEncodingModes", "OGGq5"},
          std::tuple{"chkMPCEncodingModesEnable", "fraMPCEncodingModes", "MPCm3"}}) {
        Open();
        EXPECT_TRUE(Box(master).isChecked());
        Toggle(std::string("chkEnable") + box);
        Toggle(master);
        EXPECT_FALSE(Find<QWidget>(frame).isEnabled());
        EXPECT_FALSE(Box(std::string("chkEnable") + box).isEnabled());
        Toggle(master);
        EXPECT_TRUE(Find<QWidget>(frame).isEnabled());
        EXPECT_FALSE(Box(std::string("chkEnable") + box).isChecked()) << "what was chosen comes back";
        Toggle(master);
        Click("OKButton");
        Open();
        EXPECT_FALSE(Box(master).isChecked());
        Toggle(master);
        EXPECT_TRUE(Box(std::string("chkEnable") + box).isChecked()) << "of nothing all comes back";
    }
    for (const std::string& name : ModeNames()) EXPECT_EQ(Stored("Enable" + name), "False") << name;
}

TEST_F(SetupDialogTest, EveryVerb_HasItsBoxAndIsRegistered) {
    for (const ShellVerb& verb : ShellVerbTable(8)) {
        Open();
        EXPECT_FALSE(Box(verb.CheckBox).isChecked()) << verb.CheckBox;
        Toggle(verb.CheckBox);
        Click("OKButton");
        EXPECT_TRUE(ShellVerbs(app, desktops).IsOn(verb)) << verb.CheckBox;
        EXPECT_EQ(desktops.menus.size(), 1U) << verb.CheckBox;
        Open();
        EXPECT_TRUE(Box(verb.CheckBox).isChecked()) << verb.CheckBox;
        Toggle(verb.CheckBox);
        Click("OKButton");
        EXPECT_TRUE(desktops.menus.empty()) << verb.CheckBox;
    }
}

TEST_F(SetupDialogTest, VerbThatAnotherProgramRemoved_IsUnchecked) {
    Open();
    Toggle("chkEncode128");
    Toggle("chkEncode160");
    Click("OKButton");
    desktops.menus.erase("zefta-encode-to-128-kbps");
    Open();
    EXPECT_FALSE(Box("chkEncode128").isChecked());
    EXPECT_TRUE(Box("chkEncode160").isChecked());
}

TEST_F(SetupDialogTest, OggQuality_IsThatOfTheVerb) {
    Open();
    Toggle("chkEncodeOggQmode");
    auto* quality = &Find<QComboBox>("cmbEncodeOggQuality");
    EXPECT_EQ(quality->count(), 11);
    quality->setFocus();
    QTest::keyClick(quality, Qt::Key_Home);
    QTest::keyClick(quality, Qt::Key_Down);
    Click("OKButton");
    EXPECT_TRUE(desktops.menus.contains("zefta-encode-to-ogg-q-1"));
    Open();
    EXPECT_TRUE(Box("chkEncodeOggQmode").isChecked());
    EXPECT_EQ(FromQt(Find<QComboBox>("cmbEncodeOggQuality").currentText()), "1");
}

TEST_F(SetupDialogTest, AutoLoad_FollowsTheSession) {
    desktops.session["Kestrin Zeftaworks"] = "x";
    Open();
    EXPECT_TRUE(Box("chkAutoLoad").isChecked());
    Toggle("chkAutoLoad");
    Click("OKButton");
    EXPECT_TRUE(desktops.session.empty());
}

TEST_F(SetupDialogTest, Cancel_KeepsNothing) {
    for (const bool byKey : {false, true}) {
        Open();
        const auto before = app.userSettings.values;
        Toggle("chkTrimSilence");
        Toggle("chkAutoLoad");
        Toggle("chkEncode128");
        Toggle("chkLAMEEncodingModesEnable");
        Type("txtPresetName1", "x");
        Find<QComboBox>("cmbRenameTemplates").setEditText("%T");
        if (byKey) {
            QTest::keyClick(dialog.get(), Qt::Key_Escape);
        } else {
            Click("CancelButton");
        }
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(app.userSettings.values, before);
        EXPECT_TRUE(desktops.calls.empty());
        EXPECT_TRUE(app.state.Saved.TrimSilence);
        EXPECT_TRUE(app.state.EnableLAME128);
        EXPECT_EQ(app.state.CustomLAMEPreset[0].Name, "Speech (64kbps ABR, 16kHz, mono)");
    }
}

TEST_F(SetupDialogTest, Presets_AreNumberedOverAllEncoders) {
    app.state.CustomMPCPreset[2].Code = std::string("a\tb");
    Open();
    EXPECT_EQ(TextOf("txtPresetName2"), "LAME 320 kbps with lowpass at 20kHz");
    EXPECT_EQ(TextOf("txtPresetCode3"), "-m j -v -V 0 -h --lowpass 18.0 --resample 44");
    for (int i = 1; i <= 9; ++i) {
        Type("txtPresetName" + std::to_string(i), "name " + std::to_string(i));
        if (i < 9) Type("txtPresetCode" + std::to_string(i), "-code " + std::to_string(i));
    }
    Click("OKButton");
    int number = 0;
    for (const char* encoder : {"LAME", "OGG", "MPC"}) {
        for (int i = 1; i <= 3; ++i) {
            const std::string key = std::string("Custom") + encoder + "Preset" + std::to_string(i);
            ++number;
            EXPECT_EQ(Stored(key + "_Name"), "name " + std::to_string(number));
            EXPECT_EQ(Stored(key + "_Code"), number == 9 ? "a\tb" : "-code " + std::to_string(number));
        }
    }
}

TEST_F(SetupDialogTest, Levels_GoUpAndDownAndAreTypedInEitherUnit) {
    Open();
    auto& level = Find<LevelBox>("udcNRLevel");
    EXPECT_EQ(TextOf("txtNRLevel"), "95 % (-0.45 dB)");
    EXPECT_EQ(TextOf("txtNRAbove"), "98 % (-0.18 dB)");
    EXPECT_EQ(TextOf("txtNRBelow"), "85 % (-1.41 dB)");
    level.setFocus();
    QTest::keyClick(&level, Qt::Key_Up);
    EXPECT_EQ(TextOf("txtNRLevel"), "96 % (-0.35 dB)");
    QTest::keyClick(&level, Qt::Key_Down);
    QTest::keyClick(&level, Qt::Key_Down);
    EXPECT_EQ(TextOf("txtNRLevel"), "94 % (-0.54 dB)");
    Type("txtNRBelow", "-6 dB");
    QTest::keyClick(&Find<QLineEdit>("txtNRBelow"), Qt::Key_Tab);
    EXPECT_EQ(TextOf("txtNRBelow"), "50 % (-6.02 dB)");
    Type("txtNRAbove", "70");
    QTest::keyClick(&Find<QLineEdit>("txtNRAbove"), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(Stored("NormalizeLevel"), "94");
    EXPECT_EQ(Stored("NormalizeBelow"), "50");
    EXPECT_EQ(Stored("NormalizeAbove"), "70");
}

TEST_F(SetupDialogTest, LevelThatIsNone_LeavesTheFormerOne) {
    Open();
    Type("txtNRLevel", "400");
    QTest::keyClick(&Find<QLineEdit>("txtNRLevel"), Qt::Key_Tab);
    EXPECT_EQ(TextOf("txtNRLevel"), "95 % (-0.45 dB)");
}

TEST_F(SetupDialogTest, EmptiedLevel_LeavesTheFormerOne) {
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return}) {
        Open();
        Type("txtNRLevel", "");
        QTest::keyClick(&Find<QLineEdit>("txtNRLevel"), key);
        EXPECT_EQ(TextOf("txtNRLevel"), "95 % (-0.45 dB)");
    }
    EXPECT_EQ(Stored("NormalizeLevel"), "95");
}

TEST_F(SetupDialogTest, Priority_IsChosenByItsName) {
    Open();
    auto& priority = Find<QComboBox>("cmbPriorityClass");
    EXPECT_EQ(FromQt(priority.currentText()), "Normal");
    priority.setFocus();
    QTest::keyClick(&priority, Qt::Key_End);
    Click("OKButton");
    EXPECT_EQ(Stored("PriorityClass"), "High");
    EXPECT_EQ(app.state.PriorityClass, HighPriority);
}

TEST_F(SetupDialogTest, Templates_ComeFromTheHistoryAndANewOneGoesThere) {
    SaveRenameTemplates(app.userSettings, {"%T", "%A"});
    Open();
    auto& templates = Find<QComboBox>("cmbRenameTemplates");
    EXPECT_EQ(templates.count(), 2);
    EXPECT_EQ(FromQt(templates.currentText()), "%N. %A - %T [%M] %W");
    templates.setEditText("%Y");
    Click("OKButton");
    EXPECT_EQ(LoadRenameTemplates(app.userSettings), (std::vector<std::string>{"%Y", "%T", "%A"}));
    EXPECT_EQ(Stored("CustomRenameTemplate"), "%Y");
}

TEST_F(SetupDialogTest, PathBoxes_EnableTheirLineAndButton) {
    Open();
    for (const auto& [box, line, button] :
         {std::tuple{"chkStartupFolder", "txtStartupFolder", "cmdBrowseForStartupFolder"},
          std::tuple{"chkExternalLanguageFile", "txtExternalLanguageFile",
                     "cmdBrowseForExternalLanguageFile"}}) {
        EXPECT_FALSE(Find<QLineEdit>(line).isEnabled());
        EXPECT_FALSE(Find<QPushButton>(button).isEnabled());
        Toggle(box);
        EXPECT_TRUE(Find<QLineEdit>(line).isEnabled());
        EXPECT_TRUE(Find<QPushButton>(button).isEnabled());
        Toggle(box);
        EXPECT_FALSE(Find<QLineEdit>(line).isEnabled());
    }
}

TEST_F(SetupDialogTest, StartupFolder_IsBrowsedForOrTyped) {
    app.state.EnableStartupFolder = true;
    app.state.StartupFolder = "/music/\xFF";
    Open();
    app.desktop.folders = {"", app.folder.Path()};
    Click("cmdBrowseForStartupFolder");
    EXPECT_EQ(app.desktop.questions.at(0).text, "Browse for startup folder");
    EXPECT_EQ(app.desktop.questions.at(0).defaultAnswer, "/music/\xFF");
    Click("OKButton");
    EXPECT_EQ(Stored("StartupFolder"), "/music/\xFF") << "bytes stay what they are";
    Open();
    Click("cmdBrowseForStartupFolder");
    EXPECT_EQ(TextOf("txtStartupFolder"), app.folder.Path());
    Click("OKButton");
    EXPECT_EQ(Stored("StartupFolder"), app.folder.Path());
    Open();
    Type("txtStartupFolder", "\\music\\live");
    Click("OKButton");
    EXPECT_EQ(Stored("StartupFolder"), "/music/live");
}

TEST_F(SetupDialogTest, LanguageFile_IsBrowsedForAndInForceForTheNextWindow) {
    const std::string file = app.folder.Write("x.lng", "33701 = Optionen\r\n");
    Open();
    Toggle("chkExternalLanguageFile");
    // The desktop of tests answers a chooser of files as an input box.
    app.desktop.inputs = {file};
    Click("cmdBrowseForExternalLanguageFile");
    EXPECT_EQ(app.desktop.questions.at(0).caption, "Browse for language file");
    EXPECT_EQ(app.desktop.questions.at(0).text, "ZEFTA Language files (*.lng)");
    EXPECT_TRUE(app.desktop.questions.at(0).defaultAnswer.starts_with("/opt/zefta/Languages"));
    EXPECT_EQ(TextOf("txtExternalLanguageFile"), file);
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - options");
    Click("OKButton");
    EXPECT_FALSE(app.desktop.boxes.empty());
    Open();
    EXPECT_EQ(FromQt(dialog->windowTitle()), "Kestrin Zeftaworks - Optionen");
}

TEST_F(SetupDialogTest, Wheel_PassesTheBoxesThatHaveNotTheFocus) {
    Open();
    Box("chkTrimSilence").setFocus();
    const auto turn = [](QWidget& box) {
        QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&box, &wheel);
    };
    for (const char* name : {"cmbPriorityClass", "cmbRenameTemplates", "cmbEncodeOggQuality"}) {
        auto& box = Find<QComboBox>(name);
        box.addItem("one more");
        const int before = box.currentIndex();
        turn(box);
        EXPECT_EQ(box.currentIndex(), before) << name;
    }
    for (const char* name : {"udcNRLevel", "udcNRBelow", "udcNRAbove"}) {
        auto& level = Find<QSpinBox>(name);
        const int before = level.value();
        turn(level);
        EXPECT_EQ(level.value(), before) << name;
        level.setFocus();
        turn(level);
        EXPECT_EQ(level.value(), before - 1) << name;
    }
}

TEST_F(SetupDialogTest, EveryControl_HasANameForScreenReadersAndIsReachedByTab) {
    Open();
    for (QWidget* control : dialog->findChildren<QWidget*>()) {
        const bool isWithin = qobject_cast<QComboBox*>(control->parentWidget()) != nullptr ||
                              qobject_cast<QSpinBox*>(control->parentWidget()) != nullptr;
        const bool takesInput = qobject_cast<QLineEdit*>(control) != nullptr ||
                                qobject_cast<QComboBox*>(control) != nullptr ||
                                qobject_cast<QSpinBox*>(control) != nullptr;
        if (isWithin) continue;
        if (takesInput) {
            EXPECT_FALSE(control->accessibleName().isEmpty()) << FromQt(control->objectName());
        }
        if (takesInput || qobject_cast<QCheckBox*>(control) != nullptr) {
            EXPECT_NE(control->focusPolicy() & Qt::TabFocus, 0) << FromQt(control->objectName());
        }
    }
    EXPECT_TRUE(Find<QPushButton>("OKButton").isDefault());
    EXPECT_LE(dialog->minimumSizeHint().height(), 700);
}

}  // namespace
}  // namespace zefta::test
