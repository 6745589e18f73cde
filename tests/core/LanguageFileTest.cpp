#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <gtest/gtest.h>

#include "core/AgentTexts.h"
#include "core/LanguageFile.h"
#include "core/MessageTable.h"
#include "core/Strings.h"
#include "core/Version.h"
#include "support/ExpectRuntimeError.h"
#include "support/FaultInjectingFileSystem.h"
#include "support/TestApp.h"

namespace zefta::test {
namespace {

using namespace std::string_literals;

using Strings = std::map<std::string, std::string>;

const Machine& Speaking(Machine& machine, const char* languageTag) {
    machine.language = languageTag;
    return machine;
}

/// A TestApp of a person of another language, or on a file system that fails.
struct LocalApp : TestWorld, App {
    explicit LocalApp(const char* languageTag, FileSystem* fileSystem = nullptr)
        : App(Speaking(TestWorld::machine, languageTag), fileSystem ? *fileSystem : TestWorld::files,
              TestWorld::desktop, TestWorld::processes, TestWorld::userSettings, TestWorld::machineSettings) {
    }

    using App::files;
    using TestWorld::desktop;
    using TestWorld::userSettings;
};

constexpr auto Russian = "ru_RU.UTF-8";

void UseFile(App& app, const std::string& path) {
    app.state.ExternalLanguageFile = path;
    app.state.EnableExternalLanguage = true;
    app.messages.LanguageStrings.clear();
}

/// The entries that a file of these bytes gives.
Strings EntriesOf(std::string_view bytes, const char* languageTag = "") {
    LocalApp app(languageTag);
    std::unordered_map<std::string, std::string> strings;
    ReadLanguageFile(app.files, app.ansi, app.folder.Write("x.lng", bytes), strings);
    return {strings.begin(), strings.end()};
}

struct LineRow {
    const char* name;
    std::string bytes;
    Strings entries;
};

const LineRow LineRows[] = {
    {"FiveDigits", "01006 = text\r\n", {{"1006", "text"}}},
    {"FewerDigits", "0001=Hello", {{"1", "Hello"}}},
    {"NoNumber", "name=x", {{"0", "x"}}},
    {"NoKey", "=x", {{"0", "x"}}},
    {"Fraction", "1.5=x\n2.5=y\n", {{"2", "x"}}},
    {"Negative", "-5=x", {{"-5", "x"}}},
    {"TrailingLetters", "12ab=x", {{"12", "x"}}},
    {"NoExponentNoHex", "1e5=x\n&H10=y\n", {{"1", "x"}, {"0", "y"}}},
    {"LargestKey", "99999999=x", {{"99999999", "x"}}},
    {"KeyOfNine", "123456789=x", {}},
    {"KeyOfEightWithItsBlanks", "1       =x", {{"1", "x"}}},
    {"KeyOfNineWithItsBlanks", "1        =x", {}},
    {"BlanksAheadOfTheLine", "           1=x", {{"1", "x"}}},
    {"KeyCountsCharacters", "12 \u043A\u043B\u044E\u0447\u0438=x", {{"12", "x"}}},
    {"KeyOfNineCharacters", "12 \u043A\u043B\u044E\u0447\u0435\u0439=x", {}},
    {"BlanksAroundTheText", "1 =   a  b   ", {{"1", "a  b"}}},
    {"TextOfBlanks", "1 =    ", {{"1", ""}}},
    {"NoText", "1=", {{"1", ""}}},
    {"EqualsInTheText", "1=a=b==", {{"1", "a=b=="}}},
    {"TabsAreNoBlanks", "1=\tx\t", {{"1", "\tx\t"}}},
    {"Comments", "; 1=x\n   ;2=y\n3=;z\n", {{"3", ";z"}}},
    {"BlankLinesAndLinesWithoutEquals", "\n   \nno entry\n1=x\n", {{"1", "x"}}},
    {"LineEndsOfBothKinds", "1=a\r\n2=b\n3=c\r\n4=d", {{"1", "a"}, {"2", "b"}, {"3", "c"}, {"4", "d"}}},
    {"LoneCarriageReturn", "1=a\rb\n", {{"1", "a\rb"}}},
    {"PlaceHoldersAndLineBreaks", "1=%1\\n%5", {{"1", "%1\\n%5"}}},
    {"DuplicateKeepsTheFirst", "1=a\n1=b\n", {{"1", "a"}}},
    {"DuplicateInOtherDigits", "1=a\n00001=b\n", {{"1", "a"}}},
    {"LineAfterADuplicateIsLost", "1=a\n1=b\n2=lost\n3=c\n", {{"1", "a"}, {"3", "c"}}},
    {"LostIsTheNextUsedLine", "1=a\n1=b\n; x\n\nnone\n123456789=x\n2=lost\n3=c", {{"1", "a"}, {"3", "c"}}},
    {"LostLineIsNoDuplicate", "1=a\n1=b\n1=lost\n2=c\n", {{"1", "a"}, {"2", "c"}}},
    {"TwoDuplicates", "1=a\n1=b\n2=lost\n1=c\n3=lost\n4=d\n", {{"1", "a"}, {"4", "d"}}},
    {"HeadingNumber", "999=x", {{"999", "x"}}},
    {"ByteOrderMark",
     "\xEF\xBB\xBF"
     "1=x",
     {{"1", "x"}}},
    {"ByteOrderMarkAndComment", "\xEF\xBB\xBF;1=x\n2=y", {{"2", "y"}}},
    {"Empty", "", {}},
    {"OnlyComments", "; a\r\n;b=c\r\n\r\n", {}},
};

TEST(LanguageFile, Lines_GiveTheirEntries) {
    for (const LineRow& row : LineRows) EXPECT_EQ(EntriesOf(row.bytes), row.entries) << row.name;
}

TEST(LanguageFile, BytesThatAreNoUtf8_AreOfTheCodePage) {
    EXPECT_EQ(EntriesOf("1=\xC0\xE1\n2=\xD0\x90\n", Russian), (Strings{{"1", "Аб"}, {"2", "А"}}));
    EXPECT_EQ(EntriesOf("1=caf\xE9\n", "de_DE"), (Strings{{"1", "café"}}));
}

TEST(LanguageFile, LongLines_ArePassedOver) {
    constexpr std::size_t LongestLine = 8192;
    const std::string fits = "1=" + std::string(LongestLine - 2, 'x');
    const std::string endless = "2=" + std::string(1 << 20, 'x');
    const Strings entries = EntriesOf(fits + "\r\n" + fits + "x\n" + endless + "\n3=c\n" + endless);
    EXPECT_EQ(entries, (Strings{{"1", fits.substr(2)}, {"3", "c"}}));
}

TEST(LanguageFile, FileOfManyMegabytes_GivesNothing) {
    constexpr std::size_t LargestFile = 4 * 1024 * 1024;
    EXPECT_EQ(EntriesOf("1=a\n" + std::string(LargestFile - 4, '\n')), (Strings{{"1", "a"}}));
    EXPECT_EQ(EntriesOf("1=a\n" + std::string(LargestFile - 3, '\n')), Strings());
}

TEST(LanguageFile, BinaryContent_DoesNoHarm) {
    EXPECT_EQ(EntriesOf("1=a\0b\n\0=c\n"s), (Strings{{"1", "a\0b"s}, {"0", "c"}}));
    std::uint32_t state = 1;
    std::string noise(300'000, '\0');
    for (char& byte : noise) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24U);
    }
    for (const auto& [number, text] : EntriesOf(noise)) EXPECT_EQ(number, std::to_string(std::stoi(number)));
    for (std::size_t length = 0; length < 200; ++length) EntriesOf(noise.substr(0, length));
}

TEST(LanguageFile, ManyNumbers_AreAllKept) {
    std::string bytes;
    for (int number = 0; number < 100'000; ++number) bytes += std::to_string(number) + "=x\n";
    EXPECT_EQ(EntriesOf(bytes).size(), 100'000U);
}

void ExpectBuiltInTexts(App& app, const std::string& path) {
    UseFile(app, path);
    EXPECT_EQ(app.messages.GetMessage(0), "ENGLISH") << path;
    EXPECT_FALSE(app.state.EnableExternalLanguage) << path;
}

TEST(UnusableLanguageFile, OfAnyKind_SwitchesItselfOffSilently) {
    TestApp app;
    app.folder.Write("comments.lng", "; none\r\n");
    app.folder.Write("empty.lng", "");
    app.folder.Write("huge.lng", "1=x\n");
    std::filesystem::resize_file(app.folder / "huge.lng", 3'000'000'000);
    ASSERT_EQ(mkfifo((app.folder / "pipe.lng").c_str(), 0600), 0);
    for (const char* name : {"comments.lng", "empty.lng", "huge.lng", "pipe.lng", "none.lng", "none/x.lng"})
        ExpectBuiltInTexts(app, app.folder / name);
    ExpectBuiltInTexts(app, "");
    ExpectBuiltInTexts(app, app.folder.Path());
    ExpectBuiltInTexts(app, "/dev/zero");
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST(UnusableLanguageFile, ThatCannotBeOpenedOrRead_SwitchesItselfOffSilently) {
    for (const int nth : {1, 2}) {
        PosixFileSystem real;
        FaultInjectingFileSystem faulty(real);
        faulty.faults.plan = {FaultPlan::Mode::OnlyTheNth, nth, ErrorNumber::DeviceIoError};
        TestApp app(&faulty);
        ExpectBuiltInTexts(app, app.folder.Write("x.lng", "0=Hello"));
        EXPECT_EQ(faulty.faults.operations, nth);
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(UnusableLanguageFile, IsNotTriedAgain) {
    TestApp app;
    ExpectBuiltInTexts(app, app.folder.Write("x.lng", "; none"));
    app.folder.Write("x.lng", "0=Hello");
    EXPECT_EQ(app.messages.GetMessage(0), "ENGLISH");
}

TEST(LanguageStrings, Lookup_TouchesTheDiskOnce) {
    PosixFileSystem real;
    FaultInjectingFileSystem counting(real);
    TestApp app(&counting);
    UseFile(app, app.folder.Write("x.lng", "0=Hello"));
    EXPECT_EQ(app.messages.GetMessage(0), "Hello");
    const int operations = counting.faults.operations;
    EXPECT_EQ(operations, 2);
    std::filesystem::remove(app.folder / "x.lng");
    for (int id = 0; id < 2000; ++id) app.messages.GetMessage(id);
    EXPECT_EQ(app.messages.GetMessage(0), "Hello");
    EXPECT_EQ(counting.faults.operations, operations);
}

TEST(LanguageStrings, Load_WhenSwitchedOff_ReadsNothing) {
    TestApp app;
    UseFile(app, app.folder.Write("x.lng", "0=Hello"));
    app.state.EnableExternalLanguage = false;
    app.messages.LoadLanguageFile();
    EXPECT_TRUE(app.messages.LanguageStrings.empty());
    EXPECT_EQ(app.messages.GetMessage(0), "ENGLISH");
}

TEST(LanguageStrings, Load_OfAMissingFile_SwitchesOffWhateverIsLoaded) {
    TestApp app;
    UseFile(app, app.folder / "none.lng");
    app.messages.LanguageStrings["0"] = "old";
    app.messages.LoadLanguageFile();
    EXPECT_FALSE(app.state.EnableExternalLanguage);
    EXPECT_EQ(app.messages.GetMessage(0), "ENGLISH");
}

TEST(LanguageStrings, EmptiedAndLoadedAnew_HoldTheOtherFile) {
    TestApp app;
    UseFile(app, app.folder.Write("a.lng", "0=A\n1=only here"));
    EXPECT_EQ(app.messages.GetMessage(0), "A");
    UseFile(app, app.folder.Write("b.lng", "0=B"));
    app.messages.LoadLanguageFile();
    EXPECT_EQ(app.messages.GetMessage(0), "B");
    EXPECT_EQ(app.messages.GetMessage(1), "zefta_eng.chm");
}

TEST(LanguageStrings, EntryOfANumberThatTheTableLacks_IsGiven) {
    TestApp app;
    UseFile(app, app.folder.Write("x.lng", "7=seven %1\n8=\n"));
    EXPECT_EQ(app.messages.GetMessage(7, "up"), "seven up");
    EXPECT_EQ(app.messages.GetMessage(8), "");
}

constexpr auto TemplateName = "zefta.lng";

std::string TemplateHead() {
    return "; Kestrin Zeftaworks v" + VersionText() +
           "\r\n; Copyright (C) 2026 Kestrin\r\n; Language resource file\r\n\r\n";
}

TEST(LanguageTemplate, English_StandsByteForByte) {
    TestApp app;
    WriteLanguageTemplate(app);
    const std::string text = app.folder.Read(TemplateName);
    ASSERT_TRUE(text.starts_with(TemplateHead()));
    const std::string body = text.substr(TemplateHead().size());
    EXPECT_TRUE(
        body.starts_with("00000 = ENGLISH\r\n00001 = zefta_eng.chm\r\n00002 = zefta.exe\r\n"
                         "00003 = %1\\zeftaa.exe\r\n"));
    EXPECT_NE(body.find("\r\n\r\n;*** MAIN - MENU ***\r\n32101 = &File\r\n"), std::string::npos);
    EXPECT_NE(body.find("application and close agent\r\n;=> Audio\r\n32111 = &Audio\r\n"), std::string::npos);
    EXPECT_TRUE(body.ends_with("\r\n34115 = Choose a file naming template...\r\n"));
    // FNV-1a of the whole.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char byte : body) hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    EXPECT_EQ(body.size(), 11097U);
    EXPECT_EQ(hash, 0x1BD6FD5D778B323AU);
}

TEST(LanguageTemplate, Russian_HasItsTableInUtf8WithoutByteOrderMark) {
    LocalApp app(Russian);
    WriteLanguageTemplate(app);
    const std::string text = app.folder.Read(TemplateName);
    EXPECT_TRUE(text.starts_with(TemplateHead() + "00000 = RUSSIAN\r\n"));
    EXPECT_NE(text.find("\r\n\r\n;*** СООБЩЕНИЯ ОБ ОШИБКАХ ***\r\n01000 = Ошибка №%1\\n\\n%2\r\n"),
              std::string::npos);
    EXPECT_NE(text.find("\r\n;=> Аудио\r\n32111 = &Аудио\r\n"), std::string::npos);
    EXPECT_EQ(ReplaceAll(text, "\r\n", "").find_first_of("\r\n"), std::string::npos);
}

TEST(LanguageTemplate, ExternalLanguage_DoesNotGetIntoIt) {
    TestApp app;
    UseFile(app, app.folder.Write("x.lng", "0=Hello"));
    EXPECT_EQ(app.messages.GetMessage(0), "Hello");
    WriteLanguageTemplate(app);
    EXPECT_TRUE(app.folder.Read(TemplateName).starts_with(TemplateHead() + "00000 = ENGLISH\r\n"));
}

TEST(LanguageTemplate, LongerOldFile_IsReplacedWhole) {
    TestApp app;
    WriteLanguageTemplate(app);
    const std::string text = app.folder.Read(TemplateName);
    app.folder.Write(TemplateName, std::string(100'000, 'x'));
    WriteLanguageTemplate(app);
    EXPECT_EQ(app.folder.Read(TemplateName), text);
}

TEST(LanguageTemplate, ThatCannotBeCreated_IsPassedOverSilently) {
    TestApp readOnly;
    readOnly.folder.Write(TemplateName, "kept");
    readOnly.files.SetReadOnly(TemplateName, true);
    WriteLanguageTemplate(readOnly);
    EXPECT_EQ(readOnly.folder.Read(TemplateName), "kept");
    EXPECT_TRUE(readOnly.desktop.boxes.empty());

    TestApp folderInTheWay;
    folderInTheWay.files.CreateFolder(TemplateName);
    WriteLanguageTemplate(folderInTheWay);
    EXPECT_TRUE(folderInTheWay.files.FolderExists(TemplateName));
    EXPECT_TRUE(folderInTheWay.desktop.boxes.empty());
}

TEST(LanguageTemplate, DiskFull_IsARuntimeFailure) {
    PosixFileSystem real;
    FaultInjectingFileSystem full(real);
    full.faults.plan = {FaultPlan::Mode::FromTheNthOn, 2, ErrorNumber::DiskFull};
    TestApp app(&full);
    EXPECT_EQ(RuntimeErrorOf([&] { WriteLanguageTemplate(app); }), 61);
}

/// The numbers whose text is another one once a template of `written` serves a person of `reader`.
std::vector<std::int32_t> ChangedByRoundTrip(const char* written, const char* reader) {
    LocalApp writer(written);
    WriteLanguageTemplate(writer);
    LocalApp app(reader);
    UseFile(app, app.folder.Write("x.lng", writer.folder.Read(TemplateName)));
    std::vector<std::int32_t> changed;
    for (const Message& message : MessageTable(LanguageOfTag(written))) {
        if (IsHeading(message.text)) continue;
        const std::string expected = writer.messages.GetMessage(message.id, "a", "b", "c", "d", "e");
        if (app.messages.GetMessage(message.id, "a", "b", "c", "d", "e") != expected)
            changed.push_back(message.id);
    }
    EXPECT_TRUE(app.state.EnableExternalLanguage);
    EXPECT_TRUE(app.desktop.boxes.empty());
    return changed;
}

TEST(LanguageTemplate, AsLanguageFile_GivesEveryTextButOuterBlanks) {
    // "&Enquee all audio files ", "copying playlist " and " bytes" lose the blank at their end.
    const std::vector<std::int32_t> losers = {32175, 33201, 33204};
    EXPECT_EQ(ChangedByRoundTrip(Russian, ""), losers);
    EXPECT_EQ(ChangedByRoundTrip("", Russian), losers);
    EXPECT_EQ(ChangedByRoundTrip(Russian, Russian), losers);
    EXPECT_EQ(ChangedByRoundTrip("", ""), losers);
}

std::string WarningOf(const std::string& path, const std::string& number, const std::string& text) {
    return "\"" + path +
           "\" is corrupted!\r\nExternal language file doesn't have the resourse string with code \"" +
           number +
           "\"!\r\n\r\nPlease correct it. ZEFTA will use the default value for this resource:\r\n\"" + text +
           "\".";
}

/// The template of the app's language without the lines that begin with these numbers.
void UseTemplateWithout(App& app, const TempFolder& folder, const std::vector<std::string>& numbers) {
    WriteLanguageTemplate(app);
    std::string text = folder.Read(TemplateName);
    for (const std::string& number : numbers) {
        const std::size_t start = text.find("\n" + number) + 1;
        text.erase(start, text.find('\n', start) + 1 - start);
    }
    UseFile(app, folder.Write("x.lng", text));
    app.messages.LoadLanguageFile();
}

TEST(CheckLanguageFile, WholeFile_MissesNothing) {
    for (const char* language : {"", Russian}) {
        LocalApp app(language);
        UseTemplateWithout(app, app.folder, {});
        EXPECT_FALSE(CheckLanguageFile(app));
        EXPECT_TRUE(app.desktop.boxes.empty());
    }
}

TEST(CheckLanguageFile, EachMissingNumber_HasABoxInRisingOrder) {
    LocalApp app(Russian);
    UseTemplateWithout(app, app.folder, {"34115", "01000", "00000"});
    EXPECT_TRUE(CheckLanguageFile(app));
    ASSERT_EQ(app.desktop.boxes.size(), 3U);
    const std::string path = app.folder / "x.lng";
    EXPECT_EQ(app.desktop.boxes[0].text, WarningOf(path, "0", "RUSSIAN"));
    EXPECT_EQ(app.desktop.boxes[1].text, WarningOf(path, "1000", "Ошибка №%1\\n\\n%2"));
    EXPECT_EQ(app.desktop.boxes[2].text, WarningOf(path, "34115", "Выберите шаблон имени файла..."));
    for (const auto& box : app.desktop.boxes) {
        EXPECT_EQ(box.kind, BoxKind::Warning);
        EXPECT_EQ(box.caption, "Kestrin Zeftaworks");
    }
}

TEST(CheckLanguageFile, NothingLoaded_ReportsAllButTheHeadings) {
    TestApp app;
    EXPECT_TRUE(CheckLanguageFile(app));
    EXPECT_EQ(app.desktop.boxes.size(), 357U - 25U);
}

TEST(CheckLanguageFile, BoxesEndWhenThePersonHasEnough) {
    TestApp app;
    app.desktop.cancelsFromItem = 3;
    EXPECT_TRUE(CheckLanguageFile(app));
    EXPECT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.batches.front(), (std::pair<std::size_t, std::size_t>(1, 357 - 25)));
    EXPECT_EQ(app.desktop.batches.back(), (std::pair<std::size_t, std::size_t>(0, 0)));
    EXPECT_TRUE(app.userSettings.GetValue("Agent", "MSG_Language").has_value());
}

TEST(CheckLanguageFile, EntryWithoutText_IsThere) {
    TestApp app;
    UseTemplateWithout(app, app.folder, {"01001"});
    app.messages.LanguageStrings["1001"] = "";
    EXPECT_FALSE(CheckLanguageFile(app));
    EXPECT_EQ(app.messages.GetMessage(1001), "Unsupported file format!");
}

TEST(CheckLanguageFile, AgentTexts_AreStoredInTheLanguageInForce) {
    TestApp app;
    UseFile(app, app.folder.Write("x.lng", "33601=Ouvrir\n33606=Dossiers\\nr\u00E9cents\n"));
    app.messages.LoadLanguageFile();
    EXPECT_TRUE(CheckLanguageFile(app));
    EXPECT_EQ(app.userSettings.applied, 1);
    const std::map<std::pair<std::string, std::string>, std::string> expected = {
        {{"Agent", "MSG_Open"}, "Ouvrir"},
        {{"Agent", "MSG_Compress"}, "Compress audio compact disc"},
        {{"Agent", "MSG_Settings"}, "Options"},
        {{"Agent", "MSG_Exit"}, "Exit"},
        {{"Agent", "MSG_Language"}, "Language"},
        {{"Agent", "MSG_RecentFolders"}, "Dossiers\r\nrécents"},
        {{"Agent", "MSG_LanguageChangeNote"}, "Please restart application for finalizing language change."},
        {{"Agent", "MSG_LanguageDefault"}, "Default (English)"},
    };
    EXPECT_EQ(app.userSettings.values, expected);
    EXPECT_TRUE(app.machineSettings.values.empty());
}

TEST(AgentTexts, AreEightKeysInTheOrderOfTheirMessages) {
    TestApp app;
    std::vector<std::string> keys;
    for (const SettingChange& change : AgentTexts(app)) keys.push_back(change.section + " " + change.key);
    EXPECT_EQ(keys,
              (std::vector<std::string>{"Agent MSG_Open", "Agent MSG_Compress", "Agent MSG_Settings",
                                        "Agent MSG_Exit", "Agent MSG_Language", "Agent MSG_RecentFolders",
                                        "Agent MSG_LanguageChangeNote", "Agent MSG_LanguageDefault"}));
}

}  // namespace
}  // namespace zefta::test
