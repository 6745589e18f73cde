#include <gtest/gtest.h>

#include "platform/CommandText.h"
#include "platform/ToolTranslation.h"

namespace zefta::test {
namespace {

std::vector<std::string> Texts(std::string_view commandLine) {
    std::vector<std::string> texts;
    for (const CommandArgument& argument : SplitCommandLine(commandLine)) texts.push_back(argument.text);
    return texts;
}

using Words = std::vector<std::string>;

TEST(CommandText, Split_BlanksAndQuotes) {
    EXPECT_EQ(Texts("lame.exe -m j  -h \"a b.wav\" \"\""),
              (Words{"lame.exe", "-m", "j", "-h", "a b.wav", ""}));
    EXPECT_EQ(Texts("oggenc.exe -q5 -n\"a b.ogg\""), (Words{"oggenc.exe", "-q5", "-na b.ogg"}));
    EXPECT_EQ(Texts(""), Words{});
    EXPECT_EQ(Texts("   "), Words{});
    EXPECT_EQ(Texts("x \"never closed"), (Words{"x", "never closed"}));
    EXPECT_EQ(Texts("a\\b \\"), (Words{"a\\b", "\\"}));
}

TEST(CommandText, QuotePath_ComesBackThroughTheSplitter) {
    for (const std::string path : {"a.wav", "a b.wav", "quo\"te.wav", "back\\\"mixed.wav", "\"", "a\\b", "-x",
                                   "ends\\", "ends\\\\", "\\", "\\\"", "two\\\\\"mixed", "a\\ b"}) {
        const auto arguments = SplitCommandLine("tool " + QuotePath(path) + " next");
        ASSERT_EQ(arguments.size(), 3U) << path;
        EXPECT_EQ(arguments[1], (CommandArgument{path, true}));
        EXPECT_FALSE(arguments[2].quoted);
    }
}

TEST(CommandText, BackslashesInFrontOfAQuote_CountInPairs) {
    EXPECT_EQ(Texts(R"("a\\" b)"), (Words{"a\\", "b"}));
    EXPECT_EQ(Texts(R"("a\\\" b")"), Words{"a\\\" b"});
    EXPECT_EQ(Texts(R"(a\"b c)"), (Words{"a\"b", "c"}));
    EXPECT_EQ(Texts(R"(a\\b \\)"), (Words{"a\\\\b", "\\\\"}));
}

TEST(CommandText, QuotePath_LeavesBackslashesAloneThatStandBeforeNoQuote) {
    EXPECT_EQ(QuotePath("/music/a\\b c.wav"), "\"/music/a\\b c.wav\"");
    EXPECT_EQ(QuotePath("a\"b"), "\"a\\\"b\"");
    EXPECT_EQ(QuotePath("folder\\"), "\"folder\\\\\"");
}

TEST(ToolTranslation, ToolNames_DocumentedNameFirst) {
    EXPECT_EQ(ToolNames("lame.exe"), (Words{"lame.exe", "lame"}));
    EXPECT_EQ(ToolNames("oggdec.exe"), (Words{"oggdec.exe", "oggdec"}));
    EXPECT_EQ(ToolNames("mppenc.exe"), (Words{"mppenc.exe", "mppenc", "mpcenc"}));
    EXPECT_EQ(ToolNames("mppdec.exe"), (Words{"mppdec.exe", "mppdec", "mpcdec"}));
    EXPECT_EQ(ToolNames("other"), Words{"other"});
}

struct Translation {
    const char* commandLine;
    Words arguments;
};

TEST(ToolTranslation, Arguments_DifferOnlyWhereTodaysToolDoes) {
    const Translation rows[] = {
        {"lame.exe -m j -h -b 128  \"a.wav\" \"a.MP3\"", {"-m", "j", "-h", "-b", "128", "a.wav", "a.MP3"}},
        {"lame.exe --mp3input --decode \"/x/a b.mp3\"",
         {"--mp3input", "--decode", "/x/a b.mp3", "/x/a b.mp3.wav"}},
        {"oggenc.exe -q8 -n\"100% live.ogg\" \"100% live.wav\"",
         {"-q8", "-n100%% live.ogg", "100% live.wav"}},
        {"oggdec.exe \"100%.ogg\"", {"100%.ogg"}},
        {"mppenc.exe mppenc.exe --xtreme \"a.wav\" \"a.mpc\"", {"mppenc.exe", "--xtreme", "a.wav", "a.mpc"}},
        {"mppdec.exe \"a.mpc\" \"a.mpc.wav\"", {"a.mpc", "a.mpc.wav"}},
        {"", {}},
    };
    for (const Translation& row : rows)
        EXPECT_EQ(TranslateToolArguments(SplitCommandLine(row.commandLine)), row.arguments)
            << row.commandLine;
}

}  // namespace
}  // namespace zefta::test
