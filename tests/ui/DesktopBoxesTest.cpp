#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "ui/QtText.h"
#include "ui/desktop/BatchView.h"
#include "ui/desktop/BoxText.h"
#include "ui/desktop/WindowDesktop.h"

namespace zefta::test {
namespace {

/// Does something to the next modal window; fails when none comes.
class WhenModal {
  public:
    template <typename Window>
    explicit WhenModal(std::function<void(Window&)> act) {
        Wait([this, act = std::move(act)] {
            auto* window = qobject_cast<Window*>(QApplication::activeModalWidget());
            if (window == nullptr || !QTest::qWaitForWindowActive(window, 0)) return false;
            seen = true;
            act(*window);
            return true;
        });
    }
    ~WhenModal() { EXPECT_TRUE(seen) << "no window came"; }

    bool seen = false;

  private:
    void Wait(std::function<bool()> done) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this, done = std::move(done)] {
            if (!seen && done()) timer_.stop();
        });
        timer_.start(5);
    }

    QTimer timer_;
};

std::string TextOf(const QMessageBox& box, QMessageBox::StandardButton button) {
    return FromQt(box.button(button)->text());
}

class DesktopBoxesTest : public ::testing::Test {
  protected:
    WindowDesktop desktop{Language::English};
    WindowDesktop russian{Language::Russian};
    TempFolder folder;
};

TEST_F(DesktopBoxesTest, ShowBox_ShowsTextAndCaptionAsTheyAre) {
    const WhenModal answer{std::function([](QMessageBox& box) {
        EXPECT_EQ(FromQt(box.text()), "<b>a & b</b>\n\nc");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(FromQt(box.windowTitle()), "Caption");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(TextOf(box, QMessageBox::Ok), "OK");
        QTest::keyClick(&box, Qt::Key_Return);
    })};
    desktop.ShowBox(BoxKind::Warning, "<b>a & b</b>\r\n\r\nc", "Caption");
}

TEST_F(DesktopBoxesTest, ShowBox_OnlyWarningsAndErrorsAreComplaints) {
    const std::pair<BoxKind, QMessageBox::Icon> rows[] = {{BoxKind::Plain, QMessageBox::NoIcon},
                                                          {BoxKind::Warning, QMessageBox::Warning},
                                                          {BoxKind::Critical, QMessageBox::Critical}};
    for (const auto& [kind, icon] : rows) {
        WindowDesktop fresh{Language::English};
        const WhenModal answer{std::function([expected = icon](QMessageBox& box) {
            EXPECT_EQ(box.icon(), expected);
            box.accept();
        })};
        EXPECT_FALSE(fresh.HasComplained());
        fresh.ShowBox(kind, "text", "caption");
        EXPECT_EQ(fresh.HasComplained(), kind != BoxKind::Plain);
    }
}

TEST_F(DesktopBoxesTest, ShowBox_AmidABatch_OffersToLeaveTheRest) {
    const std::pair<Qt::Key, bool> keys[] = {{Qt::Key_Return, false}, {Qt::Key_Escape, true}};
    for (const auto& [key, cancels] : keys) {
        desktop.ShowBatch(2, 3);
        const WhenModal answer{std::function([key = key](QMessageBox& box) {
            EXPECT_EQ(TextOf(box, QMessageBox::Abort), "&Cancel the rest");
            QTest::keyClick(&box, key);
        })};
        desktop.ShowBox(BoxKind::Warning, "text", "caption");
        EXPECT_EQ(desktop.IsCancelled(), cancels);
        desktop.ShowBatch(0, 0);
        EXPECT_FALSE(desktop.IsCancelled());
    }
}

TEST_F(DesktopBoxesTest, ShowBox_AtTheLastItemOrInNoBatch_OffersNothingElse) {
    for (const std::size_t item : {std::size_t{0}, std::size_t{3}}) {
        desktop.ShowBatch(item, item);
        const WhenModal answer{std::function([](QMessageBox& box) {
            EXPECT_EQ(box.buttons().size(), 1);
            QTest::keyClick(&box, Qt::Key_Escape);
        })};
        desktop.ShowBox(BoxKind::Warning, "text", "caption");
        EXPECT_FALSE(desktop.IsCancelled());
    }
}

TEST_F(DesktopBoxesTest, AskQuestion_AmidABatch_OffersToLeaveTheRest) {
    struct Case {
        Qt::Key key;
        bool answer;
        bool cancels;
    };
    for (const Case& row : {Case{Qt::Key_Y, true, false},
                            {Qt::Key_N, false, false},
                            {Qt::Key_C, false, true},
                            {Qt::Key_Escape, false, true}}) {
        desktop.ShowBatch(1, 3);
        const WhenModal answer{
            std::function([key = row.key](QMessageBox& box) { QTest::keyClick(&box, key); })};
        EXPECT_EQ(desktop.AskQuestion("Overwrite?", "Caption", false), row.answer) << row.key;
        EXPECT_EQ(desktop.IsCancelled(), row.cancels) << row.key;
        desktop.ShowBatch(0, 0);
    }
}

TEST_F(DesktopBoxesTest, AskQuestion_EveryWayToAnswer) {
    struct Case {
        const char* name;
        std::function<void(QMessageBox&)> act;
        bool noIsDefault;
        bool answer;
    };
    const Case cases[] = {
        {"default yes", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, false, true},
        {"default no", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }, true, false},
        {"y", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Y); }, true, true},
        {"n", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_N); }, false, false},
        {"escape", [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }, false, false},
        {"close", [](QMessageBox& box) { box.close(); }, false, false},
        {"click yes",
         [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::Yes), Qt::LeftButton); }, true,
         true},
        {"click no", [](QMessageBox& box) { QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton); },
         false, false},
    };
    for (const Case& row : cases) {
        const WhenModal answer{std::function(row.act)};
        EXPECT_EQ(desktop.AskQuestion("Go on?", "Caption", row.noIsDefault), row.answer) << row.name;
    }
    EXPECT_FALSE(desktop.HasComplained());
}

TEST_F(DesktopBoxesTest, AskQuestion_Buttons_SpeakTheLanguageOfTheProgram) {
    const WhenModal english{std::function([](QMessageBox& box) {
        EXPECT_EQ(TextOf(box, QMessageBox::Yes), "&Yes");
        EXPECT_EQ(TextOf(box, QMessageBox::No), "&No");
        box.reject();
    })};
    desktop.AskQuestion("Go on?", "Caption", false);
    const WhenModal other{std::function([](QMessageBox& box) {
        EXPECT_EQ(TextOf(box, QMessageBox::Yes), "&Да");
        EXPECT_EQ(TextOf(box, QMessageBox::No), "&Нет");
        box.reject();
    })};
    russian.AskQuestion("Продолжить?", "Заголовок", false);
}

TEST_F(DesktopBoxesTest, LongPath_IsBrokenInsteadOfWideningTheBox) {
    const std::string path = "/music" + std::string(20, '/') + std::string(600, 'x') + "/end.mp3";
    const WhenModal answer{std::function([](QMessageBox& box) {
        EXPECT_LE(box.width(), QApplication::primaryScreen()->availableGeometry().width());
        box.accept();
    })};
    desktop.ShowBox(BoxKind::Warning, "Can't open " + path, "Caption");
}

TEST_F(DesktopBoxesTest, VeryLongText_FitsOnTheScreenAndShowsItsEnds) {
    const std::string path = "/music" + std::string(4000, 'x') + "/end.mp3";
    const WhenModal answer{std::function([](QMessageBox& box) {
        EXPECT_LE(box.height(), QApplication::primaryScreen()->availableGeometry().height());
        const QString text = box.text().remove(QChar(0x200B));
        EXPECT_TRUE(text.startsWith("Can't open /music"));
        EXPECT_TRUE(text.endsWith("/end.mp3"));
        box.accept();
    })};
    desktop.ShowBox(BoxKind::Warning, "Can't open " + path, "Caption");
}

TEST_F(DesktopBoxesTest, BoxText_OnlyLongWordsGetPlacesToBreak) {
    EXPECT_EQ(FromQt(BoxText("a/b/c d_e\r\nf")), "a/b/c d_e\nf");
    const std::string path = "/home/somebody/Music/The name of an album/song.mp3";
    EXPECT_EQ(FromQt(BoxText(path)), path);
    const std::string part(16, 'x');
    EXPECT_EQ(FromQt(BoxText(part + part + "xx/y z")), part + "\u200B" + part + "\u200Bxx/\u200By z");
    const std::string pairs = "\U0001F3B5";
    std::string notes;
    for (int i = 0; i < 20; ++i) notes += pairs;
    EXPECT_EQ(FromQt(BoxText("a" + notes).remove(QChar(0x200B))), "a" + notes);
    EXPECT_TRUE(BoxText("a" + notes).isValidUtf16());
}

TEST_F(DesktopBoxesTest, BoxOverAWindow_HasItForItsParent) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const WhenModal answer{std::function([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.accept();
    })};
    desktop.ShowBox(BoxKind::Plain, "text", "caption");
}

TEST_F(DesktopBoxesTest, AskInput_DefaultStandsSelectedAndIsReplacedByTyping) {
    const WhenModal answer{std::function([](QDialog& dialog) {
        auto* field = dialog.findChild<QLineEdit*>("txtAnswer");
        EXPECT_EQ(FromQt(dialog.windowTitle()), "Title");
        EXPECT_EQ(FromQt(dialog.findChild<QLabel*>("lblPrompt")->text()), "Name && more:");
        EXPECT_EQ(dialog.findChild<QLabel*>("lblPrompt")->buddy(), field);
        EXPECT_EQ(FromQt(field->accessibleName()), "Name & more:");
        EXPECT_EQ(FromQt(field->selectedText()), "old.mp3");
        EXPECT_TRUE(field->hasFocus());
        EXPECT_GE(field->width(), field->fontMetrics().averageCharWidth() * 60);
        QTest::keyClicks(field, "new");
        QTest::keyClick(field, Qt::Key_Return);
    })};
    EXPECT_EQ(desktop.AskInput("Name & more:", "Title", "old.mp3"), "new");
}

TEST_F(DesktopBoxesTest, AskInput_Cancelled_IsEmpty) {
    const std::function<void(QDialog&)> ways[] = {
        [](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); },
        [](QDialog& dialog) { dialog.close(); },
        [](QDialog& dialog) {
            auto* buttons = dialog.findChild<QDialogButtonBox*>();
            EXPECT_EQ(FromQt(buttons->button(QDialogButtonBox::Cancel)->text()), "&Cancel");
            QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
        },
    };
    for (const auto& way : ways) {
        const WhenModal answer{std::function(way)};
        EXPECT_EQ(desktop.AskInput("Name:", "Title", "old"), "");
    }
}

TEST_F(DesktopBoxesTest, ChooseFolder_BeginsAtTheFolderAndAsksInItsTitle) {
    std::filesystem::create_directory(folder / "inner");
    const WhenModal answer{std::function([&](QFileDialog& dialog) {
        EXPECT_EQ(FromQt(dialog.windowTitle()), "Select a folder:");
        EXPECT_EQ(FromQt(dialog.directory().absolutePath()), folder.Path());
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        dialog.setDirectory(ToQt(folder / "inner"));
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    })};
    EXPECT_EQ(desktop.ChooseFolder("Select a folder:", "Title", folder.Path()), folder / "inner");
}

TEST_F(DesktopBoxesTest, ChooseFolder_Cancelled_IsEmpty) {
    const WhenModal answer{std::function([](QFileDialog& dialog) { dialog.reject(); })};
    EXPECT_EQ(desktop.ChooseFolder("Select:", "Title", "/no/such/folder"), "");
}

TEST_F(DesktopBoxesTest, ChooseFile_ToRead_OffersFilesOfTheKindThatAreThere) {
    const std::string path = folder.Write("album.zfc", "x");
    const WhenModal answer{std::function([&](QFileDialog& dialog) {
        EXPECT_EQ(FromQt(dialog.windowTitle()), "Load");
        EXPECT_EQ(dialog.nameFilters(), QStringList("Albums (*.zfc)"));
        EXPECT_EQ(FromQt(dialog.directory().absolutePath()), folder.Path());
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText("album.zfc");
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    })};
    FileChoice choice = {.title = "Load", .kind = "Albums", .masks = "*.zfc", .startFolder = folder.Path()};
    EXPECT_EQ(desktop.ChooseFile(choice), path);
}

TEST_F(DesktopBoxesTest, ChooseFile_ToWrite_OffersTheNameWithItsEndingAndDoesNotAsk) {
    folder.Write("album.zfc", "x");
    const WhenModal answer{std::function([&](QFileDialog& dialog) {
        // A text that names the masks itself shows them once.
        EXPECT_EQ(dialog.nameFilters(), QStringList("Albums (*.zfc)"));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(FromQt(dialog.defaultSuffix()), "zfc");
        EXPECT_EQ(FromQt(dialog.selectedFiles().constFirst()), folder / "album.zfc");
        EXPECT_TRUE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
        static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    })};
    EXPECT_EQ(desktop.ChooseFile({.title = "Save As",
                                  .kind = "Albums (*.zfc)",
                                  .masks = "*.zfc",
                                  .startFolder = folder.Path(),
                                  .name = "album.zfc",
                                  .isToBeWritten = true}),
              folder / "album.zfc");
}

TEST_F(DesktopBoxesTest, ChooseFile_Cancelled_IsEmpty) {
    const WhenModal answer{std::function([](QFileDialog& dialog) { dialog.reject(); })};
    EXPECT_EQ(desktop.ChooseFile({.title = "Load", .kind = "All", .masks = "*"}), "");
}

/// A home in a temporary folder, with the trash in it.
class DesktopTrashTest : public DesktopBoxesTest {
  protected:
    ~DesktopTrashTest() override { unsetenv("XDG_DATA_HOME"); }
};

TEST_F(DesktopTrashTest, MoveToTrash_KeepsFileAndFolderThere) {
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    const std::string file = folder.Write("песня.mp3", "abc");
    std::filesystem::create_directories(folder / "album");
    folder.Write("album/a.mp3", "def");
    EXPECT_TRUE(desktop.MoveToTrash(file));
    EXPECT_TRUE(desktop.MoveToTrash(folder / "album"));
    EXPECT_FALSE(folder.Exists("песня.mp3"));
    EXPECT_FALSE(folder.Exists("album"));
    EXPECT_EQ(folder.Read("data/Trash/files/песня.mp3"), "abc");
    EXPECT_EQ(folder.Read("data/Trash/files/album/a.mp3"), "def");
}

TEST_F(DesktopTrashTest, MoveToTrash_WithoutAnyTrash_LeavesTheFile) {
    setenv("XDG_DATA_HOME", (folder.Write("data", "no folder") + "/x").c_str(), 1);
    const std::string file = folder.Write("a.mp3", "abc");
    EXPECT_FALSE(desktop.MoveToTrash(file));
    EXPECT_EQ(folder.Read("a.mp3"), "abc");
}

TEST_F(DesktopTrashTest, MoveToTrash_FileThatNothingTakes_Stays) {
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    EXPECT_FALSE(desktop.MoveToTrash("/proc/self/status"));
    EXPECT_TRUE(std::filesystem::exists("/proc/self/status"));
}

TEST_F(DesktopTrashTest, MoveToTrash_MissingFileOrNameThatIsNoText_IsRefused) {
    setenv("XDG_DATA_HOME", (folder / "data").c_str(), 1);
    EXPECT_FALSE(desktop.MoveToTrash(folder / "none.mp3"));
    const std::string file = folder.Write("a\xFF.mp3", "abc");
    EXPECT_FALSE(desktop.MoveToTrash(file));
    EXPECT_EQ(folder.Read("a\xFF.mp3"), "abc");
}

class RecordingBatchView : public BatchView {
  public:
    void ShowBatch(std::size_t item, std::size_t count) override { shown.emplace_back(item, count); }
    bool IsCancelled() const override { return isCancelled; }

    std::vector<std::pair<std::size_t, std::size_t>> shown;
    bool isCancelled = false;
};

TEST_F(DesktopBoxesTest, Batch_IsShownAndEndedInItsView) {
    RecordingBatchView view;
    desktop.ShowBatch(1, 2);
    EXPECT_FALSE(desktop.IsCancelled());
    desktop.ShowBatchesIn(&view);
    desktop.ShowBatch(2, 2);
    EXPECT_EQ(view.shown, (std::vector<std::pair<std::size_t, std::size_t>>{{2, 2}}));
    EXPECT_FALSE(desktop.IsCancelled());
    view.isCancelled = true;
    EXPECT_TRUE(desktop.IsCancelled());
    desktop.ShowBatchesIn(nullptr);
    EXPECT_FALSE(desktop.IsCancelled());
}

TEST_F(DesktopBoxesTest, ServeEvents_LetsTheWindowsLive) {
    bool served = false;
    QTimer::singleShot(0, [&] { served = true; });
    QElapsedTimer time;
    time.start();
    while (!served && time.elapsed() < 2000) desktop.ServeEvents();
    EXPECT_TRUE(served);
}

TEST_F(DesktopBoxesTest, Note_IsNoBoxAndNoComplaint) {
    desktop.Note("nothing to do");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(desktop.HasComplained());
}

}  // namespace
}  // namespace zefta::test
