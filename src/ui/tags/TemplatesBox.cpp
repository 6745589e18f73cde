#include "ui/tags/TemplatesBox.h"

#include <QHBoxLayout>
#include <QPushButton>

#include "library/ReverseTemplates.h"
#include "ui/QtText.h"
#include "ui/ScrollGuard.h"

namespace zefta {

TemplatesBox::TemplatesBox(App& app, QWidget* parent)
    : QGroupBox(ToQt(app.messages.GetMessage(34115)), parent), cmbTemplates_(new QComboBox) {
    setObjectName("fraTemplates");
    auto* row = new QHBoxLayout(this);
    cmbTemplates_->setObjectName("cmbTemplates");
    cmbTemplates_->setAccessibleName(title());
    GuardAgainstScrolling(cmbTemplates_);
    FillReverseTemplates(app.state);
    auto* retrieve = new QPushButton(ToQt(app.messages.GetMessage(34114)));
    retrieve->setObjectName("cmdRetrieveTags");
    retrieve->setAutoDefault(false);
    row->addWidget(cmbTemplates_, 1);
    row->addWidget(retrieve);
    connect(retrieve, &QPushButton::clicked, this, &TemplatesBox::Retrieve);
}

void TemplatesBox::FillReverseTemplates(const AppState& state) {
    for (const ReverseTemplate& each : ReverseTemplates())
        cmbTemplates_->addItem(ToQt(each.text), cmbTemplates_->count());
    cmbTemplates_->setCurrentIndex(cmbTemplates_->findData(int{state.ChangeTags_ReverseFormat}));
}

int TemplatesBox::Template() const {
    return cmbTemplates_->currentIndex() < 0 ? -1 : cmbTemplates_->currentData().toInt();
}

void TemplatesBox::StoreIn(AppState& state) const {
    if (Template() >= 0) state.ChangeTags_ReverseFormat = static_cast<std::int16_t>(Template());
}

}  // namespace zefta
