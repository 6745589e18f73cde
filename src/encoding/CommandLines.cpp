#include "encoding/CommandLines.h"

#include "core/Strings.h"
#include "encoding/ModeCatalogue.h"
#include "platform/CommandText.h"
#include "platform/Paths.h"

namespace zefta {

namespace {

std::string CatalogueOptions(const AppState& state, std::int32_t code) {
    const EncodingMode* mode = FindMode(code);
    return mode != nullptr ? ModeOptions(state, *mode) : std::string();
}

/// Output of LAME, and with its extension replaced of the MPEGplus encoder. The upper-case extension is kept:
/// callers look for the output without regard to case.
std::string OutputArgument(const EncodeSource& source) {
    const std::string name = ReplaceAllIgnoringCase(source.name, ".wav", ".MP3");
    return QuotePath(WithClosingSeparator(source.destination) + name);
}

/// Four ranges of rates, each with the fragment of one of the ABR modes. A rate outside of them means the
/// full VBR line.
std::string VariableRateOptions(const AppState& state) {
    const int rate = state.Bitrate;
    const int mode = rate < 110 || rate > 310 ? 555
                     : rate < 140             ? 1128
                     : rate < 175             ? 1160
                     : rate < 210             ? 1192
                                              : 1256;
    return CatalogueOptions(state, mode) + (mode == 555 ? "" : std::to_string(rate));
}

std::string ConstantRateOptions(const AppState& state) {
    switch (state.Bitrate) {
        // No list offers this rate; the command line does.
        case 224:
            return "lame.exe -m s -h -b 224 --lowpass 19.5 ";
        case 128:
        case 160:
        case 192:
        case 256:
        case 320:
        case 9001:
        case 9002:
        case 9003:
            return CatalogueOptions(state, state.Bitrate);
        default:
            return {};
    }
}

std::string OggOptions(const AppState& state) {
    const int mode = state.OggVorbisMode;
    const std::string options = CatalogueOptions(state, 2000 + mode);
    if (!options.empty()) return options;
    // A rate outside the catalogue reaches the encoder as 0, a quality outside of it is 8.
    return mode < 10 ? "oggenc.exe -b0kbps" : "oggenc.exe -q8";
}

std::string MPEGplusOptions(const AppState& state) {
    const std::string options = CatalogueOptions(state, 3000 + state.MPEGplusMode);
    return options.empty() ? CatalogueOptions(state, 3003) : options;
}

/// The program in the form of the documented command line. A dot in its own name ("zefta-2.0") is no
/// extension.
std::string ProgramArgument(const std::string& ownPath) {
    constexpr std::string_view Extension = ".exe";
    return QuotePath(ownPath.ends_with(Extension) ? ownPath : ownPath + std::string(Extension));
}

}  // namespace

std::string TrimChildCommand(const AppState& state, const std::string& ownPath, const std::string& path,
                             bool normalize) {
    return ProgramArgument(ownPath) + " /wavetrim " + QuotePath(path) + " /f0 /nb /zx /before 1 /after 1" +
           (normalize ? " /norm" : "") + (state.ShowExecuteWindows ? " /showexec" : " /dontshowexec");
}

std::string OggEncodeCommand(const AppState& state, const EncodeSource& source) {
    const std::string output = ReplaceAllIgnoringCase(source.name, ".wav", ".ogg");
    return OggOptions(state) + " -n" + QuotePath(output) + " " + QuotePath(source.path);
}

std::string MPEGplusEncodeCommand(const AppState& state, const EncodeSource& source) {
    return "mppenc.exe " + MPEGplusOptions(state) + " " + (state.ReduceLevel ? " -scale 0.95 " : "") +
           QuotePath(source.path) + " " + ReplaceAllIgnoringCase(OutputArgument(source), ".mp3", ".mpc");
}

std::string LameEncodeCommand(const AppState& state, const EncodeSource& source) {
    const std::string options = state.UseVBR ? VariableRateOptions(state) : ConstantRateOptions(state);
    if (options.empty()) return {};
    return options + " " + (state.ReduceLevel ? " --scale 0.95 " : "") + " " + QuotePath(source.path) + " " +
           OutputArgument(source);
}

std::string EncodeCommand(const AppState& state, const EncodeSource& source) {
    if (state.UseOggVorbis) return OggEncodeCommand(state, source);
    if (state.UseMPEGplus) return MPEGplusEncodeCommand(state, source);
    return LameEncodeCommand(state, source);
}

std::string OggDecodeCommand(const std::string& path) {
    return "oggdec.exe " + QuotePath(path);
}

std::string MPEGplusDecodeCommand(const std::string& path) {
    return "mppdec.exe " + QuotePath(path) + " " + QuotePath(DecodedPath(path));
}

std::string LameDecodeCommand(const std::string& path) {
    return "lame.exe --mp3input --decode " + QuotePath(path);
}

std::string DecodeCommand(const AppState& state, const std::string& path) {
    if (state.UseOggVorbis) return OggDecodeCommand(path);
    if (state.UseMPEGplus) return MPEGplusDecodeCommand(path);
    return LameDecodeCommand(path);
}

std::string DecodedPath(const std::string& path) {
    return path + ".wav";
}

std::string OggDecoderOutput(const std::string& path) {
    constexpr std::string_view Extension = ".ogg";
    return path.substr(0, path.size() - Extension.size()) + ".wav";
}

}  // namespace zefta
