#include <string>

#include <gtest/gtest.h>

#include "platform/posix/ThunarActions.h"

namespace zefta::test {
namespace {

const std::string Ours = "<action>\n\t<name>A</name>\n\t<unique-id>zefta-a</unique-id>\n</action>\n";

/// A file as a person has it: actions of their own, comments, odd blanks.
const std::string Theirs =
    "<?xml encoding=\"UTF-8\" version=\"1.0\"?>\n<!-- <action><unique-id>zefta-a</unique-id></action> "
    "</actions> -->\n<actions>\n<action >\n\t<icon>x</icon>\n\t<name>Mine</name>\n"
    "\t<unique-id>1234-1</unique-id>\n\t<command><![CDATA[echo </action> %f]]></command>\n</action>\n"
    "  <action><unique-id> zefta-ab </unique-id></action>\n</actions>\n<!-- end -->\n";

TEST(ThunarActions, Added_StandsBehindThoseOfThePerson) {
    const auto with = WithThunarAction(Theirs, "zefta-a", Ours);
    ASSERT_TRUE(with);
    std::string expected = Theirs;
    expected.insert(expected.find("</actions>\n<!-- end"), Ours);
    EXPECT_EQ(*with, expected);
    EXPECT_TRUE(HoldsThunarAction(*with, "zefta-a"));
    EXPECT_FALSE(HoldsThunarAction(Theirs, "zefta-a"));
}

TEST(ThunarActions, Removed_LeavesEveryOtherByte) {
    EXPECT_EQ(WithoutThunarAction(*WithThunarAction(Theirs, "zefta-a", Ours), "zefta-a"), Theirs);
    EXPECT_EQ(WithoutThunarAction(Theirs, "zefta-a"), Theirs);
}

TEST(ThunarActions, AddedAgain_TakesThePlaceOfTheFormerOne) {
    const std::string once = *WithThunarAction(Theirs, "zefta-a", Ours);
    EXPECT_EQ(WithThunarAction(once, "zefta-a", Ours), once);
    const std::string twice = once.substr(0, once.find(Ours)) + Ours + once.substr(once.find(Ours));
    EXPECT_EQ(WithoutThunarAction(twice, "zefta-a"), Theirs);
}

TEST(ThunarActions, IdOfAnother_IsNotMeant) {
    EXPECT_TRUE(HoldsThunarAction(Theirs, "zefta-ab"));
    EXPECT_FALSE(HoldsThunarAction(Theirs, "zefta"));
    EXPECT_FALSE(HoldsThunarAction("<actions><action><unique-id></unique-id></action></actions>", "x"));
}

TEST(ThunarActions, EmptyFile_BecomesAList) {
    for (const std::string empty : {"", " \n"}) {
        EXPECT_EQ(WithThunarAction(empty, "zefta-a", Ours),
                  "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n" + Ours + "</actions>\n");
    }
}

TEST(ThunarActions, WhatIsNoList_Stays) {
    for (const std::string text : {"<actions", "<actions><action>", "text", "<!-- </actions> -->",
                                   "<![CDATA[</actions>", "<actions><action></action>"})
        EXPECT_EQ(WithThunarAction(text, "zefta-a", Ours), std::nullopt) << text;
}

TEST(ThunarActions, CutAnywhere_NeverReadsBeyondTheEnd) {
    const std::string whole = *WithThunarAction(Theirs, "zefta-a", Ours);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string cut = whole.substr(0, length);
        const std::string without = WithoutThunarAction(cut, "zefta-a");
        EXPECT_LE(without.size(), cut.size());
        if (!HoldsThunarAction(cut, "zefta-a")) {
            EXPECT_EQ(without, cut);
        }
    }
}

}  // namespace
}  // namespace zefta::test
