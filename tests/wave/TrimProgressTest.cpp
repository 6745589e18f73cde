#include <gtest/gtest.h>

#include "wave/TrimProgress.h"
#include "wave/WaveOutline.h"
#include "wave/WaveStage.h"

namespace zefta::test {

namespace {

TrimWords Words() {
    TestApp app;
    return LoadTrimWords(app.messages);
}

std::string LabelOf(const TestApp& app, const std::string& control) {
    const auto& labels = app.desktop.reports.back().labels;
    const auto found = labels.find(control);
    return found == labels.end() ? "(none)" : found->second;
}

}  // namespace

TEST(TrimProgress, BytesText_GroupsTheDigits) {
    const TrimWords words = Words();
    EXPECT_EQ(BytesText(words, 0), "0 bytes");
    EXPECT_EQ(BytesText(words, 999), "999 bytes");
    EXPECT_EQ(BytesText(words, 1000), "1 000 bytes");
    EXPECT_EQ(BytesText(words, 44100), "44 100 bytes");
    EXPECT_EQ(BytesText(words, 1234567), "1 234 567 bytes");
    EXPECT_EQ(BytesText(words, 2147483647), "2 147 483 647 bytes");
    EXPECT_EQ(BytesText(words, -88200), "-88 200 bytes");
}

TEST(TrimProgress, FramesText_CountsWholeFrames) {
    const TrimWords words = Words();
    EXPECT_EQ(FramesText(words, 0), "0 frames");
    EXPECT_EQ(FramesText(words, 2351), "0 frames");
    EXPECT_EQ(FramesText(words, 2352), "1 frames");
    EXPECT_EQ(FramesText(words, 44100), "18 frames");
}

TEST(TrimProgress, TimeText_CountsInWholeParts) {
    const TrimWords words = Words();
    EXPECT_EQ(TimeText(words, 0), "0 mins 00 secs 000 ms");
    EXPECT_EQ(TimeText(words, 176), "0 mins 00 secs 000 ms");
    EXPECT_EQ(TimeText(words, 177), "0 mins 00 secs 001 ms");
    EXPECT_EQ(TimeText(words, 882), "0 mins 00 secs 005 ms");
    EXPECT_EQ(TimeText(words, 44100), "0 mins 00 secs 250 ms");
    EXPECT_EQ(TimeText(words, 176399), "0 mins 00 secs 999 ms");
    EXPECT_EQ(TimeText(words, 176400), "0 mins 01 secs 000 ms");
    EXPECT_EQ(TimeText(words, 10583999), "0 mins 59 secs 999 ms");
    EXPECT_EQ(TimeText(words, 10584000), "1 mins 00 secs 000 ms");
    EXPECT_EQ(TimeText(words, 12 * 10584000 + 5 * 176400 + 1764), "12 mins 05 secs 010 ms");
    EXPECT_EQ(TimeText(words, 2147483647), "202 mins 53 secs 943 ms");
}

TEST(TrimProgress, ProgressTexts_TellMinutesAndSeconds) {
    const TrimWords words = Words();
    EXPECT_EQ(ProcessedText(words, 0), "0 mins 00 secs processed");
    EXPECT_EQ(ProcessedText(words, 10584000 + 2 * 176400 - 1), "1 mins 01 secs processed");
    EXPECT_EQ(RemainingText(words, 10584000 + 2 * 176400), "1 mins 02 secs remaining");
}

TEST(TrimProgress, Words_AreThoseOfTheLanguage) {
    const TrimWords words = Words();
    EXPECT_EQ(words.bytes, "bytes");
    EXPECT_EQ(words.milliseconds, "ms");
    EXPECT_EQ(words.secondsRemaining, "secs remaining");
}

TEST(TrimProgress, Offsets_ShowTheThreeFormsAtTheirEnds) {
    TestApp app;
    WaveFile wave(app);
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    wave.StartOffset(44100);
    EXPECT_EQ(LabelOf(app, "lblStartOffsetValue"), "44 100 bytes");
    EXPECT_EQ(LabelOf(app, "lblFramesBefore"), "18 frames");
    EXPECT_EQ(LabelOf(app, "lblBeforeMSF"), "0 mins 00 secs 250 ms");
    EXPECT_EQ(LabelOf(app, "lblEndOffsetValue"), "(none)");
    wave.EndOffset(176400);
    EXPECT_EQ(LabelOf(app, "lblEndOffsetValue"), "176 400 bytes");
    EXPECT_EQ(LabelOf(app, "lblFramesAfter"), "75 frames");
    EXPECT_EQ(LabelOf(app, "lblAfterMSF"), "0 mins 01 secs 000 ms");
    EXPECT_EQ(LabelOf(app, "lblStartOffsetValue"), "44 100 bytes");
}

TEST(TrimProgress, Status_ShowsWhatIsDoneAndWhatRemains) {
    TestApp app;
    WaveFile wave(app);
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    wave.MinStatus(0);
    wave.MaxStatus(5 * 176400);
    wave.Status(2 * 176400);
    const ProgressReport& report = app.desktop.reports.back();
    EXPECT_EQ(report.minimum, 0);
    EXPECT_EQ(report.maximum, 882000);
    EXPECT_EQ(report.value, 352800);
    EXPECT_EQ(LabelOf(app, "lblMSFWritten"), "0 mins 02 secs processed");
    EXPECT_EQ(LabelOf(app, "lblMSFRemaining"), "0 mins 03 secs remaining");
}

TEST(TrimProgress, File_ShowsItsPathTheFormatAndTheStatus) {
    TestApp app;
    WaveFile wave(app);
    wave.Format = 4;
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    wave.Status(2 * 176400);
    progress.ShowFile("/music/a.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(app.desktop.reports.back().fileName, "/music/a.wav");
    EXPECT_EQ(app.desktop.reports.back().status, "Scanning...");
    EXPECT_EQ(app.desktop.reports.back().value, 0);
    EXPECT_EQ(LabelOf(app, "optFormatting"), "4");
    EXPECT_EQ(LabelOf(app, "lblMSFWritten"), "(none)");
    progress.ShowStatus(33818);
    EXPECT_EQ(app.desktop.reports.back().status, "Saving...");
}

TEST(TrimProgress, File_ShowsTheCaptionsOfAllControls) {
    TestApp app;
    WaveFile wave(app);
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    progress.ShowFile("a.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(app.desktop.reports.back().kind, ProgressKind::Trim);
    const std::pair<const char*, const char*> rows[] = {
        {"fraFormatting", "Formatting:"},    {"optFormatting0", "Trim silence"},
        {"optFormatting1", "Normal track"},  {"optFormatting2", "First track"},
        {"optFormatting3", "Last track"},    {"lblNonstop", "NON-STOP"},
        {"optFormatting4", "First track"},   {"optFormatting5", "Last track"},
        {"fraSilence", "Silence detected:"}, {"lblStartOffset", "Before:"},
        {"lblEndOffset", "After:"},          {"frmTrim", "Trim silence"},
    };
    for (const auto& [control, text] : rows) EXPECT_EQ(LabelOf(app, control), text) << control;
}

TEST(TrimProgress, ViewThatDraws_GetsTheOutlineAndTheSilenceOfTheFile) {
    TestApp app;
    app.desktop.drawsOutlines = true;
    WaveFile wave(app);
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    progress.ShowFile(app.folder.Write("a.wav", Wav().Tone(44100).Bytes()));
    wave.StartOffset(1200);
    wave.EndOffset(3400);
    const ProgressReport& report = app.desktop.reports.back();
    ASSERT_NE(report.outline, nullptr);
    EXPECT_EQ(report.outline->bytes, 44100);
    EXPECT_EQ(report.outline->channels.size(), 2u);
    EXPECT_EQ(report.silenceBefore, 1200);
    EXPECT_EQ(report.silenceAfter, 3400);
    progress.ShowFile("none.wav");
    progress.ShowStatus(33817);
    EXPECT_EQ(app.desktop.reports.back().outline->bytes, 0);
    EXPECT_EQ(app.desktop.reports.back().silenceBefore, 0);
}

TEST(TrimProgress, ViewThatDrawsNothing_CostsNoReading) {
    TestApp app;
    WaveFile wave(app);
    TrimProgress progress(app, wave, app.desktop.OpenProgress());
    progress.ShowFile(app.folder.Write("a.wav", Wav().Tone(44100).Bytes()));
    progress.ShowStatus(33817);
    EXPECT_EQ(app.desktop.reports.back().outline, nullptr);
}

TEST(TrimProgress, NoView_ShowsNothing) {
    TestApp app;
    WaveFile wave(app);
    TrimProgress progress(app, wave, nullptr);
    progress.ShowFile("a.wav");
    progress.ShowStatus(33817);
    WaveFile::Raise(wave.Status, 1);
    EXPECT_TRUE(app.desktop.reports.empty());
}

}  // namespace zefta::test
