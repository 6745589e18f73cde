#include <QDate>
#include <QFont>
#include <filesystem>
#include <map>

#include "library/ReadableColour.h"
#include "ui/ListStage.h"
#include "ui/WindowTexts.h"

namespace zefta::test {
namespace {

const std::string Header320 = "\xFF\xFB\xE0\x64";
const std::string Header128 = "\xFF\xFB\x90\x64";
const std::string Header128Mono = "\xFF\xFB\x90\xC4";
const std::string Header96 = "\xFF\xFB\x70\x64";

std::string Mp3Of(const std::string& header, const Id3v1& tag = {}) {
    return Mp3().Header(header).Size(20000).Behind(tag.Bytes()).Bytes();
}

class FileList : public ListStage {
  protected:
    QColor Foreground(const std::string& name, ListColumn column) const {
        return CellData(name, column, Qt::ForegroundRole).value<QColor>();
    }

    bool IsBold(const std::string& name, ListColumn column) const {
        return CellData(name, column, Qt::FontRole).value<QFont>().bold();
    }
};

TEST_F(FileList, Headers_AreTheSameInEveryLanguage) {
    const QAbstractItemModel& model = *browser.View()->model();
    QStringList headers;
    for (int column = 0; column < model.columnCount(); ++column)
        headers.append(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
    EXPECT_EQ(headers.join('|'), "File|Size|Bitrate|Time|Artist|Title|Year|Album|SortOrder");
}

TEST_F(FileList, Rows_AreTheWayUpThenFoldersThenPlaylistsThenFiles) {
    for (const char* name : {"b.mp3", "A.ogg", "m.m3u", "x.txt", "c.lqt", "w.wav"})
        app.folder.Write(name, "");
    app.files.CreateFolder(app.folder / "zoo");
    app.files.CreateFolder(app.folder / "a.b");
    OpenWhole();
    EXPECT_EQ(Names(), (Texts{"..", "a.b", "zoo", "m.m3u", "A.ogg", "b.mp3", "c.lqt", "w.wav"}));
    EXPECT_EQ(Cell("a.b", ListColumn::SortOrder), "0-a.b");
    EXPECT_EQ(Cell("b.mp3", ListColumn::SortOrder), "2-b");
    EXPECT_EQ(Cell("..", ListColumn::SortOrder), "");
    EXPECT_EQ(Cell("..", ListColumn::Size), " ");
    EXPECT_EQ(Cell("zoo", ListColumn::Size), " ");
}

TEST_F(FileList, RowOfName_IsFoundInAnyOrderAndBehindRowsThatWent) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3", "d.mp3"}) app.folder.Write(name, "");
    OpenWhole();
    auto& model = *browser.findChild<FileListModel*>();
    EXPECT_EQ(model.RowOfName("d.mp3"), 4);
    EXPECT_EQ(model.RowOfName("a.mp3"), 1);
    EXPECT_EQ(model.RowOfName("c.mp3"), 3);
    EXPECT_EQ(model.RowOfName("e.mp3"), -1);
    EXPECT_EQ(model.RowOfName("d.mp3"), 4);
    model.Remove(1);
    model.Remove(1);
    EXPECT_EQ(model.RowOfName("d.mp3"), 2);
    model.Remove(2);
    EXPECT_EQ(model.RowOfName("d.mp3"), -1);
    EXPECT_EQ(model.RowOfName("c.mp3"), 1);
}

TEST_F(FileList, SortOrder_IsUnseen) {
    app.folder.Write("b.mp3", "");
    OpenWhole();
    const auto& view = static_cast<const FileListView&>(*browser.View());
    EXPECT_EQ(view.columnWidth(static_cast<int>(ListColumn::SortOrder)), 0);
    EXPECT_EQ(Foreground("b.mp3", ListColumn::SortOrder), browser.View()->palette().color(QPalette::Base));
}

TEST_F(FileList, Icons_TellTheKinds) {
    for (const char* name : {"a.mp3", "a.lqt", "a.ogg", "a.mpc", "a.wav", "a.m3u"})
        app.folder.Write(name, "");
    app.files.CreateFolder(app.folder / "sub");
    Open();
    std::map<std::string, RowIcon> icons;
    browser.View()->selectAll();
    for (const BrowserRow& row : browser.SelectedRows()) icons[row.name] = row.icon;
    EXPECT_EQ(icons["a.mp3"], RowIcon::Compressed);
    EXPECT_EQ(icons["a.lqt"], RowIcon::Compressed);
    EXPECT_EQ(icons["a.ogg"], RowIcon::Compressed);
    EXPECT_EQ(icons["a.mpc"], RowIcon::Compressed);
    EXPECT_EQ(icons["sub"], RowIcon::Folder);
    EXPECT_EQ(icons[".."], RowIcon::Up);
    EXPECT_EQ(icons["a.wav"], RowIcon::Wave);
    EXPECT_EQ(icons["a.m3u"], RowIcon::Playlist);
    for (const auto& [name, icon] : icons) {
        const auto picture = CellData(name, ListColumn::File, Qt::DecorationRole).value<QIcon>();
        EXPECT_FALSE(picture.pixmap(16, 16).isNull()) << name;
    }
}

TEST_F(FileList, Sizes_AreToldByTheirRule) {
    app.folder.Write("small.lqt", std::string(5000, 'x'));
    app.folder.Write("middle.lqt", std::string(20480, 'x'));
    app.folder.Write("empty.lqt", "");
    app.folder.Write("large.lqt", "");
    std::filesystem::resize_file(app.folder / "large.lqt", 200LL << 20);
    OpenWhole();
    EXPECT_EQ(Cell("small.lqt", ListColumn::Size), "5000");
    EXPECT_EQ(Cell("middle.lqt", ListColumn::Size), "20 K");
    EXPECT_EQ(Cell("empty.lqt", ListColumn::Size), " ");
    EXPECT_EQ(Cell("large.lqt", ListColumn::Size), "200 M");
    EXPECT_EQ(Foreground("small.lqt", ListColumn::Size), QColor(128, 128, 128));
}

TEST_F(FileList, Bitrates_AreColouredAndBoldByTheirRule) {
    app.folder.Write("320.mp3", Mp3Of(Header320));
    app.folder.Write("128.mp3", Mp3Of(Header128));
    app.folder.Write("96.mp3", Mp3Of(Header96));
    app.folder.Write("mono.mp3", Mp3Of(Header128Mono));
    OpenWhole();
    EXPECT_EQ(Cell("320.mp3", ListColumn::Bitrate), "320");
    EXPECT_EQ(Foreground("320.mp3", ListColumn::Bitrate), QColor(255, 0, 0));
    EXPECT_TRUE(IsBold("320.mp3", ListColumn::Bitrate));
    EXPECT_FALSE(IsBold("320.mp3", ListColumn::File));
    EXPECT_EQ(Foreground("128.mp3", ListColumn::Bitrate), QColor(0, 0, 128));
    EXPECT_FALSE(IsBold("128.mp3", ListColumn::Bitrate));
    EXPECT_EQ(Foreground("96.mp3", ListColumn::Bitrate), QColor(128, 128, 128));
    EXPECT_EQ(Cell("mono.mp3", ListColumn::Bitrate), "128m");
}

TEST_F(FileList, Years_StandOutWhenTheyAreRecent) {
    const int year = QDate::currentDate().year();
    app.folder.Write("this.mp3", Mp3Of(Header128, {.year = std::to_string(year)}));
    app.folder.Write("last.mp3", Mp3Of(Header128, {.year = std::to_string(year - 1)}));
    app.folder.Write("old.mp3", Mp3Of(Header128, {.year = "1999"}));
    OpenWhole();
    EXPECT_EQ(Foreground("this.mp3", ListColumn::Year), QColor(0, 0, 255));
    EXPECT_EQ(Foreground("last.mp3", ListColumn::Year), QColor(0, 128, 0));
    EXPECT_EQ(Foreground("old.mp3", ListColumn::Year), QColor(0, 0, 128));
}

TEST_F(FileList, Waves_TellTheirRateOrThatTheyAreRaw) {
    app.folder.Write("good.wav", Wav().Mono().Rate(22050).Tone(44100).Bytes());
    app.folder.Write("bad.wav", "no RIFF at all");
    OpenWhole();
    EXPECT_EQ(Cell("good.wav", ListColumn::Bitrate), "22m");
    EXPECT_EQ(Cell("bad.wav", ListColumn::Bitrate), "RAW");
    EXPECT_EQ(Foreground("bad.wav", ListColumn::Bitrate), QColor(128, 128, 128));
    EXPECT_EQ(Foreground("good.wav", ListColumn::File), QColor(255, 0, 0));
    EXPECT_EQ(Cell("bad.wav", ListColumn::Bitrate, Qt::ToolTipRole),
              OwnText(Language::English, WindowText::RawWave));
}

TEST_F(FileList, Words_TellWhatColoursTell) {
    const std::string year = std::to_string(QDate::currentDate().year());
    app.folder.Write("320.mp3", Mp3Of(Header320, {.year = year}));
    OpenWhole();
    const QString rate = OwnText(Language::English, WindowText::RateHighest);
    EXPECT_EQ(Cell("320.mp3", ListColumn::Bitrate, Qt::ToolTipRole), rate);
    EXPECT_EQ(Cell("320.mp3", ListColumn::Bitrate, Qt::AccessibleTextRole), "320, " + rate);
    EXPECT_EQ(Cell("320.mp3", ListColumn::Year, Qt::ToolTipRole),
              OwnText(Language::English, WindowText::ThisYear));
    EXPECT_EQ(Cell("320.mp3", ListColumn::File, Qt::AccessibleTextRole), "320.mp3, MP3 file");
    EXPECT_EQ(Cell("..", ListColumn::File, Qt::AccessibleTextRole), ".., Folder above");
}

TEST_F(FileList, DarkPalette_GetsColoursThatCanBeRead) {
    app.folder.Write("this.mp3", Mp3Of(Header320, {.year = std::to_string(QDate::currentDate().year())}));
    app.folder.Write("a.wav", "x");
    OpenWhole();
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    browser.View()->setPalette(dark);
    for (const char* name : {"this.mp3", "a.wav"}) {
        for (const ListColumn column :
             {ListColumn::File, ListColumn::Size, ListColumn::Bitrate, ListColumn::Year}) {
            const QColor shown = Foreground(name, column);
            const Colour colour = {static_cast<std::uint8_t>(shown.red()),
                                   static_cast<std::uint8_t>(shown.green()),
                                   static_cast<std::uint8_t>(shown.blue())};
            EXPECT_GE(ContrastOf(colour, {35, 38, 41}), ReadableContrast) << name << static_cast<int>(column);
        }
    }
    EXPECT_EQ(Foreground("a.wav", ListColumn::SortOrder), QColor(35, 38, 41));
}

TEST_F(FileList, Names_OfEveryScriptAndNoScript_AreShownWhole) {
    const std::string broken = "caf\xE9.mp3";
    for (const std::string& name : Texts{"שלום עולם.mp3", "音楽.mp3", "line\nbreak.mp3", broken})
        app.folder.Write(name, "");
    OpenWhole();
    const Texts names = Names();
    for (const char* shown : {"שלום עולם.mp3", "音楽.mp3", "line break.mp3", "café.mp3"})
        EXPECT_EQ(std::count(names.begin(), names.end(), shown), 1) << shown;
    browser.SelectOnly(broken);
    EXPECT_EQ(SelectedNames(), Texts{broken}) << "a row hands out the bytes of its name";
}

TEST_F(FileList, Root_HasNoWayUp) {
    browser.ShowFirstFolder("/");
    EXPECT_FALSE(browser.CanGoUp());
    const Texts names = Names();
    EXPECT_EQ(std::count(names.begin(), names.end(), ".."), 0);
    browser.GoUp();
    EXPECT_EQ(browser.Folder(), "/");
}

TEST_F(FileList, GoUp_SelectsTheFolderThatWasLeft) {
    app.files.CreateFolder(app.folder / "sub");
    app.files.CreateFolder(app.folder / "another");
    browser.ShowFirstFolder(app.folder / "sub/");
    QSignalSpy up(&browser, &FolderBrowser::CanGoUpChanged);
    browser.GoUp();
    EXPECT_EQ(browser.Folder(), app.folder.Path());
    EXPECT_EQ(SelectedNames(), Texts{"sub"});
    EXPECT_EQ(PathText(), app.folder.Path());
    ASSERT_FALSE(up.isEmpty());
    EXPECT_TRUE(up.last().first().toBool());
}

TEST_F(FileList, Refresh_ShowsTheTruthOnDisk) {
    app.folder.Write("a.mp3", Mp3Of(Header128, {.artist = "Old"}));
    OpenWhole();
    EXPECT_EQ(Cell("a.mp3", ListColumn::Artist), "Old");
    app.folder.Write("a.mp3", Mp3Of(Header128, {.artist = "New"}));
    app.folder.Write("b.mp3", "");
    browser.RefreshContents();
    browser.FinishScan();
    EXPECT_EQ(Cell("a.mp3", ListColumn::Artist), "New");
    EXPECT_EQ(Names(), (Texts{"..", "a.mp3", "b.mp3"}));
}

TEST_F(FileList, Refresh_ClearsTheSelectionAndKeepsTheFocus) {
    for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) app.folder.Write(name, "");
    OpenWhole();
    browser.SelectOnly("b.mp3");
    app.files.DeleteFile(app.folder / "a.mp3", Force::No);
    browser.RefreshContents();
    EXPECT_EQ(SelectedNames(), Texts{});
    EXPECT_EQ(browser.FocusedRow()->name, "b.mp3");
    app.files.DeleteFile(app.folder / "b.mp3", Force::No);
    browser.RefreshContents();
    EXPECT_EQ(browser.FocusedRow()->name, "c.mp3") << "the row that came to its place";
}

TEST_F(FileList, RefillRow_BringsTheRowToItsNewPlace) {
    for (const char* name : {"b.mp3", "d.mp3", "f.mp3"}) app.folder.Write(name, Mp3Of(Header128));
    OpenWhole();
    const struct {
        const char* from;
        const char* to;
        Texts names;
    } steps[] = {{"d.mp3", "z.mp3", {"..", "b.mp3", "f.mp3", "z.mp3"}},
                 {"z.mp3", "a.mp3", {"..", "a.mp3", "b.mp3", "f.mp3"}},
                 {"a.mp3", "A.mp3", {"..", "A.mp3", "b.mp3", "f.mp3"}},
                 {"f.mp3", "c.mp3", {"..", "A.mp3", "b.mp3", "c.mp3"}}};
    for (const auto& step : steps) {
        browser.SelectOnly(step.from);
        app.files.MoveFile(app.folder / step.from, app.folder / step.to);
        browser.RefillRow(step.from, step.to);
        EXPECT_EQ(Names(), step.names);
        EXPECT_EQ(SelectedNames(), Texts{step.to}) << "the selection goes with the row";
        EXPECT_EQ(Cell(step.to, ListColumn::Bitrate), "128");
    }
}

TEST_F(FileList, RefillRow_OfAFolderAndOfAnUnknownName) {
    app.files.CreateFolder(app.folder / "a");
    app.files.CreateFolder(app.folder / "c");
    OpenWhole();
    app.files.MoveFile(app.folder / "a", app.folder / "x");
    browser.RefillRow("a", "x");
    EXPECT_EQ(Names(), (Texts{"..", "c", "x"}));
    browser.RefillRow("nobody", "y.mp3");
    EXPECT_EQ(Names(), (Texts{"..", "c", "x"}));
}

TEST_F(FileList, Selection_ByIconAndInverted) {
    for (const char* name : {"a.mp3", "b.wav", "c.ogg", "l.m3u"}) app.folder.Write(name, "");
    app.files.CreateFolder(app.folder / "sub");
    OpenWhole();
    browser.SetIconSelected(RowIcon::Compressed, true);
    EXPECT_EQ(SelectedNames(), (Texts{"a.mp3", "c.ogg"}));
    browser.InvertSelection();
    EXPECT_EQ(SelectedNames(), (Texts{"sub", "l.m3u", "b.wav"}));
    browser.SetIconSelected(RowIcon::Wave, false);
    browser.SetRowSelected("c.ogg", true);
    EXPECT_EQ(SelectedNames(), (Texts{"sub", "l.m3u", "c.ogg"})) << "in the order of the list";
    browser.SetRowSelected("sub", false);
    EXPECT_EQ(SelectedNames(), (Texts{"l.m3u", "c.ogg"}));
    browser.ClearSelection();
    EXPECT_EQ(SelectedNames(), Texts{});
}

TEST_F(FileList, SelectionChanged_IsTold) {
    app.folder.Write("a.mp3", "");
    OpenWhole();
    QSignalSpy changed(&browser, &FolderBrowser::SelectionChanged);
    browser.SelectOnly("a.mp3");
    EXPECT_GE(changed.size(), 1);
    changed.clear();
    browser.RefreshContents();
    EXPECT_EQ(changed.size(), 0) << "a new list is no choice of the person";
}

TEST_F(FileList, EmptyFolder_SaysSo) {
    const auto& view = static_cast<const FileListView&>(*browser.View());
    app.folder.Write("x.txt", "");
    Open();
    EXPECT_EQ(view.Note(), OwnText(app, WindowText::FolderIsEmpty));
    EXPECT_EQ(view.accessibleDescription(), view.Note());
    app.folder.Write("x.mp3", "");
    browser.RefreshContents();
    EXPECT_EQ(view.Note(), "");
}

}  // namespace
}  // namespace zefta::test
