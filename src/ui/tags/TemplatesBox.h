#pragma once

#include <QComboBox>
#include <QGroupBox>

#include "core/App.h"

namespace zefta {

/// The templates by which names of files are read: cmbTemplates and cmdRetrieveTags.
class TemplatesBox : public QGroupBox {
    Q_OBJECT

  public:
    /// The template of the settings is chosen.
    explicit TemplatesBox(App& app, QWidget* parent = nullptr);

    /// Place in ReverseTemplates; -1 when none is chosen.
    int Template() const;
    /// The choice goes to the settings, which others write.
    void StoreIn(AppState& state) const;

  signals:
    /// cmdRetrieveTags was pressed.
    void Retrieve();

  private:
    void FillReverseTemplates(const AppState& state);

    QComboBox* cmbTemplates_;
};

}  // namespace zefta
