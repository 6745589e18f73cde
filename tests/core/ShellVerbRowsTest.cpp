#include <gtest/gtest.h>

#include "core/ShellVerbs.h"

namespace zefta::test {
namespace {

/// As they stand on people's machines: another letter, and an entry of an older version is nobody's any more.
TEST(ShellVerbRows, StandLetterForLetterInTheirOrder) {
    const std::vector<ShellVerb> rows = {
        {".mp3", "chkFileInfo", "ZEFTA File information", "\"%1\""},
        {".mp3", "chkDecode", "ZEFTA Decode", "/d \"%1\" /sync"},
        {".m3u", "chkCopyPlaylist", "ZEFTA Copy playlist", "/copy \"%1\""},
        {".wav", "chkEncode128", "ZEFTA Encode to 128 kbps", "/e 128 \"%1\" /trim"},
        {".wav", "chkEncode160", "ZEFTA Encode to 160 kbps", "/e 160 \"%1\" /trim"},
        {".wav", "chkEncode192", "ZEFTA Encode to 192 kbps", "/e 192 \"%1\" /trim"},
        {".wav", "chkEncode256", "ZEFTA Encode to 256 kbps", "/e 256 \"%1\" /trim"},
        {".wav", "chkEncode320", "ZEFTA Encode to 320 kbps", "/e 320 \"%1\" /trim"},
        {".wav", "chkEncode128ABR", "ZEFTA Encode to 128 kbps ABR", "/e abr 128 \"%1\" /trim"},
        {".wav", "chkEncode160ABR", "ZEFTA Encode to 160 kbps ABR", "/e abr 160 \"%1\" /trim"},
        {".wav", "chkEncode192ABR", "ZEFTA Encode to 192 kbps ABR", "/e abr 192 \"%1\" /trim"},
        {".wav", "chkEncode256ABR", "ZEFTA Encode to 256 kbps ABR", "/e abr 256 \"%1\" /trim"},
        {".wav", "chkEncodeVBR", "ZEFTA Encode using VBR", "/e vbr \"%1\" /trim"},
        {".wav", "chkEncodePreset1", "ZEFTA Encode using preset 1", "/e s1 \"%1\" /trim"},
        {".wav", "chkEncodePreset2", "ZEFTA Encode using preset 2", "/e s2 \"%1\" /trim"},
        {".wav", "chkEncodePreset3", "ZEFTA Encode using preset 3", "/e s3 \"%1\" /trim"},
        {".wav", "chkEncodeOgg112", "ZEFTA Encode to OGG 112 kbps", "/e ob1 \"%1\" /trim"},
        {".wav", "chkEncodeOgg128", "ZEFTA Encode to OGG 128 kbps", "/e ob2 \"%1\" /trim"},
        {".wav", "chkEncodeOgg160", "ZEFTA Encode to OGG 160 kbps", "/e ob3 \"%1\" /trim"},
        {".wav", "chkEncodeOgg192", "ZEFTA Encode to OGG 192 kbps", "/e ob4 \"%1\" /trim"},
        {".wav", "chkEncodeOgg256", "ZEFTA Encode to OGG 256 kbps", "/e ob5 \"%1\" /trim"},
        {".wav", "chkEncodeOgg350", "ZEFTA Encode to OGG 350 kbps", "/e ob6 \"%1\" /trim"},
        {".wav", "chkEncodeOggQmode", "ZEFTA Encode to OGG Q=7", "/e oq7 \"%1\" /trim"},
        {".wav", "chkEncodeOggPreset1", "ZEFTA Encode to OGG using preset 1", "/e os1 \"%1\" /trim"},
        {".wav", "chkEncodeOggPreset2", "ZEFTA Encode to OGG using preset 2", "/e os2 \"%1\" /trim"},
        {".wav", "chkEncodeOggPreset3", "ZEFTA Encode to OGG using preset 3", "/e os3 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus1", "ZEFTA Encode to MPEGplus (thumb)", "/e m1 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus2", "ZEFTA Encode to MPEGplus (radio)", "/e m2 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus3", "ZEFTA Encode to MPEGplus (standard)", "/e m3 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus4", "ZEFTA Encode to MPEGplus (xtreme)", "/e m4 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus5", "ZEFTA Encode to MPEGplus (insane)", "/e m5 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplus6", "ZEFTA Encode to MPEGplus (braindead)", "/e m6 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplusPreset1", "ZEFTA Encode to MPEGplus using preset 1",
         "/e ms1 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplusPreset2", "ZEFTA Encode to MPEGplus using preset 2",
         "/e ms2 \"%1\" /trim"},
        {".wav", "chkEncodeMPEGplusPreset3", "ZEFTA Encode to MPEGplus using preset 3",
         "/e ms3 \"%1\" /trim"},
        {"Folder", "chkBrowseWithZEFTA", "Browse with ZEFTA", "\"%1\""},
    };
    const std::vector<ShellVerb> table = ShellVerbTable(7);
    ASSERT_EQ(table.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_TRUE(table[i] == rows[i]) << rows[i].CheckBox;
}

}  // namespace
}  // namespace zefta::test
