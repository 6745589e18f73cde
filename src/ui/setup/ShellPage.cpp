#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "core/ShellVerbs.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"
#include "ui/setup/SetupPages.h"

namespace zefta {

namespace {

constexpr std::int32_t Rate = 33711;
constexpr std::int32_t Vbr = 33712;
constexpr std::int32_t Preset = 33723;
constexpr std::int32_t Abr = 33735;
/// A caption that is no message.
constexpr std::int32_t AsItStands = 0;

constexpr auto QualityBox = "chkEncodeOggQmode";

struct VerbBox {
    const char* name;
    std::int32_t message;
    /// Its parameter, or the caption itself.
    const char* text;
};

struct VerbGroup {
    const char* frame;
    std::int32_t caption;
    std::vector<VerbBox> boxes;
};

const VerbGroup CompressedGroup = {
    "fraCompressed", 33707, {{"chkFileInfo", 33708, ""}, {"chkDecode", 33709, ""}}};
const VerbGroup PlaylistGroup = {"fraPlaylists", 33713, {{"chkCopyPlaylist", 33714, ""}}};
const VerbGroup FolderGroup = {"fraFolder", 33718, {{"chkBrowseWithZEFTA", 33715, ""}}};
const VerbGroup LameGroup = {"fraLAMEEncoding",
                             33710,
                             {{"chkEncode128", Rate, "128"},
                              {"chkEncode160", Rate, "160"},
                              {"chkEncode192", Rate, "192"},
                              {"chkEncode256", Rate, "256"},
                              {"chkEncode320", Rate, "320"},
                              {"chkEncode128ABR", Abr, "128"},
                              {"chkEncode160ABR", Abr, "160"},
                              {"chkEncode192ABR", Abr, "192"},
                              {"chkEncode256ABR", Abr, "256"},
                              {"chkEncodeVBR", Vbr, ""},
                              {"chkEncodePreset1", Preset, "1"},
                              {"chkEncodePreset2", Preset, "2"},
                              {"chkEncodePreset3", Preset, "3"}}};
const VerbGroup OggGroup = {"fraOggEncoding",
                            33736,
                            {{"chkEncodeOgg112", Rate, "112"},
                             {"chkEncodeOgg128", Rate, "128"},
                             {"chkEncodeOgg160", Rate, "160"},
                             {"chkEncodeOgg192", Rate, "192"},
                             {"chkEncodeOgg256", Rate, "256"},
                             {"chkEncodeOgg350", Rate, "350"},
                             {QualityBox, AsItStands, "Q="},
                             {"chkEncodeOggPreset1", Preset, "1"},
                             {"chkEncodeOggPreset2", Preset, "2"},
                             {"chkEncodeOggPreset3", Preset, "3"}}};
const VerbGroup MPEGplusGroup = {"fraMPEGplusEncoding",
                                 33737,
                                 {{"chkEncodeMPEGplus1", AsItStands, "Thumb"},
                                  {"chkEncodeMPEGplus2", AsItStands, "Radio"},
                                  {"chkEncodeMPEGplus3", AsItStands, "Standard"},
                                  {"chkEncodeMPEGplus4", AsItStands, "Xtreme"},
                                  {"chkEncodeMPEGplus5", AsItStands, "Insane"},
                                  {"chkEncodeMPEGplus6", AsItStands, "BrainDead"},
                                  {"chkEncodeMPEGplusPreset1", Preset, "1"},
                                  {"chkEncodeMPEGplusPreset2", Preset, "2"},
                                  {"chkEncodeMPEGplusPreset3", Preset, "3"}}};

/// Where the verb of the box stands in the table.
std::size_t IndexOf(const std::string& checkBox) {
    const std::vector<ShellVerb> table = ShellVerbTable(0);
    const auto row = std::find_if(table.begin(), table.end(),
                                  [&](const ShellVerb& verb) { return verb.CheckBox == checkBox; });
    return static_cast<std::size_t>(row - table.begin());
}

QCheckBox* MakeBox(SetupBinding& binding, const VerbBox& row, const QString& group) {
    const QString text = row.message == AsItStands ? QString(row.text) : binding.Text(row.message, row.text);
    const std::size_t verb = IndexOf(row.name);
    QCheckBox* box = MakeCheck(row.name, text, binding.options.Verbs.at(verb));
    box->setAccessibleName(group + ": " + text);
    binding.OnTake([box, verb, &binding] { binding.options.Verbs.at(verb) = box->isChecked(); });
    return box;
}

/// The quality of the verb beside its box.
QLayout* WithQuality(SetupBinding& binding, QCheckBox* box) {
    auto* quality = new QComboBox;
    quality->setObjectName("cmbEncodeOggQuality");
    GuardAgainstScrolling(quality);
    for (int i = 0; i <= HighestOggQuality; ++i) quality->addItem(QString::number(i));
    quality->setCurrentIndex(binding.options.OggQuality);
    quality->setAccessibleName(binding.Own(WindowText::SetupOggQuality));
    quality->setToolTip(quality->accessibleName());
    binding.OnTake([quality, &binding] { binding.options.OggQuality = quality->currentIndex(); });
    auto* line = new QHBoxLayout;
    line->addWidget(box);
    line->addWidget(quality);
    line->addStretch();
    return line;
}

QGroupBox* MakeGroup(SetupBinding& binding, const VerbGroup& group) {
    constexpr int RowsOfColumn = 3;
    auto* frame = new QGroupBox(binding.Text(group.caption));
    frame->setObjectName(group.frame);
    auto* grid = new QGridLayout(frame);
    int place = 0;
    for (const VerbBox& row : group.boxes) {
        QCheckBox* box = MakeBox(binding, row, frame->title());
        if (row.name == std::string_view(QualityBox)) {
            grid->addLayout(WithQuality(binding, box), place % RowsOfColumn, place / RowsOfColumn);
        } else {
            grid->addWidget(box, place % RowsOfColumn, place / RowsOfColumn);
        }
        ++place;
    }
    return frame;
}

}  // namespace

QWidget* MakeShellPage(SetupBinding& binding) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    auto* top = new QHBoxLayout;
    top->addWidget(MakeGroup(binding, CompressedGroup));
    auto* right = new QVBoxLayout;
    right->addWidget(MakeGroup(binding, PlaylistGroup));
    right->addWidget(MakeGroup(binding, FolderGroup));
    top->addLayout(right, 1);
    layout->addLayout(top);
    for (const VerbGroup* group : {&LameGroup, &OggGroup, &MPEGplusGroup})
        layout->addWidget(MakeGroup(binding, *group));
    layout->addStretch();
    return page;
}

}  // namespace zefta
