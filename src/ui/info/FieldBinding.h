#pragma once

#include <QLineEdit>
#include <string>

#include "library/InformationFields.h"

namespace zefta {

/// A text of the information in its line of entry. What the control can't show as it is (other line ends,
/// what follows a NUL) comes back to the byte while the person leaves it alone. Of a text too long
/// to be edited the beginning is shown, and it is read only.
class FieldBinding {
  public:
    FieldBinding(const InformationField& field, QLineEdit* edit) : field_(field), edit_(edit) {}

    void Show(FileInformation& information);
    void Take(FileInformation& information) const;

    /// Whether the control holds what was put into it.
    bool IsUntouched() const { return edit_->text() == shown_; }
    QLineEdit* Edit() const { return edit_; }

  private:
    InformationField field_;
    QLineEdit* edit_;
    std::string read_;
    QString shown_;
};

}  // namespace zefta
