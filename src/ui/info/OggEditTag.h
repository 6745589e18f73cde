#pragma once

#include <QDialog>
#include <QLineEdit>

#include "core/App.h"

namespace zefta {

/// frmFileInfoOgg_EditTag: name and value of one extended comment.
class OggEditTag : public QDialog {
    Q_OBJECT

  public:
    /// `line` as it stands among the comments, "" for a new one.
    OggEditTag(App& app, const std::string& line, QWidget* parent);

    /// What OK gave: the new line, "" when it has no name. "" after Cancel.
    const std::string& Line() const { return line_; }

  private:
    void OKButton_Click();
    void CancelButton_Click() { reject(); }

    QLineEdit* txtTag_;
    QLineEdit* txtValue_;
    std::string line_;
};

}  // namespace zefta
