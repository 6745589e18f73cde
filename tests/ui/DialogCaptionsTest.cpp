// Texts of the dialogs by the controls that bear them.

#include <QGroupBox>
#include <QRadioButton>
#include <map>

#include "core/Settings.h"
#include "support/FakeDesktopEntries.h"
#include "support/TestApp.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "ui/encode/EncodeDialog.h"
#include "ui/rename/RenameDialog.h"
#include "ui/setup/SetupDialog.h"
#include "ui/tags/ChangeTagsDialog.h"
#include "ui/tags/ChangeTagsExDialog.h"
#include "wave/WaveFile.h"

namespace zefta::test {
namespace {

using ControlTexts = std::map<std::string, std::string>;

class DialogCaptions : public ::testing::Test {
  protected:
    DialogCaptions() {
        LoadSettings(app);
        app.defaultWaveFile = &wave;
    }

    template <typename Control>
    static const Control& Of(const QWidget& dialog, const std::string& name) {
        return FindControl<Control>(dialog, name);
    }

    static void ExpectButtons(const QWidget& dialog, const ControlTexts& texts) {
        for (const auto& [name, text] : texts)
            EXPECT_EQ(FromQt(Of<QAbstractButton>(dialog, name).text()), text) << name;
    }

    /// Labels are told by the control that they stand at.
    static void ExpectLabels(const QWidget& dialog, const ControlTexts& texts) {
        for (const auto& [name, text] : texts) {
            std::string found = "no label";
            for (const QLabel* label : dialog.findChildren<QLabel*>()) {
                if (label->buddy() == &Of<QWidget>(dialog, name)) found = FromQt(label->text());
            }
            EXPECT_EQ(found, text) << name;
        }
    }

    static bool HasFrame(const QWidget& dialog, const std::string& title) {
        for (const QGroupBox* frame : dialog.findChildren<QGroupBox*>()) {
            if (FromQt(frame->title()) == title) return true;
        }
        return false;
    }

    static constexpr auto DefaultsNote =
        "Note that this is the default values for an artist name, an album title and a publishing year. "
        "Values in the table below will override this settings.";

    TestApp app;
    WaveFile wave{app};
};

TEST_F(DialogCaptions, AdvancedEncoding) {
    const EncodeDialog dialog(app, app.folder.Path(), {}, {}, nullptr);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Kestrin Zeftaworks - advanced encoding");
    ExpectButtons(dialog, {{"chkShutdown", "Shutdown Windows and power off your PC when finished"},
                           {"chkTrimSilence", "Trim silence before encoding"},
                           {"chkReduceLevel", "Reduce audio level by 0.5db"},
                           {"chkDeleteAfterCompress", "Delete source wave files when finished"},
                           {"chkNormalize", "Normalize"},
                           {"chkNormalizeSeparately", "Separately"},
                           {"cmdRetrieveTags", "Retrieve tags from filenames"},
                           {"OKButton", "Encode"},
                           {"CancelButton", "Cancel"}});
    ExpectLabels(dialog, {{"cmbBitRate", "Encoding mode"},
                          {"txtDefArtist", "Artist"},
                          {"txtDefAlbum", "Album"},
                          {"txtDefYear", "Year"},
                          {"cmbGenre", "Genre"}});
    EXPECT_TRUE(HasFrame(dialog, "Default values"));
    EXPECT_TRUE(HasFrame(dialog, "Choose a file naming template..."));
    EXPECT_EQ(FromQt(Of<QLabel>(dialog, "lblDefaultsNote").text()), DefaultsNote);
}

TEST_F(DialogCaptions, MassiveTagsUpdate) {
    const ChangeTagsDialog dialog(app, {app.folder.Path(), {}, {}}, {}, nullptr);
    EXPECT_EQ(FromQt(dialog.windowTitle()), "Kestrin Zeftaworks - massive tags update");
    EXPECT_TRUE(HasFrame(dialog, "New tags values"));
    ExpectLabels(dialog, {{"txtArtist", "Artist"},
                          {"txtTitle", "Title"},
                          {"txtMix", "Mix"},
                          {"txtAlbum", "Album"},
                          {"txtYear", "Year"},
                          {"cmbGenre", "Genre"}});
    EXPECT_EQ(FromQt(Of<QLabel>(dialog, "lblNote").text()),
              "Tag fields with non empty values will be written to all selected files.");
}

TEST_F(DialogCaptions, AdvancedTagsUpdate) {
    const ChangeTagsExDialog dialog(app, app.folder.Path(), {}, {}, nullptr);
    ExpectButtons(dialog, {{"optFirstLetterCaps", "First letter only"},
                           {"optAllFirstLettersCaps", "First letter of each word"},
                           {"chkUpdateAllColumns", "All columns"},
                           {"cmdChangeCase", "Change"},
                           {"cmdRetrieveTags", "Retrieve tags from filenames"}});
    ExpectLabels(dialog, {{"txtDefArtist", "Artist"},
                          {"txtDefAlbum", "Album"},
                          {"txtDefYear", "Year"},
                          {"cmbGenre", "Genre"}});
    for (const char* title : {"Default values", "Change case", "Choose a file naming template..."})
        EXPECT_TRUE(HasFrame(dialog, title)) << title;
    EXPECT_EQ(FromQt(Of<QLabel>(dialog, "lblDefaultsNote").text()), DefaultsNote);
}

TEST_F(DialogCaptions, ExtendedRenaming) {
    const RenameDialog dialog(app, {app.folder.Path(), {}}, nullptr);
    ExpectButtons(dialog, {{"optFormat1", "&1: Artist - Title.MP3"},
                           {"optFormat2", "&2: Artist - Title (Mix).MP3"},
                           {"optFormat3", "&3: Title (Mix).MP3"},
                           {"optFormat4", "&4: Artist\\Title (Mix).MP3"},
                           {"optFormat5", "&5: Artist_-_Title_(Mix).MP3"},
                           {"optFormat6", "Custom user template"}});
    EXPECT_EQ(FromQt(Of<QLabel>(dialog, "lblWarning").text()),
              "Warning! This operation can not be undone! Be sure of what you do!");
    EXPECT_TRUE(Of<QRadioButton>(dialog, "optFormat2").isChecked()) << "of a first start";
    EXPECT_TRUE(Of<QRadioButton>(dialog, "optRenameFilter0").isChecked());
}

TEST_F(DialogCaptions, EverySavedRule_IsTheOneThatIsChosen) {
    for (int format = 1; format <= 6; ++format) {
        app.state.RenameAndTagging_Format = static_cast<std::uint8_t>(format);
        const RenameDialog dialog(app, {app.folder.Path(), {}}, nullptr);
        EXPECT_TRUE(Of<QRadioButton>(dialog, "optFormat" + std::to_string(format)).isChecked()) << format;
        EXPECT_EQ(dialog.Form().format, format);
    }
}

TEST_F(DialogCaptions, Options) {
    FakeDesktopEntries desktops;
    const SetupDialog dialog(app, desktops, nullptr);
    const std::map<std::string, int> messages = {
        {"chkAutoLoad", 33704},
        {"chkTrimSilence", 33705},
        {"chkFileInfo", 33708},
        {"chkDecode", 33709},
        {"chkCopyPlaylist", 33714},
        {"chkBrowseWithZEFTA", 33715},
        {"OKButton", 33716},
        {"CancelButton", 33717},
        {"chkPropertiesOnDblClick", 33720},
        {"chkReduceLevel", 33721},
        {"chkDeleteAfterCompress", 33726},
        {"chkNormalize", 33727},
        {"chkNormalizeSeparately", 33731},
        {"chkShowExternalProcessWindows", 33733},
        {"chkDeleteAfterReCompress", 33734},
        {"chkEncodeVBR", 33712},
    };
    for (const auto& [name, message] : messages)
        EXPECT_EQ(FromQt(Of<QAbstractButton>(dialog, name).text()), app.messages.GetMessage(message)) << name;
}

TEST_F(DialogCaptions, PrioritiesOfTools_AreThree) {
    FakeDesktopEntries desktops;
    const SetupDialog dialog(app, desktops, nullptr);
    const auto& box = Of<QComboBox>(dialog, "cmbPriorityClass");
    std::vector<std::string> words;
    for (int i = 0; i < box.count(); ++i) words.push_back(FromQt(box.itemData(i).toString()));
    EXPECT_EQ(words, (std::vector<std::string>{"Idle", "Normal", "High"}));
    EXPECT_EQ(FromQt(box.currentData().toString()), "Normal");
}

}  // namespace
}  // namespace zefta::test
