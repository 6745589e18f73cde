#pragma once

#include <QComboBox>
#include <cstdint>
#include <optional>

#include "core/App.h"

namespace zefta {

/// cmbGenre: all genres to choose from; one can be typed as well, in any case.
class GenreBox : public QComboBox {
    Q_OBJECT

  public:
    explicit GenreBox(const App& app, QWidget* parent = nullptr);

    /// Place in GenreTable; nothing when the box holds no genre of the list.
    std::optional<std::uint8_t> Genre() const;

    /// True for a genre of the list and for no text at all; otherwise the box has the focus, and the person
    /// is told what it takes.
    bool Validate();

  protected:
    void focusOutEvent(QFocusEvent* event) override;

  private:
    /// A typed genre of the list becomes its entry; of a text that is none the person is told.
    void cmbGenre_LostFocus();
    int Entry() const;
    bool Passes() const;
    void Tell();

    QString rule_;
};

}  // namespace zefta
