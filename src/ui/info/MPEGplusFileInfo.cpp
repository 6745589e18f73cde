#include "ui/info/MPEGplusFileInfo.h"

#include <QVBoxLayout>

namespace zefta {

MPEGplusFileInfo::MPEGplusFileInfo(App& app, const std::string& path, QWidget* parent)
    : InformationDialog(app, path, {"frmFileInfoMPEGplus", 33401, 33422}, parent) {
    auto* column = new QVBoxLayout;
    column->addWidget(MakeFileBox());
    auto* tags = new QGroupBox(Text(33423));
    auto* form = new QFormLayout(tags);
    MakeFields(form, FieldsOfMPEGplus(), {});
    form->addRow(MakeRemoveUnknownFrames());
    column->addWidget(tags);
    column->addStretch(1);
    Arrange(column);
    Form_Load();
}

}  // namespace zefta
