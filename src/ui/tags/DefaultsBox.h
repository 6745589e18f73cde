#pragma once

#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>

#include "core/App.h"
#include "library/TagGrid.h"

namespace zefta {

class GenreBox;
class YearGuard;

/// A control with its label in front, a numbered message.
void AddLabelled(App& app, QFormLayout* form, QWidget* control, std::int32_t label);

/// A line of entry with its label.
QLineEdit* AddLine(App& app, QFormLayout* form, const char* name, std::int32_t label);

/// The guard of a line that takes a year. `wayOut`: a control that may have the focus all the same.
YearGuard* GuardYear(App& app, QLineEdit* year, QWidget* wayOut);

/// fraDefaults: values for all files of a grid: txtDefArtist, txtDefAlbum, txtDefYear, cmbGenre.
class DefaultsBox : public QGroupBox {
    Q_OBJECT

  public:
    explicit DefaultsBox(App& app, QWidget* parent = nullptr);

    /// `wayOut`: by which the person may leave a year that is none.
    void GuardYearWith(App& app, QWidget* wayOut);

    TagDefaults Defaults() const;
    /// Nothing has been entered.
    bool IsEmpty() const;
    /// False when a field does not hold what it takes; it has the focus then.
    bool Validate();

  private:
    QLineEdit* txtDefArtist_;
    QLineEdit* txtDefAlbum_;
    QLineEdit* txtDefYear_;
    GenreBox* cmbGenre_;
    YearGuard* year_ = nullptr;
};

}  // namespace zefta
