#include <vector>

#include <gtest/gtest.h>

#include "core/OutputText.h"

namespace zefta::test {
namespace {

struct Case {
    const char* name;
    std::vector<std::string> pieces;
    std::deque<std::string> lines;
    std::string current;
};

const Case Cases[] = {
    {"nothing", {}, {}, ""},
    {"line without end", {"a b"}, {}, "a b"},
    {"lines", {"one\ntwo\n\nthree"}, {"one", "two", ""}, "three"},
    {"pieces end anywhere", {"on", "e", "\n", "two"}, {"one"}, "two"},
    {"line ended as windows do", {"one\r\ntwo\r", "\n"}, {"one", "two"}, ""},
    {"rewritten line", {"10%\r20%\r30%"}, {}, "30%"},
    {"rewritten line that ends", {"10%\r20%", "\r30%\n"}, {"30%"}, ""},
    {"shorter text leaves the rest", {"abcdef\rxy"}, {}, "xycdef"},
    {"backspace", {"12%\b\b\b13%"}, {}, "13%"},
    {"backspace at the start", {"\b\bx"}, {}, "x"},
    {"tabulator stays", {"a\tb"}, {}, "a\tb"},
    {"control characters",
     {std::string("a\0\a\x7F\x01"
                  "b",
                  6)},
     {},
     "ab"},
    {"control sequences",
     {"\x1B[1;31mred\x1B[0m \x1B[A\x1B[2Kx\x1B"
      "7y"},
     {},
     "red xy"},
    {"control sequence in pieces", {"a\x1B", "[", "3", "1m", "b"}, {}, "ab"},
    {"control sequence that a line end breaks", {"a\x1B[12\nb"}, {"a"}, "b"},
    {"characters in pieces", {"\xD0", "\xB0\xE2\x82", "\xAC"}, {}, "а€"},
    {"rewritten characters", {"абв\rгд"}, {}, "гдв"},
    {"bytes that are no text",
     {"a\xFF\xFE"
      "b\x80"},
     {},
     "a\uFFFD\uFFFD"
     "b\uFFFD"},
    {"character that never ends", {"\xE2", "x\n"}, {"\uFFFDx"}, ""},
};

TEST(OutputText, Write_ShowsWhatATerminalWould) {
    for (const Case& row : Cases) {
        OutputText text;
        for (const std::string& piece : row.pieces) text.Write(piece);
        EXPECT_EQ(text.TakeLines(), row.lines) << row.name;
        EXPECT_EQ(text.CurrentLine(), row.current) << row.name;
    }
}

TEST(OutputText, TakeLines_GivesEachLineOnce) {
    OutputText text;
    text.Write("one\n");
    EXPECT_EQ(text.TakeLines().size(), 1u);
    text.Write("two\n");
    EXPECT_EQ(text.TakeLines(), std::deque<std::string>{"two"});
    EXPECT_TRUE(text.TakeLines().empty());
}

TEST(OutputText, LineWithoutEnd_GoesOnInNewLines) {
    OutputText text;
    text.Write(std::string(2 * OutputText::LongestLine + 5, 'x'));
    EXPECT_EQ(text.TakeLines(), (std::deque<std::string>(2, std::string(OutputText::LongestLine, 'x'))));
    EXPECT_EQ(text.CurrentLine(), "xxxxx");
}

TEST(OutputText, LinesThatNobodyTakes_AreBounded) {
    OutputText text;
    for (int i = 0; i < 6000; ++i) text.Write(std::to_string(i) + "\n");
    const std::deque<std::string> lines = text.TakeLines();
    ASSERT_EQ(lines.size(), OutputText::MostLines);
    EXPECT_EQ(lines.front(), "1000");
    EXPECT_EQ(lines.back(), "5999");
}

}  // namespace
}  // namespace zefta::test
