#pragma once

#include <QLineEdit>

namespace zefta {

/// Where the person goes on behind the edit of a cell.
enum class CellMove { Stay, Down, Up, Next, Previous };

/// Text1: the text box that is laid over a cell while it is edited. Hears the keys that end the edit.
class CellEditor : public QLineEdit {
    Q_OBJECT

  public:
    explicit CellEditor(QWidget* parent);

  signals:
    /// The text is to go to its cell.
    void Stored(zefta::CellMove move);
    /// The cell is to keep its text.
    void Left();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
};

}  // namespace zefta
