#pragma once

#include <QDialog>
#include <string>

#include "core/MessageTable.h"

class QLineEdit;

namespace zefta {

/// An input box.
struct InputQuestion {
    std::string prompt;
    std::string title;
    std::string defaultAnswer;
};

/// Asks for a line of text; its default stands selected, so that typing replaces it.
class InputDialog : public QDialog {
    Q_OBJECT

  public:
    InputDialog(Language language, const InputQuestion& question, QWidget* parent);

    std::string Answer() const;

  private:
    QLineEdit* answer_;
};

}  // namespace zefta
