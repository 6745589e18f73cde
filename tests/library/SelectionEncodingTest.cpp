#include "core/Strings.h"
#include "library/SelectionEncoding.h"
#include "library/SelectionStage.h"
#include "support/Mp3Builder.h"

namespace zefta::test {
namespace {

class SelectionEncoding : public SelectionStage {
  protected:
    SelectionEncoding() {
        app.state.Saved.TrimSilence = false;
        app.processes.tool = [this](const RecordingProcesses::Run& run) { PlayTool(run); };
    }

    /// Encoders write an MP3 stream to the last path, decoders a WAV file beside their input.
    void PlayTool(const RecordingProcesses::Run& run) {
        const auto arguments = SplitCommandLine(run.commandLine);
        const std::string last = arguments.back().text;
        const bool isEncoder = IsWaveName(last) || last.find(".MP3") != std::string::npos;
        if (!isEncoder) return;
        if (failing.contains(NamePartOf(last))) return;
        WriteWholeFile(last, Mp3().Bytes());
    }

    static bool IsWaveName(const std::string& path) { return AsciiLower(path).ends_with(".wav"); }
    static std::string NamePartOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

    Texts Commands() const {
        Texts commands;
        for (const auto& run : app.processes.runs) commands.push_back(run.commandLine);
        return commands;
    }

    std::map<std::string, bool> failing;
};

constexpr ModeOfCommand Lame128 = {TargetKind::MP3, 128};

TEST(ModeOfCommand, Fields_AsEachCodeSaysWhateverWasBefore) {
    struct Case {
        ModeOfCommand mode;
        int bitrate;
        bool vbr, ogg, mpc;
    };
    const Case cases[] = {
        {{TargetKind::MP3, 128}, 128, false, false, false},
        {{TargetKind::MP3, 320}, 320, false, false, false},
        {{TargetKind::MP3, 555}, 320, true, false, false},
        {{TargetKind::MP3, 1128}, 128, true, false, false},
        {{TargetKind::MP3, 1256}, 256, true, false, false},
        {{TargetKind::MP3, 9002}, 9002, false, false, false},
        {{TargetKind::OggVorbis, 20}, 77, false, true, false},
        {{TargetKind::MPEGplus, 11}, 77, false, false, true},
    };
    for (const Case& each : cases) {
        AppState state;
        state.Bitrate = 77;
        state.UseVBR = state.UseOggVorbis = state.UseMPEGplus = true;
        SetModeOfCommand(state, each.mode);
        EXPECT_EQ(state.Bitrate, each.bitrate) << each.mode.code;
        EXPECT_EQ(state.UseVBR, each.vbr) << each.mode.code;
        EXPECT_EQ(state.UseOggVorbis, each.ogg) << each.mode.code;
        EXPECT_EQ(state.UseMPEGplus, each.mpc) << each.mode.code;
        EXPECT_EQ(state.OggVorbisMode, each.ogg ? each.mode.code : AppState().OggVorbisMode);
        EXPECT_EQ(state.MPEGplusMode, each.mpc ? each.mode.code : AppState().MPEGplusMode);
    }
}

TEST(ModeOfCommand, TrimmingAndLevel_AreThoseOfTheSettings) {
    AppState state;
    state.Saved.TrimSilence = false;
    state.Saved.ReduceLevel = true;
    state.Normalize = true;
    state.Saved.NormalizeSeparately = true;
    SetModeOfCommand(state, Lame128);
    EXPECT_FALSE(state.TrimSilence);
    EXPECT_TRUE(state.ReduceLevel);
    EXPECT_FALSE(state.Normalize);
    EXPECT_TRUE(state.NormalizeSeparately);
}

TEST_F(SelectionEncoding, Encode_AsksByKind) {
    const std::pair<TargetKind, std::pair<int, int>> cases[] = {
        {TargetKind::MP3, {32010, 32011}},
        {TargetKind::OggVorbis, {32012, 32013}},
        {TargetKind::MPEGplus, {32022, 32021}},
    };
    std::size_t index = 0;
    for (const auto& [kind, messages] : cases) {
        EXPECT_FALSE(EncodeSelected(app, selection, {kind, 1}, Watch()));
        EXPECT_EQ(Question(index), Message(messages.first) + ": " + Message(messages.second));
        EXPECT_FALSE(app.desktop.questions[index++].noIsDefault);
        EXPECT_FALSE(ReEncodeSelected(app, selection, {kind, 1}, Watch()));
        EXPECT_EQ(Question(index++), Message(messages.first) + ": " + Message(32020));
    }
}

TEST_F(SelectionEncoding, AnswerNo_DoesNothing) {
    Select("a.wav");
    EXPECT_FALSE(EncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_FALSE(ReEncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_FALSE(DecodeSelected(app, selection, Watch()));
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(app.state.Bitrate, AppState().Bitrate);
}

TEST_F(SelectionEncoding, Encode_TakesWavesOnlyInListOrderAndTagsThem) {
    Select("sub");
    Select("b.mp3");
    Select("x.WAV");
    Select("a.wav");
    AnswerYes();
    EXPECT_TRUE(EncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_EQ(statuses, (Texts{"[1/2] x.WAV", "[2/2] a.wav"}));
    EXPECT_EQ(done, (Texts{"x.WAV", "a.wav"}));
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_EQ(Commands()[1], "lame.exe -m j -h -b 128 --lowpass 16.5 --resample 44.1   \"" +
                                 app.folder / "a.wav" + "\" \"" + (app.folder / "a.MP3") + "\"");
    EXPECT_EQ(wave.GetMP3FileInfo(app.folder / "a.mp3").Title, "a");
}

TEST_F(SelectionEncoding, Encode_FileWithoutOutputStaysSelected) {
    Select("a.wav");
    Select("b.wav");
    failing["a.MP3"] = true;
    AnswerYes();
    EncodeSelected(app, selection, Lame128, Watch());
    EXPECT_EQ(done, (Texts{"b.wav"}));
    EXPECT_TRUE(app.desktop.boxes.empty());
}

TEST_F(SelectionEncoding, Encode_ToolsWorkInTheShownFolder) {
    std::filesystem::create_directories(app.folder / "sub");
    app.files.SetCurrentFolder(app.folder / "sub");
    Select("a.wav");
    AnswerYes();
    std::string folder;
    app.processes.tool = [&](const RecordingProcesses::Run&) { folder = app.files.CurrentFolder(); };
    EncodeSelected(app, selection, {TargetKind::OggVorbis, 15}, Watch());
    EXPECT_EQ(folder, app.folder.Path());
}

TEST_F(SelectionEncoding, Encode_CancelEndsBehindTheFileAtHand) {
    Select("a.wav");
    Select("b.wav");
    Select("c.wav");
    AnswerYes();
    app.desktop.cancelsFromItem = 2;
    EXPECT_TRUE(EncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_EQ(done, (Texts{"a.wav"}));
    EXPECT_EQ(app.processes.runs.size(), 1U);
}

TEST_F(SelectionEncoding, FolderThatIsGone_IsTold) {
    Select("a.wav");
    selection.folder += "/none";
    AnswerYes();
    EXPECT_TRUE(EncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.processes.runs.empty());
}

TEST_F(SelectionEncoding, ReEncode_TakesAllFilesButWaves) {
    Select("..");
    Select("sub");
    Select("list.m3u");
    Select("a.mp3", Mp3().Bytes());
    Select("b.wav");
    AnswerYes();
    EXPECT_TRUE(ReEncodeSelected(app, selection, Lame128, Watch()));
    EXPECT_EQ(statuses, (Texts{"[1/2] list.m3u", "[2/2] a.mp3"}));
    // Each one is decoded, then what should have come of it trimmed.
    const Texts commands = Commands();
    ASSERT_EQ(commands.size(), 4U);
    EXPECT_EQ(commands[0], "lame.exe --mp3input --decode \"" + app.folder / "list.m3u" + "\"");
    EXPECT_EQ(commands[2], "lame.exe --mp3input --decode \"" + app.folder / "a.mp3" + "\"");
    ASSERT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.boxes[1].text, "File not found!");
}

TEST_F(SelectionEncoding, ReEncode_FailureOfOneFile_IsToldAndTheNextFollows) {
    Select("a.mp3", Mp3().Bytes());
    Select("b.mp3", Mp3().Bytes());
    app.processes.tool = [this](const RecordingProcesses::Run& run) {
        if (run.commandLine.find("--decode") == std::string::npos) return;
        WriteWholeFile(SplitCommandLine(run.commandLine).back().text + ".wav", "wave");
    };
    AnswerYes();
    ReEncodeSelected(app, selection, Lame128, Watch());
    EXPECT_EQ(app.desktop.boxes.size(), 2U);
    EXPECT_EQ(app.desktop.boxes[0].kind, BoxKind::Warning);
    EXPECT_EQ(statuses.size(), 2U);
}

TEST_F(SelectionEncoding, Decode_AsksAndTakesCompressedFilesOnly) {
    Select("ogg.mp3dir");
    selection.rows.push_back({RowIcon::Folder, "folder.mp3"});
    Select("a.mpc");
    Select("b.wav");
    Select("c.lqt");
    Select("d.MP3");
    AnswerYes();
    EXPECT_TRUE(DecodeSelected(app, selection, Watch()));
    EXPECT_EQ(Question(), Message(32006) + ": " + Message(32007));
    EXPECT_EQ(statuses, (Texts{"[1/2] a.mpc", "[2/2] d.MP3"}));
    EXPECT_EQ(app.processes.runs.size(), 2U);
}

TEST_F(SelectionEncoding, Decode_TrimmingIsThatOfTheSettings) {
    Select("d.mp3");
    app.state.TrimSilence = false;
    app.state.Saved.TrimSilence = true;
    AnswerYes();
    app.processes.tool = nullptr;
    app.folder.Write("d.mp3.wav", "wave");
    DecodeSelected(app, selection, Watch());
    ASSERT_EQ(app.processes.runs.size(), 2U);
    EXPECT_NE(app.processes.runs[1].commandLine.find("/wavetrim"), std::string::npos);
}

}  // namespace
}  // namespace zefta::test
