#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "encoding/ModeCatalogue.h"
#include "ui/QtText.h"
#include "ui/setup/SetupPages.h"

namespace zefta {

namespace {

constexpr std::int32_t RateCaption = 33711;
constexpr std::int32_t VbrCaption = 33712;
constexpr std::int32_t AbrCaption = 33735;

/// A box for a mode.
struct ModeBox {
    QString name;
    QString text;
    bool* field;
};

struct ModeFrame {
    const char* master;
    const char* frame;
    std::int32_t caption;
    std::vector<ModeBox> boxes;
};

ModeFrame LameFrame(const SetupBinding& binding) {
    SetupOptions& options = binding.options;
    const auto rate = [&](const char* kbps) { return binding.Text(RateCaption, kbps); };
    const auto abr = [&](const char* kbps) { return binding.Text(AbrCaption, kbps); };
    return {"chkLAMEEncodingModesEnable",
            "fraLAMEEncodingModes",
            33722,
            {{"chkEnableLAME128", rate("128"), &options.EnableLAME128},
             {"chkEnableLAME160", rate("160"), &options.EnableLAME160},
             {"chkEnableLAME192", rate("192"), &options.EnableLAME192},
             {"chkEnableLAME256", rate("256"), &options.EnableLAME256},
             {"chkEnableLAME320", rate("320"), &options.EnableLAME320},
             {"chkEnableLAMEVBR", binding.Text(VbrCaption), &options.EnableLAMEVBR},
             {"chkEnableLAME128ABR", abr("128"), &options.EnableLAME128ABR},
             {"chkEnableLAME160ABR", abr("160"), &options.EnableLAME160ABR},
             {"chkEnableLAME192ABR", abr("192"), &options.EnableLAME192ABR},
             {"chkEnableLAME256ABR", abr("256"), &options.EnableLAME256ABR}}};
}

ModeFrame OggFrame(const SetupBinding& binding) {
    constexpr std::array<const char*, 6> Rates = {"112", "128", "160", "192", "256", "350"};
    SetupOptions& options = binding.options;
    ModeFrame frame = {"chkOGGEncodingModesEnable", "fraOGGEncodingModes", 33743, {}};
    for (std::size_t i = 0; i < options.EnableOGGb.size(); ++i)
        frame.boxes.push_back({QString("chkEnableOGGb%1").arg(i + 1), binding.Text(RateCaption, Rates.at(i)),
                               &options.EnableOGGb.at(i)});
    for (std::size_t i = 0; i < options.EnableOGGq.size(); ++i)
        frame.boxes.push_back(
            {QString("chkEnableOGGq%1").arg(i), QString("Q=%1").arg(i), &options.EnableOGGq.at(i)});
    return frame;
}

/// The profiles are called as in the catalogue, without the name of the encoder.
ModeFrame MPEGplusFrame(const SetupBinding& binding) {
    constexpr std::int32_t FirstCode = 3001;
    SetupOptions& options = binding.options;
    ModeFrame frame = {"chkMPCEncodingModesEnable", "fraMPCEncodingModes", 33744, {}};
    for (std::size_t i = 0; i < options.EnableMPCm.size(); ++i) {
        const QString label = ToQt(FindMode(FirstCode + static_cast<std::int32_t>(i))->label);
        frame.boxes.push_back(
            {QString("chkEnableMPCm%1").arg(i + 1), label.section(' ', 1), &options.EnableMPCm.at(i)});
    }
    return frame;
}

QGroupBox* MakeModeFrame(SetupBinding& binding, const ModeFrame& frame, QCheckBox* master) {
    constexpr int RowsOfColumn = 10;
    auto* group = new QGroupBox;
    group->setObjectName(frame.frame);
    group->setAccessibleName(master->text());
    auto* grid = new QGridLayout(group);
    std::vector<QCheckBox*> boxes;
    for (const ModeBox& mode : frame.boxes) {
        QCheckBox* box = MakeCheck(qPrintable(mode.name), mode.text, *mode.field);
        box->setAccessibleName(master->text() + " " + mode.text);
        const int place = static_cast<int>(boxes.size());
        grid->addWidget(box, place % RowsOfColumn, place / RowsOfColumn);
        boxes.push_back(box);
        // A mode of an encoder that is switched off is offered nowhere.
        binding.OnTake(
            [box, master, field = mode.field] { *field = box->isChecked() && master->isChecked(); });
    }
    grid->setRowStretch(RowsOfColumn, 1);
    group->setEnabled(master->isChecked());
    QObject::connect(master, &QCheckBox::toggled, group, [group, boxes](bool isOn) {
        group->setEnabled(isOn);
        // An encoder without a mode would still be switched off.
        const bool isEmpty =
            std::none_of(boxes.begin(), boxes.end(), [](auto* box) { return box->isChecked(); });
        for (QCheckBox* box : boxes) {
            if (isOn && isEmpty) box->setChecked(true);
        }
    });
    return group;
}

QLayout* MakeColumn(SetupBinding& binding, const ModeFrame& frame) {
    const bool isAnyOn =
        std::any_of(frame.boxes.begin(), frame.boxes.end(), [](const ModeBox& mode) { return *mode.field; });
    QCheckBox* master = MakeCheck(frame.master, binding.Text(frame.caption), isAnyOn);
    auto* column = new QVBoxLayout;
    column->addWidget(master);
    column->addWidget(MakeModeFrame(binding, frame, master), 1);
    return column;
}

}  // namespace

QWidget* MakeModesPage(SetupBinding& binding) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(new QLabel(binding.Text(33746)));
    auto* columns = new QHBoxLayout;
    for (const ModeFrame& frame : {LameFrame(binding), OggFrame(binding), MPEGplusFrame(binding)})
        columns->addLayout(MakeColumn(binding, frame), 1);
    layout->addLayout(columns);
    layout->addStretch();
    return page;
}

}  // namespace zefta
